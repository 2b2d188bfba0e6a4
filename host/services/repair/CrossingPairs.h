// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TopologyCheck.h"
#include "host/services/TriangleTree.h"

#include <cstdint>
#include <utility>
#include <vector>

/// Two triangles that meet, as doTrianglesMeet tells it, or that are on the same three vertices; the
/// smaller number first.
using CrossingPair = std::pair<std::uint32_t, std::uint32_t>;

/// Some triangles of a mesh that is searched, under a tree of their own.
struct SearchLayer
{
    /// The layer's own mesh, and the report and the tree of that.
    MeshArrays const& mesh;
    TopologyReport const& topology;
    TriangleTree const& tree;
    /// Per triangle of it the number in the mesh that is searched, or `none`.
    std::vector<std::uint32_t> numbers;

    static constexpr std::uint32_t none = 0xffffffff;
};

/// The pairs of triangles that meet and hang together with certain triangles: all pairs of these,
/// all pairs of their partners, and so on. So every curve along which the surface crosses itself is
/// there as a whole or not at all.
///
/// seeds    ascending
/// returns  in ascending order
/// cost     in proportion to the seeds and the pairs, on all cores
std::vector<CrossingPair> crossingPairs(MeshArrays const& mesh, TopologyReport const& topology,
                                        TriangleTree const& tree, std::vector<std::uint32_t> seeds,
                                        StageProgress& progress);

/// The same in a mesh whose triangles lie in several layers: so a mesh that has changed a little
/// needs no tree of its own.
std::vector<CrossingPair> crossingPairs(MeshArrays const& mesh,
                                        std::vector<SearchLayer> const& layers,
                                        std::vector<std::uint32_t> seeds, StageProgress& progress);
