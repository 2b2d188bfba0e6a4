// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/PlaneSigns.h"

#include <CGAL/Exact_rational.h>

#include <cmath>

namespace Exact {

namespace {

using Triangle = std::array<UPoint3<float>, 3>;

/// A coordinate of the normal of a triangle.
template <typename Number>
Number normalOf(Triangle const& t, int axis)
{
    int const i = (axis + 1) % 3, j = (axis + 2) % 3;
    auto const difference = [&](int corner, int k) -> Number {
        return Number(double(t[std::size_t(corner)][k])) - Number(double(t[0][k]));
    };
    return difference(1, i) * difference(2, j) - difference(1, j) * difference(2, i);
}

/// A bound for the size of such a coordinate.
double reachOf(Triangle const& t, int axis)
{
    int const i = (axis + 1) % 3, j = (axis + 2) % 3;
    auto const size = [&](int corner, int k) {
        return std::abs(double(t[std::size_t(corner)][k]) - t[0][k]);
    };
    return size(1, i) * size(2, j) + size(1, j) * size(2, i);
}

}  // namespace

int signOfMeeting(Triangle const& a, Triangle const& b, int axis)
{
    int const i = (axis + 1) % 3, j = (axis + 2) % 3;
    double const left = normalOf<double>(a, i) * normalOf<double>(b, j);
    double const right = normalOf<double>(a, j) * normalOf<double>(b, i);
    // Each product carries fewer than twenty roundings.
    double const bound = 1e-14 * (reachOf(a, i) * reachOf(b, j) + reachOf(a, j) * reachOf(b, i));
    if (std::abs(left - right) > bound)
        return left > right ? 1 : -1;
    using Number = CGAL::Exact_rational;
    Number const exact = normalOf<Number>(a, i) * normalOf<Number>(b, j) -
                         normalOf<Number>(a, j) * normalOf<Number>(b, i);
    return int(CGAL::sign(exact));
}

}  // namespace Exact
