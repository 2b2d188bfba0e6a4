// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <thread>
#include <tuple>
#include <vector>

namespace {

constexpr Intersect::BooleanType allTypes[] = {
    Intersect::BOOLEAN_UNION, Intersect::BOOLEAN_INTERSECT, Intersect::BOOLEAN_SUBTRACT};

void run(MeshKernel& a, MeshKernel& b, MeshKernel& result, Intersect::BooleanType type,
         std::function<void(int)> progress = {})
{
    std::vector<MeshKernel*> out{&result};
    Intersect::boolean(&a, &b, out, type, std::move(progress), 1);
}

/// Everything of a kernel that an operation which only reads it could change.
struct Snapshot
{
    explicit Snapshot(MeshKernel const& kernel) : matrix(kernel.getMatrix())
    {
        auto const mesh = kernel.readMesh();
        for (auto const* const vertex : mesh->vertices)
            records.emplace_back(vertex, vertex->cID(), vertex->cP().X(), vertex->cP().Y(),
                                 vertex->cP().Z());
        for (auto const* const triangle : mesh->triangles)
            for (int k = 0; k < 3; ++k)
                records.emplace_back(triangle, std::uintptr_t(triangle->cV(k)),
                                     triangle->cFFp(k) != nullptr, 0, 0);
        box = {kernel.GetBox().min, kernel.GetBox().max};
    }
    bool operator==(Snapshot const& o) const
    {
        return matrix == o.matrix && records == o.records && box[0] == o.box[0] &&
               box[1] == o.box[1];
    }

    UMatrix4<float> matrix;
    std::vector<std::tuple<void const*, std::uintptr_t, float, float, float>> records;
    std::vector<UPoint3<float>> box;
};

UMatrix4<float> mirrorAndMove()
{
    float const values[16] = {-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 30, 0, 5, 1};
    return UMatrix4<float>(values);
}

/// A kernel as somebody makes it by hand: no identifiers, no normals, no links, no box.
std::unique_ptr<MeshKernel> bareKernelOf(Soup const& soup)
{
    auto kernel = kernelOf(soup);
    auto const mesh = kernel->getMesh();
    for (auto* const vertex : mesh->vertices)
        vertex->ID() = 77;
    for (auto* const triangle : mesh->triangles)
        triangle->N() = {};
    kernel->GetBox().SetNull();
    return kernel;
}

}  // namespace

TEST(BooleanContract, InputsAreUntouched)
{
    auto const a = kernelOf(sphere(10, 12, 16));
    auto const b = kernelOf(box(8, 8, 30, {-3, -4, -15}));
    a->getMesh()->BuildTopo({}, false);
    b->getMatrix() = mirrorAndMove();
    b->getMatrix()(0, 3) = 2;
    Snapshot const before(*a), toolBefore(*b);
    for (auto const type : allTypes) {
        MeshKernel result;
        run(*a, *b, result, type);
        EXPECT_FALSE(result.readMesh()->triangles.empty());
    }
    MeshKernel first, second;
    Intersect::boolean_subtract_keep(a.get(), b.get(), &first, &second, {}, 1);
    EXPECT_TRUE(Snapshot(*a) == before);
    EXPECT_TRUE(Snapshot(*b) == toolBefore);
}

TEST(BooleanContract, EmptyResultIsNoFailure)
{
    EXPECT_TRUE(combined(box(1, 1, 1), box(1, 1, 1, {3, 3, 3}), Intersect::BOOLEAN_INTERSECT)
                    .triangles.empty());
    EXPECT_TRUE(combined(box(1, 1, 1), box(5, 5, 5, {-1, -1, -1}), Intersect::BOOLEAN_SUBTRACT)
                    .triangles.empty());
    EXPECT_TRUE(
        combined(box(1, 1, 1), box(1, 1, 1), Intersect::BOOLEAN_SUBTRACT).triangles.empty());
    auto const [within, outside] = split(box(1, 1, 1), box(1, 1, 1, {1, 0, 0}));
    EXPECT_TRUE(within.triangles.empty());
    EXPECT_EQ(outside.triangles.size(), 12u);
}

TEST(BooleanContract, OperandWithoutTrianglesIsAnEmptySolid)
{
    Soup const solid = box(2, 3, 4);
    EXPECT_DOUBLE_EQ(volumeOf(combined(solid, {}, Intersect::BOOLEAN_UNION)), 24);
    EXPECT_DOUBLE_EQ(volumeOf(combined({}, solid, Intersect::BOOLEAN_UNION)), 24);
    EXPECT_DOUBLE_EQ(volumeOf(combined(solid, {}, Intersect::BOOLEAN_SUBTRACT)), 24);
    EXPECT_TRUE(combined({}, solid, Intersect::BOOLEAN_SUBTRACT).triangles.empty());
    EXPECT_TRUE(combined({}, solid, Intersect::BOOLEAN_INTERSECT).triangles.empty());
    EXPECT_TRUE(combined(solid, {}, Intersect::BOOLEAN_INTERSECT).triangles.empty());
    EXPECT_TRUE(combined({}, {}, Intersect::BOOLEAN_UNION).triangles.empty());
    auto const [within, outside] = split(solid, {});
    EXPECT_TRUE(within.triangles.empty());
    EXPECT_DOUBLE_EQ(volumeOf(outside), 24);
}

TEST(BooleanContract, PartThatTheToolDoesNotTouchArrivesWhole)
{
    Soup const part = torus(20, 6, 40, 16);
    // In the hole of the torus, so that the boxes overlap.
    auto const [within, outside] = split(part, box(6, 6, 6, {-3, -3, -3}));
    EXPECT_TRUE(within.triangles.empty());
    EXPECT_EQ(outside.triangles.size(), part.triangles.size());
    EXPECT_DOUBLE_EQ(volumeOf(outside), volumeOf(part));
    auto const [whole, rest] = split(part, box(80, 80, 80, {-40, -40, -40}));
    EXPECT_EQ(whole.triangles.size(), part.triangles.size());
    EXPECT_TRUE(rest.triangles.empty());
}

TEST(BooleanContract, KernelsAreReadThroughTheirMatrices)
{
    Soup const part = sphere(10, 12, 16), tool = box(30, 3, 4, {0, -1, -2});
    auto const a = kernelOf(part);
    auto const b = kernelOf(tool);
    std::mt19937 random(1);
    a->getMatrix() = randomMotion(random, 4);
    b->getMatrix() = mirrorAndMove();
    for (auto const type : allTypes) {
        MeshKernel result;
        run(*a, *b, result, type);
        EXPECT_TRUE(result.getMatrix().isIdentity());
        Soup const expected =
            combined(moved(part, a->getMatrix()), moved(tool, b->getMatrix()), type);
        EXPECT_EQ(closedSolidFaults(result), "");
        EXPECT_NEAR(volumeOf(soupOf(result)), volumeOf(expected), 1e-6 * volumeOf(expected));
        EXPECT_GT(volumeOf(soupOf(result)), 0);
    }
}

TEST(BooleanContract, PiecesOfAPlacedPartThatIsNotCutAreInFinalCoordinates)
{
    auto const a = kernelOf(box(2, 2, 2));
    auto const b = kernelOf(box(2, 2, 2));
    a->getMatrix() = mirrorAndMove();
    MeshKernel within, outside;
    Intersect::boolean_subtract_keep(a.get(), b.get(), &within, &outside, {}, 1);
    EXPECT_TRUE(outside.getMatrix().isIdentity());
    Soup const whole = soupOf(outside);
    EXPECT_DOUBLE_EQ(volumeOf(whole), 8);
    for (auto const& p : whole.points)
        EXPECT_GE(p.X(), 28);
}

TEST(BooleanContract, FinishedMeshesComeOut)
{
    auto const a = kernelOf(sphere(10, 12, 16));
    auto const b = kernelOf(cylinder(3, 30, 20));
    for (auto const type : allTypes) {
        MeshKernel result;
        run(*a, *b, result, type);
        EXPECT_EQ(closedSolidFaults(result), "");
        auto const mesh = result.readMesh();
        std::vector<bool> isUsed(mesh->vertices.size(), false);
        for (std::size_t i = 0; i < mesh->vertices.size(); ++i)
            EXPECT_EQ(mesh->vertices[i]->cID(), i);
        for (std::size_t t = 0; t < mesh->triangles.size(); ++t) {
            auto const* const triangle = mesh->triangles[t];
            EXPECT_NEAR((triangle->cN() - triangle->ComputeNormalizedNormal()).GetLength(), 0,
                        1e-5);
            for (int k = 0; k < 3; ++k)
                isUsed[triangle->cV(k)->cID()] = true;
        }
        for (bool const used : isUsed)
            EXPECT_TRUE(used);
    }
}

TEST(BooleanContract, OneKernelMayBeBothOperands)
{
    auto const kernel = kernelOf(nestedBoxes());
    double const volume = volumeOf(nestedBoxes());
    MeshKernel united, common, difference;
    run(*kernel, *kernel, united, Intersect::BOOLEAN_UNION);
    run(*kernel, *kernel, common, Intersect::BOOLEAN_INTERSECT);
    run(*kernel, *kernel, difference, Intersect::BOOLEAN_SUBTRACT);
    EXPECT_DOUBLE_EQ(volumeOf(soupOf(united)), volume);
    EXPECT_DOUBLE_EQ(volumeOf(soupOf(common)), volume);
    EXPECT_TRUE(difference.readMesh()->triangles.empty());
}

TEST(BooleanContract, MeshesWithoutIdentifiersNormalsAndBoxWillDo)
{
    Soup const part = sphere(10, 12, 16), tool = box(8, 8, 30, {-3, -4, -15});
    auto const a = bareKernelOf(part);
    auto const b = bareKernelOf(tool);
    for (auto const type : allTypes) {
        MeshKernel result;
        run(*a, *b, result, type);
        EXPECT_EQ(soupOf(result).triangles, combined(part, tool, type).triangles);
    }
}

TEST(BooleanContract, CopiesOfAKernelMayServeManyOperations)
{
    // As a cut with clearance does: two passes on the same working copy.
    auto const part = kernelOf(sphere(10, 12, 16));
    MeshKernel copy(*part);
    auto const inner = kernelOf(box(6, 6, 40, {-3, -3, -20}));
    auto const outer = kernelOf(box(7, 7, 40, {-3.5f, -3.5f, -20}));
    MeshKernel first, second;
    run(copy, *inner, first, Intersect::BOOLEAN_INTERSECT);
    run(copy, *outer, second, Intersect::BOOLEAN_SUBTRACT);
    EXPECT_EQ(closedSolidFaults(first), "");
    EXPECT_EQ(closedSolidFaults(second), "");
    double const gap = volumeOf(soupOf(copy)) - volumeOf(soupOf(first)) - volumeOf(soupOf(second));
    double const expected =
        volumeOf(combined(soupOf(copy), soupOf(*outer), Intersect::BOOLEAN_INTERSECT)) -
        volumeOf(soupOf(first));
    EXPECT_GT(gap, 100);
    EXPECT_NEAR(gap, expected, 1e-2);
}

TEST(BooleanContract, TwoThreadsMayWorkOnDifferentKernels)
{
    Soup const part = sphere(10, 30, 40), tool = cylinder(3, 30, 40);
    Soup const expected = combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
    std::vector<Soup> results(4);
    {
        std::vector<std::jthread> threads;
        for (Soup& result : results)
            threads.emplace_back(
                [&] { result = combined(part, tool, Intersect::BOOLEAN_SUBTRACT); });
    }
    for (Soup const& result : results)
        EXPECT_EQ(result.triangles, expected.triangles);
}
