// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/SurfaceUpload.h"

#include <algorithm>

SurfaceUpload::SurfaceUpload(DrawDevice& device, Vertices vertices, Indices indices)
    : m_device(device), m_vertices(vertices), m_indices(indices)
{}

SurfaceUpload::SurfaceUpload(DrawDevice& device, DrawDevice::Geometry const& withVertices,
                             Indices indices)
    : m_device(device), m_indices(indices), m_geometry(device.sharing(withVertices))
{}

bool SurfaceUpload::step(std::size_t bytes)
{
    if (!m_geometry) {
        m_geometry = m_device.reserve(m_vertices.size());
        // The room alone may take as long as a step.
        if (m_vertices.size_bytes() > bytes)
            return false;
    }
    std::size_t const vertices =
        std::min(m_vertices.size() - m_writtenVertices, bytes / sizeof(PartSurface::Vertex));
    if (vertices > 0)
        m_device.write(*m_geometry, m_writtenVertices,
                       m_vertices.subspan(m_writtenVertices, vertices));
    m_writtenVertices += vertices;
    bytes -= vertices * sizeof(PartSurface::Vertex);
    if (m_writtenVertices < m_vertices.size())
        return false;
    std::size_t const triangles = bytes / (3 * sizeof(std::uint32_t));
    std::size_t const indices = std::min(m_indices.size() - m_writtenIndices, 3 * triangles);
    if (indices > 0)
        m_device.append(*m_geometry, m_indices.subspan(m_writtenIndices, indices));
    m_writtenIndices += indices;
    return m_writtenIndices == m_indices.size();
}
