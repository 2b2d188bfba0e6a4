// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// The half-edges of a mesh, grouped by the edge they run along. Half-edge 3t + k runs from corner
/// k of triangle t to the next one. Triangles that use a vertex twice have none here.
class EdgeGroups
{
public:
    /// cost  linear in the triangles for vertices of bounded degree
    explicit EdgeGroups(MeshArrays const& mesh, StageProgress& progress);

    std::size_t size() const { return m_first.size() - 1; }
    /// The half-edges along one edge, in ascending order.
    std::span<std::uint32_t const> operator[](std::size_t edge) const
    {
        return {m_halfEdges.data() + m_first[edge], m_first[edge + 1] - m_first[edge]};
    }

    static std::uint32_t start(MeshArrays const& mesh, std::uint32_t halfEdge)
    {
        return mesh.triangles[halfEdge / 3][halfEdge % 3];
    }
    static std::uint32_t end(MeshArrays const& mesh, std::uint32_t halfEdge)
    {
        return mesh.triangles[halfEdge / 3][(halfEdge + 1) % 3];
    }
    /// The vertex of the triangle that the half-edge does not touch.
    static std::uint32_t apex(MeshArrays const& mesh, std::uint32_t halfEdge)
    {
        return mesh.triangles[halfEdge / 3][(halfEdge + 2) % 3];
    }

private:
    std::vector<std::uint32_t> m_halfEdges;
    std::vector<std::uint32_t> m_first;
};
