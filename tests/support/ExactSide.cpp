// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ExactSide.h"

#include <cmath>
#include <gmpxx.h>
#include <type_traits>

namespace {

int signOf(double value)
{
    return (value > 0) - (value < 0);
}

template <typename Number>
struct Spatial
{
    Number x, y, z;

    Spatial(UPoint3<float> const& p, UPoint3<float> const& origin)
        : x(Number(p.X()) - Number(origin.X())),
          y(Number(p.Y()) - Number(origin.Y())),
          z(Number(p.Z()) - Number(origin.Z()))
    {}
};

template <typename Number>
Number determinant(Spatial<Number> const& u, Spatial<Number> const& v, Spatial<Number> const& w)
{
    return u.x * (v.y * w.z - v.z * w.y) + u.y * (v.z * w.x - v.x * w.z) +
           u.z * (v.x * w.y - v.y * w.x);
}

/// The same sum with all terms taken positive: what its rounding errors are in proportion to.
double permanent(Spatial<double> const& u, Spatial<double> const& v, Spatial<double> const& w)
{
    auto const cross = [](double a, double b, double c, double d) {
        return std::abs(a * b) + std::abs(c * d);
    };
    return std::abs(u.x) * cross(v.y, w.z, v.z, w.y) + std::abs(u.y) * cross(v.z, w.x, v.x, w.z) +
           std::abs(u.z) * cross(v.x, w.y, v.y, w.x);
}

/// Well above the sum of the relative errors of a determinant's roundings (at most eight in a row).
constexpr double errorShare = 2e-15;

template <typename Number>
Number area(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c, int axis,
            double* size)
{
    int const u = (axis + 1) % 3, v = (axis + 2) % 3;
    Number const left = (Number(b[u]) - Number(a[u])) * (Number(c[v]) - Number(a[v]));
    Number const right = (Number(b[v]) - Number(a[v])) * (Number(c[u]) - Number(a[u]));
    if constexpr (std::is_same_v<Number, double>)
        *size = std::abs(left) + std::abs(right);
    return left - right;
}

}  // namespace

namespace judge {

int sideOf(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
           UPoint3<float> const& d)
{
    Spatial<double> const u(a, d), v(b, d), w(c, d);
    double const value = determinant(u, v, w), size = permanent(u, v, w);
    // Where nothing is added up, as in a plane along the axes, the sum is exact.
    if (size == 0 || std::abs(value) > errorShare * size)
        return -signOf(value);
    return -sgn(determinant<mpq_class>({a, d}, {b, d}, {c, d}));
}

int turnOf(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c, int axis)
{
    double size = 0;
    double const value = area<double>(a, b, c, axis, &size);
    if (size == 0 || std::abs(value) > errorShare * size)
        return signOf(value);
    return sgn(area<mpq_class>(a, b, c, axis, nullptr));
}

bool areInLine(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c)
{
    return turnOf(a, b, c, 0) == 0 && turnOf(a, b, c, 1) == 0 && turnOf(a, b, c, 2) == 0;
}

}  // namespace judge
