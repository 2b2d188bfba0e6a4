// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/WallRemoval.h"

#include "host/services/EdgeGroups.h"
#include "host/services/Polling.h"
#include "host/services/boolean/SurfaceOrder.h"
#include "host/services/repair/TriangleDifference.h"

#include <algorithm>
#include <limits>

namespace {

using Index = std::uint32_t;

bool hasOddEdge(MeshArrays const& mesh, StageProgress& progress)
{
    EdgeGroups const edges(mesh, progress);
    Polling polling(progress);
    for (std::size_t e = 0; e < edges.size(); ++e, polling.step())
        if (edges[e].size() > 2 && edges[e].size() % 2 == 1)
            return true;
    return false;
}

TriangleTree::Box everywhere()
{
    constexpr float far = std::numeric_limits<float>::infinity();
    TriangleTree::Box box;
    box.low.fill(-far);
    box.high.fill(far);
    return box;
}

}  // namespace

WallRemoval withoutWalls(MeshArrays const& mesh, StageProgress& progress)
{
    WallRemoval result{mesh, {}, {}, {}};
    if (!hasOddEdge(mesh, progress))
        return result;
    SurfaceOrder const order = findSurfaceOrder(mesh, everywhere(), progress);
    MeshArrays& kept = result.mesh;
    kept.triangles.clear();
    MeshArrays surplus{mesh.points, {}};
    std::vector<Index> wallOf;
    Polling polling(progress);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t, polling.step()) {
        MeshArrays::Corners corners = mesh.triangles[t];
        if (order.surplus[t] > 0) {
            surplus.triangles.push_back(corners);
            wallOf.push_back(order.surplus[t]);
            continue;
        }
        if (order.isTurned[t]) {
            std::swap(corners[1], corners[2]);
            result.turned.push_back(mesh.points[corners[0]]);
        }
        kept.triangles.push_back(corners);
    }
    auto const alone = trianglesNotIn(surplus, kept, Facing::either, progress);
    std::vector<bool> isTold(mesh.triangles.size() + 1, false);
    for (Index t = 0; t < surplus.triangles.size(); ++t)
        if (!std::binary_search(alone.begin(), alone.end(), t)) {
            result.copies.push_back(surplus.point(t, 0));
        } else if (!isTold[wallOf[t]]) {
            isTold[wallOf[t]] = true;
            result.walls.push_back(surplus.point(t, 0));
        }
    return result;
}
