// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/TriangleTree.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// How often a mesh winds around points: the sum of the solid angles under which its triangles are
/// seen, over a full one. A whole number for a closed mesh, and near one where an open mesh leaves
/// little doubt about what is inside. On a triangle, without that one, it lies halfway between the
/// numbers of the two sides.
///
/// What is far away is taken by clusters, which costs an error of some thousandths.
///
/// source  Barill, Dickson, Schmidt, Levin and Jacobson, "Fast winding numbers for soups and
///         clouds", 2018
class WindingField
{
public:
    using Place = std::array<double, 3>;

    /// mesh, tree  of each other; borrowed
    /// cost        linear in the triangles, on all cores
    WindingField(MeshArrays const& mesh, TriangleTree const& tree, StageProgress& progress);

    /// Any thread; about twenty microseconds in a million triangles.
    double at(Place const& place) const { return at(place, {}); }
    /// The same without a few triangles, as if the mesh did not have them; the place lies on each
    /// of them.
    double at(Place const& place, std::span<std::uint32_t const> without) const;

    TriangleTree const& tree() const { return m_tree; }

    /// What one triangle adds to the number.
    static double share(MeshArrays const& mesh, std::uint32_t triangle, Place const& place);

private:
    /// Triangles seen from afar: their area as a vector, and how it is spread about its centre.
    struct Cluster
    {
        std::array<double, 3> centre{};
        std::array<double, 3> area{};
        std::array<double, 9> spread{};
        double weight = 0;
        double radius = 0;
    };

    void addTriangles(Cluster& cluster, TriangleTree::Block const& block) const;
    static void finish(Cluster& cluster, TriangleTree::Box const& box);
    static Cluster joined(Cluster const& a, Cluster const& b);
    static double shareOf(Cluster const& cluster, Place const& place);

    MeshArrays const& m_mesh;
    TriangleTree const& m_tree;
    /// As the tree's levels.
    std::vector<std::vector<Cluster>> m_levels;
};
