// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CylinderGraphicObject.h"

namespace Freecut {

Base::Type CylinderGraphicObject::classTypeId = Base::Type::badType();
Base::PropertyData CylinderGraphicObject::propertyData;

void CylinderGraphicObject::init()
{
    initSubclass(classTypeId, "Freecut::CylinderGraphicObject", "Freecut::VolumeGraphicObject",
                 create);
    propertyData.parent = VolumeGraphicObject::getPropertyDataPtr();
}

void* CylinderGraphicObject::create()
{
    return new CylinderGraphicObject;
}

CylinderGraphicObject::CylinderGraphicObject()
{
    property.setContainer(this);
}

CylinderGraphicObject::~CylinderGraphicObject() = default;

Base::Type CylinderGraphicObject::getTypeId() const
{
    return classTypeId;
}

std::string CylinderGraphicObject::getClassName() const
{
    return "Freecut::CylinderGraphicObject";
}

Base::PropertyData const& CylinderGraphicObject::getPropertyData() const
{
    return propertyData;
}

std::string CylinderGraphicObject::getViewProviderName() const
{
    return "Freecut::CylinderViewProvider";
}

}  // namespace Freecut
