// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/BooleanPieces.h"
#include "host/services/boolean/BoxCells.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// The triangles of some pieces that are near some places, on points of their own: what is done to
/// them takes memory and time in proportion to their number.
class PieceExcerpt
{
public:
    using Pieces = std::vector<std::vector<PieceTriangle>>;
    using Places = std::vector<UPoint3<float>>;

    /// where  meets the boxes of all triangles that are wanted
    PieceExcerpt(Pieces const& pieces, Places const& places, BoxCells const& where,
                 StageProgress& progress);

    /// By the numbers of the excerpt; to be changed. No triangle may come or go.
    Pieces pieces;
    Places places;
    /// By point: whether all triangles at it are in the excerpt.
    std::vector<bool> isInner;

    /// The number of a point among all.
    std::uint32_t numberOf(std::uint32_t point) const { return m_numbers[point]; }

    /// Puts places and corners back to where they are from.
    void putBack(Pieces& all, Places& allPlaces) const;

private:
    std::uint32_t localOf(std::uint32_t point, Places const& places);

    /// By point of all.
    std::vector<std::uint32_t> m_locals;
    /// By point of the excerpt.
    std::vector<std::uint32_t> m_numbers;
    /// By piece and triangle of the excerpt: the triangle's place in the piece.
    std::vector<std::vector<std::size_t>> m_triangles;
};
