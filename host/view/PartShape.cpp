// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartShape.h"

#include "host/view/StandInShape.h"

PartShape::PartShape(DrawDevice& device, PartSurface const& surface, Mesh const& source)
    : geometry(device.upload(surface)),
      meanEdge(surface.meanEdge),
      isSolid(surface.isSolid),
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
