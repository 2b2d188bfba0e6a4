// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// Slabs around those blocks of a tree that have long triangles, each across these. A box around
/// slivers that lie aslant side by side overlaps the boxes of most others, but the slab is as thin
/// as they are: fans, and the faces of cuts through thin walls, are told apart by it.
class BlockSlabs
{
public:
    /// cost  linear in the triangles, on all cores; 40 bytes for each block
    BlockSlabs(MeshArrays const& mesh, TriangleTree const& tree);

    /// Whether two blocks certainly have no point in common.
    bool areApart(std::uint32_t a, std::uint32_t b) const
    {
        return (m_slabs[a].isThin && isBeside(m_slabs[a], b)) ||
               (m_slabs[b].isThin && isBeside(m_slabs[b], a));
    }

private:
    using Vector = UVector3<double>;

    struct Slab
    {
        Vector across;
        double low = 0;
        double high = 0;
        /// Whether it is much thinner than the block's box.
        bool isThin = false;
    };

    Slab slabOf(std::uint32_t block) const;
    bool isBeside(Slab const& slab, std::uint32_t block) const;
    template <typename Visit>
    void forCorners(std::uint32_t block, Visit const& visit) const;

    MeshArrays const& m_mesh;
    TriangleTree const& m_tree;
    double m_margin = 0;
    std::vector<Slab> m_slabs;
};
