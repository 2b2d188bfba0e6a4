// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PartRays.h"

#include "host/services/Polling.h"
#include "host/services/boolean/RayOrigin.h"

#include <algorithm>

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
    }

    void pass(Point const& a, Point const& b, Point const& c)
    {
        auto const [low, high] = std::minmax({a[1], b[1], c[1]});
        auto const [lowZ, highZ] = std::minmax({a[2], b[2], c[2]});
        auto next =
            std::lower_bound(m_order.begin(), m_order.end(), std::pair(low, std::size_t(0)));
        for (; next != m_order.end() && next->first <= high; ++next) {
            float const z = m_points[next->second][2];
            if (z < lowZ || z > highZ)
                continue;
            if (auto const passage = linePassage(RayOrigin(m_points[next->second]), a, b, c))
                m_sums[next->second] += *passage;
            else
                m_isOn[next->second] = true;
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
    std::vector<Point> const& m_points;
    std::vector<std::pair<float, std::size_t>> m_order;
    std::vector<LinePassage> m_sums;
    std::vector<bool> m_isOn;
};

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

std::vector<std::optional<int>> PartRays::numbers(UMesh<float> const& part,
                                                  std::span<UTriangle<float> const* const> rest,
                                                  StageProgress& progress) const
{
    Polling polling(progress);
    Lines lines(m_points);
    for (auto const& noted : m_noted)
        for (auto const& [a, b, c] : noted) {
            polling.step();
            lines.pass(part.vertices[a]->cP(), part.vertices[b]->cP(), part.vertices[c]->cP());
        }
    for (UTriangle<float> const* const triangle : rest) {
        polling.step();
        lines.pass(triangle->cP(0), triangle->cP(1), triangle->cP(2));
    }
    return lines.numbers();
}
