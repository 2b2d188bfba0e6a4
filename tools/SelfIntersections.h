// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

namespace Freecut {

/// The loops into which an outline falls that may cross itself. Each repeats its first point at the
/// end, but for open chains.
struct ResolvedLoops
{
    /// Closed loops, none within another, that form the tool. They turn either way.
    FlatLoops solid;
    /// What is only drawn.
    FlatLoops residual;
};

/// Splits a closed outline at its crossings. The outline changes sides at each of them, and only
/// the pieces on the side of its first edge are solid. So of a figure eight one lobe is left, and a
/// loop turned over at a corner falls away. A point that just touches an edge does not split it;
/// where edges overlap, their neighbours decide whether the outline passes through.
///
/// outline  whole numbers, without a closing repeat
/// cost     in proportion to the pairs of edges whose boxes meet, and to the points times the loops
ResolvedLoops resolveSelfIntersections(FlatRing const& outline);

}  // namespace Freecut
