// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mesh/MeshKernel.h"
#include "tests/support/Validator.h"
#include "tests/tools/OutlineScene.h"
#include "tools/EarClipping.h"
#include "tools/PrismMesh.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Freecut::Loops;
using Freecut::Ring;
using Point = UPoint3<float>;
using Vector = UVector3<float>;

Ring const square{{0, 0, 10}, {4, 0, 10}, {4, 3, 10}, {0, 3, 10}};

std::unique_ptr<MeshKernel> prisms(Loops const& top, Vector const& direction = {0, 0, 10})
{
    auto* const mesh = new UMesh<float>;
    Freecut::fillWithPrisms(*mesh, top, Freecut::translated(top, -direction), direction);
    return std::make_unique<MeshKernel>(mesh);
}

/// The corners of each triangle as places in the list of vertices.
std::vector<std::array<std::size_t, 3>> cornersOf(UMesh<float>& mesh)
{
    mesh.UpdateVertsID();
    std::vector<std::array<std::size_t, 3>> corners;
    for (UTriangle<float>* const t : mesh.triangles)
        corners.push_back({t->V(0)->ID(), t->V(1)->ID(), t->V(2)->ID()});
    return corners;
}

}  // namespace

TEST(PrismMesh, OfARectangleHasEightVerticesAndTwelveTriangles)
{
    auto const kernel = prisms({square});
    EXPECT_EQ(kernel->getMesh()->vertexCount, 8u);
    EXPECT_EQ(kernel->getMesh()->triangleCount, 12u);
    EXPECT_EQ(closedSolidFaults(*kernel), "");
    EXPECT_DOUBLE_EQ(volumeOf(soupOf(*kernel)), 120);
}

TEST(PrismMesh, VerticesAndTrianglesStandInTheirOrder)
{
    auto const kernel = prisms({square});
    UMesh<float>& mesh = *kernel->getMesh();
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(mesh.vertices[i]->cP(), square[i]);
        EXPECT_EQ(mesh.vertices[i + 4]->cP(), square[i] - Vector(0, 0, 10));
    }
    std::vector<std::array<std::size_t, 3>> const expected{
        {3, 0, 1}, {1, 2, 3}, {5, 4, 7}, {7, 6, 5}, {0, 4, 1}, {4, 5, 1},
        {1, 5, 2}, {5, 6, 2}, {2, 6, 3}, {6, 7, 3}, {3, 7, 0}, {7, 4, 0}};
    EXPECT_EQ(cornersOf(mesh), expected);
}

TEST(PrismMesh, AllCapsComeBeforeAllWalls)
{
    Ring const triangle{{10, 0, 10}, {14, 0, 10}, {10, 3, 10}};
    auto const kernel = prisms({triangle, square});
    auto const corners = cornersOf(*kernel->getMesh());
    std::vector<std::array<std::size_t, 3>> const expected{
        {0, 1, 2},   {5, 4, 3},                               // the triangle's caps
        {9, 6, 7},   {7, 8, 9},  {11, 10, 13}, {13, 12, 11},  // the square's
        {0, 3, 1},   {3, 4, 1},  {1, 4, 2},    {4, 5, 2},    {2, 5, 0},   {5, 3, 0},  {6, 10, 7},
        {10, 11, 7}, {7, 11, 8}, {11, 12, 8},  {8, 12, 9},   {12, 13, 9}, {9, 13, 6}, {13, 10, 6}};
    EXPECT_EQ(corners, expected);
    EXPECT_EQ(componentsOf(soupOf(*kernel)), 2u);
    EXPECT_EQ(closedSolidFaults(*kernel), "");
}

TEST(PrismMesh, OfCoincidingPointsTheLastOneIsTaken)
{
    // The loop touches itself in (2, 1), which it reaches twice.
    Ring const bow{{0, 0, 10}, {2, 1, 10}, {4, 0, 10}, {4, 2, 10}, {2, 1, 10}, {0, 2, 10}};
    auto const kernel = prisms({bow});
    auto const corners = cornersOf(*kernel->getMesh());
    for (std::size_t t = 0; t < corners.size() - 12; ++t)
        for (std::size_t const corner : corners[t]) {
            EXPECT_NE(corner, 1u);
            EXPECT_NE(corner, 7u);
        }
    EXPECT_TRUE(std::any_of(corners.begin(), corners.end() - 12, [](auto const& triangle) {
        return std::count(triangle.begin(), triangle.end(), 4u) > 0;
    }));
}

TEST(PrismMesh, ThreePointsHaveOneTriangleForEachCap)
{
    auto const kernel = prisms({{{0, 0, 1}, {1, 0, 1}, {0, 1, 1}}}, {0, 0, 1});
    EXPECT_EQ(kernel->getMesh()->triangles.size(), 2u + 6);
    EXPECT_EQ(closedSolidFaults(*kernel), "");
}

TEST(PrismMesh, WithoutLoopsTheMeshStaysEmpty)
{
    EXPECT_TRUE(prisms({})->getMesh()->vertices.empty());
    EXPECT_TRUE(prisms({Ring{}})->getMesh()->vertices.empty());
}

TEST(PrismMesh, OutlinesOfAnyShapeAndDirectionGiveClosedSolids)
{
    std::mt19937 random(5);
    GLCamera const camera = freeCamera();
    for (int const count : {3, 8, 50, 400}) {
        std::uniform_real_distribution<float> radius(20, 40);
        Ring ring;
        Freecut::FlatRing flat = circlePoints(1, count);
        for (auto& p : flat) {
            float const r = radius(random);
            p = {p.X() * r, p.Y() * r};
            ring.push_back({p.X(), p.Y(), 0});
            camera.ViewCSToWCSpoint(ring.back());
        }
        Vector const direction = camera.get_direction() * 25.0f;
        auto const kernel = prisms({ring}, direction);
        EXPECT_EQ(closedSolidFaults(*kernel), "");
        double const expected = signedArea(flat) * 25;
        EXPECT_NEAR(volumeOf(soupOf(*kernel)), expected, expected * 1e-5) << count;
    }
}
