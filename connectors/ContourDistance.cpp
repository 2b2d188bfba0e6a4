// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ContourDistance.h"

#include "platform/geometry/MellMath.h"

#include <algorithm>
#include <cmath>
#include <limits>

void ContourDistance::Box::add(Box const& other)
{
    for (std::size_t i = 0; i < 3; ++i) {
        low[i] = std::min(low[i], other.low[i]);
        high[i] = std::max(high[i], other.high[i]);
    }
}

double ContourDistance::Box::distance(UPoint3<float> const& p) const
{
    double squared = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        double const c = p[int(i)];
        double const beyond = std::max({low[i] - c, c - high[i], 0.0});
        squared += beyond * beyond;
    }
    return std::sqrt(squared);
}

ContourDistance::ContourDistance(std::vector<SectionContour> const& contours)
{
    for (SectionContour const& contour : contours)
        for (std::size_t k = 0; k < contour.size(); ++k)
            m_segments.push_back({contour[k], contour[(k + 1) % contour.size()]});
    std::vector<Box> boxes;
    float largest = 0;
    for (Segment const& s : m_segments) {
        Box box;
        for (int i = 0; i < 3; ++i) {
            box.low[std::size_t(i)] = std::min(s.a[i], s.b[i]);
            box.high[std::size_t(i)] = std::max(s.a[i], s.b[i]);
            largest = std::max({largest, std::fabs(s.a[i]), std::fabs(s.b[i])});
        }
        boxes.push_back(box);
    }
    // The segments' distances are rounded, the boxes' hardly.
    m_slack = 16.0 * largest * std::numeric_limits<float>::epsilon();
    // Segments follow each other along the contours, so neighbours in the list are near each other.
    while (boxes.size() > 1 || m_levels.empty()) {
        std::vector<Box> above;
        for (std::size_t i = 0; i < boxes.size(); ++i)
            if (i % fanOut == 0)
                above.push_back(boxes[i]);
            else
                above.back().add(boxes[i]);
        m_levels.push_back(above);
        boxes = std::move(above);
    }
}

bool ContourDistance::isBeyond(UPoint3<float> const& p, double limit) const
{
    return firstNear(p, limit) == m_segments.size();
}

bool ContourDistance::isBeyond(UPoint3<float> const& p, double limit, Recall& recall) const
{
    if (recall.near < m_segments.size() && isNear(m_segments[recall.near], p, limit))
        return false;
    if (double(MellMath<float>::DisPt2Pt(p, recall.free)) + limit + 2 * m_slack < recall.reach)
        return true;
    std::size_t const near = firstNear(p, limit);
    if (near < m_segments.size()) {
        recall.near = near;
        return false;
    }
    if (isBeyond(p, 2 * limit)) {
        recall.free = p;
        recall.reach = 2 * limit;
    }
    return true;
}

bool ContourDistance::isNear(Segment const& segment, UPoint3<float> const& p, double limit) const
{
    return MellMath<float>::DisPt2Segment(p, segment.a, segment.b) <= limit;
}

/// The number of a segment that is no farther than a limit; that of all segments if none is.
std::size_t ContourDistance::firstNear(UPoint3<float> const& p, double limit) const
{
    std::size_t near = m_segments.size();
    for (std::size_t i = 0; i < m_levels.back().size() && near == m_segments.size(); ++i)
        near = firstNear(m_levels.size() - 1, i, p, limit);
    return near;
}

/// The same among the segments in a box.
std::size_t ContourDistance::firstNear(std::size_t level, std::size_t box, UPoint3<float> const& p,
                                       double limit) const
{
    std::size_t const none = m_segments.size();
    if (m_levels[level][box].distance(p) > limit + m_slack)
        return none;
    std::size_t const first = box * fanOut;
    std::size_t const end =
        std::min(first + fanOut, level == 0 ? m_segments.size() : m_levels[level - 1].size());
    for (std::size_t i = first; i < end; ++i) {
        std::size_t near = none;
        if (level > 0)
            near = firstNear(level - 1, i, p, limit);
        else if (isNear(m_segments[i], p, limit))
            near = i;
        if (near != none)
            return near;
    }
    return none;
}
