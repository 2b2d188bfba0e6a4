// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/BayArcs.h"

namespace Freecut {

/// How a moved curve gets past a corner that turns away from the side on which it goes.
enum class InnerJoin
{
    /// Straight from one image of the corner to the other.
    Short,
    /// By way of the corner itself.
    ThroughCorner
};

/// The images of closed outlines that are moved sideways, joined by arcs at outer corners.
///
/// Where the curves wind around a point at least once, it lies in the outlines as they are
/// widened by the distance, or narrowed by a negative one. Joins through the corners hold for any
/// outlines. Short joins, which cross each other far less, hold for an outline that does not
/// cross itself; moved inward, it must not fit into a disk of the distance's radius.
///
/// distance  units; positive to the right of outlines, which is outward if they run anticlockwise
/// poll      what it throws passes
/// Arcs are true to a quarter of a unit. Points that repeat the one before count once; outlines of
/// fewer than three points have no image.
Curve offsetCurve(Curve const& outline, double distance, InnerJoin inner,
                  WorkPoll const& poll = {});

/// The same, with short joins, for an outline whose arcs have the distance as radius: the image of
/// an arc is its centre.
Curve offsetCurve(SidesWithArcs const& outline, double distance, WorkPoll const& poll = {});

}  // namespace Freecut
