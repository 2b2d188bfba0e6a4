// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartPlacement.h"
#include "cutjobs/ResultIntegration.h"
#include "platform/document/CutMemory.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

// What pieces remember of the cut that made them, and how they are laid on its face.
namespace {

using PartPlacement::Parts;
using Vector = UVector3<double>;

class CutMemory : public testing::Test
{
protected:
    /// Replaces a part by boxes that stand for the pieces of a cut at a height.
    Parts cut(Mesh::DocumentObject* source, double height, std::vector<Soup> const& pieces)
    {
        std::vector<std::shared_ptr<MeshKernel>> kernels;
        for (Soup const& piece : pieces)
            kernels.push_back(kernelOf(piece));
        IntegrationRules rules;
        rules.removesSources = true;
        rules.planes[source] = {{0, 0, 1}, height};
        ResultIntegration integration(test.document, rules);
        Parts const parts = integration.begin({{source, kernels}})[source];
        integration.end();
        return parts;
    }

    TestDocument test;
};

}  // namespace

TEST_F(CutMemory, EachPieceKnowsItsSideInWhicheverOrderTheyCome)
{
    for (bool const isLowerFirst : {false, true}) {
        Mesh::DocumentObject* const part = test.add(box(30, 20, 10), "slab");
        Soup const low = box(30, 20, 4), high = box(30, 20, 6, {0, 0, 4});
        Parts const pieces =
            cut(part, 4, isLowerFirst ? std::vector{low, high} : std::vector{high, low});
        auto const upper = Mesh::cutMemoryOf(*pieces[isLowerFirst ? 1 : 0]);
        auto const lower = Mesh::cutMemoryOf(*pieces[isLowerFirst ? 0 : 1]);
        ASSERT_EQ(upper.faces.size(), 1u);
        ASSERT_EQ(lower.faces.size(), 1u);
        EXPECT_NE(upper.family, 0u);
        EXPECT_EQ(upper.family, lower.family);
        EXPECT_EQ(upper.faces[0].normal, Vector(0, 0, -1));
        EXPECT_EQ(upper.faces[0].distance, -4);
        EXPECT_EQ(lower.faces[0].normal, Vector(0, 0, 1));
        EXPECT_EQ(lower.faces[0].distance, 4);
    }
}

TEST_F(CutMemory, FollowsThePartThroughMovesTurnsScalesAndReflections)
{
    Parts const pieces =
        cut(test.add(box(30, 20, 10), "slab"), 4, {box(30, 20, 6, {0, 0, 4}), box(30, 20, 4)});
    Mesh::DocumentObject* const lower = pieces[1];
    lower->mirror({1, 2, 3}, {1, 2, -1});
    lower->rotate({1, 2, 3}, 1.1f, {1, 2, 3}, false);
    lower->scale({5, 0, 0}, {2, 0.5f, 3});
    lower->translate({7, -8, 9}, 0);
    auto const memory = Mesh::cutMemoryOf(*lower);
    ASSERT_EQ(memory.faces.size(), 1u);
    EXPECT_NEAR(memory.faces[0].normal.GetLength(), 1, 1e-6);
    // The corners of the cut's face lie in the plane, and the rest behind it.
    for (UPoint3<float> const& p : soupOf(lower).points) {
        double const beyond =
            (memory.faces[0].normal | Vector(p.X(), p.Y(), p.Z())) - memory.faces[0].distance;
        EXPECT_LT(beyond, 1e-4);
    }
    UPoint3<float> const corner = lower->getMatrix() * UPoint3<float>(30, 20, 4);
    EXPECT_NEAR(memory.faces[0].normal | Vector(corner.X(), corner.Y(), corner.Z()),
                memory.faces[0].distance, 1e-4);
}

TEST_F(CutMemory, GoesToCopiesAndToThePiecesOfPiecesButNotToOtherMeshes)
{
    Parts const first =
        cut(test.add(box(30, 20, 10), "slab"), 4, {box(30, 20, 6, {0, 0, 4}), box(30, 20, 4)});
    first[0]->translate({0, 0, 100}, 0);
    Parts const second =
        cut(first[0], 107, {box(30, 20, 3, {0, 0, 107}), box(30, 20, 3, {0, 0, 104})});
    auto const middle = Mesh::cutMemoryOf(*second[1]);
    ASSERT_EQ(middle.faces.size(), 2u);
    EXPECT_EQ(middle.family, Mesh::cutMemoryOf(*first[1]).family);
    EXPECT_EQ(middle.faces[0].normal, Vector(0, 0, -1));
    EXPECT_EQ(middle.faces[0].distance, -104);
    EXPECT_EQ(middle.faces[1].distance, 107);
    std::unique_ptr<Mesh::DocumentObject> const copy(second[1]->shallowCopy());
    EXPECT_EQ(Mesh::cutMemoryOf(*copy).faces.size(), 2u);
    second[1]->meshProperty->setMesh(std::shared_ptr<MeshKernel>(kernelOf(box(1, 1, 1))));
    EXPECT_EQ(Mesh::cutMemoryOf(*second[1]).family, 0u);
    test.document->undo();
    EXPECT_EQ(Mesh::cutMemoryOf(*test.document->getMeshObjects().back()).faces.size(), 1u);
}

TEST_F(CutMemory, PiecesAreLaidOnTheFaceOfTheCutHoweverTheyLie)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<float> share(-1, 1);
    for (int i = 0; i < 20; ++i) {
        // The cut's face is the smallest of all.
        Parts const pieces =
            cut(test.add(box(4, 5, 60), "bar"), 20, {box(4, 5, 40, {0, 0, 20}), box(4, 5, 20)});
        for (Mesh::DocumentObject* const piece : pieces)
            piece->rotate({1, 2, 3}, 4 * share(random),
                          {share(random), share(random), share(random)}, false);
        PartPlacement::CutFaceOutcome outcome;
        ASSERT_TRUE(PartPlacement::layOnCutFace(*test.document, pieces, outcome));
        EXPECT_TRUE(outcome.onLargest.empty());
        EXPECT_TRUE(outcome.left.empty());
        EXPECT_NEAR(pieces[0]->getBoundingBox().MaxZ(), 40, 1e-3);
        EXPECT_NEAR(pieces[1]->getBoundingBox().MaxZ(), 20, 1e-3);
        // What was at the cut is down.
        EXPECT_NEAR((pieces[0]->getMatrix() * UPoint3<float>(0, 0, 20)).Z(), 0, 1e-3);
        EXPECT_NEAR((pieces[1]->getMatrix() * UPoint3<float>(0, 0, 20)).Z(), 0, 1e-3);
        ASSERT_TRUE(test.document->undo());
    }
}

TEST_F(CutMemory, PiecesOfADrawnShapeKnowTheirWaysHoweverTheyLie)
{
    auto const cutByShape = [&](Soup const& inner) {
        Mesh::DocumentObject* const part = test.add(box(30, 20, 10), "slab");
        IntegrationRules rules;
        rules.removesSources = true;
        rules.shapeDirection = {0, 0, 25};
        std::vector<std::shared_ptr<MeshKernel>> pieces;
        pieces.emplace_back(kernelOf(inner));
        pieces.emplace_back(kernelOf(box(30, 20, 10)));
        ResultIntegration integration(test.document, rules);
        Parts const parts = integration.begin({{part, pieces}})[part];
        integration.end();
        return parts;
    };
    // Through all of it, into its top, and into its bottom.
    std::pair<Soup, double> const plugs[] = {
        {box(4, 4, 10, {9, 9, 0}), 1}, {box(4, 4, 3, {9, 9, 7}), 1}, {box(4, 4, 3, {9, 9, 0}), -1}};
    for (auto const& [plug, up] : plugs) {
        Parts const pieces = cutByShape(plug);
        auto const inner = Mesh::cutMemoryOf(*pieces[0]), outer = Mesh::cutMemoryOf(*pieces[1]);
        EXPECT_NE(inner.family, 0u);
        EXPECT_EQ(inner.family, outer.family);
        EXPECT_TRUE(inner.faces.empty());
        EXPECT_EQ(inner.ways, std::vector{Vector(0, 0, up)});
        EXPECT_EQ(outer.ways, std::vector{Vector(0, 0, -up)});
        // A way goes along with the part, through a slanting scale too.
        pieces[0]->rotate({1, 2, 3}, 1.1f, {1, 2, 3}, false);
        pieces[0]->scale({5, 0, 0}, {2, 0.5f, 3});
        pieces[0]->mirror({1, 2, 3}, {1, 2, -1});
        UMatrix4<float> const& matrix = pieces[0]->getMatrix();
        UPoint3<float> const from = matrix * UPoint3<float>(9, 9, 0);
        UPoint3<float> const to = matrix * UPoint3<float>(9, 9, float(10 * up));
        Vector const moved(double(to.X()) - from.X(), double(to.Y()) - from.Y(),
                           double(to.Z()) - from.Z());
        Vector const way = Mesh::cutMemoryOf(*pieces[0]).ways.at(0);
        EXPECT_NEAR(way.GetLength(), 1, 1e-6);
        EXPECT_NEAR(way | moved, moved.GetLength(), 1e-4 * moved.GetLength());
    }
}

TEST_F(CutMemory, WaysStandInTheRecordsOfAMovedPart)
{
    // The pieces of a part may have its placement: what is kept goes with their records.
    Mesh::DocumentObject* const part = test.add(box(30, 20, 10), "slab");
    Parts const pieces{test.add(box(4, 4, 10), "plug"), test.add(box(30, 20, 10), "rest")};
    for (Mesh::DocumentObject* const piece : pieces) {
        piece->rotate({1, 2, 3}, 0.7f, {3, 2, 1}, false);
        piece->scale({5, 0, 0}, {2, 0.5f, 3});
        piece->mirror({1, 2, 3}, {1, 2, -1});
    }
    Vector const along(0.36, 0.48, 0.8);
    Mesh::rememberShapeCut(*part, along, *pieces[0], *pieces[1]);
    Vector const way = Mesh::cutMemoryOf(*pieces[0]).ways.at(0);
    EXPECT_NEAR(std::abs(way | along), 1, 1e-6);
}

TEST_F(CutMemory, PartsWithoutACutFaceLieOnTheirLargestFace)
{
    Mesh::DocumentObject* const bar = test.add(box(4, 50, 60), "bar");
    PartPlacement::CutFaceOutcome outcome;
    ASSERT_TRUE(PartPlacement::layOnCutFace(*test.document, {bar}, outcome));
    EXPECT_EQ(outcome.onLargest, Parts{bar});
    EXPECT_NEAR(bar->getBoundingBox().MaxZ(), 4, 1e-4);
    // A bead stands on nothing.
    Mesh::DocumentObject* const bead = test.add(sphere(10, 40, 60), "bead");
    EXPECT_FALSE(PartPlacement::layOnCutFace(*test.document, {bead}, outcome));
    EXPECT_EQ(outcome.left, Parts{bead});
}
