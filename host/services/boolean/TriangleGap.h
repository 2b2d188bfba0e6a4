// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>

/// Whether a plane along a normal or an edge of one of two triangles shows that they are further
/// apart than some distance. Where none does they may be so all the same.
///
/// tolerance  rounding of doubles; either may be flat
bool areFurtherApart(std::array<UPoint3<float>, 3> const& a, std::array<UPoint3<float>, 3> const& b,
                     double distance);
