// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"
#include "tools/PollSteps.h"

namespace Freecut {

/// Moves the loops that lie within another one to `residual`, the last one first.
///
/// A vertex touches another loop if it sees one of its edges under a right angle or more, which is
/// wider than lying on the edge. The first vertex that does not touch it decides whether a loop is
/// within; a loop all of whose vertices touch another one is within it.
///
/// solid  closed loops with their first point repeated at the end
/// poll   what it throws passes
void moveNestedLoops(FlatLoops& solid, FlatLoops& residual, WorkPoll const& poll = {});

/// Whether a loop turns anticlockwise, seen against a direction. It is judged by one corner: that
/// of the highest point, or of the lowest if the first point is the highest; by Z, or by Y or X if
/// the loop is level.
///
/// points  with the first point repeated at the end. False for less than two
bool isLoopCounterClockwise(Ring const& points, UVector3<float> const& direction);

}  // namespace Freecut
