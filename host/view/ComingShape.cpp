// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/ComingShape.h"

namespace {

constexpr std::size_t bytesPerStep = 4 << 20;
/// About 600,000 triangles, which take some ten milliseconds.
constexpr std::size_t mostAtOnce = 16 << 20;

}  // namespace

ComingShape::ComingShape(DrawDevice& device, std::unique_ptr<PartSurface> surface,
                         PartShape::Mesh const& mesh)
    : m_surface(std::move(surface)),
      m_mesh(mesh),
      m_triangles(mesh->triangles.size()),
      m_upload(device, m_surface->vertices, m_surface->indices)
{}

bool ComingShape::isWorthIt(PartSurface const& surface)
{
    return surface.vertices.size() * sizeof(PartSurface::Vertex) +
               surface.indices.size() * sizeof(std::uint32_t) >
           mostAtOnce;
}

bool ComingShape::isOf(PartShape::Mesh const& mesh) const
{
    return m_mesh.lock() == mesh && mesh->triangles.size() == m_triangles;
}

bool ComingShape::step()
{
    PartShape::Mesh const mesh = m_mesh.lock();
    if (!mesh || m_shape)
        return true;
    if (!m_upload.step(bytesPerStep))
        return false;
    m_shape = std::make_shared<PartShape>(m_upload.take(), *m_surface, mesh);
    m_surface.reset();
    return true;
}
