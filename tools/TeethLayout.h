// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/EdgeFrame.h"
#include "tools/TeethParas.h"

#include <vector>

namespace Freecut {

/// Why parameters do not fit an edge.
enum class TeethFault
{
    None,
    /// A puzzle's neck would close.
    HeightAboveWidth,
    OffsetTooLarge,
    DovetailTooWide,
    ToothTooWide,
    /// More teeth than anybody can look at; see mostTeeth.
    TooMany
};

/// As many as can be asked for by count.
constexpr int mostTeeth = 9999;

/// Where the teeth of one edge stand. Teeth may touch and do not overlap.
struct TeethLayout
{
    /// From centre to centre.
    float spacing = 0;
    /// From the start of the edge to the first centre.
    float first = 0;
    /// 0 or less if the edge is too short for one.
    int count = 0;
};

/// Lays teeth out on an edge of a length in millimetres.
///
/// layout  written if there is no fault
TeethFault layOutTeeth(TeethParas const& paras, float edgeLength, TeethLayout& layout);

/// The centres of the teeth.
std::vector<UPoint3<float>> teethCentres(EdgeFrame const& edge, TeethLayout const& layout);

}  // namespace Freecut
