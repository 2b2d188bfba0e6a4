// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/Property.h"

#include "platform/document/DocumentObject.h"

namespace Base {

constinit Type Property::classTypeId;

void Property::init()
{
    initSubclass(classTypeId, "Base::Property", "Base::Persistence", nullptr);
}

Type Property::getTypeId() const
{
    return classTypeId;
}

std::string Property::getClassName() const
{
    return "Base::Property";
}

void Property::setContainer(DocumentObject* container)
{
    m_container = container;
}

void Property::freeMemory() {}

void Property::updateMemory() {}

bool Property::isMemoryFree() const
{
    return false;
}

std::size_t Property::getFileSize() const
{
    return 0;
}

void Property::aboutToChange()
{
    if (m_container)
        m_container->onBeforeChange(this);
}

void Property::hasChanged()
{
    if (m_container)
        m_container->onChanged(this);
}

}  // namespace Base
