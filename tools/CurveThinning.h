// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Curves.h"

namespace Freecut {

/// A closed curve without the points that its others tell of well enough: what is left out lies no
/// farther than the tolerance from the edge that replaces it. The first point stays. A curve of
/// which fewer than three points would be left stays as it is.
///
/// tolerance  grid units
/// cost       one pass, also along rows of teeth, where dividing at the farthest point is quadratic
Curve thinned(Curve const& curve, double tolerance);

}  // namespace Freecut
