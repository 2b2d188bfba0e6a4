// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/HalfSheets.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <utility>

namespace {

constexpr std::size_t batch = 16384;

/// An order for all coordinates, those that are no numbers included. Adding zero gives both zeros
/// the same bits.
std::array<std::uint32_t, 3> bitsOf(UPoint3<float> const& p)
{
    auto const bits = [](float c) { return std::bit_cast<std::uint32_t>(c + 0.0f); };
    return {bits(p.X()), bits(p.Y()), bits(p.Z())};
}

}  // namespace

HalfSheets::HalfSheets(UMesh<float> const& source, SideCopies const& copies,
                       SectionPoints const& points, std::vector<WallPiece> const& pieces,
                       StageProgress& progress)
    : m_firstPoint(std::uint32_t(source.vertices.size())), m_sheets(0)
{
    m_arrays.triangles = copies.copiedTriangles(progress);
    m_copiedCount = m_arrays.triangles.size();
    m_arrays.points.reserve(m_firstPoint + 2 * points.size());
    for (UVertex<float> const* const vertex : source.vertices) {
        if (m_arrays.points.size() % batch == 0)
            progress.add(0);
        m_arrays.points.push_back(vertex->cP());
    }
    for (std::uint32_t p = 0; p < points.size(); ++p)
        m_arrays.points.insert(m_arrays.points.end(), 2, points.place(p));
    addPieces(pieces);
    m_sheets = DisjointSets(m_arrays.triangles.size());
    EdgeGroups edges(m_arrays, progress);
    if (isOpen(edges, progress)) {
        joinCoincident(progress);
        edges = EdgeGroups(m_arrays, progress);
    }
    joinOverEdges(edges, progress);
}

void HalfSheets::addPieces(std::vector<WallPiece> const& pieces)
{
    m_firstOfPiece.reserve(pieces.size() + 1);
    for (WallPiece const& piece : pieces) {
        m_firstOfPiece.push_back(std::uint32_t(m_arrays.triangles.size()));
        auto const vertex = [&](int i) {
            WallCorner const& corner = piece.corners[std::size_t(i)];
            return corner.isPoint() ? vertexOf(corner.point, piece.side) : corner.vertex;
        };
        for (int i = 2; i < piece.size; ++i)
            m_arrays.triangles.push_back({vertex(0), vertex(i - 1), vertex(i)});
    }
    m_firstOfPiece.push_back(std::uint32_t(m_arrays.triangles.size()));
}

bool HalfSheets::isOpen(EdgeGroups const& edges, StageProgress& progress) const
{
    for (std::size_t e = 0; e < edges.size(); ++e) {
        if (e % batch == 0)
            progress.add(0);
        std::uint32_t const halfEdge = edges[e].front();
        if (edges[e].size() % 2 == 1 &&
            std::min(EdgeGroups::start(m_arrays, halfEdge), EdgeGroups::end(m_arrays, halfEdge)) <
                m_firstPoint)
            return true;
    }
    return false;
}

/// Has every triangle use the first of the vertices in one place. Section points need none of this:
/// they are joined as they are made.
void HalfSheets::joinCoincident(StageProgress& progress)
{
    std::vector<std::uint32_t> order(m_firstPoint);
    std::iota(order.begin(), order.end(), std::uint32_t(0));
    auto const key = [&](std::uint32_t v) { return std::pair(bitsOf(m_arrays.points[v]), v); };
    std::size_t steps = 0;
    std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        if (++steps % batch == 0)
            progress.add(0);
        return key(a) < key(b);
    });
    std::vector<std::uint32_t> firstThere(m_arrays.points.size());
    std::iota(firstThere.begin(), firstThere.end(), std::uint32_t(0));
    for (std::size_t i = 1; i < order.size(); ++i)
        if (key(order[i]).first == key(order[i - 1]).first)
            firstThere[order[i]] = firstThere[order[i - 1]];
    progress.add(0);
    for (MeshArrays::Corners& corners : m_arrays.triangles)
        for (std::uint32_t& corner : corners)
            corner = firstThere[corner];
}

void HalfSheets::joinOverEdges(EdgeGroups const& edges, StageProgress& progress)
{
    for (std::size_t e = 0; e < edges.size(); ++e) {
        if (e % batch == 0)
            progress.add(0);
        auto const group = edges[e];
        for (std::size_t i = 1; i < group.size(); ++i)
            m_sheets.unite(group[0] / 3, group[i] / 3);
    }
}

void HalfSheets::join(std::vector<std::uint32_t> const& pieces)
{
    std::uint32_t last = WallCorner::none;
    for (std::uint32_t const piece : pieces) {
        if (!hasTriangle(piece))
            continue;
        if (last != WallCorner::none)
            m_sheets.unite(m_firstOfPiece[last], m_firstOfPiece[piece]);
        last = piece;
    }
}
