// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ResultMesh.h"

#include "host/mesh/DegenerateTriangles.h"
#include "host/services/EdgeGroups.h"
#include "host/services/FilmRemoval.h"
#include "host/services/repair/SoupMending.h"

#include <cmath>

namespace Exact {

namespace {

bool hasDegenerate(MeshArrays const& mesh)
{
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (mesh.isCollapsed(t) ||
            isDegenerate(mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2)))
            return true;
    return false;
}

}  // namespace

MeshArrays withoutDegenerate(MeshArrays mesh, StageProgress& progress)
{
    if (!hasDegenerate(mesh))
        return mesh;
    MeshKernel kernel(makeMesh(mesh).release());
    removeDegenerateTriangles(*kernel.getMesh());
    kernel.UpdateVertsID();
    return copyArrays(kernel, Frame::Local, progress);
}

bool isClosedSolid(MeshArrays const& mesh, StageProgress& progress)
{
    for (MeshArrays::Point const& p : mesh.points)
        if (!std::isfinite(p.X()) || !std::isfinite(p.Y()) || !std::isfinite(p.Z()))
            return false;
    EdgeGroups const edges(mesh, progress);
    for (std::size_t i = 0; i < edges.size(); ++i) {
        int balance = 0;
        for (std::uint32_t halfEdge : edges[i])
            balance += EdgeGroups::start(mesh, halfEdge) < EdgeGroups::end(mesh, halfEdge) ? 1 : -1;
        if (balance != 0)
            return false;
    }
    return true;
}

std::optional<MeshArrays> finishedResult(MeshArrays mesh, StageProgress& progress)
{
    mesh = withoutDegenerate(std::move(mesh), progress);
    removeFilms(mesh, progress);
    removeUnusedPoints(mesh);
    if (!isClosedSolid(mesh, progress))
        return std::nullopt;
    return mesh;
}

}  // namespace Exact
