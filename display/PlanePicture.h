// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/PlaneProperty.h"

#include <vector>

namespace Freecut {

/// How many cells a side of a plane is divided into, and how long its ticks are. Lengths in
/// millimetres.
///
/// count   the side's count so far; a side between 20 and 30 long keeps it
/// return  the length of the ticks
float divideSide(float length, float& count);

/// What is drawn of a plane, in groups of 4 vertices, x, y, z each: the ticks on the midpoints of
/// the sides AB and CD, those on the sides AD and BC, then the grid's cells.
///
/// plane  with its key points derived
std::vector<float> verticesOfPlane(PlaneProperty const& plane, float rows, float columns,
                                   float tickAlongRows, float tickAlongColumns);

}  // namespace Freecut
