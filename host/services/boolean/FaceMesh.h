// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

/// The facets into which a triangle is divided while it is, with their neighbours: topology alone.
/// Points are numbered from 0, the triangle's corners first.
class FaceMesh
{
public:
    static constexpr int none = -1;

    /// Edge i joins corner i and the next one. Edges on the triangle's sides have no neighbour;
    /// edges on a segment have its number.
    struct Facet
    {
        std::array<int, 3> corners;
        std::array<int, 3> neighbours;
        std::array<int, 3> segments;
    };
    struct Edge
    {
        int facet;
        int index;
    };

    /// Begins with one facet, the triangle.
    void begin();

    std::vector<Facet> const& facets() const { return m_facets; }
    Facet const& facet(int number) const { return m_facets[std::size_t(number)]; }
    /// A facet at a point.
    int facetAt(int point) const { return m_facetAt[std::size_t(point)]; }

    /// Makes room for one more point, which is to be put in by a split.
    void addPoint() { m_facetAt.push_back(0); }
    void splitFacet(int facet, int point);
    /// Splits an edge and the facets at it. The facet at the edge keeps its first half; the new
    /// facet at the second half has it as its first edge.
    void splitEdge(Edge edge, int point);
    /// Replaces the edge between two facets by the one between the corners opposite it.
    void flip(Edge edge);
    /// Marks an edge as lying on a segment, from both sides.
    void fix(Edge edge, int segment);

    /// The same edge seen from its other side; without a facet on a side of the triangle.
    Edge opposite(Edge edge) const;
    /// The edge between two points, from either side; without a facet if there is none.
    Edge findEdge(int from, int to) const;

private:
    void setFacet(int facet, std::array<int, 3> corners);
    void link(int facet, int index, int neighbour, int segment);

    std::vector<Facet> m_facets;
    std::vector<int> m_facetAt;
};
