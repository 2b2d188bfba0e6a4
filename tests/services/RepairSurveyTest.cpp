// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/CrossingPairs.h"
#include "host/services/repair/TriangleDifference.h"
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <set>

// A repair looks again only at what is new. What comes out must be the same as if it had looked at
// everything.
namespace {

using Errors = Repair::EvaluateErrors;
using Numbers = std::vector<std::uint32_t>;

std::function<void(int)> const nobody;

Soup partOf(std::string const& name)
{
    for (corpus::Part const& part : corpus::parts())
        if (part.name == name)
            return part.soup;
    ADD_FAILURE() << "no part " << name;
    return {};
}

MeshArrays arraysOf(Soup const& soup)
{
    return {soup.points, soup.triangles};
}

/// The upper piece of a part after a level cut through its middle.
struct UpperPiece
{
    explicit UpperPiece(MeshKernel& part)
    {
        part.UpdateBoundingBox();
        UBox3<float> const& b = part.GetBox();
        float const height = b.MinZ() + 0.47f * (b.MaxZ() - b.MinZ());
        float const reach = 4 * (b.max - b.min).GetLength();
        UPoint3<float> const middle((b.MinX() + b.MaxX()) / 2, (b.MinY() + b.MaxY()) / 2, height);
        Soup rectangle;
        for (auto const& [x, y] : {std::pair(-1, -1), {1, -1}, {1, 1}, {-1, 1}})
            rectangle.add(middle + UVector3<float>(float(x) * reach, float(y) * reach, 0));
        rectangle.add(0, 1, 2);
        rectangle.add(2, 3, 0);
        auto const plane = kernelOf(rectangle);
        MeshKernel below, section;
        Intersect::cutByPlane(&part, plane.get(), &kernel, &below, &section, {}, true);
        kernel.toRclMesh();
    }

    MeshKernel kernel;
};

std::set<UTriangle<float> const*> recordsOf(MeshKernel const& kernel)
{
    auto const& triangles = kernel.readMesh()->triangles;
    return {triangles.begin(), triangles.end()};
}

/// What a mesh needs to be searched.
struct Searched
{
    explicit Searched(MeshArrays arrays)
        : mesh(std::move(arrays)),
          progress(nobody),
          topology(checkTopology(mesh, progress)),
          tree(mesh, topology, progress)
    {}

    MeshArrays mesh;
    StageProgress progress;
    TopologyReport topology;
    TriangleTree tree;
};

Numbers allOf(MeshArrays const& mesh)
{
    Numbers numbers(mesh.triangles.size());
    std::iota(numbers.begin(), numbers.end(), 0u);
    return numbers;
}

}  // namespace

TEST(RepairSurvey, ARepairAfterACheckGivesTheSameAsOneThatLooksItself)
{
    for (char const* name : {"scan-noise-strong", "figure-of-eight", "boxes-with-coplanar-sides",
                             "opening-beside-the-plane", "flipped"}) {
        Soup const soup = partOf(name);
        for (bool const isWhole : {false, true}) {
            auto const part = kernelOf(soup);
            UpperPiece one(*part), other(*part);
            auto const scope = isWhole ? Repair::Scope() : Repair::Scope::madeFrom(*part);
            Errors check(&one.kernel);
            check.evaluate(Errors::ERROR_ALL, true, true, {});
            Repair::RepairMethods informed(&one.kernel, scope, check.survey());
            Repair::RepairMethods uninformed(&other.kernel, scope);
            EXPECT_EQ(informed.autoRepair_simple_advanced({}),
                      uninformed.autoRepair_simple_advanced({}))
                << name;
            EXPECT_EQ(soupOf(one.kernel).points, soupOf(other.kernel).points) << name;
            EXPECT_EQ(soupOf(one.kernel).triangles, soupOf(other.kernel).triangles) << name;
            EXPECT_EQ(Repair::linesOf(informed.report()), Repair::linesOf(uninformed.report()));
        }
    }
}

TEST(RepairSurvey, ASurveyOfAnotherMeshIsNotBelieved)
{
    Soup const soup = partOf("figure-of-eight");
    auto const other = kernelOf(box(1, 2, 3));
    Errors check(other.get());
    check.evaluate(Errors::ERROR_ALL, true, true, {});
    auto const kernel = kernelOf(soup);
    Repair::RepairMethods repair(kernel.get(), {}, check.survey());
    EXPECT_TRUE(repair.autoRepair_simple_advanced({}));
    EXPECT_GT(repair.report().countOf(Repair::Flaw::crossing), 0u);
    EXPECT_EQ(closedSolidFaults(*kernel), "");
}

TEST(RepairSurvey, OnlyACompleteCheckLeavesASurvey)
{
    auto const kernel = kernelOf(box(1, 2, 3));
    Errors check(kernel.get());
    EXPECT_EQ(check.survey(), nullptr);
    check.evaluate(Errors::ERROR_ALL, true, true, {});
    EXPECT_NE(check.survey(), nullptr);
    check.evaluate(Errors::ERROR_EDGES, true, true, {});
    EXPECT_EQ(check.survey(), nullptr);
}

TEST(RepairSurvey, TrianglesThatStayKeepTheirRecords)
{
    auto const part = kernelOf(partOf("scan-noise-strong"));
    UpperPiece piece(*part);
    piece.kernel.getMesh()->BuildTopo({}, false);
    auto const before = recordsOf(piece.kernel);
    Repair::RepairMethods repair(&piece.kernel, Repair::Scope::madeFrom(*part));
    repair.autoRepair_simple_advanced({});
    ASSERT_GT(repair.report().countOf(Repair::Flaw::crossing), 0u);
    auto const after = recordsOf(piece.kernel);
    std::size_t const gone = std::size_t(std::count_if(
        before.begin(), before.end(), [&](auto const* record) { return !after.contains(record); }));
    // Some triangles to a crossing, and the few that are buried.
    EXPECT_LE(gone, 6 * repair.report().countOf(Repair::Flaw::crossing));
    // Nothing points at a record that has gone.
    auto const mesh = piece.kernel.readMesh();
    for (UTriangle<float> const* const triangle : mesh->triangles)
        for (int k = 0; k < 3; ++k) {
            ASSERT_LT(triangle->cV(k)->cID(), mesh->vertices.size());
            EXPECT_EQ(mesh->vertices[triangle->cV(k)->cID()], triangle->cV(k));
            EXPECT_EQ(triangle->cFFp(k), nullptr);
            EXPECT_EQ(triangle->cV(k)->cVFp(), nullptr);
        }
    EXPECT_EQ(mesh->triangleCount, mesh->triangles.size());
    EXPECT_EQ(mesh->vertexCount, mesh->vertices.size());
}

TEST(TriangleMatch, FindsAllThatWereRemovedTurnedOrAddedAtTheEnd)
{
    MeshArrays const before = arraysOf(sphere(5, 12, 24));
    MeshArrays after = before;
    after.triangles.erase(after.triangles.begin() + 17, after.triangles.begin() + 40);
    after.triangles.erase(after.triangles.begin());
    std::swap(after.triangles[100][0], after.triangles[100][1]);
    after.points.push_back({1, 2, 3});
    for (std::uint32_t i = 0; i < 9; ++i)
        after.triangles.push_back({i, i + 30, std::uint32_t(after.points.size() - 1)});
    StageProgress progress(nobody);
    Numbers const matched = matchedInOrder(after, before, progress);
    ASSERT_EQ(matched.size(), after.triangles.size());
    for (std::size_t t = 0; t < matched.size(); ++t) {
        bool const isNew = t == 100 || t + 9 >= matched.size();
        ASSERT_EQ(matched[t] == unmatched, isNew) << t;
        if (!isNew) {
            EXPECT_EQ(before.triangles[matched[t]], after.triangles[t]);
        }
    }
}

TEST(TriangleMatch, NeverClaimsWhatIsNotThere)
{
    MeshArrays const before = arraysOf(sphere(5, 12, 24));
    std::mt19937 random(4);
    for (int round = 0; round < 20; ++round) {
        MeshArrays after = before;
        std::shuffle(after.triangles.begin(), after.triangles.end(), random);
        StageProgress progress(nobody);
        Numbers const matched = matchedInOrder(after, before, progress);
        std::set<std::uint32_t> taken;
        for (std::size_t t = 0; t < matched.size(); ++t)
            if (matched[t] != unmatched) {
                EXPECT_TRUE(taken.insert(matched[t]).second);
                EXPECT_EQ(before.triangles[matched[t]], after.triangles[t]);
            }
    }
}

TEST(TriangleMatch, OfSomeTrianglesThoseThatAMovedPartDoesNotHave)
{
    Soup soup = sphere(5, 12, 24);
    auto const part = kernelOf(soup);
    part->getMatrix()(0, 3) = 8;
    for (auto& point : soup.points)
        point.X() += 8;
    soup.add({20, 0, 0});
    soup.triangles[7] = {soup.triangles[7][0], soup.triangles[7][1],
                         std::uint32_t(soup.points.size() - 1)};
    std::swap(soup.triangles[9][0], soup.triangles[9][1]);
    StageProgress progress(nobody);
    EXPECT_EQ(trianglesNotIn(arraysOf(soup), {3, 7, 9, 12}, *part, progress), Numbers{7});
    EXPECT_EQ(trianglesNotIn(arraysOf(soup), {}, *part, progress), Numbers{});
}

TEST(CrossingPairs, InLayersAreThoseOfTheWholeMesh)
{
    for (char const* name : {"scan-noise-strong", "figure-of-eight", "boxes-with-coplanar-sides"}) {
        Searched const before(arraysOf(partOf(name)));
        // Every ninth triangle goes; some come, which cross others.
        MeshArrays after = before.mesh;
        Numbers numbers(before.mesh.triangles.size(), SearchLayer::none);
        after.triangles.clear();
        for (std::uint32_t t = 0; t < numbers.size(); ++t)
            if (t % 9 != 4) {
                numbers[t] = std::uint32_t(after.triangles.size());
                after.triangles.push_back(before.mesh.triangles[t]);
            }
        std::size_t const firstNew = after.triangles.size();
        auto const count = std::uint32_t(after.points.size());
        for (std::uint32_t i = 0; i < 12; ++i)
            after.triangles.push_back({i * 5 % count, (i * 31 + 7) % count, (i * 77 + 3) % count});
        Numbers newNumbers;
        for (std::size_t t = firstNew; t < after.triangles.size(); ++t)
            newNumbers.push_back(std::uint32_t(t));
        Searched const made(subset(after, newNumbers));
        Searched const whole(after);
        StageProgress progress(nobody);
        for (Numbers const& seeds : {newNumbers, allOf(after)}) {
            auto const expected = crossingPairs(after, whole.topology, whole.tree, seeds, progress);
            EXPECT_FALSE(expected.empty()) << name;
            EXPECT_EQ(crossingPairs(after,
                                    {{before.mesh, before.topology, before.tree, numbers},
                                     {made.mesh, made.topology, made.tree, newNumbers}},
                                    seeds, progress),
                      expected)
                << name;
        }
    }
}
