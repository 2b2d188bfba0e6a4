// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "platform/mesh/MeshKernel.h"

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

/// Of some triangles of a mesh those that another does not have, whichever way they face. The other
/// is read where it lies, in the coordinates of the world.
///
/// cost  one pass over the other mesh, on all cores
std::vector<std::uint32_t> trianglesNotIn(MeshArrays const& mesh,
                                          std::vector<std::uint32_t> const& some,
                                          MeshKernel const& other, StageProgress& progress);

/// Per triangle of a mesh one of an earlier mesh that has its corners on the same places, or
/// `unmatched`; none twice. Found by one walk along both: all that there are where triangles have
/// only been removed, changed in their places, or added at the end, and fewer otherwise.
std::vector<std::uint32_t> matchedInOrder(MeshArrays const& mesh, MeshArrays const& earlier,
                                          StageProgress& progress);

constexpr std::uint32_t unmatched = 0xffffffff;

/// Some triangles as a mesh of their own, with the points that they use.
MeshArrays subset(MeshArrays const& mesh, std::vector<std::uint32_t> const& triangles);
