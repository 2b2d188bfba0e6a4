// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/DividedFace.h"

#include <algorithm>

namespace {

using Number = DividedFace::Number;

/// Triangle 0, the face, is the first operand; each other one is a triangle of the second that may
/// cut it.
OperandSoup soupOf(WholeTriangle const& face, std::vector<WholeTriangle> const& cutters)
{
    OperandSoup soup;
    auto const add = [&](WholeTriangle const& t) {
        Number const first = soup.pointCount();
        soup.mesh.points.insert(soup.mesh.points.end(), t.begin(), t.end());
        soup.mesh.triangles.push_back({first, first + 1, first + 2});
    };
    add(face);
    soup.firstPointOfSecond = 3;
    soup.firstTriangleOfSecond = 1;
    for (WholeTriangle const& t : cutters)
        add(t);
    return soup;
}

int commonSide(TrianglePlace a, TrianglePlace b)
{
    for (int k = 0; k < 3; ++k)
        if (a.isOnEdge(k) && b.isOnEdge(k))
            return k;
    return -1;
}

void makeUnique(std::vector<Number>& numbers)
{
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

FaceSegment undirected(Number a, Number b)
{
    return {std::min(a, b), std::max(a, b)};
}

}  // namespace

DividedFace::DividedFace(WholeTriangle const& face, std::vector<WholeTriangle> const& cutters,
                         std::function<void(int)> polled, FaceTriangulation::Limits limits)
    : m_soup(soupOf(face, cutters)),
      m_points(m_soup),
      m_polled(std::move(polled)),
      m_triangulation(m_soup, m_points, m_progress, limits)
{
    while (m_axis < 2 && normalOf(face)[std::size_t(m_axis)] == 0)
        ++m_axis;
    m_facing = signOf(normalOf(face)[std::size_t(m_axis)]);
    for (Number t = 1; t < m_soup.triangleCount(); ++t)
        addContact(t);
    for (auto& points : m_onEdges)
        makeUnique(points);
    makeUnique(m_inside);
    sortAlongSides();
}

bool DividedFace::divide()
{
    facets = {};
    faults = {};
    m_segments.clear();
    for (auto const& [segment, cutter] : m_cutters)
        m_segments.push_back(segment);
    Face face;
    for (std::size_t k = 0; k < 3; ++k) {
        face.corners[k] = cornerAt(k);
        face.onEdges[k] = m_onEdges[k];
    }
    face.inside = m_inside;
    face.segments = m_segments;
    return m_triangulation.divide(face, facets, faults);
}

void DividedFace::mend()
{
    for (FaceFaults::Break const& fault : faults.breaks)
        breakSegment(fault.segment, fault.point);
    for (FaceFaults::Crossing const& fault : faults.crossings) {
        if (!m_cutters.contains(fault.first) || !m_cutters.contains(fault.second))
            continue;
        Number const point =
            m_points.addCrossing({0, m_cutters.at(fault.first), m_cutters.at(fault.second)});
        m_inside.push_back(point);
        breakSegment(fault.first, point);
        breakSegment(fault.second, point);
    }
    makeUnique(m_inside);
}

bool DividedFace::isWithin(Number point, FaceSegment const& segment) const
{
    if (orient(segment.from, segment.to, point) != 0)
        return false;
    for (int axis = 0; axis < 3; ++axis) {
        int const order = compare(segment.from, segment.to, axis);
        if (order != 0)
            return compare(segment.from, point, axis) == order &&
                   compare(point, segment.to, axis) == order;
    }
    return false;
}

bool DividedFace::doCross(FaceSegment const& s, FaceSegment const& t) const
{
    return orient(s.from, s.to, t.from) * orient(s.from, s.to, t.to) < 0 &&
           orient(t.from, t.to, s.from) * orient(t.from, t.to, s.to) < 0;
}

bool DividedFace::isFaulty() const
{
    std::vector<Number> const points = allPoints();
    return std::any_of(m_segments.begin(), m_segments.end(), [&](FaceSegment const& s) {
        return std::any_of(points.begin(), points.end(),
                           [&](Number p) { return isWithin(p, s); }) ||
               std::any_of(m_segments.begin(), m_segments.end(),
                           [&](FaceSegment const& t) { return doCross(s, t); });
    });
}

std::vector<DividedFace::Number> DividedFace::allPoints() const
{
    std::vector<Number> all = m_inside;
    for (std::size_t k = 0; k < 3; ++k) {
        all.push_back(cornerAt(k));
        all.insert(all.end(), m_onEdges[k].begin(), m_onEdges[k].end());
    }
    makeUnique(all);
    return all;
}

std::set<DividedFace::Edge> DividedFace::sides() const
{
    std::vector<Number> round;
    for (std::size_t k = 0; k < 3; ++k) {
        round.push_back(cornerAt(k));
        round.insert(round.end(), m_onEdges[k].begin(), m_onEdges[k].end());
    }
    std::set<Edge> result;
    for (std::size_t i = 0; i < round.size(); ++i)
        result.emplace(round[i], round[(i + 1) % round.size()]);
    return result;
}

double DividedFace::area(Number a, Number b, Number c) const
{
    auto const p = m_points.estimate(a).place, q = m_points.estimate(b).place,
               r = m_points.estimate(c).place;
    std::size_t const i = std::size_t(m_axis + 1) % 3, j = std::size_t(m_axis + 2) % 3;
    return m_facing * ((q[i] - p[i]) * (r[j] - p[j]) - (q[j] - p[j]) * (r[i] - p[i]));
}

int DividedFace::orient(Number a, Number b, Number c) const
{
    return m_facing *
           Exact::orient2d(m_points.exact(a), m_points.exact(b), m_points.exact(c), m_axis);
}

void DividedFace::addContact(Number cutter)
{
    auto const cornersOf = [&](Number t) {
        return TriangleCorners{m_soup.mesh.point(t, 0), m_soup.mesh.point(t, 1),
                               m_soup.mesh.point(t, 2)};
    };
    TriangleContact const contact = contactOf(cornersOf(0), cornersOf(cutter));
    Number ends[2];
    for (std::size_t i = 0; i < std::size_t(contact.count); ++i) {
        TrianglePlace const place = contact.points[i].inFirst;
        ends[i] = m_points.add(contact.points[i], 0, cutter);
        if (place.isFace())
            m_inside.push_back(ends[i]);
        if (place.isEdge())
            m_onEdges[std::size_t(place.index())].push_back(ends[i]);
    }
    if (contact.count == 2 && commonSide(contact.points[0].inFirst, contact.points[1].inFirst) < 0)
        m_cutters.try_emplace(undirected(ends[0], ends[1]), cutter);
}

void DividedFace::sortAlongSides()
{
    for (std::size_t k = 0; k < 3; ++k) {
        Number const from = cornerAt(k), to = cornerAt((k + 1) % 3);
        int axis = 0;
        while (compare(from, to, axis) == 0)
            ++axis;
        int const order = compare(from, to, axis);
        std::sort(m_onEdges[k].begin(), m_onEdges[k].end(),
                  [&](Number a, Number b) { return compare(a, b, axis) == order; });
    }
}

void DividedFace::breakSegment(FaceSegment const& segment, Number point)
{
    auto const found = m_cutters.find(segment);
    if (found == m_cutters.end() || point == segment.from || point == segment.to)
        return;
    Number const cutter = found->second;
    m_cutters.erase(found);
    m_cutters.try_emplace(undirected(segment.from, point), cutter);
    m_cutters.try_emplace(undirected(point, segment.to), cutter);
}
