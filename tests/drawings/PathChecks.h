// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drawings/Drawing.h"
#include "platform/jobs/Exceptions.h"
#include "tests/support/TextChanges.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using Drawings::Path;
using Drawings::Point;

inline void expectPoints(Path const& path, std::vector<Point> const& expected)
{
    ASSERT_EQ(path.points.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(path.points[i].X(), expected[i].X(), 1e-6) << i;
        EXPECT_NEAR(path.points[i].Y(), expected[i].Y(), 1e-6) << i;
    }
}

/// Points on a circle, right around it, and no chord further from it than 0.01 mm.
inline void expectCircle(Path const& path, Point const& middle, double radius)
{
    std::size_t const count = path.points.size();
    ASSERT_GE(count, 8u);
    double around = 0;
    for (std::size_t i = 0; i < count; ++i) {
        Point const &p = path.points[i], &q = path.points[(i + 1) % count];
        double const px = p.X() - middle.X(), py = p.Y() - middle.Y();
        double const qx = q.X() - middle.X(), qy = q.Y() - middle.Y();
        EXPECT_NEAR(std::hypot(px, py), radius, 1e-6);
        EXPECT_LT(radius - std::hypot((px + qx) / 2, (py + qy) / 2), 0.01);
        around += std::atan2(px * qy - qx * py, px * qx + py * qy);
    }
    EXPECT_NEAR(std::abs(around), 2 * M_PI, 1e-6);
}

inline double distanceFrom(Path const& path, Point const& p)
{
    double least = 1e30;
    std::size_t const count = path.points.size();
    for (std::size_t i = 0; i + (path.isClosed ? 0 : 1) < count; ++i) {
        Point const &a = path.points[i], &b = path.points[(i + 1) % count];
        double const dx = b.X() - a.X(), dy = b.Y() - a.Y();
        double const t = std::clamp(
            ((p.X() - a.X()) * dx + (p.Y() - a.Y()) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
        least = std::min(least, std::hypot(p.X() - a.X() - t * dx, p.Y() - a.Y() - t * dy));
    }
    return least;
}

using PathReader = std::vector<Path> (*)(QByteArray const&, Drawings::Unit);

/// Why the largest path of a text is refused; empty if it is not.
inline std::string refusalOf(QByteArray const& text, PathReader read)
{
    try {
        Drawings::chosenPath(read(text, {}), {});
        return {};
    } catch (Mell::Exception const& reason) {
        return reason.what();
    }
}

/// Changes texts by a few bytes, many times over: each gives points or a sentence.
inline void expectNoHarm(std::vector<QByteArray> const& seeds, PathReader read, int runs = 20000)
{
    std::mt19937 random(1);
    QByteArray const pieces = "<>/\"'=.,-+eE0123456789 MmLlCcAaZz()\n";
    int readable = 0;
    for (int run = 0; run < runs; ++run) {
        QByteArray text = seeds[std::size_t(run) % seeds.size()];
        changeText(text, pieces, {4, 24}, random);
        try {
            for (Path const& path : read(text, {})) {
                ASSERT_GE(path.points.size(), 2u);
                for (Point const& p : path.points)
                    ASSERT_TRUE(std::abs(p.X()) <= 1e6 && std::abs(p.Y()) <= 1e6);
            }
            ++readable;
        } catch (Mell::Exception const& reason) {
            ASSERT_FALSE(std::string(reason.what()).empty());
        }
    }
    EXPECT_GT(readable, runs / 50);
}
