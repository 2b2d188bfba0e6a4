// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

/// A block of 10 mm per cell along each axis, filled with the wall that a gyroid makes: one closed
/// surface of high genus, whose level sections have many contours.
///
/// cells   periods along each axis
/// steps   grid steps per period, at least 4
Soup gyroidBlock(int cells, int steps);
