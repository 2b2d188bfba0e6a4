// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/Arrangement.h"

#include "host/services/Polling.h"
#include "host/services/exact/PlaneDivision.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/box_intersection_d.h>

#include <algorithm>

namespace {

// Coordinates of floats are exact in double, so these predicates are exact on the input.
using InputKernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Box = CGAL::Box_intersection_d::Box_with_info_d<double, 3, std::uint32_t>;

InputKernel::Point_3 inputPoint(MeshArrays::Point const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

InputKernel::Triangle_3 inputTriangle(MeshArrays const& soup, std::uint32_t t)
{
    return {inputPoint(soup.point(t, 0)), inputPoint(soup.point(t, 1)),
            inputPoint(soup.point(t, 2))};
}

Box boxOf(MeshArrays const& soup, std::uint32_t t)
{
    return {inputTriangle(soup, t).bbox(), t};
}

/// The places of the corners that two triangles share.
std::vector<std::pair<int, int>> sharedCorners(MeshArrays::Corners const& t,
                                               MeshArrays::Corners const& u)
{
    std::vector<std::pair<int, int>> shared;
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k)
            if (t[i] == u[k])
                shared.emplace_back(i, k);
    return shared;
}

std::pair<std::uint32_t, std::uint32_t> ordered(std::uint32_t a, std::uint32_t b)
{
    return {std::min(a, b), std::max(a, b)};
}

}  // namespace

Arrangement::Arrangement(MeshArrays const& soup, std::uint32_t firstOfSecond,
                         StageProgress& progress)
    : m_soup(soup), m_firstOfSecond(firstOfSecond), m_progress(progress)
{
    findPairs();
    shareEdgePoints();
    divideAll();
}

Arrangement::Point Arrangement::point(std::uint32_t id) const
{
    if (id >= m_soup.points.size())
        return m_made[id - m_soup.points.size()];
    MeshArrays::Point const& p = m_soup.points[id];
    return {p.X(), p.Y(), p.Z()};
}

ExactKernel::Triangle_3 Arrangement::exactTriangle(Triangle t) const
{
    auto const& c = m_soup.triangles[t];
    return {point(c[0]), point(c[1]), point(c[2])};
}

std::uint32_t Arrangement::idOf(Point const& point)
{
    auto const [place, isNew] = m_ids.try_emplace(point, std::uint32_t(pointCount()));
    if (isNew)
        m_made.push_back(point);
    return place->second;
}

std::vector<Arrangement::Triangle> Arrangement::trianglesOfFirstThatMeet()
{
    std::vector<Box> first, second;
    Polling polling(m_progress);
    for (Triangle t = 0; t < m_soup.triangles.size(); ++t, polling.step())
        (t < m_firstOfSecond ? first : second).push_back(boxOf(m_soup, t));
    std::vector<std::uint8_t> meets(m_firstOfSecond, 0);
    CGAL::box_intersection_d(
        first.begin(), first.end(), second.begin(), second.end(), [&](Box const& a, Box const& b) {
            m_progress.add(0);
            if (!meets[a.info()] && CGAL::do_intersect(inputTriangle(m_soup, a.info()),
                                                       inputTriangle(m_soup, b.info())))
                meets[a.info()] = 1;
        });
    std::vector<Triangle> triangles;
    for (Triangle t = 0; t < m_firstOfSecond; ++t)
        if (meets[t])
            triangles.push_back(t);
    return triangles;
}

void Arrangement::findPairs()
{
    std::vector<Triangle> involved = trianglesOfFirstThatMeet();
    for (Triangle t = m_firstOfSecond; t < m_soup.triangles.size(); ++t)
        involved.push_back(t);
    std::vector<Box> boxes;
    Polling polling(m_progress);
    for (Triangle t : involved) {
        polling.step();
        boxes.push_back(boxOf(m_soup, t));
        for (std::uint32_t corner : m_soup.triangles[t])
            m_ids.try_emplace(point(corner), corner);
    }
    std::vector<std::pair<Triangle, Triangle>> pairs;
    CGAL::box_self_intersection_d(boxes.begin(), boxes.end(), [&](Box const& a, Box const& b) {
        m_progress.add(0);
        if (canMeet(a.info(), b.info()))
            pairs.push_back(ordered(a.info(), b.info()));
    });
    // The library's order depends on addresses.
    std::sort(pairs.begin(), pairs.end());
    m_progress.setAmount(pairs.size());
    for (auto const& [t, u] : pairs) {
        m_progress.add(1);
        intersect(t, u);
    }
}

/// Leaves out most neighbours, which meet in their common edge or corner only.
bool Arrangement::canMeet(Triangle t, Triangle u) const
{
    auto const& ct = m_soup.triangles[t];
    auto const& cu = m_soup.triangles[u];
    auto const shared = sharedCorners(ct, cu);
    auto const at = [&](std::uint32_t id) { return inputPoint(m_soup.points[id]); };
    if (shared.size() == 2) {
        auto const a = at(ct[shared[0].first]), b = at(ct[shared[1].first]);
        auto const p = at(ct[3 - shared[0].first - shared[1].first]);
        auto const q = at(cu[3 - shared[0].second - shared[1].second]);
        return CGAL::coplanar(a, b, p, q) &&
               CGAL::coplanar_orientation(a, b, p, q) == CGAL::POSITIVE;
    }
    auto const first = inputTriangle(m_soup, t), second = inputTriangle(m_soup, u);
    if (shared.size() == 1) {
        auto const [i, k] = shared[0];
        return CGAL::do_intersect(InputKernel::Segment_3(first[i + 1], first[i + 2]), second) ||
               CGAL::do_intersect(InputKernel::Segment_3(second[k + 1], second[k + 2]), first);
    }
    return shared.size() == 3 || CGAL::do_intersect(first, second);
}

void Arrangement::intersect(Triangle t, Triangle u)
{
    auto const found = CGAL::intersection(exactTriangle(t), exactTriangle(u));
    if (!found)
        return;
    if (auto const* const common = boost::get<Point>(&*found)) {
        std::uint32_t const id = idOf(*common);
        m_divisions[t].points.push_back(id);
        m_divisions[u].points.push_back(id);
    } else if (auto const* const segment = boost::get<ExactKernel::Segment_3>(&*found)) {
        // Braces: of arguments each compiler would number another one first.
        Edge const edge{idOf(segment->source()), idOf(segment->target())};
        m_divisions[t].segments.push_back(edge);
        m_divisions[u].segments.push_back(edge);
    } else if (auto const* const triangle = boost::get<ExactKernel::Triangle_3>(&*found)) {
        addPolygon(t, u, {triangle->vertex(0), triangle->vertex(1), triangle->vertex(2)});
    } else if (auto const* const polygon = boost::get<std::vector<Point>>(&*found)) {
        addPolygon(t, u, *polygon);
    }
}

void Arrangement::addPolygon(Triangle t, Triangle u, std::vector<Point> const& corners)
{
    for (std::size_t i = 0; i < corners.size(); ++i) {
        Edge const edge{idOf(corners[i]), idOf(corners[(i + 1) % corners.size()])};
        m_divisions[t].segments.push_back(edge);
        m_divisions[u].segments.push_back(edge);
    }
    m_divisions[t].overlaps.push_back(u);
    m_divisions[u].overlaps.push_back(t);
}

/// Points on an edge of one triangle divide all triangles at that edge.
void Arrangement::shareEdgePoints()
{
    for (auto const& [t, division] : m_divisions) {
        m_progress.add(0);
        for (std::uint32_t id : division.points)
            addEdgePoint(t, id);
        for (auto const& [from, to] : division.segments) {
            addEdgePoint(t, from);
            addEdgePoint(t, to);
        }
    }
    if (m_edgePoints.empty())
        return;
    Polling polling(m_progress);
    for (Triangle t = 0; t < m_soup.triangles.size(); ++t) {
        polling.step();
        auto const& c = m_soup.triangles[t];
        for (int k = 0; k < 3; ++k)
            if (auto const found = m_edgePoints.find(ordered(c[k], c[(k + 1) % 3]));
                found != m_edgePoints.end()) {
                auto& points = m_divisions[t].points;
                points.insert(points.end(), found->second.begin(), found->second.end());
            }
    }
}

void Arrangement::addEdgePoint(Triangle t, std::uint32_t id)
{
    auto const& c = m_soup.triangles[t];
    if (id == c[0] || id == c[1] || id == c[2])
        return;
    Point const p = point(id);
    for (int k = 0; k < 3; ++k) {
        std::uint32_t const a = c[k], b = c[(k + 1) % 3];
        if (!CGAL::collinear(point(a), point(b), p))
            continue;
        auto& points = m_edgePoints[ordered(a, b)];
        if (std::find(points.begin(), points.end(), id) == points.end())
            points.push_back(id);
        return;
    }
}

void Arrangement::divideAll()
{
    m_progress.setAmount(m_divisions.size());
    Polling polling(m_progress);
    auto next = m_divisions.begin();
    for (Triangle t = 0; t < m_soup.triangles.size(); ++t) {
        if (next == m_divisions.end() || next->first != t) {
            polling.step();
            m_facets.push_back({m_soup.triangles[t], t});
            continue;
        }
        m_progress.add(1);
        divide(t, next->second);
        ++next;
    }
}

void Arrangement::divide(Triangle t, Division const& division)
{
    PlaneDivision plane(exactTriangle(t));
    for (std::uint32_t corner : m_soup.triangles[t])
        plane.addPoint(point(corner), corner);
    for (std::uint32_t id : division.points)
        plane.addPoint(point(id), id);
    for (auto const& [from, to] : division.segments)
        plane.addSegment(point(from), from, point(to), to);
    for (MeshArrays::Corners const& corners :
         plane.triangles([this](Point const& made) { return idOf(made); }))
        if (!isForAnother(corners, t, division))
            m_facets.push_back({corners, t});
}

bool Arrangement::isForAnother(MeshArrays::Corners const& corners, Triangle t,
                               Division const& division) const
{
    auto const centre = CGAL::centroid(point(corners[0]), point(corners[1]), point(corners[2]));
    return std::any_of(division.overlaps.begin(), division.overlaps.end(), [&](Triangle other) {
        return other < t && exactTriangle(other).has_on(centre);
    });
}
