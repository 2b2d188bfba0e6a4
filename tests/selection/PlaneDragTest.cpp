// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/LineRotation.h"
#include "selection/PlaneDrag.h"
#include "tools/PlaneProperty.h"

#include <gtest/gtest.h>

#include <QQuaternion>

#include <cmath>
#include <random>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;
using namespace Freecut;

/// Half extents 3 and 4 about the origin, facing up: every corner lies at the distance 5.
constexpr PlaneCorners plane{{-3, -4, 0}, {3, -4, 0}, {3, 4, 0}};

void expectNear(Point const& actual, Point const& expected, char const* name, double tolerance)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << name << ", component " << i;
}

void expectNear(PlaneCorners const& actual, PlaneCorners const& expected, double tolerance = 1e-5)
{
    expectNear(actual.c0, expected.c0, "c0", tolerance);
    expectNear(actual.c1, expected.c1, "c1", tolerance);
    expectNear(actual.c2, expected.c2, "c2", tolerance);
}

Point centerOf(PlaneCorners const& corners)
{
    return (corners.c0 + corners.c2) * 0.5f;
}

/// How far the corner between the sides is from a right one, as a cosine.
double skewOf(PlaneCorners const& corners)
{
    Vector first = corners.c1 - corners.c0, second = corners.c2 - corners.c1;
    return std::fabs(first.Normalize() | second.Normalize());
}

}  // namespace

TEST(PlaneDrag, TheCentreTakesAllAlong)
{
    expectNear(draggedPlane(plane, 0, {1, 2, 3}), {{-2, -2, 3}, {4, -2, 3}, {4, 6, 3}}, 0);
}

TEST(PlaneDrag, EachCornerTurnsThePlaneInItself)
{
    // A quarter turn to the left takes c0 to (4, -3), c1 to (4, 3), c2 to (-4, 3).
    PlaneCorners const quarter{{4, -3, 0}, {4, 3, 0}, {-4, 3, 0}};
    expectNear(draggedPlane(plane, 1, {7, 1, 0}), quarter);
    expectNear(draggedPlane(plane, 2, {1, 7, 0}), quarter);
    expectNear(draggedPlane(plane, 3, {-7, -1, 0}), quarter);
    // c3 lies at (-3, 4) and goes to (-4, -3).
    expectNear(draggedPlane(plane, 4, {-1, -7, 0}), quarter);
}

TEST(PlaneDrag, ACornerTurnsBackToo)
{
    // A quarter turn to the right takes (-3, -4) to (-4, 3).
    expectNear(draggedPlane(plane, 1, {-1, 7, 0}), {{-4, 3, 0}, {-4, -3, 0}, {4, -3, 0}});
}

TEST(PlaneDrag, WhatLeavesThePlaneIsIgnoredByACorner)
{
    expectNear(draggedPlane(plane, 1, {7, 1, 100}), draggedPlane(plane, 1, {7, 1, 0}));
}

TEST(PlaneDrag, EachEdgeTiltsThePlaneAboutItsMiddleLine)
{
    // The edge c0 c1 lies at (0, -4, 0) and is dragged to (0, 0, 4), upward: a quarter turn about
    // x to the side that takes -y to z.
    PlaneCorners const upFirst{{-3, 0, 4}, {3, 0, 4}, {3, 0, -4}};
    expectNear(draggedPlane(plane, 5, {0, 4, 4}), upFirst);
    // The opposite edge at (0, 4, 0) goes to (0, 0, -4) by the same turn.
    expectNear(draggedPlane(plane, 7, {0, -4, -4}), upFirst);
    // The edge c0 c3 lies at (-3, 0, 0) and goes to (0, 0, 3).
    PlaneCorners const upSecond{{0, -4, 3}, {0, -4, -3}, {0, 4, -3}};
    expectNear(draggedPlane(plane, 6, {3, 0, 3}), upSecond);
    expectNear(draggedPlane(plane, 8, {-3, 0, -3}), upSecond);
}

TEST(PlaneDrag, AlongItsAxisATiltTurnsByNothing)
{
    for (int const handle : {5, 7})
        expectNear(draggedPlane(plane, handle, {2, 0, 0}), plane, 1e-6);
    for (int const handle : {6, 8})
        expectNear(draggedPlane(plane, handle, {0, 2, 0}), plane, 1e-6);
}

TEST(PlaneDrag, ACornerDraggedIntoTheCentreLeavesThePlane)
{
    expectNear(draggedPlane(plane, 1, {3, 4, 0}), plane, 0);
}

TEST(PlaneDrag, TheHandlesAreTheKeyPointsOfTheRecord)
{
    PlaneProperty record;
    record.setCorners(plane.c0, plane.c1, plane.c2, true);
    record.updateKeyPoints();
    std::vector<Point> const expected = {{0, 0, 0},  {-3, -4, 0}, {3, -4, 0}, {3, 4, 0}, {-3, 4, 0},
                                         {0, -4, 0}, {-3, 0, 0},  {0, 4, 0},  {3, 0, 0}};
    EXPECT_EQ(record.getKeyPoints(), expected);
}

TEST(PlaneDrag, TheTurnsAgreeWithAnIndependentRotation)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<float> unit(-1, 1);
    for (int i = 0; i < 500; ++i) {
        auto const vector = [&] { return QVector3D(unit(random), unit(random), unit(random)); };
        QVector3D const axis = vector().normalized();
        QVector3D const from = vector() * 50, point = vector() * 50;
        float const degrees = unit(random) * 180;
        QVector3D const expected =
            QQuaternion::fromAxisAndAngle(axis, degrees).rotatedVector(point - from) + from;
        double matrix[4][4];
        UPoint3<double> const start(from.x(), from.y(), from.z());
        rotateArbitraryLine(matrix, start, start + UVector3<double>(axis.x(), axis.y(), axis.z()),
                            double(degrees) * M_PI / 180);
        UPoint3<double> const actual = timesRowMatrix({point.x(), point.y(), point.z()}, matrix);
        EXPECT_NEAR(actual.X(), expected.x(), 1e-3);
        EXPECT_NEAR(actual.Y(), expected.y(), 1e-3);
        EXPECT_NEAR(actual.Z(), expected.z(), 1e-3);
        EXPECT_EQ(matrix[0][3], 0);
        EXPECT_EQ(matrix[3][3], 1);
    }
}

TEST(PlaneDrag, AMatrixOfAQuarterTurnAboutAnUprightLine)
{
    // About the line through (1, 2, 0) along z: (2, 2, 7) goes to (1, 3, 7).
    double matrix[4][4];
    rotateArbitraryLine(matrix, {1, 2, 0}, {1, 2, 1}, M_PI / 2);
    UPoint3<double> const turned = timesRowMatrix({2, 2, 7}, matrix);
    EXPECT_NEAR(turned.X(), 1, 1e-12);
    EXPECT_NEAR(turned.Y(), 3, 1e-12);
    EXPECT_NEAR(turned.Z(), 7, 1e-12);
    EXPECT_NEAR(matrix[0][1], 1, 1e-12);
    EXPECT_NEAR(matrix[1][0], -1, 1e-12);
}

TEST(PlaneDrag, ARectangleStaysOneAndKeepsItsSizeOverTenThousandDrags)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> handle(0, PlaneHandle::count - 1);
    std::normal_distribution<float> way(0, 0.5f);
    PlaneCorners corners{{20, 10, 0}, {70, 10, 0}, {70, 40, 0}};
    for (int i = 0; i < 10000; ++i) {
        int const index = handle(random);
        PlaneCorners const before = corners;
        corners = draggedPlane(corners, index, {way(random), way(random), way(random)});
        ASSERT_LT(skewOf(corners), 1e-4) << "drag " << i;
        if (index != PlaneHandle::center)
            expectNear(centerOf(corners), centerOf(before), "centre", 1e-4);
    }
    EXPECT_NEAR(sizeOf(corners).height, 50, 1e-2);
    EXPECT_NEAR(sizeOf(corners).width, 30, 1e-2);
}

TEST(PlaneDrag, TheDraggedCornerPointsToTheMouse)
{
    std::mt19937 random(9);
    std::normal_distribution<float> way(0, 3);
    for (int handle = 1; handle <= 4; ++handle)
        for (int i = 0; i < 200; ++i) {
            Vector const delta(way(random), way(random), 0);
            PlaneCorners const after = draggedPlane(plane, handle, delta);
            Point const before[] = {plane.c0, plane.c1, plane.c2, plane.c0 + (plane.c2 - plane.c1)};
            Point const now[] = {after.c0, after.c1, after.c2, after.c0 + (after.c2 - after.c1)};
            Vector wanted = before[handle - 1] + delta - Point();
            Vector got = now[handle - 1] - Point();
            EXPECT_NEAR(wanted.Normalize() | got.Normalize(), 1, 1e-5);
        }
}

TEST(PlaneResize, EachHandleMovesItsOwnEdges)
{
    Vector const way(1, 2, 5);
    expectNear(resizedPlane(plane, 0, way), plane, 0);
    expectNear(resizedPlane(plane, 1, way), {{-2, -2, 0}, {3, -2, 0}, {3, 4, 0}});
    expectNear(resizedPlane(plane, 2, way), {{-3, -2, 0}, {4, -2, 0}, {4, 4, 0}});
    expectNear(resizedPlane(plane, 3, way), {{-3, -4, 0}, {4, -4, 0}, {4, 6, 0}});
    expectNear(resizedPlane(plane, 4, way), {{-2, -4, 0}, {3, -4, 0}, {3, 6, 0}});
    expectNear(resizedPlane(plane, 5, way), {{-3, -2, 0}, {3, -2, 0}, {3, 4, 0}});
    expectNear(resizedPlane(plane, 6, way), {{-2, -4, 0}, {3, -4, 0}, {3, 4, 0}});
    expectNear(resizedPlane(plane, 7, way), {{-3, -4, 0}, {3, -4, 0}, {3, 6, 0}});
    expectNear(resizedPlane(plane, 8, way), {{-3, -4, 0}, {4, -4, 0}, {4, 4, 0}});
}

TEST(PlaneResize, KeepsARectangleAndTheOppositeCorner)
{
    std::mt19937 random(13);
    std::uniform_int_distribution<int> handle(1, 4);
    std::normal_distribution<float> way(0, 0.1f);
    PlaneCorners corners = draggedPlane(plane, 5, {1, 2, 3});
    for (int i = 0; i < 1000; ++i) {
        int const index = handle(random);
        auto const all = [](PlaneCorners const& p) {
            return std::array<Point, 4>{p.c0, p.c1, p.c2, p.c0 + (p.c2 - p.c1)};
        };
        Point const before = all(corners)[std::size_t(index + 1) % 4];
        corners = resizedPlane(corners, index, {way(random), way(random), way(random)});
        expectNear(all(corners)[std::size_t(index + 1) % 4], before, "opposite corner", 1e-5);
        ASSERT_LT(skewOf(corners), 1e-3);
    }
}

TEST(PlaneMove, IsValidWhileBoxCornersLieOnBothSides)
{
    UBox3<float> const box({-1, -1, -1}, {1, 1, 1});
    EXPECT_TRUE(isValidMove(box, plane));
    PlaneCorners const above = draggedPlane(plane, 0, {0, 0, 1.001f});
    EXPECT_FALSE(isValidMove(box, above));
    // Corners on the plane count as below it, so the upper face is outside and the lower is not.
    EXPECT_FALSE(isValidMove(box, draggedPlane(plane, 0, {0, 0, 1})));
    EXPECT_TRUE(isValidMove(box, draggedPlane(plane, 0, {0, 0, -1})));
    // The plane is endless here.
    EXPECT_TRUE(isValidMove(box, draggedPlane(plane, 0, {1000, 1000, 0})));
}

TEST(PlaneMove, WithoutPartsThereIsNoValidOne)
{
    for (float const height : {-1.0f, 0.0f, 1.0f})
        EXPECT_FALSE(isValidMove({}, draggedPlane(plane, 0, {0, 0, height})));
}
