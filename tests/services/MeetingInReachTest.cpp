// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/TrianglePair.h"
#include "host/services/boolean/MeetingInReach.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Point = UPoint3<float>;

float between(float low, float high, std::mt19937& random)
{
    return std::uniform_real_distribution<float>(low, high)(random);
}

/// Two triangles, 0 and 1, with 0 to 2 points in common; point 0 is a corner of the first at least.
/// They are needles or not, anywhere or on a coarse grid, where many lie in one plane.
MeshArrays randomPair(std::mt19937& random)
{
    bool const isOnGrid = random() % 2 == 0;
    bool const isNeedle = random() % 3 == 0;
    auto const coordinate = [&] {
        return isOnGrid ? float(random() % 5) - 2 : between(-2, 2, random);
    };
    MeshArrays mesh;
    for (int i = 0; i < 6; ++i)
        mesh.points.emplace_back(coordinate(), coordinate(), isOnGrid && i > 3 ? 0 : coordinate());
    if (isNeedle)
        mesh.points[2] = mesh.points[1] + UVector3<float>(0.01f, between(-0.02f, 0.02f, random), 0);
    static constexpr MeshArrays::Corners seconds[] = {
        {3, 4, 5}, {0, 4, 5}, {4, 1, 5}, {5, 0, 1}, {2, 1, 5}};
    mesh.triangles = {{0, 1, 2}, seconds[random() % std::size(seconds)]};
    return mesh;
}

bool isFlat(MeshArrays const& mesh, std::size_t t)
{
    auto const &a = mesh.point(t, 0), &b = mesh.point(t, 1), &c = mesh.point(t, 2);
    return ((b - a) * (c - a)).GetLength() == 0;
}

bool doMeet(MeshArrays const& mesh)
{
    return !isFlat(mesh, 0) && !isFlat(mesh, 1) && doTrianglesMeet(mesh, 0, 1);
}

struct Counts
{
    int none = 0;
    int certain = 0;
};

/// Moves point 0 within the reach, up to its end, and counts what was told.
Counts tryMoves(int pairs, unsigned seed)
{
    std::mt19937 random(seed);
    Counts counts;
    for (int i = 0; i < pairs; ++i) {
        MeshArrays mesh = randomPair(random);
        float const reach = random() % 2 ? between(0, 0.3f, random) : 1e-5f;
        MeetingInReach const meeting(mesh, 0, double(reach));
        bool const isNone = meeting.isNone(0, 1), isCertain = meeting.isCertain(0, 1);
        counts.none += isNone;
        counts.certain += isCertain;
        Point const from = mesh.points[0];
        for (int k = 0; (isNone || isCertain) && k < 20; ++k) {
            UVector3<float> way(between(-1, 1, random), between(-1, 1, random),
                                k % 4 ? between(-1, 1, random) : 0);
            mesh.points[0] = from + way.Normalize() * (0.99f * reach * float(k % 3) / 2);
            EXPECT_FALSE(isNone && doMeet(mesh)) << i;
            EXPECT_FALSE(isCertain && !doMeet(mesh)) << i;
        }
    }
    return counts;
}

}  // namespace

/// Near the end of the reach, and on the plane of the other, it is hardest.
TEST(MeetingInReach, HoldsWhereverThePointIsMoved)
{
    Counts const counts = tryMoves(40'000, 7);
    EXPECT_GT(counts.none, 15'000);
    EXPECT_GT(counts.certain, 2'000);
}

TEST(MeetingInReach, TrianglesAroundAPointOfAFlatFaceAreToldApart)
{
    MeshArrays mesh;
    mesh.points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {-1, 1, 0}, {2, 0, 0}, {2, 1, 0}};
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}, {0, 3, 4}, {1, 5, 6}};
    // The point of all but one of them, and a point of one.
    for (MeetingInReach::Index const moved : {0u, 1u}) {
        MeetingInReach const meeting(mesh, moved, 1e-3);
        EXPECT_TRUE(meeting.isNone(0, 1)) << moved;
        EXPECT_FALSE(meeting.isCertain(0, 1)) << moved;
    }
    EXPECT_TRUE(MeetingInReach(mesh, 2, 1e-3).isNone(0, 3));
}

/// The point itself moves away from the other's, which stays.
TEST(MeetingInReach, PointsInOnePlaceAreNotShared)
{
    MeshArrays mesh;
    mesh.points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}, {-1, 0, 0}, {-1, 1, 0}};
    mesh.triangles = {{0, 1, 2}, {3, 4, 5}};
    ASSERT_FALSE(doTrianglesMeet(mesh, 0, 1));
    EXPECT_FALSE(MeetingInReach(mesh, 0, 1e-3).isNone(0, 1));
}

/// An edge that passes through a triangle is told until the point comes within reach of not doing so.
TEST(MeetingInReach, ATipIsThroughAWallAsFarAsItReaches)
{
    MeshArrays mesh;
    mesh.points = {{0, 0, -0.5f}, {0.1f, 0, 2}, {-0.1f, 0.1f, 2},
                   {-5, -5, 0},   {5, -5, 0},   {0, 5, 0}};
    mesh.triangles = {{0, 1, 2}, {3, 4, 5}};
    EXPECT_TRUE(MeetingInReach(mesh, 0, 0.4).isCertain(0, 1));
    EXPECT_FALSE(MeetingInReach(mesh, 0, 0.6).isCertain(0, 1));
    EXPECT_FALSE(MeetingInReach(mesh, 0, 0.4).isNone(0, 1));
}
