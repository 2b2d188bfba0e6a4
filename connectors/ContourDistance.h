// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/SectionContour.h"

#include <array>

/// Whether points are near one of many contours, each of which counts as closed.
///
/// cost  linear to build; a query looks only at segments around the point, up to the first that is
///       near
class ContourDistance
{
public:
    explicit ContourDistance(std::vector<SectionContour> const& contours);

    /// Whether MellMath::DisPt2Segment is greater than a limit for all segments.
    bool isBeyond(UPoint3<float> const& p, double limit) const;

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

    bool isNear(std::size_t level, std::size_t box, UPoint3<float> const& p, double limit) const;

    std::vector<Segment> m_segments;
    /// Boxes over runs of segments, then over runs of boxes, up to a single one.
    std::vector<std::vector<Box>> m_levels;
    double m_slack = 0;
};
