// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/SurfaceUpload.h"

#include <algorithm>

SurfaceUpload::SurfaceUpload(DrawDevice& device, Vertices vertices, Indices indices)
    : m_device(device),
      m_vertices(vertices),
      m_indices(indices),
      m_geometry(device.reserve(vertices.size(), indices.size()))
{}

SurfaceUpload::SurfaceUpload(DrawDevice& device, DrawDevice::Geometry const& withVertices,
                             Indices indices)
    : m_device(device), m_indices(indices), m_geometry(device.reserve(withVertices, indices.size()))
{}

bool SurfaceUpload::step(std::size_t bytes)
{
    std::size_t const vertices =
        std::min(m_vertices.size() - m_writtenVertices, bytes / sizeof(PartSurface::Vertex));
    if (vertices > 0)
        m_device.write(*m_geometry, m_writtenVertices,
                       m_vertices.subspan(m_writtenVertices, vertices));
    m_writtenVertices += vertices;
    bytes -= vertices * sizeof(PartSurface::Vertex);
    if (m_writtenVertices < m_vertices.size())
        return false;
    std::size_t const indices =
        std::min(m_indices.size() - m_writtenIndices, bytes / sizeof(std::uint32_t));
    if (indices > 0)
        m_device.write(*m_geometry, m_writtenIndices, m_indices.subspan(m_writtenIndices, indices));
    m_writtenIndices += indices;
    return m_writtenIndices == m_indices.size();
}
