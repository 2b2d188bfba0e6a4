// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/GLGraphicsItem.h"

#include "display/LineShaders.h"
#include "platform/view/GLView.h"
#include "platform/view/OpenGLPath.h"

#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

namespace Freecut {

GLGraphicsItem::GLGraphicsItem(Base::GLView* view) : viewer(view) {}

GLGraphicsItem::~GLGraphicsItem()
{
    if (makeContextCurrent(viewer))
        g_OPENGL_3_3 ? releaseShader_GL_3_3() : releaseShader_GL_2_1();
    // Of a view that has gone, these have nothing left on the device.
    delete vao;
    delete buffer;
    delete program;
}

void GLGraphicsItem::setColor(float red, float green, float blue, float alpha)
{
    color = {red, green, blue, alpha};
}

void GLGraphicsItem::initGL()
{
    if (!makeContextCurrent(viewer) || !hasLineFunctions(*viewer))
        return;
    g_OPENGL_3_3 ? initShader_GL_3_3() : initShader_GL_2_1();
}

void GLGraphicsItem::initShader_GL_2_1()
{
    vbo = makeVertexBuffer21(*viewer);
    program = new QOpenGLShaderProgram;
    linkProgram(*program, lineShaderSource21);
}

void GLGraphicsItem::initShader_GL_3_3()
{
    makeBuffers33(vao, buffer);
    program = new QOpenGLShaderProgram;
    linkProgram(*program, lineShaderSource33);
}

void GLGraphicsItem::releaseShader_GL_2_1()
{
    if (hasLineFunctions(*viewer))
        deleteVertexBuffer21(*viewer, vbo);
}

void GLGraphicsItem::releaseShader_GL_3_3()
{
    if (hasLineFunctions(*viewer))
        deleteBuffers33(vao, buffer);
}

void GLGraphicsItem::paintGL()
{
    if (!working)
        return;
    updateVBO();
    if (!makeContextCurrent(viewer) || !program)
        return;
    g_OPENGL_3_3 ? renderItem_GL_3_3() : renderItem_GL_2_1();
}

void GLGraphicsItem::updateVBO() {}

void GLGraphicsItem::render_GL_3_3(std::span<LineRun const> runs)
{
    LineBuffers const buffers{.vao = vao, .buffer = buffer};
    uploadVertices(*viewer, buffers, vertexData);
    drawLines33(*viewer, buffers, *program, {.color = color, .isOverAll = true}, runs);
}

void GLGraphicsItem::render_GL_2_1(std::span<LineRun const> runs, bool isSmooth,
                                   bool leavesDepthTestOff)
{
    LineBuffers const buffers{.vbo = vbo};
    uploadVertices(*viewer, buffers, vertexData);
    drawLines21(*viewer, buffers, *program,
                {.color = color,
                 .isOverAll = true,
                 .isSmooth = isSmooth,
                 .leavesDepthTestOff = leavesDepthTestOff},
                runs);
}

void GLGraphicsItem::renderItem_GL_3_3()
{
    LineRun const line{GL_LINE_STRIP, 0, vertexCount()};
    render_GL_3_3({&line, 1});
}

void GLGraphicsItem::renderItem_GL_2_1()
{
    LineRun const line{GL_LINE_STRIP, 0, vertexCount()};
    render_GL_2_1({&line, 1}, false, false);
}

}  // namespace Freecut
