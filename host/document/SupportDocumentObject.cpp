// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/document/SupportDocumentObject.h"

namespace Support {

constinit Base::Type DocumentObject::classTypeId;

void DocumentObject::init()
{
    initSubclass(classTypeId, "Support::DocumentObject", "Mesh::DocumentObject", create);
}

void* DocumentObject::create()
{
    return new DocumentObject();
}

Base::Type DocumentObject::getTypeId() const
{
    return classTypeId;
}

std::string DocumentObject::getClassName() const
{
    return "Support::DocumentObject";
}

DocumentObject* DocumentObject::shallowCopy() const
{
    auto copy = std::make_unique<DocumentObject>();
    copy->copyFrom(const_cast<DocumentObject*>(this));
    return copy.release();
}

bool DocumentObject::hasSupportCheck() const
{
    return true;
}

std::unique_ptr<Mesh::DocumentObject> makePart(bool carriesSupport)
{
    if (carriesSupport)
        return std::make_unique<DocumentObject>();
    return std::make_unique<Mesh::DocumentObject>();
}

}  // namespace Support
