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

    /// What points asked for earlier have told; it spares those beside them a search.
    struct Recall
    {
        /// A segment that was near.
        std::size_t near = 0;
        /// A point all segments are beyond `reach` of.
        UPoint3<float> free;
        double reach = 0;
    };

    /// Whether MellMath::DisPt2Segment is greater than a limit for all segments.
    bool isBeyond(UPoint3<float> const& p, double limit) const;
    /// The same answer, in less time where points follow each other: where many thin spikes stand
    /// close together, the boxes of thousands of segments cover a point that few of them are near.
    bool isBeyond(UPoint3<float> const& p, double limit, Recall& recall) const;

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

    bool isNear(Segment const& segment, UPoint3<float> const& p, double limit) const;
    std::size_t firstNear(UPoint3<float> const& p, double limit) const;
    std::size_t firstNear(std::size_t level, std::size_t box, UPoint3<float> const& p,
                          double limit) const;

    std::vector<Segment> m_segments;
    /// Boxes over runs of segments, then over runs of boxes, up to a single one.
    std::vector<std::vector<Box>> m_levels;
    double m_slack = 0;
};
