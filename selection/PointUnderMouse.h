// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QPoint>

#include <array>

namespace Freecut {

/// The point of a picked triangle that appears under the mouse, by linear interpolation over its
/// image on the screen. Where the image is a line the point lies on an edge that is not collapsed,
/// where it is a single pixel it is the first corner.
///
/// corners  in the world
/// images   of the corners, and the mouse: widget pixels
UPoint3<float> pointUnderMouse(std::array<UPoint3<float>, 3> const& corners,
                               std::array<QPoint, 3> const& images, QPoint mouse);

}  // namespace Freecut
