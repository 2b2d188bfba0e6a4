// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>

/// Exact signs about the planes of float triangles. Any thread.
namespace Exact {

/// The sign of one coordinate of the cross product of two triangles' normals: the way of the line
/// in which their planes meet; 0 for all coordinates if they are parallel.
int signOfMeeting(std::array<UPoint3<float>, 3> const& a, std::array<UPoint3<float>, 3> const& b,
                  int axis);

}  // namespace Exact
