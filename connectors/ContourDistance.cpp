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

float ContourDistance::distance(UPoint3<float> const& p) const
{
    float best = std::numeric_limits<float>::max();
    for (std::size_t i = 0; i < m_levels.back().size(); ++i)
        search(m_levels.size() - 1, i, p, best);
    return best;
}

void ContourDistance::search(std::size_t level, std::size_t box, UPoint3<float> const& p,
                             float& best) const
{
    std::size_t const first = box * fanOut;
    if (level == 0) {
        std::size_t const end = std::min(first + fanOut, m_segments.size());
        for (std::size_t i = first; i < end; ++i)
            best =
                std::min(best, MellMath<float>::DisPt2Segment(p, m_segments[i].a, m_segments[i].b));
        return;
    }
    std::vector<Box> const& below = m_levels[level - 1];
    std::size_t const count = std::min(fanOut, below.size() - first);
    std::array<std::pair<double, std::size_t>, fanOut> nearest;
    for (std::size_t i = 0; i < count; ++i)
        nearest[i] = {below[first + i].distance(p), first + i};
    std::sort(nearest.begin(), nearest.begin() + std::ptrdiff_t(count));
    for (std::size_t i = 0; i < count && nearest[i].first <= best + m_slack; ++i)
        search(level - 1, nearest[i].second, p, best);
}
