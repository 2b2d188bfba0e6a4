// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/SpatialOrder.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr int bitsPerAxis = 10;
/// Three passes hold the bits of all axes and the one above them.
constexpr int bitsPerPass = 11;
/// From here on the triangles of a cell are ordered within it.
constexpr std::size_t leastCrowd = 8;
/// Above the bits of the cell.
constexpr std::uint32_t longBit = 1u << (3 * bitsPerAxis);

/// Spreads ten bits so that each is followed by two zeros.
std::uint32_t spread(std::uint32_t bits)
{
    bits = (bits | bits << 16) & 0x030000ff;
    bits = (bits | bits << 8) & 0x0300f00f;
    bits = (bits | bits << 4) & 0x030c30c3;
    return (bits | bits << 2) & 0x09249249;
}

using Range = tbb::blocked_range<std::size_t>;
constexpr std::size_t grain = 8192;

/// The corners of the box around points; its default is empty.
struct Bounds
{
    void add(MeshArrays::Point const& p)
    {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], p[axis]);
            high[axis] = std::max(high[axis], p[axis]);
        }
    }

    MeshArrays::Point low{largest, largest, largest};
    MeshArrays::Point high{-largest, -largest, -largest};

private:
    static constexpr float largest = std::numeric_limits<float>::max();
};

Bounds boundsOf(MeshArrays const& mesh, std::vector<std::uint32_t> const& triangles)
{
    return tbb::parallel_reduce(
        Range(0, triangles.size(), grain), Bounds(),
        [&](Range const& range, Bounds bounds) {
            for (std::size_t i = range.begin(); i != range.end(); ++i)
                for (std::uint32_t vertex : mesh.triangles[triangles[i]])
                    bounds.add(mesh.points[vertex]);
            return bounds;
        },
        [](Bounds a, Bounds const& b) {
            a.add(b.low);
            a.add(b.high);
            return a;
        });
}

/// Cells of a cube around the triangles, and of their box for long triangles: what lies above and
/// below in a thin part is to be told apart where long triangles run along it.
struct Grid
{
    Grid(MeshArrays const& mesh, std::vector<std::uint32_t> const& triangles)
    {
        Bounds const bounds = boundsOf(mesh, triangles);
        low = bounds.low;
        double size = 0;
        for (int axis = 0; axis < 3; ++axis) {
            double const length = double(bounds.high[axis]) - bounds.low[axis];
            size = std::max(size, length);
            cellsAlong[axis] = length > 0 ? ((1 << bitsPerAxis) - 1) / length : 0;
        }
        cellsPerUnit = size > 0 ? ((1 << bitsPerAxis) - 1) / size : 0;
        longSize = size * shareOfLong;
    }

    struct Place
    {
        /// In cells.
        std::array<double, 3> middle;
        bool isLong;
    };

    Place placeOf(MeshArrays const& mesh, std::uint32_t triangle) const
    {
        Place place{{}, false};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            float const a = mesh.point(triangle, 0)[int(axis)];
            float const b = mesh.point(triangle, 1)[int(axis)];
            float const c = mesh.point(triangle, 2)[int(axis)];
            double const least = std::min({a, b, c}), most = std::max({a, b, c});
            place.middle[axis] = (least + most) * 0.5 - low[int(axis)];
            place.isLong |= most - least > longSize;
        }
        for (std::size_t axis = 0; axis < 3; ++axis)
            place.middle[axis] *= place.isLong ? cellsAlong[axis] : cellsPerUnit;
        return place;
    }

    std::uint32_t cell(MeshArrays const& mesh, std::uint32_t triangle) const
    {
        Place const place = placeOf(mesh, triangle);
        std::uint32_t code = place.isLong ? longBit : 0;
        for (std::size_t axis = 0; axis < 3; ++axis)
            code |= spread(std::uint32_t(place.middle[axis])) << axis;
        return code;
    }

    /// Of as many cells that divide a cell.
    std::uint32_t cellWithinCell(MeshArrays const& mesh, std::uint32_t triangle) const
    {
        Place const place = placeOf(mesh, triangle);
        std::uint32_t code = 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            double const within = place.middle[axis] - std::floor(place.middle[axis]);
            code |= spread(std::uint32_t(within * (1 << bitsPerAxis))) << axis;
        }
        return code;
    }

    MeshArrays::Point low;
    double cellsPerUnit = 0;
    double cellsAlong[3] = {};
    double longSize = 0;
};

/// One pass of a stable radix sort by the bits from `shift` on.
void sortByBits(std::vector<std::uint64_t> const& from, std::vector<std::uint64_t>& to, int shift)
{
    constexpr std::uint32_t mask = (1u << bitsPerPass) - 1;
    std::vector<std::size_t> places(mask + 1, 0);
    for (std::uint64_t entry : from)
        ++places[entry >> shift & mask];
    std::size_t begin = 0;
    for (std::size_t& place : places)
        begin += std::exchange(place, begin);
    for (std::uint64_t entry : from)
        to[places[entry >> shift & mask]++] = entry;
}

/// Orders the triangles of crowded cells within these: slivers that lie side by side, as the faces of
/// finely divided contours have them, would be in no order else.
///
/// entries  by cell, which their upper halves name; the lower ones are triangles
void orderWithinCells(std::vector<std::uint64_t>& entries, MeshArrays const& mesh, Grid const& grid)
{
    std::vector<std::uint64_t> crowd;
    for (std::size_t begin = 0, end = 0; begin < entries.size(); begin = end) {
        std::uint64_t const cell = entries[begin] >> 32;
        for (end = begin + 1; end < entries.size() && entries[end] >> 32 == cell;)
            ++end;
        if (end - begin < leastCrowd)
            continue;
        crowd.clear();
        for (std::size_t i = begin; i < end; ++i) {
            std::uint32_t const triangle = std::uint32_t(entries[i]);
            crowd.push_back(std::uint64_t(grid.cellWithinCell(mesh, triangle)) << 32 | triangle);
        }
        std::sort(crowd.begin(), crowd.end());
        for (std::size_t i = begin; i < end; ++i)
            entries[i] = cell << 32 | (crowd[i - begin] & 0xffffffff);
    }
}

}  // namespace

std::vector<std::uint32_t> spatialOrder(MeshArrays const& mesh,
                                        std::vector<std::uint8_t> const& isLeftOut)
{
    std::vector<std::uint32_t> order;
    order.reserve(mesh.triangles.size());
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t)
        if (!isLeftOut[t])
            order.push_back(t);
    Grid const grid(mesh, order);
    std::vector<std::uint64_t> entries(order.size()), sorted(order.size());
    tbb::parallel_for(Range(0, order.size(), grain), [&](Range const& range) {
        for (std::size_t i = range.begin(); i != range.end(); ++i)
            entries[i] = std::uint64_t(grid.cell(mesh, order[i])) << 32 | order[i];
    });
    for (int pass = 0; pass < 3; ++pass) {
        sortByBits(entries, sorted, 32 + pass * bitsPerPass);
        entries.swap(sorted);
    }
    orderWithinCells(entries, mesh, grid);
    std::transform(entries.begin(), entries.end(), order.begin(),
                   [](std::uint64_t entry) { return std::uint32_t(entry); });
    return order;
}
