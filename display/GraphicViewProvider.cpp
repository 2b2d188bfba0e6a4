// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/GraphicViewProvider.h"

#include "display/LineShaders.h"
#include "display/ScreenSquare.h"
#include "platform/view/GLView.h"
#include "platform/view/OpenGLPath.h"

#include <QOpenGLShaderProgram>

namespace Freecut {

namespace {

/// Each handle filled, then outlined.
std::vector<LineRun> runsOfQuads(int first, int count)
{
    std::vector<LineRun> runs;
    for (int quad = first; quad < first + count; ++quad) {
        runs.push_back({GL_TRIANGLE_FAN, 4 * quad, 4, true});
        runs.push_back({GL_LINE_LOOP, 4 * quad, 4, false, true});
    }
    return runs;
}

}  // namespace

GraphicViewProvider::~GraphicViewProvider()
{
    if (makeContextCurrent(m_view)) {
        deleteBuffers33(markerVao, markerBuffer);
        if (markerVbo != 0)
            deleteVertexBuffer21(*m_view, markerVbo);
    }
    delete markerShader;
}

void GraphicViewProvider::initGL()
{
    if (!makeContextCurrent(m_view) || !hasLineFunctions(*m_view))
        return;
    markerShader = new QOpenGLShaderProgram;
    if (g_OPENGL_3_3) {
        makeBuffers33(markerVao, markerBuffer);
    } else {
        markerVbo = makeVertexBuffer21(*m_view);
    }
    linkProgram(*markerShader, g_OPENGL_3_3 ? lineShaderSource33 : lineShaderSource21);
}

void GraphicViewProvider::paintGL() {}

void* GraphicViewProvider::reserved1()
{
    return nullptr;
}

void* GraphicViewProvider::reserved2()
{
    return nullptr;
}

void GraphicViewProvider::reserved3() {}

void GraphicViewProvider::reserved4() {}

void GraphicViewProvider::buildMarkers() {}

void GraphicViewProvider::buildMarkersAt(std::vector<UPoint3<float>> const& points)
{
    markerVertices.clear();
    for (UPoint3<float> const& point : points)
        appendScreenSquare(markerVertices, *m_view, point);
}

void GraphicViewProvider::uploadMarkers()
{
    if (markerShader)
        uploadVertices(*m_view, markerBuffers(), markerVertices);
}

void GraphicViewProvider::drawMarkersOf21(Color255 const& color, int first, int count)
{
    if (markerShader)
        drawLines21(*m_view, markerBuffers(), *markerShader,
                    {.color = color, .isOverAll = true, .isSmooth = true},
                    runsOfQuads(first, count));
}

void GraphicViewProvider::drawMarkersOf33(Color255 const& color, int first, int count)
{
    if (markerShader)
        drawLines33(*m_view, markerBuffers(), *markerShader, {.color = color, .isOverAll = true},
                    runsOfQuads(first, count));
}

void GraphicViewProvider::drawMarkersGL21()
{
    uploadMarkers();
    drawMarkersOf21(markerColor, 0, markerCount());
}

void GraphicViewProvider::drawMarkersGL33()
{
    uploadMarkers();
    drawMarkersOf33(markerColor, 0, markerCount());
}

void GraphicViewProvider::drawMarkers()
{
    g_OPENGL_3_3 ? drawMarkersGL33() : drawMarkersGL21();
}

}  // namespace Freecut
