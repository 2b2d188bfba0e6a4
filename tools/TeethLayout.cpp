// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/TeethLayout.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

/// How many teeth there are at a distance; any number above mostTeeth counts as one above it.
int countByDistance(float room, float width, float distance)
{
    double const count = std::trunc((room - width) / distance + 1.0);
    return count <= mostTeeth ? int(std::max(count, 0.0)) : mostTeeth + 1;
}

bool isTooWide(TeethParas const& paras, float spacing)
{
    if (paras.teethStyle == TEETH_DOVETAIL)
        return paras.lowerWidth > spacing || paras.upperWidth > spacing;
    return paras.teethWidth > spacing;
}

}  // namespace

TeethFault layOutTeeth(TeethParas const& paras, float edgeLength, TeethLayout& layout)
{
    if (paras.teethStyle == TEETH_PUZZLE && paras.teethHeight > paras.teethWidth)
        return TeethFault::HeightAboveWidth;
    if (paras.useOffset && paras.teethOffset >= edgeLength)
        return TeethFault::OffsetTooLarge;

    float const offset = paras.useOffset ? paras.teethOffset : 0;
    float const room = edgeLength - offset;
    float const width = paras.toothWidth();
    TeethLayout found;
    found.first = float(offset + width * 0.5);
    if (!paras.isByCount()) {
        found.spacing = paras.teethDistance;
        found.count = countByDistance(room, width, paras.teethDistance);
    } else {
        // One tooth stands at the start; its spacing is its own width, so that it always fits.
        found.count = paras.teethCount;
        found.spacing = found.count < 2 ? width : (room - width) / float(found.count - 1);
    }
    if (isTooWide(paras, found.spacing))
        return paras.teethStyle == TEETH_DOVETAIL ? TeethFault::DovetailTooWide
                                                  : TeethFault::ToothTooWide;
    if (found.count > mostTeeth)
        return TeethFault::TooMany;
    layout = found;
    return TeethFault::None;
}

std::vector<UPoint3<float>> teethCentres(EdgeFrame const& edge, TeethLayout const& layout)
{
    std::vector<UPoint3<float>> centres;
    centres.reserve(std::size_t(std::max(layout.count, 0)));
    for (int j = 0; j < layout.count; ++j)
        centres.push_back(edge.a + edge.dir * layout.first +
                          (edge.dir * float(j)) * layout.spacing);
    return centres;
}

}  // namespace Freecut
