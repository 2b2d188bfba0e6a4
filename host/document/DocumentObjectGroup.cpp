// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/DocumentObjectGroup.h"

#include "host/document/History.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

namespace Mesh {

constinit Base::Type DocumentObjectGroup::classTypeId;

void DocumentObjectGroup::init()
{
    initSubclass(classTypeId, "Mesh::DocumentObjectGroup", "Base::DocumentObject", create);
}

void* DocumentObjectGroup::create()
{
    return new DocumentObjectGroup();
}

Base::Type DocumentObjectGroup::getTypeId() const
{
    return classTypeId;
}

std::string DocumentObjectGroup::getClassName() const
{
    return "Mesh::DocumentObjectGroup";
}

void DocumentObjectGroup::addObject(Base::DocumentObject* object, char const* name)
{
    if (!getDocument())
        throw Mell::Exception(
            QCoreApplication::translate(
                "Document", "Add the group \"%1\" to a document before parts are added to it.")
                .arg(QString::fromStdString(getName()))
                .toStdString());
    getDocument()->addObject(object, name, true);
    auto* const part = dynamic_cast<Mesh::DocumentObject*>(object);
    if (part && part->m_group != this)
        part->setGroup(this);
}

void DocumentObjectGroup::removeObject(Base::DocumentObject* object)
{
    for (Mesh::DocumentObject* const part : getObjects())
        if (part == object)
            part->setGroup(nullptr);
}

std::vector<Mesh::DocumentObject*> DocumentObjectGroup::getObjects() const
{
    std::vector<Mesh::DocumentObject*> parts;
    if (getDocument())
        for (Base::DocumentObject* const object : getDocument()->getObjectArray()) {
            auto* const part = dynamic_cast<Mesh::DocumentObject*>(object);
            if (part && part->getGroup() == this)
                parts.push_back(part);
        }
    return parts;
}

}  // namespace Mesh
