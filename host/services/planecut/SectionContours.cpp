// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionContours.h"

#include "host/mesh/DisjointSets.h"
#include "host/services/planecut/SurplusContours.h"

#include <algorithm>
#include <tuple>

namespace {

using Segments = std::vector<Exact::SectionSegment>;

/// Contours that hang together, and what is wrong with them.
class ContourComponents
{
public:
    ContourComponents(Segments const& segments, std::size_t pointCount)
        : m_components(pointCount), m_balance(pointCount, 0), m_degree(pointCount, 0)
    {
        for (Exact::SectionSegment const& s : segments) {
            m_balance[s.from] -= s.weight;
            m_balance[s.to] += s.weight;
            m_degree[s.from] += s.weight;
            m_degree[s.to] += s.weight;
            m_components.unite(s.from, s.to);
        }
    }

    std::uint32_t of(std::uint32_t point) { return m_components.root(point); }

    /// A point at which a contour ends, or else one at which directions disagree.
    std::optional<SectionFault> fault(SectionPoints const& points) const
    {
        for (std::uint32_t p = 0; p < m_degree.size(); ++p)
            if (m_degree[p] % 2 != 0)
                return SectionFault{points.place(p), true};
        for (std::uint32_t p = 0; p < m_balance.size(); ++p)
            if (m_balance[p] != 0)
                return SectionFault{points.place(p), false};
        return {};
    }

    std::vector<bool> haveFault()
    {
        std::vector<bool> haveFault(m_balance.size(), false);
        for (std::uint32_t p = 0; p < m_balance.size(); ++p)
            if (m_balance[p] != 0 || m_degree[p] % 2 != 0)
                haveFault[of(p)] = true;
        return haveFault;
    }

private:
    // Points that contours connect.
    DisjointSets m_components;
    std::vector<int> m_balance;
    std::vector<int> m_degree;
};

}  // namespace

void Contours::findFault(SectionPoints const& points)
{
    fault = ContourComponents(segments, points.size()).fault(points);
    if (!fault && !m_disputes.empty())
        fault = SectionFault{points.place(m_disputes.front().low), false};
}

/// Leaves out what hangs together, has a fault and is not reached anywhere.
void Contours::leaveOutUnreached(SectionPoints const& points, SectionReach const& isReached)
{
    ContourComponents components(segments, points.size());
    std::vector<bool> isLeftOut = components.haveFault();
    for (Dispute const& dispute : m_disputes)
        isLeftOut[components.of(dispute.low)] = true;
    auto const lookAt = [&](std::uint32_t from, std::uint32_t to) {
        std::uint32_t const component = components.of(from);
        if (isLeftOut[component] && isReached(points.place(from), points.place(to)))
            isLeftOut[component] = false;
    };
    for (Exact::SectionSegment const& s : segments)
        lookAt(s.from, s.to);
    for (Dispute const& dispute : m_disputes)
        lookAt(dispute.low, dispute.high);
    auto const isGone = [&](std::uint32_t point) { return isLeftOut[components.of(point)]; };
    std::erase_if(m_disputes, [&](Dispute const& dispute) { return isGone(dispute.low); });
    isPartial =
        std::erase_if(segments, [&](Exact::SectionSegment const& s) { return isGone(s.from); }) > 0;
}

void Contours::dropSurplus(SectionPoints const& points)
{
    ::dropSurplus(segments, points);
    std::erase_if(m_disputes, [](Dispute const& dispute) { return !dispute.isOfTurned; });
    findFault(points);
}

/// The triangles of both halves at one edge in the plane.
struct SectionContours::EdgeUse
{
    int above = 0;
    int below = 0;
    int netAbove = 0;
    int netBelow = 0;

    void add(DirectedEdge const& edge)
    {
        int const way = edge.isUpward ? 1 : -1;
        // A cut triangle has its one piece above and its other piece, the other way round, below.
        if (edge.source != Source::below) {
            ++above;
            netAbove += way;
        }
        if (edge.source != Source::above) {
            ++below;
            netBelow += edge.source == Source::cut ? -way : way;
        }
    }

    bool isOnBothSides() const { return above > 0 && below > 0; }
    bool isDisputed() const { return netAbove != -netBelow; }
    /// How often contours run from the edge's lower point to the higher. Where the triangles do not
    /// agree, the side with an odd number of them tells.
    int weight() const { return isDisputed() && above % 2 == 0 ? -netBelow : netAbove; }
};

void SectionContours::add(std::uint32_t from, std::uint32_t to, Source source)
{
    if (from != to)
        m_edges.push_back({std::min(from, to), std::max(from, to), source, from < to});
}

Contours SectionContours::contours(SectionPoints const& points, SectionReach const& isReached)
{
    std::sort(m_edges.begin(), m_edges.end(), [](DirectedEdge const& a, DirectedEdge const& b) {
        return std::tie(a.low, a.high) < std::tie(b.low, b.high);
    });
    Contours contours;
    for (std::size_t i = 0; i < m_edges.size();) {
        std::uint32_t const low = m_edges[i].low, high = m_edges[i].high;
        EdgeUse use;
        for (; i < m_edges.size() && m_edges[i].low == low && m_edges[i].high == high; ++i)
            use.add(m_edges[i]);
        if (!use.isOnBothSides() || use.weight() == 0)
            contours.ridges.push_back({low, high});
        if (!use.isOnBothSides())
            continue;
        if (use.isDisputed())
            contours.m_disputes.push_back({{low, high}, use.above % 2 == use.below % 2});
        if (int const weight = use.weight(); weight > 0)
            contours.segments.push_back({low, high, weight});
        else if (weight < 0)
            contours.segments.push_back({high, low, -weight});
    }
    contours.findFault(points);
    if (contours.fault) {
        contours.leaveOutUnreached(points, isReached);
        contours.findFault(points);
    }
    return contours;
}
