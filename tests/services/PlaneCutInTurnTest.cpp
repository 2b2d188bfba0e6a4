// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/RecordSlabs.h"
#include "platform/mesh/UTriangle.h"
#include "platform/services/PlaneCutNotes.h"
#include "tests/services/CutFamilies.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Kernel = std::shared_ptr<MeshKernel>;

std::size_t triangleBytesInUse()
{
    return RecordSlabs::footprint<UTriangle<float>>().inUse;
}

}  // namespace

TEST(PlaneCutInTurn, HandsOutThePiecesOfThePlainCutTheLowerFirst)
{
    auto const part = kernelOf(sphere(17, 40, 60));
    auto const plane = planeMesh({1, 2, 3}, {0.3f, -0.5f, 1}, 500);
    MeshKernel above, below;
    cutByPlaneWithNotes(*part, *plane, above, below, nullptr, {});
    std::vector<bool> sides;
    cutByPlaneInTurn(*part, *plane,
                     [&](bool isAbove, Kernel const& piece) {
                         sides.push_back(isAbove);
                         EXPECT_EQ(bytesOf(*piece), bytesOf(isAbove ? above : below));
                     },
                     nullptr, {});
    EXPECT_EQ(sides, (std::vector{false, true}));
}

TEST(PlaneCutInTurn, HandsOutThePartWhereThePlaneMissesIt)
{
    auto const part = kernelOf(box(2, 3, 4));
    auto const plane = planeMesh({0, 0, 50}, {0, 0, 1}, 500);
    std::vector<bool> sides;
    cutByPlaneInTurn(*part, *plane,
                     [&](bool isAbove, Kernel const& piece) {
                         sides.push_back(isAbove);
                         EXPECT_EQ(piece->readMesh()->triangles.size(), 12u);
                     },
                     nullptr, {});
    EXPECT_EQ(sides, std::vector{false});
}

// Under the address sanitizer each record is an allocation of its own.
#if !defined(MELL_ADDRESS_SANITIZER)
// Nearly all triangles meet the plane, so that what the halves have is made by the cut.
TEST(PlaneCutInTurn, HasOneHalfInMemoryAtATime)
{
    constexpr int facets = 20000;
    auto const part = kernelOf(cylinder(40, 10, facets));
    auto const plane = planeMesh({0, 0, 5}, {0, 0, 1}, 500);
    std::size_t const before = triangleBytesInUse();
    std::size_t pieces = 0;
    cutByPlaneInTurn(*part, *plane,
                     [&](bool, Kernel const& piece) {
                         ++pieces;
                         std::size_t const count = piece->readMesh()->triangles.size();
                         EXPECT_GE(count, std::size_t(3 * facets));
                         EXPECT_LT(triangleBytesInUse() - before,
                                   3 * count * sizeof(UTriangle<float>) / 2);
                     },
                     nullptr, {});
    EXPECT_EQ(pieces, 2u);
}
#endif
