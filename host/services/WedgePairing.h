// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

/// Pairs the half-edges along one edge so that the triangles of each pair bound one wedge of
/// material. Empty where they do not alternate around the edge.
///
/// halfEdges  more than two, as EdgeGroups gives them
std::vector<std::pair<std::uint32_t, std::uint32_t>> wedgePairs(
    MeshArrays const& mesh, std::span<std::uint32_t const> halfEdges);

/// A wedge of material, and how many others of the same edge hold it.
struct NestedWedge
{
    std::uint32_t first, second;
    std::size_t depth;
};

/// The same where layers of material lie in each other around the edge: each wedge lies within
/// others or beside them, none crosses another's sides. Of triangles that lie on each other the one
/// that comes first bounds the outer wedge. Empty where more triangles run along the edge than
/// against it, or fewer.
std::vector<NestedWedge> nestedWedges(MeshArrays const& mesh,
                                      std::span<std::uint32_t const> halfEdges);
