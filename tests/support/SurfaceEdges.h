// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace judge {

/// The edges of a surface, points joined by their coordinates.
struct SurfaceEdges
{
    /// Edges in one triangle alone.
    std::size_t borders = 0;
    /// Edges in two triangles that disagree about the surface's outside.
    std::size_t disagreeing = 0;
    /// Edges in more than two triangles, as many in each direction.
    std::size_t crowdedPaired = 0;
    /// Edges in more than two triangles, more in one direction than in the other.
    std::size_t crowdedUnpaired = 0;
    /// Triangles with three corners in a line, exactly.
    std::size_t flatTriangles = 0;

    /// Each edge in exactly two triangles that agree.
    bool isClosed() const { return borders + disagreeing + crowdedPaired + crowdedUnpaired == 0; }
    /// It has an inside: as many triangles in either direction at every edge.
    bool isPaired() const { return borders + disagreeing + crowdedUnpaired == 0; }
};

using EdgeEnds = std::pair<std::array<float, 3>, std::array<float, 3>>;

SurfaceEdges edgesOf(Soup const& soup);
/// The ends of edges that do not have as many triangles in either direction, each edge once, with
/// the number of their triangles.
std::map<EdgeEnds, std::size_t> unpairedEdgesOf(Soup const& soup);
/// The surface that a person means by triangles out of order: of those on the same three points
/// one, if an edge there has an odd number of triangles, and of those that hang together over edges
/// of two triangles all facing as most of them do. Points are joined.
Soup inOrder(Soup soup);
/// The triangles that are left out of it, as they face in the soup.
Soup surplusOf(Soup soup);

}  // namespace judge
