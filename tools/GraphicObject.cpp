// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/GraphicObject.h"

#include "display/GraphicViewProvider.h"
#include "platform/document/Document.h"

namespace Freecut {

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
