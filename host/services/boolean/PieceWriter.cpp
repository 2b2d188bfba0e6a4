// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PieceWriter.h"

#include "host/mesh/DegenerateTriangles.h"

#include <new>

PieceWriter::PieceWriter(std::unique_ptr<UMesh<float>> mesh, SoupBoolean const& boolean)
    : m_mesh(std::move(mesh)), m_boolean(boolean), m_vertices(boolean.pointCount(), nullptr)
{}

void PieceWriter::reserve(std::size_t triangles)
{
    m_mesh->triangles.reserve(m_mesh->triangles.size() + triangles);
    m_mesh->vertices.reserve(m_mesh->vertices.size() + triangles / 2);
}

UVertex<float>* PieceWriter::vertexAt(std::uint32_t number)
{
    if (!m_vertices[number]) {
        m_vertices[number] = new (m_vertexStock.take()) UVertex<float>(m_boolean.place(number));
        m_mesh->vertices.push_back(m_vertices[number]);
    }
    return m_vertices[number];
}

void PieceWriter::add(PieceTriangle const& triangle, UVector3<float> normal)
{
    auto const& c = triangle.corners;
    UVertex<float>*const a = vertexAt(c[0]), *const b = vertexAt(c[1]), *const d = vertexAt(c[2]);
    auto* const record = new (m_triangleStock.take()) UTriangle<float>(a, b, d, normal);
    if (normal == UVector3<float>())
        record->N() = record->ComputeNormalizedNormal();
    m_mesh->triangles.push_back(record);
    if (isDegenerate(a->cP(), b->cP(), d->cP()))
        m_hasFlat = true;
}

std::unique_ptr<UMesh<float>> PieceWriter::finish(StageProgress& progress)
{
    // What rounding has laid flat and could not be mended among the facets alone.
    if (m_hasFlat) {
        m_mesh->DeleteDegenerateTris();
        progress.add(0);
        m_mesh->DeleteUnreferenceVerts();
        progress.add(0);
    }
    m_mesh->UpdateVertsID();
    m_mesh->triangleCount = std::uint32_t(m_mesh->triangles.size());
    m_mesh->vertexCount = std::uint32_t(m_mesh->vertices.size());
    return std::move(m_mesh);
}
