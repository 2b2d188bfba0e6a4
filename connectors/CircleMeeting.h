// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>

/// Where a line that runs along a segment meets the circle around a point placed earlier.
struct CircleMeeting
{
    /// The circle leaves nothing to place on the segment.
    bool endsSegment = false;
    /// From the base, along the segment; nothing if the circle has no place to offer.
    std::optional<float> distance;

    /// ca  cosine of the angle under which the point is seen from the segment's start
    /// cb  the same from its end
    /// x   the point's distance from the base
    /// s   radius of the circle
    CircleMeeting(float ca, float cb, float x, float s)
    {
        float const r = float(std::sqrt(
            std::max(0.0, std::pow(s, 2.0) - (1.0 - std::pow(ca, 2.0)) * std::pow(x, 2.0))));
        bool const isBeyondCircle = x > s;
        if (ca >= 0 && (cb >= 0 || isBeyondCircle))
            distance = x * ca - r;
        else if (cb < 0 && !isBeyondCircle)
            distance = x * ca + r;
        else
            endsSegment = cb >= 0;
    }
};
