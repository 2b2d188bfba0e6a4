// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ToolGrid.h"

#include "host/services/boolean/RayPassage.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// By how much of a cell a triangle counts as larger, to make up for rounding.
constexpr double slack = 1e-3;

}  // namespace

ToolGrid::ToolGrid(MeshArrays const& tool, std::size_t cells, StageProgress& progress)
    : m_tool(tool)
{
    measure(cells);
    listTriangles(progress);
    findStates(progress);
}

void ToolGrid::measure(std::size_t cells)
{
    double low[3], high[3];
    std::fill(low, low + 3, std::numeric_limits<double>::infinity());
    std::fill(high, high + 3, -std::numeric_limits<double>::infinity());
    for (MeshArrays::Corners const& corners : m_tool.triangles)
        for (std::uint32_t const corner : corners)
            for (int k = 0; k < 3; ++k) {
                low[k] = std::min(low[k], double(m_tool.points[corner][k]));
                high[k] = std::max(high[k], double(m_tool.points[corner][k]));
            }
    if (m_tool.triangles.empty())
        return;
    double largest = 0, magnitude = 0;
    for (int k = 0; k < 3; ++k) {
        largest = std::max(largest, high[k] - low[k]);
        magnitude = std::max({magnitude, std::abs(low[k]), std::abs(high[k])});
    }
    // Not so small that the rounding of floats would matter.
    double const smallest = std::max(largest / 1000, magnitude * 1e-4);
    double volume = 1;
    for (int k = 0; k < 3; ++k)
        volume *= std::max(high[k] - low[k], smallest);
    m_cellSize = std::max(std::cbrt(volume / double(cells)), smallest);
    m_perUnit = 1 / m_cellSize;
    for (int k = 0; k < 3; ++k) {
        double const margin = m_cellSize * 0.01;
        m_low[k] = low[k] - margin;
        m_counts[k] = int(std::min((high[k] - low[k] + 2 * margin) * m_perUnit, 1020.0)) + 3;
    }
}

/// Calls `visit(cell)` for all cells that a triangle may touch.
template <typename Visit>
void ToolGrid::forTouchedCells(std::uint32_t triangle, Visit const& visit) const
{
    double p[3][3];
    int low[3], high[3];
    for (int k = 0; k < 3; ++k) {
        double least = 1e300, most = -1e300;
        for (int i = 0; i < 3; ++i) {
            p[i][k] = (double(m_tool.point(triangle, i)[k]) - m_low[k]) * m_perUnit + 1;
            least = std::min(least, p[i][k]);
            most = std::max(most, p[i][k]);
        }
        low[k] = std::max(int(least - slack), 0);
        high[k] = std::min(int(most + slack), m_counts[k] - 1);
    }
    auto const cell = [&](int const* n) {
        return std::size_t(n[2] * m_counts[1] + n[1]) * std::size_t(m_counts[0]) +
               std::size_t(n[0]);
    };
    // Columns of cells along the axis that the triangle faces most.
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
    int n[3];
    for (n[a] = low[a]; n[a] <= high[a]; ++n[a])
        for (n[b] = low[b]; n[b] <= high[b]; ++n[b]) {
            double const centreA = n[a] + 0.5 - p[0][a], centreB = n[b] + 0.5 - p[0][b];
            bool isOutside = false;
            for (int i = 0; i < 3 && !isFlat; ++i) {
                double const da = p[(i + 1) % 3][a] - p[i][a], db = p[(i + 1) % 3][b] - p[i][b];
                double const side =
                    turn * (da * (n[b] + 0.5 - p[i][b]) - db * (n[a] + 0.5 - p[i][a]));
                isOutside |= side < -(0.5 + slack) * (std::abs(da) + std::abs(db));
            }
            if (isOutside)
                continue;
            int from = low[w], to = high[w];
            if (!isFlat) {
                double const level =
                    p[0][w] - (normal[a] * centreA + normal[b] * centreB) / normal[w];
                double const reach =
                    0.5 * (std::abs(normal[a]) + std::abs(normal[b])) / std::abs(normal[w]) + slack;
                from = std::max(from, int(std::floor(level - reach)));
                to = std::min(to, int(std::floor(level + reach)));
            }
            for (n[w] = from; n[w] <= to; ++n[w])
                visit(cell(n));
        }
}

void ToolGrid::listTriangles(StageProgress& progress)
{
    std::size_t const cells =
        std::size_t(m_counts[0]) * std::size_t(m_counts[1]) * std::size_t(m_counts[2]);
    std::vector<std::pair<std::uint32_t, std::uint32_t>> entries;
    m_listEnds.assign(cells + 1, 0);
    for (std::uint32_t t = 0; t < m_tool.triangles.size(); ++t) {
        forTouchedCells(t, [&](std::size_t cell) {
            entries.emplace_back(std::uint32_t(cell), t);
            ++m_listEnds[cell + 1];
        });
        if (t % 4096 == 0)
            progress.add(4096);
    }
    for (std::size_t i = 1; i <= cells; ++i)
        m_listEnds[i] += m_listEnds[i - 1];
    m_lists.resize(entries.size());
    std::vector<std::uint32_t> next(m_listEnds.begin(), m_listEnds.end() - 1);
    for (auto const& [cell, triangle] : entries)
        m_lists[next[cell]++] = triangle;
}

void ToolGrid::findStates(StageProgress& progress)
{
    m_states.assign(m_listEnds.size() - 1, 0);
    for (std::size_t cell = 0; cell < m_states.size(); ++cell)
        if (m_listEnds[cell] != m_listEnds[cell + 1])
            m_states[cell] = touched;
    for (int z = 0; z < m_counts[2]; ++z) {
        progress.add(0);
        for (int y = 0; y < m_counts[1]; ++y)
            labelRow(std::size_t(z * m_counts[1] + y) * std::size_t(m_counts[0]), y, z);
    }
}

/// Labels the clear cells of a row, run by run: from a clear cell beside the run, else by a ray.
void ToolGrid::labelRow(std::size_t row, int y, int z)
{
    std::size_t const width = std::size_t(m_counts[0]);
    std::size_t const layer = width * std::size_t(m_counts[1]);
    for (std::size_t x = 0; x < width;) {
        if (m_states[row + x] == touched) {
            ++x;
            continue;
        }
        std::size_t end = x;
        std::int8_t state = x == 0 ? 0 : touched;
        for (; end < width && m_states[row + end] != touched; ++end) {
            if (state == touched && y > 0)
                state = m_states[row + end - width];
            if (state == touched && z > 0)
                state = m_states[row + end - layer];
        }
        if (end == width)
            state = 0;
        if (state == touched) {
            auto const centre = [&](double number, int axis) {
                return float((number - 0.5) * m_cellSize + m_low[axis]);
            };
            state = windingAt({centre(double(x), 0), centre(y, 1), centre(z, 2)}) > 0;
        }
        std::fill(m_states.begin() + std::ptrdiff_t(row + x),
                  m_states.begin() + std::ptrdiff_t(row + end), state);
        x = end;
    }
}

int ToolGrid::windingAt(Point const& p) const
{
    Range range;
    for (int k = 0; k < 3; ++k)
        range.low[std::size_t(k)] = range.high[std::size_t(k)] = numberOf(p[k], k);
    range.high[0] = m_counts[0] - 1;
    std::vector<std::uint32_t> onRay;
    forTriangles(range, [&](std::uint32_t t) { onRay.push_back(t); });
    std::sort(onRay.begin(), onRay.end());
    onRay.erase(std::unique(onRay.begin(), onRay.end()), onRay.end());
    int winding = 0;
    for (std::uint32_t const t : onRay)
        winding += rayPassage(p, m_tool.point(t, 0), m_tool.point(t, 1), m_tool.point(t, 2));
    return winding;
}

ToolGrid::Range ToolGrid::rangeOf(Place a, Place b, Place c)
{
    Range range;
    for (int k = 0; k < 3; ++k) {
        auto const [low, high] = std::minmax({numberIn(a, k), numberIn(b, k), numberIn(c, k)});
        range.low[std::size_t(k)] = low;
        range.high[std::size_t(k)] = high;
    }
    return range;
}

std::int8_t ToolGrid::stateBetween(Range const& range) const
{
    std::int8_t state = 0;
    for (int z = range.low[2]; z <= range.high[2]; ++z)
        for (int y = range.low[1]; y <= range.high[1]; ++y) {
            std::size_t const row = std::size_t(z * m_counts[1] + y) * std::size_t(m_counts[0]);
            for (int x = range.low[0]; x <= range.high[0]; ++x) {
                state = m_states[row + std::size_t(x)];
                if (state == touched)
                    return touched;
            }
        }
    return state;
}
