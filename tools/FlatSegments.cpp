// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/FlatSegments.h"

#include <cmath>
#include <limits>

namespace Freecut {

namespace {

std::vector<FlatBox> boxesOf(std::vector<FlatSegment> const& segments)
{
    std::vector<FlatBox> boxes;
    boxes.reserve(segments.size());
    for (auto const& [a, b] : segments)
        boxes.push_back({std::min(a[0], b[0]), std::min(a[1], b[1]), std::max(a[0], b[0]),
                         std::max(a[1], b[1])});
    return boxes;
}

/// Twice the area of a triangle, positive if it turns anticlockwise.
double turn(FlatPoint const& a, FlatPoint const& b, FlatPoint const& c)
{
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

bool doCross(FlatSegment const& s, FlatSegment const& t)
{
    auto const areApart = [](double a, double b) { return (a < 0 && b > 0) || (a > 0 && b < 0); };
    return areApart(turn(s[0], s[1], t[0]), turn(s[0], s[1], t[1])) &&
           areApart(turn(t[0], t[1], s[0]), turn(t[0], t[1], s[1]));
}

}  // namespace

FlatPoint nearestOn(FlatSegment const& segment, FlatPoint const& point)
{
    auto const& [a, b] = segment;
    double const x = b[0] - a[0], y = b[1] - a[1];
    double const square = x * x + y * y;
    double const along =
        square > 0 ? ((point[0] - a[0]) * x + (point[1] - a[1]) * y) / square : 0.0;
    double const share = std::clamp(along, 0.0, 1.0);
    return {a[0] + share * x, a[1] + share * y};
}

double distanceBetween(FlatPoint const& a, FlatPoint const& b)
{
    return std::hypot(b[0] - a[0], b[1] - a[1]);
}

double distanceBetween(FlatPoint const& point, FlatSegment const& segment)
{
    return distanceBetween(point, nearestOn(segment, point));
}

double distanceBetween(FlatSegment const& a, FlatSegment const& b)
{
    // Segments that touch have an end on the other one.
    if (doCross(a, b))
        return 0;
    return std::min({distanceBetween(a[0], b), distanceBetween(a[1], b), distanceBetween(b[0], a),
                     distanceBetween(b[1], a)});
}

FlatSegments::FlatSegments(std::vector<FlatSegment> segments)
    : m_segments(std::move(segments)), m_boxes(boxesOf(m_segments))
{}

std::optional<FlatSegments::Nearest> FlatSegments::nearestTo(FlatPoint const& point,
                                                             double within) const
{
    std::optional<Nearest> nearest;
    double least = within;
    m_boxes.findMeeting(
        {point[0] - within, point[1] - within, point[0] + within, point[1] + within}, 0,
        [&](std::size_t i) {
            double const distance = distanceBetween(point, m_segments[i]);
            if (distance < least) {
                least = distance;
                nearest = {i, distance};
            }
            return false;
        });
    return nearest;
}

std::optional<FlatSegments::Nearest> FlatSegments::nearestTo(FlatPoint const& point) const
{
    if (isEmpty())
        return {};
    FlatBox const& bounds = m_boxes.bounds();
    // From here all of them are within reach.
    double const farthest =
        std::hypot(std::max(std::abs(point[0] - bounds.lowX), std::abs(point[0] - bounds.highX)),
                   std::max(std::abs(point[1] - bounds.lowY), std::abs(point[1] - bounds.highY)));
    for (double within = farthest / 1024; within < farthest; within *= 4)
        if (auto const nearest = nearestTo(point, within))
            return nearest;
    return nearestTo(point, 2 * farthest + 1);
}

}  // namespace Freecut
