// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"
#include "host/services/boolean/RoundingCrossings.h"

#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

/// All pieces of a boolean in one list of triangles, by the numbers of their points, whose points can
/// be moved until triangles do not meet.
class PiecesAtPoints
{
public:
    using Pair = RoundingCrossings::Pair;
    using Point = UPoint3<float>;
    using Corners = MeshArrays::Corners;

    /// Tests of two boxes, of which a million take some milliseconds; beyond, no point is moved any
    /// more.
    struct Work
    {
        std::size_t most = 0;
        /// For pairs that go on meeting, beside what is in proportion to the work that mended others.
        std::size_t mostInVain = 0;
    };

    /// isFree  by point number: whether a point may be moved
    PiecesAtPoints(OperandSoup const& soup, std::vector<std::vector<PieceTriangle>> const& pieces,
                   std::vector<Point> const& places, std::vector<bool> const& isFree, Work work,
                   StageProgress& progress);

    std::vector<Point> const& places() const { return m_mesh.points; }
    /// By triangle, in the order of the pieces; one with two equal corners is gone.
    std::vector<Corners> const& triangles() const { return m_mesh.triangles; }

    /// The pairs that meet among the triangles of one piece, which stand from `begin` to `end`.
    std::vector<Pair> pairsBetween(std::size_t begin, std::size_t end,
                                   StageProgress& progress) const;

    /// Moves points until the pair does not meet, or the work is too much. Every move leaves fewer
    /// faults than there were. Returns whether anything was changed.
    bool mend(Pair const& pair, StageProgress& progress);

private:
    using Index = std::uint32_t;
    using Box = TriangleTree::Box;

    struct Source
    {
        Index triangle;
        bool isTurned;
        std::size_t piece;
    };
    /// A point to a new place, or into the place of a neighbour.
    struct Move
    {
        Index point;
        Point place;
        std::optional<Index> into;
        int gain = 0;
    };
    /// A triangle around the point at hand, and others that it may meet: first those that it meets
    /// while the point is where it is.
    struct Neighbours
    {
        std::size_t triangle = 0;
        std::vector<std::size_t> others;
        std::size_t met = 0;
    };

    struct Near
    {
        std::size_t triangle;
        Box box;
    };
    /// Of a point no move of which is better: what was looked at, and how many changes were before.
    struct Vain
    {
        Box box;
        std::size_t changes;
    };

    bool isWorthWork() const;
    bool isGone(std::size_t triangle) const { return m_mesh.isCollapsed(triangle); }
    bool isFlat(std::size_t t) const;
    bool isTurned(std::size_t t) const;
    bool doMeet(std::size_t t, std::size_t u) const;
    bool hasCorner(std::size_t triangle, Index point) const;
    Box boxOf(std::size_t t) const;
    float unitAt(Index point) const;
    float reachOf(Index point) const;

    bool takeBestMove(Pair const& pair, StageProgress& progress);
    Box boxAround(Index point) const;
    bool isKnownVain(Index point) const;
    std::vector<Near> trianglesNear(std::set<Index> const& points, StageProgress& progress);
    void listNeighbours(Index point, std::vector<Near> const& near);
    int faultsNow();
    int faultsBelow(int limit);
    int obstaclesMet(int limit) const;
    void addObstacle(Pair const& pair);
    bool doMeetNow(std::size_t t, std::size_t u) const;
    int faultsAfter(Move const& move, int limit);
    int faultOf(std::size_t t) const;
    int meetings(Neighbours const& of, std::size_t begin, std::size_t end);
    bool isTaken(Point const& place, Index except, Index exceptToo) const;

    std::vector<Move> movesOf(Index point) const;
    std::vector<Move> joinsOf(Index point) const;
    bool canJoin(Index a, Index b) const;
    std::size_t pieceCount() const { return m_sources.empty() ? 0 : m_sources.back().piece + 1; }
    std::set<Index> neighboursOf(Index point, std::size_t piece) const;
    void replaceCorners(std::vector<std::size_t> const& triangles, Index point, Index by);
    void apply(Move const& move);

    OperandSoup const& m_soup;
    std::vector<bool> const& m_isFree;
    Work m_limits;
    /// Of operands and pieces: no point is moved out of it.
    Box m_bounds;
    MeshArrays m_mesh;
    std::vector<Source> m_sources;
    std::vector<std::vector<std::size_t>> m_around;
    /// Of the point at hand: the triangles around it, and the points nearby.
    std::vector<Neighbours> m_neighbours;
    std::vector<Index> m_corners;
    /// What meets wherever the point is moved.
    std::vector<Pair> m_lasting;
    /// What its moves have met that it did not meet before.
    std::vector<Pair> m_obstacles;
    /// What looking at all that a move of this point may change is taken for.
    std::size_t m_workPerMove = 0;
    std::size_t m_work = 0;
    std::unordered_map<Index, Vain> m_vain;
    /// Where moves have changed something, in turn.
    std::vector<Box> m_changes;
    /// What of the work mended pairs, and what was done for pairs that go on meeting.
    std::size_t m_workOfMended = 0;
    std::size_t m_workInVain = 0;
};
