// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/BoxTree.h"

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace Freecut {

/// A place in a plane.
using FlatPoint = std::array<double, 2>;
using FlatSegment = std::array<FlatPoint, 2>;

double distanceBetween(FlatPoint const& a, FlatPoint const& b);
double distanceBetween(FlatPoint const& point, FlatSegment const& segment);
/// 0 if they share a point.
double distanceBetween(FlatSegment const& a, FlatSegment const& b);

/// The point of a segment that is nearest to another one.
FlatPoint nearestOn(FlatSegment const& segment, FlatPoint const& point);

/// Segments among which the nearest to a point is found without looking at all.
class FlatSegments
{
public:
    explicit FlatSegments(std::vector<FlatSegment> segments);

    bool isEmpty() const { return m_segments.empty(); }
    FlatSegment const& operator[](std::size_t index) const { return m_segments[index]; }

    struct Nearest
    {
        std::size_t index;
        double distance;
    };
    /// The first of the nearest segments that are less than a distance away.
    std::optional<Nearest> nearestTo(FlatPoint const& point, double within) const;
    /// The same however far it is; none if there are no segments.
    std::optional<Nearest> nearestTo(FlatPoint const& point) const;

private:
    std::vector<FlatSegment> m_segments;
    BoxTree m_boxes;
};

}  // namespace Freecut
