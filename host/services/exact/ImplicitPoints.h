// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>

/// Points given by what they come from, and exact answers about them: for use where a filter in
/// double leaves an answer open. They take a few microseconds each, and a twentieth of that where
/// the coordinates are of similar size and no point is that of three planes. Any thread.
namespace Exact {

struct ImplicitPoint
{
    enum class Kind
    {
        /// The first point.
        point,
        /// The line through the first two, where it passes through the plane of the next three.
        edgeThroughPlane,
        /// Where the planes of three times three points meet.
        threePlanes,
    };

    Kind kind = Kind::point;
    std::array<UPoint3<float>, 9> points;
};

/// The sign of the area of a triangle seen along a coordinate axis, as ExactSigns::orient2d.
int orient2d(ImplicitPoint const& a, ImplicitPoint const& b, ImplicitPoint const& c,
             int droppedAxis);

/// The sign of a coordinate of b less that of a.
int compare(ImplicitPoint const& a, ImplicitPoint const& b, int axis);

bool areEqual(ImplicitPoint const& a, ImplicitPoint const& b);

struct RoundedPoint
{
    /// The nearest floats.
    UPoint3<float> single;
    /// Doubles that are off by at most `error` each.
    std::array<double, 3> place;
    double error;
};

RoundedPoint round(ImplicitPoint const& point);

}  // namespace Exact
