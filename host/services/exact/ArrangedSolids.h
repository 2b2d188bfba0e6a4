// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/Corefinement.h"

namespace Exact {

/// As combine(), by an arrangement of the triangles: for operands that touch or cross themselves,
/// also where the other meets them. Slower, and in need of nothing but closed operands.
CombinedSolids combineArranged(MeshArrays const& first, MeshArrays const& second,
                               WantedSolids wanted, StageProgress& progress);

}  // namespace Exact
