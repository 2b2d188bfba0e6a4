// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PlaneDefinition.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

using Vector = UVector3<float>;

PlaneAxes axesOfType(PlaneType type, UVector3<float> const& normal)
{
    if (type == PLANE_VERTICAL)
        return {perpendicularTo(normal), normal};
    return axesByNormal(type, normal);
}

PlaneAxes axesByNormal(PlaneType type, UVector3<float> const& normal)
{
    switch (type) {
        case PLANE_XY:
            return {{1, 0, 0}, {0, 1, 0}};
        case PLANE_XZ:
            return {{1, 0, 0}, {0, 0, 1}};
        case PLANE_YZ:
            return {{0, 1, 0}, {0, 0, 1}};
        default:
            return tangentAxes(normal);
    }
}

PlaneRectangle rectangleOfPicks(std::array<UPoint3<float>, 3> const& picks)
{
    constexpr float leastReach = 0.0005f;
    Vector toFirst = picks[0] - picks[2];
    Vector toSecond = picks[1] - picks[2];
    float const reach = std::max({toFirst.GetLength(), toSecond.GetLength(), leastReach});
    toFirst.Normalize();
    toSecond.Normalize();
    Vector bisector = toFirst + toSecond;
    Vector across = toSecond - toFirst;
    return {picks[2], {bisector.Normalize(), across.Normalize()}, {2 * reach, 2 * reach}};
}

bool isPickValuable(std::vector<UPoint3<float>> const& picks, UPoint3<float> const& point)
{
    constexpr float leastCosine = 0.00001f;
    if (picks.empty())
        return true;
    if (point == picks[0])
        return false;
    if (picks.size() == 1)
        return true;
    if (point == picks[1])
        return false;
    Vector fromFirst = point - picks[0];
    Vector fromSecond = point - picks[1];
    return std::fabs(fromFirst.Normalize() | fromSecond.Normalize()) >= leastCosine;
}

}  // namespace Freecut
