// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/BoundedCut.h"

#include "host/services/planecut/FaceChoice.h"
#include "host/services/planecut/HalfSheets.h"
#include "host/services/planecut/SectionFaces.h"
#include "host/services/planecut/UntouchedShells.h"

#include <algorithm>

namespace {

using Face = SectionFaces::Face;

constexpr std::uint32_t none = UINT32_MAX;
constexpr std::uint32_t batch = 16384;

class BoundedCutter
{
public:
    BoundedCutter(UMesh<float> const& part, CutPlane const& plane, SideCopies const& copies,
                  SectionPoints const& points, std::vector<WallPiece> const& wallPieces,
                  SectionFaces const& faces, StageProgress& progress)
        : m_plane(plane),
          m_wallPieces(wallPieces),
          m_faces(faces),
          m_progress(progress),
          m_sheets(part, copies, points, wallPieces, progress),
          m_isCut(faces.faces().size(), false)
    {}

    /// Returns whether any face is cut.
    bool choose()
    {
        std::vector<std::uint32_t> candidates;
        for (std::uint32_t f = 0; f < m_isCut.size(); ++f) {
            Face const& face = m_faces.faces()[f];
            if (!face.canBeCut() || triangleAt(face, sideAbove) == none ||
                triangleAt(face, sideBelow) == none) {
                joinBothSides(face);
                continue;
            }
            m_sheets.join(face.pieces[sideAbove]);
            m_sheets.join(face.pieces[sideBelow]);
            candidates.push_back(f);
        }
        numberPieces();
        std::vector<FaceLink> links;
        links.reserve(candidates.size());
        for (std::uint32_t const f : candidates)
            links.push_back({pieceAt(f, sideBelow), pieceAt(f, sideAbove)});
        std::vector<bool> const isCut = chooseFaces(m_pieceCount, links);
        for (std::size_t i = 0; i < candidates.size(); ++i) {
            m_isCut[candidates[i]] = isCut[i];
            if (!isCut[i])
                joinBothSides(m_faces.faces()[candidates[i]]);
        }
        return std::find(isCut.begin(), isCut.end(), true) != isCut.end();
    }

    BoundedCut settle(Exact::SectionFilling const& filling, std::size_t pointCount)
    {
        numberPieces();
        std::vector<std::optional<CutSide>> halfOfPiece(m_pieceCount);
        for (std::uint32_t f = 0; f < m_isCut.size(); ++f)
            for (CutSide const side : {sideAbove, sideBelow})
                if (m_isCut[f])
                    halfOfPiece[pieceAt(f, side)] = side;
        BoundedCut cut;
        for (std::uint32_t p = 0; p < pointCount; ++p)
            cut.isCutPoint.push_back(m_isCut[m_faces.faceOf(p)]);
        MeshArrays const solids = closedSolids(filling);
        settleUntouched(solids, m_pieceOf, m_plane, halfOfPiece, m_progress);
        assignHalves(halfOfPiece, cut);
        return cut;
    }

private:
    void joinBothSides(Face const& face)
    {
        m_sheets.join(face.pieces[sideAbove]);
        m_sheets.join(face.pieces[sideBelow]);
        std::uint32_t const above = pieceWithTriangle(face, sideAbove);
        std::uint32_t const below = pieceWithTriangle(face, sideBelow);
        if (above != none && below != none)
            m_sheets.join({above, below});
    }

    /// A wall piece at the face that is not nothing.
    std::uint32_t pieceWithTriangle(Face const& face, CutSide side) const
    {
        auto const& pieces = face.pieces[side];
        auto const found = std::find_if(pieces.begin(), pieces.end(), [&](std::uint32_t piece) {
            return m_sheets.hasTriangle(piece);
        });
        return found == pieces.end() ? none : *found;
    }

    std::uint32_t triangleAt(Face const& face, CutSide side) const
    {
        std::uint32_t const piece = pieceWithTriangle(face, side);
        return piece == none ? none : m_sheets.triangleOf(piece);
    }

    std::uint32_t pieceAt(std::uint32_t face, CutSide side) const
    {
        return m_pieceOf[triangleAt(m_faces.faces()[face], side)];
    }

    /// Numbers what hangs together, by its first triangle.
    void numberPieces()
    {
        m_pieceOf.resize(m_sheets.triangleCount());
        m_pieceCount = 0;
        for (std::uint32_t t = 0; t < m_pieceOf.size(); ++t) {
            if (t % batch == 0)
                m_progress.add(0);
            std::uint32_t const first = m_sheets.sheetOf(t);
            m_pieceOf[t] = first == t ? m_pieceCount++ : m_pieceOf[first];
        }
    }

    /// The triangles of the sheets and the caps of the faces that are cut.
    MeshArrays closedSolids(Exact::SectionFilling const& filling)
    {
        MeshArrays solids = m_sheets.takeArrays();
        for (auto const& [a, b, c] : filling.triangles) {
            std::uint32_t const face = m_faces.faceOf(a);
            if (!m_isCut[face])
                continue;
            auto const at = [&](std::uint32_t p, CutSide side) {
                return m_sheets.vertexOf(p, side);
            };
            solids.triangles.push_back({at(a, sideBelow), at(b, sideBelow), at(c, sideBelow)});
            m_pieceOf.push_back(pieceAt(face, sideBelow));
            solids.triangles.push_back({at(a, sideAbove), at(c, sideAbove), at(b, sideAbove)});
            m_pieceOf.push_back(pieceAt(face, sideAbove));
        }
        return solids;
    }

    void assignHalves(std::vector<std::optional<CutSide>> const& halfOfPiece, BoundedCut& cut)
    {
        auto const halfOf = [&](std::uint32_t triangle) {
            return *halfOfPiece[m_pieceOf[triangle]];
        };
        for (std::uint32_t t = 0; t < m_sheets.copiedCount(); ++t)
            cut.halfOfCopy.push_back(halfOf(t));
        m_progress.add(0);
        for (std::uint32_t i = 0; i < m_wallPieces.size(); ++i) {
            std::uint32_t const triangle = triangleFor(i);
            cut.halfOfWallPiece.push_back(triangle == none ? m_wallPieces[i].side
                                                           : halfOf(triangle));
        }
    }

    /// A triangle in the same half as a wall piece. One that is nothing by itself may be part of a
    /// triangle that is made whole again, which belongs to what hangs together at its face.
    std::uint32_t triangleFor(std::uint32_t wallPiece) const
    {
        if (m_sheets.hasTriangle(wallPiece))
            return m_sheets.triangleOf(wallPiece);
        for (WallCorner const& corner : m_wallPieces[wallPiece].corners) {
            if (!corner.isPoint())
                continue;
            std::uint32_t const face = m_faces.faceOf(corner.point);
            if (m_isCut[face])
                return none;
            for (CutSide const side : {sideAbove, sideBelow})
                if (auto const triangle = triangleAt(m_faces.faces()[face], side); triangle != none)
                    return triangle;
        }
        return none;
    }

    CutPlane const& m_plane;
    std::vector<WallPiece> const& m_wallPieces;
    SectionFaces const& m_faces;
    StageProgress& m_progress;
    HalfSheets m_sheets;
    std::vector<bool> m_isCut;
    std::vector<std::uint32_t> m_pieceOf;
    std::uint32_t m_pieceCount = 0;
};

}  // namespace

std::optional<BoundedCut> boundCut(UMesh<float> const& part, CutPlane const& plane,
                                   SideCopies const& copies, SectionPoints const& points,
                                   std::vector<WallPiece> const& wallPieces,
                                   Contours const& contours, Exact::SectionFilling const& filling,
                                   std::function<void(int)> const& progress)
{
    SectionFaces const faces(points, plane, wallPieces, contours, filling);
    if (std::none_of(faces.faces().begin(), faces.faces().end(),
                     [](Face const& face) { return face.canBeCut(); }))
        return {};
    StageProgress stage(progress);
    stage.begin(0, 100, 4 * part.vertices.size());
    BoundedCutter cutter(part, plane, copies, points, wallPieces, faces, stage);
    if (!cutter.choose())
        return {};
    return cutter.settle(filling, points.size());
}
