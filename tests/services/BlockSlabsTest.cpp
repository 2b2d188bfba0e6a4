// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/BlockSlabs.h"
#include "host/services/SelfIntersections.h"
#include "host/services/TopologyCheck.h"
#include "host/services/TrianglePair.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Number = std::uint32_t;

/// Slivers side by side in bundles that lie aslant in all directions, with short triangles among
/// them.
MeshArrays bundles(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> anywhere(0, 100), little(-1, 1);
    auto const point = [&](UPoint3<float> const& p) {
        return UPoint3<float>(p.X() + little(random), p.Y() + little(random), p.Z());
    };
    MeshArrays mesh;
    for (int bundle = 0; bundle < 40; ++bundle) {
        UPoint3<float> const a(anywhere(random), anywhere(random), 0);
        UPoint3<float> const b(anywhere(random), anywhere(random), float(bundle % 3));
        for (int i = 0; i < 24; ++i) {
            UPoint3<float> const from = point(a);
            UPoint3<float> const to = point(i % 6 == 0 ? a : b);
            Number const first = Number(mesh.points.size());
            for (UPoint3<float> const& corner : {from, to, point(to)})
                mesh.points.push_back(corner);
            mesh.triangles.push_back({first, first + 1, first + 2});
        }
    }
    return mesh;
}

std::vector<Number> trianglesIn(TriangleTree::Block const& block)
{
    std::vector<Number> triangles;
    for (int place = 0; place < TriangleTree::blockSize; ++place)
        if (block.low[0][place] <= block.high[0][place])
            triangles.push_back(block.triangles[place]);
    return triangles;
}

}  // namespace

TEST(BlockSlabs, BlocksThatAreApartHoldNoTrianglesThatMeet)
{
    std::function<void(int)> const untold;
    for (unsigned const seed : {1u, 2u}) {
        MeshArrays const mesh = bundles(seed);
        StageProgress progress(untold);
        TopologyReport const topology = checkTopology(mesh, progress);
        TriangleTree const tree(mesh, topology, progress);
        BlockSlabs const slabs(mesh, tree);
        std::size_t apart = 0;
        auto const& blocks = tree.blocks();
        auto const& boxes = tree.levels()[0];
        for (Number a = 0; a < blocks.size(); ++a)
            for (Number b = a + 1; b < blocks.size(); ++b) {
                if (!slabs.areApart(a, b))
                    continue;
                apart += boxes[a].overlaps(boxes[b]);
                for (Number const t : trianglesIn(blocks[a]))
                    for (Number const u : trianglesIn(blocks[b]))
                        ASSERT_FALSE(doTrianglesMeet(mesh, t, u)) << t << " and " << u;
            }
        // They tell more apart than boxes do.
        EXPECT_GT(apart, 20u);
    }
}

TEST(BlockSlabs, AllPairsThatMeetAreStillFound)
{
    std::function<void(int)> const untold;
    MeshArrays const mesh = bundles(3);
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

TEST(SelfIntersections, OfSomeTrianglesAreThoseWithAllOthers)
{
    std::function<void(int)> const untold;
    MeshArrays const mesh = bundles(3);
    StageProgress progress(untold);
    TopologyReport const topology = checkTopology(mesh, progress);
    TriangleTree const tree(mesh, topology, progress);
    std::vector<bool> asked(mesh.triangles.size());
    for (Number t = 0; t < asked.size(); t += 11)
        asked[t] = true;
    std::size_t pairs = 0, all = 0;
    std::vector<std::uint8_t> isInvolved(asked.size());
    for (Number t = 0; t < mesh.triangles.size(); ++t)
        for (Number u = t + 1; u < mesh.triangles.size(); ++u) {
            bool const doMeet = doTrianglesMeet(mesh, t, u);
            all += doMeet;
            if (doMeet && (asked[t] || asked[u])) {
                ++pairs;
                isInvolved[t] = isInvolved[u] = 1;
            }
        }
    EXPECT_GT(pairs, 10u);
    EXPECT_GT(all, pairs);
    IntersectionReport const report = findIntersections(mesh, topology, tree, progress, asked);
    EXPECT_EQ(report.pairs, pairs);
    EXPECT_EQ(report.isInvolved, isInvolved);
    EXPECT_EQ(findIntersections(mesh, topology, tree, progress).pairs, all);
}
