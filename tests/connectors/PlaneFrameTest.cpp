// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PlaneGrid.h"
#include "tests/connectors/ConnectorScene.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

void expectNear(UPoint3<float> const& actual, UPoint3<float> const& expected, float tolerance)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

}  // namespace

TEST(PlaneFrame, TheNormalIsTheFirstSideCrossedWithTheSecond)
{
    PlaneFrame const frame = frameOf(*planeAt({1, 2, 3}, {0, 1, 0}, {0, 0, 1}));
    EXPECT_EQ(frame.direction1(), UVector3<float>(0, 1, 0));
    EXPECT_EQ(frame.direction2(), UVector3<float>(0, 0, 1));
    EXPECT_EQ(frame.normal(), UVector3<float>(1, 0, 0));
    EXPECT_EQ(frame.centre(), UPoint3<float>(1, 2, 3));
}

TEST(PlaneFrame, LocalAxesAreTheSidesAndTheNormal)
{
    // U = D2 x N is D1, so that (u, v, w) is right-handed.
    PlaneFrame const frame = frameOf(*planeAt({10, 20, 30}));
    expectNear(frame.toPlaneLocal({11, 20, 30}), {1, 0, 0}, 0);
    expectNear(frame.toPlaneLocal({10, 22, 30}), {0, 2, 0}, 0);
    expectNear(frame.toPlaneLocal({10, 20, 33}), {0, 0, 3}, 0);
}

TEST(PlaneFrame, BackFromLocalIsTheInverseFarFromTheOriginToo)
{
    float const c = float(std::cos(0.3)), s = float(std::sin(0.3));
    for (float const far : {0.0f, 1000.0f}) {
        UPoint3<float> const centre(far, -far, far);
        PlaneFrame const frame = frameOf(*planeAt(centre, {c, s, 0}, {-s * c, c * c, s}));
        for (UVector3<float> const& v :
             {UVector3<float>(3, 4, 5), {-70, 20, 1}, {100, 100, 0}, {0.001f, 0, -80}}) {
            UPoint3<float> const p = centre + v;
            expectNear(frame.fromPlaneLocal(frame.toPlaneLocal(p)), p, far > 0 ? 1.3e-4f : 2e-5f);
        }
    }
}

TEST(PlaneGrid, CoordinatesAreCutTowardsZero)
{
    auto const grid = PlaneGrid::toGrid({1.2349f, -1.2349f, 7});
    EXPECT_EQ(grid.X, 1234);
    EXPECT_EQ(grid.Y, -1234);
    // 2.3f lies below 2.3, but the product is rounded to float before it is cut.
    EXPECT_EQ(PlaneGrid::toGrid({2.3f, -0.0009f, 0}), ClipperLib::IntPoint(2300, 0));
}

TEST(PlaneGrid, BackFromTheGridIsInThePlane)
{
    expectNear(PlaneGrid::fromGrid({1234, -1}), {1.234f, -0.001f, 0}, 0);
}
