// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PlaneGraphicObject.h"

namespace Freecut {

Base::Type PlaneGraphicObject::classTypeId = Base::Type::badType();
Base::PropertyData PlaneGraphicObject::propertyData;

void PlaneGraphicObject::init()
{
    initSubclass(classTypeId, "Freecut::PlaneGraphicObject", "Freecut::GraphicObject", create);
    propertyData.parent = GraphicObject::getPropertyDataPtr();
}

void* PlaneGraphicObject::create()
{
    return new PlaneGraphicObject;
}

PlaneGraphicObject::PlaneGraphicObject()
{
    property.setContainer(this);
}

PlaneGraphicObject::~PlaneGraphicObject() = default;

Base::Type PlaneGraphicObject::getTypeId() const
{
    return classTypeId;
}

std::string PlaneGraphicObject::getClassName() const
{
    return "Freecut::PlaneGraphicObject";
}

Base::PropertyData const& PlaneGraphicObject::getPropertyData() const
{
    return propertyData;
}

std::string PlaneGraphicObject::getViewProviderName() const
{
    return "Freecut::PlaneViewProvider";
}

}  // namespace Freecut
