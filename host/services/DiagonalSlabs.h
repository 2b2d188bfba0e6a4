// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// How far the nodes of a tree of triangles reach along the four diagonals of the mesh's box. Long
/// triangles that lie aslant have boxes that overlap nearly everything, but are thin along a
/// diagonal: the fans of such triangles, beside rows of holes in a long face, are told apart by it.
class DiagonalSlabs
{
public:
    /// cost  linear in the triangles, on all cores, and 4 bytes for each; for a mesh with few long
    ///       triangles, whose boxes do, no more than a look at the boxes
    DiagonalSlabs(MeshArrays const& mesh, TriangleTree const& tree);

    /// Whether two nodes of a level of the tree certainly have no point in common.
    bool areApart(std::size_t level, std::uint32_t a, std::uint32_t b) const
    {
        return !m_levels.empty() && !m_levels[level][a].overlaps(m_levels[level][b]);
    }

private:
    /// A lane for each diagonal.
    std::vector<std::vector<TriangleTree::Box>> m_levels;
};
