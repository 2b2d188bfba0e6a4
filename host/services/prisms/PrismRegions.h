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

private:
    struct Box
    {
        Point2 low{1e300, 1e300};
        Point2 high{-1e300, -1e300};

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
    bool isNear(Region const& region, std::span<Point2 const> polygon, Box const& box) const;

    double m_reach;
    std::vector<Region> m_regions;
    /// The regions by the cells of a square grid that their boxes overlap.
    Box m_bounds;
    std::size_t m_cellsPerSide = 1;
    std::vector<std::vector<std::uint32_t>> m_cells;
};
