// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Measures in the unit that the user has chosen for lengths, with the sign of that unit.
namespace MeasureText {

QString lengthMm(double millimetres);
/// Square centimetres from one on, square millimetres below; square inches.
QString areaMm2(double squareMillimetres);
/// Cubic centimetres from one on, cubic millimetres below; cubic inches.
QString volumeMm3(double cubicMillimetres);

}  // namespace MeasureText
