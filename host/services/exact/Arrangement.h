// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// For the sources of this folder only: it shows CGAL's types.

#include "host/services/exact/ExactSurface.h"

#include <array>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

/// Two meshes divided along all curves in which their triangles meet, those of the second among
/// themselves included. Where triangles lie in one another, one of them stands for all.
class Arrangement
{
public:
    using Point = ExactKernel::Point_3;

    struct Facet
    {
        MeshArrays::Corners corners;
        /// The triangle of which it is a piece.
        std::uint32_t triangle;
    };

    /// soup           both meshes, one behind the other, without degenerate triangles and without
    ///                two points at the same place; must outlive this
    /// firstOfSecond  where the second mesh begins
    Arrangement(MeshArrays const& soup, std::uint32_t firstOfSecond, StageProgress& progress);

    std::vector<Facet> const& facets() const { return m_facets; }
    /// Points of the soup, and behind them those that were made.
    std::size_t pointCount() const { return m_soup.points.size() + m_made.size(); }
    Point point(std::uint32_t id) const;

private:
    using Edge = std::pair<std::uint32_t, std::uint32_t>;
    using Triangle = std::uint32_t;

    /// What divides a triangle.
    struct Division
    {
        std::vector<std::uint32_t> points;
        std::vector<Edge> segments;
        /// Triangles in the same plane that it overlaps.
        std::vector<Triangle> overlaps;
    };

    void findPairs();
    std::vector<Triangle> trianglesOfFirstThatMeet();
    bool canMeet(Triangle t, Triangle u) const;
    void intersect(Triangle t, Triangle u);
    void addPolygon(Triangle t, Triangle u, std::vector<Point> const& corners);
    std::uint32_t idOf(Point const& point);
    ExactKernel::Triangle_3 exactTriangle(Triangle t) const;

    void shareEdgePoints();
    void addEdgePoint(Triangle t, std::uint32_t id);
    void divideAll();
    void divide(Triangle t, Division const& division);
    bool isForAnother(MeshArrays::Corners const& corners, Triangle t,
                      Division const& division) const;

    MeshArrays const& m_soup;
    std::uint32_t m_firstOfSecond;
    StageProgress& m_progress;
    std::map<Triangle, Division> m_divisions;
    std::map<Edge, std::vector<std::uint32_t>> m_edgePoints;
    std::map<Point, std::uint32_t> m_ids;
    std::vector<Point> m_made;
    std::vector<Facet> m_facets;
};
