// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/GraphicViewProvider.h"

#include "display/LineShaders.h"
#include "display/ScreenSquare.h"
#include "platform/view/GLView.h"
#include "platform/view/OpenGLPath.h"

#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

namespace Freecut {

Base::Type GraphicViewProvider::classTypeId = Base::Type::badType();

void GraphicViewProvider::init()
{
    initSubclass(classTypeId, "Freecut::GraphicViewProvider", "Base::GraphicViewProvider", create);
}

void* GraphicViewProvider::create()
{
    return nullptr;
}

GraphicViewProvider::~GraphicViewProvider()
{
    if (makeContextCurrent(m_view)) {
        deleteBuffers33(markerVao, markerBuffer);
        if (markerVbo != 0)
            deleteVertexBuffer21(*m_view, markerVbo);
    }
    delete markerShader;
}

Base::Type GraphicViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string GraphicViewProvider::getClassName() const
{
    return "Freecut::GraphicViewProvider";
}

void GraphicViewProvider::initGL()
{
    if (!makeContextCurrent(m_view) || !hasLineFunctions(*m_view))
        return;
    markerShader = new QOpenGLShaderProgram;
    if (g_OPENGL_3_3) {
        markerVao = new QOpenGLVertexArrayObject;
        markerVao->create();
        markerBuffer = new QOpenGLBuffer(QOpenGLBuffer::VertexBuffer);
        markerBuffer->create();
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

std::vector<LineRun> GraphicViewProvider::markerRuns() const
{
    std::vector<LineRun> runs;
    for (int first = 0; first < int(markerVertices.size() / 3); first += 4) {
        runs.push_back({GL_TRIANGLE_FAN, first, 4, true});
        runs.push_back({GL_LINE_LOOP, first, 4});
    }
    return runs;
}

void GraphicViewProvider::drawMarkersGL21()
{
    if (!markerShader)
        return;
    LineBuffers const buffers{.vbo = markerVbo};
    uploadVertices(*m_view, buffers, markerVertices);
    drawLines21(*m_view, buffers, *markerShader,
                {.color = markerColor, .isOverAll = true, .isSmooth = true}, markerRuns());
}

void GraphicViewProvider::drawMarkersGL33()
{
    if (!markerShader)
        return;
    LineBuffers const buffers{.vao = markerVao, .buffer = markerBuffer};
    uploadVertices(*m_view, buffers, markerVertices);
    drawLines33(*m_view, buffers, *markerShader, {.color = markerColor, .isOverAll = true},
                markerRuns());
}

void GraphicViewProvider::drawMarkers()
{
    g_OPENGL_3_3 ? drawMarkersGL33() : drawMarkersGL21();
}

}  // namespace Freecut
