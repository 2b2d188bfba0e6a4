// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/Lanes.h"
#include "host/services/MeshArrays.h"
#include "host/services/TopologyCheck.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Boxes around the triangles of a mesh that have an area, in a tree of two children per node over
/// blocks of triangles that lie close together. The tree is a function of the mesh alone.
class TriangleTree
{
public:
    static constexpr int blockSize = 8;

    struct Box
    {
        std::array<float, 4> low{empty, empty, empty, empty};
        std::array<float, 4> high{-empty, -empty, -empty, -empty};

        void add(Box const& other);
        bool overlaps(Box const& other) const
        {
            IntLanes const apart = (loadFloats(low.data()) > loadFloats(other.high.data())) |
                                   (loadFloats(other.low.data()) > loadFloats(high.data()));
            return bitsOf(apart) == 0;
        }
    };

    /// Triangles with their boxes and vertices; the arrays go by axis or corner, then by place in
    /// the block. Places that are left over have boxes that overlap nothing.
    struct alignas(64) Block
    {
        /// Stands for a vertex whose triangles may meet elsewhere too, and for none.
        static constexpr std::uint32_t unknown = 0xffffffff;

        float low[3][blockSize];
        float high[3][blockSize];
        /// Vertices around which the triangles are spread out, so that those which share one do not
        /// meet elsewhere; `unknown` in the place of others.
        std::uint32_t spreadVertices[3][blockSize];
        std::uint32_t triangles[blockSize];

        Box box(int place) const;
        /// Bit i is set if the box at place i overlaps another.
        std::uint32_t overlapping(Box const& other) const;
        /// Bit i is set if the triangle at place i shares a known vertex with that of another
        /// block.
        std::uint32_t neighbouring(Block const& other, int place) const;
    };

    /// cost  linear in the triangles, on all cores
    TriangleTree(MeshArrays const& mesh, TopologyReport const& topology, StageProgress& progress);

    std::vector<Block> const& blocks() const { return m_blocks; }
    /// Level 0 holds the boxes of the blocks; box i of a level spans boxes 2i and 2i + 1 of the
    /// level below. The last level has one box; a tree without triangles has no level.
    std::vector<std::vector<Box>> const& levels() const { return m_levels; }

private:
    static constexpr float empty = 3.4028235e38f;

    std::vector<Block> m_blocks;
    std::vector<std::vector<Box>> m_levels;
};

inline void TriangleTree::Box::add(Box const& other)
{
    for (int i = 0; i < 4; ++i) {
        low[i] = std::min(low[i], other.low[i]);
        high[i] = std::max(high[i], other.high[i]);
    }
}

inline TriangleTree::Box TriangleTree::Block::box(int place) const
{
    return {{low[0][place], low[1][place], low[2][place], 0},
            {high[0][place], high[1][place], high[2][place], 0}};
}

inline std::uint32_t TriangleTree::Block::overlapping(Box const& other) const
{
    std::uint32_t overlap = 0;
    for (int half = 0; half < blockSize; half += 4) {
        IntLanes apart = {};
        for (int axis = 0; axis < 3; ++axis)
            apart |= (loadFloats(&low[axis][half]) > other.high[axis]) |
                     (loadFloats(&high[axis][half]) < other.low[axis]);
        overlap |= (~bitsOf(apart) & 15) << half;
    }
    return overlap;
}

inline std::uint32_t TriangleTree::Block::neighbouring(Block const& other, int place) const
{
    std::uint32_t shared = 0;
    for (int half = 0; half < blockSize; half += 4) {
        IntLanes equal = {};
        for (int k = 0; k < 3; ++k) {
            std::uint32_t const vertex = other.spreadVertices[k][place];
            if (vertex == unknown)
                continue;
            for (auto const& ours : spreadVertices)
                equal |= loadInts(&ours[half]) == std::int32_t(vertex);
        }
        shared |= bitsOf(equal) << half;
    }
    return shared;
}
