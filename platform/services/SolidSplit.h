// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <array>
#include <functional>
#include <vector>

/// Lines on the surface of a piece, as pairs of ends in world millimetres, in no order.
using ContourLines = std::vector<std::array<UPoint3<float>, 2>>;

/// Parts a solid by a tool as Intersect::boolean and boolean_subtract_keep do, to the last bit, and
/// tells the lines in which the surfaces of the two meet: those along which, on a piece, the
/// tool's faces end at the solid's. It is for looking at a cut before it is made: nothing is
/// logged.
///
/// part, tool       left intact; matrices are applied
/// inside, outside  empty; receive the part within the tool and the part less the tool. Null for
///                  what is not wanted; one at least is
/// progress         may be empty; what it throws passes
/// returns          of both pieces, each line once. None where the surfaces do not meet, and none
///                  where they meet in so intricate a way that the whole solids had to be combined
///                  by exact arithmetic
/// throws           as Intersect::boolean
/// thread           any; touches only the kernels that it is given
/// cost             as Intersect::boolean, and some tenths of a microsecond for each triangle of
///                  the pieces that lies on the tool
ContourLines splitWithContours(MeshKernel const& part, MeshKernel const& tool, MeshKernel* inside,
                               MeshKernel* outside, std::function<void(int)> const& progress);
