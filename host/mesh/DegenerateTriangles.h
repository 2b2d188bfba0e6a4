// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/UMesh.h"

#include <cstddef>

/// True if the three points lie on one line or coincide; exact. Points with a coordinate that is no
/// number do neither.
bool isDegenerate(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c);

/// Removes the triangles without area and returns how many. Every directed edge that had a partner
/// keeps one, so a closed mesh stays closed: vertices joined by an edge of no length become one,
/// and a triangle with three corners in a line is swapped with the neighbour on its longest edge. A
/// degenerate triangle at a border is taken away. Neighbour links are dropped if anything changed.
///
/// cost  one pass over the triangles if there is nothing to do
std::size_t removeDegenerateTriangles(UMesh<float>& mesh);
