// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Views draw by OpenGL 3.3 core; otherwise by 2.1. It follows the contexts that this machine can
/// make from the moment the first view is about to be drawn, and is the same for all views.
extern bool g_OPENGL_3_3;

namespace Base {

enum class OpenGLPath
{
    /// 3.3 if a core context of that version can be made. The environment variable ORBE_OPENGL with
    /// the value "2.1" or "3.3" decides instead, if it is set.
    Automatic,
    Version21,
    Version33
};

/// Decides how views draw that have not been drawn yet.
void setOpenGLPath(OpenGLPath path);

}  // namespace Base
