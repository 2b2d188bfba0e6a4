// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/MeshMaking.h"
#include "host/services/RecordArrays.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <unordered_map>

namespace {

using Range = tbb::blocked_range<std::size_t>;
constexpr std::size_t grain = 8192;

bool isNumbered(std::vector<UVertex<float>*> const& list, UVertex<float> const* vertex)
{
    return vertex->cID() < list.size() && list[vertex->cID()] == vertex;
}

/// Fills the corners from the identifiers of the vertices. Returns false if one is not valid.
bool copyNumbered(UMesh<float> const& mesh, MeshArrays& arrays, StageProgress& progress)
{
    std::atomic<bool> valid = true;
    tbb::parallel_for(Range(0, mesh.triangles.size(), grain), [&](Range const& range) {
        for (std::size_t t = range.begin(); t != range.end(); ++t)
            for (int k = 0; k < 3; ++k) {
                UVertex<float> const* vertex = mesh.triangles[t]->cV(k);
                if (!isNumbered(mesh.vertices, vertex)) {
                    valid = false;
                    return;
                }
                arrays.triangles[t][k] = std::uint32_t(vertex->cID());
            }
        progress.add(range.size());
    });
    return valid;
}

/// The same for a mesh with identifiers that are not in list order.
void copyUnnumbered(UMesh<float> const& mesh, MeshArrays& arrays, StageProgress& progress)
{
    std::unordered_map<UVertex<float> const*, std::uint32_t> places(mesh.vertices.size() * 2);
    for (UVertex<float> const* vertex : mesh.vertices)
        places.emplace(vertex, std::uint32_t(places.size()));
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        for (int k = 0; k < 3; ++k) {
            UVertex<float> const* vertex = mesh.triangles[t]->cV(k);
            auto const [place, isNew] = places.emplace(vertex, std::uint32_t(arrays.points.size()));
            if (isNew)
                arrays.points.push_back(vertex->cP());
            arrays.triangles[t][k] = place->second;
        }
        if (t % grain == 0)
            progress.add(grain);
    }
}

void moveToWorld(UMatrix4<float> const& matrix, MeshArrays& arrays)
{
    for (MeshArrays::Point& point : arrays.points)
        point = matrix * point;
    if (matrix.linearDeterminant() < 0)
        for (MeshArrays::Corners& corners : arrays.triangles)
            std::swap(corners[1], corners[2]);
}

}  // namespace

MeshArrays copyArrays(UMesh<float> const& mesh, StageProgress& progress)
{
    MeshArrays arrays;
    arrays.points.resize(mesh.vertices.size());
    arrays.triangles.resize(mesh.triangles.size());
    tbb::parallel_for(Range(0, arrays.points.size(), grain), [&](Range const& range) {
        for (std::size_t i = range.begin(); i != range.end(); ++i)
            arrays.points[i] = mesh.vertices[i]->cP();
        progress.add(0);
    });
    if (!copyNumbered(mesh, arrays, progress))
        copyUnnumbered(mesh, arrays, progress);
    return arrays;
}

MeshArrays copyArrays(MeshKernel const& kernel, Frame frame, StageProgress& progress)
{
    std::shared_ptr<UMesh<float> const> const mesh = kernel.readMesh();
    if (!mesh)
        return {};
    MeshArrays arrays = copyArrays(*mesh, progress);
    if (frame == Frame::World && !kernel.getMatrix().isIdentity())
        moveToWorld(kernel.getMatrix(), arrays);
    return arrays;
}

std::unique_ptr<UMesh<float>> makeMesh(MeshArrays const& arrays, StageProgress& progress)
{
    constexpr std::size_t pollInterval = 8192;
    auto mesh = std::make_unique<UMesh<float>>();
    mesh->vertices.reserve(arrays.points.size());
    mesh->triangles.reserve(arrays.triangles.size());
    for (MeshArrays::Point const& point : arrays.points) {
        if (mesh->vertices.size() % pollInterval == 0)
            progress.add(0);
        mesh->AddVertex(new UVertex<float>(point));
    }
    for (MeshArrays::Corners const& corners : arrays.triangles) {
        if (mesh->triangles.size() % pollInterval == 0)
            progress.add(0);
        auto* triangle = new UTriangle<float>;
        for (int k = 0; k < 3; ++k)
            triangle->V0(k) = mesh->vertices[corners[k]];
        triangle->N() = triangle->ComputeNormalizedNormal();
        mesh->AddTriangle(triangle);
    }
    mesh->UpdateVertsID();
    mesh->UpdateTrisID();
    return mesh;
}

std::unique_ptr<UMesh<float>> makeMesh(MeshArrays const& arrays)
{
    std::function<void(int)> const nobody;
    StageProgress progress(nobody);
    return makeMesh(arrays, progress);
}
