// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

template <typename T>
class UMesh;

namespace Freecut {

/// Fills an empty mesh with the prisms between upper and lower loops: closed and outward-facing if
/// the loops turn anticlockwise, seen against the direction. All caps come before all walls. Where
/// points of a loop coincide the caps use the last of them. A loop that cannot be triangulated to
/// its end leaves its caps open.
///
/// mesh         borrowed
/// top, bottom  as many loops of as many points, each point once
/// direction    from the bottom to the top
/// cost         as earsOfLoop, for each loop twice
void fillWithPrisms(UMesh<float>& mesh, Loops const& top, Loops const& bottom,
                    UVector3<float> const& direction);

}  // namespace Freecut
