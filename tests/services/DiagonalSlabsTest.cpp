// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/DiagonalSlabs.h"
#include "host/services/SelfIntersections.h"
#include "host/services/TopologyCheck.h"
#include "host/services/TrianglePair.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Number = std::uint32_t;

/// Long triangles in a flat box, with short ones among them.
MeshArrays longTriangles(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> along(0, 1000), across(0, 10), little(-2, 2);
    MeshArrays mesh;
    for (int i = 0; i < 700; ++i) {
        UPoint3<float> const a(along(random), across(random), across(random));
        bool const isLong = i % 4 != 0;
        UPoint3<float> const b =
            isLong ? UPoint3<float>(along(random), across(random), across(random))
                   : UPoint3<float>(a.X() + little(random), a.Y() + little(random), a.Z());
        UPoint3<float> const c(b.X() + little(random), b.Y() + little(random),
                               b.Z() + little(random));
        Number const first = Number(mesh.points.size());
        for (UPoint3<float> const& corner : {a, b, c})
            mesh.points.push_back(corner);
        mesh.triangles.push_back({first, first + 1, first + 2});
    }
    return mesh;
}

/// Triangles below a node of a level.
std::vector<Number> trianglesBelow(TriangleTree const& tree, std::size_t level, Number node)
{
    std::vector<Number> triangles;
    std::size_t const first = std::size_t(node) << level;
    std::size_t const end = std::min(std::size_t(node + 1) << level, tree.blocks().size());
    for (std::size_t block = first; block < end; ++block)
        for (int place = 0; place < TriangleTree::blockSize; ++place)
            if (tree.blocks()[block].low[0][place] <= tree.blocks()[block].high[0][place])
                triangles.push_back(tree.blocks()[block].triangles[place]);
    return triangles;
}

}  // namespace

TEST(DiagonalSlabs, NodesThatAreApartHoldNoTrianglesThatMeet)
{
    std::function<void(int)> const untold;
    for (unsigned const seed : {1u, 2u}) {
        MeshArrays const mesh = longTriangles(seed);
        StageProgress progress(untold);
        TopologyReport const topology = checkTopology(mesh, progress);
        TriangleTree const tree(mesh, topology, progress);
        DiagonalSlabs const slabs(mesh, tree);
        std::size_t apart = 0;
        for (std::size_t level = 0; level < tree.levels().size(); ++level)
            for (Number a = 0; a < tree.levels()[level].size(); ++a)
                for (Number b = a + 1; b < tree.levels()[level].size(); ++b) {
                    if (!slabs.areApart(level, a, b))
                        continue;
                    apart += tree.levels()[level][a].overlaps(tree.levels()[level][b]);
                    for (Number const t : trianglesBelow(tree, level, a))
                        for (Number const u : trianglesBelow(tree, level, b))
                            ASSERT_FALSE(doTrianglesMeet(mesh, t, u)) << t << " and " << u;
                }
        // They tell more apart than boxes do.
        EXPECT_GT(apart, 20u);
    }
}

TEST(DiagonalSlabs, AllPairsThatMeetAreStillFound)
{
    std::function<void(int)> const untold;
    MeshArrays const mesh = longTriangles(3);
    StageProgress progress(untold);
    TopologyReport const topology = checkTopology(mesh, progress);
    TriangleTree const tree(mesh, topology, progress);
    std::size_t pairs = 0;
    for (Number t = 0; t < mesh.triangles.size(); ++t)
        for (Number u = t + 1; u < mesh.triangles.size(); ++u)
            pairs += doTrianglesMeet(mesh, t, u);
    EXPECT_GT(pairs, 100u);
    EXPECT_EQ(findIntersections(mesh, topology, tree, progress).pairs, pairs);
}
