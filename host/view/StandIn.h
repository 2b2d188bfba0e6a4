// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/PartSurface.h"

#include <cstdint>
#include <vector>

/// What is drawn in the place of a large surface while the mouse moves: coarser surfaces, and the
/// order in which the triangles of the surface itself are drawn where few of them are in sight. All
/// of them lie in blocks of neighbours, so that what is out of sight can be left out.
///
/// Together at most 26 bytes per triangle of a closed surface, which has 28 itself.
///
/// See docs/decisions/0015-stand-ins.md.
struct StandIn
{
    /// Triangles that lie close together, one after the other.
    struct Block
    {
        float low[3];
        float high[3];
        std::uint32_t count = 0;
    };

    struct Level
    {
        std::vector<PartSurface::Vertex> vertices;
        std::vector<std::uint32_t> indices;
        std::vector<Block> blocks;
        /// How wide the cells are whose points were joined; 0 for the surface itself.
        double cell = 0;
    };

    /// One of the levels has about so many triangles, where the surface has many more.
    static constexpr double wantedTriangles = 66000;

    /// mesh  that the surface was made of
    /// cost  0.3 s for a million triangles
    explicit StandIn(MeshArrays const& mesh);

    /// The first is the surface itself, without the vertices, which are those of
    /// PartSurface(mesh). Each has at most a third of the triangles of the one before. A surface
    /// of which joining would take away a quarter, as thin bars have it, has no coarser ones;
    /// one without triangles has none.
    std::vector<Level> levels;
};
