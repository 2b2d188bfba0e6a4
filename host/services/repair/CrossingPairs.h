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
