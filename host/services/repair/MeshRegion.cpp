// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/MeshRegion.h"

#include "host/services/repair/OrientationMending.h"
#include "host/services/repair/SoupMending.h"

#include <algorithm>

namespace {

/// Selects the triangles that touch those which are selected.
void addRing(MeshArrays const& mesh, std::vector<std::uint8_t>& isSelected)
{
    std::vector<std::uint8_t> isTouched(mesh.points.size(), 0);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (isSelected[t])
            for (std::uint32_t vertex : mesh.triangles[t])
                isTouched[vertex] = 1;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        for (std::uint32_t vertex : mesh.triangles[t])
            isSelected[t] |= isTouched[vertex];
}

}  // namespace

MeshRegion takeOut(MeshArrays const& mesh, std::vector<std::uint8_t> const& isSeed, int rings,
                   StageProgress& progress)
{
    std::vector<std::uint8_t> isSelected = isSeed;
    for (int ring = 0; ring < rings; ++ring) {
        addRing(mesh, isSelected);
        progress.add(0);
    }
    MeshRegion region;
    region.isRim.resize(mesh.points.size(), 0);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (!isSelected[t])
            for (std::uint32_t vertex : mesh.triangles[t])
                region.isRim[vertex] = 1;
    std::vector<std::uint32_t> ours(mesh.points.size(), MeshRegion::none);
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
        if (!isSelected[t])
            continue;
        MeshArrays::Corners corners;
        for (int k = 0; k < 3; ++k) {
            std::uint32_t const vertex = mesh.triangles[t][k];
            if (ours[vertex] == MeshRegion::none) {
                ours[vertex] = std::uint32_t(region.origins.size());
                region.origins.push_back(vertex);
                region.mesh.points.push_back(mesh.points[vertex]);
            }
            corners[k] = ours[vertex];
        }
        region.mesh.triangles.push_back(corners);
        region.places.push_back(t);
    }
    for (std::size_t vertex = 0; vertex < mesh.points.size(); ++vertex)
        region.isRim[vertex] &= ours[vertex] != MeshRegion::none;
    for (std::uint32_t source : splitFans(region.mesh, progress))
        region.origins.push_back(region.origins[source]);
    return region;
}

void putBack(MeshArrays& mesh, MeshRegion const& region)
{
    std::vector<std::uint32_t> wholes(region.mesh.points.size());
    for (std::size_t i = 0; i < wholes.size(); ++i) {
        std::uint32_t const origin = region.origins[i];
        bool const isKept =
            origin != MeshRegion::none && mesh.points[origin] == region.mesh.points[i];
        wholes[i] = isKept ? origin : std::uint32_t(mesh.points.size());
        if (!isKept)
            mesh.points.push_back(region.mesh.points[i]);
    }
    std::vector<std::uint8_t> isRemoved(mesh.triangles.size(), 0);
    for (std::uint32_t place : region.places)
        isRemoved[place] = 1;
    removeTriangles(mesh, isRemoved);
    for (MeshArrays::Corners const& t : region.mesh.triangles)
        mesh.triangles.push_back({wholes[t[0]], wholes[t[1]], wholes[t[2]]});
}
