// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

#include <array>
#include <cstdint>
#include <vector>

namespace Freecut {

/// Cuts a planar loop into triangles: again and again the first corner that is an ear goes, counted
/// from the loop's first point. A corner is an ear if it is convex, seen against the direction, and
/// no point of the loop lies in its triangle. Of a loop that runs out of ears the triangles found
/// so far are all there is.
///
/// returns  indices into the loop, three for each triangle, turning as the loop does
/// cost     for n points, at least n^2 / 2 tests of a point against a triangle
std::vector<std::array<std::uint32_t, 3>> earsOfLoop(Ring const& points,
                                                     UVector3<float> const& direction);

/// The same triangles as lists of their three points.
Loops triangulateLoop(Ring points, UVector3<float> const& direction);

/// Whether p lies inside the triangle. A point on an edge or a corner does not.
bool isPointInTriangle(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
                       UPoint3<float> const& p);

}  // namespace Freecut
