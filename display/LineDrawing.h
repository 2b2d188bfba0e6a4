// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGui/qopengl.h>

#include <array>
#include <span>
#include <vector>

class QOpenGLBuffer;
class QOpenGLShaderProgram;
class QOpenGLVertexArrayObject;

namespace Base {
class GLView;
}

/// How tools and marks draw points, lines, areas and the faces of solids in one colour: what they draw
/// is said once, as runs of vertices; how it is drawn is written here, once for each version of OpenGL.
///
/// thread  the user interface thread
namespace Freecut {

/// Four components on a scale to 255: red, green, blue, alpha.
using Color255 = std::array<float, 4>;

/// Vertices on the device, three floats each, as the owner keeps them. By OpenGL 2.1 only the names
/// are used, by 3.3 only vao and buffer. Borrowed.
struct LineBuffers
{
    unsigned vbo = 0;
    /// Of the vertices' normals, where faces are drawn.
    unsigned normalVbo = 0;
    QOpenGLVertexArrayObject* vao = nullptr;
    QOpenGLBuffer* buffer = nullptr;
};

/// Some of the vertices, in order.
struct LineRun
{
    GLenum mode;
    int first;
    int count;
    /// Blended by its alpha; otherwise the colour counts as opaque.
    bool isBlended = false;
    /// Lines are a pixel of the device wide, not one of the window: around areas whose size counts.
    bool isFine = false;
};

struct LineLook
{
    Color255 color;
    /// Drawn over the parts, and without a trace in depth.
    bool isOverAll = false;
    /// By OpenGL 2.1: with several samples per pixel.
    bool isSmooth = false;
    /// By OpenGL 2.1: the depth test stays off after drawing over the parts.
    bool leavesDepthTestOff = false;
    /// Faces with light on them, pushed back a little so that the outlines on them show. By OpenGL 2.1
    /// they need normals; the program of 3.3 finds them by itself.
    bool isLit = false;
};

/// Makes the view's context current; false if it has none yet, or none any more.
bool makeContextCurrent(Base::GLView* view);
/// Whether the view's context has the functions of the version in use.
bool hasLineFunctions(Base::GLView& view);

// All of these with the view's context current. Without the functions they do nothing.

/// A buffer name of OpenGL 2.1.
unsigned makeVertexBuffer21(Base::GLView& view);
void deleteVertexBuffer21(Base::GLView& view, unsigned& vbo);
/// What OpenGL 3.3 needs.
void makeBuffers33(QOpenGLVertexArrayObject*& vao, QOpenGLBuffer*& buffer);
void deleteBuffers33(QOpenGLVertexArrayObject*& vao, QOpenGLBuffer*& buffer);

void uploadVertices(Base::GLView& view, LineBuffers const& buffers,
                    std::vector<float> const& vertices);
/// By OpenGL 2.1 alone: one normal for each vertex.
void uploadNormals21(Base::GLView& view, LineBuffers const& buffers,
                     std::vector<float> const& normals);

/// Draws runs of what was uploaded, seen by the view's camera.
void drawLines21(Base::GLView& view, LineBuffers const& buffers, QOpenGLShaderProgram& program,
                 LineLook const& look, std::span<LineRun const> runs);
void drawLines33(Base::GLView& view, LineBuffers const& buffers, QOpenGLShaderProgram& program,
                 LineLook const& look, std::span<LineRun const> runs);

}  // namespace Freecut
