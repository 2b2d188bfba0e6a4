// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

/// Exact signs of determinants of float points.
namespace Exact {

/// +1 if p lies on the side of the plane a, b, c from which these run anticlockwise, -1 on the
/// other side, 0 in the plane.
int orientation(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
                UPoint3<float> const& p);

}  // namespace Exact
