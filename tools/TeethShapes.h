// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/EdgeFrame.h"
#include "tools/TeethParas.h"

#include <vector>

namespace Freecut {

/// A row of teeth on an edge.
struct TeethRow
{
    /// The outline between the ends of the edge, in its direction.
    std::vector<UPoint3<float>> points;
    /// The handle of each tooth.
    std::vector<UPoint3<float>> handles;
};

/// The teeth with these centres. A point that repeats an end of the edge, or the last point of the
/// tooth before, is left out.
TeethRow rowOfTeeth(TeethParas const& paras, EdgeFrame const& edge,
                    std::vector<UPoint3<float>> const& centres);

}  // namespace Freecut
