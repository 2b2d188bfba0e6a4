// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/TriangleGap.h"

#include "host/mesh/ExactSigns.h"

#include <algorithm>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;
using Corners = std::array<Vector, 3>;

Corners cornersFrom(Point const& origin, std::array<Point, 3> const& triangle)
{
    Corners corners;
    for (std::size_t k = 0; k < 3; ++k) {
        ExactSigns::Offset const way(origin, triangle[k]);
        corners[k] = {way.x, way.y, way.z};
    }
    return corners;
}

/// By how much two triangles are apart along a direction, times its length; negative if they are not.
double gapAlong(Vector const& direction, Corners const& a, Corners const& b)
{
    auto const [lowA, highA] = std::minmax({direction | a[0], direction | a[1], direction | a[2]});
    auto const [lowB, highB] = std::minmax({direction | b[0], direction | b[1], direction | b[2]});
    return std::max(lowA - highB, lowB - highA);
}

}  // namespace

bool areFurtherApart(std::array<Point, 3> const& a, std::array<Point, 3> const& b, double distance)
{
    Corners const p = cornersFrom(a[0], a), q = cornersFrom(a[0], b);
    auto const separates = [&](Vector const& direction) {
        return gapAlong(direction, p, q) > distance * direction.GetLength();
    };
    std::array<Vector, 2> normals;
    for (std::size_t i = 0; i < 2; ++i) {
        Corners const& c = i == 0 ? p : q;
        normals[i] = (c[1] - c[0]) * (c[2] - c[0]);
        if (separates(normals[i]))
            return true;
    }
    for (std::size_t i = 0; i < 2; ++i)
        for (std::size_t k = 0; k < 3; ++k) {
            Corners const& c = i == 0 ? p : q;
            if (separates(normals[i] * (c[(k + 1) % 3] - c[k])))
                return true;
        }
    return false;
}
