// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/ExactSigns.h"

#include "host/services/exact/ArbitrarySigns.h"

#include <array>
#include <cstdint>
#include <optional>

namespace ExactSigns {
namespace {

__extension__ using Wide = __int128;

/// The difference of two floats where double holds it exactly.
std::optional<double> exactDifference(float to, float from)
{
    double const difference = double(to) - from;
    // Knuth's two-sum: the part of the true difference that the rounding took away.
    double const shadow = double(to) - difference;
    double const tail = (double(to) - (difference + shadow)) + (shadow - double(from));
    if (tail != 0)
        return {};
    return difference;
}

/// Brings values to integers of at most `bits` bits by one common power of two. Returns false where
/// they are spread too far for that.
template <std::size_t n>
bool toIntegers(std::array<double, n> const& values, int bits, std::array<Wide, n>& integers)
{
    double largest = 0;
    for (double value : values)
        largest = std::max(largest, std::abs(value));
    if (largest == 0) {
        integers.fill(0);
        return true;
    }
    double const scale = std::ldexp(1.0, bits - 1 - std::ilogb(largest));
    for (std::size_t i = 0; i < n; ++i) {
        std::int64_t const integer = std::int64_t(values[i] * scale);
        if (double(integer) != values[i] * scale)
            return false;
        integers[i] = integer;
    }
    return true;
}

int sign(Wide value)
{
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

}  // namespace

int orient3dExact(Point const& a, Point const& b, Point const& c, Point const& d)
{
    std::array<double, 9> differences;
    Point const* const ends[3] = {&b, &c, &d};
    for (int row = 0; row < 3; ++row)
        for (int axis = 0; axis < 3; ++axis) {
            std::optional<double> const difference = exactDifference((*ends[row])[axis], a[axis]);
            if (!difference)
                return arbitraryOrient3d(a, b, c, d);
            differences[row * 3 + axis] = *difference;
        }
    // Six products of three values of 41 bits fit in 127 bits.
    std::array<Wide, 9> m;
    if (!toIntegers(differences, 41, m))
        return arbitraryOrient3d(a, b, c, d);
    return sign(m[6] * (m[1] * m[5] - m[2] * m[4]) + m[7] * (m[2] * m[3] - m[0] * m[5]) +
                m[8] * (m[0] * m[4] - m[1] * m[3]));
}

int orient2dExact(Point const& a, Point const& b, Point const& c, int droppedAxis)
{
    int const i = (droppedAxis + 1) % 3;
    int const j = (droppedAxis + 2) % 3;
    std::optional<double> const terms[4] = {
        exactDifference(b[i], a[i]), exactDifference(c[j], a[j]), exactDifference(b[j], a[j]),
        exactDifference(c[i], a[i])};
    std::array<double, 4> differences;
    for (int k = 0; k < 4; ++k) {
        if (!terms[k])
            return arbitraryOrient2d(a, b, c, droppedAxis);
        differences[k] = *terms[k];
    }
    // Two products of two values of 62 bits.
    std::array<Wide, 4> m;
    if (!toIntegers(differences, 62, m))
        return arbitraryOrient2d(a, b, c, droppedAxis);
    return sign(m[0] * m[1] - m[2] * m[3]);
}

}  // namespace ExactSigns
