// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "platform/geometry/UBox3.h"

#include <cstdint>
#include <vector>

/// The triangles of a mesh as they are drawn: each with one brightness, taken from its last corner.
///
/// Vertices are shared as far as each triangle can have a last corner of its own, which is about
/// half of the triangles of a closed mesh; the others get a copy. A closed mesh takes 28 bytes per
/// triangle: one vertex of 16 and three indices.
struct PartSurface
{
    struct Vertex
    {
        UPoint3<float> position;
        /// The unit normal of the triangle whose last corner this is, folded onto a square.
        std::int16_t facet[2];
    };

    explicit PartSurface(MeshArrays const& mesh);

    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    /// Null without points.
    UBox3<float> box;
    /// The mean length of the edges, in the mesh's coordinates; 0 without triangles.
    double meanEdge = 0;
    /// Closed, and each connected region faces outward as a whole: from outside, triangles seen
    /// from behind lie behind others.
    bool isSolid = false;
};

static_assert(sizeof(PartSurface::Vertex) == 16);
