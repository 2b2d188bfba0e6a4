// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/Repair.h"
#include "tests/support/BooleanJudge.h"
#include "tests/support/MadeModels.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <stdexcept>

namespace {

using Errors = Repair::EvaluateErrors;

std::size_t errorsOf(MeshKernel& kernel)
{
    return Errors(&kernel).evaluate(Errors::ERROR_ALL, true, true, {});
}

/// Repairs a mesh that must come out as a sound closed solid.
Soup mended(Soup const& soup)
{
    auto const kernel = kernelOf(soup);
    EXPECT_GT(errorsOf(*kernel), 0u);
    EXPECT_TRUE(Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced({}));
    EXPECT_EQ(errorsOf(*kernel), 0u);
    EXPECT_EQ(closedSolidFaults(*kernel), "");
    return soupOf(*kernel);
}

bool areEqual(Soup const& a, Soup const& b)
{
    return a.points == b.points && a.triangles == b.triangles;
}

/// The triangles of a mesh by coordinates alone.
std::multiset<std::array<std::array<float, 3>, 3>> trianglesOf(Soup const& soup)
{
    std::multiset<std::array<std::array<float, 3>, 3>> triangles;
    for (auto const& t : soup.triangles) {
        std::array<std::array<float, 3>, 3> corners;
        for (int k = 0; k < 3; ++k)
            for (int axis = 0; axis < 3; ++axis)
                corners[k][axis] = soup.points[t[k]][axis];
        std::sort(corners.begin(), corners.end());
        triangles.insert(corners);
    }
    return triangles;
}

/// A ball with a point that has been pushed under the triangles beside it.
Soup ballWithAFold()
{
    Soup soup = sphere(10, 24, 48);
    UPoint3<float>& point = soup.points[soup.triangles[1000][0]];
    UPoint3<float> const beyond = soup.points[soup.triangles[1004][0]];
    point = (point + (beyond - point) * 2.0f) * 0.97f;
    return soup;
}

}  // namespace

TEST(RepairMethods, LeavesAMeshWithoutErrorsAlone)
{
    auto const kernel = kernelOf(torus(10, 3, 24, 12));
    UTriangle<float>* const first = kernel->getMesh()->triangles.front();
    Soup const before = soupOf(*kernel);
    EXPECT_TRUE(Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced({}));
    EXPECT_EQ(kernel->getMesh()->triangles.front(), first);
    EXPECT_TRUE(areEqual(soupOf(*kernel), before));
}

TEST(RepairMethods, FillsAHole)
{
    EXPECT_NEAR(volumeOf(mended(openBox(1, 2, 3))), 6, 1e-5);
}

TEST(RepairMethods, KeepsEveryTriangleOfTheSurfaceItCloses)
{
    Soup soup = torus(20, 5, 60, 30);
    soup.triangles.erase(soup.triangles.begin() + 700, soup.triangles.begin() + 706);
    auto const before = trianglesOf(soup);
    auto const after = trianglesOf(mended(soup));
    EXPECT_TRUE(std::includes(after.begin(), after.end(), before.begin(), before.end()));
    EXPECT_EQ(after.size(), before.size() + 6);
}

TEST(RepairMethods, StitchesTrianglesThatShareNoVertices)
{
    Soup const solid = cylinder(5, 10, 24);
    Soup loose;
    for (auto const& t : solid.triangles) {
        std::uint32_t corners[3];
        for (int k = 0; k < 3; ++k)
            corners[k] = loose.add(solid.points[t[k]]);
        loose.add(corners[0], corners[1], corners[2]);
    }
    Soup const result = mended(loose);
    EXPECT_EQ(result.points.size(), solid.points.size());
    EXPECT_NEAR(volumeOf(result), volumeOf(solid), 1e-3);
}

TEST(RepairMethods, TurnsTheTrianglesThatDisagree)
{
    Soup soup = box(1, 2, 3);
    std::swap(soup.triangles[5][1], soup.triangles[5][2]);
    EXPECT_NEAR(volumeOf(mended(soup)), 6, 1e-5);
}

TEST(RepairMethods, TurnsSolidsOutwardAndCavitiesInward)
{
    Soup soup = nestedBoxes();
    double const volume = volumeOf(soup);
    soup.flip();
    EXPECT_NEAR(volumeOf(mended(soup)), volume, 1e-3);
}

// The outer box crosses another and is not turned, so what it holds must not be turned either; a box
// elsewhere is turned all the same.
TEST(RepairMethods, LeavesAShellWithinOneThatStaysInsideOut)
{
    Soup soup = box(10, 10, 10);
    soup.flip();
    soup.append(box(2, 2, 2, {4, 4, 4}));
    soup.append(box(3, 2, 2, {8.5f, 7, 7}));
    Soup elsewhere = box(3, 4, 5, {30, 0, 0});
    elsewhere.flip();
    soup.append(elsewhere);
    auto const kernel = kernelOf(soup);
    Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced({});
    Soup const result = soupOf(*kernel);
    EXPECT_EQ(windingNumberAt(result, {5, 5, 5.1}), 0);
    EXPECT_EQ(windingNumberAt(result, {31, 1, 1.1}), 1);
}

// To turn it would make a hollow of what is solid.
TEST(RepairMethods, LeavesOutAShellThatLiesInSolid)
{
    Soup cavity = box(10, 10, 10);
    cavity.append(box(2, 2, 2, {4, 4, 4}));
    Soup const result = mended(cavity);
    EXPECT_NEAR(volumeOf(result), 1000, 1e-3);
    EXPECT_EQ(result.triangles.size(), 12u);
}

TEST(RepairMethods, SeparatesSolidsThatShareAnEdge)
{
    Soup const result = mended(boxesSharingAnEdge());
    EXPECT_EQ(componentsOf(result), 2u);
    EXPECT_NEAR(volumeOf(result), volumeOf(boxesSharingAnEdge()), 1e-3);
}

TEST(RepairMethods, RemovesDuplicateTriangles)
{
    Soup soup = box(1, 2, 3);
    soup.triangles.push_back(soup.triangles[4]);
    auto const turned = soup.triangles[7];
    soup.add(turned[0], turned[2], turned[1]);
    Soup const result = mended(soup);
    EXPECT_EQ(result.triangles.size(), 12u);
    EXPECT_NEAR(volumeOf(result), 6, 1e-5);
}

TEST(RepairMethods, RemovesFinsAndStrayTriangles)
{
    Soup soup = box(1, 2, 3);
    std::uint32_t const tip = soup.add({5, 5, 5});
    soup.add(soup.triangles[0][0], soup.triangles[0][1], tip);
    soup.add(soup.triangles[0][1], soup.triangles[0][0], tip);
    soup.append(openBox(1, 1, 1));
    soup.triangles.resize(soup.triangles.size() - 9);
    Soup const result = mended(soup);
    EXPECT_EQ(result.triangles.size(), 12u);
    EXPECT_NEAR(volumeOf(result), 6, 1e-5);
}

TEST(RepairMethods, RemovesTrianglesWithoutArea)
{
    Soup soup;
    soup.points = {{0, 0, 5}, {0, 0, 0}, {0, 4, 0}, {4, 0, 0}, {0, 0, 5}};
    soup.triangles = {{1, 2, 3}, {4, 2, 1}, {0, 3, 2}, {0, 1, 3}, {2, 4, 0}, {4, 1, 0}};
    Soup const result = mended(soup);
    EXPECT_EQ(result.triangles.size(), 4u);
    EXPECT_NEAR(volumeOf(result), 40.0 / 3, 1e-4);
}

TEST(RepairMethods, RemovesBrokenCoordinates)
{
    Soup soup = box(1, 2, 3);
    soup.add(0, 1, soup.add({std::nanf(""), 0, 0}));
    EXPECT_EQ(mended(soup).triangles.size(), 12u);
}

TEST(RepairMethods, RemovesACrossingOfAShellWithItself)
{
    Soup const soup = ballWithAFold();
    Soup const result = mended(soup);
    EXPECT_NEAR(volumeOf(result), volumeOf(sphere(10, 24, 48)), 100);
}

TEST(RepairMethods, JoinsShellsThatCross)
{
    Soup soup = box(2, 2, 2);
    soup.append(box(2, 2, 2, {1, 1, 1}));
    Soup const result = mended(soup);
    EXPECT_NEAR(volumeOf(result), 8 + 8 - 1, 1e-5);
    EXPECT_EQ(componentsOf(result), 1u);
}

TEST(RepairMethods, NeverRaisesTheNumberOfErrors)
{
    for (unsigned drop : {3u, 7u, 11u}) {
        Soup soup = crossingBoxes();
        soup.append(shuffled(lattice(2), drop));
        std::size_t left = 0;
        for (std::size_t t = 0; t < soup.triangles.size(); ++t)
            if (t % drop != 0)
                soup.triangles[left++] = soup.triangles[t];
        soup.triangles.resize(left);
        auto const kernel = kernelOf(soup);
        std::size_t const before = errorsOf(*kernel);
        Soup const was = soupOf(*kernel);
        bool const isSound = Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced({});
        std::size_t const after = errorsOf(*kernel);
        EXPECT_TRUE(after < before || areEqual(soupOf(*kernel), was)) << drop;
        EXPECT_EQ(isSound, after == 0) << drop;
    }
}

TEST(RepairMethods, LeavesIdentifiersCountsAndBoxValid)
{
    auto const kernel = kernelOf(openBox(1, 2, 3));
    Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced({});
    UMesh<float> const& mesh = *kernel->getMesh();
    EXPECT_EQ(mesh.triangleCount, mesh.triangles.size());
    EXPECT_EQ(mesh.vertexCount, mesh.vertices.size());
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i)
        EXPECT_EQ(mesh.vertices[i]->cID(), i);
    for (std::size_t i = 0; i < mesh.triangles.size(); ++i) {
        EXPECT_EQ(mesh.triangles[i]->cID(), i);
        EXPECT_EQ(mesh.triangles[i]->cN(), mesh.triangles[i]->ComputeNormalizedNormal());
    }
    EXPECT_EQ(kernel->GetBox().MaxZ(), 3);
}

TEST(RepairMethods, CancelLeavesTheMeshAsItWas)
{
    Soup soup = ballWithAFold();
    soup.triangles.erase(soup.triangles.begin() + 100, soup.triangles.begin() + 104);
    for (int limit = 0; limit <= 95; limit += 5) {
        auto const kernel = kernelOf(soup);
        Soup const before = soupOf(*kernel);
        auto const cancel = [&](int percent) {
            if (percent >= limit)
                throw Mell::AbortException("Aborting...");
        };
        EXPECT_THROW(Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced(cancel),
                     Mell::AbortException);
        EXPECT_TRUE(areEqual(soupOf(*kernel), before)) << limit;
    }
}

TEST(RepairMethods, LetsAStandardExceptionOfTheProgressPass)
{
    auto const kernel = kernelOf(ballWithAFold());
    auto const fail = [](int percent) {
        if (percent >= 50)
            throw std::runtime_error("stop");
    };
    EXPECT_THROW(Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced(fail),
                 std::runtime_error);
}

TEST(RepairMethods, ReportsRisingPercentagesUpToTheEnd)
{
    auto const kernel = kernelOf(ballWithAFold());
    int last = -1;
    Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced([&](int percent) {
        EXPECT_GE(percent, last);
        last = percent;
    });
    EXPECT_EQ(last, 100);
}

TEST(RepairMethods, GivesTheSameBytesWithAnyNumberOfThreads)
{
    Soup soup = ballWithAFold();
    soup.triangles.erase(soup.triangles.begin() + 100, soup.triangles.begin() + 104);
    Soup const first = mended(soup);
    EXPECT_TRUE(areEqual(mended(soup), first));
    tbb::global_control const one(tbb::global_control::max_allowed_parallelism, 1);
    EXPECT_TRUE(areEqual(mended(soup), first));
}

TEST(RepairMethods, MendsTheMadeModelsThatNeedIt)
{
    Soup turned = branchedFigure();
    for (std::size_t t = 500; t < 12000; t += 1000)
        std::swap(turned.triangles[t][0], turned.triangles[t][1]);
    for (NamedSoup const& model :
         {NamedSoup{"crossing figure", crossingFigure()}, NamedSoup{"open head", openHead(45)},
          NamedSoup{"figure with turned triangles", turned}}) {
        SCOPED_TRACE(model.name);
        Soup const result = mended(model.soup);
        // What two shells have in common counts once now, and a hole is filled flat.
        EXPECT_NEAR(volumeOf(result), volumeOf(model.soup), 0.03 * volumeOf(model.soup));
    }
}

// In every clone: RepairMethods.MendsTheMadeModelsThatNeedIt
TEST(RepairMethods, MendsTheRealModelsThatNeedIt)
{
    for (char const* name : {"cow-6k.stl", "open-bunny-69k.stl", "misoriented-propeller-7k.stl"}) {
        Soup const soup = realMesh(name);
        if (soup.triangles.empty())
            GTEST_SKIP() << modelsAreMissing;
        Soup const result = mended(soup);
        EXPECT_NEAR(volumeOf(result), volumeOf(soup), 0.01 * volumeOf(soup)) << name;
    }
}
