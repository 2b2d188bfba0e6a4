// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/MeshFacts.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

TEST(MeshFacts, AgreeWithThePlainCountForEveryFamily)
{
    for (NamedSoup const& mesh : closedMeshes()) {
        MeshFacts const facts = measureMesh(*kernelOf(mesh.soup));
        EXPECT_EQ(facts.triangles, mesh.soup.triangles.size()) << mesh.name;
        EXPECT_EQ(facts.vertices, mesh.soup.points.size()) << mesh.name;
        double const volume = volumeOf(mesh.soup);
        EXPECT_NEAR(facts.volume, volume, 1e-9 * volume) << mesh.name;
        EXPECT_NEAR(facts.area, areaOf(mesh.soup), 1e-9 * areaOf(mesh.soup)) << mesh.name;
        EXPECT_TRUE(facts.closed) << mesh.name;
    }
}

TEST(MeshFacts, ABoxIsKnownExactly)
{
    MeshFacts const facts = measureMesh(*kernelOf(box(2, 3, 4, {1, 1, 1})));
    EXPECT_DOUBLE_EQ(facts.volume, 24);
    EXPECT_DOUBLE_EQ(facts.area, 52);
    EXPECT_EQ(facts.shells, 1u);
    EXPECT_EQ(facts.box, UBox3<float>({1, 1, 1}, {3, 4, 5}));
}

TEST(MeshFacts, ShellsHangTogetherOverEdges)
{
    EXPECT_EQ(measureMesh(*kernelOf(nestedBoxes())).shells, 3u);
    EXPECT_EQ(measureMesh(*kernelOf(crossingBoxes())).shells, 2u);
    // Joined at one point only.
    Soup touching = box(1, 1, 1);
    touching.append(box(1, 1, 1, {1, 1, 1}));
    touching.joinPoints();
    EXPECT_EQ(measureMesh(*kernelOf(touching)).shells, 2u);
}

TEST(MeshFacts, AnEdgeOfFourTrianglesIsNotClosedThoughItHasNoBorder)
{
    // Two boxes that touch along an edge, as two surfaces in memory and as one in a file.
    Soup touching = box(1, 1, 1);
    touching.append(box(1, 1, 1, {1, 1, 0}));
    MeshFacts const apart = measureMesh(*kernelOf(touching));
    touching.joinPoints();
    MeshFacts const joined = measureMesh(*kernelOf(touching));
    for (MeshFacts const& facts : {apart, joined}) {
        EXPECT_FALSE(facts.closed);
        EXPECT_EQ(facts.nonManifoldEdges, 1u);
        EXPECT_EQ(facts.borderEdges, 0u);
        EXPECT_EQ(facts.inconsistentEdges, 0u);
        EXPECT_EQ(facts.shells, 1u);
    }
}

TEST(MeshFacts, ATriangleTurnedRoundIsNotClosed)
{
    Soup turned = box(1, 1, 1);
    std::swap(turned.triangles[0][0], turned.triangles[0][1]);
    MeshFacts const facts = measureMesh(*kernelOf(turned));
    EXPECT_FALSE(facts.closed);
    EXPECT_EQ(facts.inconsistentEdges, 3u);
    EXPECT_EQ(facts.openEdges(), 3u);
}

TEST(MeshFacts, PointsAtTheSamePlaceAreOne)
{
    // Every triangle has corners of its own.
    Soup const solid = box(2, 3, 4);
    Soup loose;
    for (auto const& t : solid.triangles) {
        auto const first = std::uint32_t(loose.points.size());
        for (std::uint32_t const corner : t)
            loose.points.push_back(solid.points[corner]);
        loose.triangles.push_back({first, first + 1, first + 2});
    }
    // Also -0 and 0.
    for (std::size_t n = 0; n < 6; ++n)
        for (int i = 0; i < 3; ++i)
            if (loose.points[n][i] == 0)
                loose.points[n][i] = -0.0f;
    MeshFacts const facts = measureMesh(*kernelOf(loose));
    EXPECT_TRUE(facts.closed);
    EXPECT_EQ(facts.shells, 1u);
    EXPECT_DOUBLE_EQ(facts.volume, 24);
}

TEST(MeshFacts, ATriangleThatLosesACornerDoesNotCount)
{
    Soup solid = box(2, 3, 4);
    auto const twin = std::uint32_t(solid.points.size());
    solid.points.push_back(solid.points[0]);
    solid.triangles.push_back({0, twin, 1});
    EXPECT_TRUE(measureMesh(*kernelOf(solid)).closed);
}

TEST(MeshFacts, AMeshWithABorderIsOpenAndItsVolumeThatOfConesToTheOrigin)
{
    Soup const open = openBox(2, 3, 4);
    MeshFacts const facts = measureMesh(*kernelOf(open));
    EXPECT_FALSE(facts.closed);
    EXPECT_EQ(facts.borderEdges, 4u);
    EXPECT_NEAR(facts.volume, volumeOf(open), 1e-9);
}

TEST(MeshFacts, AnEmptyMeshIsNotClosed)
{
    MeshFacts const facts = measureMesh(MeshKernel());
    EXPECT_FALSE(facts.closed);
    EXPECT_EQ(facts.shells, 0u);
    EXPECT_TRUE(facts.box.Isnullptr());
}

TEST(MeshFacts, TheMatrixIsAppliedAndAReflectionKeepsTheVolumePositive)
{
    auto const kernel = kernelOf(box(1, 2, 3));
    float const values[16] = {-2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 10, 0, 0, 1};
    kernel->getMatrix() = UMatrix4<float>(values);
    MeshFacts const facts = measureMesh(*kernel);
    EXPECT_DOUBLE_EQ(facts.volume, 12);
    EXPECT_EQ(facts.box, UBox3<float>({8, 0, 0}, {10, 2, 3}));
}

TEST(MeshFacts, IdentifiersNeedNotBeValid)
{
    auto const kernel = kernelOf(torus(5, 1, 30, 20));
    MeshFacts const before = measureMesh(*kernel);
    for (UVertex<float>* const vertex : kernel->getMesh()->vertices)
        vertex->ID() = 7;
    MeshFacts const after = measureMesh(*kernel);
    EXPECT_EQ(after.volume, before.volume);
    EXPECT_EQ(after.shells, 1u);
    EXPECT_TRUE(after.closed);
}
