// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/VertexStars.h"

VertexStars::VertexStars(MeshArrays const& mesh, StageProgress& progress)
    : m_first(mesh.points.size() + 1, 0)
{
    std::size_t const triangleCount = mesh.triangles.size();
    constexpr std::size_t batch = 65536;
    for (std::size_t t = 0; t < triangleCount; ++t) {
        if (t % batch == 0)
            progress.add(0);
        if (!mesh.isCollapsed(t))
            for (std::uint32_t vertex : mesh.triangles[t])
                ++m_first[vertex];
    }
    progress.add(0);
    std::uint32_t end = 0;
    for (std::uint32_t& first : m_first)
        first = end += first;
    // Filling from the back turns each end into the beginning.
    m_corners.resize(end);
    for (std::size_t t = triangleCount; t-- > 0;) {
        if (t % batch == 0)
            progress.add(0);
        if (!mesh.isCollapsed(t))
            for (int k = 3; k-- > 0;)
                m_corners[--m_first[mesh.triangles[t][k]]] = std::uint32_t(3 * t + k);
    }
    progress.add(0);
}
