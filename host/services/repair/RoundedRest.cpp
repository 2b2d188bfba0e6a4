// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/RoundedRest.h"

#include "host/mesh/DegenerateTriangles.h"
#include "host/services/repair/MeshRegion.h"
#include "host/services/repair/SoupMending.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace {

using Corners = MeshArrays::Corners;
using Point = MeshArrays::Point;

/// Gives new triangles one vertex at each place that a new point has been rounded to.
void joinRounded(MeshArrays& mesh, std::size_t firstNew, std::size_t firstPoint)
{
    std::map<std::tuple<float, float, float>, std::uint32_t> vertices;
    auto const forEachCorner = [&](bool areNew, auto const& visit) {
        for (std::size_t t = firstNew; t < mesh.triangles.size(); ++t)
            for (std::uint32_t& corner : mesh.triangles[t])
                if ((corner >= firstPoint) == areNew) {
                    Point const& p = mesh.points[corner];
                    visit(corner, std::tuple(p.X(), p.Y(), p.Z()));
                }
    };
    forEachCorner(false,
                  [&](std::uint32_t corner, auto place) { vertices.try_emplace(place, corner); });
    forEachCorner(true, [&](std::uint32_t& corner, auto place) {
        corner = vertices.try_emplace(place, corner).first->second;
    });
}

/// Marks new triangles that have collapsed, and pairs that face each other.
std::vector<std::uint8_t> cancelled(MeshArrays const& mesh, std::size_t firstNew)
{
    std::vector<std::uint8_t> isRemoved(mesh.triangles.size(), 0);
    std::map<Corners, std::vector<std::uint32_t>> facing;
    for (std::size_t t = firstNew; t < mesh.triangles.size(); ++t) {
        isRemoved[t] = mesh.isCollapsed(t);
        Corners corners = mesh.triangles[t];
        std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()),
                    corners.end());
        auto const against = facing.find({corners[0], corners[2], corners[1]});
        if (isRemoved[t] || against == facing.end() || against->second.empty()) {
            facing[corners].push_back(std::uint32_t(t));
            continue;
        }
        isRemoved[t] = isRemoved[against->second.back()] = 1;
        against->second.pop_back();
    }
    return isRemoved;
}

void removeFlat(MeshArrays& mesh, std::size_t firstNew, StageProgress& progress)
{
    std::vector<std::uint8_t> isFlat(mesh.triangles.size(), 0);
    bool isAny = false;
    for (std::size_t t = firstNew; t < mesh.triangles.size(); ++t) {
        isFlat[t] = isDegenerate(mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2));
        isAny |= isFlat[t] != 0;
    }
    if (!isAny)
        return;
    constexpr int rings = 2;
    MeshRegion region = takeOut(mesh, isFlat, rings, progress);
    MeshKernel kernel(makeMesh(region.mesh).release());
    removeDegenerateTriangles(*kernel.getMesh());
    kernel.UpdateVertsID();
    region.mesh = copyArrays(kernel, Frame::Local, progress);
    putBack(mesh, region);
}

}  // namespace

void settleRounding(MeshArrays& mesh, std::size_t firstNew, std::size_t firstPoint,
                    StageProgress& progress)
{
    joinRounded(mesh, firstNew, firstPoint);
    removeTriangles(mesh, cancelled(mesh, firstNew));
    progress.add(0);
    removeFlat(mesh, firstNew, progress);
}
