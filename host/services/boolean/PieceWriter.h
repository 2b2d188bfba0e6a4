// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/memory/RecordStock.h"
#include "host/services/boolean/SoupBoolean.h"
#include "platform/mesh/UMesh.h"

#include <memory>
#include <vector>

/// Writes the triangles of a piece to the mesh that holds its copied records.
class PieceWriter
{
public:
    PieceWriter(std::unique_ptr<UMesh<float>> mesh, SoupBoolean const& boolean);

    /// Uses a vertex that is in the mesh already for a vertex of the soup.
    void useVertex(std::uint32_t number, UVertex<float>* vertex) { m_vertices[number] = vertex; }

    void reserve(std::size_t triangles);

    /// normal  that of the operand's triangle; zero to have it computed
    void add(PieceTriangle const& triangle, UVector3<float> normal);

    /// The finished mesh, which has no triangle without area.
    std::unique_ptr<UMesh<float>> finish(StageProgress& progress);

private:
    UVertex<float>* vertexAt(std::uint32_t number);

    std::unique_ptr<UMesh<float>> m_mesh;
    SoupBoolean const& m_boolean;
    std::vector<UVertex<float>*> m_vertices;
    RecordStock<UVertex<float>> m_vertexStock;
    RecordStock<UTriangle<float>> m_triangleStock;
    bool m_hasFlat = false;
};
