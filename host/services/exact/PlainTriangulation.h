// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"

#include <optional>

namespace Exact {

/// A triangle of a plane that is divided along segments.
struct PlaneFace
{
    static constexpr std::uint32_t none = 0xffffffff;

    /// Anticlockwise.
    std::array<std::uint32_t, 3> corners;
    /// The triangles beyond the edges that leave the corners; none where there is none that is
    /// known.
    std::array<std::uint32_t, 3> beyond;
    /// How often the segments run around it.
    int winding;
};

/// A constrained Delaunay triangulation of segments that meet in common ends only, without what has
/// a winding number of zero. Returns nothing where segments cross or run through a point, or points
/// coincide.
///
/// progress  a percentage; may throw
/// cost      O(k log k) for k points, if segments cross few edges of their Delaunay triangulation
std::optional<std::vector<PlaneFace>> plainTriangulation(
    std::vector<SectionPoint2> const& points, std::vector<SectionSegment> const& segments,
    std::function<void(int)> const& progress);

}  // namespace Exact
