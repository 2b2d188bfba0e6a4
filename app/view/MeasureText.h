// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"

#include <QString>

/// Measures in the unit that the user has chosen for lengths, with the sign of that unit.
namespace MeasureText {

/// The three lengths of a box.
QString boxMm(UBox3<float> const& box);
/// Square centimetres from one on, square millimetres below; square inches.
QString areaMm2(double squareMillimetres);
/// Cubic centimetres from one on, cubic millimetres below; cubic inches.
QString volumeMm3(double cubicMillimetres);

}  // namespace MeasureText
