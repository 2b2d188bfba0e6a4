// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/MeshSource.h"

#include <algorithm>

namespace Formats {
namespace {

bool haveIdentifiersInListOrder(UMesh<float> const& mesh)
{
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i)
        if (mesh.vertices[i]->cID() != i)
            return false;
    return true;
}

}  // namespace

MeshSource::MeshSource(MeshKernel const& kernel, Frame frame)
    : m_mesh(kernel.readMesh()),
      m_matrix(frame == Frame::Placed ? kernel.getMatrix() : UMatrix4<float>()),
      m_isMoved(!m_matrix.isIdentity()),
      m_second(m_matrix.linearDeterminant() < 0 ? 2 : 1)
{}

std::array<std::uint32_t, 3> MeshSource::indices(std::size_t triangle) const
{
    UTriangle<float> const& t = *m_mesh->triangles[triangle];
    auto const place = [&](int corner) {
        UVertex<float> const* const vertex = t.cV(corner);
        if (m_places.empty())
            return std::uint32_t(vertex->cID());
        return std::ranges::lower_bound(m_places, vertex, {}, [](auto& p) { return p.first; })
            ->second;
    };
    return {place(0), place(m_second), place(3 - m_second)};
}

void MeshSource::numberVertices()
{
    if (haveIdentifiersInListOrder(*m_mesh))
        return;
    m_places.reserve(m_mesh->vertices.size());
    for (std::size_t i = 0; i < m_mesh->vertices.size(); ++i)
        m_places.emplace_back(m_mesh->vertices[i], std::uint32_t(i));
    std::ranges::sort(m_places);
}

std::uint64_t totalTriangles(std::span<NamedMesh const> parts)
{
    std::uint64_t total = 0;
    for (NamedMesh const& part : parts)
        total += part.kernel->readMesh()->triangles.size();
    return total;
}

}  // namespace Formats
