// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PathThinning.h"
#include "connectors/PlaneGrid.h"
#include "tests/connectors/ConnectorScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

ClipperLib::Path roundPath(double radius, int points)
{
    ClipperLib::Path path;
    for (UPoint2<float> const& p : circle(1, points))
        path.push_back({ClipperLib::cInt(p.X() * radius), ClipperLib::cInt(p.Y() * radius)});
    return path;
}

/// The largest distance of a path's points from another one.
double distanceOf(ClipperLib::Path const& path, ClipperLib::Path const& from)
{
    double largest = 0;
    for (auto const& p : path) {
        double least = 1e30;
        for (std::size_t i = 0; i < from.size(); ++i) {
            auto const& a = from[i];
            auto const& b = from[(i + 1) % from.size()];
            double const x = double(b.X - a.X), y = double(b.Y - a.Y);
            double const u = double(p.X - a.X), v = double(p.Y - a.Y);
            double const t = std::clamp((u * x + v * y) / std::max(1.0, x * x + y * y), 0.0, 1.0);
            least = std::min(least, std::hypot(u - t * x, v - t * y));
        }
        largest = std::max(largest, least);
    }
    return largest;
}

}  // namespace

TEST(PathThinning, KeepsCornersAndLeavesPointsBetweenThemOut)
{
    ClipperLib::Path path;
    for (int i = 0; i < 10; ++i)
        path.push_back({1000 * i, i % 2});
    path.push_back({10000, 0});
    path.push_back({10000, 5000});
    path.push_back({0, 5000});
    EXPECT_EQ(thinned(path, 1), (ClipperLib::Path{{0, 0}, {10000, 0}, {10000, 5000}, {0, 5000}}));
    EXPECT_EQ(thinned(path, 0.5).size(), path.size());
}

TEST(PathThinning, NoPointLiesBesideThePathByMoreThanTheTolerance)
{
    ClipperLib::Path const path = roundPath(60000, 20000);
    for (double const tolerance : {1.0, 5.0, 50.0}) {
        ClipperLib::Path const few = thinned(path, tolerance);
        EXPECT_LT(few.size(), path.size() / 4);
        EXPECT_GE(few.size(), 50u);
        EXPECT_EQ(few.front(), path.front());
        EXPECT_LE(distanceOf(path, few), tolerance + 1e-9);
        EXPECT_NEAR(ClipperLib::Area(few), ClipperLib::Area(path), 4e5 * tolerance);
    }
}

TEST(PathThinning, ShortPathsStayAsTheyAre)
{
    for (ClipperLib::Path const& path :
         {ClipperLib::Path{}, ClipperLib::Path{{1, 2}}, ClipperLib::Path{{0, 0}, {5, 0}, {9, 0}}})
        EXPECT_EQ(thinned(path, 100), path);
}

TEST(PlaneGrid, OnlyContoursOfThousandsOfPointsAreThinned)
{
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    for (int const points : {100, 3999, 4000, 4001, 20000}) {
        SectionContour contour;
        for (UPoint2<float> const& p : circle(60, points))
            contour.push_back({p.X(), p.Y(), 0});
        auto const size = PlaneGrid::pathOf(contour, frame).size();
        if (points <= 4000) {
            EXPECT_EQ(size, std::size_t(points));
        } else {
            EXPECT_LT(size, 4000u);
        }
    }
}
