// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/RubberLine.h"

namespace Freecut {

void RubberLine::updateVBO()
{
    vertexData.clear();
    for (UPoint3<float> const& point : points)
        vertexData.insert(vertexData.end(), {point.X(), point.Y(), point.Z()});
}

}  // namespace Freecut
