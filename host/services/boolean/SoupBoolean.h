// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/BooleanPieces.h"
#include "host/services/boolean/ToolGrid.h"

#include <memory>
#include <optional>
#include <vector>

/// The surfaces of two operands divided along their curves, with every region's side: all that
/// several results of one pair of operands share.
class SoupBoolean
{
public:
    enum class Outcome
    {
        done,
        /// The curves contradict each other: an operand is open there, or crosses itself.
        contradiction,
        /// More pairs of triangles meet than there should be memory for.
        tooMuch,
    };

    /// soup  must outlive this
    explicit SoupBoolean(OperandSoup const& soup) : m_soup(soup), m_network(soup) {}

    /// grid      of the second operand
    /// ofSecond  contacts of the second operand's triangles with each other
    Outcome resolve(ToolGrid const& grid, std::vector<TrianglePair> const& ofSecond,
                    WindingSources const& sources, StageProgress& progress);

    /// The triangles of one result; nothing if they do not close around the curves.
    std::optional<std::vector<PieceTriangle>> piece(BooleanPiece piece) const;

    /// Moves points by some units of the last place where pieces cross themselves for having been
    /// rounded.
    ///
    /// pieces   all that are wanted, as `piece` gives them
    /// returns  a place of each pair of triangles that still cross
    std::vector<UPoint3<float>> mendCrossings(std::vector<std::vector<PieceTriangle>>& pieces,
                                              StageProgress& progress);

    UPoint3<float> const& place(std::uint32_t point) const
    {
        return m_mendedPlaces.empty() ? m_network.points().rounded(point) : m_mendedPlaces[point];
    }
    std::uint32_t pointCount() const { return m_network.points().size(); }
    /// How many pieces of curve there are.
    std::size_t curveCount() const { return m_network.segments().size(); }

    /// A point on an edge of an operand from which one of its triangles is missing, among the edges
    /// that the other operand meets.
    std::optional<UPoint3<float>> openPlace(Operand operand) const;

private:
    OperandSoup const& m_soup;
    CurveNetwork m_network;
    SideLabels m_labels;
    std::unique_ptr<RoundedFacets> m_facets;
    /// By point, if some of them have been moved.
    std::vector<UPoint3<float>> m_mendedPlaces;
};
