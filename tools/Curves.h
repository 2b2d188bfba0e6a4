// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"

#include <vector>

namespace Freecut {

/// A closed line in a plane; the last point is joined with the first. Lengths in grid units of
/// 0.001 mm, positions between them included; x to the right, y up.
using Curve = std::vector<UPoint2<double>>;
using Curves = std::vector<Curve>;

}  // namespace Freecut
