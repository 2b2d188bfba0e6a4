// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/CurvePoints.h"

#include "host/mesh/ExactSigns.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::uint32_t none = 0xffffffff;
constexpr double halfUlp = 1.1102230246251565e-16;

using Corners = MeshArrays::Corners;

std::uint64_t keyIn(TrianglePlace place, Corners const& corners, std::uint32_t triangle)
{
    constexpr std::uint64_t vertexMark = std::uint64_t(1) << 62;
    constexpr std::uint64_t faceMark = std::uint64_t(2) << 62;
    int const k = place.index();
    if (place.isCorner())
        return vertexMark | corners[k];
    if (place.isFace())
        return faceMark | triangle;
    auto const [low, high] = std::minmax(corners[k], corners[(k + 1) % 3]);
    return std::uint64_t(low) << 31 | high;
}

struct Vector
{
    double x, y, z;
};

Vector offset(UPoint3<float> const& from, UPoint3<float> const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

/// A volume with a bound for its error.
struct Volume
{
    double value;
    double error;
};

/// Six times the volume between a triangle and a point, as ExactSigns::orient3d filters it.
Volume volumeOf(UPoint3<float> const& a, Vector const& u, Vector const& v, UPoint3<float> const& d)
{
    Vector const w = offset(a, d);
    double const value = w.x * (u.y * v.z - u.z * v.y) + w.y * (u.z * v.x - u.x * v.z) +
                         w.z * (u.x * v.y - u.y * v.x);
    double const magnitude = std::abs(w.x) * (std::abs(u.y * v.z) + std::abs(u.z * v.y)) +
                             std::abs(w.y) * (std::abs(u.z * v.x) + std::abs(u.x * v.z)) +
                             std::abs(w.z) * (std::abs(u.x * v.y) + std::abs(u.y * v.x));
    return {value, 12 * halfUlp * magnitude};
}

/// Where the edge from p to q, whose ends lie on different sides, passes through a plane.
CurvePoints::Estimate passage(UPoint3<float> const& p, UPoint3<float> const& q,
                              UPoint3<float> const& a, UPoint3<float> const& b,
                              UPoint3<float> const& c)
{
    Vector const u = offset(a, b), v = offset(a, c), d = offset(p, q);
    Volume const atP = volumeOf(a, u, v, p), atQ = volumeOf(a, u, v, q);
    // From the nearer end, so that a point near a vertex is told well.
    bool const isFromP = std::abs(atP.value) <= std::abs(atQ.value);
    double const whole = atP.value - atQ.value;
    double const t = isFromP ? atP.value / whole : atQ.value / whole;
    UPoint3<float> const& origin = isFromP ? p : q;
    CurvePoints::Estimate estimate{
        {origin.X() + t * d.x, origin.Y() + t * d.y, origin.Z() + t * d.z}, 0};
    double const extent = std::max({std::abs(d.x), std::abs(d.y), std::abs(d.z)});
    double const volumeError = 2 * (atP.error + atQ.error);
    double const size = std::max(
        {std::abs(estimate.place[0]), std::abs(estimate.place[1]), std::abs(estimate.place[2])});
    double const span = std::abs(whole) - volumeError;
    estimate.error = span > 0 ? extent * (volumeError / span + 8 * halfUlp) + 4 * halfUlp * size
                              : extent + 4 * halfUlp * size;
    return estimate;
}

/// True if all coordinates within the error round to the same float.
bool isRoundingSafe(CurvePoints::Estimate const& e)
{
    return std::all_of(e.place.begin(), e.place.end(),
                       [&](double x) { return float(x - e.error) == float(x + e.error); });
}

}  // namespace

CurvePoints::CurvePoints(OperandSoup const& soup)
    : m_soup(soup), m_standIns(soup.pointCount()), m_isOnCurve(soup.pointCount(), false)
{
    for (std::uint32_t i = 0; i < soup.pointCount(); ++i)
        m_standIns[i] = i;
}

void CurvePoints::reserve(std::size_t points)
{
    m_points.reserve(points);
    m_byKey = FlatMap<Key, KeyHash>(points);
    m_byPlace = PointsByPlace(points);
}

std::uint32_t CurvePoints::add(TriangleContact::Point const& point, std::uint32_t first,
                               std::uint32_t second)
{
    if (point.inFirst.isCorner() && point.inSecond.isCorner()) {
        std::uint32_t const vertex = addVertex(m_soup.corners(first)[point.inFirst.index()]);
        addVertex(m_soup.corners(second)[point.inSecond.index()]);
        return vertex;
    }
    if (point.inFirst.isCorner())
        return addVertex(m_soup.corners(first)[point.inFirst.index()]);
    if (point.inSecond.isCorner())
        return addVertex(m_soup.corners(second)[point.inSecond.index()]);
    Key const key{keyIn(point.inFirst, m_soup.corners(first), first),
                  keyIn(point.inSecond, m_soup.corners(second), second)};
    if (std::uint32_t const known = m_byKey.find(key); known != none)
        return known;
    std::uint32_t const number = addNew(define(point, first, second));
    m_byKey[key] = number;
    return number;
}

void CurvePoints::finish()
{
    m_byKey = FlatMap<Key, KeyHash>(0);
    m_byPlace = PointsByPlace(0);
    m_nextAtPlace = {};
    m_points.shrink_to_fit();
}

std::uint32_t CurvePoints::addCrossing(std::array<std::uint32_t, 3> const& triangles)
{
    Definition definition;
    std::copy(triangles.begin(), triangles.end(), definition.sources.begin());
    definition.origin = Origin::crossing;
    return addNew(definition);
}

std::uint32_t CurvePoints::addPassage(Edge const& edge, std::uint32_t triangle)
{
    return addNew(passageOf(edge, triangle));
}

std::uint32_t CurvePoints::addMeeting(Edge const& first, Edge const& second)
{
    return addNew(meetingOf(first, second));
}

CurvePoints::Definition CurvePoints::define(TriangleContact::Point const& point,
                                            std::uint32_t first, std::uint32_t second) const
{
    auto const edgeAt = [&](std::uint32_t triangle, TrianglePlace place) -> Edge {
        Corners const& corners = m_soup.corners(triangle);
        return {corners[std::size_t(place.index())], corners[std::size_t((place.index() + 1) % 3)]};
    };
    if (point.isInOnePlane)
        return meetingOf(edgeAt(first, point.inFirst), edgeAt(second, point.inSecond));
    if (point.isEdgeOfFirst)
        return passageOf(edgeAt(first, point.inFirst), second);
    return passageOf(edgeAt(second, point.inSecond), first);
}

CurvePoints::Definition CurvePoints::passageOf(Edge const& edge, std::uint32_t triangle)
{
    auto const [p, q] = std::minmax(edge[0], edge[1]);
    Definition definition;
    definition.sources = {p, q, triangle};
    return definition;
}

CurvePoints::Definition CurvePoints::meetingOf(Edge const& first, Edge const& second)
{
    auto const [p, q] = std::minmax(first[0], first[1]);
    auto const [a, b] = std::minmax(second[0], second[1]);
    Definition definition;
    definition.sources = {p, q, a, b};
    definition.origin = Origin::meeting;
    return definition;
}

/// A point that spans a plane with the second of two edges, through which the first passes.
UPoint3<float> CurvePoints::besidePlane(Definition const& meeting) const
{
    std::array<UPoint3<float>, 4> ends;
    float largest = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        ends[i] = m_soup.mesh.points[meeting.sources[i]];
        for (int axis = 0; axis < 3; ++axis)
            largest = std::max(largest, std::abs(ends[i][axis]));
    }
    Vector const u = offset(ends[0], ends[1]), v = offset(ends[2], ends[3]);
    std::array<double, 3> const normal{std::abs(u.y * v.z - u.z * v.y),
                                       std::abs(u.z * v.x - u.x * v.z),
                                       std::abs(u.x * v.y - u.y * v.x)};
    int axis = int(std::max_element(normal.begin(), normal.end()) - normal.begin());
    for (int tries = 0; tries < 2 && ExactSigns::orient2d(ends[2], ends[3], ends[0], axis) == 0;
         ++tries)
        axis = (axis + 1) % 3;
    UPoint3<float> beside = ends[2];
    beside[axis] = beside[axis] == 0 ? largest : 0;
    return beside;
}

/// Fills in the coordinates of a definition.
void CurvePoints::locate(Definition& definition) const
{
    if (definition.origin != Origin::crossing) {
        auto const p = exact(definition).points;
        definition.estimate = passage(p[0], p[1], p[2], p[3], p[4]);
        if (isRoundingSafe(definition.estimate)) {
            auto const& place = definition.estimate.place;
            definition.rounded = {float(place[0]), float(place[1]), float(place[2])};
            return;
        }
    }
    Exact::RoundedPoint const rounded = Exact::round(exact(definition));
    definition.rounded = rounded.single;
    definition.estimate = {rounded.place, rounded.error};
}

std::uint32_t CurvePoints::addVertex(std::uint32_t vertex)
{
    if (m_isOnCurve[vertex])
        return m_standIns[vertex];
    m_isOnCurve[vertex] = true;
    std::uint32_t& first = m_byPlace[placeKey(m_soup.mesh.points[vertex])];
    for (std::uint32_t p = first; p != none; p = m_nextAtPlace[p]) {
        if (p >= m_soup.pointCount() && !Exact::areEqual(exact(p), exact(vertex)))
            continue;
        return m_standIns[vertex] = p;
    }
    m_nextAtPlace.resize(std::max<std::size_t>(m_nextAtPlace.size(), size()), none);
    m_nextAtPlace[vertex] = first;
    first = vertex;
    return vertex;
}

std::uint32_t CurvePoints::addNew(Definition definition)
{
    locate(definition);
    std::uint32_t& first = m_byPlace[placeKey(definition.rounded)];
    if (first != none) {
        Exact::ImplicitPoint const point = exact(definition);
        for (std::uint32_t p = first; p != none; p = m_nextAtPlace[p])
            if (Exact::areEqual(exact(p), point))
                return p;
    }
    std::uint32_t const number = size();
    m_points.push_back(definition);
    m_nextAtPlace.resize(size(), none);
    m_nextAtPlace[number] = first;
    first = number;
    return number;
}

Exact::ImplicitPoint CurvePoints::exact(std::uint32_t point) const
{
    if (point >= m_soup.pointCount())
        return exact(m_points[point - m_soup.pointCount()]);
    Exact::ImplicitPoint implicit;
    implicit.kind = Exact::ImplicitPoint::Kind::point;
    implicit.points[0] = m_soup.mesh.points[point];
    return implicit;
}

Exact::ImplicitPoint CurvePoints::exact(Definition const& definition) const
{
    auto const& points = m_soup.mesh.points;
    auto const& sources = definition.sources;
    Exact::ImplicitPoint implicit;
    std::size_t next = 0;
    auto const appendPlane = [&](std::uint32_t triangle) {
        for (std::uint32_t const corner : m_soup.corners(triangle))
            implicit.points[next++] = points[corner];
    };
    if (definition.origin == Origin::crossing) {
        implicit.kind = Exact::ImplicitPoint::Kind::threePlanes;
        for (std::size_t i = 0; i < 3; ++i)
            appendPlane(sources[i]);
        return implicit;
    }
    implicit.kind = Exact::ImplicitPoint::Kind::edgeThroughPlane;
    implicit.points[next++] = points[sources[0]];
    implicit.points[next++] = points[sources[1]];
    if (definition.origin == Origin::passage) {
        appendPlane(sources[2]);
        return implicit;
    }
    implicit.points[next++] = points[sources[2]];
    implicit.points[next++] = points[sources[3]];
    implicit.points[next++] = besidePlane(definition);
    return implicit;
}
