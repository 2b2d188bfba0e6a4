// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>
#include <vector>

/// Whether triangles on the same three places count as the same when they face opposite ways.
enum class Facing
{
    either,
    same,
};

/// The triangles of a mesh that another does not have, by the places of their corners; of several
/// at one place as many as there are too many. Ascending.
///
/// cost  linear, on all cores in part
std::vector<std::uint32_t> trianglesNotIn(MeshArrays const& mesh, MeshArrays const& other,
                                          Facing facing, StageProgress& progress);
