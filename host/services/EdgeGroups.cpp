// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/EdgeGroups.h"

#include "host/services/VertexStars.h"

#include <algorithm>
#include <utility>

EdgeGroups::EdgeGroups(MeshArrays const& mesh, StageProgress& progress)
{
    VertexStars const stars(mesh, progress);
    std::vector<std::pair<std::uint32_t, std::uint32_t>> upward;
    m_halfEdges.reserve(3 * mesh.triangles.size());
    for (std::uint32_t vertex = 0; vertex < stars.vertexCount(); ++vertex) {
        if (vertex % 4096 == 0)
            progress.add(0);
        upward.clear();
        for (std::uint32_t corner : stars.corners(vertex)) {
            std::uint32_t const triangle = corner / 3;
            std::uint32_t const before = 3 * triangle + (corner + 2) % 3;
            if (end(mesh, corner) > vertex)
                upward.emplace_back(end(mesh, corner), corner);
            if (start(mesh, before) > vertex)
                upward.emplace_back(start(mesh, before), before);
        }
        std::sort(upward.begin(), upward.end());
        for (std::size_t i = 0; i < upward.size(); ++i) {
            if (i == 0 || upward[i].first != upward[i - 1].first)
                m_first.push_back(std::uint32_t(m_halfEdges.size()));
            m_halfEdges.push_back(upward[i].second);
        }
    }
    m_first.push_back(std::uint32_t(m_halfEdges.size()));
}
