// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstddef>

/// Removes what rounding has left of new triangles: those whose corners have come to lie at one
/// place or in a line, and pairs that have come to cover each other. What was closed stays closed,
/// and points are joined but not moved.
///
/// firstNew    where the new triangles begin
/// firstPoint  where the new points begin
/// cost        in proportion to the new triangles, and a few passes over the mesh where some have
///             come to lie flat
void settleRounding(MeshArrays& mesh, std::size_t firstNew, std::size_t firstPoint,
                    StageProgress& progress);
