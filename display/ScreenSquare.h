// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <vector>

namespace Base {
class GLView;
}

namespace Freecut {

/// Appends the corners of a square around a world point that faces the viewer and is 12 pixels wide
/// at any zoom: upper left, lower left, lower right, upper right; x, y, z of each. The width of the
/// view serves both directions.
void appendScreenSquare(std::vector<float>& vertices, Base::GLView const& view,
                        UPoint3<float> const& center);

}  // namespace Freecut
