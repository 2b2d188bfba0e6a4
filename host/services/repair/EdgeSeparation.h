// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/repair/SoupMending.h"

/// The middles of the edges that more than two triangles have between the same two places, whether
/// or not they share the vertices there.
///
/// cost  next to nothing where no two vertices lie in one place and `mayShareVertices` is false;
///       else some passes
FlawPlaces fullEdges(MeshArrays const& mesh, bool mayShareVertices, StageProgress& progress);

/// Takes a mesh apart where bodies touch each other, or themselves, along an edge: as many triangles
/// as bound one wedge of solid keep the edge, the others are led around it by a point a unit of the
/// last place or a few within their wedge. No vertex moves. Edges at which not as many triangles
/// run one way as the other stay.
void separateEdges(MeshArrays& mesh, StageProgress& progress);
