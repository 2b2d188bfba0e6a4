// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/RandomSolids.h"

/// A hollow box and a box, turned together, of which faces nearly coincide: what of the first is not
/// in the second crosses itself by a fraction of the last place, which mending does not undo.
SolidPair pairLeftCrossing();
