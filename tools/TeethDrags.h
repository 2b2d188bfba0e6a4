// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/EdgeFrame.h"
#include "tools/TeethParas.h"

#include <cstddef>
#include <vector>

namespace Freecut {

/// The way by which a tooth may slide along its edge; zero if it would get too near to a neighbour
/// or an end of the edge. A tooth cannot pass the start of its edge: it turns back there.
///
/// centres  of all teeth of the edge
/// way      the way of the mouse, in the world
UVector3<float> slideOfTooth(TeethParas const& paras, EdgeFrame const& edge,
                             std::vector<UPoint3<float>> const& centres, std::size_t tooth,
                             UVector3<float> const& way);

/// What parameters become when the handle of a tooth is dragged to a place beside its centre. Teeth
/// that would get too wide for the gaps between them keep their widths.
///
/// fromCentre  the handle's new place from the tooth's centre, in the world
TeethParas reshapedTeeth(TeethParas const& paras, EdgeFrame const& edge,
                         std::vector<UPoint3<float>> const& centres,
                         UVector3<float> const& fromCentre);

}  // namespace Freecut
