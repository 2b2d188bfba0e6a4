// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/BooleanPieces.h"

#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/// The surfaces of two operands divided along their curves, with every region's side: all that
/// several results of one pair of operands share.
class SoupBoolean
{
public:
    /// What is asked for once pieces have been mended.
    enum class AfterMending
    {
        all,
        onlyPlaces,
    };

    /// soup  must outlive this
    explicit SoupBoolean(OperandSoup const& soup) : m_soup(soup), m_network(std::in_place, soup) {}

    /// contacts  of the operands, and of the second operand's triangles with each other; freed when
    ///           they are used
    /// returns   false if the curves contradict each other: an operand is open there, or crosses
    ///           itself
    bool resolve(std::vector<TrianglePair> contacts, WindingSources const& sources,
                 StageProgress& progress);

    /// The triangles of one result; nothing if they do not close around the curves.
    std::optional<std::vector<PieceTriangle>> piece(BooleanPiece piece, StageProgress& progress);

    /// Mends what rounding has done to pieces: edges of more than two triangles get points of their
    /// own, and points move by some units of the last place where pieces cross themselves.
    ///
    /// pieces   all that are wanted, as `piece` gives them
    /// after    `onlyPlaces` frees most memory: pieces are not asked for again, and no place is
    ///          found open
    /// returns  a place of each pair of triangles that still cross
    std::vector<UPoint3<float>> mendRounding(std::vector<std::vector<PieceTriangle>>& pieces,
                                             AfterMending after, StageProgress& progress);

    UPoint3<float> const& place(std::uint32_t point) const
    {
        return m_mendedPlaces.empty() ? m_network->points().rounded(point) : m_mendedPlaces[point];
    }
    /// By point, once pieces have been mended.
    std::span<UPoint3<float> const> places() const { return m_mendedPlaces; }
    std::uint32_t pointCount() const
    {
        return m_mendedPlaces.empty() ? m_network->points().size()
                                      : std::uint32_t(m_mendedPlaces.size());
    }
    /// How many pieces of curve there are.
    std::size_t curveCount() const { return m_curves; }

    /// A point where the curves contradict each other, or a piece does not close; none before that
    /// was seen, or where it has no place.
    std::optional<UPoint3<float>> doubtfulPlace() const;

    /// A point on an edge of an operand from which one of its triangles is missing, among the edges
    /// that the other operand meets.
    std::optional<UPoint3<float>> openPlace(Operand operand) const;

private:
    OperandSoup const& m_soup;
    /// None once it is not needed any more.
    std::optional<CurveNetwork> m_network;
    std::size_t m_curves = 0;
    SideLabels m_labels;
    /// Made with the first piece, when more of what is not needed has been freed.
    std::unique_ptr<RoundedFacets> m_facets;
    /// Where something did not come out.
    std::optional<std::uint32_t> m_doubtful;
    /// By point, once pieces have been mended; new ones come last.
    std::vector<UPoint3<float>> m_mendedPlaces;
};
