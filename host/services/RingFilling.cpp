// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/RingFilling.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <numeric>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

namespace {

using Point = Exact::SectionPoint2;
using Ring = std::vector<Point>;

std::uint64_t pairKey(std::uint32_t first, std::uint32_t second)
{
    return std::uint64_t(first) << 32 | second;
}

std::uint64_t undirectedKey(std::uint32_t a, std::uint32_t b)
{
    return pairKey(std::min(a, b), std::max(a, b));
}

/// Twice the area, positive for an anticlockwise ring.
double doubledArea(Ring const& ring)
{
    double sum = 0;
    for (std::size_t i = 2; i < ring.size(); ++i) {
        double const ax = ring[i - 1][0] - ring[0][0];
        double const ay = ring[i - 1][1] - ring[0][1];
        double const bx = ring[i][0] - ring[0][0];
        double const by = ring[i][1] - ring[0][1];
        sum += ax * by - ay * bx;
    }
    return sum;
}

double squaredDistance(Point const& a, Point const& b)
{
    double const x = a[0] - b[0];
    double const y = a[1] - b[1];
    return x * x + y * y;
}

}  // namespace

RingFilling::RingFilling(Rings const& rings)
{
    joinPoints(rings);
    collectEdges(rings);
}

void RingFilling::joinPoints(Rings const& rings)
{
    std::vector<Point> all;
    for (Ring const& ring : rings)
        all.insert(all.end(), ring.begin(), ring.end());
    std::vector<int> order(all.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](int a, int b) { return std::tie(all[a], a) < std::tie(all[b], b); });
    m_placeOf.resize(all.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i == 0 || all[order[i]] != m_points.back()) {
            m_points.push_back(all[order[i]]);
            m_indexAt.push_back(order[i]);
            m_isShared.push_back(0);
        } else {
            m_isShared.back() = 1;
            m_hasShared = true;
        }
        m_placeOf[order[i]] = Place(m_points.size() - 1);
    }
}

/// The edges of the outer ring anticlockwise and of the holes clockwise.
void RingFilling::collectEdges(Rings const& rings)
{
    m_edges.reserve(m_placeOf.size());
    int first = 0;
    for (std::size_t r = 0; r < rings.size(); ++r) {
        int const size = int(rings[r].size());
        double const area = doubledArea(rings[r]);
        bool const isTurned = r == 0 ? area < 0 : area > 0;
        for (int i = 0; i < size; ++i) {
            Edge edge{first + i, first + (i + 1) % size};
            if (isTurned)
                std::swap(edge.from, edge.to);
            m_edges.push_back(edge);
        }
        first += size;
    }
}

std::vector<int> RingFilling::fill(std::function<void(int)> const& progress)
{
    std::vector<Exact::SectionSegment> segments;
    segments.reserve(m_edges.size());
    std::vector<Edge> edges;
    edges.reserve(m_edges.size());
    for (Edge const& edge : m_edges) {
        Place const from = m_placeOf[edge.from];
        Place const to = m_placeOf[edge.to];
        if (from != to) {
            segments.push_back({from, to});
            edges.push_back(edge);
        } else if (edge.from != edge.to) {
            m_repeats.push_back(edge);
            m_looseEnds.push_back({from, {edge.to, edge.from}});
        }
    }
    m_edges.swap(edges);
    Exact::SectionFilling const filling = Exact::fillSection(m_points, segments, progress);
    if (filling.triangles.empty())
        return {};
    bool const hasCrossings = m_points.size() > m_indexAt.size();
    auto const report = [&](int percent) {
        if (progress)
            progress(percent);
    };
    report(85);
    placeCrossings(segments);
    addStrands(segments);
    addTriangles(filling);
    report(90);
    closeCircles();
    if (hasCrossings)
        closeRest();
    report(100);
    return std::move(m_indices);
}

/// Each crossing takes the index of the nearest end of the edges that cross there.
void RingFilling::placeCrossings(std::vector<Exact::SectionSegment> const& segments)
{
    std::size_t const before = m_indexAt.size();
    if (before == m_points.size())
        return;
    m_indexAt.resize(m_points.size(), -1);
    m_isShared.resize(m_points.size(), 0);
    std::vector<double> nearest(m_points.size() - before, std::numeric_limits<double>::infinity());
    for (std::size_t i = 0; i < segments.size(); ++i)
        for (Place const place : segments[i].splits) {
            if (place < before)
                continue;
            for (int const index : {m_edges[i].from, m_edges[i].to}) {
                double const distance =
                    squaredDistance(m_points[m_placeOf[index]], m_points[place]);
                if (m_indexAt[place] >= 0 && !(distance < nearest[place - before]))
                    continue;
                nearest[place - before] = distance;
                m_indexAt[place] = index;
            }
        }
}

/// The stretches of all edges. An edge that is split is joined to its stretches by triangles whose
/// corners lie in line.
void RingFilling::addStrands(std::vector<Exact::SectionSegment> const& segments)
{
    m_strands.reserve(segments.size());
    for (std::size_t i = 0; i < segments.size(); ++i) {
        Place place = segments[i].from;
        Edge const& edge = m_edges[i];
        int last = edge.from;
        for (Place const split : segments[i].splits) {
            m_strands.push_back({place, split, {last, m_indexAt[split]}});
            addTriangle(edge.from, m_indexAt[split], last);
            place = split;
            last = m_indexAt[split];
        }
        m_strands.push_back({place, segments[i].to, {last, edge.to}});
        addTriangle(edge.from, edge.to, last);
    }
}

void RingFilling::addTriangle(int a, int b, int c)
{
    // Its edges cancel each other.
    if (a == b || b == c || c == a)
        return;
    m_indices.insert(m_indices.end(), {a, b, c});
}

void RingFilling::addTriangles(Exact::SectionFilling const& filling)
{
    std::vector<std::array<int, 3>> corners(filling.triangles.size());
    for (std::size_t t = 0; t < corners.size(); ++t)
        for (int k = 0; k < 3; ++k)
            corners[t][k] = m_indexAt[filling.triangles[t][k]];
    if (m_hasShared)
        numberSectors(filling, corners);
    m_indices.reserve(m_indices.size() + 3 * corners.size());
    for (auto const& [a, b, c] : corners)
        addTriangle(a, b, c);
    if (!m_hasShared)
        return;
    std::vector<Term> terms = termsAtSharedPlaces(filling, corners);
    closeEdges(terms);
}

/// Around a place with several indices, the triangles from the beginning of one strand to the next
/// one take that strand's index: so most edges need nothing more.
void RingFilling::numberSectors(Exact::SectionFilling const& filling,
                                std::vector<std::array<int, 3>>& corners) const
{
    std::unordered_map<std::uint64_t, Corner> cornerAt;
    std::unordered_set<std::uint64_t> isBorder;
    for (std::size_t t = 0; t < corners.size(); ++t)
        for (int k = 0; k < 3; ++k) {
            Place const place = filling.triangles[t][k];
            if (m_isShared[place])
                cornerAt.emplace(pairKey(place, filling.triangles[t][(k + 1) % 3]), Corner{t, k});
        }
    for (Strand const& strand : m_strands)
        if (m_isShared[strand.from] || m_isShared[strand.to])
            isBorder.insert(undirectedKey(strand.from, strand.to));
    for (Strand const& strand : m_strands) {
        if (!m_isShared[strand.from])
            continue;
        Place beyond = strand.to;
        do {
            auto const found = cornerAt.find(pairKey(strand.from, beyond));
            if (found == cornerAt.end())
                break;
            Corner const corner = found->second;
            // Each is numbered once, so a place without borders is left.
            cornerAt.erase(found);
            corners[corner.triangle][corner.number] = strand.indices.from;
            beyond = filling.triangles[corner.triangle][(corner.number + 2) % 3];
        } while (!isBorder.contains(undirectedKey(strand.from, beyond)));
    }
}

std::vector<RingFilling::Term> RingFilling::termsAtSharedPlaces(
    Exact::SectionFilling const& filling, std::vector<std::array<int, 3>> const& corners) const
{
    std::vector<Term> terms;
    auto const add = [&](Place from, Place to, Edge indices, int count) {
        if (!m_isShared[from] && !m_isShared[to])
            return;
        if (from > to) {
            std::swap(from, to);
            std::swap(indices.from, indices.to);
            count = -count;
        }
        terms.push_back({pairKey(from, to), indices, count});
    };
    for (Strand const& strand : m_strands)
        add(strand.from, strand.to, strand.indices, 1);
    for (std::size_t t = 0; t < corners.size(); ++t)
        for (int k = 0; k < 3; ++k) {
            int const next = (k + 1) % 3;
            add(filling.triangles[t][k], filling.triangles[t][next],
                {corners[t][k], corners[t][next]}, -1);
        }
    return terms;
}

/// Joins strands to the edges of triangles at the same places where the indices differ.
void RingFilling::closeEdges(std::vector<Term>& terms)
{
    auto const order = [](Term const& t) {
        return std::tie(t.places, t.indices.from, t.indices.to);
    };
    std::sort(terms.begin(), terms.end(),
              [&](Term const& a, Term const& b) { return order(a) < order(b); });
    std::vector<Edge> wanted;
    std::vector<Edge> present;
    for (std::size_t i = 0; i < terms.size();) {
        std::size_t const begin = i;
        int count = 0;
        for (; i < terms.size() && order(terms[i]) == order(terms[begin]); ++i)
            count += terms[i].count;
        for (; count > 0; --count)
            wanted.push_back(terms[begin].indices);
        for (; count < 0; ++count)
            present.push_back(terms[begin].indices);
        if (i == terms.size() || terms[i].places != terms[begin].places)
            closeEdge(wanted, present, terms[begin].places);
    }
}

void RingFilling::closeEdge(std::vector<Edge>& wanted, std::vector<Edge>& present,
                            std::uint64_t places)
{
    for (std::size_t i = 0; i < std::min(wanted.size(), present.size()); ++i) {
        Edge const& want = wanted[i];
        Edge const& have = present[i];
        addTriangle(want.from, want.to, have.to);
        addTriangle(want.from, have.to, have.from);
        if (want.to != have.to)
            m_looseEnds.push_back({Place(places & 0xffffffff), {want.to, have.to}});
        if (want.from != have.from)
            m_looseEnds.push_back({Place(places >> 32), {have.from, want.from}});
    }
    wanted.clear();
    present.clear();
}

/// Crossings have rounded coordinates, with which the triangulation may go wrong; then whole
/// circles of edges are left.
void RingFilling::closeRest()
{
    std::vector<Term> open;
    open.reserve(m_indices.size() + m_edges.size() + m_repeats.size());
    auto const add = [&](int from, int to, int count) {
        Edge const ends{std::min(from, to), std::max(from, to)};
        open.push_back({pairKey(std::uint32_t(ends.from), std::uint32_t(ends.to)), ends,
                        from < to ? count : -count});
    };
    for (std::size_t i = 0; i < m_indices.size(); i += 3)
        for (std::size_t k = 0; k < 3; ++k)
            add(m_indices[i + k], m_indices[i + (k + 1) % 3], 1);
    for (std::vector<Edge> const* const edges : {&m_edges, &m_repeats})
        for (Edge const& edge : *edges)
            add(edge.from, edge.to, -1);
    std::sort(open.begin(), open.end(),
              [](Term const& a, Term const& b) { return a.places < b.places; });
    m_looseEnds.clear();
    for (std::size_t i = 0; i < open.size();) {
        auto const [places, ends, ignored] = open[i];
        int count = 0;
        for (; i < open.size() && open[i].places == places; ++i)
            count += open[i].count;
        for (int k = 0; k < std::abs(count); ++k)
            m_looseEnds.push_back({0, count > 0 ? ends : Edge{ends.to, ends.from}});
    }
    closeCircles();
}

/// What is loose runs in circles, most of them around one place; each circle is filled.
void RingFilling::closeCircles()
{
    auto const order = [](LooseEnd const& e) {
        return std::tie(e.place, e.indices.from, e.indices.to);
    };
    std::sort(m_looseEnds.begin(), m_looseEnds.end(),
              [&](LooseEnd const& a, LooseEnd const& b) { return order(a) < order(b); });
    std::vector<std::uint8_t> isUsed(m_looseEnds.size(), 0);
    for (std::size_t i = 0; i < m_looseEnds.size(); ++i) {
        int const first = m_looseEnds[i].indices.from;
        int last = first;
        for (std::size_t edge = i; edge < m_looseEnds.size() && !isUsed[edge];) {
            isUsed[edge] = 1;
            int const next = m_looseEnds[edge].indices.to;
            addTriangle(first, next, last);
            last = next;
            if (last == first)
                break;
            // The next one that goes on from here.
            LooseEnd const wanted{m_looseEnds[i].place, {last, std::numeric_limits<int>::min()}};
            edge = std::size_t(std::lower_bound(m_looseEnds.begin(), m_looseEnds.end(), wanted,
                                                [&](LooseEnd const& a, LooseEnd const& b) {
                                                    return order(a) < order(b);
                                                }) -
                               m_looseEnds.begin());
            while (edge < m_looseEnds.size() && isUsed[edge])
                ++edge;
        }
    }
}
