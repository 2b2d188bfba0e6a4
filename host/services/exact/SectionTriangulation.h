// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

/// The plane of a section seen as two coordinates, and its filling with triangles.
namespace Exact {

using SectionPoint2 = std::array<double, 2>;

/// A piece of a section contour from one point to another.
struct SectionSegment
{
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    /// How many times the material lies on its left; 0 where it bounds nothing and only divides.
    int weight = 1;
    /// Places of the points on which the segment had to be split, from `from` to `to`.
    std::vector<std::uint32_t> splits = {};
};

/// The triangles that fill a section, anticlockwise where the winding number is positive. Where it
/// is n there are n layers, each a triangulation of its own.
struct SectionFilling
{
    std::vector<std::array<std::uint32_t, 3>> triangles;
    /// How many lie on each other at most.
    int layers = 0;
};

/// Fills the regions enclosed by the segments, which form closed curves.
///
/// points    distinct; the crossings of segments are appended
/// segments  their `splits` are set: crossings, and points that lie on a segment
/// progress  a percentage; may throw
/// cost      O(k log k) for k points plus the crossings
/// source    constrained Delaunay triangulation (CGAL), regions by winding number
SectionFilling fillSection(std::vector<SectionPoint2>& points,
                           std::vector<SectionSegment>& segments,
                           std::function<void(int)> const& progress);

}  // namespace Exact
