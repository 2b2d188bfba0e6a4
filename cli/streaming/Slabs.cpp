// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/Slabs.h"

#include <algorithm>
#include <cmath>

Slabs::Slabs(std::vector<double> heights) : m_heights(std::move(heights))
{
    for (double& height : m_heights) {
        height = double(float(height));
        m_reach = std::max(m_reach, std::abs(height));
    }
}

std::optional<std::size_t> Slabs::of(UPoint3<float> const& point) const
{
    // Points of a section are rounded to single precision; this is sixty times as much.
    constexpr double nearness = 0x1p-18;
    double const z = point.Z();
    double const size =
        std::max({m_reach, std::abs(z), std::abs(double(point.X())), std::abs(double(point.Y()))});
    std::size_t const below = around(z - size * nearness);
    if (below < m_heights.size() && m_heights[below] <= z + size * nearness)
        return {};
    return below;
}

std::optional<std::size_t> Slabs::of(Formats::Facet const& facet) const
{
    auto const first = of(facet[0]);
    if (!first || of(facet[1]) != first || of(facet[2]) != first)
        return {};
    return first;
}

std::size_t Slabs::around(double height) const
{
    return std::size_t(std::lower_bound(m_heights.begin(), m_heights.end(), height) -
                       m_heights.begin());
}
