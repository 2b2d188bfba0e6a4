// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/MeshBuilder.h"

#include "host/formats/MemoryNeed.h"
#include "host/memory/AvailableMemory.h"
#include "host/memory/HugePages.h"

#include <limits>
#include <new>

namespace Formats {

MeshBuilder::MeshBuilder(std::size_t expectedTriangles, std::size_t expectedVertices)
    : m_mesh(std::make_unique<UMesh<float>>())
{
    auto& list = m_mesh->triangles;
    reserveOnHugePages(list, expectedTriangles);
    m_points = std::make_unique<PointJoiner>(*m_mesh, expectedVertices);
}

void MeshBuilder::addTriangle(UVertex<float>* a, UVertex<float>* b, UVertex<float>* c)
{
    if (a == b || b == c || c == a) {
        m_mayHaveUnusedPoints = true;
        return;
    }
    auto& list = m_mesh->triangles;
    std::size_t const id = list.size();
    if (id == list.capacity()) {
        // The system may promise more memory than it has, so a file that goes on and on is stopped
        // here.
        std::size_t const more = id / 2 + 1024;
        if (id >= std::numeric_limits<std::uint32_t>::max() ||
            more * bytesPerTriangle > availableMemory())
            throw std::bad_alloc();
        list.reserve(id + more);
    }
    auto* const triangle = new (m_records.take()) UTriangle<float>();
    triangle->V0(0) = a;
    triangle->V0(1) = b;
    triangle->V0(2) = c;
    triangle->ID() = std::uint32_t(id);
    triangle->N() = triangle->ComputeNormalizedNormal();
    list.push_back(triangle);
}

std::unique_ptr<MeshKernel> MeshBuilder::finish()
{
    m_points.reset();
    if (m_mayHaveUnusedPoints)
        dropUnusedPoints();
    m_mesh->triangleCount = std::uint32_t(m_mesh->triangles.size());
    m_mesh->vertexCount = std::uint32_t(m_mesh->vertices.size());
    auto kernel = std::make_unique<MeshKernel>(m_mesh.release());
    kernel->UpdateBoundingBox();
    return kernel;
}

void MeshBuilder::dropUnusedPoints()
{
    std::vector<bool> isUsed(m_mesh->vertices.size(), false);
    std::size_t used = 0;
    for (UTriangle<float> const* triangle : m_mesh->triangles)
        for (int i = 0; i < 3; ++i) {
            auto const id = triangle->cV(i)->cID();
            used += !isUsed[id];
            isUsed[id] = true;
        }
    if (used == m_mesh->vertices.size())
        return;
    std::size_t kept = 0;
    for (UVertex<float>* const vertex : m_mesh->vertices) {
        if (!isUsed[vertex->cID()]) {
            delete vertex;
            continue;
        }
        vertex->ID() = kept;
        m_mesh->vertices[kept++] = vertex;
    }
    m_mesh->vertices.resize(kept);
}

}  // namespace Formats
