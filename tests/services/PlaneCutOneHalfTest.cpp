// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/RecordSlabs.h"
#include "platform/jobs/Exceptions.h"
#include "platform/mesh/UTriangle.h"
#include "platform/services/PlaneCutNotes.h"
#include "tests/services/CutFamilies.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::size_t triangleBytesInUse()
{
    return RecordSlabs::footprint<UTriangle<float>>().inUse;
}

std::size_t countOf(MeshKernel const& kernel)
{
    return kernel.readMesh()->triangles.size();
}

/// Holds either half made alone against the half of a whole cut.
void expectHalvesOf(MeshKernel& part, MeshKernel& plane)
{
    auto const whole = cut(part, plane);
    for (PlaneSide const side : {PlaneSide::a, PlaneSide::b}) {
        MeshKernel const& expected = side == PlaneSide::a ? whole->above : whole->below;
        MeshKernel const& other = side == PlaneSide::a ? whole->below : whole->above;
        MeshKernel piece, section;
        int last = 0;
        CutOffNotes const notes = cutOffByPlane(part, plane, side, piece, &section, [&](int p) {
            EXPECT_GE(p, last);
            last = p;
        });
        EXPECT_TRUE(bytesOf(piece) == bytesOf(expected));
        EXPECT_TRUE(bytesOf(section) == bytesOf(whole->section));
        EXPECT_EQ(notes.isOtherFilled, countOf(other) > 0);
        for (std::size_t v = 0; v < piece.readMesh()->vertices.size(); ++v)
            ASSERT_EQ(piece.readMesh()->vertices[v]->cID(), v);
    }
}

}  // namespace

TEST(PlaneCutOneHalf, IsTheHalfOfTheWholeCut)
{
    for (auto const& [name, soup] : closedMeshes()) {
        SCOPED_TRACE(name);
        auto const part = kernelOf(soup);
        for (NamedPlane const& across : planesAcross(soup)) {
            SCOPED_TRACE(across.name);
            expectHalvesOf(*part, *planeMesh(across.centre, across.normal, 500));
        }
    }
}

// Far from the origin needles at the cut come to lie on the wrong side of their neighbours, and what
// is mended is mended in both halves.
TEST(PlaneCutOneHalf, IsMendedAsInTheWholeCut)
{
    Soup soup = torus(20, 7, 90, 60);
    for (auto& p : soup.points)
        p = {p.X() + 3000, p.Y() + 2000, p.Z() - 1000};
    auto const part = kernelOf(soup);
    for (int i = 0; i < 30; ++i) {
        UVector3<float> const normal(0.3f + 0.01f * float(i), -0.5f, 1);
        expectHalvesOf(*part, *planeMesh({3001, 2002, -999.5f}, normal, 500));
    }
}

TEST(PlaneCutOneHalf, MayBeOfAPlaneThatEndsWithinThePart)
{
    auto const part = kernelOf(sphere(17, 30, 40));
    for (float const reach : {30.0f, 3.0f})
        for (float const height : {5.0f, 50.0f})
            expectHalvesOf(*part, *levelPlane({-reach, -reach}, {reach, reach}, height));
}

TEST(PlaneCutOneHalf, IsRefusedWithTheWholeCut)
{
    Soup open = box(2, 3, 4);
    open.triangles.pop_back();
    auto const part = kernelOf(open);
    for (UVector3<float> const& normal :
         {UVector3<float>(1, 0, 0), UVector3<float>(0, 1, 0), UVector3<float>(0, 0, 1)}) {
        auto const plane = planeMesh({1, 1.5f, 2}, normal, 500);
        bool isRefused = false;
        try {
            cut(*part, *plane);
        } catch (Mell::Exception const&) {
            isRefused = true;
        }
        MeshKernel piece;
        if (isRefused)
            EXPECT_THROW(cutOffByPlane(*part, *plane, PlaneSide::a, piece, nullptr, {}),
                         Mell::Exception);
        else
            expectHalvesOf(*part, *plane);
        EXPECT_EQ(countOf(piece), 0u);
    }
}

// Under the address sanitizer each record is an allocation of its own.
#if !defined(MELL_ADDRESS_SANITIZER)
// Nearly all triangles meet the plane, so that what the half has is made by the cut.
TEST(PlaneCutOneHalf, HasNothingOfTheOtherInMemory)
{
    auto const part = kernelOf(sphere(17, 200, 300));
    auto const plane = planeMesh({0, 0, -8}, {0, 0, 1}, 500);
    MeshKernel piece;
    std::size_t const before = triangleBytesInUse();
    std::size_t most = 0;
    cutOffByPlane(*part, *plane, PlaneSide::b, piece, nullptr,
                  [&](int) { most = std::max(most, triangleBytesInUse() - before); });
    EXPECT_LT(most, countOf(*part) * sizeof(UTriangle<float>) / 2);
    EXPECT_GT(most, countOf(piece) * sizeof(UTriangle<float>) / 2);
}
#endif
