// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"
#include "tools/PollSteps.h"

#include <cstddef>

namespace Freecut {

/// The loops into which an outline falls that may cross itself. Each repeats its first point at the
/// end, but for open chains.
struct ResolvedLoops
{
    /// Closed loops, none within another, that form the tool. They turn either way.
    FlatLoops solid;
    /// What is only drawn.
    FlatLoops residual;
    /// There are more than mostCrossings, so the outline was not resolved and there are no loops.
    bool isTooComplicated = false;
};

/// An outline that crosses itself more often than this is not resolved, lest it take minutes and
/// gigabytes. It is some thousand times what a person can draw.
inline constexpr std::size_t mostCrossings = 1000000;

/// Splits a closed outline at its crossings. The outline changes sides at each of them, and only
/// the pieces on the side of its first edge are solid. So of a figure eight one lobe is left, and a
/// loop turned over at a corner falls away. A point that just touches an edge does not split it;
/// where edges overlap, their neighbours decide whether the outline passes through.
///
/// outline  whole numbers, without a closing repeat
/// poll     what it throws passes
/// cost     n log n for n points, pairs of edges whose boxes meet and crossings; half a million
///          crossings take about a second
ResolvedLoops resolveSelfIntersections(FlatRing const& outline, WorkPoll const& poll = {});

}  // namespace Freecut
