// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/PiecesAtPoints.h"

#include <unordered_map>

/// Moves points of pieces until pairs of triangles do not meet, a move at a time: of all that the
/// corners of a pair can make the one that leaves the fewest faults, if these are fewer than there
/// were. Faults are triangles that meet, are flat, or are turned over.
class PairMending
{
public:
    using Index = PiecesAtPoints::Index;
    using Pair = PiecesAtPoints::Pair;
    using Point = PiecesAtPoints::Point;

    /// Tests of two boxes, of which a million take some milliseconds; beyond, no point is moved any
    /// more.
    struct Work
    {
        std::size_t most = 0;
        /// For pairs that go on meeting, beside what is in proportion to the work that mended others.
        std::size_t mostInVain = 0;
    };

    /// pieces  to be mended; only by this while it lives
    PairMending(PiecesAtPoints& pieces, Work limits) : m_pieces(pieces), m_limits(limits) {}

    /// Moves points until the pair does not meet, or the work is too much. Returns whether anything
    /// was changed.
    bool mend(Pair const& pair, StageProgress& progress);

private:
    using Box = PiecesAtPoints::Box;

    struct Move : PiecesAtPoints::Move
    {
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
    void apply(Move const& move);

    PiecesAtPoints& m_pieces;
    Work m_limits;
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
