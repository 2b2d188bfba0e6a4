// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mesh/TakenMesh.h"

std::unique_ptr<UMesh<float>> takeMesh(MeshKernel& kernel)
{
    auto mesh = std::make_unique<UMesh<float>>();
    UMesh<float>& source = *kernel.getMesh();
    mesh->triangles.swap(source.triangles);
    mesh->vertices.swap(source.vertices);
    mesh->triangleCount = std::uint32_t(mesh->triangles.size());
    mesh->vertexCount = std::uint32_t(mesh->vertices.size());
    source.triangleCount = source.vertexCount = 0;
    return mesh;
}

std::shared_ptr<MeshKernel> asReadOnly(MeshKernel& kernel)
{
    auto taken = std::make_shared<MeshKernel>(takeMesh(kernel).release());
    taken->getMatrix() = kernel.getMatrix();
    taken->UpdateBoundingBox();
    return taken;
}
