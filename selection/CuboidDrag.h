// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

namespace Freecut {

class CuboidProperty;

/// The handles of a cuboid, as its key points count them.
enum CuboidHandle
{
    CUBOID_CENTRE = 0,
    CUBOID_LENGTH = 1,
    CUBOID_CORNER = 2,
    CUBOID_WIDTH = 3
};

/// Where the corner handle is dragged to, in eye space: only x and y count.
struct CornerDrag
{
    UPoint3<float> mouse;
    UPoint3<float> centre;
};

/// Changes a cuboid's values by one step of a drag of one of its handles. Length and width fold at
/// zero. A drag of the corner turns the cuboid so that the corner follows the mouse.
///
/// way  of the mouse, in the world
void dragCuboid(CuboidProperty& cuboid, int handle, UVector3<float> const& way,
                CornerDrag const& corner);

}  // namespace Freecut
