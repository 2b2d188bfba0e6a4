// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"
#include "platform/geometry/UPoint3.h"

#include <vector>

/// Places points along polylines, one line after the other, so that every two are at least a
/// distance apart (to the rounding of the arithmetic, which is float). The walk is greedy: along
/// each line it goes from a point to the next place that is free.
///
/// lines    may repeat points
/// spacing  above zero; otherwise nothing is placed
/// poll     called for every point of the lines; may be empty; what it throws passes
/// returns  in order of placing; the order of the lines decides who stands where
/// cost     each segment is measured against each point placed
std::vector<UPoint3<float>> distributeAlongLines(
    std::vector<std::vector<UPoint3<float>>> const& lines, float spacing,
    ConnectorProgress::Poll const& poll = {});
