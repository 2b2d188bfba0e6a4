// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/ImplicitPoints.h"

#include <optional>

/// Signs of the same kind as those of ImplicitPoints.h, in integers of a fixed width: a tenth of a
/// microsecond each, and never wrong. Nothing where the coordinates do not fit, because their
/// lowest bits and their highest are too far apart, or where a point is that of three planes.
namespace Exact {

std::optional<int> narrowOrient2d(ImplicitPoint const& a, ImplicitPoint const& b,
                                  ImplicitPoint const& c, int droppedAxis);
std::optional<int> narrowCompare(ImplicitPoint const& a, ImplicitPoint const& b, int axis);
std::optional<bool> areNarrowEqual(ImplicitPoint const& a, ImplicitPoint const& b);

}  // namespace Exact
