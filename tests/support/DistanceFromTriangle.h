// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "platform/geometry/UVector3.h"

#include <algorithm>
#include <cmath>

namespace judge {

using Vector = UVector3<double>;

inline Vector offset(UPoint3<double> const& from, UPoint3<float> const& to)
{
    return {to.X() - from.X(), to.Y() - from.Y(), to.Z() - from.Z()};
}

inline double distanceFromSegment(Vector const& a, Vector const& b)
{
    Vector const along = b - a;
    double const square = along | along;
    double const t = square > 0 ? std::clamp(-(a | along) / square, 0.0, 1.0) : 0;
    return (a + along * t).GetLength();
}

/// The distance of the origin from a triangle.
inline double distanceFromTriangle(Vector const& a, Vector const& b, Vector const& c)
{
    double const border =
        std::min({distanceFromSegment(a, b), distanceFromSegment(b, c), distanceFromSegment(c, a)});
    Vector const normal = (b - a) * (c - a);
    double const length = normal.GetLength();
    if (length == 0)
        return border;
    bool const isAbove =
        ((a * b) | normal) >= 0 && ((b * c) | normal) >= 0 && ((c * a) | normal) >= 0;
    return isAbove ? std::min(border, std::abs(a | normal) / length) : border;
}

}  // namespace judge
