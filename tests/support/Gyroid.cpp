// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Gyroid.h"

#include <array>
#include <cmath>
#include <map>
#include <numbers>

namespace {

constexpr float period = 10;

/// Marching tetrahedra over a grid: a solid is where the values are below zero.
class SurfaceWalker
{
public:
    SurfaceWalker(int cells, int steps) : m_step(period / float(steps)), m_size(cells * steps)
    {
        // One grid point beyond the block on each side, which is never solid.
        m_count = m_size + 3;
    }

    Soup run()
    {
        // The tetrahedra of a cube around one of its diagonals; corner bits are x, y, z.
        constexpr std::array<std::array<int, 4>, 6> tetrahedra{
            {{0, 1, 3, 7}, {0, 3, 2, 7}, {0, 2, 6, 7}, {0, 6, 4, 7}, {0, 4, 5, 7}, {0, 5, 1, 7}}};
        for (int z = 0; z + 1 < m_count; ++z)
            for (int y = 0; y + 1 < m_count; ++y)
                for (int x = 0; x + 1 < m_count; ++x)
                    for (auto const& corners : tetrahedra) {
                        std::array<int, 4> points;
                        for (std::size_t i = 0; i < 4; ++i)
                            points[i] = numberOf(x + (corners[i] & 1), y + (corners[i] >> 1 & 1),
                                                 z + (corners[i] >> 2));
                        cut(points);
                    }
        return std::move(m_soup);
    }

private:
    int numberOf(int x, int y, int z) const { return (z * m_count + y) * m_count + x; }

    UPoint3<float> placeOf(int number) const
    {
        auto const at = [&](int i) { return float(i - 1) * m_step; };
        return {at(number % m_count), at(number / m_count % m_count),
                at(number / (m_count * m_count))};
    }

    float valueAt(int number) const
    {
        UPoint3<float> const p = placeOf(number);
        for (int i = 0; i < 3; ++i)
            if (p[i] < 0 || p[i] > float(m_size) * m_step + m_step / 2)
                return 1;
        std::array<float, 3> angle;
        for (int i = 0; i < 3; ++i)
            angle[std::size_t(i)] = p[i] * float(2 * std::numbers::pi) / period + 0.1f;
        float const gyroid = std::sin(angle[0]) * std::cos(angle[1]) +
                             std::sin(angle[1]) * std::cos(angle[2]) +
                             std::sin(angle[2]) * std::cos(angle[0]);
        return std::fabs(gyroid) - 0.7f;
    }

    /// The point of the surface between a solid and an empty grid point.
    std::uint32_t pointBetween(int solid, int empty)
    {
        auto const [place, isNew] = m_between.try_emplace({solid, empty}, 0u);
        if (isNew) {
            float const a = valueAt(solid), b = valueAt(empty);
            // Off the grid points, so that no triangle loses its area.
            float const share = std::min(0.9f, std::max(0.1f, a / (a - b)));
            place->second = m_soup.add(placeOf(solid) + (placeOf(empty) - placeOf(solid)) * share);
        }
        return place->second;
    }

    /// Whether four grid points turn right-handed in this order.
    bool isPositive(int a, int b, int c, int d) const
    {
        UPoint3<float> const p = placeOf(a);
        return (((placeOf(b) - p) * (placeOf(c) - p)) | (placeOf(d) - p)) > 0;
    }

    void cut(std::array<int, 4> const& corners)
    {
        std::vector<int> solid, empty;
        for (int const corner : corners)
            (valueAt(corner) < 0 ? solid : empty).push_back(corner);
        if (solid.size() == 1)
            triangle(solid[0], empty, isPositive(solid[0], empty[0], empty[1], empty[2]), true);
        else if (empty.size() == 1)
            triangle(empty[0], solid, isPositive(empty[0], solid[0], solid[1], solid[2]), false);
        else if (solid.size() == 2)
            quad(solid, empty);
    }

    /// Between one corner and the three others; facing away from the solid.
    void triangle(int apex, std::vector<int> const& others, bool isPositive, bool isApexSolid)
    {
        std::array<std::uint32_t, 3> p;
        for (std::size_t i = 0; i < 3; ++i)
            p[i] = isApexSolid ? pointBetween(apex, others[i]) : pointBetween(others[i], apex);
        if (isPositive == isApexSolid)
            m_soup.add(p[0], p[1], p[2]);
        else
            m_soup.add(p[0], p[2], p[1]);
    }

    void quad(std::vector<int> const& s, std::vector<int> const& e)
    {
        std::array<std::uint32_t, 4> const p{pointBetween(s[0], e[0]), pointBetween(s[0], e[1]),
                                             pointBetween(s[1], e[1]), pointBetween(s[1], e[0])};
        if (isPositive(s[0], s[1], e[0], e[1])) {
            m_soup.add(p[0], p[1], p[2]);
            m_soup.add(p[0], p[2], p[3]);
        } else {
            m_soup.add(p[0], p[2], p[1]);
            m_soup.add(p[0], p[3], p[2]);
        }
    }

    float m_step;
    int m_size;
    int m_count;
    Soup m_soup;
    std::map<std::pair<int, int>, std::uint32_t> m_between;
};

}  // namespace

Soup gyroidBlock(int cells, int steps)
{
    return SurfaceWalker(cells, steps).run();
}
