// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"

#include <cstdint>
#include <vector>

/// What one side of a curve segment says about the region of a triangle that lies there: the region
/// on the left of the edge from one point to another.
struct SideSeed
{
    std::uint32_t triangle;
    std::uint32_t from;
    std::uint32_t to;
    /// The winding number of the other operand in front of the region and behind it; they differ
    /// where the operands' surfaces lie on each other. They are the least possible: an operand that
    /// overlaps itself may add a number that all seeds of a segment have in common.
    int front;
    int behind;
};

/// The seeds of the curve segments, one segment after the other.
struct SideSeeds
{
    std::vector<SideSeed> ofFirst;
    std::vector<SideSeed> ofSecond;
    /// Where the seeds of each segment end in `ofSecond`.
    std::vector<std::uint32_t> endsOfSecond;
};

/// Finds for all segments which of the regions beside them lie in the other operand.
///
/// Where two triangles cross in their insides, the direction of the segment tells. Where a segment
/// runs along an edge, all triangles that meet there are sorted by their angle around it, exactly,
/// and the winding numbers are counted from one to the next, the lowest being 0.
///
/// returns  false if the triangles around a segment do not close, as at the border of an open mesh
bool findSideSeeds(OperandSoup const& soup, CurveNetwork const& network, SideSeeds& seeds);
