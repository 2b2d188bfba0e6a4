// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/StandIn.h"
#include "host/view/SurfaceClusters.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>

// The coarser surfaces themselves; what pictures look like is told by StandInPictureTest.
namespace {

using Point = UPoint3<float>;

MeshArrays arraysOf(Soup const& soup)
{
    return {soup.points, soup.triangles};
}

/// A block of so many squares along each edge.
MeshArrays gridBlock(int squares)
{
    Soup soup = box(10, 10, 10);
    Soup fine;
    for (auto const& t : soup.triangles) {
        Point const a = soup.points[t[0]];
        auto const u = (soup.points[t[1]] - a) / float(squares);
        auto const v = (soup.points[t[2]] - a) / float(squares);
        auto const at = [&](int i, int j) {
            fine.add(a + u * float(i) + v * float(j));
            return std::uint32_t(fine.points.size() - 1);
        };
        for (int i = 0; i < squares; ++i)
            for (int j = 0; i + j < squares; ++j) {
                fine.add(at(i, j), at(i + 1, j), at(i, j + 1));
                if (i + j + 1 < squares)
                    fine.add(at(i + 1, j), at(i + 1, j + 1), at(i, j + 1));
            }
    }
    fine.joinPoints();
    return arraysOf(fine);
}

/// Every edge is run through as often one way as the other.
bool isBalanced(MeshArrays const& mesh)
{
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> edges;
    for (auto const& t : mesh.triangles)
        for (std::size_t k = 0; k < 3; ++k) {
            std::uint32_t const a = t[k], b = t[(k + 1) % 3];
            edges[{std::min(a, b), std::max(a, b)}] += a < b ? 1 : -1;
        }
    return std::all_of(edges.begin(), edges.end(), [](auto const& e) { return e.second == 0; });
}

std::size_t bytesOf(StandIn const& standIn)
{
    std::size_t bytes = 0;
    for (StandIn::Level const& level : standIn.levels)
        bytes += level.vertices.size() * sizeof(PartSurface::Vertex) +
                 level.indices.size() * sizeof(std::uint32_t);
    return bytes;
}

using Places = std::array<Point, 3>;

/// The corners of a level's triangles, from the one with the least coordinates on.
std::multiset<std::array<float, 9>> trianglesOf(std::vector<PartSurface::Vertex> const& vertices,
                                                std::vector<std::uint32_t> const& indices)
{
    std::multiset<std::array<float, 9>> result;
    for (std::size_t i = 0; i < indices.size(); i += 3) {
        std::array<std::array<float, 3>, 3> corners;
        for (std::size_t k = 0; k < 3; ++k) {
            Point const& p = vertices[indices[i + k]].position;
            corners[k] = {p.X(), p.Y(), p.Z()};
        }
        std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()),
                    corners.end());
        std::array<float, 9> flat;
        for (std::size_t k = 0; k < 9; ++k)
            flat[k] = corners[k / 3][k % 3];
        result.insert(flat);
    }
    return result;
}

}  // namespace

TEST(SurfaceClusters, KeepFlatFacesFlatAndCornersSharp)
{
    MeshArrays const fine = gridBlock(40);
    for (double const cell : {0.61, 1.37}) {
        SurfaceClusters const clusters(fine, cell);
        MeshArrays const coarse = clusters.mesh();
        EXPECT_LT(coarse.triangles.size(), fine.triangles.size() / 2);
        EXPECT_GT(coarse.triangles.size(), 100u);
        for (Point const& p : coarse.points) {
            // On the block: within no face by more than what the mean pulls.
            double outside = 0, nearest = 10;
            for (int axis = 0; axis < 3; ++axis) {
                double const depth = std::min(double(p[axis]), 10.0 - p[axis]);
                outside = std::max(outside, -depth);
                nearest = std::min(nearest, std::abs(depth));
            }
            EXPECT_LT(outside, 0.01 * cell);
            EXPECT_LT(nearest, 0.01 * cell);
        }
        for (int corner = 0; corner < 8; ++corner) {
            Point const place(corner & 1 ? 10.0f : 0, corner & 2 ? 10.0f : 0,
                              corner & 4 ? 10.0f : 0);
            double distance = 10;
            for (Point const& p : coarse.points)
                distance = std::min(distance, double((p - place).GetLength()));
            EXPECT_LT(distance, 0.02 * cell) << corner;
        }
    }
}

TEST(SurfaceClusters, LeaveAClosedSurfaceClosed)
{
    SurfaceClusters clusters(arraysOf(torus(20, 7, 120, 60)), 0.5);
    std::size_t last = clusters.triangleCount();
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(isBalanced(clusters.mesh())) << i;
        clusters.coarsen();
        EXPECT_LT(clusters.triangleCount(), last);
        last = clusters.triangleCount();
    }
}

TEST(SurfaceClusters, AreTheSameInOneStepAndInTwo)
{
    // But for triangles across two cells that become one, whose planes count twice there.
    MeshArrays const fine = arraysOf(torus(20, 7, 120, 60));
    SurfaceClusters twice(fine, 0.8);
    twice.coarsen();
    SurfaceClusters const once(fine, 1.6);
    EXPECT_EQ(twice.triangleCount(), once.triangleCount());
    MeshArrays const a = twice.mesh(), b = once.mesh();
    ASSERT_EQ(a.points.size(), b.points.size());
    EXPECT_EQ(a.triangles, b.triangles);
    for (std::size_t i = 0; i < a.points.size(); ++i)
        EXPECT_LT((a.points[i] - b.points[i]).GetLength(), 0.1f);
}

TEST(SurfaceClusters, TakePointsThatAreOneOrFarApart)
{
    MeshArrays const none;
    EXPECT_EQ(SurfaceClusters(none, 1).triangleCount(), 0u);
    MeshArrays const far = {{{0, 0, 0}, {3e30f, 0, 0}, {0, 3e30f, 0}}, {{0, 1, 2}}};
    SurfaceClusters clusters(far, 1);
    EXPECT_EQ(clusters.mesh().triangles.size(), 1u);
    for (int i = 0; i < 80; ++i)
        clusters.coarsen();
    EXPECT_EQ(clusters.triangleCount(), 0u);
}

TEST(StandIn, HasAllTrianglesOfTheSurfaceFirst)
{
    MeshArrays const mesh = arraysOf(torus(20, 7, 120, 60));
    PartSurface const surface(mesh);
    StandIn const standIn(mesh);
    ASSERT_FALSE(standIn.levels.empty());
    EXPECT_TRUE(standIn.levels[0].vertices.empty());
    EXPECT_EQ(standIn.levels[0].cell, 0);
    EXPECT_EQ(trianglesOf(surface.vertices, standIn.levels[0].indices),
              trianglesOf(surface.vertices, surface.indices));
}

TEST(StandIn, HasLevelsOfAThirdEachInBlocksThatHoldThem)
{
    Soup const soup = torus(20, 7, 400, 200);
    PartSurface const surface(arraysOf(soup));
    StandIn const standIn(arraysOf(soup));
    ASSERT_GE(standIn.levels.size(), 3u);
    std::size_t last = 3 * surface.indices.size();
    for (StandIn::Level const& level : standIn.levels) {
        EXPECT_LE(level.indices.size(), last / 3);
        EXPECT_GE(level.indices.size(), 3 * 6000u);
        last = level.indices.size();
        auto const& vertices = level.vertices.empty() ? surface.vertices : level.vertices;
        std::size_t next = 0;
        for (StandIn::Block const& block : level.blocks)
            for (std::size_t i = 0; i < 3 * block.count; ++i, ++next)
                for (int axis = 0; axis < 3; ++axis) {
                    float const value = vertices[level.indices.at(next)].position[axis];
                    ASSERT_GE(value, block.low[axis]);
                    ASSERT_LE(value, block.high[axis]);
                }
        EXPECT_EQ(next, level.indices.size());
    }
    EXPECT_LE(bytesOf(standIn), 26 * soup.triangles.size());
}

TEST(StandIn, OfThinBarsHasNoCoarserSurface)
{
    // Joined points would make nothing of them.
    Soup soup;
    for (int i = 0; i < 60; ++i)
        for (int j = 0; j < 60; ++j)
            soup.append(box(0.02f, 0.02f, 60, {float(i), float(j), 0}));
    StandIn const standIn(arraysOf(soup));
    EXPECT_EQ(standIn.levels.size(), 1u);
    EXPECT_TRUE(StandIn({}).levels.empty());
}
