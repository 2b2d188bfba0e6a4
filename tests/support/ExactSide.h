// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

/// Signs of determinants of float coordinates, exact: a bound on the error of doubles answers most
/// questions, rational numbers the rest. For judging results only; the services have predicates of
/// their own.
namespace judge {

/// 1 if the triangle a, b, c is seen anticlockwise from d, -1 if clockwise, 0 if all lie in a
/// plane.
int sideOf(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
           UPoint3<float> const& d);

/// The turn a, b, c of the projection that leaves out an axis: 1 anticlockwise, 0 none.
int turnOf(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c, int axis);

/// Whether three points lie in a line.
bool areInLine(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c);

}  // namespace judge
