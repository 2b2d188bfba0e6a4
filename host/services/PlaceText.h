// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QString>

/// A coordinate in six digits, with a decimal point in every language.
QString coordinateText(float value);

/// Puts the three coordinates of a point in for %1, %2 and %3.
QString withPlace(QString const& text, UPoint3<float> const& place);
