// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/TeethWalls.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Freecut {

namespace {

/// Points of teeth that are nearer to their edge stand on it; the lowest tooth is twice as high.
constexpr double onEdge = 0.0005;
/// What is as near to a foot belongs to it: moved outlines stand on a grid of a thousandth.
constexpr double atFoot = 0.002;
/// Searches that take long ask now and then.
constexpr std::size_t pollEvery = 256;

double heightOver(FlatPoint const& a, FlatPoint const& b, FlatPoint const& point)
{
    double const x = b[0] - a[0], y = b[1] - a[1];
    double const length = std::hypot(x, y);
    return length > 0 ? std::abs(x * (point[1] - a[1]) - y * (point[0] - a[0])) / length : 0;
}

FlatPoint middleOf(FlatSegment const& s)
{
    return {(s[0][0] + s[1][0]) / 2, (s[0][1] + s[1][1]) / 2};
}

}  // namespace

TeethWalls::TeethWalls(std::vector<std::vector<FlatPoint>> const& edges) : m_segments({})
{
    for (std::size_t i = 0; i < edges.size(); ++i)
        addEdge(int(i), edges[i]);
    m_segments = segmentsOf(m_walls);
}

FlatSegments TeethWalls::segmentsOf(std::vector<Wall> const& walls)
{
    std::vector<FlatSegment> segments;
    segments.reserve(walls.size());
    for (Wall const& wall : walls)
        segments.push_back(wall.segment);
    return FlatSegments(std::move(segments));
}

void TeethWalls::addEdge(int edge, std::vector<FlatPoint> const& points)
{
    std::vector<double> heights;
    heights.reserve(points.size());
    for (FlatPoint const& point : points)
        heights.push_back(heightOver(points.front(), points.back(), point));
    int const firstTooth = toothCount();
    for (std::size_t i = 0; i + 1 < points.size();) {
        std::size_t last = i + 1;
        while (last + 1 < points.size() && heights[last] >= onEdge)
            ++last;
        if (last == i + 1) {
            m_walls.push_back({{points[i], points[i + 1]}, none, none, {}});
            // Before the first tooth and after the last there is no gap.
            if (toothCount() > firstTooth)
                m_walls.back().gap = toothCount() - 1;
        } else {
            addTooth(edge, points, heights, i, last);
        }
        i = last;
    }
    int const lastTooth = toothCount() - 1;
    for (Wall& wall : m_walls)
        if (wall.gap >= firstTooth && wall.gap >= lastTooth)
            wall.gap = none;
}

void TeethWalls::addTooth(int edge, std::vector<FlatPoint> const& points,
                          std::vector<double> const& heights, std::size_t first, std::size_t last)
{
    int const tooth = toothCount();
    bool const isFirstOfEdge = m_teeth.empty() || m_teeth.back().edge != edge;
    auto const begin = heights.begin() + std::ptrdiff_t(first);
    auto const end = heights.begin() + std::ptrdiff_t(last) + 1;
    double const top = *std::max_element(begin, end) - onEdge;
    auto const isTop = [&](double height) { return height >= top; };
    std::size_t const rises = first + std::size_t(std::find_if(begin, end, isTop) - begin);
    std::size_t falls = last;
    while (!isTop(heights[falls]))
        --falls;
    m_teeth.push_back({edge, m_walls.size(), m_walls.size() + last - first});
    for (std::size_t i = first; i < last; ++i) {
        Wall wall{{points[i], points[i + 1]}, tooth, none, {i == first, i + 1 == last}};
        if (i < rises)
            wall.gap = isFirstOfEdge ? none : tooth - 1;
        else if (i >= falls)
            wall.gap = tooth;
        m_walls.push_back(wall);
    }
}

bool TeethWalls::haveGap(int tooth) const
{
    std::size_t const next = std::size_t(tooth) + 1;
    return next < m_teeth.size() && m_teeth[next].edge == m_teeth[next - 1].edge;
}

double TeethWalls::distance(int tooth) const
{
    Tooth const& a = m_teeth[std::size_t(tooth)];
    Tooth const& b = m_teeth[std::size_t(tooth) + 1];
    double least = std::numeric_limits<double>::max();
    for (std::size_t i = a.firstWall; i < a.endWall; ++i)
        for (std::size_t k = b.firstWall; k < b.endWall; ++k)
            least = std::min(least, distanceBetween(m_walls[i].segment, m_walls[k].segment));
    return least;
}

double TeethWalls::footDistance(int tooth) const
{
    Tooth const& a = m_teeth[std::size_t(tooth)];
    Tooth const& b = m_teeth[std::size_t(tooth) + 1];
    return distanceBetween(m_walls[a.endWall - 1].segment[1], m_walls[b.firstWall].segment[0]);
}

bool TeethWalls::isAtFoot(Wall const& wall, FlatPoint const& point)
{
    FlatPoint const nearest = nearestOn(wall.segment, point);
    return (wall.isFoot[0] && distanceBetween(nearest, wall.segment[0]) < atFoot) ||
           (wall.isFoot[1] && distanceBetween(nearest, wall.segment[1]) < atFoot);
}

TeethWalls::Belonging TeethWalls::belongingOf(std::vector<FlatSegment> const& sides,
                                              std::function<void()> const& poll) const
{
    Belonging belonging;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        if (poll && i % pollEvery == 0)
            poll();
        FlatPoint const middle = middleOf(sides[i]);
        auto const nearest = m_segments.nearestTo(middle);
        Wall const* wall = nearest ? &m_walls[nearest->index] : nullptr;
        if (wall && isAtFoot(*wall, middle))
            wall = nullptr;
        belonging.toTooth.push_back(wall ? wall->tooth : none);
        belonging.toGap.push_back(wall ? wall->gap : none);
    }
    return belonging;
}

}  // namespace Freecut
