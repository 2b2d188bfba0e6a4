// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/MeshBuilders.h"

#include <cmath>

/// A torus about z, 54 mm wide and 14 mm high.
inline Soup ring()
{
    return torus(20, 7, 90, 60);
}

/// One with a gap on its outside, 2 mm above and below the plane through its middle.
inline Soup tornRing()
{
    Soup part = ring();
    std::erase_if(part.triangles, [&](auto const& corners) {
        return part.points[corners[0]].X() > 26 && std::abs(part.points[corners[0]].Z()) < 2;
    });
    return part;
}
