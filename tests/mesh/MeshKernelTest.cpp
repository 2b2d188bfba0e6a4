// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mesh/MeshKernel.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

Soup afterMoving(MeshKernel& kernel)
{
    for (auto* const vertex : kernel.getMesh()->vertices)
        vertex->P().X() += 1;
    return soupOf(kernel);
}

}  // namespace

TEST(MeshKernel, CopySharesTheMeshUntilOneSideAsksForIt)
{
    auto const source = kernelOf(box(1, 2, 3));
    MeshKernel const copy(source.get());
    EXPECT_EQ(copy.readMesh(), source->readMesh());
    MeshKernel asked(*source);
    EXPECT_NE(asked.getMesh().get(), source->readMesh().get());
}

TEST(MeshKernel, ChangesOfTheCopyAreNotSeenBySource)
{
    auto const source = kernelOf(box(1, 2, 3));
    MeshKernel copy(source.get());
    afterMoving(copy);
    EXPECT_EQ(soupOf(*source).points, box(1, 2, 3).points);
}

TEST(MeshKernel, ChangesOfTheSourceAreNotSeenByTheCopy)
{
    auto const source = kernelOf(box(1, 2, 3));
    MeshKernel const copy(source.get());
    afterMoving(*source);
    EXPECT_EQ(soupOf(copy).points, box(1, 2, 3).points);
}

TEST(MeshKernel, ChangesThroughAMeshHandedOutBeforeTheCopyAreNotSeenByTheCopy)
{
    auto const source = kernelOf(box(1, 2, 3));
    auto const held = source->getMesh();
    MeshKernel const copy(source.get());
    held->vertices[0]->P().X() = 77;
    EXPECT_EQ(soupOf(copy).points, box(1, 2, 3).points);
    EXPECT_EQ(source->getMesh(), held);
}

// The moment between making the mesh its own and handing it out is short, so it is tried often.
TEST(MeshKernel, ACopyMadeWhileTheMeshIsHandedOutDoesNotShareIt)
{
    Soup const soup = box(1, 1, 1);
    for (int round = 0; round < 1000; ++round) {
        auto const source = kernelOf(soup);
        MeshKernel kernel(*source);
        std::vector<std::unique_ptr<MeshKernel>> copies;
        std::atomic<int> ready = 0;
        std::thread copying([&] {
            ++ready;
            while (ready < 2) {
            }
            for (int i = 0; i < 8; ++i)
                copies.push_back(std::make_unique<MeshKernel>(kernel));
        });
        ++ready;
        while (ready < 2) {
        }
        UMesh<float> const* const handedOut = kernel.getMesh().get();
        copying.join();
        for (auto const& copy : copies)
            ASSERT_NE(copy->readMesh().get(), handedOut) << round;
    }
}

TEST(MeshKernel, CopyOutlivesItsSource)
{
    auto source = kernelOf(box(1, 2, 3));
    MeshKernel const copy(source.get());
    source.reset();
    EXPECT_EQ(closedSolidFaults(copy), "");
}

TEST(MeshKernel, DeepCopyKeepsNeighbourLinksAndMatrixAndBox)
{
    auto const source = kernelOf(torus(10, 3, 12, 8));
    source->getMesh()->BuildTopo({}, false);
    source->getMatrix()(0, 3) = 5;
    source->UpdateBoundingBox();
    MeshKernel copy(source.get());
    auto const& from = source->getMesh()->triangles;
    auto const& to = copy.getMesh()->triangles;
    ASSERT_EQ(from.size(), to.size());
    for (std::size_t t = 0; t < to.size(); ++t)
        for (int i = 0; i < 3; ++i) {
            ASSERT_EQ(to[t]->FFp(i), to[from[t]->FFp(i)->ID()]);
            ASSERT_EQ(to[t]->FFi(i), from[t]->FFi(i));
            ASSERT_NE(to[t]->V(i), from[t]->V(i));
        }
    EXPECT_EQ(copy.getMatrix(), source->getMatrix());
    EXPECT_EQ(copy.GetBox(), source->GetBox());
}

TEST(MeshKernel, SelectedTrianglesAreCopiedWithTheVerticesTheyUse)
{
    auto const source = kernelOf(box(1, 2, 3));
    std::vector<bool> selected(12, false);
    selected[0] = selected[1] = true;
    std::unique_ptr<MeshKernel> const copy(source->deepCopySelected(selected));
    EXPECT_EQ(copy->readMesh()->triangles.size(), 2u);
    EXPECT_EQ(copy->readMesh()->vertices.size(), 4u);
    EXPECT_EQ(copy->GetBox(), UBox3<float>({0, 0, 0}, {1, 2, 0}));
}

TEST(MeshKernel, BoundingBoxAppliesTheMatrix)
{
    auto const kernel = kernelOf(box(1, 2, 3));
    kernel->getMatrix()(2, 3) = 10;
    kernel->UpdateBoundingBox();
    EXPECT_EQ(kernel->GetBox(), UBox3<float>({0, 0, 10}, {1, 2, 13}));
}

TEST(MeshKernel, EmptyKernelHasANullBox)
{
    MeshKernel kernel;
    kernel.UpdateBoundingBox();
    EXPECT_TRUE(kernel.GetBox().Isnullptr());
    EXPECT_TRUE(kernel.getMesh()->triangles.empty());
}

TEST(UMesh, TopologyOfAClosedMeshIsComplete)
{
    for (auto const& [name, soup] : closedMeshes()) {
        SCOPED_TRACE(name);
        auto const kernel = kernelOf(soup);
        kernel->getMesh()->BuildTopo({}, false);
        for (auto* const triangle : kernel->getMesh()->triangles)
            for (int i = 0; i < 3; ++i) {
                auto* const neighbour = triangle->FFp(i);
                ASSERT_NE(neighbour, nullptr);
                int const k = triangle->FFi(i);
                ASSERT_EQ(neighbour->FFp(k), triangle);
                ASSERT_EQ(neighbour->FFi(k), i);
                ASSERT_EQ(neighbour->V(k), triangle->V(UTriangle<float>::Next(i)));
                ASSERT_EQ(neighbour->V(UTriangle<float>::Next(k)), triangle->V(i));
            }
    }
}

TEST(UMesh, TopologyMarksBorders)
{
    auto const kernel = kernelOf(openBox(1, 2, 3));
    kernel->getMesh()->BuildTopo({}, false);
    int borders = 0;
    for (auto* const triangle : kernel->getMesh()->triangles)
        for (int i = 0; i < 3; ++i)
            borders += UTriangle<float>::IsBorder(triangle, i);
    EXPECT_EQ(borders, 4);
}

TEST(UMesh, TopologyOfAFanOfManyTrianglesIsComplete)
{
    // The vertices at the poles have far more edges than others.
    auto const kernel = kernelOf(cylinder(5, 5, 1000));
    kernel->getMesh()->BuildTopo({}, false);
    for (auto* const triangle : kernel->getMesh()->triangles)
        for (int i = 0; i < 3; ++i)
            ASSERT_FALSE(UTriangle<float>::IsBorder(triangle, i));
}

TEST(UMesh, UnreferencedVerticesAreDeleted)
{
    Soup soup = box(1, 2, 3);
    soup.add({9, 9, 9});
    auto const kernel = kernelOf(soup);
    EXPECT_EQ(kernel->DeleteUnreferenceVerts(), 1u);
    EXPECT_EQ(kernel->getMesh()->vertices.size(), 8u);
    EXPECT_EQ(kernel->getMesh()->vertexCount, 8u);
}
