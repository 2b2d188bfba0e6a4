// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/document/DocumentProject.h"

#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/document/SupportDocumentObject.h"

#include <unordered_map>

namespace {

using Formats::ProjectObject;

void takeLook(ProjectObject& taken, Base::DocumentObject const& object)
{
    taken.uuid = object.getUuid();
    taken.parentUuid = object.getParentUuid();
    taken.name = object.getName();
    taken.isVisible = object.isVisible();
    taken.isSemiVisible = object.isSemiVisible();
    taken.color = object.getColor();
}

void giveLook(Base::DocumentObject& object, ProjectObject const& given)
{
    if (!given.uuid.empty())
        object.setUuid(given.uuid);
    object.setParentUuid(given.parentUuid);
    object.setName(given.name);
    object.setColor(given.color);
    object.setVisible(given.isVisible);
    object.setSemiVisible(given.isSemiVisible);
}

}  // namespace

std::vector<ProjectObject> projectOf(Mesh::Document const& document)
{
    std::vector<ProjectObject> objects;
    for (Base::DocumentObject* const object : document.getObjectArray()) {
        ProjectObject taken;
        if (dynamic_cast<Mesh::DocumentObjectGroup const*>(object)) {
            taken.kind = ProjectObject::Kind::Group;
        } else if (auto const* const part = dynamic_cast<Mesh::DocumentObject const*>(object)) {
            taken.kernel = part->meshProperty->shareMesh();
            taken.isSupport = part->getClassName() == "Support::DocumentObject";
            if (part->getGroup())
                taken.groupUuid = part->getGroup()->getUuid();
        } else {
            continue;
        }
        takeLook(taken, *object);
        objects.push_back(std::move(taken));
    }
    return objects;
}

void addProject(Mesh::Document& document, std::vector<ProjectObject> objects)
{
    std::unordered_map<std::string, Mesh::DocumentObjectGroup*> groups;
    std::vector<std::pair<Mesh::DocumentObject*, std::string>> members;
    for (ProjectObject& given : objects) {
        std::unique_ptr<Base::DocumentObject> object;
        if (given.kind == ProjectObject::Kind::Group) {
            auto group = std::make_unique<Mesh::DocumentObjectGroup>();
            groups[given.uuid] = group.get();
            object = std::move(group);
        } else {
            std::unique_ptr<Mesh::DocumentObject> part = Support::makePart(given.isSupport);
            part->meshProperty->setMesh(std::move(given.kernel));
            members.emplace_back(part.get(), given.groupUuid);
            object = std::move(part);
        }
        giveLook(*object, given);
        document.addObject(object.release(), nullptr, true);
    }
    for (auto const& [part, groupUuid] : members)
        if (auto const group = groups.find(groupUuid); group != groups.end())
            group->second->addObject(part, nullptr);
}
