// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Curves.h"
#include "tools/PollSteps.h"

#include <cstddef>
#include <optional>

namespace Freecut {

/// The outline of the region around which closed curves wind at least once. The curves may cross,
/// touch and cover themselves and each other in any way; none is without points.
///
/// poll     what it throws passes
/// returns  loops, outer ones anticlockwise and holes clockwise, by the place of their first point
///          on the curves; nothing if there are more crossings than wanted
/// cost     in proportion to points and crossings, a logarithm aside; 50 bytes per crossing
std::optional<Curves> outlineOfWoundRegion(Curves const& curves, std::size_t mostCrossings,
                                           WorkPoll const& poll = {});

}  // namespace Freecut
