// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Curves.h"
#include "tools/PollSteps.h"

#include <cstdint>
#include <vector>

namespace Freecut {

/// A closed line of points with whole coordinates, in units of 0.001 mm.
using GridLoop = std::vector<UPoint2<std::int64_t>>;
using GridLoops = std::vector<GridLoop>;

/// Loops with their points rounded to whole units, without points that repeat others or lie in a
/// line with their neighbours. What is narrower than a unit on average is left out.
///
/// poll  what it throws passes
GridLoops onGrid(Curves const& loops, WorkPoll const& poll = {});

}  // namespace Freecut
