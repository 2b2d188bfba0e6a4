// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/RoundingMending.h"

#include "host/services/boolean/BoxCells.h"
#include "host/services/boolean/PairMending.h"
#include "host/services/boolean/PieceExcerpt.h"
#include "host/services/boolean/PiecesAtPoints.h"
#include "host/services/boolean/RoundingCrossings.h"

#include <algorithm>
#include <cmath>

namespace {

using Point = UPoint3<float>;
using Box = TriangleTree::Box;
using Index = std::uint32_t;

/// Pieces of no more triangles are mended as a whole.
constexpr std::size_t mostAtOnce = 20'000;
constexpr int mostRounds = 8;
/// What is mended may come to cross what was not near enough to be looked at.
constexpr int mostPasses = 2;

/// A box with room around it for triangles that those within may come to meet.
Box widened(Box box)
{
    for (std::size_t k = 0; k < 3; ++k) {
        float const size = std::max(std::fabs(box.low[k]), std::fabs(box.high[k]));
        float const room = 4 * (box.high[k] - box.low[k]) + size * 0x1p-12f;
        box.low[k] -= room;
        box.high[k] += room;
    }
    return box;
}

}  // namespace

std::vector<Point> RoundingMending::run(StageProgress& progress)
{
    for (int pass = 0;; ++pass) {
        std::vector<Point> left;
        std::vector<Box> boxes;
        bool isTooMuch = false;
        for (std::vector<PieceTriangle> const& piece : m_pieces) {
            // After the first pass all pairs are where something was changed.
            auto const pairs =
                RoundingCrossings(m_soup, m_isFree).find(piece, m_places, progress, m_nearChanges);
            isTooMuch |= pairs.size() >= RoundingCrossings::mostPairs;
            for (auto const& [t, u] : pairs) {
                left.push_back(m_places[piece[t].corners[0]]);
                Box box = boxOf(piece[t].corners, m_places);
                box.add(boxOf(piece[u].corners, m_places));
                boxes.push_back(widened(box));
            }
        }
        if (left.empty() || isTooMuch || pass == (isMendedWhole() ? 1 : mostPasses) ||
            !mendWithin(cellsOf(std::move(boxes)), progress))
            return left;
    }
}

bool RoundingMending::isMendedWhole() const
{
    std::size_t triangles = 0;
    for (std::vector<PieceTriangle> const& piece : m_pieces)
        triangles += piece.size();
    return triangles <= mostAtOnce;
}

/// The cells in which to mend: those of some boxes, or all of small pieces.
BoxCells RoundingMending::cellsOf(std::vector<Box> boxes) const
{
    if (isMendedWhole())
        for (std::vector<PieceTriangle> const& piece : m_pieces)
            for (PieceTriangle const& t : piece)
                boxes.push_back(boxOf(t.corners, m_places));
    Box bounds;
    for (Box const& box : boxes)
        bounds.add(box);
    BoxCells cells(bounds);
    for (Box const& box : boxes)
        cells.add(box);
    return cells;
}

/// Returns whether anything was changed.
bool RoundingMending::mendWithin(BoxCells const& cells, StageProgress& progress)
{
    PieceExcerpt excerpt(m_pieces, m_places, cells, progress);
    std::vector<bool> isFree = excerpt.isInner;
    std::size_t triangles = 0;
    for (Index point = 0; point < isFree.size(); ++point)
        isFree[point] = isFree[point] && m_isFree[excerpt.numberOf(point)];
    for (std::vector<PieceTriangle> const& piece : excerpt.pieces)
        triangles += piece.size();
    PiecesAtPoints pieces(m_soup, excerpt.pieces, excerpt.places, isFree, progress);
    PairMending mending(pieces, {m_limits.work + m_limits.workPerTriangle * triangles,
                                 m_limits.vainWork + m_limits.vainWorkPerTriangle * triangles});
    bool isAnyChanged = false;
    bool isChanged = true;
    for (int round = 0; round < mostRounds && isChanged; ++round) {
        isChanged = false;
        std::size_t begin = 0;
        for (std::vector<PieceTriangle> const& piece : excerpt.pieces) {
            std::size_t const end = begin + piece.size();
            for (auto const& pair : pieces.pairsBetween(begin, end, progress))
                isChanged |= mending.mend(pair, progress);
            begin = end;
        }
        isAnyChanged |= isChanged;
    }
    if (!isAnyChanged)
        return false;
    excerpt.places = pieces.places();
    auto mended = pieces.triangles().begin();
    for (std::vector<PieceTriangle>& piece : excerpt.pieces)
        for (PieceTriangle& triangle : piece)
            triangle.corners = *mended++;
    excerpt.putBack(m_pieces, m_places);
    m_nearChanges.resize(m_places.size(), false);
    for (Index point = 0; point < isFree.size(); ++point)
        m_nearChanges[excerpt.numberOf(point)] = true;
    for (std::vector<PieceTriangle>& piece : m_pieces)
        std::erase_if(piece, [](PieceTriangle const& t) {
            return t.corners[0] == t.corners[1] || t.corners[1] == t.corners[2] ||
                   t.corners[2] == t.corners[0];
        });
    return true;
}
