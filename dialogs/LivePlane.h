// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "selection/PlaneType.h"

#include <optional>

namespace Freecut {

/// The plane of the host's live cut view.
struct LivePlane
{
    UPoint3<float> point;
    UVector3<float> normal;
};

/// None while no live cut is active.
std::optional<LivePlane> livePlane();

/// The type of a plane across one of the world's axes; none for others.
std::optional<PlaneType> typeAlongAxes(UVector3<float> const& normal);

}  // namespace Freecut
