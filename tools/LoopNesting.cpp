// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LoopNesting.h"

#include "tools/SegmentRelation.h"

#include <algorithm>

namespace Freecut {

namespace {

using Point = UPoint2<float>;

bool touches(Point const& v, FlatRing const& loop)
{
    for (std::size_t i = 0; i + 1 < loop.size(); ++i)
        if (liesBetween(v, loop[i], loop[i + 1]))
            return true;
    return false;
}

/// By the edges that a ray to the right crosses.
bool isWithin(Point const& v, FlatRing const& loop)
{
    bool isOdd = false;
    for (std::size_t i = 0; i + 1 < loop.size(); ++i) {
        Point const& p = loop[i];
        Point const& q = loop[i + 1];
        if ((p.Y() > v.Y()) == (q.Y() > v.Y()))
            continue;
        double const share = (double(v.Y()) - p.Y()) / (double(q.Y()) - p.Y());
        if (p.X() + share * (double(q.X()) - p.X()) > v.X())
            isOdd = !isOdd;
    }
    return isOdd;
}

bool liesIn(FlatRing const& loop, FlatRing const& other)
{
    auto const free =
        std::find_if(loop.begin(), loop.end(), [&](Point const& v) { return !touches(v, other); });
    return free == loop.end() || isWithin(*free, other);
}

/// A point beyond the first one along an axis: the largest, or else the least; 0 if there is none.
std::size_t extremePoint(Ring const& points, int axis)
{
    std::size_t largest = 0;
    std::size_t least = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i][axis] > points[largest][axis])
            largest = i;
        if (points[i][axis] < points[least][axis])
            least = i;
    }
    return largest > 0 ? largest : least;
}

}  // namespace

void moveNestedLoops(FlatLoops& solid, FlatLoops& residual)
{
    std::vector<std::size_t> nested;
    for (std::size_t a = 0; a < solid.size(); ++a)
        for (std::size_t b = 0; b < solid.size(); ++b)
            if (a != b && liesIn(solid[a], solid[b])) {
                nested.push_back(a);
                break;
            }
    std::reverse(nested.begin(), nested.end());
    for (std::size_t const loop : nested) {
        residual.push_back(std::move(solid[loop]));
        solid.erase(solid.begin() + std::ptrdiff_t(loop));
    }
}

bool isLoopCounterClockwise(Ring const& points, UVector3<float> const& direction)
{
    if (points.size() < 2)
        return false;
    std::size_t corner = 0;
    for (int const axis : {2, 1, 0})
        if (corner == 0)
            corner = extremePoint(points, axis);
    if (corner == 0)
        return false;
    UVector3<float> const forth = points[(corner + 1) % points.size()] - points[corner];
    UVector3<float> const back = points[corner - 1] - points[corner];
    return ((forth * back) | direction) > 0;
}

}  // namespace Freecut
