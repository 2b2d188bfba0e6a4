// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Curves.h"
#include "tools/PollSteps.h"

#include <optional>
#include <vector>

namespace Freecut {

/// One side of a closed outline; it ends where the next one starts.
struct SideOrArc
{
    UPoint2<double> start;
    /// Of an arc of less than a half turn, if the side is one.
    std::optional<UPoint2<double>> centre;
};
using SidesWithArcs = std::vector<SideOrArc>;

/// A closed outline, thinned, for being moved sideways by a distance. Its bays that are too narrow
/// for a disk of that radius are filled up to an arc of the radius.
///
/// Where the disk does not reach, filling changes nothing of the moved outline: widening a region
/// gives the same as widening its closing (Serra, Image analysis and mathematical morphology,
/// 1982). An arc of the distance's radius shrinks to its centre when it is moved, whereas the
/// images of a narrower bay's many short sides run back and forth across each other.
///
/// distance   units; positive to the right of the outline, the side on which bays are filled
/// tolerance  units; what lies this deep in the sides may be cut away, or filled, too
/// poll       what it throws passes
/// returns    nothing if fewer than three sides are left
/// cost       in proportion to the points, a logarithm aside
SidesWithArcs withBaysFilled(Curve const& outline, double distance, double tolerance,
                             WorkPoll const& poll = {});

/// The outline with points on its arcs, that are true to the tolerance.
Curve flattened(SidesWithArcs const& outline, double tolerance);

}  // namespace Freecut
