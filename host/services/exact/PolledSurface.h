// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// For the sources of this folder only: it shows CGAL's types.

#include "host/services/repair/MeshRegion.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Surface_mesh.h>

#include <functional>
#include <utility>

using SurfaceKernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Surface = CGAL::Surface_mesh<SurfaceKernel::Point_3>;

/// The points of a surface, as a property map that asks for a cancel now and then: the way to
/// leave long operations that know no progress. What the progress function throws passes through
/// them.
class PolledPoints
{
public:
    using key_type = Surface::Vertex_index;
    using value_type = SurfaceKernel::Point_3;
    using reference = value_type const&;
    using category = boost::lvalue_property_map_tag;

    /// Names the progress that maps ask on this thread. Operations copy pieces of the surface and
    /// make maps for them from nothing else, so no map can carry it.
    class Scope
    {
    public:
        explicit Scope(StageProgress& progress) : m_outer(std::exchange(current(), &progress)) {}
        ~Scope() { current() = m_outer; }
        Scope(Scope const&) = delete;
        Scope& operator=(Scope const&) = delete;

        static StageProgress*& current();

    private:
        StageProgress* m_outer;
    };

    PolledPoints(Surface::Property_map<Surface::Vertex_index, SurfaceKernel::Point_3> points)
        : m_points(points)
    {}

    reference operator[](key_type vertex) const
    {
        if (++m_reads % 256 == 0 && Scope::current())
            Scope::current()->add(0);
        return m_points[vertex];
    }

    friend reference get(PolledPoints const& map, key_type vertex) { return map[vertex]; }
    friend void put(PolledPoints const& map, key_type vertex, value_type const& point)
    {
        map.m_points[vertex] = point;
    }

private:
    Surface::Property_map<Surface::Vertex_index, SurfaceKernel::Point_3> m_points;
    mutable unsigned m_reads = 0;
};

/// The point of the whole mesh that a vertex of the surface stands for, or none.
std::uint32_t originOf(Surface const& surface, Surface::Vertex_index vertex);

/// Makes a surface of a region, mends it, and takes over the points and triangles that are left, in
/// the surface's order, rounded to float.
///
/// mend     may leave by a standard exception where the library gives up
/// returns  whether the region was changed; false as well where its triangles are no surface: an
///          edge with more than two, a vertex with two fans, neighbours that disagree in
///          orientation
/// throws   what the progress function throws; the region is then as it was
bool mendRegion(MeshRegion& region, StageProgress& progress,
                std::function<void(Surface&)> const& mend);
