// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/boolean/ToolGrid.h"
#include "platform/mesh/UMesh.h"

#include <tbb/enumerable_thread_specific.h>

#include <array>
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

    /// A cell with marks in the bits that no place uses: whether a line runs in its row of pages,
    /// and whether one runs there or in a row beside it.
    ToolGrid::Place marked(ToolGrid::Place place) const { return place | m_marks[rowOf(place)]; }

    /// Notes a triangle, by its vertices and their marked cells, if a line may pass it. Any thread.
    void offer(std::array<std::uint32_t, 3> const& vertices, ToolGrid::Place a, ToolGrid::Place b,
               ToolGrid::Place c) const
    {
        if (mayPass(a, b, c))
            m_noted.local().push_back(vertices);
    }

    /// The numbers, once all triangles but some have been offered; nothing where a point lies on
    /// the part, or its line tells that the part is open.
    ///
    /// rest  begins with the triangles that were not offered, which are restCount
    std::vector<std::optional<int>> numbers(UMesh<float> const& part, MeshArrays const& rest,
                                            std::size_t restCount, StageProgress& progress) const;

private:
    static constexpr ToolGrid::Place inRow = ToolGrid::Place(1) << 30;
    static constexpr ToolGrid::Place nearRow = ToolGrid::Place(1) << 31;
    static constexpr ToolGrid::Place rowBits = 0x3f8fe000;

    static std::uint32_t yOf(ToolGrid::Place place) { return place >> 13 & 127; }
    static std::uint32_t zOf(ToolGrid::Place place) { return place >> 23 & 127; }
    /// A row of pages along x.
    static std::size_t rowOf(ToolGrid::Place place) { return zOf(place) << 7 | yOf(place); }

    static bool areBeside(ToolGrid::Place a, ToolGrid::Place b)
    {
        return yOf(a) - yOf(b) + 1 <= 2 && zOf(a) - zOf(b) + 1 <= 2;
    }
    bool mayPass(ToolGrid::Place a, ToolGrid::Place b, ToolGrid::Place c) const
    {
        if ((((a ^ b) | (a ^ c)) & rowBits) == 0)
            return (a & inRow) != 0;
        if ((a & nearRow) == 0 && areBeside(a, b) && areBeside(a, c))
            return false;
        return maySpread(a, b, c);
    }
    bool maySpread(ToolGrid::Place a, ToolGrid::Place b, ToolGrid::Place c) const;

    std::vector<Point> m_points;
    /// By row of pages.
    std::vector<ToolGrid::Place> m_marks;
    mutable tbb::enumerable_thread_specific<std::vector<std::array<std::uint32_t, 3>>> m_noted;
};
