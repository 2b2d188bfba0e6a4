// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

/// The diagonal of the box around all points.
double sizeOf(Soup const& soup);

/// The same mesh moved by a share of its size, in a direction that is none of the axes.
Soup shiftedCopy(Soup soup, double share);
/// The same mesh turned around a vertical axis through the middle of its box.
Soup turnedCopy(Soup soup, double radians);
/// The same mesh with points, evenly spread over its list, pulled through the surface beside them:
/// it crosses itself in about as many places.
Soup foldedCopy(Soup soup, std::size_t folds);
