// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/BooleanPieces.h"
#include "host/services/boolean/BoxCells.h"
#include "host/services/boolean/OperandSoup.h"

#include <vector>

/// Mends what rounding has done to the pieces of one boolean: their points are where exact ones are
/// to the nearest float, so a needle may have come to lie on the wrong side of its neighbour, and
/// cross it by a few units of the last place.
///
/// Own derivation. For every pair of triangles of a piece that meet elsewhere than in common edges
/// and points, the free corners of both are moved in turn, by 1 to 16 units along the axes and
/// diagonals, or put in the place of a neighbour as near as that, and the move stays that leaves
/// the fewest pairs at the triangles around the point. Triangles stay closed through every step: a
/// point is put into another's place only where the surface stays a surface.
class RoundingMending
{
public:
    /// How much work one pass may take, in tests of two boxes, of which a million take some
    /// milliseconds: hundreds of crossings are mended in all cases, and surfaces that lie on each
    /// other all over do not hold up the cut. What is left when it is used up is told like all else.
    struct Limits
    {
        std::size_t work = 50'000'000;
        std::size_t workPerTriangle = 1000;
        /// The same for pairs that cannot be mended, beside four times what mended others.
        std::size_t vainWork = 1'000'000;
        std::size_t vainWorkPerTriangle = 100;
    };

    /// soup    of the operands
    /// pieces  by point numbers; triangles leave where two points become one
    /// places  by point number; those of free points change
    /// isFree  by point number: whether a point may be moved, for all triangles at it are in pieces
    RoundingMending(OperandSoup const& soup, std::vector<std::vector<PieceTriangle>>& pieces,
                    std::vector<UPoint3<float>>& places, std::vector<bool> const& isFree,
                    Limits limits)
        : m_soup(soup), m_pieces(pieces), m_places(places), m_isFree(isFree), m_limits(limits)
    {}
    RoundingMending(OperandSoup const& soup, std::vector<std::vector<PieceTriangle>>& pieces,
                    std::vector<UPoint3<float>>& places, std::vector<bool> const& isFree)
        : RoundingMending(soup, pieces, places, isFree, Limits())
    {}

    /// Mends all pieces. Returns a place of each pair of triangles that is left. Pairs without a
    /// free corner, and pairs from triangles that cross in an operand, were there before: they are
    /// neither mended nor told. What crosses by more than rounding can do is told and stays. Where
    /// a piece has RoundingCrossings::mostPairs or more, surfaces lie on each other as far as floats
    /// tell: that many are told, and all pieces stay.
    ///
    /// cost  milliseconds for each pair, up to a limit in proportion to the triangles near the pairs
    std::vector<UPoint3<float>> run(StageProgress& progress);

    /// By point number: the points in the neighbourhoods in which something was changed. Empty if
    /// nothing was.
    std::vector<bool> const& pointsNearChanges() const { return m_nearChanges; }

private:
    bool isMendedWhole() const;
    BoxCells cellsOf(std::vector<TriangleTree::Box> boxes) const;
    bool mendWithin(BoxCells const& cells, StageProgress& progress);

    OperandSoup const& m_soup;
    std::vector<std::vector<PieceTriangle>>& m_pieces;
    std::vector<UPoint3<float>>& m_places;
    std::vector<bool> const& m_isFree;
    Limits m_limits;
    std::vector<bool> m_nearChanges;
};
