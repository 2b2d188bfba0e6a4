// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/IsoSurface.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace {

using Point = UPoint3<float>;

class SurfaceWalker
{
public:
    SurfaceWalker(Grid const& grid, std::function<float(Point const&)> const& field) : m_grid(grid)
    {
        int const count = grid.counts[0] * grid.counts[1] * grid.counts[2];
        m_values.reserve(std::size_t(count));
        for (int number = 0; number < count; ++number)
            m_values.push_back(field(placeOf(number)));
    }

    Soup run()
    {
        // The tetrahedra of a cube around one of its diagonals; corner bits are x, y, z.
        constexpr std::array<std::array<int, 4>, 6> tetrahedra{
            {{0, 1, 3, 7}, {0, 3, 2, 7}, {0, 2, 6, 7}, {0, 6, 4, 7}, {0, 4, 5, 7}, {0, 5, 1, 7}}};
        for (int z = 0; z + 1 < m_grid.counts[2]; ++z)
            for (int y = 0; y + 1 < m_grid.counts[1]; ++y)
                for (int x = 0; x + 1 < m_grid.counts[0]; ++x)
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
    int numberOf(int x, int y, int z) const
    {
        return (z * m_grid.counts[1] + y) * m_grid.counts[0] + x;
    }

    Point placeOf(int number) const
    {
        int const x = number % m_grid.counts[0];
        int const y = number / m_grid.counts[0] % m_grid.counts[1];
        int const z = number / (m_grid.counts[0] * m_grid.counts[1]);
        return m_grid.low + Point(float(x), float(y), float(z)) * m_grid.step;
    }

    float valueAt(int number) const { return m_values[std::size_t(number)]; }

    /// The point of the surface between a solid and an empty grid point.
    std::uint32_t pointBetween(int solid, int empty)
    {
        auto const key = std::uint64_t(solid) << 32 | std::uint32_t(empty);
        auto const [place, isNew] = m_between.try_emplace(key, 0u);
        if (isNew) {
            float const a = valueAt(solid), b = valueAt(empty);
            float const share = std::min(0.9f, std::max(0.1f, a / (a - b)));
            place->second = m_soup.add(placeOf(solid) + (placeOf(empty) - placeOf(solid)) * share);
        }
        return place->second;
    }

    /// Whether four grid points turn right-handed in this order.
    bool isPositive(int a, int b, int c, int d) const
    {
        Point const p = placeOf(a);
        return (((placeOf(b) - p) * (placeOf(c) - p)) | (placeOf(d) - p)) > 0;
    }

    void cut(std::array<int, 4> const& corners)
    {
        std::array<int, 4> solid, empty;
        std::size_t solids = 0, empties = 0;
        for (int const corner : corners)
            if (valueAt(corner) < 0)
                solid[solids++] = corner;
            else
                empty[empties++] = corner;
        if (solids == 1)
            triangle(solid[0], empty, isPositive(solid[0], empty[0], empty[1], empty[2]), true);
        else if (empties == 1)
            triangle(empty[0], solid, isPositive(empty[0], solid[0], solid[1], solid[2]), false);
        else if (solids == 2)
            quad(solid, empty);
    }

    /// Between one corner and the three others; facing away from the solid.
    void triangle(int apex, std::array<int, 4> const& others, bool isPositive, bool isApexSolid)
    {
        std::array<std::uint32_t, 3> p;
        for (std::size_t i = 0; i < 3; ++i)
            p[i] = isApexSolid ? pointBetween(apex, others[i]) : pointBetween(others[i], apex);
        if (isPositive == isApexSolid)
            m_soup.add(p[0], p[1], p[2]);
        else
            m_soup.add(p[0], p[2], p[1]);
    }

    void quad(std::array<int, 4> const& s, std::array<int, 4> const& e)
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

    Grid m_grid;
    std::vector<float> m_values;
    std::unordered_map<std::uint64_t, std::uint32_t> m_between;
    Soup m_soup;
};

}  // namespace

Soup isoSurface(Grid const& grid, std::function<float(Point const&)> const& field)
{
    return SurfaceWalker(grid, field).run();
}
