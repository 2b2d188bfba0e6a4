// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PointUnderMouse.h"

#include <gtest/gtest.h>

namespace {

using Point = UPoint3<float>;
using Freecut::pointUnderMouse;

constexpr std::array<Point, 3> corners = {Point(0, 0, 0), Point(10, 0, 5), Point(0, 20, 0)};

}  // namespace

TEST(PointUnderMouse, InterpolatesOverTheImageOfTheTriangle)
{
    std::array<QPoint, 3> const images = {QPoint(0, 0), QPoint(100, 0), QPoint(0, 200)};
    EXPECT_EQ(pointUnderMouse(corners, images, {0, 0}), corners[0]);
    EXPECT_EQ(pointUnderMouse(corners, images, {100, 0}), corners[1]);
    EXPECT_EQ(pointUnderMouse(corners, images, {0, 200}), corners[2]);
    EXPECT_EQ(pointUnderMouse(corners, images, {50, 50}), Point(5, 5, 2.5f));
}

TEST(PointUnderMouse, AnUprightFirstEdgeTakesTheOtherFormula)
{
    // x of the first two images agrees, so that the share of the second edge comes from y.
    std::array<QPoint, 3> const images = {QPoint(10, 10), QPoint(10, 110), QPoint(210, 60)};
    EXPECT_EQ(pointUnderMouse(corners, images, {10, 60}), Point(5, 0, 2.5f));
    // u = 0.5, v = (60 - 50 * 0.5) / 100 = 0.35
    Point const point = pointUnderMouse(corners, images, {110, 70});
    EXPECT_NEAR(point.X(), 3.5f, 1e-6);
    EXPECT_NEAR(point.Y(), 10, 1e-6);
    EXPECT_NEAR(point.Z(), 1.75f, 1e-6);
}

TEST(PointUnderMouse, AnImageWithoutAreaGoesAlongItsFirstEdge)
{
    std::array<QPoint, 3> const level = {QPoint(0, 0), QPoint(100, 0), QPoint(300, 0)};
    EXPECT_EQ(pointUnderMouse(corners, level, {25, 7}), Point(2.5f, 0, 1.25f));
    EXPECT_EQ(pointUnderMouse(corners, level, {-40, 0}), corners[0]);
    EXPECT_EQ(pointUnderMouse(corners, level, {250, 0}), corners[1]);
    std::array<QPoint, 3> const upright = {QPoint(0, 0), QPoint(0, 100), QPoint(0, 50)};
    EXPECT_EQ(pointUnderMouse(corners, upright, {0, 50}), Point(5, 0, 2.5f));
    EXPECT_EQ(pointUnderMouse(corners, upright, {0, 150}), corners[1]);
}

TEST(PointUnderMouse, WithTheFirstEdgeCollapsedItGoesAlongTheSecond)
{
    std::array<QPoint, 3> const level = {QPoint(0, 0), QPoint(0, 0), QPoint(100, 0)};
    EXPECT_EQ(pointUnderMouse(corners, level, {25, 0}), Point(0, 5, 0));
    EXPECT_EQ(pointUnderMouse(corners, level, {200, 0}), corners[2]);
    // The one image that is not limited to its edge.
    std::array<QPoint, 3> const upright = {QPoint(0, 0), QPoint(0, 0), QPoint(0, 100)};
    EXPECT_EQ(pointUnderMouse(corners, upright, {0, 150}), Point(0, 30, 0));
    EXPECT_EQ(pointUnderMouse(corners, upright, {0, -50}), Point(0, -10, 0));
}

TEST(PointUnderMouse, AnImageOfOnePixelGivesTheFirstCorner)
{
    std::array<QPoint, 3> const images = {QPoint(5, 5), QPoint(5, 5), QPoint(5, 5)};
    EXPECT_EQ(pointUnderMouse(corners, images, {6, 6}), corners[0]);
}
