// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PlaneDefinition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;
using namespace Freecut;

void expectNear(Vector const& actual, Vector const& expected, float tolerance = 1e-6f)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

}  // namespace

TEST(PlaneDefinition, TheTypesAreNumberedAsTheCommandsTellThem)
{
    EXPECT_EQ(int(PLANE_3POINTS), 0);
    EXPECT_EQ(int(PLANE_TANGENT), 1);
    EXPECT_EQ(int(PLANE_VERTICAL), 2);
    EXPECT_EQ(int(PLANE_XY), 3);
    EXPECT_EQ(int(PLANE_XZ), 4);
    EXPECT_EQ(int(PLANE_YZ), 5);
}

TEST(PlaneDefinition, TheAxesOfEachType)
{
    Vector const normal(0.6f, 0, 0.8f);
    // s = sqrt(1 / ((0.8 / 0.6)^2 + 1)) = 0.6 and u = (-0.8 / 0.6 * s, 0, s).
    Vector const u(-0.8f, 0, 0.6f);
    expectNear(axesOfType(PLANE_TANGENT, normal).first, u);
    // (0.6, 0, 0.8) x (-0.8, 0, 0.6) = (0, -1, 0)
    expectNear(axesOfType(PLANE_TANGENT, normal).second, {0, -1, 0});
    expectNear(axesOfType(PLANE_VERTICAL, normal).first, u);
    EXPECT_EQ(axesOfType(PLANE_VERTICAL, normal).second, normal);
    EXPECT_EQ(axesOfType(PLANE_XY, normal).first, Vector(1, 0, 0));
    EXPECT_EQ(axesOfType(PLANE_XY, normal).second, Vector(0, 1, 0));
    EXPECT_EQ(axesOfType(PLANE_XZ, normal).first, Vector(1, 0, 0));
    EXPECT_EQ(axesOfType(PLANE_XZ, normal).second, Vector(0, 0, 1));
    EXPECT_EQ(axesOfType(PLANE_YZ, normal).first, Vector(0, 1, 0));
    EXPECT_EQ(axesOfType(PLANE_YZ, normal).second, Vector(0, 0, 1));
}

TEST(PlaneDefinition, ByANormalOnlyTheFixedTypesKeepTheirAxes)
{
    Vector const normal(0, 0.6f, 0.8f);
    for (PlaneType const type : {PLANE_3POINTS, PLANE_TANGENT, PLANE_VERTICAL}) {
        EXPECT_EQ(axesByNormal(type, normal).first, tangentAxes(normal).first);
        EXPECT_EQ(axesByNormal(type, normal).second, tangentAxes(normal).second);
    }
    EXPECT_EQ(axesByNormal(PLANE_XZ, normal).second, Vector(0, 0, 1));
}

TEST(PlaneDefinition, ANormalAlongZTakesTheLastRule)
{
    EXPECT_EQ(axesOfType(PLANE_TANGENT, {0, 0, 1}).first, Vector(0, 1, 0));
    EXPECT_EQ(axesOfType(PLANE_TANGENT, {0, 0, -1}).first, Vector(0, 1, 0));
}

TEST(PlaneDefinition, AFaceParallelToXHasItsFirstAxisInTheYZPlane)
{
    Vector const first = axesOfType(PLANE_TANGENT, {0, 0.8f, 0.6f}).first;
    EXPECT_EQ(first.X(), 0);
    expectNear(first, {0, -0.6f, 0.8f});
}

TEST(PlaneDefinition, ThreePicksMakeASquareAboutTheLastOne)
{
    // e1 = (3, 0, 0), e2 = (0, 5, 0): reach 5, a = (1, 1, 0) / sqrt 2, b = (-1, 1, 0) / sqrt 2.
    PlaneRectangle const square =
        rectangleOfPicks({Point(4, 1, 2), Point(1, 6, 2), Point(1, 1, 2)});
    EXPECT_EQ(square.center, Point(1, 1, 2));
    EXPECT_EQ(square.size.width, 10);
    EXPECT_EQ(square.size.height, 10);
    float const half = std::sqrt(0.5f);
    expectNear(square.axes.first, {half, half, 0});
    expectNear(square.axes.second, {-half, half, 0});
}

TEST(PlaneDefinition, PicksWithinAHairGiveTheLeastPlane)
{
    PlaneRectangle const square =
        rectangleOfPicks({Point(0.0003f, 0, 0), Point(0, 0.0004f, 0), Point(0, 0, 0)});
    EXPECT_EQ(square.size.width, 0.001f);
    EXPECT_EQ(square.size.height, 0.001f);
}

TEST(PlaneDefinition, ASquareCoversItsPicks)
{
    std::mt19937 random(11);
    std::normal_distribution<float> place(0, 30);
    for (int i = 0; i < 1000; ++i) {
        auto const point = [&] { return Point(place(random), place(random), place(random)); };
        std::array<Point, 3> const picks = {point(), point(), point()};
        PlaneRectangle const square = rectangleOfPicks(picks);
        EXPECT_NEAR(square.axes.first | square.axes.second, 0, 1e-4);
        Vector const normal = square.axes.first * square.axes.second;
        for (Point const& pick : picks) {
            Vector const way = pick - square.center;
            EXPECT_NEAR(way | normal, 0, 1e-3);
            EXPECT_LE(std::fabs(way | square.axes.first), square.size.height / 2 + 1e-3);
            EXPECT_LE(std::fabs(way | square.axes.second), square.size.width / 2 + 1e-3);
        }
    }
}

TEST(PlaneDefinition, APickOnTheFirstOrTheSecondDoesNotCount)
{
    EXPECT_TRUE(isPickValuable({}, {1, 2, 3}));
    EXPECT_FALSE(isPickValuable({{1, 2, 3}}, {1, 2, 3}));
    EXPECT_TRUE(isPickValuable({{1, 2, 3}}, {1, 2, 3.0001f}));
    std::vector<Point> const two = {{0, 0, 0}, {10, 0, 0}};
    EXPECT_FALSE(isPickValuable(two, {0, 0, 0}));
    EXPECT_FALSE(isPickValuable(two, {10, 0, 0}));
}

TEST(PlaneDefinition, APickThatSeesTheOthersAtARightAngleDoesNotCountAndOneInLineDoes)
{
    std::vector<Point> const two = {{0, 0, 0}, {10, 0, 0}};
    EXPECT_FALSE(isPickValuable(two, {5, 5, 0}));
    EXPECT_FALSE(isPickValuable(two, {5, 0, 5}));
    EXPECT_TRUE(isPickValuable(two, {5, 5.1f, 0}));
    EXPECT_TRUE(isPickValuable(two, {20, 0, 0}));
    EXPECT_TRUE(isPickValuable(two, {5, 0, 0}));
}
