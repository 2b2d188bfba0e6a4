// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/TopologyCheck.h"

#include <cstdint>
#include <vector>

// Steps of a repair that need nothing but the arrays. Each keeps the order of what it leaves. Those
// that look for flaws return a point at each that they mended.

using FlawPlaces = std::vector<MeshArrays::Point>;

/// Removes the triangles that `isRemoved` marks. Returns whether there were any.
bool removeTriangles(MeshArrays& mesh, std::vector<std::uint8_t> const& isRemoved);

/// Removes triangles that use a vertex twice or have a coordinate that is no number.
FlawPlaces removeBrokenTriangles(MeshArrays& mesh);

/// Joins vertices at border edges that lie at the same place, so that seams close. Triangles that
/// collapse in this way are removed. A place for each vertex that became another.
FlawPlaces joinBorders(MeshArrays& mesh, StageProgress& progress);

/// Of triangles on the same three vertices keeps one, or none where they cancel each other and
/// the surface does not need one to be closed.
FlawPlaces removeDuplicates(MeshArrays& mesh, StageProgress& progress);

/// Removes closed shells without volume. A place for each shell.
FlawPlaces removeFlatShells(MeshArrays& mesh, StageProgress& progress);

/// Removes the points that no triangle uses.
void removeUnusedPoints(MeshArrays& mesh);
