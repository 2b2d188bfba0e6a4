// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/DisjointSets.h"
#include "host/services/EdgeGroups.h"
#include "host/services/planecut/SectionWalls.h"

#include <cstdint>
#include <vector>

/// The walls of both halves, taken apart at every face of the section, in sheets: triangles that
/// hang together over edges. Sheets are then joined, where a face is not cut or where a cap closes
/// several of them.
///
/// A part whose triangles do not share their vertices hangs together where vertices coincide.
class HalfSheets
{
public:
    HalfSheets(UMesh<float> const& source, SideCopies const& copies, SectionPoints const& points,
               std::vector<WallPiece> const& pieces, StageProgress& progress);

    /// The triangles: first the copied ones, then those of the pieces. A section point has one
    /// vertex for each side.
    MeshArrays takeArrays() { return std::move(m_arrays); }
    std::size_t triangleCount() const { return m_firstOfPiece.back(); }
    std::size_t copiedCount() const { return m_copiedCount; }
    std::uint32_t vertexOf(std::uint32_t point, CutSide side) const
    {
        return m_firstPoint + 2 * point + side;
    }

    /// The sheet of a triangle: the smallest triangle of it.
    std::uint32_t sheetOf(std::uint32_t triangle) { return m_sheets.root(triangle); }
    /// A piece that is nothing for want of corners has no triangle, and no sheet.
    bool hasTriangle(std::uint32_t piece) const
    {
        return m_firstOfPiece[piece] != m_firstOfPiece[piece + 1];
    }
    std::uint32_t triangleOf(std::uint32_t piece) const { return m_firstOfPiece[piece]; }
    /// Joins the sheets of the given pieces to one.
    void join(std::vector<std::uint32_t> const& pieces);

private:
    void addPieces(std::vector<WallPiece> const& pieces);
    /// Whether triangles have borders elsewhere than at the section.
    bool isOpen(EdgeGroups const& edges, StageProgress& progress) const;
    void joinCoincident(StageProgress& progress);
    void joinOverEdges(EdgeGroups const& edges, StageProgress& progress);

    MeshArrays m_arrays;
    std::size_t m_copiedCount;
    std::uint32_t m_firstPoint;
    std::vector<std::uint32_t> m_firstOfPiece;
    DisjointSets m_sheets;
};
