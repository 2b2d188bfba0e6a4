// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Curves.h"
#include "tools/PollSteps.h"

#include <cstddef>

namespace Freecut {

/// A closed curve without the points that its others tell of well enough: what is left out lies no
/// farther than the tolerance from the edge that replaces it. The first point stays. A curve of
/// which fewer than three points would be left stays as it is.
///
/// tolerance  grid units
/// poll       what it throws passes
/// cost       one pass, also along rows of teeth, where dividing at the farthest point is quadratic
Curve thinned(Curve const& curve, double tolerance, WorkPoll const& poll = {});

/// The end of the longest edge of a thinned curve that starts at a point; the number of points
/// stands for the first one.
std::size_t straightReach(Curve const& curve, std::size_t from, double tolerance);

/// A closed curve without points that repeat the one before.
Curve withoutRepeats(Curve const& curve);

}  // namespace Freecut
