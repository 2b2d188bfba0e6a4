// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/tools/OutlineScene.h"
#include "tools/OutlineOffset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

/// Judges moved outlines by nothing but distances and angles.

inline double windingAround(double x, double y, Freecut::Loops const& outlines)
{
    double turns = 0;
    for (Freecut::Ring const& ring : outlines)
        for (std::size_t i = 0; i < ring.size(); ++i) {
            UPoint3<float> const &a = ring[i], &b = ring[(i + 1) % ring.size()];
            double const ax = a.X() - x, ay = a.Y() - y, bx = b.X() - x, by = b.Y() - y;
            turns += std::atan2(ax * by - ay * bx, ax * bx + ay * by);
        }
    return turns / (2 * M_PI);
}

inline double distanceFrom(double x, double y, Freecut::Loops const& outlines)
{
    double least = HUGE_VAL;
    for (Freecut::Ring const& ring : outlines)
        for (std::size_t i = 0; i < ring.size(); ++i) {
            UPoint3<float> const &a = ring[i], &b = ring[(i + 1) % ring.size()];
            double const ux = b.X() - a.X(), uy = b.Y() - a.Y(), vx = x - a.X(), vy = y - a.Y();
            double const squared = ux * ux + uy * uy;
            double const t =
                squared > 0 ? std::clamp((vx * ux + vy * uy) / squared, 0.0, 1.0) : 0.0;
            least = std::min(least, std::hypot(vx - t * ux, vy - t * uy));
        }
    return least;
}

/// Outlines in the view from above as they are moved: on the grid, towards its origin.
inline Freecut::Loops onGridOf(Freecut::Loops outlines)
{
    for (Freecut::Ring& ring : outlines)
        for (UPoint3<float>& p : ring)
            p = {std::trunc(p.X() * 1000.0f) / 1000.0f, std::trunc(p.Y() * 1000.0f) / 1000.0f, 0};
    return outlines;
}

/// The points of the moved outlines are as far from the source as they should be, and they wind
/// around what is so near to it and around nothing else.
inline void expectMovedBy(Freecut::Loops const& outlines, double distance, std::mt19937& random)
{
    constexpr double tolerance = 0.002;
    Freecut::Loops const source = onGridOf(outlines);
    std::optional<Freecut::Loops> const moved =
        Freecut::OutlineOffset(outlines, {topCamera(), 0}).moved(distance);
    ASSERT_TRUE(moved.has_value());
    ASSERT_FALSE(moved->empty());
    std::size_t number = 0;
    for (Freecut::Ring const& ring : *moved)
        for (UPoint3<float> const& p : ring)
            if (number++ % 23 == 0) {
                EXPECT_NEAR(distanceFrom(p.X(), p.Y(), source), std::abs(distance), tolerance);
            }
    EXPECT_GT(number, 200u);
    std::uniform_real_distribution<double> beside(-2 * std::abs(distance), 2 * std::abs(distance));
    for (int i = 0; i < 400; ++i) {
        UPoint3<float> const& p = source[0][random() % source[0].size()];
        double const x = p.X() + beside(random), y = p.Y() + beside(random);
        double const away = distanceFrom(x, y, source);
        bool const isInside = std::abs(windingAround(x, y, source)) > 0.5;
        double const depth = (isInside ? away : -away) + distance;
        if (std::abs(depth) > tolerance) {
            EXPECT_EQ(std::abs(windingAround(x, y, *moved)) > 0.5, depth > 0) << x << ' ' << y;
        }
    }
}
