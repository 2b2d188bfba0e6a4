// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// What a filling of contours in a plane has to be, looked at in rational numbers.
namespace judge {

using FlatPoint = std::array<double, 2>;
using FlatEdge = std::array<std::uint32_t, 2>;
using FlatTriangle = std::array<std::uint32_t, 3>;

/// 1 if the three points turn anticlockwise, -1 if clockwise, 0 if they lie in a line.
int flatTurn(FlatPoint const& a, FlatPoint const& b, FlatPoint const& c);

/// Whether d lies within the circle through three points that turn anticlockwise.
bool isWithinCircle(FlatPoint const& a, FlatPoint const& b, FlatPoint const& c, FlatPoint const& d);

/// What is wrong with triangles that should fill what lies on the left of simple contours, each
/// twisted nowhere: a triangle that is turned or flat, an edge that is neither of a contour nor of
/// two triangles, a contour edge without a triangle, or an edge that flipping would make better, as
/// in no constrained Delaunay triangulation. Empty if nothing is.
std::string fillingFault(std::vector<FlatPoint> const& points,
                         std::vector<FlatEdge> const& contours,
                         std::vector<FlatTriangle> const& triangles);

}  // namespace judge
