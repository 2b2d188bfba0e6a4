// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Freecut {

/// The ways in which picks define a cut plane.
enum PlaneType
{
    /// The plane through three picks.
    PLANE_3POINTS = 0,
    /// Lies on the surface at the pick.
    PLANE_TANGENT = 1,
    /// Stands on the surface at the pick.
    PLANE_VERTICAL = 2,
    // Through the pick, along two axes of the world.
    PLANE_XY = 3,
    PLANE_XZ = 4,
    PLANE_YZ = 5,
};

}  // namespace Freecut
