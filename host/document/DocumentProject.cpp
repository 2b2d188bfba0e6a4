// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/document/DocumentProject.h"

#include "platform/document/CutMemory.h"
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

/// Families of a document by numbers of another one, such as a file's.
using Families = std::unordered_map<unsigned, unsigned>;

void takeCuts(ProjectObject& taken, Families& families)
{
    Mesh::CutMemory const memory = Mesh::cutMemoryInRecords(*taken.kernel);
    if (memory.family == 0)
        return;
    taken.cutFamily = families.try_emplace(memory.family, families.size() + 1).first->second;
    for (Mesh::CutFace const& face : memory.faces)
        taken.cutPlanes.push_back({face.normal[0], face.normal[1], face.normal[2], face.distance});
    for (UVector3<double> const& way : memory.ways)
        taken.cutWays.push_back({way[0], way[1], way[2]});
}

void giveCuts(MeshKernel const& kernel, ProjectObject const& given, Families& families)
{
    if (given.cutFamily == 0)
        return;
    auto const [family, isNew] = families.try_emplace(given.cutFamily, 0);
    if (isNew)
        family->second = Mesh::newCutFamily();
    Mesh::CutMemory memory{family->second, {}, {}};
    for (auto const& [x, y, z, distance] : given.cutPlanes)
        memory.faces.push_back({{x, y, z}, distance});
    for (auto const& [x, y, z] : given.cutWays)
        memory.ways.emplace_back(x, y, z);
    Mesh::setCutMemoryInRecords(kernel, std::move(memory));
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
    Families families;
    for (Base::DocumentObject* const object : document.getObjectArray()) {
        ProjectObject taken;
        if (dynamic_cast<Mesh::DocumentObjectGroup const*>(object)) {
            taken.kind = ProjectObject::Kind::Group;
        } else if (auto const* const part = dynamic_cast<Mesh::DocumentObject const*>(object)) {
            taken.kernel = part->meshProperty->shareMesh();
            takeCuts(taken, families);
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
    Families families;
    std::vector<std::pair<Mesh::DocumentObject*, std::string>> members;
    for (ProjectObject& given : objects) {
        if (given.kind == ProjectObject::Kind::View)
            continue;
        std::unique_ptr<Base::DocumentObject> object;
        if (given.kind == ProjectObject::Kind::Group) {
            auto group = std::make_unique<Mesh::DocumentObjectGroup>();
            groups[given.uuid] = group.get();
            object = std::move(group);
        } else {
            std::unique_ptr<Mesh::DocumentObject> part = Support::makePart(given.isSupport);
            giveCuts(*given.kernel, given, families);
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
