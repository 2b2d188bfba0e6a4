// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/mesh/Placement.h"

#include "host/mesh/MeshCopy.h"

#include <utility>

namespace {

// After the swap of corners 1 and 2, edges 0 and 2 have changed places, here and in the neighbours.
void turnRound(UTriangle<float>& triangle)
{
    std::swap(triangle.V0(1), triangle.V0(2));
    std::swap(triangle.FFp(0), triangle.FFp(2));
    std::swap(triangle.FFi(0), triangle.FFi(2));
    for (int i = 0; i < 3; ++i)
        if (triangle.FFp(i))
            triangle.FFi(i) = char(2 - triangle.FFi(i));
}

}  // namespace

void applyMatrix(UMesh<float>& mesh, UMatrix4<float> const& matrix)
{
    for (UVertex<float>* const vertex : mesh.vertices)
        vertex->P() = matrix * vertex->P();
    bool const isReflection = matrix.linearDeterminant() < 0;
    for (UTriangle<float>* const triangle : mesh.triangles) {
        if (isReflection)
            turnRound(*triangle);
        triangle->N() = triangle->ComputeNormalizedNormal();
    }
}

std::shared_ptr<MeshKernel> placedCopy(MeshKernel const& source)
{
    auto copy = std::make_shared<MeshKernel>();
    if (source.getMatrix().isIdentity()) {
        copy->shareMeshOf(source);
    } else {
        // Filled before the kernel holds it, so that copies of the kernel may share it.
        auto mesh = copyMesh(*source.readMesh());
        applyMatrix(*mesh, source.getMatrix());
        copy->replaceMesh(std::move(mesh));
    }
    copy->UpdateBoundingBox();
    return copy;
}

void appendRecords(UMesh<float>& mesh, UMesh<float>& source)
{
    mesh.vertices.insert(mesh.vertices.end(), source.vertices.begin(), source.vertices.end());
    mesh.triangles.insert(mesh.triangles.end(), source.triangles.begin(), source.triangles.end());
    source.vertices.clear();
    source.triangles.clear();
    source.vertexCount = 0;
    source.triangleCount = 0;
    mesh.vertexCount = std::uint32_t(mesh.vertices.size());
    mesh.triangleCount = std::uint32_t(mesh.triangles.size());
    mesh.UpdateVertsID();
    mesh.UpdateTrisID();
}
