// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PlaneNumbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;
using namespace Freecut;

/// Faces up, 6 mm along x and 8 mm along y about (1, 2, 3).
constexpr PlaneCorners plane{{-2, -2, 3}, {4, -2, 3}, {4, 6, 3}};
UBox3<float> const box({-10, -20, -30}, {10, 20, 30});

void expectNear(Point const& actual, Point const& expected, double tolerance = 1e-5)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

}  // namespace

TEST(PlaneNumbers, CentreAndNormalComeFromTheCorners)
{
    EXPECT_EQ(PlaneNumbers::centerOf(plane), Point(1, 2, 3));
    EXPECT_EQ(PlaneNumbers::normalOf(plane), Vector(0, 0, 1));
    EXPECT_EQ(PlaneNumbers::normalOf({}), Vector());
}

TEST(PlaneNumbers, ATurnGoesTheShortestWayAboutTheCentre)
{
    // Up to the right: a quarter turn about y takes x to -z.
    PlaneCorners const turned = PlaneNumbers::turnedTo(plane, {1, 0, 0});
    expectNear(turned.c0, {1, -2, 6});
    expectNear(turned.c1, {1, -2, 0});
    expectNear(turned.c2, {1, 6, 0});
}

TEST(PlaneNumbers, ATurnToWhereThePlaneFacesLeavesIt)
{
    EXPECT_EQ(PlaneNumbers::turnedTo(plane, {0, 0, 1}), plane);
}

TEST(PlaneNumbers, ATurnToTheOppositeSideTurnsThePlaneOver)
{
    PlaneCorners const turned = PlaneNumbers::turnedTo(plane, {0, 0, -1});
    EXPECT_NEAR(PlaneNumbers::normalOf(turned).Z(), -1, 1e-6);
    expectNear(PlaneNumbers::centerOf(turned), {1, 2, 3});
    EXPECT_NEAR(sizeOf(turned).width, 8, 1e-5);
    EXPECT_NEAR(sizeOf(turned).height, 6, 1e-5);
}

TEST(PlaneNumbers, ManyTurnsKeepTheRectangle)
{
    std::mt19937 random(17);
    std::normal_distribution<float> component;
    PlaneCorners turned = plane;
    for (int i = 0; i < 2000; ++i) {
        Vector normal(component(random), component(random), component(random));
        normal.Normalize();
        turned = PlaneNumbers::turnedTo(turned, normal);
        Vector const facing = PlaneNumbers::normalOf(turned);
        ASSERT_NEAR(facing | normal, 1, 1e-5) << i;
    }
    EXPECT_NEAR((turned.c1 - turned.c0) | (turned.c2 - turned.c1), 0, 48 * 1e-4);
    EXPECT_NEAR(sizeOf(turned).width, 8, 1e-3);
    expectNear(PlaneNumbers::centerOf(turned), {1, 2, 3}, 1e-3);
}

TEST(PlaneNumbers, ASizeIsTakenAboutTheCentre)
{
    PlaneCorners const resized = PlaneNumbers::resizedTo(plane, 2, 20);
    expectNear(resized.c0, {0, -8, 3});
    expectNear(resized.c1, {2, -8, 3});
    expectNear(resized.c2, {2, 12, 3});
}

TEST(PlaneNumbers, TheDistanceToAPlaneHasNoSign)
{
    QVector4D const level = PlaneNumbers::planeThrough({0, 0, 5}, {0, 0, 1});
    EXPECT_EQ(level, QVector4D(0, 0, 1, -5));
    EXPECT_EQ(PlaneNumbers::distancePt2Plane({7, 7, 9}, level), 4);
    EXPECT_EQ(PlaneNumbers::distancePt2Plane({7, 7, 1}, level), 4);
    EXPECT_EQ(PlaneNumbers::distancePt2Plane({0, 0, 9}, QVector4D(0, 0, 2, -10)), 4);
}

TEST(PlaneTravel, RunsFromTheFarthestCornerBelowToTheOneAbove)
{
    PlaneTravel travel;
    travel.measure(box, {0, 0, 10}, {0, 0, 1});
    EXPECT_EQ(travel.farPlus(), Point(-10, -20, 30));
    EXPECT_EQ(travel.farMinus(), Point(-10, -20, -30));
    // (20 + 40) / 0.5 + 2, and 40 / 0.5 + 1.
    EXPECT_EQ(travel.stepCount(0.5f), 122);
    EXPECT_EQ(travel.stepOf(PlaneNumbers::planeThrough({0, 0, 10}, {0, 0, 1}), 0.5f), 81);
    // Truncated: 40 / 0.3 + 1 = 134.33, 60 / 0.3 + 2 = 202 and a hair less.
    EXPECT_EQ(travel.stepOf(PlaneNumbers::planeThrough({0, 0, 10}, {0, 0, 1}), 0.3f), 134);
}

TEST(PlaneTravel, BesideTheBoxItStillRunsFromEndToEnd)
{
    PlaneTravel travel;
    travel.measure(box, {0, 0, 30}, {0, 0, 1});
    EXPECT_EQ(travel.farPlus().Z(), 30);
    EXPECT_EQ(travel.farMinus().Z(), -30);
    EXPECT_EQ(travel.stepCount(1), 62);
    travel.measure(box, {0, 0, 100}, {0, 0, 1});
    EXPECT_EQ(travel.farPlus().Z(), 30);
    EXPECT_EQ(travel.farMinus().Z(), -30);
    EXPECT_EQ(travel.stepCount(1), 132);
}

TEST(PlaneTravel, APlaneWithoutAreaStandsAtTheBeginning)
{
    PlaneTravel travel;
    travel.measure(box, {}, {});
    EXPECT_EQ(travel.stepOf(PlaneNumbers::planeThrough({}, {}), 0.1f), 0);
}
