// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/CurveNetwork.h"

#include "host/services/Polling.h"
#include "host/services/boolean/FoldContacts.h"
#include "host/services/boolean/GroupedSort.h"
#include "host/services/boolean/SegmentOrder.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr int maximalRounds = 30;
/// How many triangles one thread divides in one go.
constexpr std::size_t blockSize = 128;
/// How many of these goes are put together at once.
constexpr std::size_t blocksAtOnce = 256;

/// The edge of a triangle on which two of its places lie, or `inside`.
int commonEdge(TrianglePlace a, TrianglePlace b)
{
    for (int k = 0; k < 3; ++k)
        if (a.isOnEdge(k) && b.isOnEdge(k))
            return k;
    return CurveSegment::inside;
}

}  // namespace

bool CurveNetwork::build(std::vector<TrianglePair> contacts, StageProgress& progress)
{
    addFoldContacts(m_soup, contacts, progress);
    addContacts(contacts, progress);
    markTouched(contacts);
    collectCoplanar(contacts, progress);
    contacts = {};
    for (int round = 0; round < maximalRounds; ++round) {
        FaceFaults faults;
        spread(progress);
        sortAlongEdges(progress);
        findFinerEdges(faults, progress);
        if (!divide(faults, progress))
            return false;
        if (faults.isEmpty()) {
            finish();
            return true;
        }
        mend(faults, progress);
    }
    return false;
}

/// Frees what only dividing needs.
void CurveNetwork::finish()
{
    m_points.finish();
    m_touched = {};
    m_edgePoints = {};
    m_edgePointNumbers = {};
    m_facePoints = {};
    m_faceSegments = {};
}

void CurveNetwork::markTouched(std::vector<TrianglePair> const& contacts)
{
    m_faceOf.assign(m_soup.triangleCount(), none);
    for (TrianglePair const& pair : contacts)
        m_faceOf[pair.first] = m_faceOf[pair.second] = 0;
    if (hasContactsOfSecond(contacts))
        touchAroundSecond();
    m_touched.clear();
    for (std::uint32_t t = 0; t < m_faceOf.size(); ++t)
        if (m_faceOf[t] != none) {
            m_faceOf[t] = std::uint32_t(m_touched.size());
            m_touched.push_back(t);
        }
}

void CurveNetwork::collectCoplanar(std::vector<TrianglePair> const& contacts,
                                   StageProgress& progress)
{
    Polling polling(progress);
    for (TrianglePair const& pair : contacts) {
        polling.step();
        if (!pair.contact.isCoplanar)
            continue;
        m_coplanar.emplace_back(pair.second, pair.first);
        if (pair.first >= m_soup.firstTriangleOfSecond)
            m_coplanar.emplace_back(pair.first, pair.second);
    }
    sortPolled(m_coplanar, progress, std::less<>());
}

std::span<CurveNetwork::FacePair const> CurveNetwork::coplanarWith(std::uint32_t triangle) const
{
    auto const [begin, end] =
        std::equal_range(m_coplanar.begin(), m_coplanar.end(), FacePair(triangle, 0),
                         [](FacePair const& a, FacePair const& b) { return a.first < b.first; });
    return {begin, end};
}

bool CurveNetwork::hasContactsOfSecond(std::vector<TrianglePair> const& contacts) const
{
    return std::any_of(contacts.begin(), contacts.end(), [&](TrianglePair const& pair) {
        return pair.first >= m_soup.firstTriangleOfSecond;
    });
}

/// All triangles at an edge or vertex that a contact of the second operand with itself divides are
/// divided: unlike with those of two operands, not every one of them has a contact there.
void CurveNetwork::touchAroundSecond()
{
    std::vector<FaceSegment> edges;
    for (CurveSegment const& s : m_segments)
        for (std::size_t o = 0; o < 2; ++o) {
            if (s.triangles[0] < m_soup.firstTriangleOfSecond)
                continue;
            auto const& corners = m_soup.corners(s.triangles[o]);
            auto const addEdge = [&](int k) {
                edges.push_back(
                    undirected(corners[std::size_t(k)], corners[std::size_t((k + 1) % 3)]));
            };
            if (s.edges[o] != CurveSegment::inside)
                addEdge(s.edges[o]);
            for (TrianglePlace const place : {s.fromPlaces[o], s.toPlaces[o]})
                if (place.isEdge())
                    addEdge(place.index());
        }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    for (std::uint32_t t = m_soup.firstTriangleOfSecond; t < m_soup.triangleCount(); ++t) {
        auto const& c = m_soup.corners(t);
        for (std::size_t k = 0; k < 3 && m_faceOf[t] == none; ++k)
            if (m_points.isOnCurve(c[k]) ||
                std::binary_search(edges.begin(), edges.end(), undirected(c[k], c[(k + 1) % 3])))
                m_faceOf[t] = 0;
    }
}

void CurveNetwork::addContacts(std::vector<TrianglePair> const& contacts, StageProgress& progress)
{
    // Room that is not used takes no memory, and growing takes some more.
    m_segments.reserve(contacts.size());
    m_points.reserve(std::size_t(std::ranges::count_if(
        contacts, [](TrianglePair const& pair) { return pair.contact.count == 2; })));
    for (TrianglePair const& pair : contacts) {
        if ((&pair - contacts.data()) % 4096 == 0)
            progress.add(0);
        if (pair.contact.count == 2)
            addSegment(pair);
        if (pair.contact.count != 1)
            continue;
        // A touch in a point divides nothing, but a vertex there is on neither side.
        TriangleContact::Point const& point = pair.contact.points[0];
        if (point.inFirst.isCorner() || point.inSecond.isCorner())
            m_points.add(point, pair.first, pair.second);
    }
    // Equal vertices that were met later stand for each other too.
    for (CurveSegment& segment : m_segments)
        for (std::uint32_t* const point : {&segment.from, &segment.to})
            if (*point < m_soup.pointCount())
                *point = m_points.numberOf(*point);
}

void CurveNetwork::addSegment(TrianglePair const& pair)
{
    auto const& [start, end] = pair.contact.points;
    std::uint32_t const from = m_points.add(start, pair.first, pair.second);
    std::uint32_t const to = m_points.add(end, pair.first, pair.second);
    m_segments.push_back(
        {from,
         to,
         {pair.first, pair.second},
         {commonEdge(start.inFirst, end.inFirst), commonEdge(start.inSecond, end.inSecond)},
         {start.inFirst, start.inSecond},
         {end.inFirst, end.inSecond}});
}

/// Hands points and segments to the triangles and edges in which they lie.
void CurveNetwork::spread(StageProgress& progress)
{
    m_edgePoints.clear();
    m_facePoints.clear();
    m_faceSegments.clear();
    for (CurveSegment const& s : m_segments)
        for (int operand = 0; operand < 2; ++operand) {
            if ((&s - m_segments.data()) % 4096 == 0)
                progress.add(0);
            std::size_t const o = std::size_t(operand);
            spreadEnd(s, operand, s.from, s.fromPlaces[o]);
            spreadEnd(s, operand, s.to, s.toPlaces[o]);
            if (s.edges[o] == CurveSegment::inside)
                m_faceSegments.emplace_back(s.triangles[o], undirected(s.from, s.to));
        }
    auto const placeOfFace = [this](auto const& entry) { return m_faceOf[entry.first]; };
    sortInGroups(m_facePoints, m_touched.size(), placeOfFace, progress);
    sortInGroups(m_faceSegments, m_touched.size(), placeOfFace, progress);
    // A large soup with few contacts has many points and few of them on edges.
    if (m_edgePoints.size() > m_soup.pointCount() / 8)
        sortInGroups(
            m_edgePoints, m_soup.pointCount(), [](EdgePoint const& p) { return p.low; }, progress);
    else
        sortUniquely(m_edgePoints, progress);
}

void CurveNetwork::spreadEnd(CurveSegment const& segment, int operand, std::uint32_t point,
                             TrianglePlace place)
{
    std::uint32_t const triangle = segment.triangles[std::size_t(operand)];
    if (place.isFace())
        m_facePoints.emplace_back(triangle, point);
    if (!place.isEdge())
        return;
    auto const& corners = m_soup.corners(triangle);
    auto const [low, high] = std::minmax(corners[std::size_t(place.index())],
                                         corners[std::size_t((place.index() + 1) % 3)]);
    m_edgePoints.push_back({low, high, point});
}

int CurveNetwork::compare(std::uint32_t a, std::uint32_t b, int axis) const
{
    CurvePoints::Estimate const p = m_points.estimate(a), q = m_points.estimate(b);
    double const way = q.place[std::size_t(axis)] - p.place[std::size_t(axis)];
    if (std::abs(way) > 1.001 * (p.error + q.error))
        return way > 0 ? 1 : -1;
    return Exact::compare(m_points.exact(a), m_points.exact(b), axis);
}

/// Puts the points of each edge in their order from its lower vertex to its higher one.
void CurveNetwork::sortAlongEdges(StageProgress& progress)
{
    unsigned steps = 0;
    for (auto begin = m_edgePoints.begin(); begin != m_edgePoints.end();) {
        if (++steps % 1024 == 0)
            progress.add(0);
        auto const end = std::find_if(begin, m_edgePoints.end(),
                                      [&](EdgePoint const& p) { return !p.isOnSameEdge(*begin); });
        if (end - begin > 1) {
            UPoint3<float> const& from = m_soup.mesh.points[begin->low];
            UPoint3<float> const& to = m_soup.mesh.points[begin->high];
            int axis = 0;
            for (int k = 1; k < 3; ++k)
                if (std::abs(double(to[k]) - from[k]) > std::abs(double(to[axis]) - from[axis]))
                    axis = k;
            int const direction = to[axis] > from[axis] ? 1 : -1;
            std::sort(begin, end, [&](EdgePoint const& p, EdgePoint const& q) {
                return p.point != q.point && compare(p.point, q.point, axis) == direction;
            });
        }
        begin = end;
    }
    m_edgePointNumbers.clear();
    for (EdgePoint const& p : m_edgePoints)
        m_edgePointNumbers.push_back(p.point);
}

std::span<std::uint32_t const> CurveNetwork::pointsOnEdge(std::uint32_t low,
                                                          std::uint32_t high) const
{
    auto const [begin, end] =
        std::equal_range(m_edgePoints.begin(), m_edgePoints.end(), EdgePoint{low, high, 0},
                         [](EdgePoint const& a, EdgePoint const& b) {
                             return a.low != b.low ? a.low < b.low : a.high < b.high;
                         });
    return std::span(m_edgePointNumbers)
        .subspan(std::size_t(begin - m_edgePoints.begin()), std::size_t(end - begin));
}

/// Finds segments along an edge that has points between their ends.
void CurveNetwork::findFinerEdges(FaceFaults& faults, StageProgress& progress) const
{
    for (CurveSegment const& s : m_segments)
        for (std::size_t o = 0; o < 2; ++o) {
            if ((&s - m_segments.data()) % 4096 == 0)
                progress.add(0);
            if (s.edges[o] == CurveSegment::inside)
                continue;
            auto const& corners = m_soup.corners(s.triangles[o]);
            auto const [low, high] = std::minmax(corners[std::size_t(s.edges[o])],
                                                 corners[std::size_t((s.edges[o] + 1) % 3)]);
            auto const chain = pointsOnEdge(low, high);
            auto const start = m_points.numberOf(low);
            auto const placeOf = [&](std::uint32_t point) -> std::ptrdiff_t {
                if (point == start)
                    return -1;
                return std::find(chain.begin(), chain.end(), point) - chain.begin();
            };
            auto const [a, b] = std::minmax({placeOf(s.from), placeOf(s.to)});
            for (std::ptrdiff_t i = a + 1; i < b && i < std::ptrdiff_t(chain.size()); ++i)
                faults.breaks.push_back({undirected(s.from, s.to), chain[std::size_t(i)]});
        }
}

bool CurveNetwork::divide(FaceFaults& faults, StageProgress& progress)
{
    struct Block
    {
        Facets facets;
        FaceFaults faults;
        bool isDone = false;
    };
    m_facets = {};
    reserveFacets();
    std::size_t const count = (m_touched.size() + blockSize - 1) / blockSize;
    using Range = tbb::blocked_range<std::size_t>;
    // Of what is written twice, facets take the most memory: they are put together some at a time.
    for (std::size_t first = 0; first < count; first += blocksAtOnce) {
        std::vector<Block> blocks(std::min(blocksAtOnce, count - first));
        tbb::parallel_for(Range(0, blocks.size(), 1), [&](Range const& range) {
            for (std::size_t b = range.begin(); b != range.end(); ++b) {
                std::size_t const begin = (first + b) * blockSize;
                std::size_t const end = std::min(m_touched.size(), begin + blockSize);
                blocks[b].isDone =
                    divideBlock(begin, end, blocks[b].facets, blocks[b].faults, progress);
                if (!progress.add(end - begin))
                    return;
            }
        });
        for (Block const& block : blocks) {
            if (!block.isDone)
                return false;
            append(block.facets);
            progress.add(0);
            faults.breaks.insert(faults.breaks.end(), block.faults.breaks.begin(),
                                 block.faults.breaks.end());
            faults.crossings.insert(faults.crossings.end(), block.faults.crossings.begin(),
                                    block.faults.crossings.end());
        }
    }
    return true;
}

/// Makes room for all facets, as long as no edge has more than two triangles. Room that is not used
/// takes no memory, and growing takes as much again.
void CurveNetwork::reserveFacets()
{
    std::size_t const facets = m_touched.size() + 2 * m_facePoints.size() + 2 * m_edgePoints.size();
    m_facets.corners.reserve(facets);
    m_facets.regions.reserve(facets);
    m_facets.borders.reserve(3 * m_touched.size() + 2 * m_edgePoints.size() +
                             2 * m_faceSegments.size());
    m_facets.ends.reserve(m_touched.size());
}

/// Divides the touched triangles from one place in their list to another.
bool CurveNetwork::divideBlock(std::size_t begin, std::size_t end, Facets& facets,
                               FaceFaults& faults, StageProgress& progress) const
{
    FaceTriangulation triangulation(m_soup, m_points, progress);
    std::vector<std::uint32_t> inside;
    std::vector<FaceSegment> segments;
    std::array<std::vector<std::uint32_t>, 3> onEdges;
    auto facePoint =
        std::lower_bound(m_facePoints.begin(), m_facePoints.end(), FacePoint(m_touched[begin], 0));
    auto faceSegment = std::lower_bound(m_faceSegments.begin(), m_faceSegments.end(),
                                        SegmentInFace(m_touched[begin], FaceSegment{0, 0}));
    for (std::size_t i = begin; i < end; ++i) {
        std::uint32_t const t = m_touched[i];
        Face face;
        face.triangle = t;
        auto const& corners = m_soup.corners(t);
        for (std::size_t k = 0; k < 3; ++k) {
            face.corners[k] = m_points.numberOf(corners[k]);
            std::uint32_t const a = corners[k], b = corners[(k + 1) % 3];
            auto const chain = pointsOnEdge(std::min(a, b), std::max(a, b));
            onEdges[k].assign(chain.begin(), chain.end());
            if (a > b)
                std::reverse(onEdges[k].begin(), onEdges[k].end());
            face.onEdges[k] = onEdges[k];
        }
        inside.clear();
        for (; facePoint != m_facePoints.end() && facePoint->first == t; ++facePoint)
            inside.push_back(facePoint->second);
        segments.clear();
        for (; faceSegment != m_faceSegments.end() && faceSegment->first == t; ++faceSegment)
            segments.push_back(faceSegment->second);
        face.inside = inside;
        face.segments = segments;
        if (!triangulation.divide(face, facets, faults))
            return false;
    }
    return true;
}

/// Appends the facets of a block of triangles to those of the blocks before.
void CurveNetwork::append(Facets const& facets)
{
    Facets::End const before = m_facets.ends.empty() ? Facets::End() : m_facets.ends.back();
    m_facets.corners.insert(m_facets.corners.end(), facets.corners.begin(), facets.corners.end());
    for (std::uint32_t const region : facets.regions)
        m_facets.regions.push_back(region + before.regions);
    for (Facets::Border border : facets.borders) {
        border.region += before.regions;
        m_facets.borders.push_back(border);
    }
    for (Facets::End end : facets.ends) {
        end.facets += before.facets;
        end.borders += before.borders;
        end.regions += before.regions;
        m_facets.ends.push_back(end);
    }
}

std::uint32_t CurveNetwork::regionLeftOf(std::uint32_t triangle, std::uint32_t from,
                                         std::uint32_t to) const
{
    std::uint32_t const face = m_faceOf[triangle];
    if (face == none)
        return none;
    auto const begin = m_facets.borders.begin() + (face == 0 ? 0 : m_facets.ends[face - 1].borders);
    auto const end = m_facets.borders.begin() + m_facets.ends[face].borders;
    Facets::Border const wanted{from, to, 0, false};
    auto const found = std::lower_bound(begin, end, wanted);
    return found != end && found->from == from && found->to == to ? found->region : none;
}
