// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"

#include <array>
#include <cstdint>
#include <functional>
#include <span>

/// Triangles of the first operand that lie on a region of the second: how many face as the region
/// does, and how many the other way.
struct SheetStack
{
    std::uint16_t along = 0;
    std::uint16_t against = 0;
    bool operator==(SheetStack const&) const = default;
};

/// What one side of a curve segment says about the region of a triangle that lies there: the region
/// on the left of the edge from one point to another.
struct SideSeed
{
    std::uint32_t triangle;
    std::uint32_t from;
    std::uint32_t to;
    /// The winding numbers of the first and the second operand in front of the region and behind
    /// it, and behind all that lies on it. They are relative: the seeds of a segment have a number
    /// per operand in common that is to be added, and the least of what is around the segment is 0.
    std::array<int, 2> front;
    std::array<int, 2> behind;
    /// For regions of the second operand.
    SheetStack stack;
    /// Regions with the same number lie on each other.
    std::uint32_t stackNumber;
};

/// Finds for all segments how often the operands wind around what lies beside them.
///
/// Where two triangles cross in their insides, the direction of the segment tells. Where a segment
/// runs along an edge, all triangles that meet there are sorted by their angle around it, exactly,
/// and the winding numbers are counted from one to the next.
///
/// visit    is given the seeds of one segment; returns whether to go on
/// returns  false if the triangles around a segment do not close, as at the border of an open mesh,
///          or `visit` said so
bool forSideSeeds(OperandSoup const& soup, CurveNetwork const& network,
                  std::function<bool(std::span<SideSeed const>)> const& visit,
                  StageProgress& progress);
