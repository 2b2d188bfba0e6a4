// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/SegmentEdges.h"

#include <algorithm>

namespace Exact {

namespace {

constexpr std::size_t pollInterval = 4096;

}  // namespace

SegmentEdges::SegmentEdges(std::vector<Point> const& points, PlaneEdges& edges)
    : m_points(points), m_edges(edges), m_edgeFrom(points.size()), m_segments(edges.size() / 2)
{
    for (Edge e = 0; e < edges.size(); ++e)
        if (edges.isThere(e))
            m_edgeFrom[edges.from(e)] = e;
}

bool SegmentEdges::add(std::uint32_t from, std::uint32_t to, int weight,
                       std::function<void()> const& poll)
{
    if (Edge const e = find(from, to, weight); e != none) {
        fix(e, weight);
        return true;
    }
    Edge const first = facing(from, to);
    if (first == none || !clear(first, to, poll))
        return false;
    Edge const e = m_edges.connect(m_left.back(), m_left.front());
    fix(e, weight);
    fill(m_left, poll);
    fill(m_right, poll);
    return true;
}

/// The edge between two points, if there is one. Looks around both in turn, so that it takes as long
/// as the one with fewer edges does; leaves that as the first, with the weight turned as well.
SegmentEdges::Edge SegmentEdges::find(std::uint32_t& from, std::uint32_t& to, int& weight) const
{
    Edge const firstHere = m_edgeFrom[from], firstThere = m_edgeFrom[to];
    Edge here = firstHere, there = firstThere;
    for (;;) {
        if (m_edges.to(here) == to)
            return here;
        if (m_edges.to(there) == from)
            return PlaneEdges::turned(there);
        here = m_edges.next(here);
        if (here == firstHere)
            return none;
        there = m_edges.next(there);
        if (there == firstThere)
            break;
    }
    std::swap(from, to);
    weight = -weight;
    return none;
}

/// The edge from one point that is the first on the right of the way to another one; none if the way
/// runs along an edge.
SegmentEdges::Edge SegmentEdges::facing(std::uint32_t from, std::uint32_t to) const
{
    Edge const first = m_edgeFrom[from];
    Edge e = first;
    do {
        Edge const next = m_edges.next(e);
        if (orientation(from, m_edges.to(e), to) > 0 && orientation(from, m_edges.to(next), to) < 0)
            return e;
        e = next;
    } while (e != first);
    return none;
}

/// Takes out the edges that a segment crosses, and notes what is around them. Returns false if it
/// meets another segment, or a point.
bool SegmentEdges::clear(Edge first, std::uint32_t to, std::function<void()> const& poll)
{
    std::uint32_t const from = m_edges.from(first);
    m_right.assign(1, first);
    m_left.assign(1, PlaneEdges::turned(m_edges.next(first)));
    m_crossed.clear();
    // Runs from right to left, across the way.
    Edge across = m_edges.nextOnLeft(first);
    for (std::size_t step = 1;; ++step) {
        if (step % pollInterval == 0)
            poll();
        if (isSegment(across))
            return false;
        m_crossed.push_back(across);
        Edge const onRight = m_edges.nextOnLeft(PlaneEdges::turned(across));
        Edge const onLeft = m_edges.nextOnLeft(onRight);
        std::uint32_t const apex = m_edges.from(onLeft);
        int const side = apex == to ? 0 : orientation(from, to, apex);
        if (side == 0 && apex != to)
            return false;
        if (side <= 0)
            m_right.push_back(onRight);
        if (side >= 0)
            m_left.push_back(onLeft);
        if (side == 0)
            break;
        across = side > 0 ? onRight : onLeft;
    }
    std::reverse(m_left.begin(), m_left.end());
    for (Edge const e : m_left)
        m_edgeFrom[m_edges.from(e)] = e;
    for (Edge const e : m_right)
        m_edgeFrom[m_edges.from(e)] = e;
    for (Edge const e : m_crossed)
        m_edges.remove(e);
    return true;
}

/// Triangulates what lies between one edge and some others, which run on from its end and back to
/// its beginning, all on its left.
void SegmentEdges::fill(std::span<Edge const> border, std::function<void()> const& poll)
{
    std::size_t tests = 0;
    m_parts.assign(1, {0, border.size()});
    while (!m_parts.empty()) {
        auto const [begin, end] = m_parts.back();
        m_parts.pop_back();
        if (end - begin < 3)
            continue;
        FlatPlace const& a = placeOf(m_edges.to(border[end - 1]));
        FlatPlace const& b = placeOf(m_edges.from(border[begin]));
        std::size_t best = begin + 1;
        for (std::size_t i = begin + 2; i < end; ++i) {
            if (++tests % pollInterval == 0)
                poll();
            if (isInCircle(a, b, placeOf(m_edges.from(border[best])),
                           placeOf(m_edges.from(border[i]))))
                best = i;
        }
        for (auto const& part : {std::pair(begin, best), std::pair(best, end)}) {
            if (part.second - part.first < 2)
                continue;
            m_edges.connect(border[part.second - 1], border[part.first]);
            m_parts.push_back(part);
        }
    }
}

void SegmentEdges::fix(Edge e, int weight)
{
    if (e / 2 >= m_segments.size())
        m_segments.resize(m_edges.size() / 2);
    m_segments[e / 2].isThere = true;
    m_segments[e / 2].weight += e % 2 == 0 ? weight : -weight;
}

}  // namespace Exact
