// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// Cubic cells over the box of a tool, the second operand. A cell that the tool's surface may touch
/// lists its triangles; all others are clear, and lie within the tool or outside it as a whole. The
/// outermost cells stand for all space around.
class ToolGrid
{
public:
    using Point = UPoint3<float>;
    /// Numbers of a cell along the axes, ten bits each.
    using Place = std::uint32_t;

    /// tool   must outlive the grid
    /// cells  about how many cells to make
    /// cost   linear in cells and in the pieces into which they divide the tool's triangles
    ToolGrid(MeshArrays const& tool, std::size_t cells, StageProgress& progress);

    Place placeOf(Point const& p) const
    {
        Place place = 0;
        for (int k = 0; k < 3; ++k)
            place |= std::uint32_t(numberOf(p[k], k)) << (10 * k);
        return place;
    }

    /// Whether the tool contains a clear cell; `touched` for one that is not clear.
    static constexpr std::int8_t touched = -1;
    std::int8_t stateAt(Place place) const { return m_states[indexOf(place)]; }

    /// The lowest and the highest numbers of some cells.
    struct Range
    {
        std::array<int, 3> low;
        std::array<int, 3> high;
    };
    static Range rangeOf(Place a, Place b, Place c);

    /// Calls `visit(triangle)` for the triangles listed in the cells of a range; for some more than
    /// once.
    template <typename Visit>
    void forTriangles(Range const& range, Visit const& visit) const
    {
        for (int z = range.low[2]; z <= range.high[2]; ++z)
            for (int y = range.low[1]; y <= range.high[1]; ++y) {
                std::size_t const row = std::size_t(z * m_counts[1] + y) * std::size_t(m_counts[0]);
                for (int x = range.low[0]; x <= range.high[0]; ++x)
                    for (std::uint32_t const t : trianglesIn(row + std::size_t(x)))
                        visit(t);
            }
    }

    /// The state that all cells of a range share; `touched` if one is.
    std::int8_t stateBetween(Range const& range) const;

    /// The tool's winding number around a point that does not lie on it.
    int windingAt(Point const& p) const;

private:
    int numberOf(float coordinate, int axis) const
    {
        double const n = (double(coordinate) - m_low[axis]) * m_perUnit + 1;
        // Not a number counts as below.
        return n >= m_counts[axis] - 1 ? m_counts[axis] - 1 : n >= 0 ? int(n) : 0;
    }
    static int numberIn(Place place, int axis) { return int(place >> (10 * axis) & 1023); }
    std::size_t indexOf(Place place) const
    {
        return (std::size_t(numberIn(place, 2)) * std::size_t(m_counts[1]) +
                std::size_t(numberIn(place, 1))) *
                   std::size_t(m_counts[0]) +
               std::size_t(numberIn(place, 0));
    }
    std::span<std::uint32_t const> trianglesIn(std::size_t cell) const
    {
        return {m_lists.data() + m_listEnds[cell], m_listEnds[cell + 1] - m_listEnds[cell]};
    }

    void measure(std::size_t cells);
    void listTriangles(StageProgress& progress);
    template <typename Visit>
    void forTouchedCells(std::uint32_t triangle, Visit const& visit) const;
    void findStates(StageProgress& progress);
    void labelRow(std::size_t row, int y, int z);

    MeshArrays const& m_tool;
    double m_low[3]{};
    double m_perUnit = 1;
    double m_cellSize = 1;
    int m_counts[3]{3, 3, 3};
    std::vector<std::uint32_t> m_listEnds;
    std::vector<std::uint32_t> m_lists;
    std::vector<std::int8_t> m_states;
};
