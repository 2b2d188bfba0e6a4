// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/FaceTriangulation.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/boolean/CornerOrder.h"
#include "host/services/boolean/CurveOrder.h"

#include <algorithm>
#include <cmath>

bool FaceTriangulation::divide(Face const& face, Facets& facets, FaceFaults& faults)
{
    begin(face);
    for (int side = 0; side < 3; ++side)
        if (!addEdgePoints(face, side))
            return false;
    if (!addInnerPoints(face.inside))
        return false;
    if (m_places.size() > 6)
        improve();
    m_locals.clear();
    for (std::size_t i = 0; i < m_places.size(); ++i)
        m_locals.emplace_back(m_places[i].number, int(i));
    std::sort(m_locals.begin(), m_locals.end());
    for (std::size_t i = 0; i < face.segments.size(); ++i)
        if (!addSegment(int(i), face.segments[i], face, faults))
            return false;
    improve();
    if (m_isLeft)
        return false;
    write(face.triangle, facets);
    return true;
}

bool FaceTriangulation::goesOn()
{
    // An exact step takes some microseconds.
    constexpr unsigned interval = 256;
    if (++m_steps % interval == 0 && !m_progress.add(0))
        m_isLeft = true;
    return !m_isLeft;
}

/// Picks the coordinates in which the face has an area, the largest if rounding does not mislead.
void FaceTriangulation::chooseView(std::uint32_t triangle)
{
    auto const& p = m_soup.mesh;
    UPoint3<float> const a = p.point(triangle, 0), b = p.point(triangle, 1),
                         c = p.point(triangle, 2);
    ExactSigns::Offset const u(a, b), v(a, c);
    std::array<double, 3> const normal{std::abs(u.y * v.z - u.z * v.y),
                                       std::abs(u.z * v.x - u.x * v.z),
                                       std::abs(u.x * v.y - u.y * v.x)};
    m_axis = int(std::max_element(normal.begin(), normal.end()) - normal.begin());
    int facing = 0;
    for (int tries = 0; tries < 3 && facing == 0; ++tries) {
        if (tries > 0)
            m_axis = next(m_axis);
        facing = ExactSigns::orient2d(a, b, c, m_axis);
    }
    m_isTurned = facing < 0;
}

FaceTriangulation::Place FaceTriangulation::placeOf(std::uint32_t number, unsigned sides) const
{
    CurvePoints::Estimate const e = m_points.estimate(number);
    double const u = e.place[std::size_t(next(m_axis))];
    double const v = e.place[std::size_t(previous(m_axis))];
    return m_isTurned ? Place{v, u, e.error, number, sides} : Place{u, v, e.error, number, sides};
}

/// 1 if c lies left of the line from a to b, -1 right of it, 0 on it.
int FaceTriangulation::orient(int a, int b, int c) const
{
    Place const& p = m_places[std::size_t(a)];
    Place const& q = m_places[std::size_t(b)];
    Place const& r = m_places[std::size_t(c)];
    if (p.sides & q.sides & r.sides)
        return 0;
    double const qu = q.u - p.u, qv = q.v - p.v, ru = r.u - p.u, rv = r.v - p.v;
    double const left = qu * rv, right = qv * ru;
    double const area = left - right;
    double const e = p.error + std::max(q.error, r.error);
    double const bound = ExactSigns::areaErrorBound * (std::abs(left) + std::abs(right)) +
                         1.001 * e * (std::abs(qu) + std::abs(qv) + std::abs(ru) + std::abs(rv)) +
                         2.002 * e * e;
    if (area > bound)
        return 1;
    if (area < -bound)
        return -1;
    return orientExactly(a, b, c);
}

int FaceTriangulation::orientExactly(int a, int b, int c) const
{
    std::uint32_t const p = m_places[std::size_t(a)].number;
    std::uint32_t const q = m_places[std::size_t(b)].number;
    std::uint32_t const r = m_places[std::size_t(c)].number;
    int const sign =
        Exact::orient2d(m_points.exact(p), m_points.exact(q), m_points.exact(r), m_axis);
    return m_isTurned ? -sign : sign;
}

/// Whether d lies clearly within the circle through a, b and c.
bool FaceTriangulation::isInCircle(int a, int b, int c, int d) const
{
    Place const& o = m_places[std::size_t(d)];
    double rows[3][3];
    int const corners[3] = {a, b, c};
    for (int i = 0; i < 3; ++i) {
        Place const& p = m_places[std::size_t(corners[i])];
        rows[i][0] = p.u - o.u;
        rows[i][1] = p.v - o.v;
        rows[i][2] = rows[i][0] * rows[i][0] + rows[i][1] * rows[i][1];
    }
    double const determinant = rows[0][2] * (rows[1][0] * rows[2][1] - rows[1][1] * rows[2][0]) -
                               rows[1][2] * (rows[0][0] * rows[2][1] - rows[0][1] * rows[2][0]) +
                               rows[2][2] * (rows[0][0] * rows[1][1] - rows[0][1] * rows[1][0]);
    double const permanent =
        rows[0][2] * (std::abs(rows[1][0] * rows[2][1]) + std::abs(rows[1][1] * rows[2][0])) +
        rows[1][2] * (std::abs(rows[0][0] * rows[2][1]) + std::abs(rows[0][1] * rows[2][0])) +
        rows[2][2] * (std::abs(rows[0][0] * rows[1][1]) + std::abs(rows[0][1] * rows[1][0]));
    return determinant > 1e-9 * permanent;
}

void FaceTriangulation::begin(Face const& face)
{
    chooseView(face.triangle);
    m_places.clear();
    for (int k = 0; k < 3; ++k)
        m_places.push_back(placeOf(face.corners[std::size_t(k)], 1u << k | 1u << previous(k)));
    m_mesh.begin();
    m_last = 0;
}

/// Splits the side between two corners, whose points come in order.
bool FaceTriangulation::addEdgePoints(Face const& face, int side)
{
    auto const& numbers = face.onEdges[std::size_t(side)];
    if (numbers.empty())
        return true;
    Edge edge = m_mesh.findEdge(side, next(side));
    if (edge.facet == none)
        return false;
    for (std::uint32_t const number : numbers) {
        int const point = int(m_places.size());
        m_places.push_back(placeOf(number, 1u << side));
        m_mesh.addPoint();
        int const right = int(m_mesh.facets().size());
        m_mesh.splitEdge(edge, point);
        edge = {right, 0};
    }
    return true;
}

bool FaceTriangulation::addInnerPoints(std::span<std::uint32_t const> numbers)
{
    // So few are found at once whatever the facets look like.
    constexpr std::size_t fewPoints = 64;
    if (numbers.size() <= fewPoints)
        return std::ranges::all_of(numbers, [&](auto number) { return addInnerPoint(number); });
    // The walk to a point is short if the point before was near, and if no facet is long and thin.
    std::vector<FlatPoint> points;
    for (std::uint32_t const number : numbers) {
        Place const place = placeOf(number, 0);
        points.push_back({place.u, place.v, number});
    }
    for (std::uint32_t const number : alongCurve(points)) {
        std::size_t const facets = m_mesh.facets().size();
        if (!addInnerPoint(number))
            return false;
        improveFrom(facets);
    }
    return true;
}

bool FaceTriangulation::addInnerPoint(std::uint32_t number)
{
    int const point = int(m_places.size());
    m_places.push_back(placeOf(number, 0));
    m_mesh.addPoint();
    int facet = m_last;
    int edge = none;
    if (!locate(point, facet, edge))
        return false;
    m_last = facet;
    if (edge == none)
        m_mesh.splitFacet(facet, point);
    else if (m_mesh.facet(facet).neighbours[std::size_t(edge)] == none)
        return false;
    else
        m_mesh.splitEdge({facet, edge}, point);
    return true;
}

/// Walks to the facet in which a point lies, and to the edge if it lies on one.
bool FaceTriangulation::locate(int point, int& facet, int& edge)
{
    std::size_t const limit =
        m_limits.forPoint + m_limits.forPointPerFacet * m_mesh.facets().size();
    for (std::size_t step = 0; step < limit && goesOn(); ++step) {
        Facet const& f = m_mesh.facet(facet);
        int zeros = 0;
        int leave = none;
        edge = none;
        for (int i = 0; i < 3 && leave == none; ++i) {
            // Starting elsewhere each time keeps the walk from going in circles.
            std::size_t const k = (std::size_t(i) + step) % 3;
            int const side = orient(f.corners[k], f.corners[std::size_t(next(int(k)))], point);
            if (side < 0)
                leave = int(k);
            if (side == 0) {
                ++zeros;
                edge = int(k);
            }
        }
        if (leave == none)
            return zeros < 2;
        facet = f.neighbours[std::size_t(leave)];
        if (facet == none)
            return false;
    }
    return false;
}

int FaceTriangulation::localOf(std::uint32_t number) const
{
    auto const found = std::lower_bound(m_locals.begin(), m_locals.end(), std::pair(number, 0));
    return found != m_locals.end() && found->first == number ? found->second : none;
}

/// Returns false if a segment is neither there after it nor told to be crossed.
bool FaceTriangulation::addSegment(int index, FaceSegment const& segment, Face const& face,
                                   FaceFaults& faults)
{
    int from = localOf(segment.from);
    int const to = localOf(segment.to);
    if (from == none || to == none)
        return false;
    while (from != to) {
        std::size_t const crossings = faults.crossings.size();
        int const reached = addStretch(from, to, index, face, faults);
        if (reached == none)
            return faults.crossings.size() > crossings;
        if (reached != to)
            faults.breaks.push_back({segment, m_places[std::size_t(reached)].number});
        from = reached;
    }
    return true;
}

int FaceTriangulation::addStretch(int from, int to, int segment, Face const& face,
                                  FaceFaults& faults)
{
    // Round the point: anticlockwise to a side of the face, then clockwise from the start.
    int facet = m_mesh.facetAt(from);
    int const start = facet;
    bool isClockwise = false;
    while (facet != none && goesOn()) {
        Facet const& f = m_mesh.facet(facet);
        int k = 0;
        while (f.corners[std::size_t(k)] != from)
            ++k;
        int const p = f.corners[std::size_t(next(k))], q = f.corners[std::size_t(previous(k))];
        if (p == to || q == to) {
            m_mesh.fix({facet, p == to ? k : previous(k)}, segment);
            return to;
        }
        int const pSide = orient(from, to, p), qSide = orient(from, to, q);
        if (pSide == 0 && qSide > 0) {
            m_mesh.fix({facet, k}, segment);
            return p;
        }
        if (qSide == 0 && pSide < 0) {
            m_mesh.fix({facet, previous(k)}, segment);
            return q;
        }
        if (pSide < 0 && qSide > 0) {
            int reached = to;
            if (!crossedEdges({facet, next(k)}, from, reached, segment, face, faults) ||
                !flipAway(from, reached))
                return none;
            Edge const made = m_mesh.findEdge(from, reached);
            m_mesh.fix(made, segment);
            return made.facet == none ? none : reached;
        }
        facet = f.neighbours[std::size_t(isClockwise ? k : previous(k))];
        if (facet == none && !isClockwise) {
            isClockwise = true;
            Facet const& first = m_mesh.facet(start);
            int j = 0;
            while (first.corners[std::size_t(j)] != from)
                ++j;
            facet = first.neighbours[std::size_t(j)];
        } else if (facet == start) {
            return none;
        }
    }
    return none;
}

/// Collects the edges that a segment crosses, up to its end or to a point on it. Returns false where
/// segments are among them, all of which are told.
bool FaceTriangulation::crossedEdges(Edge edge, int from, int& to, int segment, Face const& face,
                                     FaceFaults& faults)
{
    m_crossed.clear();
    bool isFree = true;
    while (goesOn()) {
        Facet const& f = m_mesh.facet(edge.facet);
        int const inTheWay = f.segments[std::size_t(edge.index)];
        if (inTheWay != none) {
            faults.crossings.push_back({face.triangle, face.segments[std::size_t(segment)],
                                        face.segments[std::size_t(inTheWay)]});
            isFree = false;
        }
        int const p = f.corners[std::size_t(edge.index)];
        int const q = f.corners[std::size_t(next(edge.index))];
        m_crossed.emplace_back(p, q);
        Edge const across = m_mesh.opposite(edge);
        if (across.facet == none)
            return false;
        int const apex = m_mesh.facet(across.facet).corners[std::size_t(previous(across.index))];
        if (apex == to)
            return isFree;
        int const side = orient(from, to, apex);
        if (side == 0) {
            to = apex;
            return isFree;
        }
        // The facet across runs from q to p; the segment leaves it between the apex and the one of
        // them on the other side.
        edge = {across.facet, side > 0 ? next(across.index) : previous(across.index)};
    }
    return false;
}

/// Flips the collected edges until none crosses the segment.
bool FaceTriangulation::flipAway(int from, int to)
{
    std::size_t const limit =
        m_limits.forSegment + m_limits.forSegmentPerSquare * m_crossed.size() * m_crossed.size();
    for (std::size_t i = 0; i < m_crossed.size(); ++i) {
        if (i >= limit || !goesOn())
            return false;
        auto const [p, q] = m_crossed[i];
        Edge const edge = m_mesh.findEdge(p, q);
        if (edge.facet == none)
            return false;
        if (!isConvex(edge)) {
            m_crossed.emplace_back(p, q);
            continue;
        }
        Edge const across = m_mesh.opposite(edge);
        int const a = m_mesh.facet(edge.facet).corners[std::size_t(previous(edge.index))];
        int const b = m_mesh.facet(across.facet).corners[std::size_t(previous(across.index))];
        m_mesh.flip(edge);
        if (a == from || a == to || b == from || b == to)
            continue;
        if (orient(from, to, a) != orient(from, to, b))
            m_crossed.emplace_back(a, b);
    }
    return true;
}

/// Whether the two facets at an edge form a strictly convex quadrilateral.
bool FaceTriangulation::isConvex(Edge edge) const
{
    Edge const across = m_mesh.opposite(edge);
    Facet const& f = m_mesh.facet(edge.facet);
    Facet const& g = m_mesh.facet(across.facet);
    int const a = f.corners[std::size_t(edge.index)], b = f.corners[std::size_t(next(edge.index))];
    int const c = f.corners[std::size_t(previous(edge.index))];
    int const d = g.corners[std::size_t(previous(across.index))];
    return orient(a, d, c) > 0 && orient(d, b, c) > 0;
}

/// Flips edges that are no segments until the facets are as little acute as can be.
void FaceTriangulation::improve()
{
    m_stack.clear();
    for (int f = 0; f < int(m_mesh.facets().size()); ++f)
        for (int k = 0; k < 3; ++k)
            if (m_mesh.facet(f).neighbours[std::size_t(k)] > f)
                m_stack.push_back({f, k});
    flipWhereBetter();
}

/// The same for what the last split has made: facets from a number on, and those beside them.
void FaceTriangulation::improveFrom(std::size_t firstNew)
{
    m_stack.clear();
    for (std::size_t f = firstNew; f < m_mesh.facets().size(); ++f)
        for (int k = 0; k < 3; ++k) {
            int const neighbour = m_mesh.facet(int(f)).neighbours[std::size_t(k)];
            m_stack.push_back({int(f), k});
            if (neighbour != none)
                for (int j = 0; j < 3; ++j)
                    m_stack.push_back({neighbour, j});
        }
    flipWhereBetter();
}

void FaceTriangulation::flipWhereBetter()
{
    std::size_t flips = 0;
    std::size_t const limit =
        m_limits.forShape + m_limits.forShapePerFacet * m_mesh.facets().size();
    while (!m_stack.empty() && flips < limit && goesOn()) {
        Edge const edge = m_stack.back();
        m_stack.pop_back();
        Facet const& f = m_mesh.facet(edge.facet);
        if (f.segments[std::size_t(edge.index)] != none)
            continue;
        Edge const across = m_mesh.opposite(edge);
        if (across.facet == none)
            continue;
        int const d = m_mesh.facet(across.facet).corners[std::size_t(previous(across.index))];
        if (!isInCircle(f.corners[0], f.corners[1], f.corners[2], d) || !isConvex(edge))
            continue;
        m_mesh.flip(edge);
        ++flips;
        m_stack.push_back({edge.facet, 0});
        m_stack.push_back({edge.facet, 2});
        m_stack.push_back({across.facet, 0});
        m_stack.push_back({across.facet, 1});
    }
}

void FaceTriangulation::write(std::uint32_t triangle, Facets& facets)
{
    int regions = 0;
    m_regions.assign(m_mesh.facets().size(), none);
    for (std::size_t seed = 0; seed < m_mesh.facets().size(); ++seed) {
        if (m_regions[seed] != none)
            continue;
        m_regions[seed] = regions;
        m_stack.assign(1, {int(seed), 0});
        while (!m_stack.empty()) {
            Facet const& f = m_mesh.facet(m_stack.back().facet);
            m_stack.pop_back();
            for (std::size_t k = 0; k < 3; ++k) {
                int const neighbour = f.neighbours[k];
                if (neighbour == none || f.segments[k] != none ||
                    m_regions[std::size_t(neighbour)] != none)
                    continue;
                m_regions[std::size_t(neighbour)] = regions;
                m_stack.push_back({neighbour, 0});
            }
        }
        ++regions;
    }
    std::uint32_t const firstRegion = facets.ends.empty() ? 0 : facets.ends.back().regions;
    std::size_t const firstBorder = facets.borders.size();
    for (std::size_t i = 0; i < m_mesh.facets().size(); ++i) {
        Facet const& f = m_mesh.facets()[i];
        std::uint32_t const region = firstRegion + std::uint32_t(m_regions[i]);
        MeshArrays::Corners corners;
        for (std::size_t k = 0; k < 3; ++k)
            corners[k] = m_places[std::size_t(f.corners[k])].number;
        facets.corners.push_back(corners);
        facets.regions.push_back(region);
        for (std::size_t k = 0; k < 3; ++k)
            if (f.neighbours[k] == none || f.segments[k] != none)
                facets.borders.push_back({corners[k], corners[std::size_t(next(int(k)))], region,
                                          f.neighbours[k] == none});
    }
    std::sort(facets.borders.begin() + std::ptrdiff_t(firstBorder), facets.borders.end());
    facets.ends.push_back({triangle, std::uint32_t(facets.corners.size()),
                           std::uint32_t(facets.borders.size()),
                           firstRegion + std::uint32_t(regions)});
}
