// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"
#include "host/services/boolean/RoundingCrossings.h"

#include <optional>
#include <set>
#include <vector>

/// All pieces of a boolean in one list of triangles, by the numbers of their points. Points can be
/// moved, and put into the place of a neighbour where the pieces stay surfaces.
class PiecesAtPoints
{
public:
    using Index = std::uint32_t;
    using Pair = RoundingCrossings::Pair;
    using Point = UPoint3<float>;
    using Corners = MeshArrays::Corners;
    using Box = TriangleTree::Box;

    /// A point to a new place, or into the place of a neighbour.
    struct Move
    {
        Index point;
        Point place;
        std::optional<Index> into;
    };

    /// A move that is made for as long as this lives.
    class Trial
    {
    public:
        Trial(PiecesAtPoints& pieces, Move const& move);
        ~Trial();
        Trial(Trial const&) = delete;
        Trial& operator=(Trial const&) = delete;

    private:
        PiecesAtPoints& m_pieces;
        Index m_point;
        Point m_before;
        /// The triangles that change their corners, and what these were.
        std::vector<std::size_t> m_around;
        std::vector<Corners> m_corners;
    };

    /// isFree  by point number: whether a point may be moved
    PiecesAtPoints(OperandSoup const& soup, std::vector<std::vector<PieceTriangle>> const& pieces,
                   std::vector<Point> const& places, std::vector<bool> const& isFree,
                   StageProgress& progress);

    MeshArrays const& mesh() const { return m_mesh; }
    std::vector<Point> const& places() const { return m_mesh.points; }
    Point const& place(Index point) const { return m_mesh.points[point]; }
    /// By triangle, in the order of the pieces; one with two equal corners is gone.
    std::vector<Corners> const& triangles() const { return m_mesh.triangles; }
    std::size_t pieceOf(std::size_t triangle) const { return m_sources[triangle].piece; }
    /// Triangles at a point, also such as are gone.
    std::vector<std::size_t> const& around(Index point) const { return m_around[point]; }
    bool isFree(Index point) const { return m_isFree[point]; }
    /// Whether a place is in the box of operands and pieces, out of which no point may be moved.
    bool isInBounds(Point const& place) const;

    /// The pairs that meet among the triangles of one piece, which stand from `begin` to `end`.
    std::vector<Pair> pairsBetween(std::size_t begin, std::size_t end,
                                   StageProgress& progress) const;

    bool isGone(std::size_t triangle) const { return m_mesh.isCollapsed(triangle); }
    bool isFlat(std::size_t triangle) const;
    /// Whether a triangle looks another way than the one that it is a part of.
    bool isTurned(std::size_t triangle) const;
    bool doMeet(std::size_t t, std::size_t u) const;
    bool hasCorner(std::size_t triangle, Index point) const;
    Box boxOf(std::size_t triangle) const;
    /// Of the last place of the largest coordinate of a point.
    float unitAt(Index point) const;
    /// Whether two points can become one in all pieces: the triangles at their edge have all the
    /// neighbours that both points share as corners.
    bool canJoin(Index a, Index b) const;

    void apply(Move const& move);

private:
    struct Source
    {
        Index triangle;
        bool isTurned;
        std::size_t piece;
    };

    std::size_t pieceCount() const { return m_sources.empty() ? 0 : m_sources.back().piece + 1; }
    std::set<Index> neighboursOf(Index point, std::size_t piece) const;
    void replaceCorners(std::vector<std::size_t> const& triangles, Index point, Index by);

    OperandSoup const& m_soup;
    std::vector<bool> const& m_isFree;
    Box m_bounds;
    MeshArrays m_mesh;
    std::vector<Source> m_sources;
    std::vector<std::vector<std::size_t>> m_around;
};
