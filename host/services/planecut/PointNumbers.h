// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/planecut/SectionPoints.h"
#include "host/services/planecut/SectionWalls.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The section points of the vertices of both halves.
class PointNumbers
{
public:
    explicit PointNumbers(SectionPoints const& points);

    /// The point, or none for a vertex beside the plane.
    std::uint32_t operator()(CutSide side, UVertex<float> const* vertex) const;

private:
    /// By identifier; those of section points follow each other, from some number on.
    class ByIdentifier
    {
    public:
        void add(std::size_t identifier, std::uint32_t point);
        std::uint32_t at(std::size_t identifier) const
        {
            return identifier >= m_first && identifier - m_first < m_points.size()
                       ? m_points[identifier - m_first]
                       : WallCorner::none;
        }

    private:
        std::size_t m_first = 0;
        std::vector<std::uint32_t> m_points;
    };

    SectionPoints const& m_points;
    std::array<ByIdentifier, 2> m_sides;
};
