// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "tests/support/Soup.h"

#include <cstddef>

namespace judge {

/// How a surface meets itself where it should not.
struct Crossings
{
    /// Pairs of triangles, not in one plane, whose insides have a piece of a line in common.
    std::size_t pairs = 0;
    /// Pairs of triangles in one plane whose insides have an area in common.
    std::size_t overlaps = 0;
    /// How far one of the two must be moved to leave the other, in units of the last place of their
    /// largest coordinate, for the pair where that is most; 0 for those in one plane. A double's
    /// rounding may be in it.
    double mostUnits = 0;
    /// A corner of the deepest such pair.
    UPoint3<float> place;

    std::size_t total() const { return pairs + overlaps; }
    void add(bool isOverlap, double units, UPoint3<float> const& corner);
};

/// Exact. What only touches, in points or along edges, does not count. Triangles without area are
/// left out.
Crossings crossingsOf(Soup const& soup);

}  // namespace judge
