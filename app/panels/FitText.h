// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/view/BuildVolume.h"
#include "platform/geometry/UBox3.h"

/// Whether a part can be printed, in words.
namespace FitText {

/// Whether a box fits into a build volume, or by how much it is too large, and whether it lies in
/// it.
QString of(UBox3<float> const& box, BuildVolume const& room);

/// By how much a part is too large, or else reaches out of the room and where; empty if it stands
/// within the room.
QString misfit(UBox3<float> const& box, BuildVolume const& room);

}  // namespace FitText
