// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/ExactSigns.h"

/// Whether the line through a point along x passes through a triangle: 1 if it leaves what the
/// triangle bounds as x grows, -1 if it enters, 0 where it misses. A line through an edge or a
/// vertex counts as moved by a little in y and by even less in z, so that it passes through exactly
/// one of the triangles there. Exact.
inline int lineFacing(UPoint3<float> const& point, UPoint3<float> const& a, UPoint3<float> const& b,
                      UPoint3<float> const& c)
{
    auto const side = [&](UPoint3<float> const& from, UPoint3<float> const& to) {
        int const sign = ExactSigns::orient2d(from, to, point, 0);
        if (sign != 0)
            return sign;
        if (from[2] != to[2])
            return from[2] > to[2] ? 1 : -1;
        return from[1] == to[1] ? 0 : from[1] < to[1] ? 1 : -1;
    };
    int const facing = side(a, b);
    return facing == 0 || side(b, c) != facing || side(c, a) != facing ? 0 : facing;
}

/// What a triangle adds to the winding number around a point, counted along the ray from the point
/// in the direction of x. Nothing if the point lies on it. Exact.
inline int rayPassage(UPoint3<float> const& point, UPoint3<float> const& a, UPoint3<float> const& b,
                      UPoint3<float> const& c)
{
    int const facing = lineFacing(point, a, b, c);
    return facing != 0 && ExactSigns::orient3d(a, b, c, point) * facing < 0 ? facing : 0;
}
