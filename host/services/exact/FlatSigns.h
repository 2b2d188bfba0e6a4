// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cmath>

/// Signs of determinants of points in a plane, whose coordinates are doubles; exact for all finite
/// ones. Any thread.
///
/// Each is tried in double with an error bound first (J. R. Shewchuk, "Adaptive Precision
/// Floating-Point Arithmetic and Fast Robust Geometric Predicates", 1997), then in what is exact
/// where the points come from floats that lie near each other, and only then with numbers of
/// arbitrary precision.
namespace Exact {

using FlatPlace = std::array<double, 2>;

int flatOrientationExactly(FlatPlace const& a, FlatPlace const& b, FlatPlace const& c);
bool isInCircleExactly(FlatPlace const& a, FlatPlace const& b, FlatPlace const& c,
                       FlatPlace const& d);

/// 1 if c lies left of the line from a to b, -1 right of it, 0 on it.
inline int flatOrientation(FlatPlace const& a, FlatPlace const& b, FlatPlace const& c)
{
    // (3 + 16 u) u for a unit of 2^-53, and more than what a product may lose near zero.
    constexpr double share = 3.3306690738754716e-16, least = 1e-290;
    double const left = (a[0] - c[0]) * (b[1] - c[1]);
    double const right = (a[1] - c[1]) * (b[0] - c[0]);
    double const area = left - right;
    double const bound = share * (std::abs(left) + std::abs(right)) + least;
    if (area > bound)
        return 1;
    if (area < -bound)
        return -1;
    return flatOrientationExactly(a, b, c);
}

/// Whether d lies within the circle through a, b and c, which run anticlockwise.
inline bool isInCircle(FlatPlace const& a, FlatPlace const& b, FlatPlace const& c,
                       FlatPlace const& d)
{
    // (10 + 96 u) u.
    constexpr double share = 1.1102230246251577e-15, least = 1e-280;
    double const ax = a[0] - d[0], ay = a[1] - d[1];
    double const bx = b[0] - d[0], by = b[1] - d[1];
    double const cx = c[0] - d[0], cy = c[1] - d[1];
    double const a2 = ax * ax + ay * ay, b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
    double const bc = bx * cy, cb = cx * by, ca = cx * ay, ac = ax * cy, ab = ax * by, ba = bx * ay;
    double const determinant = a2 * (bc - cb) + b2 * (ca - ac) + c2 * (ab - ba);
    double const permanent = a2 * (std::abs(bc) + std::abs(cb)) +
                             b2 * (std::abs(ca) + std::abs(ac)) +
                             c2 * (std::abs(ab) + std::abs(ba));
    double const bound = share * permanent + least;
    if (determinant > bound)
        return true;
    if (determinant < -bound)
        return false;
    return isInCircleExactly(a, b, c, d);
}

}  // namespace Exact
