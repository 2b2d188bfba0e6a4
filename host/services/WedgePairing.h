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
