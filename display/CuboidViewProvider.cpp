// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/CuboidViewProvider.h"

#include "tools/CuboidGraphicObject.h"
#include "tools/CuboidOutline.h"

namespace Freecut {

Base::Type CuboidViewProvider::classTypeId = Base::Type::badType();

void CuboidViewProvider::init()
{
    initSubclass(classTypeId, "Freecut::CuboidViewProvider", "Freecut::VolumeViewProvider", create);
}

void* CuboidViewProvider::create()
{
    return new CuboidViewProvider;
}

Base::Type CuboidViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string CuboidViewProvider::getClassName() const
{
    return "Freecut::CuboidViewProvider";
}

void CuboidViewProvider::initGL()
{
    initSolidGL();
}

void CuboidViewProvider::buildMarkers()
{
    if (m_object)
        buildMarkersAt(static_cast<CuboidGraphicObject*>(m_object)->getProperty().getKeyPoints());
}

std::unique_ptr<VolumeOutline> CuboidViewProvider::makeOutline() const
{
    auto* const tool = static_cast<CuboidGraphicObject*>(getObject());
    return std::make_unique<CuboidOutline>(tool->getProperty());
}

}  // namespace Freecut
