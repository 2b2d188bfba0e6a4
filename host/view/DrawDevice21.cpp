// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/DrawDevice21.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions_2_1>

std::unique_ptr<DrawDevice> DrawDevice21::create()
{
    auto* const functions =
        QOpenGLContext::currentContext()->versionFunctions<QOpenGLFunctions_2_1>();
    if (!functions || !functions->initializeOpenGLFunctions())
        return nullptr;
    std::unique_ptr<DrawDevice21> device(new DrawDevice21(functions));
    if (!device->link({"plain21", "part21"}))
        return nullptr;
    return device;
}

void DrawDevice21::setPolygonMode(GLenum mode)
{
    m_functions->glPolygonMode(GL_FRONT_AND_BACK, mode);
}

void DrawDevice21::resetState()
{
    DrawDevice::resetState();
    m_functions->glShadeModel(GL_FLAT);
    m_functions->glDisableClientState(GL_VERTEX_ARRAY);
    m_functions->glDisableClientState(GL_NORMAL_ARRAY);
}
