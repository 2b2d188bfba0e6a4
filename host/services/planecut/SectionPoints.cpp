// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionPoints.h"

#include <utility>

SectionPoints::SectionPoints(SideCopies& copies, UMesh<float> const& source, CutPlane const& plane)
    : m_copies(copies), m_source(source), m_plane(plane)
{}

UPoint3<float> SectionPoints::crossing(std::uint32_t belowPlace, std::uint32_t abovePlace) const
{
    return m_plane.crossing(m_source.vertices[belowPlace]->cP(),
                            m_source.vertices[abovePlace]->cP());
}

std::vector<std::uint32_t> SectionPoints::verticesInPlane(
    std::vector<UTriangle<float> const*> const& meeting) const
{
    std::vector<std::uint32_t> found;
    for (UTriangle<float> const* const triangle : meeting)
        for (int i = 0; i < 3; ++i) {
            std::uint32_t below = m_copies.placeOf(triangle->cV(i));
            std::uint32_t above = m_copies.placeOf(triangle->cV((i + 1) % 3));
            if (m_copies.sideOf(below) > m_copies.sideOf(above))
                std::swap(below, above);
            if (m_copies.sideOf(below) >= 0 || m_copies.sideOf(above) <= 0)
                continue;
            UPoint3<float> const p = crossing(below, above);
            for (std::uint32_t const end : {below, above})
                if (p == m_source.vertices[end]->cP())
                    found.push_back(end);
        }
    return found;
}

void SectionPoints::reserve(std::size_t count)
{
    m_points.reserve(count);
    m_ofEdge = FlatMap<std::uint64_t, KeyHash>(count);
    m_byPlace = FlatMap<std::array<double, 2>, FlatPlaceHash>(count);
}

void SectionPoints::forgetOrigins()
{
    reserve(0);
    m_ofVertex = FlatMap<std::uint32_t, KeyHash>(0);
}

std::uint32_t SectionPoints::add(UPoint3<float> const& place)
{
    m_points.push_back({place});
    return std::uint32_t(m_points.size() - 1);
}

/// The point whose plane coordinates are those of `place`.
std::uint32_t SectionPoints::pointAt(UPoint3<float> const& place)
{
    std::uint32_t& point = m_byPlace[m_plane.project(place)];
    if (point == m_byPlace.none)
        point = add(place);
    return point;
}

std::uint32_t SectionPoints::ofEdge(std::uint32_t belowPlace, std::uint32_t abovePlace)
{
    std::uint32_t& point = m_ofEdge[key(belowPlace, abovePlace)];
    if (point == m_ofEdge.none)
        // The third coordinate follows from the other two, so that it does not depend on which of
        // several edges through one place comes first.
        point = pointAt(m_plane.lift(m_plane.project(crossing(belowPlace, abovePlace))));
    return point;
}

std::uint32_t SectionPoints::ofVertex(std::uint32_t vertexPlace)
{
    std::uint32_t& point = m_ofVertex[vertexPlace];
    if (point == m_ofVertex.none) {
        UPoint3<float> const place = m_source.vertices[vertexPlace]->cP();
        point = pointAt(place);
        // Where a vertex and the crossing of an edge are one point, the vertex stays where it was.
        m_points[point].place = place;
    }
    return point;
}

void SectionPoints::move(std::uint32_t point, UPoint3<float> const& place)
{
    m_points[point].place = place;
    for (Vertex* const vertex : m_points[point].copies)
        if (vertex)
            vertex->P() = place;
}

SectionPoints::Vertex* SectionPoints::vertexIn(CutSide side, std::uint32_t point)
{
    Vertex*& vertex = m_points[point].copies[side];
    if (!vertex) {
        vertex = new Vertex(m_points[point].place);
        vertex->ID() = m_copies.mesh(side).vertices.size();
        m_copies.mesh(side).AddVertex(vertex);
    }
    return vertex;
}
