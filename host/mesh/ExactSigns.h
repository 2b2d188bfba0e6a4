// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <algorithm>
#include <cmath>

/// Signs of determinants of float points, exact for all finite coordinates. Signs are -1, 0, 1.
///
/// Each sign is tried in double with an error bound first, then in 128-bit integers where the
/// coordinates are multiples of one power of two, as they nearly always are, and only then with
/// numbers of arbitrary precision. Floats are too narrow for a product of three to leave the range
/// of double, so the error bounds need no guard against overflow or underflow.
namespace ExactSigns {

using Point = UPoint3<float>;

/// A difference of two float points in double.
struct Offset
{
    Offset(Point const& from, Point const& to)
        : x(double(to.X()) - from.X()), y(double(to.Y()) - from.Y()), z(double(to.Z()) - from.Z())
    {}
    double x, y, z;
};

/// Six products of three differences carry at most nine roundings each: 54 half units in the last
/// place.
constexpr double volumeErrorBound = 1e-14;
/// Two products of two differences, five roundings each.
constexpr double areaErrorBound = 2e-15;

int orient3dExact(Point const& a, Point const& b, Point const& c, Point const& d);
int orient2dExact(Point const& a, Point const& b, Point const& c, int droppedAxis);

/// The sign of the volume of the tetrahedron: 1 if d lies on the side of a, b, c from which they
/// run anticlockwise, 0 if the four lie in one plane.
inline int orient3d(Point const& a, Point const& b, Point const& c, Point const& d)
{
    Offset const u(a, b), v(a, c), w(a, d);
    double const volume = w.x * (u.y * v.z - u.z * v.y) + w.y * (u.z * v.x - u.x * v.z) +
                          w.z * (u.x * v.y - u.y * v.x);
    auto const largest = [](double p, double q, double r) {
        return std::max(std::max(std::abs(p), std::abs(q)), std::abs(r));
    };
    double const bound =
        volumeErrorBound * largest(u.x, v.x, w.x) * largest(u.y, v.y, w.y) * largest(u.z, v.z, w.z);
    if (volume > bound)
        return 1;
    if (volume < -bound)
        return -1;
    return bound == 0 ? 0 : orient3dExact(a, b, c, d);
}

/// The sign of the area of a triangle seen along a coordinate axis: of (y, z), (z, x) or (x, y) for
/// a dropped axis of 0, 1 or 2.
inline int orient2d(Point const& a, Point const& b, Point const& c, int droppedAxis)
{
    int const i = (droppedAxis + 1) % 3;
    int const j = (droppedAxis + 2) % 3;
    double const left = (double(b[i]) - a[i]) * (double(c[j]) - a[j]);
    double const right = (double(b[j]) - a[j]) * (double(c[i]) - a[i]);
    double const area = left - right;
    double const bound = areaErrorBound * (std::abs(left) + std::abs(right));
    if (area > bound)
        return 1;
    if (area < -bound)
        return -1;
    return bound == 0 ? 0 : orient2dExact(a, b, c, droppedAxis);
}

/// Whether the three points lie on one line, so that a triangle of them has no area.
inline bool areCollinear(Point const& a, Point const& b, Point const& c)
{
    return orient2d(a, b, c, 2) == 0 && orient2d(a, b, c, 0) == 0 && orient2d(a, b, c, 1) == 0;
}

}  // namespace ExactSigns
