// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/NarrowSigns.h"

#include "host/services/exact/WideInteger.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace Exact {
namespace {

/// Bits of a coordinate. With b of them a difference has b + 1, a component of a normal 2 b + 3, a
/// weight 3 b + 6, a numerator 4 b + 8, a product of two numerators less another one 8 b + 17, and
/// the determinant of three points 11 b + 25, which is 509.
constexpr int coordinateBits = 44;

using Weight = WideInteger<3>;
using Whole = std::array<std::int64_t, 3>;
using Normal = std::array<DoubleWord, 3>;

/// Numerators over one denominator, which is above zero.
struct Homogeneous
{
    std::array<WideInteger<3>, 3> place;
    Weight weight;
};

/// A float as a whole number times a power of two.
struct Parts
{
    explicit Parts(float x)
    {
        std::uint32_t const bits = std::bit_cast<std::uint32_t>(x);
        int const biased = int(bits >> 23 & 0xff);
        std::int64_t const mantissa = (bits & 0x7fffff) | (biased != 0 ? 0x800000 : 0);
        whole = bits >> 31 ? -mantissa : mantissa;
        exponent = std::max(biased, 1) - 150;
    }
    std::int64_t whole;
    int exponent;
};

int countOf(ImplicitPoint::Kind kind)
{
    return kind == ImplicitPoint::Kind::point ? 1 : 5;
}

/// The power of two of which all coordinates are multiples, if they then have few enough bits.
class NarrowScale
{
public:
    void include(ImplicitPoint const& point)
    {
        m_isNarrow &= point.kind != ImplicitPoint::Kind::threePlanes;
        for (int i = 0; m_isNarrow && i < countOf(point.kind); ++i)
            for (int k = 0; k < 3; ++k)
                include(Parts(point.points[std::size_t(i)][k]));
    }

    bool isNarrow() const { return m_isNarrow && m_top - m_exponent <= coordinateBits; }

    Whole operator()(UPoint3<float> const& p) const
    {
        Whole result;
        for (int k = 0; k < 3; ++k) {
            Parts const parts(p[k]);
            int const shift = parts.exponent - m_exponent;
            // What is shifted out is zeros.
            result[std::size_t(k)] = parts.whole == 0 ? 0
                                     : shift >= 0     ? parts.whole * (std::int64_t(1) << shift)
                                                      : parts.whole / (std::int64_t(1) << -shift);
        }
        return result;
    }

private:
    void include(Parts const& parts)
    {
        if (parts.whole == 0)
            return;
        auto const magnitude = std::uint64_t(std::abs(parts.whole));
        m_exponent = std::min(m_exponent, parts.exponent + std::countr_zero(magnitude));
        m_top = std::max(m_top, parts.exponent + int(std::bit_width(magnitude)));
    }

    int m_exponent = 1000;
    int m_top = -1000;
    bool m_isNarrow = true;
};

Whole minus(Whole const& a, Whole const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Normal cross(Whole const& a, Whole const& b)
{
    auto const minor = [&](std::size_t i, std::size_t j) {
        return DoubleWord(a[i]) * b[j] - DoubleWord(a[j]) * b[i];
    };
    return {minor(1, 2), minor(2, 0), minor(0, 1)};
}

Weight dot(Normal const& n, Whole const& v)
{
    auto const term = [&](std::size_t k) {
        return WideInteger<2>(n[k]) * WideInteger<1>(DoubleWord(v[k]));
    };
    return term(0) + term(1) + term(2);
}

/// The lower words of a product that is known to fit.
Weight times(Weight const& a, std::int64_t b)
{
    auto const product = (a * WideInteger<1>(DoubleWord(b))).wordsLowFirst();
    return Weight({product[0], product[1], product[2]});
}

Homogeneous placeOf(ImplicitPoint const& point, NarrowScale const& scale)
{
    Whole const p = scale(point.points[0]);
    Homogeneous result;
    if (point.kind == ImplicitPoint::Kind::point) {
        for (std::size_t k = 0; k < 3; ++k)
            result.place[k] = Weight(DoubleWord(p[k]));
        result.weight = Weight(DoubleWord(1));
        return result;
    }
    Whole const d = minus(scale(point.points[1]), p);
    Whole const a = scale(point.points[2]);
    Normal const normal = cross(minus(scale(point.points[3]), a), minus(scale(point.points[4]), a));
    Weight way = dot(normal, minus(a, p));
    result.weight = dot(normal, d);
    if (result.weight.isNegative()) {
        result.weight = -result.weight;
        way = -way;
    }
    for (std::size_t k = 0; k < 3; ++k)
        result.place[k] = times(result.weight, p[k]) + times(way, d[k]);
    return result;
}

}  // namespace

std::optional<int> narrowOrient2d(ImplicitPoint const& a, ImplicitPoint const& b,
                                  ImplicitPoint const& c, int droppedAxis)
{
    NarrowScale scale;
    for (ImplicitPoint const* const point : {&a, &b, &c})
        scale.include(*point);
    if (!scale.isNarrow())
        return {};
    std::size_t const i = std::size_t((droppedAxis + 1) % 3);
    std::size_t const j = std::size_t((droppedAxis + 2) % 3);
    Homogeneous const p = placeOf(a, scale), q = placeOf(b, scale), r = placeOf(c, scale);
    auto const minor = [&](Homogeneous const& s, Homogeneous const& t) {
        return s.place[i] * t.place[j] - s.place[j] * t.place[i];
    };
    // The determinant of the three as rows, all of positive weight.
    auto const determinant =
        minor(q, r) * p.weight - minor(p, r) * q.weight + minor(p, q) * r.weight;
    return determinant.sign();
}

std::optional<int> narrowCompare(ImplicitPoint const& a, ImplicitPoint const& b, int axis)
{
    NarrowScale scale;
    scale.include(a);
    scale.include(b);
    if (!scale.isNarrow())
        return {};
    std::size_t const k = std::size_t(axis);
    Homogeneous const p = placeOf(a, scale), q = placeOf(b, scale);
    return (q.place[k] * p.weight - p.place[k] * q.weight).sign();
}

std::optional<bool> areNarrowEqual(ImplicitPoint const& a, ImplicitPoint const& b)
{
    NarrowScale scale;
    scale.include(a);
    scale.include(b);
    if (!scale.isNarrow())
        return {};
    Homogeneous const p = placeOf(a, scale), q = placeOf(b, scale);
    for (std::size_t k = 0; k < 3; ++k)
        if ((q.place[k] * p.weight - p.place[k] * q.weight).sign() != 0)
            return false;
    return true;
}

}  // namespace Exact
