// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartEdits.h"

#include "app/parts/EditStep.h"
#include "app/parts/FreeNames.h"
#include "app/parts/PartPlacement.h"

#include <QString>

#include <algorithm>
#include <string>
#include <unordered_set>

namespace PartEdits {

namespace {

using Group = Mesh::DocumentObjectGroup;
using Groups = std::vector<Group*>;

Group* asGroup(Base::DocumentObject* object)
{
    return dynamic_cast<Group*>(object);
}

Groups groupsOf(Parts const& parts)
{
    return groupsAround(Objects(parts.begin(), parts.end()));
}

void removeEmptyGroups(Mesh::Document& document, Groups const& candidates)
{
    std::unordered_set<Group const*> inUse;
    for (Mesh::DocumentObject const* const part : document.getMeshObjects())
        inUse.insert(part->getGroup());
    for (Group* const group : candidates)
        if (!inUse.contains(group))
            document.removeObject(group);
}

Objects partsAndGroups(Objects objects)
{
    std::erase_if(objects, [](Base::DocumentObject* object) {
        return !dynamic_cast<Mesh::DocumentObject*>(object) && !asGroup(object);
    });
    return objects;
}

bool changeVisibility(Mesh::Document& document, Parts const& parts, bool visible,
                      char const* stepName)
{
    auto const differs = [&](auto const* part) { return part->isVisible() != visible; };
    if (std::none_of(parts.begin(), parts.end(), differs))
        return false;
    EditStep const step(document, stepName);
    for (Mesh::DocumentObject* const part : parts)
        part->setVisible(visible);
    return true;
}

}  // namespace

Objects selectedObjects(Mesh::Document const& document)
{
    return partsAndGroups(document.getSelectedObjects());
}

Parts partsAmong(Objects const& objects)
{
    Parts parts;
    std::unordered_set<Mesh::DocumentObject const*> known;
    auto const add = [&](Mesh::DocumentObject* part) {
        if (part && known.insert(part).second)
            parts.push_back(part);
    };
    for (Base::DocumentObject* const object : objects) {
        add(dynamic_cast<Mesh::DocumentObject*>(object));
        if (Group const* const group = asGroup(object))
            for (Mesh::DocumentObject* const part : group->getObjects())
                add(part);
    }
    return parts;
}

Groups groupsAround(Objects const& objects)
{
    Groups groups;
    auto const add = [&](Group* group) {
        if (group && std::find(groups.begin(), groups.end(), group) == groups.end())
            groups.push_back(group);
    };
    for (Base::DocumentObject* const object : objects) {
        add(asGroup(object));
        if (auto const* const part = dynamic_cast<Mesh::DocumentObject*>(object))
            add(part->getGroup());
    }
    return groups;
}

bool setVisible(Mesh::Document& document, Parts const& parts, bool visible)
{
    return changeVisibility(document, parts, visible,
                            visible ? QT_TRANSLATE_NOOP("UndoRedoName", "Show")
                                    : QT_TRANSLATE_NOOP("UndoRedoName", "Hide"));
}

bool showAll(Mesh::Document& document)
{
    return changeVisibility(document, document.getMeshObjects(), true,
                            QT_TRANSLATE_NOOP("UndoRedoName", "Show All"));
}

bool isAlone(Mesh::Document const& document, Parts const& parts)
{
    std::unordered_set<Mesh::DocumentObject const*> const wanted(parts.begin(), parts.end());
    return std::ranges::all_of(document.getMeshObjects(), [&](auto const* part) {
        return part->isVisible() == wanted.contains(part);
    });
}

bool isolate(Mesh::Document& document, Parts const& parts)
{
    if (parts.empty() || isAlone(document, parts))
        return false;
    std::unordered_set<Mesh::DocumentObject const*> const wanted(parts.begin(), parts.end());
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Hide Others"));
    for (Mesh::DocumentObject* const part : document.getMeshObjects())
        part->setVisible(wanted.contains(part));
    return true;
}

bool setColor(Mesh::Document& document, Parts const& parts, unsigned rgba)
{
    auto const differs = [&](auto const* part) { return part->getColor() != rgba; };
    if (std::none_of(parts.begin(), parts.end(), differs))
        return false;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Colour"));
    for (Mesh::DocumentObject* const part : parts)
        part->setColor(rgba);
    return true;
}

bool rename(Mesh::Document& document, Base::DocumentObject& object, std::string const& name)
{
    std::string const wanted = QString::fromStdString(name).trimmed().toStdString();
    if (wanted.empty() || wanted == object.getName())
        return false;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Rename"));
    object.setName(wanted);
    return true;
}

bool group(Mesh::Document& document, Parts const& parts, std::string const& baseName)
{
    if (parts.empty())
        return false;
    Groups const left = groupsOf(parts);
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Group"));
    auto* const group = new Group;
    std::string const name =
        document.getUniqueObjectName((baseName + " ").c_str(), {}, false, true);
    document.addObject(group, name.c_str(), true);
    for (Mesh::DocumentObject* const part : parts)
        group->addObject(part, nullptr);
    removeEmptyGroups(document, left);
    return true;
}

bool ungroup(Mesh::Document& document, Groups const& groups)
{
    if (groups.empty())
        return false;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Ungroup"));
    for (Group* const group : groups)
        document.removeObject(group);
    return true;
}

bool moveToGroup(Mesh::Document& document, Parts const& parts, Group* group)
{
    auto const isElsewhere = [&](auto const* part) { return part->getGroup() != group; };
    if (std::none_of(parts.begin(), parts.end(), isElsewhere))
        return false;
    Groups const left = groupsOf(parts);
    EditStep const step(document, group ? QT_TRANSLATE_NOOP("UndoRedoName", "Move to Group")
                                        : QT_TRANSLATE_NOOP("UndoRedoName", "Take Out of Group"));
    for (Mesh::DocumentObject* const part : parts)
        if (group)
            group->addObject(part, nullptr);
        else if (Group* const home = part->getGroup())
            home->removeObject(part);
    removeEmptyGroups(document, left);
    return true;
}

bool remove(Mesh::Document& document, Objects const& among)
{
    Objects const objects = partsAndGroups(among);
    if (objects.empty())
        return false;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Delete"));
    removeInStep(document, objects);
    return true;
}

void removeInStep(Mesh::Document& document, Objects const& objects)
{
    Groups const around = groupsAround(objects);
    for (Mesh::DocumentObject* const part : partsAmong(objects))
        document.removeObject(part);
    for (Base::DocumentObject* const object : objects)
        document.removeObject(object);
    removeEmptyGroups(document, around);
}

bool duplicate(Mesh::Document& document, Parts const& parts)
{
    if (parts.empty())
        return false;
    constexpr float gap = 5;
    UBox3<float> const box = PartPlacement::boxOf(parts);
    float const shift = box.Isnullptr() ? 0 : box.MaxX() - box.MinX() + gap;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Duplicate"));
    document.clearSelection();
    FreeNames names(document);
    for (Mesh::DocumentObject* const part : parts) {
        Mesh::DocumentObject* const copy = part->shallowCopy();
        document.addObject(copy, names.take(part->getName() + "_copy").c_str(), true);
        if (Group* const group = part->getGroup())
            group->addObject(copy, nullptr);
        copy->translate({shift, 0, 0}, 0);
        document.select(copy, true, part == parts.back(), false);
    }
    return true;
}

}  // namespace PartEdits
