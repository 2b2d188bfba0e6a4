// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"
#include "platform/geometry/UPoint3.h"

#include <vector>

namespace Freecut {

class CylinderProperty;

/// What of a cylinder is dragged: its key points, and the circle itself, which is none of them.
enum CylinderHandle
{
    CYLINDER_CENTRE = 0,
    CYLINDER_NOTCH = 1,
    CYLINDER_CIRCLE = 2
};

/// Changes a cylinder's values so that a handle comes to lie under the mouse.
///
/// mouse       on the drawing plane, in the world
/// notchAxis   from the centre along the notch, in the world
/// returns     false, with nothing changed, if the notch would come out on the other side
bool dragCylinder(CylinderProperty& cylinder, int handle, UPoint3<float> const& mouse,
                  UVector3<float> notchAxis);

/// How many sides of a cylinder's ring belong to its circle. Sides run from point i to the next;
/// those of a notch stand at the end.
std::size_t circleSides(CylinderProperty const& cylinder, std::size_t ringSize);

/// Whether one of the first sides of a closed ring is nearer to a point than a distance.
///
/// ring  on the screen, in pixels
bool isNearRing(std::vector<UPoint2<float>> const& ring, std::size_t sides,
                UPoint2<float> const& point, float distance);

}  // namespace Freecut
