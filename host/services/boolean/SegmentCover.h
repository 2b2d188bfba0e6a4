// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"

/// On which sides of a segment a triangle lies that has it in its plane.
struct SegmentCover
{
    /// Seen from the triangle's front.
    bool left = false;
    bool right = false;
};

/// What a triangle covers of the two sides of a segment where it leaves its lower point. No curve
/// that ends a surface crosses a segment, so what holds there holds for all of it, but for the next
/// triangle of the same surface that takes over in the same plane. Exact.
///
/// triangle   in one plane with the segment
/// low, high  the ends of the segment, by point number
SegmentCover coverOf(OperandSoup const& soup, CurveNetwork const& network, std::uint32_t triangle,
                     std::uint32_t low, std::uint32_t high);
