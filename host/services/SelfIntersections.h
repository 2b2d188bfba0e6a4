// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TopologyCheck.h"
#include "host/services/TriangleTree.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// Which triangles of a mesh meet others.
struct IntersectionReport
{
    /// Number of pairs of triangles that meet, as doTrianglesMeet tells it.
    std::size_t pairs = 0;
    /// Per triangle: 1 if it is in such a pair.
    std::vector<std::uint8_t> isInvolved;
    /// The pairs of different shells, the smaller first, in ascending order, without repetition.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> shells;
};

/// Finds all pairs of triangles of the tree that meet.
///
/// asked  by triangle: which to ask about; pairs without any of these are left out. All if it is empty
/// cost   on all cores; in proportion to the pairs whose boxes overlap, the neighbours aside
IntersectionReport findIntersections(MeshArrays const& mesh, TopologyReport const& topology,
                                     TriangleTree const& tree, StageProgress& progress,
                                     std::vector<bool> const& asked = {});
