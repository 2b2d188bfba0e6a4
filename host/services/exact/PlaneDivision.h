// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// For the sources of this folder only: it shows CGAL's types.

#include "host/services/exact/ExactSurface.h"

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>

#include <functional>
#include <vector>

/// A triangle in space divided along points and segments that lie in it. All constructions are
/// exact, so that triangles which are divided by the same curves get the same points.
class PlaneDivision
{
public:
    using Point = ExactKernel::Point_3;

    explicit PlaneDivision(ExactKernel::Triangle_3 const& triangle);

    void addPoint(Point const& point, std::uint32_t id);
    void addSegment(Point const& from, std::uint32_t fromId, Point const& to, std::uint32_t toId);

    /// The pieces, which turn the same way as the triangle.
    ///
    /// idOf  the number for a point at which segments cross
    std::vector<MeshArrays::Corners> triangles(
        std::function<std::uint32_t(Point const&)> const& idOf);

private:
    struct Id
    {
        static constexpr std::uint32_t none = 0xffffffff;
        std::uint32_t value = none;
    };
    using Vertex = CGAL::Triangulation_vertex_base_with_info_2<Id, ExactKernel>;
    using Face = CGAL::Constrained_triangulation_face_base_2<ExactKernel>;
    using Flat = CGAL::Constrained_Delaunay_triangulation_2<
        ExactKernel, CGAL::Triangulation_data_structure_2<Vertex, Face>,
        CGAL::Exact_intersections_tag>;

    ExactKernel::Point_2 flatten(Point const& point) const;
    Point lift(ExactKernel::Point_2 const& point) const;
    Flat::Vertex_handle insert(Point const& point, std::uint32_t id);

    ExactKernel::Plane_3 m_plane;
    /// The axis along which the triangle is seen.
    int m_axis = 2;
    bool m_isTurned = false;
    Flat m_flat;
};
