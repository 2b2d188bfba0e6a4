// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SegmentCover.h"

#include "host/mesh/ExactSigns.h"

#include <cmath>

namespace {

/// On which side of the line through two vertices a point of the curves lies, seen along an axis: 1
/// for left.
int sideOf(OperandSoup const& soup, CurvePoints const& points, std::uint32_t from, std::uint32_t to,
           std::uint32_t point, int axis)
{
    int const u = (axis + 1) % 3, v = (axis + 2) % 3;
    UPoint3<float> const &p = soup.mesh.points[from], &q = soup.mesh.points[to];
    CurvePoints::Estimate const r = points.estimate(point);
    double const qu = double(q[u]) - p[u], qv = double(q[v]) - p[v];
    double const ru = r.place[std::size_t(u)] - p[u], rv = r.place[std::size_t(v)] - p[v];
    double const left = qu * rv, right = qv * ru;
    double const bound = ExactSigns::areaErrorBound * (std::abs(left) + std::abs(right)) +
                         1.001 * r.error * (std::abs(qu) + std::abs(qv));
    double const area = left - right;
    if (std::abs(area) > bound)
        return area > 0 ? 1 : -1;
    return Exact::orient2d(points.exact(from), points.exact(to), points.exact(point), axis);
}

}  // namespace

SegmentCover coverOf(OperandSoup const& soup, CurveNetwork const& network, std::uint32_t triangle,
                     std::uint32_t low, std::uint32_t high)
{
    MeshArrays::Corners const& corners = soup.corners(triangle);
    auto const corner = [&](std::size_t k) -> UPoint3<float> const& {
        return soup.mesh.points[corners[k % 3]];
    };
    int axis = 0, facing = 0;
    for (; facing == 0 && axis < 3; ++axis)
        facing = ExactSigns::orient2d(corner(0), corner(1), corner(2), axis);
    --axis;
    SegmentCover cover{true, true};
    for (std::size_t k = 0; k < 3; ++k) {
        std::uint32_t const from = corners[k], to = corners[(k + 1) % 3];
        int side = sideOf(soup, network.points(), from, to, low, axis);
        if (side == 0)
            side = sideOf(soup, network.points(), from, to, high, axis);
        if (side * facing < 0)
            return {};
        if (side != 0)
            continue;
        // Along an edge, on whose left the triangle lies.
        int along = 0;
        for (int way = 0; way < 3 && along == 0; ++way)
            if (corner(k)[way] != corner(k + 1)[way])
                along = network.compare(low, high, way) *
                        (corner(k + 1)[way] > corner(k)[way] ? 1 : -1);
        (along > 0 ? cover.right : cover.left) = false;
    }
    return cover;
}
