// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

namespace ExactSigns {

/// The signs of ExactSigns.h with numbers of arbitrary precision: slow, and needed only for
/// coordinates whose sizes lie far apart. Any thread.
int arbitraryOrient3d(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
                      UPoint3<float> const& d);
int arbitraryOrient2d(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
                      int droppedAxis);

}  // namespace ExactSigns
