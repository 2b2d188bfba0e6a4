// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"

#include <utility>
#include <vector>

// Where a drawn point comes to lie while a key holds it to something. All on the screen: eye-space x
// and y, in millimetres.
namespace Freecut {

using Place = UPoint2<float>;

/// How an edge leads from one place to another.
struct EdgeMeasure
{
    double length = 0;
    /// Anticlockwise from the right, from 0 to less than 360.
    double degrees = 0;
};

EdgeMeasure measureEdge(Place const& from, Place const& to);

/// The end of an edge that leads as near as it can to a place in a direction of a multiple of 15
/// degrees and with a length of whole steps, at least one.
Place onRoundEdge(Place const& from, Place const& to, float lengthStep);

/// What a place can be drawn to.
struct SnapTargets
{
    std::vector<Place> corners;
    std::vector<std::pair<Place, Place>> edges;
    /// Below, above or beside them.
    std::vector<Place> aligned;
};

/// The nearest corner, or else the nearest point of an edge, or else the place in line with others
/// across and up the screen, if it is nearer than the reach; otherwise the place itself.
Place snapped(Place const& place, SnapTargets const& targets, float reach);

}  // namespace Freecut
