// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/prisms/PrismShells.h"

#include <span>

/// What prisms cover in their plane, widened by a reach: finds those that a convex polygon comes
/// near to.
class PrismRegions
{
public:
    using Point2 = PlaneCoordinates::Point2;

    PrismRegions(std::vector<PrismShells::Shell> const& shells, double reach);

    /// Adds the numbers of all shells whose region the polygon comes nearer to than the reach, or
    /// lies in, in no order and none twice.
    ///
    /// polygon  one point or more; may be flat
    void findNear(std::span<Point2 const> polygon, std::vector<std::uint32_t>& found) const;

    /// What a polygon has met, which the next one is likely to meet as well.
    using Met = PrismShells::Edge const*;

    /// Whether findNear() would find any.
    ///
    /// met  null at first, then for one polygon after the other. The answer does not depend on it:
    ///      neighbours in a face of needles are told at once by what the needle before has met
    bool isAnyNear(std::span<Point2 const> polygon, Met& met) const;

private:
    struct Box
    {
        Point2 low{1e300, 1e300};
        Point2 high{-1e300, -1e300};

        Box() = default;
        explicit Box(std::span<Point2 const> points);
        void add(Point2 const& p);
        bool overlaps(Box const& other) const;
    };
    /// One region: the edges around it by the rows of its height that they pass through.
    struct Region
    {
        Box box;
        double rowHeight = 1;
        std::vector<std::vector<PrismShells::Edge>> rows;

        std::size_t rowOf(double v) const;
    };
    using Cells = std::array<std::array<std::size_t, 2>, 2>;

    Region regionOf(PrismShells::Shell const& shell) const;
    Cells cellsOf(Box const& box) const;
    template <typename Test>
    bool anyRegionAt(Box const& box, Test const& test) const;
    bool meets(PrismShells::Edge const& edge, std::span<Point2 const> polygon,
               Box const& box) const;
    bool isNear(Region const& region, std::span<Point2 const> polygon, Box const& box,
                Met& met) const;

    double m_reach;
    std::vector<Region> m_regions;
    /// The regions by the cells of a square grid that their boxes overlap.
    Box m_bounds;
    std::size_t m_cellsPerSide = 1;
    std::vector<std::vector<std::uint32_t>> m_cells;
};
