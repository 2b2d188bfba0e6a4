// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/HalfTriangles.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using Triangle = UTriangle<float>;

std::array<UPoint3<float>, 3> cornersOf(Triangle const& triangle)
{
    return {triangle.cP(0), triangle.cP(1), triangle.cP(2)};
}

TriangleTree::Box boxOf(Triangle const& triangle)
{
    TriangleTree::Box box;
    for (int i = 0; i < 3; ++i) {
        UPoint3<float> const& p = triangle.cP(i);
        box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
    }
    return box;
}

double roundingUnitAt(UPoint3<float> const& p)
{
    float const size = std::max({std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
    return double(std::nextafter(size, std::numeric_limits<float>::infinity())) - size;
}

std::vector<HalfTriangle> trianglesMade(SectionWalls const& walls,
                                        std::array<std::vector<Triangle*>, 2> const& caps,
                                        CutPlane const& plane)
{
    std::vector<HalfTriangle> faces;
    for (CutSide const side : {sideAbove, sideBelow}) {
        auto const& written = walls.written(side);
        for (std::size_t i = 0; i < written.size(); ++i)
            faces.push_back({written[i], cornersOf(*walls.origins(side)[i]), side, false});
        auto source = plane.corners();
        if (side == sideAbove)
            std::swap(source[1], source[2]);
        for (Triangle* const cap : caps[side])
            faces.push_back({cap, source, side, true});
    }
    return faces;
}
