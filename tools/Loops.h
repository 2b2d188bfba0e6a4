// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"
#include "platform/geometry/UPoint3.h"

#include <vector>

namespace Freecut {

/// A closed list of world points; the last one is joined with the first.
using Ring = std::vector<UPoint3<float>>;
using Loops = std::vector<Ring>;

/// The same on the screen.
using FlatRing = std::vector<UPoint2<float>>;
using FlatLoops = std::vector<FlatRing>;

}  // namespace Freecut
