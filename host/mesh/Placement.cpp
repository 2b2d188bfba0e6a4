// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/mesh/Placement.h"

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

UVector3<double> between(UPoint3<float> const& from, UPoint3<float> const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
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
    auto copy = std::make_shared<MeshKernel>(source);
    UMatrix4<float> const matrix = std::exchange(copy->getMatrix(), {});
    if (!matrix.isIdentity())
        applyMatrix(*copy->getMesh(), matrix);
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

VolumeAndArea measure(MeshKernel const& kernel)
{
    std::shared_ptr<UMesh<float> const> const mesh = kernel.readMesh();
    VolumeAndArea sum;
    if (mesh->vertices.empty())
        return sum;
    UMatrix4<float> const matrix = kernel.getMatrix();
    // Tetrahedra over a point of the part: over a far origin their volumes would cancel.
    UPoint3<float> const apex = matrix * mesh->vertices.front()->cP();
    for (UTriangle<float> const* const triangle : mesh->triangles) {
        UVector3<double> const a = between(apex, matrix * triangle->cP(0));
        UVector3<double> const b = between(apex, matrix * triangle->cP(1));
        UVector3<double> const c = between(apex, matrix * triangle->cP(2));
        sum.volume += (a | (b * c)) / 6;
        sum.area += ((b - a) * (c - a)).GetLength() / 2;
    }
    if (matrix.linearDeterminant() < 0)
        sum.volume = -sum.volume;
    return sum;
}
