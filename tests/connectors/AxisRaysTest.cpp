// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/AxisRays.h"
#include "connectors/PlacedMesh.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using Point = UPoint3<float>;

AxisRays raysAt(std::vector<Point> const& starts, Soup const& part, float height)
{
    return AxisRays(frameOf(*planeAt({0, 0, height})), starts, PlacedMesh(*kernelOf(part)));
}

}  // namespace

TEST(AxisRays, ReachFromThePlaneToTheSurfaceOnBothSides)
{
    // Also through corners of triangles: the middle lies on the diagonals of both faces.
    std::vector<Point> const starts{{5, 5, 4}, {1, 9, 4}, {2, 2, 4}};
    AxisRays const rays = raysAt(starts, box(10, 10, 10), 4);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        EXPECT_NEAR(rays.above(i), 6, 1e-5) << i;
        EXPECT_NEAR(rays.below(i), 4, 1e-5) << i;
    }
}

TEST(AxisRays, AStartOutsideTheMaterialHasNone)
{
    std::vector<Point> const starts{{-1, 5, 4}, {50, 50, 4}, {5, 5, 4}};
    AxisRays const rays = raysAt(starts, box(10, 10, 10), 4);
    EXPECT_EQ(rays.above(0), 0);
    EXPECT_EQ(rays.below(1), 0);
    // Below the part, the ray upwards enters it and leaves it again.
    std::vector<Point> const below{{5, 5, -3}};
    EXPECT_EQ(raysAt(below, box(10, 10, 10), -3).above(0), 0);
}

TEST(AxisRays, ACavityEndsTheMaterial)
{
    Soup hollow = box(10, 10, 10);
    Soup cavity = box(4, 4, 2, {3, 3, 6});
    for (auto& t : cavity.triangles)
        std::swap(t[1], t[2]);
    hollow.append(cavity);
    std::vector<Point> const starts{{5, 5, 4}, {1, 1, 4}};
    AxisRays const rays = raysAt(starts, hollow, 4);
    EXPECT_NEAR(rays.above(0), 2, 1e-5);
    EXPECT_NEAR(rays.above(1), 6, 1e-5);
}

TEST(AxisRays, ABuriedSurfaceDoesNotEndIt)
{
    Soup overlapping = box(10, 10, 6);
    overlapping.append(box(10, 10, 6, {0, 0, 3}));
    std::vector<Point> const starts{{5, 5, 1}};
    EXPECT_NEAR(raysAt(starts, overlapping, 1).above(0), 8, 1e-5);
}

TEST(AxisRays, AgreeWithABallInAnyDirection)
{
    for (auto const& [first, second] :
         {std::pair(UVector3<float>(1, 0, 0), UVector3<float>(0, 1, 0)),
          std::pair(UVector3<float>(0.6f, 0, -0.8f), UVector3<float>(0, 1, 0)),
          std::pair(UVector3<float>(0, 0, 1), UVector3<float>(1, 0, 0))}) {
        PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}, first, second));
        std::vector<Point> starts;
        for (int i = -19; i <= 19; ++i)
            for (int k = -19; k <= 19; ++k)
                starts.push_back(frame.fromPlaneLocal({0.5f * i + 0.01f, 0.5f * k + 0.02f, 0}));
        auto const ball = kernelOf(sphere(10, 120, 160));
        AxisRays const rays(frame, starts, PlacedMesh(*ball));
        for (std::size_t i = 0; i < starts.size(); ++i) {
            Point const p = frame.toPlaneLocal(starts[i]);
            double const rest = 100 - double(p.X()) * p.X() - double(p.Y()) * p.Y();
            // At the rim a facet makes much of a difference.
            if (std::fabs(rest) < 3)
                continue;
            double const expected = rest > 0 ? std::sqrt(rest) : 0;
            EXPECT_NEAR(rays.above(i), expected, 0.05) << i;
            EXPECT_NEAR(rays.below(i), expected, 0.05) << i;
        }
    }
}
