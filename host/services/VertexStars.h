// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>
#include <span>
#include <vector>

/// The corners at each vertex, in the order of the triangles. A corner is 3 * triangle + place.
/// Triangles that use a vertex twice have no part in it: their edges cancel each other.
class VertexStars
{
public:
    /// cost  two passes over the triangles
    explicit VertexStars(MeshArrays const& mesh, StageProgress& progress);

    std::size_t vertexCount() const { return m_first.size() - 1; }
    std::span<std::uint32_t const> corners(std::size_t vertex) const
    {
        return {m_corners.data() + m_first[vertex], m_first[vertex + 1] - m_first[vertex]};
    }

private:
    std::vector<std::uint32_t> m_first;
    std::vector<std::uint32_t> m_corners;
};
