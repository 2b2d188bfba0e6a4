// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/HalfTriangles.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using Triangle = UTriangle<float>;

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
                                        std::array<std::vector<Triangle*>, 2> const& caps)
{
    std::vector<HalfTriangle> faces;
    std::size_t count = 0;
    for (CutSide const side : {sideAbove, sideBelow})
        count += walls.written(side).size() + caps[side].size();
    faces.reserve(count);
    for (CutSide const side : {sideAbove, sideBelow}) {
        auto const& written = walls.written(side);
        for (std::size_t i = 0; i < written.size(); ++i)
            faces.push_back({written[i], walls.origins(side)[i], side});
        for (Triangle* const cap : caps[side])
            faces.push_back({cap, nullptr, side});
    }
    return faces;
}
