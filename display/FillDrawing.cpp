// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/FillDrawing.h"

#include "display/VersionFunctions.h"

#include <QOpenGLBuffer>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLFunctions_3_3_Core>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>
#include <QVector4D>

namespace Freecut {

namespace {

QVector4D yellow(FillLook const& look)
{
    return {1, 1, 0, float(look.alpha) / 255.0f};
}

QMatrix4x4 worldToClip(GLCamera const& camera)
{
    return camera.getProjectionMatrix() * camera.getModelViewMatrix();
}

/// Pushes the faces back a little, so that the outlines on them show, and draws them.
template <typename Functions>
void drawOffset(Functions& gl, std::span<LineRun const> runs)
{
    gl.glPolygonOffset(1.0, 2.0);
    gl.glEnable(GL_POLYGON_OFFSET_FILL);
    gl.glEnable(GL_DEPTH_TEST);
    gl.glEnable(GL_BLEND);
    gl.glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    for (LineRun const& run : runs)
        gl.glDrawArrays(run.mode, run.first, run.count);
    gl.glDisable(GL_BLEND);
    gl.glDisable(GL_POLYGON_OFFSET_FILL);
}

void uploadNormals21(QOpenGLFunctions_2_1& gl, unsigned vbo, std::vector<float> const& normals)
{
    gl.glBindBuffer(GL_ARRAY_BUFFER, vbo);
    gl.glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(normals.size() * sizeof(float)), normals.data(),
                    GL_DYNAMIC_DRAW);
    gl.glNormalPointer(GL_FLOAT, 0, nullptr);
}

}  // namespace

void drawFaces21(Base::GLView& view, LineBuffers const& buffers, unsigned normalVbo,
                 QOpenGLShaderProgram& program, FillLook const& look,
                 std::vector<float> const& positions, std::vector<float> const& normals,
                 std::span<LineRun const> runs)
{
    auto* const gl = functionsOf<QOpenGLFunctions_2_1>(view);
    if (!gl || runs.empty())
        return;
    GLCamera const& camera = *view.getCamera();
    uploadVertices(view, buffers, positions);
    program.bind();
    gl->glEnableClientState(GL_VERTEX_ARRAY);
    gl->glEnableClientState(GL_NORMAL_ARRAY);
    gl->glBindBuffer(GL_ARRAY_BUFFER, buffers.vbo);
    gl->glVertexPointer(3, GL_FLOAT, 0, nullptr);
    uploadNormals21(*gl, normalVbo, normals);
    program.setUniformValue("mvp", worldToClip(camera));
    program.setUniformValue("nmv", camera.getModelViewMatrix().normalMatrix());
    program.setUniformValue("selectedcolor", yellow(look));
    gl->glEnable(GL_MULTISAMPLE);

    drawOffset(*gl, runs);

    gl->glDisable(GL_MULTISAMPLE);
    gl->glBindBuffer(GL_ARRAY_BUFFER, 0);
    gl->glDisableClientState(GL_NORMAL_ARRAY);
    gl->glDisableClientState(GL_VERTEX_ARRAY);
    program.release();
}

void drawFaces33(Base::GLView& view, LineBuffers const& buffers, QOpenGLShaderProgram& program,
                 FillLook const& look, std::vector<float> const& positions,
                 std::span<LineRun const> runs)
{
    auto* const gl = functionsOf<QOpenGLFunctions_3_3_Core>(view);
    if (!gl || !buffers.vao || !buffers.buffer || runs.empty())
        return;
    GLCamera const& camera = *view.getCamera();
    UPoint3<float> const eye = camera.get_eye();
    uploadVertices(view, buffers, positions);
    program.bind();
    buffers.vao->bind();
    buffers.buffer->bind();
    program.setAttributeBuffer(0, GL_FLOAT, 0, 3);
    program.enableAttributeArray(0);
    program.setUniformValue("mvp", worldToClip(camera));
    program.setUniformValue("mv", camera.getModelViewMatrix());
    program.setUniformValue("eyeposition", QVector3D(eye.X(), eye.Y(), eye.Z()));
    program.setUniformValue("ifselect", 1);
    program.setUniformValue("constcolor", yellow(look));

    drawOffset(*gl, runs);

    program.disableAttributeArray(0);
    program.release();
    buffers.buffer->release();
    buffers.vao->release();
}

}  // namespace Freecut
