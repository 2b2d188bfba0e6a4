// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ToolOutlines.h"

namespace Freecut {

void ToolOutlines::clear()
{
    for (Loops* const loops : {&solidLoops, &residualLoops, &roundedLoops, &outerLoops, &innerLoops,
                               &topLoops, &bottomLoops, &teethLoops})
        loops->clear();
    for (std::vector<float>* const buffer :
         {&outlineBuffer, &outerBuffer, &innerBuffer, &teethBuffer, &previewBuffer, &normalBuffer})
        buffer->clear();
    problem.clear();
}

void ToolOutlines::refuse(std::string why, Loops drawn)
{
    Loops teeth = std::move(teethLoops);
    clear();
    problem = std::move(why);
    residualLoops = std::move(drawn);
    teethLoops = std::move(teeth);
}

Loops translated(Loops loops, UVector3<float> const& by)
{
    for (Ring& ring : loops)
        for (UPoint3<float>& point : ring)
            point += by;
    return loops;
}

Loops withoutLastPoints(Loops loops)
{
    for (Ring& ring : loops)
        if (!ring.empty())
            ring.pop_back();
    return loops;
}

}  // namespace Freecut
