// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/EdgeSeparation.h"

#include "host/mesh/JoinedPlaces.h"
#include "host/services/EdgeGroups.h"
#include "host/services/Polling.h"
#include "host/services/boolean/TouchingEdges.h"

namespace {

using Index = std::uint32_t;

/// The same triangles between the first points in each place.
MeshArrays byPlaces(MeshArrays const& mesh, std::vector<Index> const& first,
                    StageProgress& progress)
{
    MeshArrays joined = mesh;
    Polling polling(progress);
    for (MeshArrays::Corners& corners : joined.triangles) {
        polling.step();
        for (Index& corner : corners)
            corner = first[corner];
    }
    return joined;
}

template <typename Visit>
void forFullEdges(MeshArrays const& joined, StageProgress& progress, Visit const& visit)
{
    EdgeGroups const edges(joined, progress);
    Polling polling(progress);
    for (std::size_t e = 0; e < edges.size(); ++e, polling.step())
        if (edges[e].size() > 2)
            visit(EdgeGroups::start(joined, edges[e][0]), EdgeGroups::end(joined, edges[e][0]));
}

bool doesShare(std::vector<Index> const& first)
{
    for (Index p = 0; p < first.size(); ++p)
        if (first[p] != p)
            return true;
    return false;
}

}  // namespace

FlawPlaces fullEdges(MeshArrays const& mesh, bool mayShareVertices, StageProgress& progress)
{
    std::vector<Index> const first = joinedPlaces(mesh.points);
    FlawPlaces places;
    if (mayShareVertices || doesShare(first))
        forFullEdges(byPlaces(mesh, first, progress), progress, [&](Index a, Index b) {
            places.push_back((mesh.points[a] + mesh.points[b]) * 0.5f);
        });
    return places;
}

void separateEdges(MeshArrays& mesh, StageProgress& progress)
{
    std::vector<Index> const first = joinedPlaces(mesh.points);
    std::vector<bool> isAtFullEdge(mesh.points.size(), false);
    forFullEdges(byPlaces(mesh, first, progress), progress,
                 [&](Index a, Index b) { isAtFullEdge[a] = isAtFullEdge[b] = true; });
    Polling polling(progress);
    for (Index p = 0; p < first.size(); ++p, polling.step())
        isAtFullEdge[p] = isAtFullEdge[first[p]];

    // The mesh as the result of a boolean whose first operand is empty.
    OperandSoup const soup{mesh, 0, 0};
    std::vector<PieceTriangle> piece;
    piece.reserve(mesh.triangles.size());
    for (Index t = 0; t < mesh.triangles.size(); ++t, polling.step())
        piece.push_back({mesh.triangles[t], t, false});
    TouchingEdges(soup, piece, mesh.points, TouchingEdges::Which::all)
        .separate(isAtFullEdge, progress);
    mesh.triangles.resize(piece.size());
    for (Index t = 0; t < piece.size(); ++t, polling.step())
        mesh.triangles[t] = piece[t].corners;
}
