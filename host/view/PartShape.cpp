// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartShape.h"

#include "host/view/StandInShape.h"

PartShape::PartShape(DrawDevice& device, PartSurface const& surface, Mesh const& source)
    : PartShape(device.upload(surface), surface, source)
{}

PartShape::PartShape(std::unique_ptr<DrawDevice::Geometry> uploaded, PartSurface const& surface,
                     Mesh const& source)
    : geometry(std::move(uploaded)),
      meanEdge(surface.meanEdge),
      isSolid(surface.isSolid),
      box(surface.box),
      bytes(surface.vertices.size() * sizeof(PartSurface::Vertex) +
            surface.indices.size() * sizeof(std::uint32_t)),
      mesh(source),
      m_triangles(source->triangles.size())
{}

PartShape::~PartShape() = default;

bool PartShape::isOf(Mesh const& other) const
{
    return mesh.lock() == other && other->triangles.size() == m_triangles;
}
