// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/DelaunayEdges.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace Exact {

/// Makes segments edges of a Delaunay triangulation, which thereby becomes a constrained one.
///
/// After Anglada, "An improved incremental algorithm for constructing restricted Delaunay
/// triangulations", 1997.
class SegmentEdges
{
public:
    using Edge = PlaneEdges::Edge;
    using Point = DelaunayEdges::Point;

    /// points  by whose places the edges know them
    SegmentEdges(std::vector<Point> const& points, PlaneEdges& edges);

    /// Adds a segment between two points, with a number that is added up over an edge, along it.
    /// Returns false, and leaves the edges of no use, where it crosses another one or runs through
    /// a point.
    ///
    /// poll  called in proportion to the work; may throw
    /// cost  in proportion to the edges around the ends, plus O(k log k) for k edges that it
    ///       crosses, and O(k^2) at worst
    bool add(std::uint32_t from, std::uint32_t to, int weight, std::function<void()> const& poll);

    bool isSegment(Edge e) const { return m_segments[e / 2].isThere; }
    /// What the segments over an edge add up to.
    int weight(Edge e) const
    {
        return e % 2 == 0 ? m_segments[e / 2].weight : -m_segments[e / 2].weight;
    }

private:
    struct Segment
    {
        int weight = 0;
        bool isThere = false;
    };

    Edge find(std::uint32_t& from, std::uint32_t& to, int& weight) const;
    Edge facing(std::uint32_t from, std::uint32_t to) const;
    bool clear(Edge first, std::uint32_t to, std::function<void()> const& poll);
    void fill(std::span<Edge const> border, std::function<void()> const& poll);
    void fix(Edge e, int weight);

    FlatPlace const& placeOf(std::uint32_t point) const { return m_points[point].place; }
    int orientation(std::uint32_t a, std::uint32_t b, std::uint32_t c) const
    {
        return flatOrientation(placeOf(a), placeOf(b), placeOf(c));
    }

    static constexpr Edge none = 0xffffffff;

    std::vector<Point> const& m_points;
    PlaneEdges& m_edges;
    /// An edge that leaves each point.
    std::vector<Edge> m_edgeFrom;
    std::vector<Segment> m_segments;
    /// Around what the last segment has cleared, anticlockwise: on its left, and on its right.
    std::vector<Edge> m_left, m_right;
    std::vector<Edge> m_crossed;
    std::vector<std::pair<std::size_t, std::size_t>> m_parts;
};

}  // namespace Exact
