// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/GLView.h"

#include <QOpenGLContext>

namespace Freecut {

/// The functions of a version of OpenGL in a view's context, which is current; null if the context
/// is of another version.
template <typename Functions>
Functions* functionsOf(Base::GLView& view)
{
    QOpenGLContext* const context = view.context();
    auto* const gl = context ? context->versionFunctions<Functions>() : nullptr;
    return gl && gl->initializeOpenGLFunctions() ? gl : nullptr;
}

}  // namespace Freecut
