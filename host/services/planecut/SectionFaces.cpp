// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionFaces.h"

#include <algorithm>
#include <tuple>

namespace {

/// An edge of a wall piece in the plane.
struct PlaneEdge
{
    std::uint32_t low;
    std::uint32_t high;
    CutSide side;
    std::uint32_t piece;

    bool operator<(PlaneEdge const& o) const
    {
        return std::tie(low, high, piece) < std::tie(o.low, o.high, o.piece);
    }
    bool isAlong(PlaneEdge const& o) const { return low == o.low && high == o.high; }
};

std::vector<PlaneEdge> planeEdgesOf(std::vector<WallPiece> const& pieces)
{
    std::vector<PlaneEdge> edges;
    for (std::uint32_t i = 0; i < pieces.size(); ++i) {
        WallPiece const& piece = pieces[i];
        for (int k = 0; k < piece.size && piece.size > 2; ++k) {
            WallCorner const& from = piece.corners[std::size_t(k)];
            WallCorner const& to = piece.corners[std::size_t((k + 1) % piece.size)];
            if (from.isPoint() && to.isPoint())
                edges.push_back({std::min(from.point, to.point), std::max(from.point, to.point),
                                 piece.side, i});
        }
    }
    std::sort(edges.begin(), edges.end());
    return edges;
}

/// The edges along which pieces of both sides meet.
std::vector<PlaneEdge> meetingEdgesOf(std::vector<WallPiece> const& pieces)
{
    std::vector<PlaneEdge> const edges = planeEdgesOf(pieces);
    std::vector<PlaneEdge> meeting;
    for (auto first = edges.begin(); first != edges.end();) {
        bool hasSide[2] = {};
        auto end = first;
        for (; end != edges.end() && end->isAlong(*first); ++end)
            hasSide[end->side] = true;
        if (hasSide[sideAbove] && hasSide[sideBelow])
            meeting.insert(meeting.end(), first, end);
        first = end;
    }
    return meeting;
}

std::uint32_t anyPointOf(WallPiece const& piece)
{
    for (WallCorner const& corner : piece.corners)
        if (corner.isPoint())
            return corner.point;
    return WallCorner::none;
}

/// Points of the same face are joined.
DisjointSets facesAmong(std::size_t pointCount, std::vector<PlaneEdge> const& meeting,
                        std::vector<Exact::SectionSegment> const& segments,
                        Exact::SectionFilling const& filling)
{
    DisjointSets sets(pointCount);
    for (PlaneEdge const& edge : meeting)
        sets.unite(edge.low, edge.high);
    for (Exact::SectionSegment const& segment : segments)
        for (std::uint32_t const split : segment.splits)
            sets.unite(segment.from, split);
    for (auto const& [a, b, c] : filling.triangles) {
        sets.unite(a, b);
        sets.unite(a, c);
    }
    return sets;
}

}  // namespace

SectionFaces::SectionFaces(SectionPoints const& points, CutPlane const& plane,
                           std::vector<WallPiece> const& pieces, Contours const& contours,
                           Exact::SectionFilling const& filling)
    : m_faceOf(points.size())
{
    std::vector<PlaneEdge> const meeting = meetingEdgesOf(pieces);
    DisjointSets sets = facesAmong(points.size(), meeting, contours.segments, filling);
    number(sets, points, plane);
    for (auto const& [a, b, c] : filling.triangles) {
        Face& face = m_faces[m_faceOf[a]];
        face.hasArea = true;
        face.isHole |= contours.isPartial &&
                       plane.facing(points.place(a), points.place(b), points.place(c)) < 0;
    }
    for (PlaneEdge const& edge : meeting)
        m_faces[m_faceOf[edge.low]].pieces[edge.side].push_back(edge.piece);
    // The two pieces of a triangle belong together even if their common edge has no length.
    for (std::uint32_t i = 0; i + 1 < pieces.size(); ++i) {
        if (pieces[i].origin != pieces[i + 1].origin)
            continue;
        Face& face = m_faces[m_faceOf[anyPointOf(pieces[i])]];
        for (std::uint32_t const piece : {i, i + 1})
            face.pieces[pieces[piece].side].push_back(piece);
    }
}

/// Makes the faces, in the order of their first points.
void SectionFaces::number(DisjointSets& sets, SectionPoints const& points, CutPlane const& plane)
{
    for (std::uint32_t p = 0; p < points.size(); ++p) {
        std::uint32_t const first = sets.root(p);
        if (first == p)
            m_faces.emplace_back();
        m_faceOf[p] = first == p ? std::uint32_t(m_faces.size() - 1) : m_faceOf[first];
        m_faces[m_faceOf[p]].isWithinPlane &= plane.covers(points.place(p));
    }
}
