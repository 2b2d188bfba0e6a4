// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/Repair.h"
#include "tests/support/MadeModels.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include <cmath>

namespace {

using Errors = Repair::EvaluateErrors;

Errors::Counts countsOf(MeshKernel& kernel, Errors::ErrorType type = Errors::ERROR_ALL)
{
    Errors errors(&kernel);
    std::size_t const total = errors.evaluate(type, true, true, {});
    EXPECT_EQ(total, errors.counts().total());
    return errors.counts();
}

Errors::Counts countsOf(Soup const& soup)
{
    return countsOf(*kernelOf(soup));
}

Soup twoTriangles(UPoint3<float> const& apex)
{
    Soup soup;
    soup.points = {{0, 0, 0}, {4, 0, 0}, {1, 3, 0}, apex};
    soup.triangles = {{0, 1, 2}, {1, 0, 3}};
    return soup;
}

/// A tetrahedron with two triangles between two corners at the same place.
Soup tetrahedronWithSplitCorner()
{
    Soup soup;
    soup.points = {{0, 0, 5}, {0, 0, 0}, {0, 4, 0}, {4, 0, 0}, {0, 0, 5}};
    soup.triangles = {{1, 2, 3}, {4, 2, 1}, {0, 3, 2}, {0, 1, 3}, {2, 4, 0}, {4, 1, 0}};
    return soup;
}

}  // namespace

TEST(EvaluateErrors, ClosedSolidsHaveNone)
{
    for (NamedSoup const& solid : closedMeshes())
        EXPECT_EQ(countsOf(solid.soup).total(), 0u) << solid.name;
}

TEST(EvaluateErrors, ShuffledSolidsHaveNone)
{
    for (NamedSoup const& solid : closedMeshes())
        EXPECT_EQ(countsOf(shuffled(solid.soup, 7)).total(), 0u) << solid.name;
}

TEST(EvaluateErrors, AnEmptyMeshHasNone)
{
    EXPECT_EQ(countsOf(Soup()).total(), 0u);
}

TEST(EvaluateErrors, CountsBorderEdges)
{
    Errors::Counts const counts = countsOf(openBox(1, 2, 3));
    EXPECT_EQ(counts.borderEdges, 4u);
    EXPECT_EQ(counts.total(), 4u);
}

TEST(EvaluateErrors, CountsEdgesWithMoreThanTwoTriangles)
{
    Errors::Counts const counts = countsOf(boxesSharingAnEdge());
    EXPECT_EQ(counts.nonManifoldEdges, 1u);
    EXPECT_EQ(counts.total(), 1u);
}

TEST(EvaluateErrors, CountsEdgesOfInconsistentOrientation)
{
    Soup soup = box(1, 2, 3);
    std::swap(soup.triangles[5][1], soup.triangles[5][2]);
    Errors::Counts const counts = countsOf(soup);
    EXPECT_EQ(counts.inconsistentEdges, 3u);
    EXPECT_EQ(counts.total(), 3u);
}

TEST(EvaluateErrors, CountsTrianglesThatUseAVertexTwice)
{
    Soup soup = box(1, 2, 3);
    soup.add(0, 0, 1);
    Errors::Counts const counts = countsOf(soup);
    EXPECT_EQ(counts.degenerateTriangles, 1u);
    EXPECT_EQ(counts.total(), 1u);
}

TEST(EvaluateErrors, CountsTrianglesWithoutArea)
{
    Errors::Counts const counts = countsOf(tetrahedronWithSplitCorner());
    EXPECT_EQ(counts.degenerateTriangles, 2u);
    EXPECT_EQ(counts.total(), 2u);
}

TEST(EvaluateErrors, TellsANearlyFlatTriangleFromAFlatOne)
{
    // 2^-40 beside a line of length 3: doubles rounded on the way would lose it.
    Soup soup;
    soup.points = {{0, 0, 0}, {3, 1, 0}, {1.5f, 0.5f, 0}, {1.5f, 0.5f, 0x1p-40f}};
    soup.triangles = {{0, 1, 2}};
    EXPECT_EQ(countsOf(soup).degenerateTriangles, 1u);
    soup.triangles = {{0, 1, 3}};
    EXPECT_EQ(countsOf(soup).degenerateTriangles, 0u);
}

TEST(EvaluateErrors, CountsCoordinatesThatAreNoNumbersAsDegenerate)
{
    Soup soup = box(1, 2, 3);
    std::uint32_t const bad = soup.add({std::nanf(""), 0, 0});
    soup.add(0, 1, bad);
    EXPECT_EQ(countsOf(soup).degenerateTriangles, 1u);
}

TEST(EvaluateErrors, CountsDuplicateTriangles)
{
    Soup soup;
    soup.points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    soup.triangles = {{0, 1, 2}, {0, 2, 1}};
    Errors::Counts const counts = countsOf(soup);
    EXPECT_EQ(counts.duplicateTriangles, 1u);
    EXPECT_EQ(counts.total(), 1u);
}

TEST(EvaluateErrors, CountsARepeatedTriangleAndTheEdgesItCrowds)
{
    Soup soup = box(1, 2, 3);
    soup.triangles.push_back(soup.triangles[4]);
    Errors::Counts const counts = countsOf(soup);
    EXPECT_EQ(counts.duplicateTriangles, 1u);
    EXPECT_EQ(counts.nonManifoldEdges, 3u);
    EXPECT_EQ(counts.total(), 4u);
}

TEST(EvaluateErrors, CountsPairsOfTrianglesThatCross)
{
    Errors::Counts const counts = countsOf(crossingBoxes());
    EXPECT_GT(counts.selfIntersections, 0u);
    EXPECT_EQ(counts.total(), counts.selfIntersections);
}

TEST(EvaluateErrors, NeighboursOverAnEdgeMeetElsewhereOnlyIfFoldedFlat)
{
    EXPECT_EQ(countsOf(twoTriangles({2, 1, 0})).selfIntersections, 1u);
    EXPECT_EQ(countsOf(twoTriangles({2, -1, 0})).selfIntersections, 0u);
    EXPECT_EQ(countsOf(twoTriangles({2, 1, 0x1p-30f})).selfIntersections, 0u);
}

TEST(EvaluateErrors, ShellsThatTouchAlongAnEdgeAreSound)
{
    Soup soup = box(2, 2, 2);
    soup.append(box(2, 2, 2, {2, 2, 0}));
    EXPECT_EQ(countsOf(soup).total(), 0u);
}

TEST(EvaluateErrors, ShellsThatTouchFaceToFaceAreNot)
{
    Soup soup = box(2, 2, 2);
    soup.append(box(2, 2, 2, {2, 0, 0}));
    EXPECT_GT(countsOf(soup).selfIntersections, 0u);
}

TEST(EvaluateErrors, AnInwardFacingSolidIsMisoriented)
{
    Soup soup = box(1, 2, 3);
    soup.flip();
    Errors::Counts const counts = countsOf(soup);
    EXPECT_EQ(counts.misorientedShells, 1u);
    EXPECT_EQ(counts.total(), 1u);
}

TEST(EvaluateErrors, ACavityThatFacesOutwardIsMisoriented)
{
    Soup soup = box(10, 10, 10);
    soup.append(box(2, 2, 2, {4, 4, 4}));
    Errors::Counts const counts = countsOf(soup);
    EXPECT_EQ(counts.misorientedShells, 1u);
    EXPECT_EQ(counts.total(), 1u);
}

TEST(EvaluateErrors, ShellsThatCrossDoNotLieWithinEachOther)
{
    EXPECT_EQ(countsOf(crossingBoxes()).misorientedShells, 0u);
}

TEST(EvaluateErrors, CountsOnlyTheKindsAskedFor)
{
    Soup soup = openBox(1, 2, 3);
    soup.add(0, 0, 1);
    soup.append(moved(crossingBoxes(), UMatrix4<float>()));
    auto const kernel = kernelOf(soup);
    Errors::Counts const edges = countsOf(*kernel, Errors::ERROR_EDGES);
    EXPECT_EQ(edges.total(), edges.borderEdges + edges.nonManifoldEdges);
    EXPECT_EQ(edges.borderEdges, 4u);
    Errors::Counts const triangles = countsOf(*kernel, Errors::ERROR_TRIANGLES);
    EXPECT_EQ(triangles.total(), triangles.degenerateTriangles);
    EXPECT_EQ(triangles.degenerateTriangles, 1u);
    Errors::Counts const intersections = countsOf(*kernel, Errors::ERROR_INTERSECTIONS);
    EXPECT_GT(intersections.selfIntersections, 0u);
    EXPECT_EQ(intersections.total(), intersections.selfIntersections);
}

TEST(EvaluateErrors, AMirroringMatrixTurnsNothingInsideOut)
{
    auto const kernel = kernelOf(nestedBoxes());
    kernel->getMatrix()(0, 0) = -2;
    EXPECT_EQ(countsOf(*kernel).total(), 0u);
}

TEST(EvaluateErrors, NeedsNoValidIdentifiersAndSetsNone)
{
    auto const kernel = kernelOf(openBox(1, 2, 3));
    for (UVertex<float>* vertex : kernel->getMesh()->vertices)
        vertex->ID() = 77;
    EXPECT_EQ(countsOf(*kernel).borderEdges, 4u);
    for (UVertex<float> const* vertex : kernel->getMesh()->vertices)
        EXPECT_EQ(vertex->cID(), 77u);
}

TEST(EvaluateErrors, ReportsRisingPercentagesUpToTheEnd)
{
    auto const kernel = kernelOf(torus(20, 5, 200, 100));
    int last = -1;
    Errors(kernel.get()).evaluate(Errors::ERROR_ALL, true, true, [&](int percent) {
        EXPECT_GE(percent, last);
        last = percent;
    });
    EXPECT_EQ(last, 100);
}

TEST(EvaluateErrors, LetsTheCancelPass)
{
    auto const kernel = kernelOf(torus(20, 5, 200, 100));
    for (int limit : {0, 20, 60, 90}) {
        auto const cancel = [&](int percent) {
            if (percent >= limit)
                throw Mell::AbortException("Aborting...");
        };
        EXPECT_THROW(Errors(kernel.get()).evaluate(Errors::ERROR_ALL, true, true, cancel),
                     Mell::AbortException);
    }
}

TEST(EvaluateErrors, CountsTheSameWithAnyNumberOfThreads)
{
    Soup soup = crossingBoxes();
    soup.append(torus(20, 5, 90, 40));
    Errors::Counts const many = countsOf(soup);
    tbb::global_control const one(tbb::global_control::max_allowed_parallelism, 1);
    EXPECT_EQ(countsOf(soup).selfIntersections, many.selfIntersections);
    EXPECT_EQ(countsOf(soup).total(), many.total());
}

TEST(EvaluateErrors, JudgesMadeModelsAsTheyAre)
{
    for (MadeModel const& model : madeModels())
        EXPECT_EQ(countsOf(model.soup).total(), 0u) << model.name;
    Errors::Counts const ofCrossing = countsOf(crossingFigure());
    EXPECT_GT(ofCrossing.selfIntersections, 100u);
    EXPECT_EQ(ofCrossing.total(), ofCrossing.selfIntersections);
    Soup const open = openHead(45);
    Errors::Counts const ofOpen = countsOf(open);
    EXPECT_EQ(ofOpen.borderEdges, borderEdgesOf(open));
    EXPECT_EQ(ofOpen.total(), ofOpen.borderEdges);
    // A triangle in the middle of each of three faces turned round.
    Soup head = scannedHead(45);
    for (std::size_t const t : {1000u, 9000u, 20000u})
        std::swap(head.triangles[t][0], head.triangles[t][1]);
    EXPECT_EQ(countsOf(head).inconsistentEdges, 9u);
    EXPECT_EQ(countsOf(head).total(), 9u);
}

// In every clone: EvaluateErrors.JudgesMadeModelsAsTheyAre
TEST(EvaluateErrors, JudgesRealModelsAsTheyAre)
{
    Soup const cow = realMesh("cow-6k.stl");
    if (cow.triangles.empty())
        GTEST_SKIP() << modelsAreMissing;
    Errors::Counts const ofCow = countsOf(cow);
    EXPECT_GT(ofCow.selfIntersections, 0u);
    EXPECT_EQ(ofCow.total(), ofCow.selfIntersections);
    Errors::Counts const ofBunny = countsOf(realMesh("open-bunny-69k.stl"));
    EXPECT_EQ(ofBunny.borderEdges, 223u);
    EXPECT_EQ(ofBunny.total(), 223u);
    Errors::Counts const ofPropeller = countsOf(realMesh("misoriented-propeller-7k.stl"));
    EXPECT_EQ(ofPropeller.inconsistentEdges, 12u);
    EXPECT_EQ(ofPropeller.total(), 12u);
    EXPECT_EQ(countsOf(realMesh("fandisk-13k.stl")).total(), 0u);
    EXPECT_EQ(countsOf(realMesh("igea-269k.stl")).total(), 0u);
}
