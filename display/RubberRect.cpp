// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/RubberRect.h"

#include "display/ScreenSquare.h"

#include <array>

namespace Freecut {

namespace {

std::array<LineRun, 2> fillAndOutline(int count)
{
    return {{{GL_TRIANGLE_FAN, 0, count, true}, {GL_LINE_LOOP, 0, count, false, true}}};
}

}  // namespace

void RubberRect::updateVBO()
{
    vertexData.clear();
    if (viewer)
        appendScreenSquare(vertexData, *viewer, center);
}

void RubberRect::renderItem_GL_3_3()
{
    render_GL_3_3(fillAndOutline(vertexCount()));
}

void RubberRect::renderItem_GL_2_1()
{
    render_GL_2_1(fillAndOutline(vertexCount()), true, true);
}

}  // namespace Freecut
