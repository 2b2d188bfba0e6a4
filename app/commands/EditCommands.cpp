// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/EditCommands.h"

#include "app/commands/EditStep.h"
#include "app/commands/HostCommand.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/CommandManager.h"

#include <QCoreApplication>

#include <algorithm>
#include <set>

namespace {

using Parts = std::vector<Mesh::DocumentObject*>;

/// Between a part and its copy.
constexpr float copyGapMm = 5;

/// The selected parts, and those of the selected groups.
Parts chosenParts(Mesh::Document const& document)
{
    Parts parts;
    for (Mesh::DocumentObject* const part : document.getMeshObjects())
        if (part->isSelected() || (part->getGroup() && part->getGroup()->isSelected()))
            parts.push_back(part);
    return parts;
}

void removeEmptyGroups(Mesh::Document& document)
{
    for (Mesh::DocumentObjectGroup* const group : document.getGroups())
        if (group->getObjects().empty())
            document.removeObject(group);
}

void selectOnly(Mesh::Document& document, Parts const& parts)
{
    document.clearSelection();
    for (Mesh::DocumentObject* const part : parts)
        part->setSelected(true, part == parts.back(), false);
}

/// A command on the parts that are selected.
class SelectionCommand : public HostCommand
{
public:
    using HostCommand::HostCommand;

    QString whyInactive() const override
    {
        Mesh::Document const* const document = activeMeshDocument();
        return document && !chosenParts(*document).empty() ? QString() : whyNothingSelected();
    }
};

class UndoCommand : public HostCommand
{
public:
    UndoCommand()
        : HostCommand("Std_Undo", {QT_TRANSLATE_NOOP("HostCommand", "&Undo"),
                                   QT_TRANSLATE_NOOP("HostCommand", "Take back the last step."),
                                   "app_undo", "Ctrl+Z"})
    {}

    QString whyInactive() const override
    {
        Base::Document const* const document = activeMeshDocument();
        return document && !document->undoNames().empty()
                   ? QString()
                   : translated(QT_TRANSLATE_NOOP("HostCommand", "There is nothing to undo yet."));
    }

    QString currentText() const override
    {
        if (!whyInactive().isEmpty())
            return HostCommand::currentText();
        std::string const name = activeMeshDocument()->undoNames().front();
        return translated(QT_TRANSLATE_NOOP("HostCommand", "&Undo: %1"))
            .arg(QCoreApplication::translate("UndoRedoName", name.c_str()));
    }

    void activated(int) override { activeMeshDocument()->undo(); }
};

class RedoCommand : public HostCommand
{
public:
    RedoCommand()
        : HostCommand("Std_Redo",
                      {QT_TRANSLATE_NOOP("HostCommand", "&Redo"),
                       QT_TRANSLATE_NOOP("HostCommand", "Do again what was taken back."),
                       "app_redo", "Ctrl+Shift+Z"})
    {}

    QString whyInactive() const override
    {
        Base::Document const* const document = activeMeshDocument();
        return document && !document->redoNames().empty()
                   ? QString()
                   : translated(QT_TRANSLATE_NOOP("HostCommand", "Undo a step first."));
    }

    QString currentText() const override
    {
        if (!whyInactive().isEmpty())
            return HostCommand::currentText();
        std::string const name = activeMeshDocument()->redoNames().front();
        return translated(QT_TRANSLATE_NOOP("HostCommand", "&Redo: %1"))
            .arg(QCoreApplication::translate("UndoRedoName", name.c_str()));
    }

    void activated(int) override { activeMeshDocument()->redo(); }
};

class DeleteCommand : public SelectionCommand
{
public:
    DeleteCommand()
        : SelectionCommand(
              "Std_Delete",
              {QT_TRANSLATE_NOOP("HostCommand", "&Delete"),
               QT_TRANSLATE_NOOP("HostCommand", "Delete the selected parts."), "app_delete", "Del"})
    {}

    void activated(int) override
    {
        Mesh::Document& document = *activeMeshDocument();
        EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Delete"));
        for (Mesh::DocumentObject* const part : chosenParts(document))
            document.removeObject(part);
        removeEmptyGroups(document);
    }
};

class DuplicateCommand : public SelectionCommand
{
public:
    DuplicateCommand()
        : SelectionCommand(
              "Std_Duplicate",
              {QT_TRANSLATE_NOOP("HostCommand", "Duplica&te"),
               QT_TRANSLATE_NOOP("HostCommand", "Put copies of the selected parts beside them."),
               "app_duplicate", "Ctrl+D"})
    {}

    void activated(int) override
    {
        Mesh::Document& document = *activeMeshDocument();
        EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Duplicate"));
        Parts const parts = chosenParts(document);
        UBox3<float> box;
        for (Mesh::DocumentObject const* const part : parts)
            box.Add(part->getBoundingBox());
        float const offset = box.Isnullptr() ? 0 : box.MaxX() - box.MinX() + copyGapMm;
        Parts copies;
        for (Mesh::DocumentObject* const part : parts)
            copies.push_back(copyBeside(document, *part, offset));
        selectOnly(document, copies);
    }

private:
    static Mesh::DocumentObject* copyBeside(Mesh::Document& document, Mesh::DocumentObject& part,
                                            float offset)
    {
        std::string const name =
            document.getUniqueObjectName(part.getName().c_str(), "_copy", true, false);
        Mesh::DocumentObject* const copy = part.shallowCopy();
        copy->translate({offset, 0, 0}, 0);
        document.addObject(copy, name.c_str(), true);
        if (part.getGroup())
            part.getGroup()->addObject(copy, nullptr);
        return copy;
    }
};

class GroupCommand : public SelectionCommand
{
public:
    GroupCommand()
        : SelectionCommand("Std_Group", {QT_TRANSLATE_NOOP("HostCommand", "&Group"),
                                         QT_TRANSLATE_NOOP("HostCommand",
                                                           "Put the selected parts into a group."),
                                         "app_group", "Ctrl+G"})
    {}

    void activated(int) override
    {
        Mesh::Document& document = *activeMeshDocument();
        EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Group"));
        auto* const group = new Mesh::DocumentObjectGroup;
        std::string const base =
            translated(QT_TRANSLATE_NOOP("HostCommand", "Group")).toStdString();
        Parts const parts = chosenParts(document);
        document.addObject(
            group, document.getUniqueObjectName(base.c_str(), "", true, true).c_str(), true);
        for (Mesh::DocumentObject* const part : parts)
            group->addObject(part, nullptr);
        removeEmptyGroups(document);
    }
};

class UngroupCommand : public HostCommand
{
public:
    UngroupCommand()
        : HostCommand(
              "Std_Ungroup",
              {QT_TRANSLATE_NOOP("HostCommand", "&Ungroup"),
               QT_TRANSLATE_NOOP("HostCommand", "Dissolve the groups of the selected parts."),
               "app_ungroup", "Ctrl+Shift+G"})
    {}

    QString whyInactive() const override
    {
        return groupsOfSelection().empty()
                   ? translated(QT_TRANSLATE_NOOP("HostCommand", "Select a part of a group first."))
                   : QString();
    }

    void activated(int) override
    {
        Mesh::Document& document = *activeMeshDocument();
        EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Ungroup"));
        for (Mesh::DocumentObjectGroup* const group : groupsOfSelection()) {
            for (Mesh::DocumentObject* const part : group->getObjects())
                group->removeObject(part);
            document.removeObject(group);
        }
    }

private:
    static std::vector<Mesh::DocumentObjectGroup*> groupsOfSelection()
    {
        Mesh::Document const* const document = activeMeshDocument();
        std::vector<Mesh::DocumentObjectGroup*> groups;
        if (!document)
            return groups;
        std::set<Mesh::DocumentObjectGroup const*> ofParts;
        for (Mesh::DocumentObject const* const part : document->getSelectedMeshObjects())
            ofParts.insert(part->getGroup());
        for (Mesh::DocumentObjectGroup* const group : document->getGroups())
            if (group->isSelected() || ofParts.contains(group))
                groups.push_back(group);
        return groups;
    }
};

class HideCommand : public SelectionCommand
{
public:
    HideCommand()
        : SelectionCommand(
              "Std_Hide",
              {QT_TRANSLATE_NOOP("HostCommand", "&Hide"),
               QT_TRANSLATE_NOOP("HostCommand", "Hide the selected parts."), "app_hide", "H"})
    {}

    void activated(int) override
    {
        Mesh::Document& document = *activeMeshDocument();
        EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Hide"));
        for (Mesh::DocumentObject* const part : chosenParts(document))
            part->setVisible(false);
    }
};

class ShowCommand : public HostCommand
{
public:
    ShowCommand()
        : HostCommand("Std_Show",
                      {QT_TRANSLATE_NOOP("HostCommand", "&Show"),
                       QT_TRANSLATE_NOOP("HostCommand", "Show the selected parts that are hidden."),
                       "app_show", "Shift+H"})
    {}

    QString whyInactive() const override
    {
        return hiddenOnes().empty()
                   ? translated(QT_TRANSLATE_NOOP("HostCommand",
                                                  "Select a hidden part in the part list first."))
                   : QString();
    }

    void activated(int) override
    {
        EditStep const step(*activeMeshDocument(), QT_TRANSLATE_NOOP("UndoRedoName", "Show"));
        for (Mesh::DocumentObject* const part : hiddenOnes())
            part->setVisible(true);
    }

private:
    static Parts hiddenOnes()
    {
        Mesh::Document const* const document = activeMeshDocument();
        Parts parts = document ? chosenParts(*document) : Parts();
        std::erase_if(parts, [](auto const* part) { return part->isVisible(); });
        return parts;
    }
};

class ShowAllCommand : public HostCommand
{
public:
    ShowAllCommand()
        : HostCommand("Std_ShowAll", {QT_TRANSLATE_NOOP("HostCommand", "Show &All"),
                                      QT_TRANSLATE_NOOP("HostCommand", "Show all hidden parts."),
                                      "app_show_all", "Ctrl+Shift+H"})
    {}

    QString whyInactive() const override
    {
        Mesh::Document const* const document = activeMeshDocument();
        Parts const parts = document ? document->getMeshObjects() : Parts();
        bool const isAnyHidden =
            std::ranges::any_of(parts, [](auto const* part) { return !part->isVisible(); });
        return isAnyHidden ? QString()
                           : translated(QT_TRANSLATE_NOOP("HostCommand", "No part is hidden."));
    }

    void activated(int) override
    {
        Mesh::Document& document = *activeMeshDocument();
        EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Show All"));
        for (Mesh::DocumentObject* const part : document.getMeshObjects())
            if (!part->isVisible())
                part->setVisible(true);
    }
};

template <typename... Commands>
void addAll(Base::CommandManager& manager)
{
    (manager.addCommand(new Commands), ...);
}

}  // namespace

void registerEditCommands(Base::CommandManager& manager)
{
    addAll<UndoCommand, RedoCommand, DeleteCommand, DuplicateCommand, GroupCommand, UngroupCommand,
           HideCommand, ShowCommand, ShowAllCommand>(manager);
}
