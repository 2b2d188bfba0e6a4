// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <algorithm>

/// Distances.
template <typename T>
class MellMath
{
public:
    static T DisPt2Pt(UPoint3<T> const& a, UPoint3<T> const& b) { return (a - b).GetLength(); }

    /// Distance of p from the segment a-b, its end points included. A segment of no length counts
    /// as the point a.
    static T DisPt2Segment(UPoint3<T> const& p, UPoint3<T> const& a, UPoint3<T> const& b)
    {
        UVector3<T> const along = b - a;
        T const squared = along | along;
        if (squared == T(0))
            return DisPt2Pt(p, a);
        T const t = std::clamp(((p - a) | along) / squared, T(0), T(1));
        return DisPt2Pt(p, a + along * t);
    }
};
