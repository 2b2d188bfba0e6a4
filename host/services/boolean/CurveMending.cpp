// SPDX-License-Identifier: GPL-3.0-or-later
// Breaks the segments of a network where points lie on them and where they cross.
#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/boolean/CurveNetwork.h"
#include "host/services/boolean/FlatMap.h"
#include "host/services/boolean/SegmentOrder.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>

namespace {

TrianglePlace placeBetween(int edge)
{
    return edge == CurveSegment::inside ? TrianglePlace::face() : TrianglePlace::edge(edge);
}

}  // namespace

/// The segments by their ends; kept up while they are broken.
class CurveNetwork::SegmentIndex
{
public:
    SegmentIndex(std::vector<CurveSegment> const& segments, StageProgress& progress)
        : m_first(segments.size())
    {
        Polling polling(progress);
        m_entries.reserve(segments.size());
        for (std::uint32_t i = std::uint32_t(segments.size()); i-- > 0; polling.step())
            add(segments[i], i);
    }

    void add(CurveSegment const& segment, std::uint32_t place)
    {
        std::uint32_t& first = m_first[keyOf(undirected(segment.from, segment.to))];
        m_entries.push_back({place, first});
        first = std::uint32_t(m_entries.size() - 1);
    }

    /// The places of the segments between two points, and of some that were there before.
    std::vector<std::uint32_t> at(FaceSegment const& segment) const
    {
        std::vector<std::uint32_t> places;
        for (std::uint32_t i = m_first.find(keyOf(segment)); i != none; i = m_entries[i].next)
            places.push_back(m_entries[i].place);
        return places;
    }

private:
    struct Hash
    {
        std::uint64_t operator()(std::uint64_t key) const { return mixBits(key); }
    };
    static std::uint64_t keyOf(FaceSegment const& s) { return std::uint64_t(s.from) << 32 | s.to; }

    struct Entry
    {
        std::uint32_t place;
        std::uint32_t next;
    };

    FlatMap<std::uint64_t, Hash> m_first;
    std::vector<Entry> m_entries;
};

/// Breaks segments where points lie on them and where they cross, each at all its points at once: one
/// segment may be crossed by hundreds.
void CurveNetwork::mend(FaceFaults const& faults, StageProgress& progress)
{
    SegmentIndex index(m_segments, progress);
    Polling polling(progress);
    std::vector<SegmentPoint> points;
    for (FaceFaults::Break const& fault : faults.breaks)
        points.emplace_back(fault.segment, fault.point);
    for (FaceFaults::Crossing const& fault : faults.crossings) {
        polling.step();
        auto const a = cutterOf(fault.triangle, fault.first, index);
        auto const b = cutterOf(fault.triangle, fault.second, index);
        if (!a || !b)
            continue;  // not expected; a crossing that stays sends the solids the exact way
        std::uint32_t const point = addCrossing(fault.triangle, *a, *b);
        points.emplace_back(fault.first, point);
        points.emplace_back(fault.second, point);
    }
    sortUniquely(points, progress);
    for (auto begin = points.begin(); begin != points.end();) {
        auto const end = std::find_if(
            begin, points.end(), [&](SegmentPoint const& p) { return p.first != begin->first; });
        sortAlong(begin->first, {begin, end});
        FaceSegment rest = begin->first;
        for (; begin != end; ++begin) {
            polling.step();
            breakSegment(rest, begin->second, index);
            rest = undirected(begin->second, begin->first.to);
        }
    }
}

/// Puts points of a segment in their order from its first end to its second.
void CurveNetwork::sortAlong(FaceSegment const& segment, std::span<SegmentPoint> points) const
{
    if (points.size() < 2)
        return;
    auto const from = m_points.estimate(segment.from).place,
               to = m_points.estimate(segment.to).place;
    std::array<int, 3> axes{0, 1, 2};
    std::sort(axes.begin(), axes.end(), [&](int a, int b) {
        auto const way = [&](int k) { return std::abs(to[std::size_t(k)] - from[std::size_t(k)]); };
        return way(a) > way(b);
    });
    for (int const axis : axes)
        if (int const direction = compare(segment.from, segment.to, axis); direction != 0) {
            std::sort(
                points.begin(), points.end(), [&](SegmentPoint const& p, SegmentPoint const& q) {
                    return p.second != q.second && compare(p.second, q.second, axis) == direction;
                });
            return;
        }
}

std::uint32_t CurveNetwork::addCrossing(std::uint32_t triangle, Cutter const& a, Cutter const& b)
{
    if (a.isEdge && b.isEdge)
        return m_points.addMeeting(a.edge, b.edge);
    if (a.isEdge || b.isEdge)
        return m_points.addPassage(a.isEdge ? a.edge : b.edge, a.isEdge ? b.triangle : a.triangle);
    return m_points.addCrossing({triangle, a.triangle, b.triangle});
}

std::optional<CurveNetwork::Cutter> CurveNetwork::cutterOf(std::uint32_t triangle,
                                                           FaceSegment const& segment,
                                                           SegmentIndex const& index) const
{
    for (std::uint32_t const i : index.at(segment)) {
        CurveSegment const& s = m_segments[i];
        for (std::size_t o = 0; o < 2; ++o) {
            if (s.triangles[o] != triangle || undirected(s.from, s.to) != segment)
                continue;
            std::uint32_t const partner = s.triangles[1 - o];
            if (!areInOnePlane(triangle, partner))
                return Cutter{partner};
            if (s.edges[1 - o] == CurveSegment::inside)
                return {};
            std::size_t const k = std::size_t(s.edges[1 - o]);
            auto const& corners = m_soup.corners(partner);
            return Cutter{partner, {corners[k], corners[(k + 1) % 3]}, true};
        }
    }
    assert(false && "a face has only segments that are there");
    return {};
}

bool CurveNetwork::areInOnePlane(std::uint32_t a, std::uint32_t b) const
{
    auto const corner = [&](std::uint32_t t, int k) { return m_soup.mesh.point(t, k); };
    for (int k = 0; k < 3; ++k)
        if (ExactSigns::orient3d(corner(a, 0), corner(a, 1), corner(a, 2), corner(b, k)) != 0)
            return false;
    return true;
}

void CurveNetwork::breakSegment(FaceSegment const& segment, std::uint32_t point,
                                SegmentIndex& index)
{
    std::vector<std::uint32_t> places = index.at(segment);
    std::sort(places.begin(), places.end());
    for (std::uint32_t const i : places) {
        CurveSegment& s = m_segments[i];
        if (undirected(s.from, s.to) != segment || s.from == point || s.to == point)
            continue;
        CurveSegment second = s;
        second.from = s.to = point;
        for (std::size_t o = 0; o < 2; ++o)
            second.fromPlaces[o] = s.toPlaces[o] = placeBetween(s.edges[o]);
        index.add(s, i);
        m_segments.push_back(second);
        index.add(second, std::uint32_t(m_segments.size() - 1));
    }
}
