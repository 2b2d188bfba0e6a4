// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>

/// Geometry of small whole coordinates, in which nothing is rounded: the judge of what is computed
/// from floats. Coordinates up to 8 leave ample room in 64 bits.
struct WholePoint
{
    std::array<std::int64_t, 3> at{};

    std::int64_t operator[](std::size_t k) const { return at[k]; }
    operator UPoint3<float>() const { return {float(at[0]), float(at[1]), float(at[2])}; }
};

using WholeTriangle = std::array<WholePoint, 3>;

inline WholePoint operator-(WholePoint const& a, WholePoint const& b)
{
    return {{a[0] - b[0], a[1] - b[1], a[2] - b[2]}};
}

inline WholePoint operator+(WholePoint const& a, WholePoint const& b)
{
    return {{a[0] + b[0], a[1] + b[1], a[2] + b[2]}};
}

inline WholePoint operator*(std::int64_t factor, WholePoint const& a)
{
    return {{factor * a[0], factor * a[1], factor * a[2]}};
}

inline std::int64_t dot(WholePoint const& a, WholePoint const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline WholePoint cross(WholePoint const& a, WholePoint const& b)
{
    return {{a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]}};
}

inline WholePoint normalOf(WholeTriangle const& t)
{
    return cross(t[1] - t[0], t[2] - t[0]);
}

inline bool hasArea(WholeTriangle const& t)
{
    WholePoint const n = normalOf(t);
    return n[0] != 0 || n[1] != 0 || n[2] != 0;
}

inline int signOf(std::int64_t x)
{
    return (x > 0) - (x < 0);
}

/// A point with fractions as coordinates: numerators over one denominator above zero.
struct FractionPoint
{
    WholePoint numerators;
    std::int64_t denominator = 1;

    bool operator==(FractionPoint const& o) const
    {
        for (std::size_t k = 0; k < 3; ++k)
            if (numerators[k] * o.denominator != o.numerators[k] * denominator)
                return false;
        return true;
    }
};

inline FractionPoint fraction(WholePoint const& numerators, std::int64_t denominator)
{
    return denominator < 0 ? FractionPoint{-1 * numerators, -denominator}
                           : FractionPoint{numerators, denominator};
}

/// Where a line that is not parallel to the plane of a triangle passes through it.
inline FractionPoint passage(WholePoint const& p, WholePoint const& q, WholeTriangle const& plane)
{
    WholePoint const n = normalOf(plane);
    std::int64_t const whole = dot(n, q - p);
    return fraction(whole * p + dot(n, plane[0] - p) * (q - p), whole);
}

inline WholePoint randomPoint(std::mt19937& random, int low, int high)
{
    std::uniform_int_distribution<int> number(low, high);
    WholePoint p;
    for (std::int64_t& x : p.at)
        x = number(random);
    return p;
}

/// One with an area.
inline WholeTriangle randomTriangle(std::mt19937& random, int low, int high)
{
    for (;;) {
        WholeTriangle t;
        for (WholePoint& p : t)
            p = randomPoint(random, low, high);
        if (hasArea(t))
            return t;
    }
}
