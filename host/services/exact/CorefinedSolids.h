// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/Corefinement.h"

namespace Exact {

/// As combine(), by corefinement of the whole surfaces. It has a fault where the first operand
/// touches or crosses itself near the second, or the second anywhere.
CombinedSolids combineCorefined(MeshArrays const& first, MeshArrays const& second,
                                WantedSolids wanted, StageProgress& progress);

}  // namespace Exact
