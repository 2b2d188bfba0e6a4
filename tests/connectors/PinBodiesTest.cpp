// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinBodies.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

PinHoleParas paras(float radius, float tolerance)
{
    PinHoleParas p;
    p.radius = radius;
    p.tolerance = tolerance;
    return p;
}

/// Area of a regular polygon.
double polygonArea(double radius, int corners)
{
    return 0.5 * corners * radius * radius * std::sin(2 * std::numbers::pi / corners);
}

struct FacetRow
{
    float radius;
    float tolerance;
    int hole;
    int pin;
};

}  // namespace

TEST(PinBodies, FacetsFollowFromRadiusAndTolerance)
{
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    for (FacetRow const& row : {FacetRow{2, 0.01f, 32, 63},
                                {2, 2, 4, 4},            // a quarter turn
                                {1, 0.5f, 4, 6},         // acos(0.5) is a third of pi
                                {2, 0.5f, 5, 9},         // acos(0.75) = 0.7227
                                {2, 0.6f, 4, 8},         // acos(0.7) = 0.7954, beyond pi / 4
                                {50, 0.001f, 200, 200},  // without the limit 497 and 994
                                {10, 0.01f, 71, 141},    // acos(0.999) = 0.04473
                                {1, 0.00001f, 200, 200}}) {
        SCOPED_TRACE(testing::Message() << row.radius << " " << row.tolerance);
        PinHoleParas const p = paras(row.radius, row.tolerance);
        EXPECT_EQ(PinBodies(p, frame).holeSegments(), row.hole);
        EXPECT_EQ(PinBodies(p, frame).pinSegments(), row.pin);
    }
}

TEST(PinBodies, CylindersAreClosedAndFaceOutward)
{
    float const c = float(std::cos(0.7)), s = float(std::sin(0.7));
    PinHoleParas const p = paras(2, 0.01f);
    PlaneFrame const frame = frameOf(*planeAt({5, 6, 7}, {c, s, 0}, {0, 0, 1}));
    auto mesh = std::make_unique<UMesh<float>>();
    PinBodies(p, frame).appendCylinders(*mesh, {{0, 0, 0}, {20, 0, 0}, {0, 30, 0}}, 5, 2, 63);
    EXPECT_EQ(mesh->vertices.size(), 3u * (2 * 63 + 2));
    EXPECT_EQ(mesh->triangles.size(), 3u * 4 * 63);
    Soup const soup = soupOf(MeshKernel(mesh.release()));
    EXPECT_EQ(closedSolidFaults(soup), "");
    EXPECT_EQ(componentsOf(soup), 3u);
    EXPECT_NEAR(volumeOf(soup), 3 * 5 * polygonArea(2, 63), 1e-2);
}

TEST(PinBodies, VerticesAndTrianglesStandInTheirOrder)
{
    PinHoleParas const p;
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    UMesh<float> mesh;
    PinBodies(p, frame).appendCylinders(mesh, {{9, 9, 9}, {1, 2, 3}}, 5, 2, 4);
    constexpr std::size_t base = 10;
    auto const expectVertex = [&](std::size_t i, UPoint3<float> const& expected) {
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(mesh.vertices[base + i]->cP()[k], expected[k], 1e-5f) << i;
    };
    expectVertex(0, {1, 2, 3});
    expectVertex(1, {3, 2, 3});
    expectVertex(2, {1, 4, 3});
    expectVertex(5, {1, 2, 8});
    expectVertex(6, {3, 2, 8});
    auto const expectCorners = [&](std::size_t t, std::array<std::size_t, 3> const& corners) {
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(mesh.triangles[16 + t]->cV(k), mesh.vertices[base + corners[std::size_t(k)]])
                << t;
    };
    expectCorners(0, {1, 0, 2});
    expectCorners(3, {4, 0, 1});
    expectCorners(4, {6, 7, 5});
    expectCorners(8, {1, 2, 7});
    expectCorners(9, {1, 7, 6});
    expectCorners(15, {4, 6, 9});
}

TEST(PinBodies, APinBeginsBelowThePlaneAndItsHoleAtThePlane)
{
    PinHoleParas p;
    p.height = 5;
    p.topclearance = 0.25f;
    p.sideclearance = 0.5f;
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 10}));
    std::vector<MeshKernel> pins, holes;
    PinBodies(p, frame).createPinBodies({{3, 0, 10}}, pins, holes);
    ASSERT_EQ(pins.size(), 1u);
    ASSERT_EQ(holes.size(), 1u);
    pins[0].UpdateBoundingBox();
    holes[0].UpdateBoundingBox();
    EXPECT_NEAR(pins[0].GetBox().MinZ(), 9.99f, 1e-5f);
    EXPECT_NEAR(pins[0].GetBox().MaxZ(), 15, 1e-5f);
    EXPECT_NEAR(pins[0].GetBox().MaxX(), 5, 1e-5f);
    EXPECT_NEAR(holes[0].GetBox().MinZ(), 10, 1e-5f);
    EXPECT_NEAR(holes[0].GetBox().MaxZ(), 15.25f, 1e-5f);
    EXPECT_NEAR(holes[0].GetBox().MaxX(), 5.5f, 1e-5f);
    EXPECT_EQ(pins[0].readMesh()->triangles.size(), holes[0].readMesh()->triangles.size());
}

TEST(PinBodies, AHoleForADowelReachesAsFarToBothSides)
{
    PinHoleParas p;
    p.height = 5;
    p.topclearance = 0.25f;
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 10}));
    std::vector<MeshKernel> holes;
    PinBodies(p, frame).createHoleBodies({{3, 0, 10}, {30, 0, 10}}, holes);
    ASSERT_EQ(holes.size(), 1u);
    holes[0].UpdateBoundingBox();
    EXPECT_NEAR(holes[0].GetBox().MinZ(), 4.75f, 1e-5f);
    EXPECT_NEAR(holes[0].GetBox().MaxZ(), 15.25f, 1e-5f);
    EXPECT_EQ(componentsOf(soupOf(holes[0])), 2u);
    EXPECT_EQ(holes[0].readMesh()->triangles.size(), 2u * 4 * 32);
}
