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
    if (!device->link({"plain21", "part21", "cap21", "outline21"}))
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

void DrawDevice21::setClipping(bool isOn)
{
    if (!isOn) {
        m_functions->glDisable(GL_CLIP_PLANE0);
        return;
    }
    // The shaders hand over distances, so the plane must reach the clipping as it is given.
    GLdouble const plane[4] = {1, 0, 0, 0};
    m_functions->glMatrixMode(GL_MODELVIEW);
    m_functions->glPushMatrix();
    m_functions->glLoadIdentity();
    m_functions->glClipPlane(GL_CLIP_PLANE0, plane);
    m_functions->glPopMatrix();
    m_functions->glEnable(GL_CLIP_PLANE0);
}
