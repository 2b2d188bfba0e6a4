// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/memory/RecordStock.h"
#include "host/services/boolean/SoupBoolean.h"
#include "platform/mesh/UMesh.h"

#include <functional>
#include <memory>
#include <span>
#include <vector>

/// Writes the triangles of a piece to the mesh that holds its copied records.
class PieceWriter
{
public:
    PieceWriter(std::unique_ptr<UMesh<float>> mesh, SoupBoolean const& boolean);

    /// Uses a vertex that is in the mesh already for a vertex of the soup.
    void useVertex(std::uint32_t number, UVertex<float>* vertex) { m_vertices[number] = vertex; }

    /// A triangle's normal where an operand has it; zero to have it computed. Any thread.
    using NormalOf = std::function<UVector3<float>(PieceTriangle const&)>;

    /// Adds triangles in their order, and their vertices in the order of their first use.
    ///
    /// progress  counts the triangles
    /// cost      on all cores but for the vertices
    void add(std::span<PieceTriangle const> triangles, NormalOf const& normalOf,
             StageProgress& progress);

    /// The finished mesh, which has no triangle without area.
    std::unique_ptr<UMesh<float>> finish(StageProgress& progress);

private:
    void addBatch(std::span<PieceTriangle const> triangles, NormalOf const& normalOf);
    void makeVertex(std::uint32_t number);
    bool writeRecord(UTriangle<float>* place, PieceTriangle const& triangle,
                     NormalOf const& normalOf) const;

    std::unique_ptr<UMesh<float>> m_mesh;
    SoupBoolean const& m_boolean;
    std::vector<UVertex<float>*> m_vertices;
    RecordStock<UVertex<float>> m_vertexStock;
    bool m_hasFlat = false;
};
