// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PlanePlacement.h"

#include "tools/PlaneGraphicObject.h"

#include <cmath>

namespace Freecut {

namespace {

/// A component below it does not decide where the perpendicular lies.
constexpr float leastComponent = 0.0001f;

/// The third component of the unit vector (-ratio * s, s).
float scaleFor(float ratio)
{
    return std::sqrt(1.0f / (ratio * ratio + 1.0f));
}

}  // namespace

UVector3<float> perpendicularTo(UVector3<float> const& normal)
{
    float const x = normal.X();
    float const y = normal.Y();
    float const z = normal.Z();
    if (std::fabs(x) > leastComponent) {
        float const s = scaleFor(z / x);
        return {-z / x * s, 0, s};
    }
    if (std::fabs(y) > leastComponent) {
        float const s = scaleFor(z / y);
        return {0, -z / y * s, s};
    }
    float const s = scaleFor(y / z);
    return {0, s, -y / z * s};
}

PlaneAxes tangentAxes(UVector3<float> const& normal)
{
    UVector3<float> const first = perpendicularTo(normal);
    return {first, normal * first};
}

void placePlane(PlaneProperty& plane, UPoint3<float> const& center, PlaneAxes const& axes,
                PlaneSize const& size)
{
    UVector3<float> const a = axes.first * (size.height * 0.5f);
    UVector3<float> const b = axes.second * (size.width * 0.5f);
    plane.setCorners(center - b - a, center - b + a, center + b + a, true);
    plane.updateKeyPoints();
}

std::unique_ptr<PlaneGraphicObject> makeTangentPlane(UPoint3<float> const& center,
                                                     UVector3<float> const& normal,
                                                     PlaneSize const& size)
{
    auto plane = std::make_unique<PlaneGraphicObject>();
    placePlane(plane->getProperty(), center, tangentAxes(normal), size);
    return plane;
}

}  // namespace Freecut
