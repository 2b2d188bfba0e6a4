// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/Slabs.h"

#include <algorithm>
#include <cmath>

namespace {

float sizeOf(UPoint3<float> const& point)
{
    return std::max({std::abs(point.X()), std::abs(point.Y()), std::abs(point.Z())});
}

}  // namespace

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
    double const height = heightOf(point);
    return between(height, height, nearAt(sizeOf(point)));
}

std::optional<std::size_t> Slabs::of(Formats::Facet const& facet) const
{
    // Nearly all triangles are away from the planes by the largest margin of a corner. Others are asked
    // about by corners, so that all triangles at a corner agree about it.
    double const a = heightOf(facet[0]), b = heightOf(facet[1]), c = heightOf(facet[2]);
    float const size = std::max({sizeOf(facet[0]), sizeOf(facet[1]), sizeOf(facet[2])});
    if (auto const slab = between(std::min({a, b, c}), std::max({a, b, c}), nearAt(size)))
        return slab;
    auto const first = of(facet[0]);
    if (!first || of(facet[1]) != first || of(facet[2]) != first)
        return {};
    return first;
}

std::optional<std::size_t> Slabs::between(double lowest, double highest, double near) const
{
    std::size_t const slab = around(lowest - near);
    if (slab < m_heights.size() && m_heights[slab] <= highest + near)
        return {};
    return slab;
}

double Slabs::nearAt(float size) const
{
    // Points of a section are rounded to single precision; this is sixty times as much.
    constexpr double nearness = 0x1p-18;
    return std::max(std::max(m_reach, double(size)) * nearness, m_leastNear);
}

std::size_t Slabs::around(double height) const
{
    if (m_heights.size() == 1)
        return m_heights.front() < height;
    return std::size_t(std::lower_bound(m_heights.begin(), m_heights.end(), height) -
                       m_heights.begin());
}
