// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/Slabs.h"

#include <algorithm>
#include <cmath>

Slabs::Slabs(UVector3<double> const& normal, std::vector<double> heights, double leastNear)
    : m_normal(normal), m_heights(std::move(heights)), m_leastNear(leastNear)
{
    for (double const height : m_heights)
        m_reach = std::max(m_reach, std::abs(height));
}

double Slabs::heightOf(UPoint3<float> const& point) const
{
    return m_normal.X() * point.X() + m_normal.Y() * point.Y() + m_normal.Z() * point.Z();
}

std::optional<std::size_t> Slabs::of(UPoint3<float> const& point) const
{
    // Points of a section are rounded to single precision; this is sixty times as much.
    constexpr double nearness = 0x1p-18;
    double const height = heightOf(point);
    double const size = std::max({m_reach, std::abs(double(point.X())), std::abs(double(point.Y())),
                                  std::abs(double(point.Z()))});
    double const near = std::max(size * nearness, m_leastNear);
    std::size_t const below = around(height - near);
    if (below < m_heights.size() && m_heights[below] <= height + near)
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
