// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// For the sources of this folder only: it shows CGAL's types.

#include "host/services/exact/ExactSurface.h"
#include "host/services/exact/PolledPoints.h"

#include <CGAL/AABB_traits.h>
#include <CGAL/AABB_tree.h>

#include <vector>

/// How many times a mesh winds around exact points.
class ExactWinding
{
public:
    using Point = ExactKernel::Point_3;
    using Vector = ExactKernel::Vector_3;
    using Triangle = ExactKernel::Triangle_3;

    /// cost  one pass over the triangles, and n log n at the first question
    ExactWinding(MeshArrays const& mesh, StageProgress& progress);

    /// The winding number on the side of a point to which a vector shows. Triangles that contain
    /// the point are left out: it is asked for a point in the inner of a face, and `side` is on the
    /// front of these triangles or on their back.
    int beside(Point const& point, Vector const& side, StageProgress& progress) const;

    struct Sides
    {
        int front;
        int behind;
    };
    /// The numbers on both sides of such a point, by one ray where no edge of the mesh runs through
    /// it.
    Sides around(Point const& point, Vector const& normal, StageProgress& progress) const;

    /// A triangle that contains the point, or null.
    Triangle const* triangleAt(Point const& point, StageProgress& progress) const;

private:
    using Triangles = std::vector<Triangle>;
    /// A triangle of the tree, which polls when it is looked at.
    class Primitive
    {
    public:
        using Id = Triangles::const_iterator;
        using Point = ExactWinding::Point;
        using Datum = Triangle;
        using Point_reference = Point;
        using Datum_reference = Triangle const&;

        explicit Primitive(Id triangle) : m_triangle(triangle) {}

        Id id() const { return m_triangle; }
        Datum_reference datum() const { return polled(); }
        Point_reference reference_point() const { return polled().vertex(0); }

    private:
        Triangle const& polled() const
        {
            thread_local unsigned steps = 0;
            PollingScope::step(steps);
            return *m_triangle;
        }

        Id m_triangle;
    };
    using Tree = CGAL::AABB_tree<CGAL::AABB_traits<ExactKernel, Primitive>>;

    bool tryDirection(Point const& point, Vector const& direction, int& winding) const;

    Triangles m_triangles;
    Tree m_tree;
};
