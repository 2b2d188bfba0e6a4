// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ToolGrid.h"

#include "host/services/Polling.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

/// By how much of a cell a triangle counts as larger, to make up for rounding.
constexpr double slack = 1e-3;
/// Cells along the longest axis, but those at the border.
constexpr double maximalCells = 1000;
/// Cells on a face of the space that both share, for each that the tool may touch: of thin tools many
/// more are clear than touched.
constexpr double cellsOfFace = 16;

using Layers = std::array<std::uint64_t, 8>;

constexpr std::uint64_t firstColumn = 0x0101010101010101;
constexpr std::uint64_t lastColumn = 0x8080808080808080;

/// Spreads bits to all free cells that hang together with them over faces.
void flood(Layers& bits, Layers const& free)
{
    for (bool hasGrown = true; hasGrown;) {
        hasGrown = false;
        for (std::size_t z = 0; z < 8; ++z) {
            std::uint64_t const b = bits[z];
            std::uint64_t grown =
                b | (b << 8) | (b >> 8) | ((b & ~lastColumn) << 1) | ((b & ~firstColumn) >> 1);
            if (z > 0)
                grown |= bits[z - 1];
            if (z < 7)
                grown |= bits[z + 1];
            grown &= free[z];
            hasGrown |= grown != b;
            bits[z] = grown;
        }
    }
}

double extentOf(TriangleTree::Box const& box, std::size_t axis)
{
    return double(box.high[axis]) - box.low[axis];
}

using Range = tbb::blocked_range<std::size_t>;

/// The area of the triangles of a range that reach into a box.
double areaWithin(MeshArrays const& mesh, TriangleTree::Box const& box, Range const& range)
{
    double area = 0;
    for (std::size_t t = range.begin(); t != range.end(); ++t) {
        double e[2][3], corners[3][3];
        bool isApart = false;
        for (int k = 0; k < 3; ++k) {
            for (int i = 0; i < 3; ++i)
                corners[i][k] = mesh.point(t, i)[k];
            auto const [low, high] = std::minmax({corners[0][k], corners[1][k], corners[2][k]});
            isApart |= low > box.high[std::size_t(k)] || high < box.low[std::size_t(k)];
            // What reaches beyond the box counts as far as its edges can lie in it.
            double const most = extentOf(box, std::size_t(k));
            for (int i = 0; i < 2; ++i)
                e[i][k] = std::clamp(corners[i + 1][k] - corners[0][k], -most, most);
        }
        if (isApart)
            continue;
        double squared = 0;
        for (int k = 0; k < 3; ++k) {
            int const u = (k + 1) % 3, v = (k + 2) % 3;
            double const side = e[0][u] * e[1][v] - e[0][v] * e[1][u];
            squared += side * side;
        }
        area += 0.5 * std::sqrt(squared);
    }
    return area;
}

/// The area of the triangles that reach into a box; the same on any number of threads.
double areaWithin(MeshArrays const& mesh, TriangleTree::Box const& box, StageProgress& progress)
{
    return tbb::parallel_deterministic_reduce(
        Range(0, mesh.triangles.size(), 16384), 0.0,
        [&](Range const& range, double area) {
            progress.add(0);
            return area + areaWithin(mesh, box, range);
        },
        std::plus<>());
}

TriangleTree::Box boxAround(MeshArrays const& mesh, StageProgress& progress)
{
    using Box = TriangleTree::Box;
    return tbb::parallel_reduce(
        Range(0, mesh.triangles.size(), 16384), Box(),
        [&](Range const& range, Box box) {
            progress.add(0);
            for (std::size_t t = range.begin(); t != range.end(); ++t)
                for (std::uint32_t const corner : mesh.triangles[t]) {
                    UPoint3<float> const& p = mesh.points[corner];
                    box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
                }
            return box;
        },
        [](Box a, Box const& b) {
            a.add(b);
            return a;
        });
}

}  // namespace

ToolGrid::ToolGrid(ToolTree const& tool, Box const& part, std::size_t touching,
                   StageProgress& progress)
    : m_tool(tool)
{
    measure(part, touching, progress);
    m_pages.assign(
        std::size_t(m_pageCounts[0]) * std::size_t(m_pageCounts[1]) * std::size_t(m_pageCounts[2]),
        uniformBase);
    // Room that is not used takes no memory; most small triangles are in one block.
    m_references.reserve(2 * tool.mesh().triangles.size());
    for (std::uint32_t t = 0; t < tool.mesh().triangles.size(); ++t) {
        touchCells(t);
        if (t % 1024 == 0)
            progress.add(1024);
    }
    sortReferences(progress);
    findStates(progress);
}

void ToolGrid::measure(Box const& part, std::size_t touching, StageProgress& progress)
{
    Box const tool = boxAround(m_tool.mesh(), progress);
    Box common;
    double longest = 0, magnitude = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        common.low[k] = std::max(tool.low[k], part.low[k]);
        common.high[k] = std::min(tool.high[k], part.high[k]);
        // Apart: any grid will do.
        if (!(common.low[k] <= common.high[k]))
            common.low[k] = common.high[k] = part.low[k] <= part.high[k] ? part.low[k] : 0;
        longest = std::max(longest, extentOf(common, k));
        magnitude = std::max(
            {magnitude, std::abs(double(common.low[k])), std::abs(double(common.high[k]))});
    }
    double const byArea =
        std::sqrt(2 * areaWithin(m_tool.mesh(), common, progress) / double(touching));
    // Where boxes hardly overlap there may be no area between them, and a million cells.
    double face = 0;
    for (std::size_t k = 0; k < 3; ++k)
        face = std::max(face, extentOf(common, k) * extentOf(common, (k + 1) % 3));
    double const byFace = std::sqrt(face / (cellsOfFace * double(touching)));
    // Not so small that the rounding of floats would matter.
    m_cellSize = std::max({byArea, byFace, longest / maximalCells, magnitude * 1e-5, 1e-30});
    m_perUnit = 1 / m_cellSize;
    for (int k = 0; k < 3; ++k) {
        double const extent = extentOf(common, std::size_t(k));
        // One cell of margin, and more on the upper side to fill a page.
        m_low[k] = common.low[std::size_t(k)] - 1.01 * m_cellSize;
        m_pageCounts[k] = int((extent * m_perUnit + 2.02) / 8) + 1;
    }
}

void ToolGrid::touch(std::uint32_t triangle, int x, int y, int z)
{
    std::int32_t& page = m_pages[pageAt(x >> 3, y >> 3, z >> 3)];
    if (page < 0) {
        page = std::int32_t(m_details.size());
        m_details.emplace_back();
        m_lastReferences.resize(m_lastReferences.size() + 8, 0xffffffff);
    }
    int const n[3] = {x & 7, y & 7, z & 7};
    m_details[std::size_t(page)].touched[std::size_t(n[2])] |= std::uint64_t(1)
                                                               << (n[1] * 8 + n[0]);
    std::size_t const block = blockOf(page, x >> 2, y >> 2, z >> 2);
    std::uint32_t& last = m_lastReferences[block];
    std::uint32_t const place = std::uint32_t((x & 3) | (y & 3) << 8 | (z & 3) << 16);
    if (last == 0xffffffff || m_references[last].triangle != triangle) {
        last = std::uint32_t(m_references.size());
        m_references.push_back({triangle, std::uint32_t(block), place, place});
        return;
    }
    Reference& reference = m_references[last];
    for (int k = 0; k < 24; k += 8) {
        std::uint32_t const byte = std::uint32_t(0xff) << k;
        reference.low = (reference.low & ~byte) | std::min(reference.low & byte, place & byte);
        reference.high = (reference.high & ~byte) | std::max(reference.high & byte, place & byte);
    }
}

/// Puts the references of each block together, in the order of the triangles.
void ToolGrid::sortReferences(StageProgress& progress)
{
    Polling polling(progress);
    m_referenceEnds.assign(8 * m_details.size() + 1, 0);
    for (Reference const& reference : m_references) {
        polling.step();
        ++m_referenceEnds[reference.block + 1];
    }
    for (std::size_t i = 1; i < m_referenceEnds.size(); ++i)
        m_referenceEnds[i] += m_referenceEnds[i - 1];
    std::vector<std::uint32_t> next(m_referenceEnds.begin(), m_referenceEnds.end() - 1);
    std::vector<Reference> sorted(m_references.size());
    for (Reference const& reference : m_references) {
        polling.step();
        sorted[next[reference.block]++] = reference;
    }
    m_references = std::move(sorted);
    m_lastReferences = {};
}

/// Marks the cells that a triangle may touch, by columns along the axis that it faces most.
void ToolGrid::touchCells(std::uint32_t triangle)
{
    double p[3][3];
    int low[3], high[3];
    for (int k = 0; k < 3; ++k) {
        double least = 1e300, most = -1e300;
        for (int i = 0; i < 3; ++i) {
            p[i][k] = (double(m_tool.mesh().point(triangle, i)[k]) - m_low[k]) * m_perUnit;
            least = std::min(least, p[i][k]);
            most = std::max(most, p[i][k]);
        }
        double const last = 8 * m_pageCounts[k] - 1;
        if (least > last + 1 || most < 0)
            return;
        low[k] = int(std::clamp(least - slack, 0.0, last));
        high[k] = int(std::clamp(most + slack, 0.0, last));
    }
    // Within one row of cells, as most small triangles are, it touches all between its ends.
    if ((low[0] != high[0]) + (low[1] != high[1]) + (low[2] != high[2]) <= 1) {
        for (int z = low[2]; z <= high[2]; ++z)
            for (int y = low[1]; y <= high[1]; ++y)
                for (int x = low[0]; x <= high[0]; ++x)
                    touch(triangle, x, y, z);
        return;
    }
    double u[3], v[3], normal[3];
    for (int k = 0; k < 3; ++k) {
        u[k] = p[1][k] - p[0][k];
        v[k] = p[2][k] - p[0][k];
    }
    for (int k = 0; k < 3; ++k)
        normal[k] = u[(k + 1) % 3] * v[(k + 2) % 3] - u[(k + 2) % 3] * v[(k + 1) % 3];
    int w = 0;
    for (int k = 1; k < 3; ++k)
        if (std::abs(normal[k]) > std::abs(normal[w]))
            w = k;
    int const a = (w + 1) % 3, b = (w + 2) % 3;
    double const turn = normal[w] > 0 ? 1 : -1;
    bool const isFlat = normal[w] == 0;
    double const slopeA = isFlat ? 0 : normal[a] / normal[w];
    double const slopeB = isFlat ? 0 : normal[b] / normal[w];
    double const reach = 0.5 * (std::abs(slopeA) + std::abs(slopeB)) + slack;
    int n[3];
    for (n[b] = low[b]; n[b] <= high[b]; ++n[b]) {
        // The part of the row in which no edge has a whole column on its outer side.
        double const centreB = n[b] + 0.5;
        double begin = low[a], end = high[a];
        for (int i = 0; i < 3 && !isFlat; ++i) {
            int const j = (i + 1) % 3;
            double const da = turn * (p[j][a] - p[i][a]), db = turn * (p[j][b] - p[i][b]);
            double const room = da * (centreB - p[i][b]) + db * p[i][a] +
                                (0.5 + slack) * (std::abs(da) + std::abs(db));
            // db times the column's centre is at most the room.
            if (db > 0)
                end = std::min(end, room / db - 0.5 + slack);
            else if (db < 0)
                begin = std::max(begin, room / db - 0.5 - slack);
            else if (room < 0)
                end = -1;
        }
        for (n[a] = int(std::clamp(std::ceil(begin), 0.0, 1e6)); n[a] <= end; ++n[a]) {
            int from = low[w], to = high[w];
            if (!isFlat) {
                double const level =
                    p[0][w] - slopeA * (n[a] + 0.5 - p[0][a]) - slopeB * (centreB - p[0][b]);
                from = std::max(from, int(std::max(std::floor(level - reach), -1.0)));
                to = std::min(to, int(std::min(std::floor(level + reach), 1e6)));
            }
            for (n[w] = from; n[w] <= to; ++n[w])
                touch(triangle, n[0], n[1], n[2]);
        }
    }
}

void ToolGrid::findStates(StageProgress& progress)
{
    for (int z = 0; z < m_pageCounts[2]; ++z) {
        progress.add(0);
        for (int y = 0; y < m_pageCounts[1]; ++y)
            for (int x = 0; x < m_pageCounts[0]; ++x)
                findState(x, y, z);
    }
    findCalmPages();
}

/// Marks the pages that have no touched cell around them: most triangles lie there, and need no
/// further look.
void ToolGrid::findCalmPages()
{
    for (int z = 0; z < m_pageCounts[2]; ++z)
        for (int y = 0; y < m_pageCounts[1]; ++y)
            for (int x = 0; x < m_pageCounts[0]; ++x) {
                std::int32_t& page = m_pages[pageAt(x, y, z)];
                if (page < 0 && isCalm(x, y, z))
                    page += calmBase - uniformBase;
            }
}

bool ToolGrid::isCalm(int x, int y, int z) const
{
    auto const last = [&](int n, int axis) { return std::min(n + 1, m_pageCounts[axis] - 1); };
    for (int k = std::max(z - 1, 0); k <= last(z, 2); ++k)
        for (int j = std::max(y - 1, 0); j <= last(y, 1); ++j)
            for (int i = std::max(x - 1, 0); i <= last(x, 0); ++i)
                if (m_pages[pageAt(i, j, k)] >= 0)
                    return false;
    return true;
}

/// Finds the states of a page's clear cells from the pages before it along the axes, or by a ray.
void ToolGrid::findState(int x, int y, int z)
{
    std::int32_t& page = m_pages[pageAt(x, y, z)];
    if (page < 0)
        page = uniformBase + std::int32_t(uniformState(x, y, z));
    else
        findDetail(m_details[std::size_t(page)], x, y, z);
}

void ToolGrid::findDetail(Detail& detail, int x, int y, int z)
{
    Layers inside{}, outside{}, free;
    for (std::size_t k = 0; k < 8; ++k)
        free[k] = ~detail.touched[k];
    seed(x, y, z, inside, outside);
    for (std::size_t k = 0; k < 8; ++k) {
        inside[k] &= free[k];
        outside[k] &= free[k];
    }
    flood(inside, free);
    flood(outside, free);
    for (std::size_t k = 0; k < 8; ++k)
        while (std::uint64_t const open = free[k] & ~inside[k] & ~outside[k]) {
            int const bit = std::countr_zero(open);
            State const state = ask(8 * x + bit % 8, 8 * y + bit / 8, 8 * z + int(k));
            Layers& same = state == State::inside ? inside : outside;
            same[k] |= std::uint64_t(1) << bit;
            flood(same, free);
        }
    detail.inside = inside;
}

/// The cells of a page that lie next to clear cells of pages before it, by their states.
void ToolGrid::seed(int x, int y, int z, Layers& inside, Layers& outside) const
{
    auto const facing = [&](std::int32_t page, Layers& in, Layers& out) {
        if (page < 0) {
            (uniformStateOf(page) == State::inside ? in : out).fill(~std::uint64_t(0));
            return;
        }
        Detail const& d = m_details[std::size_t(page)];
        for (std::size_t k = 0; k < 8; ++k) {
            in[k] = d.inside[k];
            out[k] = ~d.inside[k] & ~d.touched[k];
        }
    };
    Layers in{}, out{};
    if (x > 0) {
        facing(m_pages[pageAt(x - 1, y, z)], in, out);
        for (std::size_t k = 0; k < 8; ++k) {
            inside[k] |= (in[k] & lastColumn) >> 7;
            outside[k] |= (out[k] & lastColumn) >> 7;
        }
    }
    if (y > 0) {
        in = out = {};
        facing(m_pages[pageAt(x, y - 1, z)], in, out);
        for (std::size_t k = 0; k < 8; ++k) {
            inside[k] |= in[k] >> 56;
            outside[k] |= out[k] >> 56;
        }
    }
    if (z > 0) {
        in = out = {};
        facing(m_pages[pageAt(x, y, z - 1)], in, out);
        inside[0] |= in[7];
        outside[0] |= out[7];
    }
}

/// The state of a page without touched cells.
ToolGrid::State ToolGrid::uniformState(int x, int y, int z) const
{
    Layers inside{}, outside{};
    seed(x, y, z, inside, outside);
    for (std::size_t k = 0; k < 8; ++k) {
        if (inside[k])
            return State::inside;
        if (outside[k])
            return State::outside;
    }
    return ask(8 * x, 8 * y, 8 * z);
}

/// The state of a clear cell, by a ray from its centre.
ToolGrid::State ToolGrid::ask(int x, int y, int z) const
{
    auto const centre = [&](int number, int axis) {
        return float((number + 0.5) * m_cellSize + m_low[axis]);
    };
    return m_tool.windingAt({centre(x, 0), centre(y, 1), centre(z, 2)}) > 0 ? State::inside
                                                                            : State::outside;
}

bool ToolGrid::areCellsClear(Place a, Place b, Place c) const
{
    int low[3], high[3];
    for (int k = 0; k < 3; ++k) {
        low[k] = std::min({numberIn(a, k), numberIn(b, k), numberIn(c, k)});
        high[k] = std::max({numberIn(a, k), numberIn(b, k), numberIn(c, k)});
    }
    for (int pz = low[2] >> 3; pz <= high[2] >> 3; ++pz)
        for (int py = low[1] >> 3; py <= high[1] >> 3; ++py)
            for (int px = low[0] >> 3; px <= high[0] >> 3; ++px) {
                std::int32_t const page = m_pages[pageAt(px, py, pz)];
                if (page < 0)
                    continue;
                Detail const& detail = m_details[std::size_t(page)];
                // The box of the cells, as bits of this page.
                auto const part = [](int from, int to, int first) {
                    int const f = std::max(from - first, 0), t = std::min(to - first, 7);
                    return std::uint64_t((1 << (t + 1)) - (1 << f));
                };
                std::uint64_t const columns = part(low[0], high[0], 8 * px);
                std::uint64_t const rows = part(low[1], high[1], 8 * py);
                std::uint64_t mask = 0;
                for (int row = 0; row < 8; ++row)
                    if (rows >> row & 1)
                        mask |= columns << (8 * row);
                int const from = std::max(low[2] - 8 * pz, 0), to = std::min(high[2] - 8 * pz, 7);
                for (int layer = from; layer <= to; ++layer)
                    if (detail.touched[std::size_t(layer)] & mask)
                        return false;
            }
    return true;
}
