// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/MeshDocument.h"

#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/document/RenamePara.h"

namespace Mesh {

RenamePara g_RenamePara;

constinit Base::Type Document::classTypeId;

namespace {

std::vector<DocumentObject*> partsAmong(std::vector<Base::DocumentObject*> const& objects)
{
    std::vector<DocumentObject*> parts;
    for (Base::DocumentObject* const object : objects) {
        std::string const className = object->getClassName();
        if (className == "Mesh::DocumentObject" || className == "Support::DocumentObject")
            if (auto* const part = dynamic_cast<DocumentObject*>(object))
                parts.push_back(part);
    }
    return parts;
}

}  // namespace

void Document::init()
{
    initSubclass(classTypeId, "Mesh::Document", "Base::Document", create);
}

void* Document::create()
{
    return new Document();
}

Base::Type Document::getTypeId() const
{
    return classTypeId;
}

std::string Document::getClassName() const
{
    return "Mesh::Document";
}

std::vector<DocumentObject*> Document::getMeshObjects() const
{
    return partsAmong(getObjectArray());
}

std::vector<DocumentObject*> Document::getPartList() const
{
    std::vector<DocumentObject*> parts = getMeshObjects();
    std::erase_if(parts, [](DocumentObject const* part) { return !part->isVisible(); });
    return parts;
}

std::vector<DocumentObject*> Document::getSelectedMeshObjects() const
{
    return partsAmong(getSelectedObjects());
}

std::vector<DocumentObjectGroup*> Document::getGroups() const
{
    std::vector<DocumentObjectGroup*> groups;
    for (Base::DocumentObject* const object : getObjectArray())
        if (auto* const group = dynamic_cast<DocumentObjectGroup*>(object))
            groups.push_back(group);
    return groups;
}

}  // namespace Mesh
