// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/BooleanPieces.h"
#include "host/services/boolean/OperandSoup.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

/// Finds the triangles of a piece that cross others for having been rounded. Two triangles that
/// are as an operand had them do not: if they meet, they did so in the operand. So the others are
/// looked at, and what stands near them.
class RoundingCrossings
{
public:
    /// By places in the piece, the lower first.
    using Pair = std::array<std::size_t, 2>;
    /// The search ends with this many.
    static constexpr std::size_t mostPairs = 1000;

    /// isFree  by point number: whether a point may be moved
    RoundingCrossings(OperandSoup const& soup, std::vector<bool> const& isFree)
        : m_soup(soup), m_isFree(isFree)
    {}

    /// The pairs that meet elsewhere than in common edges and points, have a free corner, and do
    /// not come from triangles that cross in an operand, or touch there as shells on each other do.
    ///
    /// piece    without triangles that have a corner twice
    /// among    by point number: only pairs of which one is at one of these, and is not as the
    ///          operand had it; empty for all
    /// returns  in ascending order
    /// cost     some nanoseconds for a triangle of an operand, a microsecond for others
    std::vector<Pair> find(std::span<PieceTriangle const> piece,
                           std::vector<UPoint3<float>> const& places, StageProgress& progress,
                           std::vector<bool> const& among = {}) const;

    /// Whether two triangles cross by more than rounding can do.
    static bool isDeep(MeshArrays const& mesh, std::size_t t, std::size_t u);

private:
    bool isAsInOperand(PieceTriangle const& t, std::vector<UPoint3<float>> const& places) const;
    bool isOfRounding(PieceTriangle const& t, PieceTriangle const& u) const;
    bool hasFree(PieceTriangle const& t) const;

    OperandSoup const& m_soup;
    std::vector<bool> const& m_isFree;
};
