// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

/// Turns triangles so that the two at an edge agree wherever that is possible. In each connected
/// piece the minority is turned.
///
/// returns  a corner of each triangle that was turned
/// cost     linear in the triangles
std::vector<MeshArrays::Point> orientConsistently(MeshArrays& mesh, StageProgress& progress);

/// Per triangle: 1 if its connected piece cannot be turned so that all triangles agree, for it has
/// one side only.
///
/// cost  linear in the triangles
std::vector<std::uint8_t> oneSidedTriangles(MeshArrays const& mesh, StageProgress& progress);

/// Gives each vertex a copy per fan of triangles around it. A fan goes on over an edge with
/// two triangles that agree, and over an edge with more where they can be paired so that each pair
/// bounds one wedge of material; elsewhere it ends. Afterwards no vertex holds two fans.
///
/// returns  for each copy, in the order in which they were added behind the points, the vertex that
///          it is a copy of
/// cost     linear in the triangles
std::vector<std::uint32_t> splitFans(MeshArrays& mesh, StageProgress& progress);
