// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/PlacedTriangles.h"

#include <cmath>

namespace {

bool isSomewhere(MeshArrays const& mesh, std::uint32_t triangle)
{
    double sum = 0;
    for (int k = 0; k < 3; ++k)
        for (int axis = 0; axis < 3; ++axis)
            sum += mesh.point(triangle, k)[axis];
    return std::isfinite(sum);
}

}  // namespace

void PlacedTriangles::add(MeshArrays const& from, std::vector<std::uint32_t> const& triangles,
                          StageProgress& progress)
{
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        if (i % 4096 == 0)
            progress.add(0);
        if (!isSomewhere(from, triangles[i]))
            continue;
        MeshArrays::Corners corners;
        for (int k = 0; k < 3; ++k) {
            std::uint32_t& number = m_places[placeKey(from.point(triangles[i], k))];
            if (number == PointsByPlace::none) {
                number = std::uint32_t(m_points.size());
                m_points.push_back(from.point(triangles[i], k));
            }
            corners[std::size_t(k)] = number;
        }
        mesh.triangles.push_back(corners);
    }
}

void PlacedTriangles::makeField(StageProgress& progress)
{
    mesh.points = m_points;
    m_topology.isDegenerate.assign(mesh.triangles.size(), 0);
    m_topology.isSpread.assign(mesh.points.size(), 0);
    m_tree = std::make_unique<TriangleTree>(mesh, m_topology, progress);
    m_field = std::make_unique<WindingField>(mesh, *m_tree, progress);
}
