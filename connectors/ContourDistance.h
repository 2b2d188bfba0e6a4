// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/SectionContour.h"

#include <array>

/// Distances of points from the nearest of many contours, each of which counts as closed.
///
/// cost  linear to build; a query looks only at the segments that may be the nearest
class ContourDistance
{
public:
    explicit ContourDistance(std::vector<SectionContour> const& contours);

    /// The smallest MellMath::DisPt2Segment over all segments, 3.4028235e38 without contours.
    float distance(UPoint3<float> const& p) const;

private:
    static constexpr std::size_t fanOut = 8;

    struct Segment
    {
        UPoint3<float> a;
        UPoint3<float> b;
    };
    struct Box
    {
        std::array<float, 3> low;
        std::array<float, 3> high;

        void add(Box const& other);
        double distance(UPoint3<float> const& p) const;
    };

    void search(std::size_t level, std::size_t box, UPoint3<float> const& p, float& best) const;

    std::vector<Segment> m_segments;
    /// Boxes over runs of segments, then over runs of boxes, up to a single one.
    std::vector<std::vector<Box>> m_levels;
    double m_slack = 0;
};
