// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/PlainTriangulation.h"

#include "host/services/exact/SegmentEdges.h"

namespace Exact {

namespace {

using Edge = PlaneEdges::Edge;

constexpr std::size_t pollInterval = 4096;

class PlainTriangulation
{
public:
    PlainTriangulation(std::vector<SectionPoint2> const& places,
                       std::vector<SectionSegment> const& segments,
                       std::function<void(int)> const& progress)
        : m_segments(segments), m_progress(progress)
    {
        m_points.reserve(places.size());
        for (std::uint32_t i = 0; i < places.size(); ++i)
            m_points.push_back({places[i], i});
    }

    std::optional<std::vector<PlaneFace>> run()
    {
        auto const around = DelaunayEdges(m_points, m_edges, stage(0, pointsDone)).run();
        if (!around)
            return std::vector<PlaneFace>();
        SegmentEdges segments(m_points, m_edges);
        if (!insert(segments))
            return {};
        findTriangles(*around);
        return solidTriangles(segments);
    }

private:
    static constexpr int pointsDone = 60;
    static constexpr int segmentsDone = 80;
    static constexpr std::uint32_t none = PlaneFace::none;

    std::function<void(int)> stage(int begin, int end) const
    {
        if (!m_progress)
            return {};
        return
            [this, begin, end](int percent) { m_progress(begin + percent * (end - begin) / 100); };
    }

    void report(int percent) const
    {
        if (m_progress)
            m_progress(percent);
    }

    bool insert(SegmentEdges& segments) const
    {
        std::vector<std::uint32_t> places(m_points.size());
        for (std::uint32_t i = 0; i < m_points.size(); ++i)
            places[m_points[i].number] = i;
        for (std::size_t i = 0; i < m_segments.size(); ++i) {
            auto const tell = [&] {
                report(pointsDone + int((segmentsDone - pointsDone) * i / m_segments.size()));
            };
            if (i % pollInterval == 0)
                tell();
            SectionSegment const& s = m_segments[i];
            if (!segments.add(places[s.from], places[s.to], s.weight, tell))
                return false;
        }
        return true;
    }

    /// Numbers the triangles by their first edges.
    ///
    /// around  has what is outside all points on its right
    void findTriangles(Edge around)
    {
        m_triangleOf.assign(m_edges.size(), none);
        for (Edge e = 0; e < m_edges.size(); ++e) {
            if (e % pollInterval == 0)
                report(segmentsDone);
            if (!m_edges.isThere(e) || m_triangleOf[e] != none)
                continue;
            Edge const second = m_edges.nextOnLeft(e), third = m_edges.nextOnLeft(second);
            if (m_edges.nextOnLeft(third) != e)
                continue;
            m_triangleOf[e] = m_triangleOf[second] = m_triangleOf[third] =
                std::uint32_t(m_first.size());
            m_first.push_back(e);
        }
        // Where all points lie within a triangle, what is outside has three edges too.
        Edge const outside = PlaneEdges::turned(around);
        m_outside = m_triangleOf[outside];
        m_around = outside;
    }

    /// From outside inwards, each segment crossed changes the winding number.
    std::vector<PlaneFace> solidTriangles(SegmentEdges const& segments)
    {
        std::vector<int> windings(m_first.size(), unknown);
        if (m_outside != none)
            windings[m_outside] = 0;
        std::vector<std::uint32_t> front;
        auto const enter = [&](Edge e, int winding) {
            std::uint32_t const triangle = m_triangleOf[PlaneEdges::turned(e)];
            if (triangle == none || windings[triangle] != unknown)
                return;
            windings[triangle] = winding - segments.weight(e);
            front.push_back(triangle);
        };
        Edge e = m_around;
        do {
            enter(e, 0);
            e = m_edges.nextOnLeft(e);
        } while (e != m_around);
        while (!front.empty()) {
            if (++m_visited % pollInterval == 0)
                report(segmentsDone);
            std::uint32_t const triangle = front.back();
            front.pop_back();
            Edge edge = m_first[triangle];
            for (int i = 0; i < 3; ++i, edge = m_edges.nextOnLeft(edge))
                enter(edge, windings[triangle]);
        }
        return facesOf(windings);
    }

    std::vector<PlaneFace> facesOf(std::vector<int> const& windings) const
    {
        std::vector<std::uint32_t> numbers(windings.size(), none);
        std::uint32_t count = 0;
        for (std::size_t t = 0; t < windings.size(); ++t)
            if (windings[t] != 0 && windings[t] != unknown)
                numbers[t] = count++;
        std::vector<PlaneFace> faces;
        faces.reserve(count);
        for (std::size_t t = 0; t < windings.size(); ++t) {
            if (numbers[t] == none)
                continue;
            PlaneFace& face = faces.emplace_back();
            face.winding = windings[t];
            Edge e = m_first[t];
            for (std::size_t i = 0; i < 3; ++i, e = m_edges.nextOnLeft(e)) {
                face.corners[i] = m_points[m_edges.from(e)].number;
                std::uint32_t const beyond = m_triangleOf[PlaneEdges::turned(e)];
                face.beyond[i] = beyond == none ? none : numbers[beyond];
            }
        }
        return faces;
    }

    static constexpr int unknown = INT32_MIN;

    std::vector<SectionSegment> const& m_segments;
    std::function<void(int)> const& m_progress;
    std::vector<DelaunayEdges::Point> m_points;
    PlaneEdges m_edges;
    /// The triangle on the left of each edge, and the first edge of each triangle.
    std::vector<std::uint32_t> m_triangleOf;
    std::vector<Edge> m_first;
    /// An edge with what is outside on its left, and its number if it counts as a triangle.
    Edge m_around = 0;
    std::uint32_t m_outside = none;
    std::size_t m_visited = 0;
};

}  // namespace

std::optional<std::vector<PlaneFace>> plainTriangulation(
    std::vector<SectionPoint2> const& points, std::vector<SectionSegment> const& segments,
    std::function<void(int)> const& progress)
{
    try {
        return PlainTriangulation(points, segments, progress).run();
    } catch (CoincidingPoints const&) {
        return {};
    }
}

}  // namespace Exact
