// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/LineDrawing.h"

#include "display/VersionFunctions.h"
#include "platform/view/OpenGLPath.h"

#include <QOpenGLBuffer>
#include <QOpenGLContext>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLFunctions_3_3_Core>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>
#include <QVector4D>

#include <array>

namespace Freecut {

namespace {

QVector4D unitColor(Color255 const& color)
{
    auto const unit = [&](int i) { return float(color[i] / 255.0); };
    return {unit(0), unit(1), unit(2), unit(3)};
}

void setLight21(GLCamera const& camera, QOpenGLShaderProgram& program, QVector4D const& color)
{
    program.setUniformValue("nmv", camera.getModelViewMatrix().normalMatrix());
    program.setUniformValue("selectedcolor", color);
}

void setLight33(GLCamera const& camera, QOpenGLShaderProgram& program, QVector4D const& color)
{
    UPoint3<float> const eye = camera.get_eye();
    program.setUniformValue("mv", camera.getModelViewMatrix());
    program.setUniformValue("eyeposition", QVector3D(eye.X(), eye.Y(), eye.Z()));
    program.setUniformValue("ifselect", 1);
    program.setUniformValue("constcolor", color);
}

void setUniforms(Base::GLView const& view, QOpenGLShaderProgram& program, LineLook const& look)
{
    GLCamera const& camera = *view.getCamera();
    QVector4D const color = unitColor(look.color);
    program.setUniformValue("mvp", camera.getProjectionMatrix() * camera.getModelViewMatrix());
    if (!look.isLit)
        program.setUniformValue("clr", color);
    else
        (g_OPENGL_3_3 ? setLight33 : setLight21)(camera, program, color);
}

template <typename Functions>
void setPushedBack(Functions& gl, bool isOn)
{
    if (!isOn) {
        gl.glDisable(GL_POLYGON_OFFSET_FILL);
        return;
    }
    gl.glPolygonOffset(1.0, 2.0);
    gl.glEnable(GL_POLYGON_OFFSET_FILL);
}

bool isLine(LineRun const& run)
{
    return run.mode == GL_LINES || run.mode == GL_LINE_STRIP || run.mode == GL_LINE_LOOP;
}

/// Draws lines as wide as a pixel of the window, which holds several of the device's: OpenGL 3.3 has
/// no wide lines, so they are drawn beside themselves.
template <typename Functions>
void drawWide(Functions& gl, LineRun const& run, int width)
{
    std::array<GLint, 4> viewport;
    gl.glGetIntegerv(GL_VIEWPORT, viewport.data());
    for (int x = 0; x < width; ++x)
        for (int y = 0; y < width; ++y) {
            gl.glViewport(viewport[0] + x, viewport[1] + y, viewport[2], viewport[3]);
            gl.glDrawArrays(run.mode, run.first, run.count);
        }
    gl.glViewport(viewport[0], viewport[1], viewport[2], viewport[3]);
}

/// width  of lines, in pixels of the device; blended ones, which would cover themselves, have one
template <typename Functions>
void drawRuns(Functions& gl, LineLook const& look, std::span<LineRun const> runs, int width)
{
    if (look.isLit)
        setPushedBack(gl, true);
    for (LineRun const& run : runs) {
        if (run.isBlended) {
            gl.glEnable(GL_BLEND);
            gl.glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        }
        if (width > 1 && isLine(run) && !run.isBlended && !run.isFine)
            drawWide(gl, run, width);
        else
            gl.glDrawArrays(run.mode, run.first, run.count);
        if (run.isBlended)
            gl.glDisable(GL_BLEND);
    }
    if (look.isLit)
        setPushedBack(gl, false);
}

template <typename Functions>
void setDepthTest(Functions& gl, bool isOn)
{
    isOn ? gl.glEnable(GL_DEPTH_TEST) : gl.glDisable(GL_DEPTH_TEST);
}

}  // namespace

bool makeContextCurrent(Base::GLView* view)
{
    if (!view || !view->isValid())
        return false;
    // Within a picture it is, and the view would turn away from where the picture is being drawn.
    if (QOpenGLContext::currentContext() != view->context())
        view->makeCurrent();
    return true;
}

bool hasLineFunctions(Base::GLView& view)
{
    return g_OPENGL_3_3 ? functionsOf<QOpenGLFunctions_3_3_Core>(view) != nullptr
                        : functionsOf<QOpenGLFunctions_2_1>(view) != nullptr;
}

unsigned makeVertexBuffer21(Base::GLView& view)
{
    unsigned vbo = 0;
    if (auto* const gl = functionsOf<QOpenGLFunctions_2_1>(view))
        gl->glGenBuffers(1, &vbo);
    return vbo;
}

void deleteVertexBuffer21(Base::GLView& view, unsigned& vbo)
{
    if (auto* const gl = functionsOf<QOpenGLFunctions_2_1>(view))
        gl->glDeleteBuffers(1, &vbo);
    vbo = 0;
}

void makeBuffers33(QOpenGLVertexArrayObject*& vao, QOpenGLBuffer*& buffer)
{
    vao = new QOpenGLVertexArrayObject;
    vao->create();
    buffer = new QOpenGLBuffer(QOpenGLBuffer::VertexBuffer);
    buffer->create();
}

void deleteBuffers33(QOpenGLVertexArrayObject*& vao, QOpenGLBuffer*& buffer)
{
    if (vao)
        vao->destroy();
    if (buffer)
        buffer->destroy();
    delete vao;
    delete buffer;
    vao = nullptr;
    buffer = nullptr;
}

void uploadVertices(Base::GLView& view, LineBuffers const& buffers,
                    std::vector<float> const& vertices)
{
    auto const bytes = vertices.size() * sizeof(float);
    if (g_OPENGL_3_3) {
        if (!buffers.buffer)
            return;
        if (!buffers.buffer->isCreated())
            buffers.buffer->create();
        buffers.buffer->bind();
        buffers.buffer->allocate(vertices.data(), int(bytes));
        buffers.buffer->release();
        return;
    }
    if (auto* const gl = functionsOf<QOpenGLFunctions_2_1>(view)) {
        gl->glBindBuffer(GL_ARRAY_BUFFER, buffers.vbo);
        gl->glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(bytes), vertices.data(), GL_STATIC_DRAW);
        gl->glBindBuffer(GL_ARRAY_BUFFER, 0);
    }
}

void uploadNormals21(Base::GLView& view, LineBuffers const& buffers,
                     std::vector<float> const& normals)
{
    auto* const gl = functionsOf<QOpenGLFunctions_2_1>(view);
    if (!gl)
        return;
    gl->glBindBuffer(GL_ARRAY_BUFFER, buffers.normalVbo);
    gl->glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(normals.size() * sizeof(float)), normals.data(),
                     GL_DYNAMIC_DRAW);
    gl->glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void drawLines21(Base::GLView& view, LineBuffers const& buffers, QOpenGLShaderProgram& program,
                 LineLook const& look, std::span<LineRun const> runs)
{
    auto* const gl = functionsOf<QOpenGLFunctions_2_1>(view);
    if (!gl)
        return;
    gl->glEnableClientState(GL_VERTEX_ARRAY);
    gl->glBindBuffer(GL_ARRAY_BUFFER, buffers.vbo);
    gl->glVertexPointer(3, GL_FLOAT, 0, nullptr);
    if (look.isLit) {
        gl->glEnableClientState(GL_NORMAL_ARRAY);
        gl->glBindBuffer(GL_ARRAY_BUFFER, buffers.normalVbo);
        gl->glNormalPointer(GL_FLOAT, 0, nullptr);
    }
    program.bind();
    setUniforms(view, program, look);
    setDepthTest(*gl, !look.isOverAll);
    if (look.isSmooth)
        gl->glEnable(GL_MULTISAMPLE);

    drawRuns(*gl, look, runs, qRound(view.devicePixelRatioF()));

    setDepthTest(*gl, !look.leavesDepthTestOff);
    gl->glBindBuffer(GL_ARRAY_BUFFER, 0);
    gl->glDisableClientState(GL_NORMAL_ARRAY);
    gl->glDisableClientState(GL_VERTEX_ARRAY);
    program.release();
    gl->glDisable(GL_MULTISAMPLE);
}

void drawLines33(Base::GLView& view, LineBuffers const& buffers, QOpenGLShaderProgram& program,
                 LineLook const& look, std::span<LineRun const> runs)
{
    auto* const gl = functionsOf<QOpenGLFunctions_3_3_Core>(view);
    if (!gl || !buffers.vao || !buffers.buffer)
        return;
    program.bind();
    buffers.vao->bind();
    buffers.buffer->bind();
    program.setAttributeBuffer(0, GL_FLOAT, 0, 3);
    program.enableAttributeArray(0);
    setUniforms(view, program, look);
    setDepthTest(*gl, !look.isOverAll);

    drawRuns(*gl, look, runs, qRound(view.devicePixelRatioF()));

    gl->glEnable(GL_DEPTH_TEST);
    program.disableAttributeArray(0);
    program.release();
    buffers.buffer->release();
    buffers.vao->release();
}

}  // namespace Freecut
