// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"
#include "tools/PollSteps.h"
#include "tools/ToolLimits.h"

namespace Freecut {

/// Lengths from here on count: a clearance or a corner's radius below it is none.
inline constexpr float leastLength = float(ToolLimits::leastLength);

/// Rounds every corner of a closed list in place by an arc that touches its two sides, with a point
/// for about each two degrees. A corner keeps its point where a side is too short: a side counts
/// from the end of the arc before it, and the last one up to the beginning of the first arc.
///
/// radius  nothing happens unless it is above leastLength
/// poll    what it throws passes; the ring is as it was then
void roundRing(Ring& ring, float radius, WorkPoll const& poll = {});

}  // namespace Freecut
