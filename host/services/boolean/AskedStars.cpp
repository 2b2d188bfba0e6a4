// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/AskedStars.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/SpreadStar.h"
#include "host/services/VertexStars.h"
#include "host/services/boolean/CornerOrder.h"
#include "host/services/boolean/FlatMap.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

namespace {

using Range = tbb::blocked_range<std::size_t>;
constexpr std::size_t grain = 2048;

/// Whether the triangles at a vertex are closed rings around it: as many of its edges lead into
/// triangles as out of them, each by itself. Then the angles of a star that is seen from its front
/// add up to whole turns, whatever the triangles are elsewhere.
bool isRing(MeshArrays const& mesh, std::span<std::uint32_t const> corners)
{
    // Every neighbour has a number of 64 random bits.
    std::uint64_t sum = 0;
    for (std::uint32_t const corner : corners) {
        MeshArrays::Corners const& t = mesh.triangles[corner / 3];
        int const place = int(corner % 3);
        sum += mixBits(t[std::size_t(next(place))] + std::uint64_t(1)) -
               mixBits(t[std::size_t(previous(place))] + std::uint64_t(1));
    }
    return sum == 0;
}

std::vector<bool> verticesOf(MeshArrays const& mesh, std::vector<bool> const& asked,
                             StageProgress& progress)
{
    std::vector<bool> isAsked(mesh.points.size(), false);
    Polling polling(progress);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t, polling.step())
        if (asked[t])
            for (std::uint32_t const corner : mesh.triangles[t])
                isAsked[corner] = true;
    return isAsked;
}

}  // namespace

TopologyReport starsOfAsked(MeshArrays const& mesh, std::vector<bool> const& asked,
                            StageProgress& progress)
{
    TopologyReport report;
    report.shellOf.assign(mesh.triangles.size(), 0);
    report.isDegenerate.resize(mesh.triangles.size());
    report.isSpread.resize(mesh.points.size());
    tbb::parallel_for(Range(0, mesh.triangles.size(), grain), [&](Range const& range) {
        for (std::size_t t = range.begin(); t != range.end(); ++t)
            report.isDegenerate[t] =
                ExactSigns::areCollinear(mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2));
        progress.add(0);
    });
    std::vector<bool> const isAsked = verticesOf(mesh, asked, progress);
    VertexStars const stars(mesh, progress);
    tbb::parallel_for(Range(0, mesh.points.size(), grain), [&](Range const& range) {
        for (std::size_t v = range.begin(); v != range.end(); ++v)
            report.isSpread[v] = isAsked[v] && isRing(mesh, stars.corners(v)) &&
                                 isStarSpread(mesh, std::uint32_t(v), stars.corners(v));
        progress.add(0);
    });
    return report;
}
