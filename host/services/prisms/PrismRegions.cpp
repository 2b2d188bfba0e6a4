// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/prisms/PrismRegions.h"

#include <algorithm>
#include <cmath>

namespace {

using Point2 = PlaneCoordinates::Point2;
using Edge = PrismShells::Edge;

constexpr std::size_t edgesPerRow = 4;
constexpr std::size_t mostRows = 65536;
/// On average.
constexpr double mostRowsPerEdge = 8;
constexpr std::size_t mostCellsPerSide = 256;

double turn(Point2 const& a, Point2 const& b, Point2 const& c)
{
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

double squareDistance(Point2 const& p, Edge const& edge)
{
    double const x = edge[1][0] - edge[0][0], y = edge[1][1] - edge[0][1];
    double const square = x * x + y * y;
    double const along = (p[0] - edge[0][0]) * x + (p[1] - edge[0][1]) * y;
    double const t = square > 0 ? std::clamp(along / square, 0.0, 1.0) : 0.0;
    double const u = edge[0][0] + t * x - p[0], v = edge[0][1] + t * y - p[1];
    return u * u + v * v;
}

bool doCross(Edge const& a, Edge const& b)
{
    return (turn(a[0], a[1], b[0]) < 0) != (turn(a[0], a[1], b[1]) < 0) &&
           (turn(b[0], b[1], a[0]) < 0) != (turn(b[0], b[1], a[1]) < 0);
}

/// Whether an edge lies beyond a side of a convex polygon, and farther from it than a reach.
bool isBeyondSide(Edge const& edge, std::span<Point2 const> polygon, double reach)
{
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        Point2 const &a = polygon[i], &b = polygon[(i + 1) % polygon.size()];
        double low = 0, high = 0;
        for (Point2 const& p : polygon) {
            low = std::min(low, turn(a, b, p));
            high = std::max(high, turn(a, b, p));
        }
        double const first = turn(a, b, edge[0]), second = turn(a, b, edge[1]);
        double const gap = std::max(std::min(first, second) - high, low - std::max(first, second));
        double const x = b[0] - a[0], y = b[1] - a[1];
        if (gap > 0 && gap * gap > reach * reach * (x * x + y * y))
            return true;
    }
    return false;
}

/// Whether an edge comes nearer to the border of a polygon than a reach.
bool comesNear(Edge const& edge, std::span<Point2 const> polygon, double reach)
{
    double const square = reach * reach;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        Edge const side{polygon[i], polygon[(i + 1) % polygon.size()]};
        if (doCross(edge, side) || squareDistance(edge[0], side) <= square ||
            squareDistance(edge[1], side) <= square || squareDistance(side[0], edge) <= square)
            return true;
    }
    return false;
}

/// Whether a line from a point along u passes an edge: an odd number of times from within.
bool passes(Point2 const& p, Edge const& edge)
{
    auto const& [a, b] = edge;
    if ((a[1] > p[1]) == (b[1] > p[1]))
        return false;
    return p[0] < a[0] + (p[1] - a[1]) / (b[1] - a[1]) * (b[0] - a[0]);
}

/// Whether a point lies within a convex polygon.
bool contains(std::span<Point2 const> polygon, Point2 const& p)
{
    bool isInside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i)
        if (passes(p, {polygon[i], polygon[(i + 1) % polygon.size()]}))
            isInside = !isInside;
    return isInside;
}

/// How many rows an outline gets: few enough edges in each, and each edge in few enough.
std::size_t rowCountFor(std::vector<Edge> const& outline, double height)
{
    double climbed = 0;
    for (Edge const& edge : outline)
        climbed += std::abs(edge[1][1] - edge[0][1]);
    auto const edges = double(outline.size());
    double const rows = std::min(edges / edgesPerRow, mostRowsPerEdge * edges * height / climbed);
    return std::size_t(std::clamp(rows, 1.0, double(mostRows)));
}

}  // namespace

PrismRegions::Box::Box(std::span<Point2 const> points)
{
    for (Point2 const& p : points)
        add(p);
}

void PrismRegions::Box::add(Point2 const& p)
{
    for (std::size_t k = 0; k < 2; ++k) {
        low[k] = std::min(low[k], p[k]);
        high[k] = std::max(high[k], p[k]);
    }
}

bool PrismRegions::Box::overlaps(Box const& other) const
{
    return low[0] <= other.high[0] && other.low[0] <= high[0] && low[1] <= other.high[1] &&
           other.low[1] <= high[1];
}

std::size_t PrismRegions::Region::rowOf(double v) const
{
    double const row = std::floor((v - box.low[1]) / rowHeight);
    return std::size_t(std::clamp(row, 0.0, double(rows.size() - 1)));
}

PrismRegions::PrismRegions(std::vector<PrismShells::Shell> const& shells, double reach)
    : m_reach(reach)
{
    for (PrismShells::Shell const& shell : shells) {
        m_regions.push_back(regionOf(shell));
        m_bounds.add(m_regions.back().box.low);
        m_bounds.add(m_regions.back().box.high);
    }
    m_cellsPerSide = std::clamp<std::size_t>(std::size_t(std::sqrt(double(m_regions.size()))), 1,
                                             mostCellsPerSide);
    m_cells.resize(m_cellsPerSide * m_cellsPerSide);
    for (std::uint32_t i = 0; i < m_regions.size(); ++i) {
        if (m_regions[i].rows.empty())
            continue;
        Cells const cells = cellsOf(m_regions[i].box);
        for (std::size_t y = cells[0][1]; y <= cells[1][1]; ++y)
            for (std::size_t x = cells[0][0]; x <= cells[1][0]; ++x)
                m_cells[y * m_cellsPerSide + x].push_back(i);
    }
}

PrismRegions::Region PrismRegions::regionOf(PrismShells::Shell const& shell) const
{
    Region region;
    for (Edge const& edge : shell.outline)
        for (Point2 const& p : edge) {
            region.box.add({p[0] - m_reach, p[1] - m_reach});
            region.box.add({p[0] + m_reach, p[1] + m_reach});
        }
    if (shell.outline.empty())
        return region;
    double const height = region.box.high[1] - region.box.low[1];
    region.rows.resize(rowCountFor(shell.outline, height));
    region.rowHeight = height / double(region.rows.size());
    for (Edge const& edge : shell.outline) {
        auto const [low, high] = std::minmax(edge[0][1], edge[1][1]);
        for (std::size_t row = region.rowOf(low - m_reach); row <= region.rowOf(high + m_reach);
             ++row)
            region.rows[row].push_back(edge);
    }
    return region;
}

PrismRegions::Cells PrismRegions::cellsOf(Box const& box) const
{
    auto const cellAt = [&](double c, std::size_t k) {
        double const size = (m_bounds.high[k] - m_bounds.low[k]) / double(m_cellsPerSide);
        double const cell = std::floor((c - m_bounds.low[k]) / size);
        return std::size_t(std::clamp(cell, 0.0, double(m_cellsPerSide - 1)));
    };
    return {{{cellAt(box.low[0], 0), cellAt(box.low[1], 1)},
             {cellAt(box.high[0], 0), cellAt(box.high[1], 1)}}};
}

/// Asks for the regions in the cells that a box overlaps, some more than once, until one passes.
template <typename Test>
bool PrismRegions::anyRegionAt(Box const& box, Test const& test) const
{
    if (!box.overlaps(m_bounds))
        return false;
    Cells const cells = cellsOf(box);
    for (std::size_t y = cells[0][1]; y <= cells[1][1]; ++y)
        for (std::size_t x = cells[0][0]; x <= cells[1][0]; ++x)
            for (std::uint32_t const i : m_cells[y * m_cellsPerSide + x])
                if (test(i))
                    return true;
    return false;
}

void PrismRegions::findNear(std::span<Point2 const> polygon,
                            std::vector<std::uint32_t>& found) const
{
    Box const box(polygon);
    Met met = nullptr;
    std::size_t const first = found.size();
    anyRegionAt(box, [&](std::uint32_t i) {
        if (isNear(m_regions[i], polygon, box, met))
            found.push_back(i);
        return false;
    });
    std::sort(found.begin() + std::ptrdiff_t(first), found.end());
    found.erase(std::unique(found.begin() + std::ptrdiff_t(first), found.end()), found.end());
}

bool PrismRegions::isAnyNear(std::span<Point2 const> polygon, Met& met) const
{
    Box const box(polygon);
    return (met && meets(*met, polygon, box)) || anyRegionAt(box, [&](std::uint32_t i) {
               return isNear(m_regions[i], polygon, box, met);
           });
}

/// Whether a polygon comes near to an edge of an outline, or has it inside.
bool PrismRegions::meets(Edge const& edge, std::span<Point2 const> polygon, Box const& box) const
{
    auto const [left, right] = std::minmax(edge[0][0], edge[1][0]);
    auto const [bottom, top] = std::minmax(edge[0][1], edge[1][1]);
    if (left - m_reach > box.high[0] || right + m_reach < box.low[0] ||
        bottom - m_reach > box.high[1] || top + m_reach < box.low[1])
        return false;
    // The box of a needle holds much that is nowhere near it.
    if (isBeyondSide(edge, polygon, m_reach))
        return false;
    return comesNear(edge, polygon, m_reach) || contains(polygon, edge[0]);
}

/// met  receives the edge that the polygon meets, if it meets one
bool PrismRegions::isNear(Region const& region, std::span<Point2 const> polygon, Box const& box,
                          Met& met) const
{
    if (!box.overlaps(region.box))
        return false;
    for (std::size_t row = region.rowOf(box.low[1]); row <= region.rowOf(box.high[1]); ++row)
        for (Edge const& edge : region.rows[row])
            if (meets(edge, polygon, box)) {
                met = &edge;
                return true;
            }
    bool isInside = false;
    for (Edge const& edge : region.rows[region.rowOf(polygon[0][1])])
        if (passes(polygon[0], edge))
            isInside = !isInside;
    return isInside;
}
