// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/BooleanRule.h"
#include "host/services/boolean/RoundedFacets.h"
#include "host/services/boolean/SideLabels.h"

#include <cstdint>
#include <optional>
#include <vector>

/// A triangle of a result.
struct PieceTriangle
{
    /// By the numbers of RoundedFacets.
    MeshArrays::Corners corners;
    /// The operand's triangle on which it lies, and whether it faces the other way.
    std::uint32_t triangle;
    bool isTurned;
};

/// The triangles of one result, as far as they come from the soup.
///
/// returns  the triangles; pairs of them that lie on each other back to back are left out
std::vector<PieceTriangle> collectPiece(OperandSoup const& soup, CurveNetwork const& network,
                                        RoundedFacets const& rounded, SideLabels const& labels,
                                        BooleanRule rule, StageProgress& progress);

/// Whether the triangles of a piece close around the curves: every edge that ends on a curve is run
/// along as often in one direction as in the other.
bool isClosedAtCurves(std::vector<PieceTriangle> const& piece, CurvePoints const& points,
                      StageProgress& progress);

/// An end of one of these edges that is not; none if all are.
std::optional<std::uint32_t> openPointOf(std::vector<PieceTriangle> const& piece,
                                         CurvePoints const& points, StageProgress& progress);
