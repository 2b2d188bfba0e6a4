// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <algorithm>
#include <array>
#include <limits>

/// Squared distances in double. Float coordinates differ by amounts that a double holds, so even
/// needles have their true normal and the side of an edge is right to the last digits of the
/// distance.
namespace TriangleDistance {

using Vector = UVector3<double>;
using Point = UPoint3<double>;

inline Point widened(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

/// Of p from the segment a-b, which may have no length.
inline double squaredToSegment(Point const& p, Point const& a, Point const& b)
{
    Vector const along = b - a;
    Vector const fromA = p - a;
    double const reach = fromA | along;
    double const length = along | along;
    if (reach <= 0 || length == 0)
        return fromA | fromA;
    if (reach >= length) {
        Vector const fromB = p - b;
        return fromB | fromB;
    }
    Vector const across = fromA - along * (reach / length);
    return across | across;
}

/// Of p from a triangle, which may be a segment or a point.
inline double squaredToTriangle(Point const& p, std::array<UPoint3<float>, 3> const& corners)
{
    Point const c[3] = {widened(corners[0]), widened(corners[1]), widened(corners[2])};
    Vector const normal = (c[1] - c[0]) * (c[2] - c[0]);
    double const square = normal | normal;
    double nearest = std::numeric_limits<double>::infinity();
    bool isAbove = square > 0;
    // What is nearest to a point beside the triangle lies on an edge that faces the point.
    for (int i = 0; i < 3; ++i) {
        Point const& a = c[i];
        Point const& b = c[(i + 1) % 3];
        if (square > 0 && ((normal * (b - a)) | (p - a)) >= 0)
            continue;
        isAbove = false;
        nearest = std::min(nearest, squaredToSegment(p, a, b));
    }
    if (!isAbove)
        return nearest;
    double const height = normal | (p - c[0]);
    return height * height / square;
}

}  // namespace TriangleDistance
