// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/ToolTree.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// Cubic cells over the space that a tool, the second operand, shares with the box of a part. The
/// tool's surface may touch a cell; all others are clear, and lie within the tool or outside it as
/// a whole.
///
/// Cells are grouped in pages of eight along each axis. Only pages with touched cells are stored
/// cell by cell, with a bit per cell, so that cells may be small.
class ToolGrid
{
public:
    using Point = UPoint3<float>;
    using Box = TriangleTree::Box;
    /// Numbers of a cell along the axes, ten bits each.
    using Place = std::uint32_t;

    /// tool      must outlive the grid
    /// part      the box of the part; points outside it may not be asked for
    /// touching  about how many cells the tool may touch
    /// cost      linear in the cells touched
    ToolGrid(ToolTree const& tool, Box const& part, std::size_t touching, StageProgress& progress);

    ToolTree const& tool() const { return m_tool; }

    /// The cell of a point; one at the border of the grid for a point of the part outside the grid,
    /// and so outside the tool.
    Place placeOf(Point const& p) const
    {
        Place place = 0;
        for (int k = 0; k < 3; ++k)
            place |= std::uint32_t(numberOf(p[k], k)) << (10 * k);
        return place;
    }

    enum class State : std::int8_t
    {
        outside,
        inside,
        touched,
    };
    State stateAt(Place place) const
    {
        std::int32_t const page = m_pages[pageOf(place)];
        return page < 0 ? uniformStateOf(page) : stateIn(m_details[std::size_t(page)], place);
    }

    /// Whether a triangle with corners in three clear cells lies in clear cells as a whole.
    bool isClearBetween(Place a, Place b, Place c) const
    {
        std::size_t const page = pageOf(a);
        if (page == pageOf(b) && page == pageOf(c) && (m_pages[page] < 0 || (a == b && b == c)))
            return true;
        if (m_pages[page] < 0 && m_pages[page] >= calmBase && areNeighbours(a, b) &&
            areNeighbours(a, c))
            return true;
        return areCellsClear(a, b, c);
    }

    /// The box of the cells of one block that one triangle of the tool touches. A block is four
    /// cells along each axis; numbers within it, a byte each.
    struct Reference
    {
        std::uint32_t triangle;
        std::uint32_t block;
        std::uint32_t low;
        std::uint32_t high;
    };

    /// The cells of one block that lie in a box of cells.
    struct CellsOfBlock
    {
        std::size_t block;
        std::uint32_t low;
        std::uint32_t high;

        bool meet(Reference const& reference) const
        {
            // A byte that falls below zero borrows from the bit above it.
            std::uint32_t const guards = 0x00808080;
            return (((reference.high | guards) - low) & ((high | guards) - reference.low) &
                    guards) == guards;
        }
    };

    /// Calls `visit(CellsOfBlock)` for the blocks with touched cells in the box around three cells.
    /// The references of these blocks that the cells meet are those of all of the tool's triangles
    /// that touch a cell in the box, and of some others near them.
    template <typename Visit>
    void forBlocks(Place a, Place b, Place c, Visit const& visit) const;

    /// In the order of the triangles; one of each.
    std::span<Reference const> referencesOf(std::size_t block) const
    {
        return std::span(m_references)
            .subspan(m_referenceEnds[block], m_referenceEnds[block + 1] - m_referenceEnds[block]);
    }

    /// The page of a cell, below pageCount(): cells of one page lie close together.
    std::size_t pageOf(Place place) const
    {
        return (std::size_t(place >> 23 & 127) * std::size_t(m_pageCounts[1]) +
                std::size_t(place >> 13 & 127)) *
                   std::size_t(m_pageCounts[0]) +
               std::size_t(place >> 3 & 127);
    }
    std::size_t pageCount() const { return m_pages.size(); }

private:
    /// What the number of a page without touched cells begins at, the state being added; and that
    /// of one with no touched cells in the pages around it either.
    static constexpr std::int32_t uniformBase = -8;
    static constexpr std::int32_t calmBase = -4;
    static State uniformStateOf(std::int32_t page) { return State(page & 1); }

    /// Whether the pages of two cells are the same or touch each other.
    static bool areNeighbours(Place a, Place b)
    {
        bool result = true;
        for (int shift = 3; shift < 30; shift += 10)
            result &= std::uint32_t((a >> shift & 127) - (b >> shift & 127) + 1) <= 2;
        return result;
    }

    /// The cells of a page: a word per layer, a byte per row, a bit per cell.
    struct Detail
    {
        std::array<std::uint64_t, 8> touched{};
        std::array<std::uint64_t, 8> inside{};
    };
    using Layers = std::array<std::uint64_t, 8>;
    int numberOf(float coordinate, int axis) const
    {
        double const n = (double(coordinate) - m_low[axis]) * m_perUnit;
        int const last = 8 * m_pageCounts[axis] - 1;
        // What is no number counts as below.
        return n >= last ? last : n >= 0 ? int(n) : 0;
    }
    static int numberIn(Place place, int axis) { return int(place >> (10 * axis) & 1023); }
    static std::size_t blockOf(std::int32_t page, int x, int y, int z)
    {
        return std::size_t(page) * 8 + std::size_t((x & 1) | (y & 1) << 1 | (z & 1) << 2);
    }
    static State stateIn(Detail const& detail, Place place)
    {
        std::size_t const layer = place >> 20 & 7;
        std::uint64_t const bit = std::uint64_t(1) << ((place >> 10 & 7) * 8 + (place & 7));
        if (detail.touched[layer] & bit)
            return State::touched;
        return detail.inside[layer] & bit ? State::inside : State::outside;
    }

    void measure(Box const& part, std::size_t touching, StageProgress& progress);
    void touchCells(std::uint32_t triangle);
    void touch(std::uint32_t triangle, int x, int y, int z);
    void sortReferences(StageProgress& progress);
    void findStates(StageProgress& progress);
    void findState(int x, int y, int z);
    void findCalmPages();
    bool isCalm(int x, int y, int z) const;
    void findDetail(Detail& detail, int x, int y, int z);
    State uniformState(int x, int y, int z) const;
    void seed(int x, int y, int z, Layers& inside, Layers& outside) const;
    State ask(int x, int y, int z) const;
    bool areCellsClear(Place a, Place b, Place c) const;
    std::size_t pageAt(int x, int y, int z) const
    {
        return std::size_t((z * m_pageCounts[1] + y) * m_pageCounts[0] + x);
    }

    ToolTree const& m_tool;
    double m_low[3]{};
    double m_perUnit = 1;
    double m_cellSize = 1;
    int m_pageCounts[3]{1, 1, 1};
    /// Per page: where its cells are in `m_details`, or the state of all of them.
    std::vector<std::int32_t> m_pages;
    std::vector<Detail> m_details;
    /// Sorted by block; m_referenceEnds[i] is where those of block i begin.
    std::vector<Reference> m_references;
    std::vector<std::uint32_t> m_referenceEnds;
    /// While triangles are entered: the last reference of each block.
    std::vector<std::uint32_t> m_lastReferences;
};

template <typename Visit>
void ToolGrid::forBlocks(Place a, Place b, Place c, Visit const& visit) const
{
    int low[3], high[3];
    for (int k = 0; k < 3; ++k) {
        low[k] = std::min({numberIn(a, k), numberIn(b, k), numberIn(c, k)});
        high[k] = std::max({numberIn(a, k), numberIn(b, k), numberIn(c, k)});
    }
    // Eight blocks to a page.
    for (int z = low[2] >> 2; z <= high[2] >> 2; ++z)
        for (int y = low[1] >> 2; y <= high[1] >> 2; ++y)
            for (int x = low[0] >> 2; x <= high[0] >> 2; ++x) {
                std::int32_t const page = m_pages[pageAt(x >> 1, y >> 1, z >> 1)];
                if (page < 0)
                    continue;
                CellsOfBlock cells{blockOf(page, x, y, z), 0, 0};
                int const first[3] = {4 * x, 4 * y, 4 * z};
                for (int k = 0; k < 3; ++k) {
                    cells.low |= std::uint32_t(std::max(low[k] - first[k], 0)) << (8 * k);
                    cells.high |= std::uint32_t(std::min(high[k] - first[k], 3)) << (8 * k);
                }
                visit(cells);
            }
}
