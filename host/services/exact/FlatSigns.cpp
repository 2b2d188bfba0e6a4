// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/FlatSigns.h"

#include "host/services/exact/WideInteger.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace Exact {

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

Kernel::Point_2 pointOf(FlatPlace const& p)
{
    return {p[0], p[1]};
}

/// Whether double holds the difference of two doubles (D. E. Knuth's two-sum).
bool isExactDifference(double from, double to, double difference)
{
    double const shadow = to - difference;
    return (to - (difference + shadow)) + (shadow - from) == 0;
}

/// The way from one point to some others, where double holds it exactly.
template <std::size_t count>
std::optional<std::array<double, 2 * count>> exactWays(
    FlatPlace const& from, std::array<FlatPlace const*, count> const& others)
{
    std::array<double, 2 * count> ways;
    for (std::size_t i = 0; i < 2 * count; ++i) {
        double const to = (*others[i / 2])[i % 2];
        ways[i] = to - from[i % 2];
        if (!isExactDifference(from[i % 2], to, ways[i]))
            return {};
    }
    return ways;
}

/// The values as multiples of one power of two, up to 2^30.
template <std::size_t count>
std::optional<std::array<std::int64_t, count>> asIntegers(std::array<double, count> const& values)
{
    double largest = 0;
    for (double const value : values)
        largest = std::max(largest, std::abs(value));
    if (!(largest > 1e-200 && largest < 1e200))
        return {};
    double const scale = std::ldexp(1.0, 29 - std::ilogb(largest));
    std::array<std::int64_t, count> integers;
    for (std::size_t i = 0; i < count; ++i) {
        integers[i] = std::int64_t(values[i] * scale);
        if (double(integers[i]) != values[i] * scale)
            return {};
    }
    return integers;
}

}  // namespace

int flatOrientationExactly(FlatPlace const& a, FlatPlace const& b, FlatPlace const& c)
{
    if (auto const ways = exactWays<2>(c, {&a, &b}))
        if (auto const n = asIntegers(*ways)) {
            std::int64_t const area = (*n)[0] * (*n)[3] - (*n)[1] * (*n)[2];
            return area > 0 ? 1 : area < 0 ? -1 : 0;
        }
    return int(CGAL::orientation(pointOf(a), pointOf(b), pointOf(c)));
}

bool isInCircleExactly(FlatPlace const& a, FlatPlace const& b, FlatPlace const& c,
                       FlatPlace const& d)
{
    if (auto const ways = exactWays<3>(d, {&a, &b, &c}))
        if (auto const n = asIntegers(*ways)) {
            auto const [ax, ay, bx, by, cx, cy] = *n;
            // Below 2^61 each, so that a product is below 2^122.
            DoubleWord const determinant = DoubleWord(ax * ax + ay * ay) * (bx * cy - cx * by) +
                                           DoubleWord(bx * bx + by * by) * (cx * ay - ax * cy) +
                                           DoubleWord(cx * cx + cy * cy) * (ax * by - bx * ay);
            return determinant > 0;
        }
    return CGAL::side_of_oriented_circle(pointOf(a), pointOf(b), pointOf(c), pointOf(d)) ==
           CGAL::ON_POSITIVE_SIDE;
}

}  // namespace Exact
