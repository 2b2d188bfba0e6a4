// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/Corefinement.h"

namespace Exact {

/// A whole number for each result: a winding number at some place, or how often, and which way round,
/// a face belongs to it.
struct ResultNumbers
{
    int united = 0;
    int common = 0;
    int difference = 0;
};

/// The wanted results, one after the other.
///
/// assemble  bool(int ResultNumbers::*, std::optional<MeshArrays>&): makes the result of that number;
///           false if it is not closed
template <class Assemble>
CombinedSolids wantedResults(WantedSolids wanted, Assemble const& assemble)
{
    CombinedSolids solids;
    bool const done =
        (!wanted.united || assemble(&ResultNumbers::united, solids.united)) &&
        (!wanted.common || assemble(&ResultNumbers::common, solids.common)) &&
        (!wanted.difference || assemble(&ResultNumbers::difference, solids.difference));
    if (done)
        return solids;
    return {.fault = CombinationFault::resultNotClosed};
}

}  // namespace Exact
