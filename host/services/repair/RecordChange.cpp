// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/RecordChange.h"

#include "host/memory/RecordSlabs.h"
#include "host/services/MeshMaking.h"
#include "host/services/repair/SoupMending.h"
#include "host/services/repair/TriangleDifference.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace {

using Triangle = UTriangle<float>;
using Vertex = UVertex<float>;

bool hasPointsOf(MeshArrays const& mesh, MeshArrays const& before)
{
    return mesh.points.size() >= before.points.size() &&
           std::equal(before.points.begin(), before.points.end(), mesh.points.begin());
}

void replaceRecords(MeshKernel& kernel, MeshArrays& mesh, StageProgress& progress)
{
    removeUnusedPoints(mesh);
    auto made = makeMesh(mesh, progress);
    // The last moment for a cancel; it must not find the mesh changed.
    progress.finish();
    UMesh<float>& target = *kernel.getMesh();
    target.triangles.swap(made->triangles);
    target.vertices.swap(made->vertices);
    std::swap(target.triangleCount, made->triangleCount);
    std::swap(target.vertexCount, made->vertexCount);
}

void connect(Triangle& triangle, MeshArrays::Corners const& corners,
             std::vector<Vertex*> const& vertices)
{
    for (int k = 0; k < 3; ++k) {
        triangle.V0(k) = vertices[corners[std::size_t(k)]];
        triangle.FFp(k) = nullptr;
        triangle.FFi(k) = 0;
    }
}

/// All that can fail is done before the mesh is touched.
void replaceSome(UMesh<float>& target, MeshArrays const& mesh,
                 std::vector<std::uint32_t> const& matched)
{
    std::vector<std::unique_ptr<Vertex>> newVertices;
    for (std::size_t i = target.vertices.size(); i < mesh.points.size(); ++i)
        newVertices.push_back(std::make_unique<Vertex>(mesh.points[i]));
    std::vector<std::unique_ptr<Triangle>> newTriangles;
    for (std::uint32_t const earlier : matched)
        if (earlier == unmatched)
            newTriangles.push_back(std::make_unique<Triangle>());
    std::vector<Triangle*> triangles(mesh.triangles.size());
    target.vertices.reserve(mesh.points.size());

    for (Vertex* const vertex : target.vertices)
        vertex->VFp() = nullptr;
    for (auto& vertex : newVertices)
        target.AddVertex(vertex.release());
    auto next = newTriangles.begin();
    for (std::size_t t = 0; t < triangles.size(); ++t) {
        bool const isNew = matched[t] == unmatched;
        triangles[t] =
            isNew ? (next++)->release() : std::exchange(target.triangles[matched[t]], nullptr);
        connect(*triangles[t], mesh.triangles[t], target.vertices);
        if (isNew)
            triangles[t]->N() = triangles[t]->ComputeNormalizedNormal();
    }
    target.triangles.swap(triangles);
    target.triangleCount = std::uint32_t(target.triangles.size());
    // What is left in the old list is used no more.
    RecordSlabs::releaseAll<Triangle>(triangles);
}

}  // namespace

void changeRecords(MeshKernel& kernel, MeshArrays const& before, MeshArrays mesh,
                   StageProgress& progress)
{
    if (hasPointsOf(mesh, before)) {
        auto const matched = matchedInOrder(mesh, before, progress);
        progress.finish();
        replaceSome(*kernel.getMesh(), mesh, matched);
        kernel.toRclMesh();
    } else {
        replaceRecords(kernel, mesh, progress);
    }
    kernel.UpdateBoundingBox();
}
