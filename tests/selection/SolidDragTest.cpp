// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/CuboidDrag.h"
#include "selection/CylinderDrag.h"
#include "tools/CuboidProperty.h"
#include "tools/CylinderProperty.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Vector = UVector3<float>;

/// 40 long and 20 wide around the origin, seen from above.
CuboidProperty cuboid()
{
    CuboidProperty record;
    record.setKeyPoints({{0, 0, 0}, {20, 0, 0}, {20, 10, 0}, {0, 10, 0}});
    record.setExtrudeVector({0, 0, 50});
    record.setCuboidLength(40);
    record.setCuboidWidth(20);
    return record;
}

float angleAfterTurn(CuboidProperty record, Point const& mouse)
{
    dragCuboid(record, CUBOID_CORNER, {}, {mouse, {0, 0, 7}});
    return record.getCuboidAngle();
}

CylinderProperty cylinder()
{
    CylinderProperty record;
    record.setKeyPoints({{0, 0, 0}, {0, 10, 0}});
    record.setRadius(5);
    record.setUseNotch(true);
    return record;
}

Vector const north{0, 1, 0};

}  // namespace

TEST(CuboidDrag, OfTheCentreStaysInTheDrawingPlane)
{
    CuboidProperty record = cuboid();
    dragCuboid(record, CUBOID_CENTRE, {3, 4, 5}, {});
    EXPECT_EQ(record.getKeyPoints()[0], Point(3, 4, 0));
    EXPECT_EQ(record.getCuboidLength(), 40);
}

TEST(CuboidDrag, OfASideCountsTheWayAlongItAndFoldsAtZero)
{
    CuboidProperty record = cuboid();
    dragCuboid(record, CUBOID_LENGTH, {6, 9, 9}, {});
    EXPECT_EQ(record.getCuboidLength(), 46);
    dragCuboid(record, CUBOID_WIDTH, {6, -5, 0}, {});
    EXPECT_EQ(record.getCuboidWidth(), 15);
    dragCuboid(record, CUBOID_WIDTH, {0, -18, 0}, {});
    EXPECT_EQ(record.getCuboidWidth(), 3) << "folded";
    dragCuboid(record, 4, {0, 2, 0}, {});
    EXPECT_EQ(record.getCuboidWidth(), 5) << "any other handle is the width's";
}

TEST(CuboidDrag, OfTheCornerTurnsItUnderTheMouse)
{
    float const corner = std::atan2(20.0f, 40.0f);
    EXPECT_NEAR(angleAfterTurn(cuboid(), {20, 10, 3}), 0, 1e-6);
    EXPECT_NEAR(angleAfterTurn(cuboid(), {0, 5, 3}), M_PI / 2 - corner, 1e-6);
    EXPECT_NEAR(angleAfterTurn(cuboid(), {-5, 0, 3}), M_PI - corner, 1e-6);
    EXPECT_NEAR(angleAfterTurn(cuboid(), {0, -5, 3}), -M_PI / 2 - corner, 1e-6);
}

TEST(CuboidDrag, WithoutALengthTurnsByARightAngleLess)
{
    CuboidProperty record = cuboid();
    record.setCuboidLength(0);
    EXPECT_NEAR(angleAfterTurn(record, {5, 0, 0}), -M_PI / 2, 1e-6);
    record.setCuboidWidth(0);
    EXPECT_FALSE(std::isnan(angleAfterTurn(record, {5, 0, 0})));
}

TEST(CylinderDrag, OfTheCentrePutsItUnderTheMouse)
{
    CylinderProperty record = cylinder();
    EXPECT_TRUE(dragCylinder(record, CYLINDER_CENTRE, {7, 8, 0}, north));
    EXPECT_EQ(record.getKeyPoints()[0], Point(7, 8, 0));
}

TEST(CylinderDrag, OfTheCircleMakesTheRadius)
{
    CylinderProperty record = cylinder();
    EXPECT_TRUE(dragCylinder(record, CYLINDER_CIRCLE, {3, -4, 0}, north));
    EXPECT_EQ(record.getRadius(), 5);
    EXPECT_TRUE(dragCylinder(record, CYLINDER_CIRCLE, {30, -40, 0}, north));
    EXPECT_EQ(record.getRadius(), 50);
}

TEST(CylinderDrag, OfTheNotchMeasuresItFromItsFootOnTheCircle)
{
    CylinderProperty record = cylinder();
    EXPECT_TRUE(dragCylinder(record, CYLINDER_NOTCH, {3, 9, 0}, north));
    EXPECT_EQ(record.getKeyPoints()[1], Point(3, 9, 0));
    EXPECT_FLOAT_EQ(record.getNotchWidth(), 6);
    EXPECT_FLOAT_EQ(record.getNotchLength(), 9 - 4);
}

TEST(CylinderDrag, OfANotchWiderThanTheCircleTakesThePlainDistance)
{
    CylinderProperty record = cylinder();
    EXPECT_TRUE(dragCylinder(record, CYLINDER_NOTCH, {6, 9, 0}, north));
    EXPECT_FLOAT_EQ(record.getNotchWidth(), 12);
    EXPECT_FLOAT_EQ(record.getNotchLength(), 9);
}

// The foot lies 4.9 mm from the centre: the way from there to the handle is negative.
TEST(CylinderDrag, OfTheNotchIntoTheCircleLeavesTheLeastThatFieldsShow)
{
    CylinderProperty record = cylinder();
    EXPECT_TRUE(dragCylinder(record, CYLINDER_NOTCH, {1, 2, 0}, north));
    EXPECT_FLOAT_EQ(record.getNotchWidth(), 2);
    EXPECT_EQ(record.getNotchLength(), 0.001f);
    EXPECT_TRUE(dragCylinder(record, CYLINDER_NOTCH, {0, 9, 0}, north));
    EXPECT_EQ(record.getNotchWidth(), 0.001f) << "on the axis there would be no width";
    EXPECT_TRUE(dragCylinder(record, CYLINDER_CIRCLE, record.getKeyPoints()[0], north));
    EXPECT_EQ(record.getRadius(), 0.001f);
}

TEST(CylinderDrag, OfTheNotchBehindTheCentreChangesNothing)
{
    CylinderProperty record = cylinder();
    EXPECT_FALSE(dragCylinder(record, CYLINDER_NOTCH, {6, -0.1f, 0}, north));
    EXPECT_EQ(record.getKeyPoints()[1], Point(0, 10, 0));
    EXPECT_EQ(record.getNotchWidth(), 2);
}

TEST(CircleSides, LeaveOutThoseOfANotch)
{
    CylinderProperty record = cylinder();
    EXPECT_EQ(circleSides(record, 40), 37u);
    record.setNotchWidth(10);
    EXPECT_EQ(circleSides(record, 40), 37u) << "as wide as the circle";
    record.setNotchWidth(10.1f);
    EXPECT_EQ(circleSides(record, 40), 35u);
    EXPECT_EQ(circleSides(record, 3), 0u);
    record.setUseNotch(false);
    EXPECT_EQ(circleSides(record, 40), 40u);
}

TEST(IsNearRing, CountsAsManySidesAsAreSaid)
{
    std::vector<UPoint2<float>> const ring{{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    EXPECT_TRUE(isNearRing(ring, 4, {50, 7.9f}, 8));
    EXPECT_FALSE(isNearRing(ring, 4, {50, 8}, 8));
    EXPECT_TRUE(isNearRing(ring, 4, {1, 50}, 8));
    EXPECT_FALSE(isNearRing(ring, 3, {1, 50}, 8)) << "the last side is left out";
}
