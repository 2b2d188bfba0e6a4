// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PolygonViewProvider.h"

#include "tools/PolygonGraphicObject.h"
#include "tools/PolygonOutline.h"

namespace Freecut {

Base::Type PolygonViewProvider::classTypeId = Base::Type::badType();

void PolygonViewProvider::init()
{
    initSubclass(classTypeId, "Freecut::PolygonViewProvider", "Freecut::VolumeViewProvider",
                 create);
}

void* PolygonViewProvider::create()
{
    return new PolygonViewProvider;
}

Base::Type PolygonViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string PolygonViewProvider::getClassName() const
{
    return "Freecut::PolygonViewProvider";
}

std::unique_ptr<VolumeOutline> PolygonViewProvider::makeOutline() const
{
    auto* const tool = static_cast<PolygonGraphicObject*>(getObject());
    return std::make_unique<PolygonOutline>(tool->getProperty());
}

}  // namespace Freecut
