// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PathThinning.h"

#include <algorithm>
#include <vector>

namespace {

using ClipperLib::IntPoint;

struct Offset
{
    Offset(IntPoint const& from, IntPoint const& to)
        : x(double(to.X - from.X)), y(double(to.Y - from.Y))
    {}
    double squared() const { return x * x + y * y; }
    double x;
    double y;
};

double squaredDistance(IntPoint const& p, IntPoint const& a, IntPoint const& b)
{
    Offset const along(a, b), to(a, p);
    double const length = along.squared();
    double const share =
        length > 0 ? std::clamp((to.x * along.x + to.y * along.y) / length, 0.0, 1.0) : 0.0;
    double const x = to.x - share * along.x, y = to.y - share * along.y;
    return x * x + y * y;
}

/// A stretch of a path by the indices of its ends.
struct Stretch
{
    std::size_t first;
    std::size_t last;
};

}  // namespace

ClipperLib::Path thinned(ClipperLib::Path const& path, double tolerance)
{
    if (path.size() < 4)
        return path;
    ClipperLib::Path closed = path;
    closed.push_back(path.front());
    auto const farthest = std::max_element(path.begin(), path.end(), [&](auto& a, auto& b) {
        return Offset(path[0], a).squared() < Offset(path[0], b).squared();
    });
    auto const middle = std::size_t(farthest - path.begin());
    std::vector<bool> stays(closed.size(), false);
    stays[0] = stays[middle] = true;
    std::vector<Stretch> open{{0, middle}, {middle, path.size()}};
    while (!open.empty()) {
        auto const [first, last] = open.back();
        open.pop_back();
        double largest = tolerance * tolerance;
        std::size_t split = first;
        for (std::size_t i = first + 1; i < last; ++i)
            if (double const d = squaredDistance(closed[i], closed[first], closed[last]);
                d > largest) {
                largest = d;
                split = i;
            }
        if (split == first)
            continue;
        stays[split] = true;
        open.push_back({first, split});
        open.push_back({split, last});
    }
    ClipperLib::Path kept;
    for (std::size_t i = 0; i < path.size(); ++i)
        if (stays[i])
            kept.push_back(path[i]);
    return kept;
}
