// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>
#include <vector>

/// A part of a mesh, taken out to be mended by itself and put back.
struct MeshRegion
{
    static constexpr std::uint32_t none = 0xffffffff;

    MeshArrays mesh;
    /// Per point of the region: the point of the whole mesh that it stands for, or none.
    std::vector<std::uint32_t> origins;
    /// Per triangle of the region as it was taken out: its place in the whole mesh.
    std::vector<std::uint32_t> places;
    /// Per point of the whole mesh: 1 if triangles inside and outside the region use it.
    std::vector<std::uint8_t> isRim;
};

/// Takes out the triangles that `isSeed` marks and so many rings of triangles around them. Where
/// the region touches itself in a vertex only, it gets a copy of that vertex.
///
/// cost  one pass over the mesh per ring
MeshRegion takeOut(MeshArrays const& mesh, std::vector<std::uint8_t> const& isSeed, int rings,
                   StageProgress& progress);

/// Replaces the triangles at the places of the region by its present ones, which go to the end.
/// Points that were not moved are the old ones again; the others are added.
void putBack(MeshArrays& mesh, MeshRegion const& region);
