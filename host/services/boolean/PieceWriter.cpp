// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PieceWriter.h"

#include "host/memory/RecordSlabs.h"
#include "host/mesh/DegenerateTriangles.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <new>

PieceWriter::PieceWriter(std::unique_ptr<UMesh<float>> mesh, SoupBoolean const& boolean)
    : m_mesh(std::move(mesh)), m_boolean(boolean), m_vertices(boolean.pointCount(), nullptr)
{}

void PieceWriter::add(std::span<PieceTriangle const> triangles, NormalOf const& normalOf,
                      StageProgress& progress)
{
    m_mesh->triangles.reserve(m_mesh->triangles.size() + triangles.size());
    m_mesh->vertices.reserve(m_mesh->vertices.size() + triangles.size() / 2);
    constexpr std::size_t most = 1 << 16;
    for (std::size_t begin = 0; begin < triangles.size(); begin += most) {
        auto const batch = triangles.subspan(begin, std::min(most, triangles.size() - begin));
        addBatch(batch, normalOf);
        progress.add(batch.size());
    }
}

void PieceWriter::addBatch(std::span<PieceTriangle const> triangles, NormalOf const& normalOf)
{
    for (PieceTriangle const& triangle : triangles)
        for (std::uint32_t const corner : triangle.corners)
            makeVertex(corner);
    auto& records = m_mesh->triangles;
    std::size_t const first = records.size();
    for (auto const run : RecordSlabs::allocateRuns<UTriangle<float>>(triangles.size()))
        for (UTriangle<float>& place : run)
            records.push_back(&place);
    using Range = tbb::blocked_range<std::size_t>;
    m_hasFlat |= tbb::parallel_reduce(
        Range(0, triangles.size(), 1024), false,
        [&](Range const& range, bool isAnyFlat) {
            for (std::size_t i = range.begin(); i != range.end(); ++i)
                isAnyFlat |= writeRecord(records[first + i], triangles[i], normalOf);
            return isAnyFlat;
        },
        std::logical_or<>());
}

void PieceWriter::makeVertex(std::uint32_t number)
{
    if (m_vertices[number])
        return;
    m_vertices[number] = new (m_vertexStock.take()) UVertex<float>(m_boolean.place(number));
    m_mesh->vertices.push_back(m_vertices[number]);
}

/// Returns whether the triangle is flat.
bool PieceWriter::writeRecord(UTriangle<float>* place, PieceTriangle const& triangle,
                              NormalOf const& normalOf) const
{
    UVertex<float>*const a = m_vertices[triangle.corners[0]],
                         *const b = m_vertices[triangle.corners[1]],
                         *const c = m_vertices[triangle.corners[2]];
    auto* const record = new (place) UTriangle<float>(a, b, c, normalOf(triangle));
    if (record->cN() == UVector3<float>())
        record->N() = record->ComputeNormalizedNormal();
    return isDegenerate(a->cP(), b->cP(), c->cP());
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
