// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/LineDrawing.h"

// How the translucent faces of a tool are drawn, once for each version of OpenGL. With the view's
// context current; without the functions of the version they do nothing.
namespace Freecut {

/// Faces with light on them, in yellow.
struct FillLook
{
    /// On a scale to 255.
    unsigned alpha;
};

/// normals    uploaded with positions, one for each vertex
/// normalVbo  a buffer name for them
void drawFaces21(Base::GLView& view, LineBuffers const& buffers, unsigned normalVbo,
                 QOpenGLShaderProgram& program, FillLook const& look,
                 std::vector<float> const& positions, std::vector<float> const& normals,
                 std::span<LineRun const> runs);
/// The program finds the normals by itself.
void drawFaces33(Base::GLView& view, LineBuffers const& buffers, QOpenGLShaderProgram& program,
                 FillLook const& look, std::vector<float> const& positions,
                 std::span<LineRun const> runs);

}  // namespace Freecut
