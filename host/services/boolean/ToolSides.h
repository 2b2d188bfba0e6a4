// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/PartRays.h"
#include "host/services/boolean/SignedEdge.h"

#include <algorithm>
#include <cstdint>
#include <vector>

/// Sorts the records of a part by the cells of a tool's grid: above is outside the tool, below
/// within it. On the way it offers the triangles in clear cells to rays.
class ToolSides
{
public:
    ToolSides(ToolGrid const& grid, std::size_t vertices, PartRays const& rays)
        : m_grid(grid), m_rays(rays), m_places(vertices)
    {}

    /// Once per vertex, before isApart() is asked about it.
    int sideOf(std::uint32_t vertex, UPoint3<float> const& point) const
    {
        m_places[vertex] = m_rays.marked(m_grid.placeOf(point));
        ToolGrid::State const state = m_grid.stateAt(m_places[vertex]);
        return state == ToolGrid::State::touched ? 0 : state == ToolGrid::State::inside ? -1 : 1;
    }

    /// Whether a triangle with corners in clear cells is in clear cells as a whole.
    bool isApart(std::uint32_t a, std::uint32_t b, std::uint32_t c) const
    {
        ToolGrid::Place const p = m_places[a], q = m_places[b], r = m_places[c];
        if (!m_grid.isClearBetween(p, q, r))
            return false;
        m_rays.offer({a, b, c}, p, q, r);
        return true;
    }

    /// Random numbers for the edges, with the sign of their direction: over a mesh of which each edge
    /// is run along as often one way as the other they add up to 0, and over others hardly ever.
    std::uint64_t edgesOf(std::uint32_t a, std::uint32_t b, std::uint32_t c) const
    {
        return signedEdge(a, b) + signedEdge(b, c) + signedEdge(c, a);
    }

private:
    ToolGrid const& m_grid;
    PartRays const& m_rays;
    /// Written once per vertex, each by one thread.
    mutable std::vector<ToolGrid::Place> m_places;
};
