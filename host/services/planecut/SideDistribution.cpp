// SPDX-License-Identifier: GPL-3.0-or-later
// The part of SideCopies that a cut by a plane which ends within the part needs.
#include "host/services/planecut/SideCopies.h"

namespace {

constexpr std::size_t batch = 16384;

}  // namespace

std::vector<SideCopies::Places> SideCopies::copiedTriangles(StageProgress& progress) const
{
    std::vector<Places> triangles;
    triangles.reserve(m_source.triangles.size() - m_meeting.size());
    auto meeting = m_meeting.begin();
    for (std::size_t t = 0; t < m_source.triangles.size(); ++t) {
        if (t % batch == 0)
            progress.add(0);
        Triangle const* const triangle = m_source.triangles[t];
        if (meeting != m_meeting.end() && *meeting == triangle)
            ++meeting;
        else
            triangles.push_back(
                {m_place(triangle->cV(0)), m_place(triangle->cV(1)), m_place(triangle->cV(2))});
    }
    return triangles;
}

/// A corner of a triangle in one half, with its vertex in the other.
struct SideCopies::Stray
{
    Triangle* triangle;
    int corner;
    CutSide half;
    std::uint32_t place;
};

void SideCopies::distribute(std::vector<CutSide> const& halfOfTriangle,
                            std::vector<CutSide> halfOfVertex, StageProgress& progress)
{
    auto const places = copiedTriangles(progress);
    for (std::size_t t = 0; t < places.size(); ++t)
        for (std::uint32_t const place : places[t])
            halfOfVertex[place] = halfOfTriangle[t];
    progress.add(0);
    std::vector<Stray> strays;
    auto triangles = triangleLists(places, halfOfTriangle, halfOfVertex, strays, progress);
    std::array<std::vector<Vertex*>, 2> vertices;
    for (std::uint32_t v = 0; v < m_copies.size(); ++v)
        if (m_copies[v])
            vertices[halfOfVertex[v]].push_back(m_copies[v]);
    for (CutSide const half : {sideAbove, sideBelow}) {
        m_meshes[half]->triangles.swap(triangles[half]);
        m_meshes[half]->vertices.swap(vertices[half]);
    }
    m_halfOfVertex = std::move(halfOfVertex);
    for (Stray const& stray : strays)
        stray.triangle->V0(stray.corner) = copyIn(stray.half, stray.place);
}

/// The copied triangles by the half that they are to go to.
std::array<std::vector<SideCopies::Triangle*>, 2> SideCopies::triangleLists(
    std::vector<Places> const& places, std::vector<CutSide> const& halfOfTriangle,
    std::vector<CutSide> const& halfOfVertex, std::vector<Stray>& strays,
    StageProgress& progress) const
{
    std::array<std::vector<Triangle*>, 2> lists;
    std::array<std::size_t, 2> next{};
    for (std::size_t t = 0; t < places.size(); ++t) {
        if (t % batch == 0)
            progress.add(0);
        CutSide const side = m_sides[places[t][0]] > 0 ? sideAbove : sideBelow;
        CutSide const half = halfOfTriangle[t];
        Triangle* const triangle = m_meshes[side]->triangles[next[side]++];
        lists[half].push_back(triangle);
        for (int i = 0; i < 3; ++i)
            if (std::uint32_t const place = places[t][std::size_t(i)]; halfOfVertex[place] != half)
                strays.push_back({triangle, i, half, place});
    }
    return lists;
}

/// A vertex belongs to two halves at most, so that one other copy will do.
SideCopies::Vertex* SideCopies::anotherCopy(CutSide half, std::uint32_t place)
{
    Vertex*& copy = m_otherCopies[place];
    if (!copy) {
        copy = new Vertex(pointAt(place));
        m_meshes[half]->AddVertex(copy);
    }
    return copy;
}
