// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QOpenGLShaderProgram;

namespace Freecut {

/// The sources of the programs that draw in one colour: uniforms "mvp" (mat4, world to clip space)
/// and "clr" (vec4); positions at attribute 0 by OpenGL 3.3, in the vertex array by 2.1.
struct LineShader
{
    char const* vertex;
    char const* fragment;
};

extern LineShader const lineShaderSource21;
extern LineShader const lineShaderSource33;
/// The cut plane's own by OpenGL 3.3.
extern LineShader const planeShaderSource33;

/// Compiles and links. Needs the context current; a failure shows as nothing drawn.
void linkProgram(QOpenGLShaderProgram& program, LineShader const& source);

}  // namespace Freecut
