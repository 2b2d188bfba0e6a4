// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <vector>

/// Triangulation of polygons with holes.
class EarcutPolygon
{
public:
    /// Fills an outer ring less its holes with triangles.
    ///
    /// The triangles run anticlockwise, whatever the directions of the rings. With the outer ring
    /// anticlockwise and the holes clockwise, as they are or turned so, every edge of a ring is the
    /// edge of one triangle more in its own direction than in the other, and all other edges of
    /// triangles come in pairs that run both ways: walls put up on the rings close with the
    /// triangles. This holds for the numbers of points, not just for their places. No point is
    /// added, and every point of the rings, on straight stretches too, is a corner.
    ///
    /// Rings may touch themselves and each other in points and along edges, and repeat a place.
    /// Such places cost triangles without area, whose corners coincide or lie in line. Rings that
    /// cross, which they should not, are filled by winding number, and each crossing is moved to an
    /// end of an edge there.
    ///
    /// rings     the outer ring, then its holes; no ring repeats its first point
    /// progress  a percentage; may throw
    /// returns   three indices per triangle into the rings put end to end; none without an area
    /// throws    Mell::Exception "A contour has a coordinate that is no number; draw it again."
    /// thread    any
    /// cost      O(n log n); 100,000 points in a third of a second
    static std::vector<int> earcut(std::vector<std::vector<std::array<double, 2>>> const& rings,
                                   std::function<void(int)> progress = {});
};
