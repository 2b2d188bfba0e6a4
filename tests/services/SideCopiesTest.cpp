// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SideCopies.h"
#include "tests/services/CutFamilies.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <stdexcept>

namespace {

using Triangle = UTriangle<float>;
using Corners = std::array<UPoint3<float>, 3>;

Corners cornersOf(Triangle const& t)
{
    return {t.cP(0), t.cP(1), t.cP(2)};
}

/// What a plane makes of a part, in the order of its records.
struct Sorted
{
    std::array<std::vector<UPoint3<float>>, 2> vertices;
    std::array<std::vector<Corners>, 2> triangles;
    std::vector<Triangle const*> meeting;
    bool operator==(Sorted const&) const = default;
};

Sorted sortedBy(SideCopies& copies)
{
    Sorted sorted;
    for (CutSide const side : {sideAbove, sideBelow}) {
        for (auto const* vertex : copies.mesh(side).vertices)
            sorted.vertices[side].push_back(vertex->cP());
        for (auto const* triangle : copies.mesh(side).triangles)
            sorted.triangles[side].push_back(cornersOf(*triangle));
        EXPECT_EQ(copies.countOf(side), sorted.triangles[side].size());
    }
    sorted.meeting = copies.meeting();
    return sorted;
}

/// The same by the plane alone.
Sorted expectedFor(UMesh<float> const& part, CutPlane const& plane,
                   std::vector<std::uint32_t> const& inPlane)
{
    std::vector<int> sides;
    for (auto const* vertex : part.vertices)
        sides.push_back(plane.sideOf(vertex->cP()));
    for (std::uint32_t const place : inPlane)
        sides[place] = 0;
    Sorted sorted;
    for (std::size_t v = 0; v < sides.size(); ++v)
        if (sides[v] != 0)
            sorted.vertices[sides[v] > 0 ? sideAbove : sideBelow].push_back(part.vertices[v]->cP());
    for (Triangle const* const triangle : part.triangles) {
        std::array<int, 3> of{};
        for (int k = 0; k < 3; ++k)
            of[std::size_t(k)] = sides[triangle->cV(k)->cID()];
        if (of[0] != 0 && of[1] == of[0] && of[2] == of[0])
            sorted.triangles[of[0] > 0 ? sideAbove : sideBelow].push_back(cornersOf(*triangle));
        else
            sorted.meeting.push_back(triangle);
    }
    return sorted;
}

/// Of thousands of triangles, so that they are copied in several blocks.
struct LargeCut
{
    LargeCut() : part(kernelOf(shuffled(sphere(10, 60, 90), 3))), planeKernel(obliquePlane()) {}

    static std::unique_ptr<MeshKernel> obliquePlane()
    {
        UVector3<float> normal(1, 2, 3);
        normal.Normalize();
        return planeMesh({0.3f, 0.2f, 0.1f}, normal, 100);
    }

    std::vector<std::uint32_t> someVertices(std::size_t count, unsigned seed) const
    {
        std::mt19937 random(seed);
        std::vector<std::uint32_t> places;
        for (std::size_t i = 0; i < count; ++i)
            places.push_back(std::uint32_t(random() % part->readMesh()->vertices.size()));
        return places;
    }

    std::unique_ptr<MeshKernel> part;
    std::unique_ptr<MeshKernel> planeKernel;
    CutPlane plane{*planeKernel};
};

}  // namespace

// As if they had been in the plane from the beginning, in the same order; some are named twice.
TEST(SideCopies, TakeBackWhatIsAtVerticesThatMoveToThePlane)
{
    LargeCut const cut;
    auto const mesh = cut.part->readMesh();
    ASSERT_GT(mesh->triangles.size(), 4 * 2048u);
    std::function<void(int)> const nobody;
    for (std::size_t const count : {1, 2, 20, 400, 6000}) {
        SCOPED_TRACE(count);
        SideCopies copies(*mesh, cut.plane, {true, true}, nobody);
        copies.copyTriangles();
        // Twice: what is taken back first is no longer there.
        auto places = cut.someVertices(count, 1);
        copies.moveToPlane(places);
        EXPECT_TRUE(sortedBy(copies) == expectedFor(*mesh, cut.plane, places));
        auto const more = cut.someVertices(count, 2);
        copies.moveToPlane(more);
        places.insert(places.end(), more.begin(), more.end());
        EXPECT_TRUE(sortedBy(copies) == expectedFor(*mesh, cut.plane, places));
        for (std::uint32_t const place : places) {
            EXPECT_EQ(copies.sideOf(place), 0);
            EXPECT_EQ(copies.copyOf(place), nullptr);
        }
    }
}

TEST(SideCopies, StayAsTheyAreWhereAMoveIsCancelled)
{
    LargeCut const cut;
    auto const mesh = cut.part->readMesh();
    bool isCancelled = false;
    std::function<void(int)> const cancel = [&](int) {
        if (isCancelled)
            throw std::runtime_error("cancelled");
    };
    SideCopies copies(*mesh, cut.plane, {true, true}, cancel);
    copies.copyTriangles();
    isCancelled = true;
    EXPECT_THROW(copies.moveToPlane(cut.someVertices(20, 1)), std::runtime_error);
    EXPECT_TRUE(sortedBy(copies) == expectedFor(*mesh, cut.plane, {}));
}
