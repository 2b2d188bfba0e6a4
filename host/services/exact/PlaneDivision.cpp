// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/PlaneDivision.h"

#include <cmath>
#include <utility>

PlaneDivision::PlaneDivision(ExactKernel::Triangle_3 const& triangle)
    : m_plane(triangle.supporting_plane())
{
    auto const normal = m_plane.orthogonal_vector();
    // Any axis that the plane does not contain will do; the largest component is sure to be one.
    double largest = 0;
    for (int axis = 0; axis < 3; ++axis)
        if (double const size = std::abs(CGAL::to_double(normal[axis])); size > largest) {
            largest = size;
            m_axis = axis;
        }
    m_isTurned = CGAL::sign(normal[m_axis]) == CGAL::NEGATIVE;
}

ExactKernel::Point_2 PlaneDivision::flatten(Point const& point) const
{
    return {point[(m_axis + 1) % 3], point[(m_axis + 2) % 3]};
}

PlaneDivision::Point PlaneDivision::lift(ExactKernel::Point_2 const& point) const
{
    ExactKernel::FT const factors[3] = {m_plane.a(), m_plane.b(), m_plane.c()};
    int const u = (m_axis + 1) % 3, v = (m_axis + 2) % 3;
    ExactKernel::FT coordinates[3];
    coordinates[u] = point.x();
    coordinates[v] = point.y();
    coordinates[m_axis] =
        -(factors[u] * point.x() + factors[v] * point.y() + m_plane.d()) / factors[m_axis];
    return {coordinates[0], coordinates[1], coordinates[2]};
}

PlaneDivision::Flat::Vertex_handle PlaneDivision::insert(Point const& point, std::uint32_t id)
{
    auto const vertex = m_flat.insert(flatten(point));
    vertex->info().value = id;
    return vertex;
}

void PlaneDivision::addPoint(Point const& point, std::uint32_t id)
{
    insert(point, id);
}

void PlaneDivision::addSegment(Point const& from, std::uint32_t fromId, Point const& to,
                               std::uint32_t toId)
{
    auto const start = insert(from, fromId), end = insert(to, toId);
    if (start != end)
        m_flat.insert_constraint(start, end);
}

std::vector<MeshArrays::Corners> PlaneDivision::triangles(
    std::function<std::uint32_t(Point const&)> const& idOf)
{
    for (auto vertex = m_flat.finite_vertices_begin(); vertex != m_flat.finite_vertices_end();
         ++vertex)
        if (vertex->info().value == Id::none)
            vertex->info().value = idOf(lift(vertex->point()));
    std::vector<MeshArrays::Corners> result;
    for (auto face = m_flat.finite_faces_begin(); face != m_flat.finite_faces_end(); ++face) {
        MeshArrays::Corners corners;
        for (int k = 0; k < 3; ++k)
            corners[k] = face->vertex(k)->info().value;
        if (m_isTurned)
            std::swap(corners[1], corners[2]);
        result.push_back(corners);
    }
    return result;
}
