// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionContours.h"

#include "host/mesh/DisjointSets.h"
#include "host/services/PlaceText.h"
#include "host/services/planecut/SurplusContours.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

#include <algorithm>
#include <tuple>

namespace {

using Segments = std::vector<Exact::SectionSegment>;

[[noreturn]] void throwOpen(UPoint3<float> const& p)
{
    throw Mell::Exception(
        withPlace(QCoreApplication::translate(
                      "Services",
                      "The part is open where the plane meets it, near (%1, %2, %3). "
                      "Repair the part and cut again."),
                  p)
            .toStdString());
}

/// The triangles of both halves at one edge in the plane.
struct EdgeUse
{
    int above = 0;
    int below = 0;
    int netAbove = 0;
    int netBelow = 0;
};

/// Adds what the use of an edge means for the contours.
void addSegment(EdgeUse const& use, std::uint32_t low, std::uint32_t high, Segments& segments)
{
    if (use.above == 0 || use.below == 0)
        return;
    if (use.netAbove == -use.netBelow) {
        if (use.netAbove > 0)
            segments.push_back({low, high, use.netAbove});
        else if (use.netAbove < 0)
            segments.push_back({high, low, -use.netAbove});
        return;
    }
    if (use.above % 2 == 1 && use.below % 2 == 1)
        segments.push_back({low, high, 1, true});
}

/// Turns the segments of every component undirected in which some point has more ways in than out.
void settleDirections(Segments& segments, SectionPoints const& points)
{
    std::vector<int> balance(points.size(), 0);
    std::vector<int> degree(points.size(), 0);
    // Points that contours connect.
    DisjointSets components(points.size());
    std::vector<bool> isUndirected(points.size(), false);
    for (Exact::SectionSegment const& s : segments) {
        balance[s.from] -= s.weight;
        balance[s.to] += s.weight;
        degree[s.from] += s.weight;
        degree[s.to] += s.weight;
        components.unite(s.from, s.to);
    }
    for (std::uint32_t v = 0; v < points.size(); ++v)
        if (balance[v] != 0)
            isUndirected[components.root(v)] = true;
    for (Exact::SectionSegment const& s : segments)
        if (s.isUndirected && s.weight > 0)
            isUndirected[components.root(s.from)] = true;
    for (std::uint32_t v = 0; v < points.size(); ++v)
        if (isUndirected[components.root(v)] && degree[v] % 2 != 0)
            throwOpen(points.place(v));
    for (Exact::SectionSegment& s : segments)
        s.isUndirected = s.weight > 0 && isUndirected[components.root(s.from)];
    std::erase_if(segments, [](Exact::SectionSegment const& s) {
        return s.isUndirected && s.weight % 2 == 0;
    });
}

}  // namespace

void SectionContours::add(std::uint32_t from, std::uint32_t to, Source source)
{
    if (from != to)
        m_edges.push_back({std::min(from, to), std::max(from, to), source, from < to});
}

std::vector<Exact::SectionSegment> SectionContours::segments(SectionPoints const& points)
{
    std::sort(m_edges.begin(), m_edges.end(), [](DirectedEdge const& a, DirectedEdge const& b) {
        return std::tie(a.low, a.high) < std::tie(b.low, b.high);
    });
    Segments segments;
    for (std::size_t i = 0; i < m_edges.size();) {
        EdgeUse use;
        std::size_t const first = i;
        for (; i < m_edges.size() && m_edges[i].low == m_edges[first].low &&
               m_edges[i].high == m_edges[first].high;
             ++i) {
            int const way = m_edges[i].isUpward ? 1 : -1;
            // A cut triangle has its one piece above and its other piece, the other way round,
            // below.
            if (m_edges[i].source != Source::below) {
                ++use.above;
                use.netAbove += way;
            }
            if (m_edges[i].source != Source::above) {
                ++use.below;
                use.netBelow += m_edges[i].source == Source::cut ? -way : way;
            }
        }
        addSegment(use, m_edges[first].low, m_edges[first].high, segments);
    }
    dropSurplus(segments, points);
    settleDirections(segments, points);
    return segments;
}
