// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <algorithm>
#include <cmath>
#include <limits>

/// The distance of neighbouring floats at the largest of a point's coordinates.
inline double roundingUnitAt(UPoint3<float> const& p)
{
    float const size = std::max({std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
    return double(std::nextafter(size, std::numeric_limits<float>::infinity())) - size;
}
