// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/MeshErrors.h"
#include "platform/services/Repair.h"

#include <cstdint>
#include <vector>

/// Resolves the crossings that hang together with some triangles, those of one curve together. Each
/// is resolved only if the shape is proven to be kept, and left otherwise. All other triangles stay
/// as they are, in their order; the new ones follow.
///
/// errors    of the mesh, with its tree
/// seeds     ascending
/// report    gets what was resolved and what was left, and why
/// returns   whether the mesh was changed
/// throws    what the progress function throws; the mesh is then as it was
/// cost      a few passes over the mesh, and work in proportion to the pairs that cross
bool mendCrossings(MeshArrays& mesh, MeshErrors const& errors, std::vector<std::uint32_t> seeds,
                   Repair::Report& report, StageProgress& progress);
