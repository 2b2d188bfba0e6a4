// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionPoints.h"

#include <bit>
#include <utility>

std::size_t SectionPoints::PlaceHash::operator()(std::array<double, 2> const& p) const
{
    std::uint64_t hash = 0;
    for (double const c : p)
        // Adding zero gives both zeros the same bits.
        hash = (hash ^ std::bit_cast<std::uint64_t>(c + 0.0)) * 0x9e3779b97f4a7c15u;
    return hash ^ (hash >> 32);
}

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
    m_ofEdge.reserve(count);
    m_byPlace.reserve(count);
}

std::uint32_t SectionPoints::add(UPoint3<float> const& place)
{
    m_points.push_back({place});
    return std::uint32_t(m_points.size() - 1);
}

/// The point whose plane coordinates are those of `place`.
std::uint32_t SectionPoints::pointAt(UPoint3<float> const& place)
{
    auto const [entry, isNew] = m_byPlace.try_emplace(m_plane.project(place), 0);
    if (isNew)
        entry->second = add(place);
    return entry->second;
}

std::uint32_t SectionPoints::ofEdge(std::uint32_t belowPlace, std::uint32_t abovePlace)
{
    auto const [entry, isNew] = m_ofEdge.try_emplace(key(belowPlace, abovePlace), 0);
    if (isNew)
        // The third coordinate follows from the other two, so that it does not depend on which of
        // several edges through one place comes first.
        entry->second = pointAt(m_plane.lift(m_plane.project(crossing(belowPlace, abovePlace))));
    return entry->second;
}

std::uint32_t SectionPoints::ofVertex(std::uint32_t vertexPlace)
{
    auto const [entry, isNew] = m_ofVertex.try_emplace(vertexPlace, 0);
    if (isNew) {
        UPoint3<float> const place = m_source.vertices[vertexPlace]->cP();
        entry->second = pointAt(place);
        // Where a vertex and the crossing of an edge are one point, the vertex stays where it was.
        m_points[entry->second].place = place;
    }
    return entry->second;
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
