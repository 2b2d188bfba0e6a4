// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/Corefinement.h"

#include "host/services/exact/ArrangedSolids.h"
#include "host/services/exact/CorefinedSolids.h"

#include <exception>

namespace Exact {

CombinedSolids combine(MeshArrays const& first, MeshArrays const& second, WantedSolids wanted,
                       StageProgress& progress)
{
    progress.begin(0, 5, 1);
    CombinedSolids solids = combineCorefined(first, second, wanted, progress);
    if (solids.fault != CombinationFault::none)
        solids = combineArranged(first, second, wanted, progress);
    progress.begin(100, 100, 1);
    return solids;
}

}  // namespace Exact
