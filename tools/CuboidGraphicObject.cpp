// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CuboidGraphicObject.h"

namespace Freecut {

Base::Type CuboidGraphicObject::classTypeId = Base::Type::badType();
Base::PropertyData CuboidGraphicObject::propertyData;

void CuboidGraphicObject::init()
{
    initSubclass(classTypeId, "Freecut::CuboidGraphicObject", "Freecut::VolumeGraphicObject",
                 create);
    propertyData.parent = VolumeGraphicObject::getPropertyDataPtr();
}

void* CuboidGraphicObject::create()
{
    return new CuboidGraphicObject;
}

CuboidGraphicObject::CuboidGraphicObject()
{
    property.setContainer(this);
}

CuboidGraphicObject::~CuboidGraphicObject() = default;

Base::Type CuboidGraphicObject::getTypeId() const
{
    return classTypeId;
}

std::string CuboidGraphicObject::getClassName() const
{
    return "Freecut::CuboidGraphicObject";
}

Base::PropertyData const& CuboidGraphicObject::getPropertyData() const
{
    return propertyData;
}

std::string CuboidGraphicObject::getViewProviderName() const
{
    return "Freecut::CuboidViewProvider";
}

}  // namespace Freecut
