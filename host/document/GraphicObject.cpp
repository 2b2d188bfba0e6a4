// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/GraphicObject.h"

namespace Base {

constinit Type GraphicObject::classTypeId;
constinit PropertyData GraphicObject::propertyData;

void GraphicObject::init()
{
    initSubclass(classTypeId, "Base::GraphicObject", "Base::DocumentObject", create);
    propertyData.parent = DocumentObject::getPropertyDataPtr();
}

void* GraphicObject::create()
{
    return new GraphicObject();
}

Type GraphicObject::getTypeId() const
{
    return classTypeId;
}

std::string GraphicObject::getClassName() const
{
    return "Base::GraphicObject";
}

PropertyData const& GraphicObject::getPropertyData() const
{
    return propertyData;
}

}  // namespace Base
