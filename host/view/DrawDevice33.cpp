// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/DrawDevice33.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions_3_3_Core>

std::unique_ptr<DrawDevice> DrawDevice33::create()
{
    auto* const functions =
        QOpenGLContext::currentContext()->versionFunctions<QOpenGLFunctions_3_3_Core>();
    if (!functions || !functions->initializeOpenGLFunctions())
        return nullptr;
    std::unique_ptr<DrawDevice33> device(new DrawDevice33(functions));
    if (!device->link({"plain33", "part33", "cap33", "outline33"}))
        return nullptr;
    return device;
}

void DrawDevice33::setPolygonMode(GLenum mode)
{
    m_functions->glPolygonMode(GL_FRONT_AND_BACK, mode);
}

void DrawDevice33::setClipping(bool isOn)
{
    isOn ? m_functions->glEnable(GL_CLIP_DISTANCE0) : m_functions->glDisable(GL_CLIP_DISTANCE0);
}
