// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/RecordSlabs.h"
#include "host/services/EveryStep.h"
#include "host/services/TakenArrays.h"
#include "platform/jobs/Exceptions.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

namespace {

void expectTheCopy(std::unique_ptr<MeshKernel> kernel)
{
    std::function<void(int)> const nobody;
    StageProgress progress(nobody);
    MeshArrays const copy = copyArrays(*kernel, Frame::World, progress);
    MeshArrays const taken = takeArrays(std::move(kernel), progress);
    EXPECT_EQ(taken.triangles, copy.triangles);
    EXPECT_EQ(taken.points, copy.points);
}

/// Of more than two blocks.
Soup largeBall()
{
    return sphere(10, 400, 400);
}

}  // namespace

TEST(TakenArrays, AreThoseOfACopy)
{
    for (NamedSoup const& mesh : closedMeshes())
        expectTheCopy(kernelOf(mesh.soup));
    expectTheCopy(kernelOf(largeBall()));
}

TEST(TakenArrays, AreThoseOfACopyWhereIdentifiersAreNotInOrder)
{
    auto kernel = kernelOf(box(1, 2, 3));
    for (UVertex<float>* const vertex : kernel->getMesh()->vertices)
        vertex->ID() = 77;
    expectTheCopy(std::move(kernel));
}

TEST(TakenArrays, AreThoseOfACopyOfAMovedPart)
{
    auto kernel = kernelOf(box(1, 2, 3));
    kernel->getMatrix()(0, 3) = 4;
    expectTheCopy(std::move(kernel));
}

TEST(TakenArrays, FreeAllRecordsAlsoWhenStopped)
{
    auto const before = RecordSlabs::footprint<UTriangle<float>>().inUse;
    auto kernel = kernelOf(largeBall());
    std::function<void(int)> const stop = [](int percent) {
        if (percent >= 50)
            throw Mell::AbortException("Aborting...");
    };
    EveryStep const everyStep;
    StageProgress progress(stop);
    progress.begin(0, 100, kernel->readMesh()->triangles.size());
    EXPECT_THROW(takeArrays(std::move(kernel), progress), Mell::AbortException);
    EXPECT_LE(RecordSlabs::footprint<UTriangle<float>>().inUse, before + (std::size_t(4) << 20));
}
