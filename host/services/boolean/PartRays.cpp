// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PartRays.h"

#include "host/services/boolean/RayOrigin.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <array>

namespace {

using Point = UPoint3<float>;

/// Lines along x by their places along y.
class Lines
{
public:
    explicit Lines(std::vector<Point> const& points)
        : m_points(points), m_sums(points.size()), m_isOn(points.size(), false)
    {
        for (std::size_t i = 0; i < points.size(); ++i)
            m_order.emplace_back(points[i][1], i);
        std::sort(m_order.begin(), m_order.end());
        m_firstIn.fill(m_order.size());
        for (std::size_t i = m_order.size(); i-- > 0;)
            m_firstIn[stripOf(m_order[i].first)] = i;
        for (std::size_t strip = stripCount - 1; strip-- > 0;)
            m_firstIn[strip] = std::min(m_firstIn[strip], m_firstIn[strip + 1]);
    }

    void pass(Point const& a, Point const& b, Point const& c)
    {
        if (m_order.empty())
            return;
        auto const [low, high] = std::minmax({a[1], b[1], c[1]});
        auto const [lowZ, highZ] = std::minmax({a[2], b[2], c[2]});
        auto next = m_order.begin() + std::ptrdiff_t(m_firstIn[stripOf(low)]);
        for (; next != m_order.end() && next->first <= high; ++next) {
            if (next->first < low)
                continue;
            float const z = m_points[next->second][2];
            if (z < lowZ || z > highZ)
                continue;
            if (auto const passage = linePassage(RayOrigin(m_points[next->second]), a, b, c))
                m_sums[next->second] += *passage;
            else
                m_isOn[next->second] = true;
        }
    }

    /// Adds what lines through the same points have been passed by.
    void add(Lines const& other)
    {
        for (std::size_t i = 0; i < m_sums.size(); ++i) {
            m_sums[i] += other.m_sums[i];
            m_isOn[i] = m_isOn[i] || other.m_isOn[i];
        }
    }

    std::vector<std::optional<int>> numbers() const
    {
        std::vector<std::optional<int>> numbers;
        for (std::size_t i = 0; i < m_points.size(); ++i)
            numbers.push_back(m_isOn[i] || m_sums[i].ahead != m_sums[i].back
                                  ? std::nullopt
                                  : std::optional(m_sums[i].ahead));
        return numbers;
    }

private:
    static constexpr std::size_t stripCount = 1024;

    /// Never less for a greater coordinate; all lines lie in strips.
    std::size_t stripOf(float y) const
    {
        float const first = m_order.front().first, size = m_order.back().first - first;
        float const strip = size > 0 ? (y - first) / size * float(stripCount) : 0;
        return strip > 0 ? std::size_t(std::min(strip, float(stripCount - 1))) : 0;
    }

    std::span<Point const> m_points;
    std::vector<std::pair<float, std::size_t>> m_order;
    /// The first line that lies in a strip or behind it.
    std::array<std::size_t, stripCount> m_firstIn;
    std::vector<LinePassage> m_sums;
    std::vector<bool> m_isOn;
};

/// The lines through some points, passed by triangles 0 to count on all cores.
///
/// pass  called with lines and a triangle's number
template <typename Pass>
Lines passedLines(std::vector<Point> const& points, std::size_t count, StageProgress& progress,
                  Pass const& pass)
{
    using Range = tbb::blocked_range<std::size_t>;
    return tbb::parallel_reduce(
        Range(0, count, 1 << 14), Lines(points),
        [&](Range const& range, Lines lines) {
            for (std::size_t i = range.begin(); i != range.end(); ++i)
                pass(lines, i);
            progress.add(0);
            return lines;
        },
        [](Lines lines, Lines const& others) {
            lines.add(others);
            return lines;
        });
}

}  // namespace

PartRays::PartRays(ToolGrid const& grid, std::vector<Point> points)
    : m_points(std::move(points)), m_marks(std::size_t(128) * 128, 0)
{
    for (Point const& p : m_points) {
        ToolGrid::Place const place = grid.placeOf(p);
        m_marks[rowOf(place)] |= inRow;
        for (std::uint32_t z = zOf(place) - std::min(zOf(place), 1u); z <= zOf(place) + 1; ++z)
            for (std::uint32_t y = yOf(place) - std::min(yOf(place), 1u); y <= yOf(place) + 1; ++y)
                if (y < 128 && z < 128)
                    m_marks[z << 7 | y] |= nearRow;
    }
}

bool PartRays::maySpread(ToolGrid::Place a, ToolGrid::Place b, ToolGrid::Place c) const
{
    auto const [lowY, highY] = std::minmax({yOf(a), yOf(b), yOf(c)});
    auto const [lowZ, highZ] = std::minmax({zOf(a), zOf(b), zOf(c)});
    for (std::uint32_t z = lowZ; z <= highZ; ++z)
        for (std::uint32_t y = lowY; y <= highY; ++y)
            if (m_marks[z << 7 | y] & inRow)
                return true;
    return false;
}

std::vector<std::optional<int>> PartRays::numbers(UMesh<float> const& part, MeshArrays const& rest,
                                                  std::size_t restCount,
                                                  StageProgress& progress) const
{
    Lines lines = passedLines(m_points, restCount, progress, [&](Lines& some, std::size_t t) {
        some.pass(rest.point(t, 0), rest.point(t, 1), rest.point(t, 2));
    });
    for (auto const& noted : m_noted)
        lines.add(passedLines(m_points, noted.size(), progress, [&](Lines& some, std::size_t i) {
            auto const& [a, b, c] = noted[i];
            some.pass(part.vertices[a]->cP(), part.vertices[b]->cP(), part.vertices[c]->cP());
        }));
    return lines.numbers();
}
