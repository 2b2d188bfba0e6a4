// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/GraphicObject.h"

#include "display/GraphicViewProvider.h"
#include "platform/document/Document.h"

namespace Freecut {

Base::Type GraphicObject::classTypeId = Base::Type::badType();
Base::PropertyData GraphicObject::propertyData;

void GraphicObject::init()
{
    initSubclass(classTypeId, "Freecut::GraphicObject", "Base::GraphicObject", create);
    propertyData.parent = Base::GraphicObject::getPropertyDataPtr();
}

void* GraphicObject::create()
{
    return nullptr;
}

Base::Type GraphicObject::getTypeId() const
{
    return classTypeId;
}

std::string GraphicObject::getClassName() const
{
    return "Freecut::GraphicObject";
}

Base::PropertyData const& GraphicObject::getPropertyData() const
{
    return propertyData;
}

std::string GraphicObject::getViewProviderName() const
{
    return "Freecut::GraphicViewProvider";
}

Base::DocumentObject* GraphicObject::deepCopy() const
{
    return nullptr;
}

void GraphicObject::copyFrom(Base::DocumentObject*) {}

bool GraphicObject::load(char const*)
{
    return false;
}

void GraphicObject::freeMemory() {}

GraphicViewProvider* GraphicObject::getViewProvider() const
{
    // Made by the name that a tool gives, so it is of this family.
    Base::Document const* const document = getDocument();
    return document ? static_cast<GraphicViewProvider*>(document->getViewProvider(this)) : nullptr;
}

}  // namespace Freecut
