// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/ExactSigns.h"
#include "host/services/boolean/RayPassage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

/// A point from which rays along x start, known up to an error along each axis. It may lie inside a
/// triangle: then it counts as moved by a little towards growing x.
struct RayOrigin
{
    using Triangle = std::array<UPoint3<float>, 3>;

    std::array<double, 3> place;
    double error = 0;
    std::optional<Triangle> sheet = {};

    explicit RayOrigin(UPoint3<float> const& p) : place{p.X(), p.Y(), p.Z()} {}
    RayOrigin(std::array<double, 3> const& p, double e, Triangle const& t)
        : place(p), error(e), sheet(t)
    {}
    bool isExact() const { return error == 0; }
};

/// What a triangle adds to the winding numbers around a point, counted along the ray towards
/// growing x, and along the one the other way. In a closed mesh both come to the same.
struct LinePassage
{
    int ahead = 0;
    int back = 0;

    LinePassage& operator+=(LinePassage const& o)
    {
        ahead += o.ahead;
        back += o.back;
        return *this;
    }
};

namespace Detail {

/// 1, -1, or 0 if rounding or the error might decide.
inline int certainSide(UPoint3<float> const& a, UPoint3<float> const& b, RayOrigin const& p)
{
    double const u = double(b[1]) - a[1], v = double(b[2]) - a[2];
    double const y = p.place[1] - a[1], z = p.place[2] - a[2];
    double const area = u * z - v * y;
    double const bound =
        1e-14 * (std::abs(u * z) + std::abs(v * y)) +
        1.001 * p.error * (std::abs(u) + std::abs(v)) +
        1e-15 * (std::abs(u) * std::abs(p.place[2]) + std::abs(v) * std::abs(p.place[1]));
    return area > bound ? 1 : area < -bound ? -1 : 0;
}

/// Whether the line through a point along x meets a triangle, its border included.
inline bool doesLineTouch(UPoint3<float> const& p, UPoint3<float> const& a, UPoint3<float> const& b,
                          UPoint3<float> const& c)
{
    int const first = ExactSigns::orient2d(a, b, p, 0), second = ExactSigns::orient2d(b, c, p, 0);
    if (first * second < 0)
        return false;
    int const third = ExactSigns::orient2d(c, a, p, 0);
    return first * third >= 0 && second * third >= 0;
}

inline bool isBetween(UPoint3<float> const& p, UPoint3<float> const& a, UPoint3<float> const& b,
                      UPoint3<float> const& c)
{
    for (int k = 0; k < 3; ++k)
        if (p[k] < std::min({a[k], b[k], c[k]}) || p[k] > std::max({a[k], b[k], c[k]}))
            return false;
    return true;
}

inline bool areInOnePlane(RayOrigin::Triangle const& t, UPoint3<float> const& a,
                          UPoint3<float> const& b, UPoint3<float> const& c)
{
    return ExactSigns::orient3d(t[0], t[1], t[2], a) == 0 &&
           ExactSigns::orient3d(t[0], t[1], t[2], b) == 0 &&
           ExactSigns::orient3d(t[0], t[1], t[2], c) == 0;
}

}  // namespace Detail

/// How the line through a point passes a triangle; nothing where the point lies on the triangle, or
/// so near to it, or the line so near to its border, that the answer is not certain. For a point
/// without error only the first.
inline std::optional<LinePassage> linePassage(RayOrigin const& p, UPoint3<float> const& a,
                                              UPoint3<float> const& b, UPoint3<float> const& c)
{
    if (p.isExact()) {
        UPoint3<float> const point(float(p.place[0]), float(p.place[1]), float(p.place[2]));
        if (!Detail::doesLineTouch(point, a, b, c))
            return LinePassage{};
        int const side = ExactSigns::orient3d(a, b, c, point);
        if (side == 0 && Detail::isBetween(point, a, b, c))
            return {};
        int const facing = lineFacing(point, a, b, c);
        return facing == 0         ? LinePassage{}
               : side * facing < 0 ? LinePassage{facing, 0}
                                   : LinePassage{0, -facing};
    }
    int const sides[3] = {Detail::certainSide(a, b, p), Detail::certainSide(b, c, p),
                          Detail::certainSide(c, a, p)};
    bool const hasLeft = sides[0] > 0 || sides[1] > 0 || sides[2] > 0;
    bool const hasRight = sides[0] < 0 || sides[1] < 0 || sides[2] < 0;
    if (hasLeft && hasRight)
        return LinePassage{};
    if (sides[0] == 0 || sides[1] == 0 || sides[2] == 0)
        return {};
    ExactSigns::Offset const u(a, b), v(a, c);
    double const n[3] = {u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
    double height = 0, bound = 0;
    for (int k = 0; k < 3; ++k) {
        double const w = p.place[std::size_t(k)] - a[k];
        double const products = k == 0   ? std::abs(u.y * v.z) + std::abs(u.z * v.y)
                                : k == 1 ? std::abs(u.z * v.x) + std::abs(u.x * v.z)
                                         : std::abs(u.x * v.y) + std::abs(u.y * v.x);
        height += w * n[k];
        bound += products * (1e-14 * std::abs(w) + 1.001 * p.error +
                             1e-15 * std::abs(p.place[std::size_t(k)]));
    }
    int const facing = sides[0];
    if (std::abs(height) <= bound) {
        if (p.sheet && Detail::areInOnePlane(*p.sheet, a, b, c))
            return LinePassage{0, -facing};
        return {};
    }
    return (height > 0) == (facing > 0) ? LinePassage{0, -facing} : LinePassage{facing, 0};
}
