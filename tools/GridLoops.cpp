// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/GridLoops.h"

#include <cmath>

namespace Freecut {

namespace {

__extension__ using Wide = __int128;
using GridPoint = UPoint2<std::int64_t>;

Wide turnOf(GridPoint const& a, GridPoint const& b, GridPoint const& c)
{
    return Wide(b.X() - a.X()) * (c.Y() - a.Y()) - Wide(b.Y() - a.Y()) * (c.X() - a.X());
}

/// Without points whose neighbours are in a line with them, spikes included; empty if nothing is
/// left.
GridLoop withoutStraightPoints(GridLoop const& points)
{
    GridLoop kept;
    kept.reserve(points.size());
    auto const dropStraight = [&](GridPoint const& next) {
        while (kept.size() > 1 && turnOf(kept[kept.size() - 2], kept.back(), next) == 0)
            kept.pop_back();
    };
    for (GridPoint const& point : points) {
        dropStraight(point);
        if (kept.empty() || point != kept.back())
            kept.push_back(point);
    }
    // Where the end meets the beginning.
    std::size_t first = 0;
    while (kept.size() - first > 2) {
        std::size_t const last = kept.size() - 1;
        if (turnOf(kept[last - 1], kept[last], kept[first]) == 0)
            kept.pop_back();
        else if (turnOf(kept[last], kept[first], kept[first + 1]) == 0)
            ++first;
        else
            break;
    }
    kept.erase(kept.begin(), kept.begin() + std::ptrdiff_t(first));
    return kept.size() > 2 ? kept : GridLoop();
}

bool isWide(GridLoop const& loop)
{
    double doubleArea = 0, length = 0;
    GridPoint const& origin = loop.front();
    for (std::size_t i = 0; i < loop.size(); ++i) {
        GridPoint const &a = loop[i], &b = loop[i + 1 < loop.size() ? i + 1 : 0];
        doubleArea += double(turnOf(origin, a, b));
        length += std::hypot(double(b.X() - a.X()), double(b.Y() - a.Y()));
    }
    return std::abs(doubleArea) >= length;
}

}  // namespace

GridLoops onGrid(Curves const& loops, WorkPoll const& poll)
{
    PollSteps polling(poll);
    GridLoops rounded;
    rounded.reserve(loops.size());
    for (Curve const& curve : loops) {
        GridLoop points;
        points.reserve(curve.size());
        for (UPoint2<double> const& p : curve) {
            polling.step();
            points.emplace_back(std::llround(p.X()), std::llround(p.Y()));
        }
        GridLoop loop = withoutStraightPoints(points);
        if (!loop.empty() && isWide(loop))
            rounded.push_back(std::move(loop));
    }
    return rounded;
}

}  // namespace Freecut
