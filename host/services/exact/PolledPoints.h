// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// For the sources of this folder only: it shows CGAL's types.

#include "host/services/StageProgress.h"

#include <CGAL/Surface_mesh.h>

#include <utility>

/// Names the progress that polled things ask on this thread: the library's operations copy and make
/// these from nothing else, so none of them can carry it.
class PollingScope
{
public:
    explicit PollingScope(StageProgress& progress) : m_outer(std::exchange(current(), &progress)) {}
    ~PollingScope() { current() = m_outer; }
    PollingScope(PollingScope const&) = delete;
    PollingScope& operator=(PollingScope const&) = delete;

    /// Counts a step of an operation; asks for a cancel now and then. What the progress function
    /// throws passes through the operation.
    static void step(unsigned& steps)
    {
        if (++steps % 256 == 0 && current())
            current()->add(0);
    }

private:
    static StageProgress*& current();

    StageProgress* m_outer;
};

/// The points of a surface, as a property map that polls when it is read: the way to leave long
/// operations that know no progress.
template <typename Mesh>
class PolledPointMap
{
public:
    using key_type = typename Mesh::Vertex_index;
    using value_type = typename Mesh::Point;
    using reference = value_type const&;
    using category = boost::lvalue_property_map_tag;
    using Points = typename Mesh::template Property_map<key_type, value_type>;

    PolledPointMap(Points points) : m_points(points) {}

    reference operator[](key_type vertex) const
    {
        PollingScope::step(m_reads);
        return m_points[vertex];
    }

    friend reference get(PolledPointMap const& map, key_type vertex) { return map[vertex]; }
    friend void put(PolledPointMap const& map, key_type vertex, value_type const& point)
    {
        map.m_points[vertex] = point;
    }

private:
    Points m_points;
    mutable unsigned m_reads = 0;
};
