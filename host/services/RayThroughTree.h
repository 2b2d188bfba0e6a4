// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TopologyCheck.h"
#include "host/services/TriangleTree.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

/// Rays along the x axis through the triangles of a tree.
class RayThroughTree
{
public:
    using Origin = std::array<double, 3>;

    /// One triangle that a ray passes through.
    struct Passage
    {
        std::uint32_t shell;
        /// 1 if the ray leaves what the triangle bounds, -1 if it enters.
        int direction;

        bool operator<(Passage const& o) const { return shell < o.shell; }
    };

    RayThroughTree(MeshArrays const& mesh, TopologyReport const& topology, TriangleTree const& tree)
        : m_mesh(mesh), m_topology(topology), m_tree(tree)
    {}

    /// A point on a triangle that is unlikely to lie straight behind an edge of a regular grid.
    static Origin pointOn(MeshArrays const& mesh, std::uint32_t triangle);

    /// The passages through all shells but one; nothing if the ray comes so near to an edge, or its
    /// origin so near to a triangle, that rounding leaves the side open.
    std::optional<std::vector<Passage>> passages(Origin const& origin,
                                                 std::uint32_t exceptShell) const;

private:
    MeshArrays const& m_mesh;
    TopologyReport const& m_topology;
    TriangleTree const& m_tree;
};
