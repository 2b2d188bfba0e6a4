// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/planecut/SectionContours.h"

#include <array>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

/// A corner of a piece: a section point, or else a vertex beside the plane.
struct WallCorner
{
    static constexpr std::uint32_t none = UINT32_MAX;

    std::uint32_t point = none;
    std::uint32_t vertex = none;

    bool isPoint() const { return point != none; }
    bool operator==(WallCorner const&) const = default;
};

using WallTriangle = std::array<WallCorner, 3>;

/// A polygon of three or four corners on one side, in the order of the triangle it comes from.
/// Where corners coincide it may have fewer, and is nothing then.
struct WallPiece
{
    UTriangle<float> const* origin;
    CutSide side;
    int size = 0;
    std::array<WallCorner, 4> corners;

    void add(WallCorner const& corner);
    void close();
};

/// The triangles that meet the plane, taken apart: whole ones go to a side, cut ones become one
/// polygon on each side. They enter the contours first and are written once the contours are
/// settled, since a contour edge may have had to be split.
class SectionWalls
{
public:
    using Vertex = UVertex<float>;
    using Triangle = UTriangle<float>;

    SectionWalls(SideCopies& copies, SectionPoints& points, CutPlane const& plane);

    /// Sorts the triangles and enters their edges in the plane into the contours. `progress` gets
    /// a percentage and may throw.
    void sort(SectionContours& contours, std::function<void(int)> const& progress);
    /// The pieces, in the order of their triangles; the two of a triangle that is cut in two follow
    /// each other, the one above first.
    std::vector<WallPiece> const& pieces() const { return m_pieces; }
    /// Has every piece written to the given half. A triangle that was taken apart at points that
    /// are not cut is made whole again.
    void assignHalves(std::vector<CutSide> const& halfOfPiece, std::vector<bool> const& isCutPoint);
    /// Has the triangles split as the segments are.
    void split(std::vector<Exact::SectionSegment> const& segments);
    /// Makes the triangles of one half.
    void write(CutSide half, std::function<void(int)> const& progress);

    /// The triangles written, by side, and those that they are parts of.
    std::vector<Triangle*> const& written(CutSide side) const { return m_written[side]; }
    std::vector<Triangle const*> const& origins(CutSide side) const { return m_origins[side]; }
    /// Has no triangles of a half any more, which somebody else has.
    void forget(CutSide half)
    {
        m_written[half] = {};
        m_origins[half] = {};
    }

    /// The triangles that a piece is written as.
    void collectTriangles(WallPiece const& piece, std::vector<WallTriangle>& triangles) const;
    /// The corners of the two triangles that a piece is written as where none is split, or twice
    /// those of the one.
    std::array<std::array<std::size_t, 3>, 2> trianglesOf(WallPiece const& piece) const;
    UPoint3<float> placeOf(WallCorner const& corner) const;

private:
    using Corner = WallCorner;
    using Piece = WallPiece;

    static constexpr std::uint32_t none = WallCorner::none;

    void sortOne(Triangle const& triangle, SectionContours& contours);
    void sortWhole(Triangle const& triangle, CutSide side, SectionContours& contours);
    void sortCut(Triangle const& triangle, SectionContours& contours);
    CutSide sideInPlane(Triangle const& triangle) const;
    Corner cornerOf(Vertex const* vertex);
    Piece wholePiece(Triangle const& triangle, CutSide side);
    void collectParts(WallTriangle const& corners, std::vector<WallTriangle>& parts) const;
    void writeTriangle(Piece const& piece, WallTriangle const& corners);
    std::vector<std::uint32_t> const* splitsOf(Corner const& from, Corner const& to) const;
    Vertex* vertexOf(CutSide side, Corner const& corner);

    SideCopies& m_copies;
    SectionPoints& m_points;
    CutPlane const& m_plane;
    std::vector<Piece> m_pieces;
    std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> m_splits;
    std::array<std::vector<Triangle*>, 2> m_written;
    std::array<std::vector<Triangle const*>, 2> m_origins;
};
