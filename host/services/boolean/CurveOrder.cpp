// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/CurveOrder.h"

#include <algorithm>
#include <limits>
#include <utility>

std::vector<std::uint32_t> alongCurve(std::vector<FlatPoint> const& points)
{
    constexpr double far = std::numeric_limits<double>::infinity();
    double low[2] = {far, far}, high[2] = {-far, -far};
    for (FlatPoint const& p : points) {
        low[0] = std::min(low[0], p.u);
        low[1] = std::min(low[1], p.v);
        high[0] = std::max(high[0], p.u);
        high[1] = std::max(high[1], p.v);
    }
    constexpr int bits = 16;
    constexpr double cells = 1 << bits;
    // One scale for both, so that cells are square.
    double const size = std::max(high[0] - low[0], high[1] - low[1]);
    double const scale = size > 0 ? cells / size : 0;
    auto const cell = [&](double value) {
        return std::uint64_t(std::clamp(value * scale, 0.0, cells - 1));
    };
    std::vector<std::pair<std::uint64_t, std::uint32_t>> order;
    order.reserve(points.size());
    for (FlatPoint const& p : points) {
        std::uint64_t const u = cell(p.u - low[0]), v = cell(p.v - low[1]);
        std::uint64_t key = 0;
        for (int bit = 0; bit < bits; ++bit)
            key |= (u >> bit & 1) << (2 * bit) | (v >> bit & 1) << (2 * bit + 1);
        order.emplace_back(key, p.number);
    }
    std::ranges::sort(order);
    std::vector<std::uint32_t> sorted;
    sorted.reserve(order.size());
    for (auto const& [key, number] : order)
        sorted.push_back(number);
    return sorted;
}
