// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/FlatSigns.h"
#include "host/services/exact/PlaneEdges.h"

#include <functional>
#include <optional>
#include <vector>

namespace Exact {

/// Two points of a triangulation have the same place.
struct CoincidingPoints
{
};

/// A Delaunay triangulation of points in a plane, by halving and merging, across and along in turn.
///
/// After Guibas and Stolfi, 1985, for the merging and Dwyer, "A faster divide-and-conquer algorithm
/// for constructing Delaunay triangulations", 1987, for the turns.
class DelaunayEdges
{
public:
    using Edge = PlaneEdges::Edge;

    /// A place with the number of its point.
    struct Point
    {
        FlatPlace place;
        std::uint32_t number;
    };

    /// points    brought into an order in which neighbours lie close together, by whose
    ///           places the edges know them
    /// progress  a percentage; may throw
    /// cost      O(n log n) for n points
    DelaunayEdges(std::vector<Point>& points, PlaneEdges& edges,
                  std::function<void(int)> const& progress)
        : m_points(points), m_edges(edges), m_progress(progress)
    {}

    /// Returns an edge that runs around all points anticlockwise; nothing for fewer than two.
    ///
    /// throws  CoincidingPoints
    std::optional<Edge> run();

private:
    enum class Axis : bool
    {
        across,
        along,
    };

    /// Some points' triangulation, between the edges along its lower side as seen from its axis:
    /// that which leaves the first point anticlockwise, and that which leaves the last clockwise.
    struct Hull
    {
        Edge first;
        Edge last;
    };

    static Axis other(Axis axis) { return axis == Axis::across ? Axis::along : Axis::across; }
    static bool isBefore(Axis axis, FlatPlace const& a, FlatPlace const& b);

    void order(std::size_t begin, std::size_t end, Axis axis);
    void expectDistinct(std::uint32_t a, std::uint32_t b) const;
    Hull triangulate(std::size_t begin, std::size_t end, Axis axis);
    Hull ofTwo(std::size_t begin);
    Hull ofThree(std::size_t begin);
    Hull seenFrom(Axis axis, Hull const& hull) const;
    template <typename Better>
    Edge bestOnHull(Edge edge, Better const& isBetter) const;
    Hull merge(Hull left, Hull right);
    void closeUp(Edge base);

    FlatPlace const& placeOf(std::uint32_t point) const { return m_points[point].place; }
    int orientation(std::uint32_t a, std::uint32_t b, std::uint32_t c) const
    {
        return flatOrientation(placeOf(a), placeOf(b), placeOf(c));
    }
    bool isLeftOf(std::uint32_t point, Edge e) const
    {
        return orientation(m_edges.from(e), m_edges.to(e), point) > 0;
    }
    bool isRightOf(std::uint32_t point, Edge e) const
    {
        return orientation(m_edges.from(e), m_edges.to(e), point) < 0;
    }
    bool isInCircle(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) const
    {
        return Exact::isInCircle(placeOf(a), placeOf(b), placeOf(c), placeOf(d));
    }
    void poll();

    std::vector<Point>& m_points;
    PlaneEdges& m_edges;
    std::function<void(int)> const& m_progress;
    std::size_t m_done = 0;
    std::size_t m_steps = 0;
};

}  // namespace Exact
