// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/ToolGrid.h"
#include "platform/mesh/UMesh.h"

#include <tbb/enumerable_thread_specific.h>

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// The winding numbers of a part around some points, by lines along x whose triangles are picked
/// out while the part is copied: that pass knows the cells of all corners, which spares one of its
/// own.
class PartRays
{
public:
    using Point = UPoint3<float>;

    PartRays(ToolGrid const& grid, std::vector<Point> points);

    /// Notes a triangle, by its vertices and their cells, if a line may pass it. Any thread.
    void offer(std::array<std::uint32_t, 3> const& vertices, ToolGrid::Place a, ToolGrid::Place b,
               ToolGrid::Place c) const
    {
        if (mayPass(a, b, c))
            m_noted.local().push_back(vertices);
    }

    /// The numbers, once all triangles but some have been offered; nothing where a point lies on
    /// the part, or its line tells that the part is open.
    ///
    /// rest  the triangles that were not offered
    std::vector<std::optional<int>> numbers(UMesh<float> const& part,
                                            std::span<UTriangle<float> const* const> rest) const;

private:
    /// A row of pages along x.
    static std::size_t rowOf(std::uint32_t y, std::uint32_t z) { return z << 7 | y; }

    bool mayPass(ToolGrid::Place a, ToolGrid::Place b, ToolGrid::Place c) const
    {
        std::uint32_t const row = a >> 13 & 0x1fc7f;
        if (row == (b >> 13 & 0x1fc7f) && row == (c >> 13 & 0x1fc7f))
            return m_isAsked[rowOf(row & 127, row >> 10)];
        return maySpread(a, b, c);
    }
    bool maySpread(ToolGrid::Place a, ToolGrid::Place b, ToolGrid::Place c) const;

    std::vector<Point> m_points;
    /// By row of pages: whether a line runs in it.
    std::bitset<128 * 128> m_isAsked;
    mutable tbb::enumerable_thread_specific<std::vector<std::array<std::uint32_t, 3>>> m_noted;
};
