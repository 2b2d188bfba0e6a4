// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The box of a triangle, by the places of its corners.
inline TriangleTree::Box boxOf(MeshArrays::Corners const& corners,
                               std::vector<UPoint3<float>> const& places)
{
    TriangleTree::Box box;
    for (std::uint32_t const corner : corners) {
        UPoint3<float> const& p = places[corner];
        box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
    }
    return box;
}

/// Which of 64 x 64 x 64 cells boxes reach into; a row of cells is one number.
class BoxCells
{
public:
    using Box = TriangleTree::Box;

    /// bounds  of all boxes that will be added
    explicit BoxCells(Box const& bounds) : m_bounds(bounds)
    {
        for (std::size_t k = 0; k < 3; ++k) {
            float const size = bounds.high[k] - bounds.low[k];
            m_perLength[k] = size > 0 ? float(count) / size : 0;
        }
    }

    void add(Box const& box)
    {
        Range const range = rangeOf(box);
        for (std::size_t z = range.first[2]; z <= range.last[2]; ++z)
            for (std::size_t y = range.first[1]; y <= range.last[1]; ++y)
                m_rows[z * count + y] |= maskOf(range);
    }

    /// Whether a box has a cell in common with one that was added; true if the two overlap.
    bool areMetBy(Box const& box) const
    {
        if (!box.overlaps(m_bounds))
            return false;
        Range const range = rangeOf(box);
        for (std::size_t z = range.first[2]; z <= range.last[2]; ++z)
            for (std::size_t y = range.first[1]; y <= range.last[1]; ++y)
                if ((m_rows[z * count + y] & maskOf(range)) != 0)
                    return true;
        return false;
    }

private:
    static constexpr std::size_t count = 64;

    struct Range
    {
        std::array<std::size_t, 3> first, last;
    };

    Range rangeOf(Box const& box) const
    {
        Range range;
        for (std::size_t k = 0; k < 3; ++k) {
            range.first[k] = cellAt(box.low[k], k);
            range.last[k] = cellAt(box.high[k], k);
        }
        return range;
    }

    /// Never less for a greater coordinate.
    std::size_t cellAt(float coordinate, std::size_t axis) const
    {
        float const cell = (coordinate - m_bounds.low[axis]) * m_perLength[axis];
        return cell > 0 ? std::size_t(std::min(cell, float(count - 1))) : 0;
    }

    static std::uint64_t maskOf(Range const& range)
    {
        return (~std::uint64_t(0) << range.first[0]) &
               (~std::uint64_t(0) >> (count - 1 - range.last[0]));
    }

    Box m_bounds;
    std::array<float, 3> m_perLength{};
    std::array<std::uint64_t, count * count> m_rows{};
};
