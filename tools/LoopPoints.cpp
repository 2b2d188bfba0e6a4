// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LoopPoints.h"

#include <array>
#include <limits>
#include <numeric>

namespace Freecut {

namespace {

using Vector = UVector3<float>;

constexpr std::size_t blockSize = 32;

/// Written out in coordinates, in the order in which the vectors' operations compute, so that a
/// compiler makes one instruction of several points.
class TriangleTest
{
public:
    TriangleTest(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c)
        : m_corners{a, b, c}, m_sides{b - a, c - b, a - c}
    {}

    /// One flag for each point of a block.
    std::array<int, blockSize> inside(float const* x, float const* y, float const* z) const
    {
        std::array<int, blockSize> flags;
        for (std::size_t k = 0; k < blockSize; ++k) {
            Vector const c1 = turn(0, x[k], y[k], z[k]);
            Vector const c2 = turn(1, x[k], y[k], z[k]);
            Vector const c3 = turn(2, x[k], y[k], z[k]);
            // No short cuts: they would be branches.
            flags[k] = int((c1 | c2) > 0) & int((c1 | c3) > 0) & int((c2 | c3) > 0);
        }
        return flags;
    }

private:
    Vector turn(std::size_t side, float x, float y, float z) const
    {
        UPoint3<float> const& from = m_corners[side];
        return m_sides[side] * Vector(x - from.X(), y - from.Y(), z - from.Z());
    }

    std::array<UPoint3<float>, 3> m_corners;
    std::array<Vector, 3> m_sides;
};

}  // namespace

LoopPoints::LoopPoints(Ring const& points) : m_points(points.size()), m_places(points.size())
{
    std::size_t const padded = (points.size() + blockSize - 1) / blockSize * blockSize;
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    m_x.assign(padded, none);
    m_y.assign(padded, none);
    m_z.assign(padded, none);
    for (std::size_t i = 0; i < points.size(); ++i) {
        m_x[i] = points[i].X();
        m_y[i] = points[i].Y();
        m_z[i] = points[i].Z();
    }
    std::iota(m_points.begin(), m_points.end(), 0u);
    m_places = m_points;
}

void LoopPoints::remove(std::uint32_t point)
{
    std::size_t const place = m_places[point];
    std::size_t const last = m_points.size() - 1;
    for (std::vector<float>* const list : {&m_x, &m_y, &m_z}) {
        (*list)[place] = (*list)[last];
        (*list)[last] = std::numeric_limits<float>::quiet_NaN();
    }
    m_points[place] = m_points[last];
    m_places[m_points[place]] = std::uint32_t(place);
    m_points.pop_back();
}

std::optional<std::uint32_t> LoopPoints::findInside(UPoint3<float> const& a,
                                                    UPoint3<float> const& b,
                                                    UPoint3<float> const& c) const
{
    // A corner of the triangle gives a zero vector and so counts as outside.
    TriangleTest const test(a, b, c);
    for (std::size_t block = 0; block < m_points.size(); block += blockSize) {
        auto const flags = test.inside(&m_x[block], &m_y[block], &m_z[block]);
        if (std::accumulate(flags.begin(), flags.end(), 0) == 0)
            continue;
        for (std::size_t k = 0; k < blockSize; ++k)
            if (flags[k])
                return m_points[block + k];
    }
    return std::nullopt;
}

}  // namespace Freecut
