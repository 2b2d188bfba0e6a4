// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/ContextChoice.h"

#include "platform/view/OpenGLPath.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <optional>

bool g_OPENGL_3_3 = false;

namespace {

using Base::OpenGLPath;

OpenGLPath wantedPath = OpenGLPath::Automatic;

QSurfaceFormat formatOf(bool isCore)
{
    QSurfaceFormat format;
    if (isCore) {
        format.setVersion(3, 3);
        format.setProfile(QSurfaceFormat::CoreProfile);
    } else {
        format.setVersion(2, 1);
    }
    format.setDepthBufferSize(24);
    format.setStencilBufferSize(8);
    return format;
}

bool canMakeCoreContext()
{
    static std::optional<bool> known;
    if (known)
        return *known;
    QOpenGLContext context;
    context.setFormat(formatOf(true));
    known = context.create() && context.format().version() >= qMakePair(3, 3) &&
            context.format().profile() == QSurfaceFormat::CoreProfile;
    if (*known) {
        QOffscreenSurface surface;
        surface.setFormat(context.format());
        surface.create();
        known = context.makeCurrent(&surface);
        context.doneCurrent();
    }
    return *known;
}

OpenGLPath pathByEnvironment()
{
    QByteArray const value = qgetenv("ORBE_OPENGL");
    if (value == "2.1")
        return OpenGLPath::Version21;
    return value == "3.3" ? OpenGLPath::Version33 : OpenGLPath::Automatic;
}

}  // namespace

void Base::setOpenGLPath(OpenGLPath path)
{
    wantedPath = path;
}

QSurfaceFormat chooseContextFormat()
{
    OpenGLPath path = wantedPath;
    if (path == OpenGLPath::Automatic)
        path = pathByEnvironment();
    g_OPENGL_3_3 = path != OpenGLPath::Version21 && canMakeCoreContext();
    return formatOf(g_OPENGL_3_3);
}
