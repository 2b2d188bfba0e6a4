// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ImplicitPoints.h"

#include "host/services/exact/NarrowSigns.h"

#include <CGAL/Exact_integer.h>
#include <CGAL/Exact_rational.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace Exact {
namespace {

using Integer = CGAL::Exact_integer;
using Number = CGAL::Exact_rational;
using Vector = std::array<Integer, 3>;

/// A point as three numerators over one denominator, which is above zero. Integers without common
/// factors taken out are several times faster than fractions.
struct Homogeneous
{
    Vector place;
    Integer weight;
};

/// The power of two of which all coordinates of some points are multiples.
class Scale
{
public:
    void include(ImplicitPoint const& point)
    {
        for (int i = 0; i < countOf(point.kind); ++i)
            for (int k = 0; k < 3; ++k)
                include(point.points[std::size_t(i)][k]);
    }

    Vector operator()(UPoint3<float> const& p) const
    {
        Vector v;
        for (int k = 0; k < 3; ++k)
            v[std::size_t(k)] = Integer(std::ldexp(double(p[k]), -m_exponent));
        return v;
    }

    int exponent() const { return m_exponent; }

private:
    static int countOf(ImplicitPoint::Kind kind)
    {
        return kind == ImplicitPoint::Kind::point              ? 1
               : kind == ImplicitPoint::Kind::edgeThroughPlane ? 5
                                                               : 9;
    }

    void include(float x)
    {
        if (x == 0)
            return;
        int exponent = 0;
        float const mantissa = std::frexp(x, &exponent);
        int const bits = int(std::abs(mantissa) * 0x1p24f);
        m_exponent = std::min(m_exponent, exponent - 24 + __builtin_ctz(unsigned(bits)));
    }

    int m_exponent = 128;
};

Vector minus(Vector const& a, Vector const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Integer dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The plane n x = level.
struct Plane
{
    Plane(UPoint3<float> const* points, Scale const& scale)
    {
        Vector const a = scale(points[0]);
        normal = cross(minus(scale(points[1]), a), minus(scale(points[2]), a));
        level = dot(normal, a);
    }
    Vector normal;
    Integer level;
};

Homogeneous passage(UPoint3<float> const* points, Scale const& scale)
{
    Vector const p = scale(points[0]);
    Vector const d = minus(scale(points[1]), p);
    Plane const plane(points + 2, scale);
    Integer const way = plane.level - dot(plane.normal, p);
    Integer const whole = dot(plane.normal, d);
    return {{p[0] * whole + way * d[0], p[1] * whole + way * d[1], p[2] * whole + way * d[2]},
            whole};
}

Homogeneous commonPoint(UPoint3<float> const* points, Scale const& scale)
{
    Plane const a(points, scale), b(points + 3, scale), c(points + 6, scale);
    Vector const bc = cross(b.normal, c.normal), ca = cross(c.normal, a.normal),
                 ab = cross(a.normal, b.normal);
    Homogeneous result;
    result.weight = dot(a.normal, bc);
    for (std::size_t i = 0; i < 3; ++i)
        result.place[i] = a.level * bc[i] + b.level * ca[i] + c.level * ab[i];
    return result;
}

Homogeneous placeOf(ImplicitPoint const& point, Scale const& scale)
{
    Homogeneous result;
    switch (point.kind) {
        case ImplicitPoint::Kind::edgeThroughPlane:
            result = passage(point.points.data(), scale);
            break;
        case ImplicitPoint::Kind::threePlanes:
            result = commonPoint(point.points.data(), scale);
            break;
        case ImplicitPoint::Kind::point:
            return {scale(point.points[0]), Integer(1)};
    }
    if (CGAL::sign(result.weight) == CGAL::NEGATIVE) {
        for (Integer& x : result.place)
            x = -x;
        result.weight = -result.weight;
    }
    return result;
}

template <typename... Points>
Scale commonScale(Points const&... points)
{
    Scale scale;
    (scale.include(points), ...);
    return scale;
}

Number distance(float f, Number const& number)
{
    return CGAL::abs(Number(double(f)) - number);
}

/// The float nearest to a number.
float nearestFloat(Number const& number)
{
    float best = float(CGAL::to_double(number));
    for (float const direction :
         {-std::numeric_limits<float>::infinity(), std::numeric_limits<float>::infinity()}) {
        float const neighbour = std::nextafter(best, direction);
        if (std::isfinite(neighbour) && distance(neighbour, number) < distance(best, number))
            best = neighbour;
    }
    return best;
}

/// A power of two, exactly.
Number powerOfTwo(int exponent)
{
    Number result(1);
    for (; exponent >= 64; exponent -= 64)
        result *= Number(0x1p64);
    for (; exponent <= -64; exponent += 64)
        result *= Number(0x1p-64);
    return result * Number(std::ldexp(1.0, exponent));
}

}  // namespace

int orient2d(ImplicitPoint const& a, ImplicitPoint const& b, ImplicitPoint const& c,
             int droppedAxis)
{
    if (auto const sign = narrowOrient2d(a, b, c, droppedAxis))
        return *sign;
    std::size_t const i = std::size_t((droppedAxis + 1) % 3);
    std::size_t const j = std::size_t((droppedAxis + 2) % 3);
    Scale const scale = commonScale(a, b, c);
    Homogeneous const p = placeOf(a, scale), q = placeOf(b, scale), r = placeOf(c, scale);
    // The determinant of the three as rows, all of positive weight.
    Integer const determinant = p.weight * (q.place[i] * r.place[j] - q.place[j] * r.place[i]) -
                                q.weight * (p.place[i] * r.place[j] - p.place[j] * r.place[i]) +
                                r.weight * (p.place[i] * q.place[j] - p.place[j] * q.place[i]);
    return int(CGAL::sign(determinant));
}

int compare(ImplicitPoint const& a, ImplicitPoint const& b, int axis)
{
    if (auto const sign = narrowCompare(a, b, axis))
        return *sign;
    std::size_t const k = std::size_t(axis);
    Scale const scale = commonScale(a, b);
    Homogeneous const p = placeOf(a, scale), q = placeOf(b, scale);
    return int(CGAL::sign(Integer(q.place[k] * p.weight - p.place[k] * q.weight)));
}

bool areEqual(ImplicitPoint const& a, ImplicitPoint const& b)
{
    if (auto const answer = areNarrowEqual(a, b))
        return *answer;
    Scale const scale = commonScale(a, b);
    Homogeneous const p = placeOf(a, scale), q = placeOf(b, scale);
    for (std::size_t k = 0; k < 3; ++k)
        if (q.place[k] * p.weight != p.place[k] * q.weight)
            return false;
    return true;
}

RoundedPoint round(ImplicitPoint const& point)
{
    Scale const scale = commonScale(point);
    Homogeneous const exact = placeOf(point, scale);
    Number const unit = powerOfTwo(scale.exponent());
    RoundedPoint rounded{};
    for (int i = 0; i < 3; ++i) {
        Number const x = Number(exact.place[std::size_t(i)]) * unit / Number(exact.weight);
        rounded.single[i] = nearestFloat(x);
        rounded.place[std::size_t(i)] = CGAL::to_double(x);
        rounded.error = std::max(rounded.error, std::abs(rounded.place[std::size_t(i)]) * 4.5e-16);
    }
    return rounded;
}

}  // namespace Exact
