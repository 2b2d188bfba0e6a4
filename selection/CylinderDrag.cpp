// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/CylinderDrag.h"

#include "platform/geometry/MellMath.h"
#include "tools/CylinderProperty.h"
#include "tools/RoundRing.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

/// How far the foot of a notch lies from the centre: where its sides meet the circle.
float footOfNotch(float radius, float notchWidth)
{
    return std::sqrt(radius * radius - notchWidth * notchWidth * 0.25f);
}

/// The least length that fields show and take: one that is dragged to less would be another one
/// there than here.
float atLeast(float length)
{
    return std::max(length, leastLength);
}

bool dragNotch(CylinderProperty& cylinder, UPoint3<float> const& mouse,
               UVector3<float> const& notchAxis)
{
    std::vector<UPoint3<float>>& points = cylinder.getKeyPoints();
    UVector3<float> const toMouse = mouse - points[CYLINDER_CENTRE];
    float const along = notchAxis | toMouse;
    if (along < 0)
        return false;
    points[CYLINDER_NOTCH] = mouse;
    float const width = atLeast(2 * std::sqrt(std::max((toMouse | toMouse) - along * along, 0.0f)));
    cylinder.setNotchWidth(width);
    // Within the circle there is nothing that could stick out of it.
    cylinder.setNotchLength(atLeast(cylinder.getRadius() * 2 >= width
                                        ? along - footOfNotch(cylinder.getRadius(), width)
                                        : along));
    return true;
}

}  // namespace

bool dragCylinder(CylinderProperty& cylinder, int handle, UPoint3<float> const& mouse,
                  UVector3<float> notchAxis)
{
    UPoint3<float>& centre = cylinder.getKeyPoints()[CYLINDER_CENTRE];
    switch (handle) {
        case CYLINDER_CENTRE:
            centre = mouse;
            return true;
        case CYLINDER_NOTCH:
            return dragNotch(cylinder, mouse, notchAxis.Normalize());
        default:
            cylinder.setRadius(atLeast((mouse - centre).GetLength()));
            return true;
    }
}

std::size_t circleSides(CylinderProperty const& cylinder, std::size_t ringSize)
{
    if (!cylinder.getUseNotch())
        return ringSize;
    bool const isWiderThanCircle = cylinder.getNotchWidth() * 0.5f / cylinder.getRadius() > 1;
    std::size_t const sidesOfNotch = isWiderThanCircle ? 5 : 3;
    return ringSize > sidesOfNotch ? ringSize - sidesOfNotch : 0;
}

bool isNearRing(std::vector<UPoint2<float>> const& ring, std::size_t sides,
                UPoint2<float> const& point, float distance)
{
    auto const flat = [](UPoint2<float> const& p) { return UPoint3<float>(p.X(), p.Y(), 0); };
    for (std::size_t i = 0; i < std::min(sides, ring.size()); ++i)
        if (MellMath<float>::DisPt2Segment(flat(point), flat(ring[i]),
                                           flat(ring[(i + 1) % ring.size()])) < distance)
            return true;
    return false;
}

}  // namespace Freecut
