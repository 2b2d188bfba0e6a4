// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/FaceMesh.h"

#include "host/services/boolean/CornerOrder.h"

void FaceMesh::begin()
{
    m_facets.assign(1, {{0, 1, 2}, {none, none, none}, {none, none, none}});
    m_facetAt.assign(3, 0);
}

void FaceMesh::setFacet(int facet, std::array<int, 3> corners)
{
    m_facets[std::size_t(facet)].corners = corners;
    for (int const c : corners)
        m_facetAt[std::size_t(c)] = facet;
}

/// Links an edge of a facet with a neighbour, which is told where it runs along this edge.
void FaceMesh::link(int facet, int index, int neighbour, int segment)
{
    Facet& f = m_facets[std::size_t(facet)];
    f.neighbours[std::size_t(index)] = neighbour;
    f.segments[std::size_t(index)] = segment;
    if (neighbour == none)
        return;
    Facet& g = m_facets[std::size_t(neighbour)];
    int const to = f.corners[std::size_t(next(index))];
    for (std::size_t k = 0; k < 3; ++k)
        if (g.corners[k] == to &&
            g.corners[std::size_t(next(int(k)))] == f.corners[std::size_t(index)]) {
            g.neighbours[k] = facet;
            g.segments[k] = segment;
        }
}

void FaceMesh::splitFacet(int facet, int point)
{
    Facet const old = m_facets[std::size_t(facet)];
    int const second = int(m_facets.size());
    int const third = second + 1;
    m_facets.resize(m_facets.size() + 2);
    setFacet(facet, {old.corners[0], old.corners[1], point});
    setFacet(second, {old.corners[1], old.corners[2], point});
    setFacet(third, {old.corners[2], old.corners[0], point});
    link(facet, 0, old.neighbours[0], old.segments[0]);
    link(second, 0, old.neighbours[1], old.segments[1]);
    link(third, 0, old.neighbours[2], old.segments[2]);
    link(facet, 1, second, none);
    link(second, 1, third, none);
    link(third, 1, facet, none);
}

/// Splits an edge and the facets at it. The facet at the edge keeps its first half; the new facet
/// at the second half has it as its first edge.
void FaceMesh::splitEdge(Edge edge, int point)
{
    Facet const f = m_facets[std::size_t(edge.facet)];
    std::size_t const i = std::size_t(edge.index);
    std::size_t const j = std::size_t(next(edge.index)), k = std::size_t(previous(edge.index));
    int const from = f.corners[i], to = f.corners[j], apex = f.corners[k];
    Edge const across = opposite(edge);
    int const half = int(m_facets.size());
    m_facets.resize(m_facets.size() + (across.facet == none ? 1 : 2));
    setFacet(edge.facet, {from, point, apex});
    setFacet(half, {point, to, apex});
    link(edge.facet, 2, f.neighbours[k], f.segments[k]);
    link(half, 1, f.neighbours[j], f.segments[j]);
    link(edge.facet, 1, half, none);
    link(edge.facet, 0, none, f.segments[i]);
    link(half, 0, none, f.segments[i]);
    if (across.facet == none)
        return;
    Facet const g = m_facets[std::size_t(across.facet)];
    std::size_t const gi = std::size_t(across.index);
    std::size_t const gj = std::size_t(next(across.index)),
                      gk = std::size_t(previous(across.index));
    int const otherApex = g.corners[gk];
    int const otherHalf = half + 1;
    setFacet(across.facet, {to, point, otherApex});
    setFacet(otherHalf, {point, from, otherApex});
    link(across.facet, 2, g.neighbours[gk], g.segments[gk]);
    link(otherHalf, 1, g.neighbours[gj], g.segments[gj]);
    link(across.facet, 1, otherHalf, none);
    link(across.facet, 0, half, g.segments[gi]);
    link(otherHalf, 0, edge.facet, g.segments[gi]);
}

FaceMesh::Edge FaceMesh::opposite(Edge edge) const
{
    Facet const& f = m_facets[std::size_t(edge.facet)];
    int const neighbour = f.neighbours[std::size_t(edge.index)];
    if (neighbour == none)
        return {none, none};
    Facet const& g = m_facets[std::size_t(neighbour)];
    int const to = f.corners[std::size_t(next(edge.index))];
    int k = 0;
    while (g.corners[std::size_t(k)] != to)
        ++k;
    return {neighbour, k};
}

/// The edge between two points, from either side.
FaceMesh::Edge FaceMesh::findEdge(int from, int to) const
{
    int const start = m_facetAt[std::size_t(from)];
    for (bool const isClockwise : {false, true}) {
        int facet = start;
        do {
            Facet const& f = m_facets[std::size_t(facet)];
            int k = 0;
            while (f.corners[std::size_t(k)] != from)
                ++k;
            if (f.corners[std::size_t(next(k))] == to)
                return {facet, k};
            if (f.corners[std::size_t(previous(k))] == to)
                return {facet, previous(k)};
            facet = f.neighbours[std::size_t(isClockwise ? k : previous(k))];
        } while (facet != none && facet != start);
    }
    return {none, none};
}

void FaceMesh::fix(Edge edge, int segment)
{
    if (edge.facet == none)
        return;
    Edge const across = opposite(edge);
    m_facets[std::size_t(edge.facet)].segments[std::size_t(edge.index)] = segment;
    if (across.facet != none)
        m_facets[std::size_t(across.facet)].segments[std::size_t(across.index)] = segment;
}

void FaceMesh::flip(Edge edge)
{
    Edge const across = opposite(edge);
    Facet const f = m_facets[std::size_t(edge.facet)];
    Facet const g = m_facets[std::size_t(across.facet)];
    std::size_t const i = std::size_t(edge.index), j = std::size_t(next(edge.index)),
                      k = std::size_t(previous(edge.index));
    std::size_t const gj = std::size_t(next(across.index)),
                      gk = std::size_t(previous(across.index));
    int const a = f.corners[i], b = f.corners[j], c = f.corners[k], d = g.corners[gk];
    setFacet(edge.facet, {a, d, c});
    setFacet(across.facet, {d, b, c});
    link(edge.facet, 0, g.neighbours[gj], g.segments[gj]);
    link(edge.facet, 2, f.neighbours[k], f.segments[k]);
    link(across.facet, 0, g.neighbours[gk], g.segments[gk]);
    link(across.facet, 1, f.neighbours[j], f.segments[j]);
    link(edge.facet, 1, across.facet, none);
}
