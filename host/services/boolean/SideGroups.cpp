// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SideGroups.h"

#include "host/services/Polling.h"

#include <algorithm>
#include <functional>

SideGroups::SideGroups(OperandSoup const& soup, CurveNetwork const& network, Operand operand,
                       StageProgress& progress)
    : m_soup(soup),
      m_network(network),
      m_firstPoint(operand == Operand::first ? 0 : soup.firstPointOfSecond),
      m_pointCount((operand == Operand::first ? soup.firstPointOfSecond : soup.pointCount()) -
                   m_firstPoint),
      m_firstTriangle(operand == Operand::first ? 0 : soup.firstTriangleOfSecond),
      m_endTriangle(operand == Operand::first ? soup.firstTriangleOfSecond : soup.triangleCount()),
      m_sets(m_pointCount + regionCount())
{
    Polling polling(progress);
    for (std::uint32_t t = m_firstTriangle; t < m_endTriangle; ++t) {
        polling.step();
        if (network.faceOf(t) == CurveNetwork::none)
            joinTriangle(t);
        else
            joinFace(network.faceOf(t));
    }
    joinAcrossSides(progress);
}

void SideGroups::joinTriangle(std::uint32_t triangle)
{
    MeshArrays::Corners const& c = m_soup.corners(triangle);
    m_sets.unite(c[0] - m_firstPoint, c[1] - m_firstPoint);
    m_sets.unite(c[0] - m_firstPoint, c[2] - m_firstPoint);
}

void SideGroups::joinFace(std::uint32_t face)
{
    Facets const& facets = m_network.facets();
    std::uint32_t const begin = face == 0 ? 0 : facets.ends[face - 1].facets;
    for (std::uint32_t f = begin; f < facets.ends[face].facets; ++f)
        for (std::uint32_t const corner : facets.corners[f])
            if (!m_network.points().isOnCurve(corner))
                m_sets.unite(corner - m_firstPoint, m_pointCount + facets.regions[f]);
}

/// Whether a point lies on the line through two vertices.
bool SideGroups::isOnLine(std::span<std::uint32_t const> vertices, std::uint32_t point) const
{
    CurvePoints const& points = m_network.points();
    for (int axis = 0; axis < 3; ++axis)
        if (Exact::orient2d(points.exact(vertices[0]), points.exact(vertices[1]),
                            points.exact(point), axis) != 0)
            return false;
    return true;
}

/// Joins regions of neighbouring triangles at edges between two points of the curves along which no
/// curve runs: no vertex may be there to join them.
void SideGroups::joinAcrossSides(StageProgress& progress)
{
    struct Side
    {
        FaceSegment edge;
        std::uint32_t region;
        std::uint32_t triangle;
    };
    std::vector<Side> sides;
    Facets const& facets = m_network.facets();
    Polling polling(progress);
    std::uint32_t begin = 0;
    for (Facets::End const& face : facets.ends) {
        polling.step();
        if (face.triangle >= m_firstTriangle && face.triangle < m_endTriangle)
            for (std::uint32_t b = begin; b < face.borders; ++b) {
                Facets::Border const& border = facets.borders[b];
                if (border.isSide && m_network.points().isOnCurve(border.from) &&
                    m_network.points().isOnCurve(border.to))
                    sides.push_back(
                        {{std::min(border.from, border.to), std::max(border.from, border.to)},
                         border.region,
                         face.triangle});
            }
        begin = face.borders;
    }
    if (sides.empty())
        return;
    std::vector<FaceSegment> curves;
    for (CurveSegment const& s : m_network.segments())
        if (s.isAlongEdge())
            curves.push_back({std::min(s.from, s.to), std::max(s.from, s.to)});
    sortPolled(curves, progress, std::less<>());
    sortPolled<true>(sides, progress, [](Side const& a, Side const& b) { return a.edge < b.edge; });
    // Edges of different shells at one place are no one's common edge, nor are those of triangles that
    // share another one.
    auto const areNeighbours = [&](Side const& a, Side const& b) {
        std::vector<std::uint32_t> shared;
        MeshArrays::Corners const& corners = m_soup.corners(b.triangle);
        for (std::uint32_t const corner : m_soup.corners(a.triangle))
            if (std::find(corners.begin(), corners.end(), corner) != corners.end())
                shared.push_back(corner);
        return shared.size() == 3 ||
               (shared.size() == 2 && isOnLine(shared, a.edge.from) && isOnLine(shared, a.edge.to));
    };
    for (std::size_t first = 0, end = 0; first < sides.size(); first = end) {
        polling.step();
        while (end < sides.size() && sides[end].edge == sides[first].edge)
            ++end;
        if (std::binary_search(curves.begin(), curves.end(), sides[first].edge))
            continue;
        for (std::size_t i = first; i < end; ++i)
            for (std::size_t j = i + 1; j < end; ++j)
                if (end - first == 2 || areNeighbours(sides[i], sides[j]))
                    m_sets.unite(m_pointCount + sides[i].region, m_pointCount + sides[j].region);
    }
}
