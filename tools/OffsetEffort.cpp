// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/OffsetEffort.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

using ClipperLib::IntPoint;

/// How many corners there are up to a height, by steps of a fixed number.
class CornerHeights
{
public:
    explicit CornerHeights(ClipperLib::Paths const& paths)
    {
        double high = m_low;
        bool isFirst = true;
        for (ClipperLib::Path const& path : paths)
            for (IntPoint const& point : path) {
                double const y = double(point.Y);
                m_low = isFirst ? y : std::min(m_low, y);
                high = isFirst ? y : std::max(high, y);
                isFirst = false;
            }
        m_stepsPerUnit = double(steps) / (high - m_low + 1);
        for (ClipperLib::Path const& path : paths)
            for (IntPoint const& point : path)
                ++m_below[stepOf(double(point.Y)) + 1];
        for (std::size_t i = 1; i < m_below.size(); ++i)
            m_below[i] += m_below[i - 1];
    }

    /// The whole steps of both bounds are counted.
    double countBetween(double low, double high) const
    {
        return double(m_below[stepOf(high) + 1] - m_below[stepOf(low)]);
    }

private:
    static constexpr std::size_t steps = 65536;

    std::size_t stepOf(double y) const
    {
        double const step = (y - m_low) * m_stepsPerUnit;
        return std::size_t(std::clamp(step, 0.0, double(steps - 1)));
    }

    double m_low = 0;
    double m_stepsPerUnit;
    std::vector<std::size_t> m_below = std::vector<std::size_t>(steps + 1);
};

/// How far the two images of a corner are apart, positive where they part.
double gapAt(IntPoint const& previous, IntPoint const& at, IntPoint const& next, double distance)
{
    double const inX = double(at.X - previous.X), inY = double(at.Y - previous.Y);
    double const outX = double(next.X - at.X), outY = double(next.Y - at.Y);
    double const lengths = std::sqrt((inX * inX + inY * inY) * (outX * outX + outY * outY));
    return lengths > 0 ? (inX * outY - inY * outX) / lengths * distance : 0;
}

}  // namespace

double offsetEffort(ClipperLib::Paths const& paths, double distance)
{
    CornerHeights const heights(paths);
    double const reach = std::abs(distance);
    double effort = 0;
    for (ClipperLib::Path const& path : paths) {
        double const side = ClipperLib::Orientation(path) ? distance : -distance;
        for (std::size_t i = 0; i < path.size(); ++i) {
            IntPoint const& at = path[i];
            IntPoint const& next = path[i + 1 < path.size() ? i + 1 : 0];
            IntPoint const& previous = path[i > 0 ? i - 1 : path.size() - 1];
            effort += heights.countBetween(double(std::min(at.Y, next.Y)),
                                           double(std::max(at.Y, next.Y)));
            // Images nearer than a unit become one point.
            if (gapAt(previous, at, next, side) <= -1)
                effort += heights.countBetween(double(at.Y) - reach, double(at.Y) + reach);
        }
    }
    return effort;
}

}  // namespace Freecut
