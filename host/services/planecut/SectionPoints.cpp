// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionPoints.h"

#include <bit>
#include <utility>

std::size_t SectionPoints::PlaceHash::operator()(UPoint3<float> const& p) const
{
    std::uint64_t hash = 0;
    for (int i = 0; i < 3; ++i)
        // Adding zero gives both zeros the same bits.
        hash = (hash ^ std::bit_cast<std::uint32_t>(p[i] + 0.0f)) * 0x9e3779b97f4a7c15u;
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

void SectionPoints::settle(std::vector<UTriangle<float> const*> const& meeting)
{
    m_ofEdge.reserve(2 * meeting.size());
    m_byPlace.reserve(2 * meeting.size());
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
                if (p == m_source.vertices[end]->cP()) {
                    m_sideBeforeMove[end] = m_copies.sideOf(end);
                    m_copies.moveToPlane(end);
                }
        }
}

std::uint32_t SectionPoints::add(UPoint3<float> const& place)
{
    m_points.push_back({place});
    return std::uint32_t(m_points.size() - 1);
}

std::uint32_t SectionPoints::pointAt(UPoint3<float> const& place)
{
    auto const [entry, isNew] = m_byPlace.try_emplace(place, 0);
    if (isNew)
        entry->second = add(place);
    return entry->second;
}

std::uint32_t SectionPoints::ofEdge(std::uint32_t belowPlace, std::uint32_t abovePlace)
{
    auto const [entry, isNew] = m_ofEdge.try_emplace(key(belowPlace, abovePlace), 0);
    if (isNew)
        entry->second = pointAt(crossing(belowPlace, abovePlace));
    return entry->second;
}

std::uint32_t SectionPoints::ofVertex(std::uint32_t vertexPlace)
{
    auto const [entry, isNew] = m_ofVertex.try_emplace(vertexPlace, 0);
    if (!isNew)
        return entry->second;
    std::uint32_t const point = pointAt(m_source.vertices[vertexPlace]->cP());
    entry->second = point;
    // A vertex that was moved to the plane has a copy already, used by triangles beside the
    // section.
    if (auto const moved = m_sideBeforeMove.find(vertexPlace); moved != m_sideBeforeMove.end()) {
        Vertex*& copy = m_points[point].copies[moved->second > 0 ? sideAbove : sideBelow];
        Vertex* const existing = m_copies.copyOf(vertexPlace);
        if (!copy)
            copy = existing;
        else if (copy != existing)
            m_replacements[existing] = copy;
    }
    return point;
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
