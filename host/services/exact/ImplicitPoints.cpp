// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ImplicitPoints.h"

#include <CGAL/Exact_rational.h>

#include <cmath>
#include <limits>

namespace Exact {
namespace {

using Number = CGAL::Exact_rational;
using Vector = std::array<Number, 3>;

Vector vectorOf(UPoint3<float> const& p)
{
    return {Number(double(p.X())), Number(double(p.Y())), Number(double(p.Z()))};
}

Vector minus(Vector const& a, Vector const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Number dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The plane n x = level.
struct Plane
{
    explicit Plane(UPoint3<float> const* points)
    {
        Vector const a = vectorOf(points[0]);
        normal = cross(minus(vectorOf(points[1]), a), minus(vectorOf(points[2]), a));
        level = dot(normal, a);
    }
    Vector normal;
    Number level;
};

Vector passage(UPoint3<float> const* points)
{
    Vector const p = vectorOf(points[0]);
    Vector const d = minus(vectorOf(points[1]), p);
    Plane const plane(points + 2);
    Number const t = (plane.level - dot(plane.normal, p)) / dot(plane.normal, d);
    return {p[0] + t * d[0], p[1] + t * d[1], p[2] + t * d[2]};
}

Vector commonPoint(UPoint3<float> const* points)
{
    Plane const a(points), b(points + 3), c(points + 6);
    Vector const bc = cross(b.normal, c.normal), ca = cross(c.normal, a.normal),
                 ab = cross(a.normal, b.normal);
    Number const volume = dot(a.normal, bc);
    Vector result;
    for (int i = 0; i < 3; ++i)
        result[i] = (a.level * bc[i] + b.level * ca[i] + c.level * ab[i]) / volume;
    return result;
}

Vector placeOf(ImplicitPoint const& point)
{
    switch (point.kind) {
        case ImplicitPoint::Kind::edgeThroughPlane:
            return passage(point.points.data());
        case ImplicitPoint::Kind::threePlanes:
            return commonPoint(point.points.data());
        case ImplicitPoint::Kind::point:
            break;
    }
    return vectorOf(point.points[0]);
}

/// The float nearest to a number.
float nearestFloat(Number const& number)
{
    float best = float(CGAL::to_double(number));
    auto const distance = [&](float f) { return CGAL::abs(Number(double(f)) - number); };
    for (float const direction :
         {-std::numeric_limits<float>::infinity(), std::numeric_limits<float>::infinity()}) {
        float const neighbour = std::nextafter(best, direction);
        if (distance(neighbour) < distance(best))
            best = neighbour;
    }
    return best;
}

}  // namespace

int orient2d(ImplicitPoint const& a, ImplicitPoint const& b, ImplicitPoint const& c,
             int droppedAxis)
{
    int const i = (droppedAxis + 1) % 3;
    int const j = (droppedAxis + 2) % 3;
    Vector const p = placeOf(a), q = placeOf(b), r = placeOf(c);
    return int(CGAL::sign((q[i] - p[i]) * (r[j] - p[j]) - (q[j] - p[j]) * (r[i] - p[i])));
}

int compare(ImplicitPoint const& a, ImplicitPoint const& b, int axis)
{
    return int(CGAL::sign(placeOf(b)[std::size_t(axis)] - placeOf(a)[std::size_t(axis)]));
}

bool areEqual(ImplicitPoint const& a, ImplicitPoint const& b)
{
    return placeOf(a) == placeOf(b);
}

RoundedPoint round(ImplicitPoint const& point)
{
    Vector const exact = placeOf(point);
    RoundedPoint rounded{};
    for (int i = 0; i < 3; ++i) {
        rounded.single[i] = nearestFloat(exact[i]);
        rounded.place[i] = CGAL::to_double(exact[i]);
        rounded.error = std::max(rounded.error, std::abs(rounded.place[i]) * 4.5e-16);
    }
    return rounded;
}

}  // namespace Exact
