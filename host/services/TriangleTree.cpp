// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/TriangleTree.h"

#include "host/services/SpatialOrder.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <limits>

namespace {

using Block = TriangleTree::Block;
using Box = TriangleTree::Box;
using Range = tbb::blocked_range<std::size_t>;

void fillPlace(Block& block, int place, MeshArrays const& mesh, TopologyReport const& topology,
               std::uint32_t triangle)
{
    block.triangles[place] = triangle;
    for (int k = 0; k < 3; ++k) {
        std::uint32_t const vertex = mesh.triangles[triangle][k];
        block.spreadVertices[k][place] = topology.isSpread[vertex] ? vertex : Block::unknown;
    }
    for (int axis = 0; axis < 3; ++axis) {
        float const a = mesh.point(triangle, 0)[axis];
        float const b = mesh.point(triangle, 1)[axis];
        float const c = mesh.point(triangle, 2)[axis];
        block.low[axis][place] = std::min(std::min(a, b), c);
        block.high[axis][place] = std::max(std::max(a, b), c);
    }
}

void clearPlace(Block& block, int place)
{
    block.triangles[place] = 0;
    for (int k = 0; k < 3; ++k) {
        block.spreadVertices[k][place] = Block::unknown;
        block.low[k][place] = std::numeric_limits<float>::infinity();
        block.high[k][place] = -std::numeric_limits<float>::infinity();
    }
}

}  // namespace

TriangleTree::TriangleTree(MeshArrays const& mesh, TopologyReport const& topology,
                           StageProgress& progress)
{
    std::vector<std::uint32_t> const order = spatialOrder(mesh, topology.isDegenerate);
    progress.add(0);
    if (order.empty())
        return;
    m_blocks.resize((order.size() + blockSize - 1) / blockSize);
    m_levels.emplace_back(m_blocks.size());
    tbb::parallel_for(Range(0, m_blocks.size(), 512), [&](Range const& range) {
        for (std::size_t b = range.begin(); b != range.end(); ++b)
            for (int place = 0; place < blockSize; ++place) {
                std::size_t const i = b * blockSize + place;
                if (i >= order.size()) {
                    clearPlace(m_blocks[b], place);
                    continue;
                }
                fillPlace(m_blocks[b], place, mesh, topology, order[i]);
                m_levels[0][b].add(m_blocks[b].box(place));
            }
        progress.add(0);
    });
    while (m_levels.back().size() > 1) {
        std::vector<Box> const& below = m_levels.back();
        std::vector<Box> level((below.size() + 1) / 2);
        for (std::size_t i = 0; i < below.size(); ++i)
            level[i / 2].add(below[i]);
        m_levels.push_back(std::move(level));
    }
}
