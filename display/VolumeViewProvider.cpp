// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/VolumeViewProvider.h"

#include "platform/view/GLView.h"
#include "platform/view/OpenGLPath.h"
#include "tools/VolumeOutline.h"

namespace Freecut {

Base::Type VolumeViewProvider::classTypeId = Base::Type::badType();

void VolumeViewProvider::init()
{
    initSubclass(classTypeId, "Freecut::VolumeViewProvider", "Freecut::GraphicViewProvider",
                 create);
}

void* VolumeViewProvider::create()
{
    return new VolumeViewProvider;
}

VolumeViewProvider::VolumeViewProvider() = default;

VolumeViewProvider::~VolumeViewProvider() = default;

Base::Type VolumeViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string VolumeViewProvider::getClassName() const
{
    return "Freecut::VolumeViewProvider";
}

void VolumeViewProvider::updateGeometry()
{
    Base::GLView const* const view = getGLViewer();
    if (!view || !getObject())
        return;
    if (!outline)
        outline = makeOutline();
    if (outline)
        outline->update(*view->getCamera(), viewChanged, g_OPENGL_3_3);
}

void VolumeViewProvider::buildSolidBuffers()
{
    if (outline)
        outline->buildSolidBuffers(g_OPENGL_3_3);
}

std::unique_ptr<VolumeOutline> VolumeViewProvider::makeOutline() const
{
    return nullptr;
}

}  // namespace Freecut
