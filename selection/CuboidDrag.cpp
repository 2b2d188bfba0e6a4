// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/CuboidDrag.h"

#include "tools/CuboidProperty.h"
#include "tools/EdgeFrame.h"
#include "tools/RoundRing.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

/// A value after its handle was moved, folded at zero. Fields show and take no less than the least
/// length, so that there is none here either.
float stretched(float value, CuboidProperty const& cuboid, int handle, UVector3<float> const& way)
{
    std::vector<UPoint3<float>> const& points = cuboid.getKeyPoints();
    UVector3<float> const outward =
        (points[std::size_t(handle)] - points[CUBOID_CENTRE]).Normalize();
    return std::max(std::abs(value + (way | outward)), leastLength);
}

/// The angle of the cuboid whose corner lies under the mouse, in radians.
float angleOfCorner(CuboidProperty const& cuboid, CornerDrag const& corner)
{
    UVector3<float> const toMouse(corner.mouse.X() - corner.centre.X(),
                                  corner.mouse.Y() - corner.centre.Y(), 0);
    float const cosine = UVector3<float>(toMouse).Normalize().X();
    float const size = std::acos(std::clamp(cosine, -1.0f, 1.0f));
    float const angle = toMouse.Y() >= 0 ? size : -size;
    // atan2 also bears a cuboid that has no size yet.
    return angle - std::atan2(cuboid.getCuboidWidth(), cuboid.getCuboidLength());
}

}  // namespace

void dragCuboid(CuboidProperty& cuboid, int handle, UVector3<float> const& way,
                CornerDrag const& corner)
{
    UVector3<float> const inPlane = alongPlane(way, cuboid.getExtrudeVector());
    switch (handle) {
        case CUBOID_CENTRE:
            cuboid.getKeyPoints()[CUBOID_CENTRE] += inPlane;
            break;
        case CUBOID_LENGTH:
            cuboid.setCuboidLength(
                stretched(cuboid.getCuboidLength(), cuboid, CUBOID_LENGTH, inPlane));
            break;
        case CUBOID_CORNER:
            cuboid.setCuboidAngle(angleOfCorner(cuboid, corner));
            break;
        default:
            cuboid.setCuboidWidth(
                stretched(cuboid.getCuboidWidth(), cuboid, CUBOID_WIDTH, inPlane));
    }
}

}  // namespace Freecut
