// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <vector>

/// Triangulation of polygons with holes.
class EarcutPolygon
{
public:
    /// rings    the outer ring, then its holes; no ring repeats its first point
    /// returns  three indices per triangle into the rings put end to end
    static std::vector<int> earcut(std::vector<std::vector<std::array<double, 2>>> const& rings,
                                   std::function<void(int)> progress = {});
};
