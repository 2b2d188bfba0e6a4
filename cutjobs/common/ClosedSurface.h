// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <optional>
#include <utility>
#include <vector>

class MeshKernel;
template <typename T>
class UMesh;

/// Whether surfaces close, told by coordinates alone: vertices in one place count as one, whoever
/// made them. A surface closes if every edge is run along as often in one direction as in the other.
namespace ClosedSurface {

using Edge = std::pair<UPoint3<float>, UPoint3<float>>;

/// The end of an edge at which a mesh does not close; none if it does. Of several the first one in
/// the order of the triangles.
///
/// cost  one pass at memory speed on all cores; a sort of all edges for a mesh that does not close
std::optional<UPoint3<float>> openPlace(UMesh<float> const& mesh);

/// The edges that a mesh lacks to be closed, each from its first point to its second and as often
/// as it is lacking, in the order of the triangles that would be beside them.
std::vector<Edge> missingEdges(UMesh<float> const& mesh);

/// Throws Mell::Exception that names the place if a piece of a closed part is not closed. A piece
/// of an open part passes.
void requireClosed(MeshKernel const& piece, MeshKernel const& part);

}  // namespace ClosedSurface
