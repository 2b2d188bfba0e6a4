// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <optional>

namespace Exact {

/// The mesh without triangles that have no area; what was closed stays closed.
MeshArrays withoutDegenerate(MeshArrays mesh, StageProgress& progress);

/// Whether all coordinates are numbers and every edge is used as often one way as the other.
bool isClosedSolid(MeshArrays const& mesh, StageProgress& progress);

/// A result as it is handed out: without degenerate triangles, films and unused points; nothing
/// where it is not closed.
std::optional<MeshArrays> finishedResult(MeshArrays mesh, StageProgress& progress);

}  // namespace Exact
