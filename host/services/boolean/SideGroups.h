// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/DisjointSets.h"
#include "host/services/boolean/CurveNetwork.h"

#include <cstdint>
#include <span>

/// Vertices of one operand, and the regions of its divided triangles, that lie together on one side
/// of the other operand: a group is what hangs together without a curve between.
class SideGroups
{
public:
    SideGroups(OperandSoup const& soup, CurveNetwork const& network, Operand operand,
               StageProgress& progress);

    std::uint32_t pointCount() const { return m_pointCount; }
    std::uint32_t regionCount() const
    {
        auto const& ends = m_network.facets().ends;
        return ends.empty() ? 0 : ends.back().regions;
    }
    /// Groups are numbers below this.
    std::uint32_t size() const { return m_pointCount + regionCount(); }

    /// local  a vertex, counted from the operand's first
    std::uint32_t ofVertex(std::uint32_t local) { return m_sets.root(local); }
    std::uint32_t ofRegion(std::uint32_t region) { return m_sets.root(m_pointCount + region); }
    bool isOnCurve(std::uint32_t local) const
    {
        return m_network.points().isOnCurve(m_firstPoint + local);
    }
    std::uint32_t globalOf(std::uint32_t local) const { return m_firstPoint + local; }

    /// Calls `visit(region, facet, triangle)` for the facets of this operand's faces.
    template <typename Visit>
    void forFacets(Visit const& visit) const
    {
        Facets const& facets = m_network.facets();
        std::uint32_t begin = 0;
        for (Facets::End const& face : facets.ends) {
            if (face.triangle >= m_firstTriangle && face.triangle < m_endTriangle)
                for (std::uint32_t f = begin; f < face.facets; ++f)
                    visit(facets.regions[f], facets.corners[f], face.triangle);
            begin = face.facets;
        }
    }

    /// Calls `visit(triangle)` for this operand's triangles that are not divided.
    template <typename Visit>
    void forWholes(Visit const& visit) const
    {
        for (std::uint32_t t = m_firstTriangle; t < m_endTriangle; ++t)
            if (m_network.faceOf(t) == CurveNetwork::none)
                visit(t);
    }

private:
    void joinTriangle(std::uint32_t triangle);
    void joinFace(std::uint32_t face);
    void joinAcrossSides(StageProgress& progress);
    bool isOnLine(std::span<std::uint32_t const> vertices, std::uint32_t point) const;

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    std::uint32_t m_firstPoint;
    std::uint32_t m_pointCount;
    std::uint32_t m_firstTriangle;
    std::uint32_t m_endTriangle;
    DisjointSets m_sets;
};
