// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "selection/PlaneType.h"
#include "tools/PlanePlacement.h"

#include <array>
#include <vector>

namespace Freecut {

/// A rectangle about a centre.
struct PlaneRectangle
{
    UPoint3<float> center;
    PlaneAxes axes;
    PlaneSize size;
};

/// The axes of a plane made by one pick. The plane of three points is not among them.
///
/// normal  of the surface at the pick, a unit vector; the fixed planes do without
PlaneAxes axesOfType(PlaneType type, UVector3<float> const& normal);

/// The axes of a plane made from a centre and a normal: those of the fixed planes, else tangent to
/// the normal.
PlaneAxes axesByNormal(PlaneType type, UVector3<float> const& normal);

/// The square that three picks define. The last pick is its centre, its diagonals run towards the
/// other two, and it reaches as far as the farther of them, but at least 0.0005 mm.
PlaneRectangle rectangleOfPicks(std::array<UPoint3<float>, 3> const& picks);

/// Whether a pick counts after those that were made before: it lies on none of the first two, and
/// they are not seen from it at a right angle.
bool isPickValuable(std::vector<UPoint3<float>> const& picks, UPoint3<float> const& point);

}  // namespace Freecut
