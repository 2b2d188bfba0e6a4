// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/EditCommands.h"

#include "app/commands/HostCommand.h"
#include "app/parts/PartEdits.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"
#include "platform/view/ToolHistory.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using PartEdits::Objects;
using PartEdits::Parts;

bool isVisible(Mesh::DocumentObject const* part)
{
    return part->isVisible();
}

/// A command that looks at the selection.
class ChoiceCommand : public HostCommand
{
public:
    using HostCommand::HostCommand;

protected:
    static Objects chosenObjects()
    {
        Mesh::Document const* const document = activeMeshDocument();
        return document ? PartEdits::selectedObjects(*document) : Objects();
    }

    /// The selected parts, and those of the selected groups.
    static Parts chosenParts() { return PartEdits::partsAmong(chosenObjects()); }
};

/// A command on the parts that are selected.
class SelectionCommand : public ChoiceCommand
{
public:
    using ChoiceCommand::ChoiceCommand;

    QString whyInactive() const override
    {
        return chosenParts().empty() ? whyNothingSelected() : QString();
    }
};

/// The edits of the running mouse tool while there are any; null while undo and redo are the
/// document's.
Base::ToolHistory* historyOfTool()
{
    MainWindow const* const window = MainWindow::getInstance();
    Base::GLView const* const view = window ? window->activeGLView() : nullptr;
    Base::AbstractMouseSelection const* const tool =
        view ? view->navigationStyle()->mouseModel() : nullptr;
    Base::ToolHistory* const history = tool ? tool->history() : nullptr;
    return history && history->isInUse() ? history : nullptr;
}

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
        if (Base::ToolHistory const* const tool = historyOfTool())
            return tool->whyNoUndo();
        Base::Document const* const document = activeMeshDocument();
        return document && !document->undoNames().empty()
                   ? QString()
                   : translated(QT_TRANSLATE_NOOP("HostCommand", "There is nothing to undo yet."));
    }

    QString currentText() const override
    {
        if (!whyInactive().isEmpty())
            return HostCommand::currentText();
        if (historyOfTool())
            return translated(QT_TRANSLATE_NOOP("HostCommand", "&Undo: edit of the tool"));
        std::string const name = activeMeshDocument()->undoNames().front();
        return translated(QT_TRANSLATE_NOOP("HostCommand", "&Undo: %1"))
            .arg(QCoreApplication::translate("UndoRedoName", name.c_str()));
    }

    void activated(int) override
    {
        if (Base::ToolHistory* const tool = historyOfTool())
            tool->undo();
        else
            activeMeshDocument()->undo();
    }
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
        if (Base::ToolHistory const* const tool = historyOfTool())
            return tool->whyNoRedo();
        Base::Document const* const document = activeMeshDocument();
        return document && !document->redoNames().empty()
                   ? QString()
                   : translated(QT_TRANSLATE_NOOP("HostCommand", "Undo a step first."));
    }

    QString currentText() const override
    {
        if (!whyInactive().isEmpty())
            return HostCommand::currentText();
        if (historyOfTool())
            return translated(QT_TRANSLATE_NOOP("HostCommand", "&Redo: edit of the tool"));
        std::string const name = activeMeshDocument()->redoNames().front();
        return translated(QT_TRANSLATE_NOOP("HostCommand", "&Redo: %1"))
            .arg(QCoreApplication::translate("UndoRedoName", name.c_str()));
    }

    void activated(int) override
    {
        if (Base::ToolHistory* const tool = historyOfTool())
            tool->redo();
        else
            activeMeshDocument()->redo();
    }
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

    void activated(int) override { PartEdits::remove(*activeMeshDocument(), chosenObjects()); }
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

    void activated(int) override { PartEdits::duplicate(*activeMeshDocument(), chosenParts()); }
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
        PartEdits::group(*activeMeshDocument(), chosenParts(),
                         translated(QT_TRANSLATE_NOOP("HostCommand", "Group")).toStdString());
    }
};

class UngroupCommand : public ChoiceCommand
{
public:
    UngroupCommand()
        : ChoiceCommand(
              "Std_Ungroup",
              {QT_TRANSLATE_NOOP("HostCommand", "&Ungroup"),
               QT_TRANSLATE_NOOP("HostCommand", "Dissolve the groups of the selected parts."),
               "app_ungroup", "Ctrl+Shift+G"})
    {}

    QString whyInactive() const override
    {
        return PartEdits::groupsAround(chosenObjects()).empty()
                   ? translated(QT_TRANSLATE_NOOP("HostCommand", "Select a part of a group first."))
                   : QString();
    }

    void activated(int) override
    {
        PartEdits::ungroup(*activeMeshDocument(), PartEdits::groupsAround(chosenObjects()));
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
        PartEdits::setVisible(*activeMeshDocument(), chosenParts(), false);
    }
};

class ShowCommand : public ChoiceCommand
{
public:
    ShowCommand()
        : ChoiceCommand("Std_Show", {QT_TRANSLATE_NOOP("HostCommand", "&Show"),
                                     QT_TRANSLATE_NOOP("HostCommand",
                                                       "Show the selected parts that are hidden."),
                                     "app_show", "Shift+H"})
    {}

    QString whyInactive() const override
    {
        return std::ranges::all_of(chosenParts(), isVisible)
                   ? translated(QT_TRANSLATE_NOOP("HostCommand",
                                                  "Select a hidden part in the part list first."))
                   : QString();
    }

    void activated(int) override
    {
        PartEdits::setVisible(*activeMeshDocument(), chosenParts(), true);
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
        return std::ranges::all_of(parts, isVisible)
                   ? translated(QT_TRANSLATE_NOOP("HostCommand", "No part is hidden."))
                   : QString();
    }

    void activated(int) override { PartEdits::showAll(*activeMeshDocument()); }
};

class IsolateCommand : public SelectionCommand
{
public:
    IsolateCommand()
        : SelectionCommand(
              "Std_Isolate",
              {QT_TRANSLATE_NOOP("HostCommand", "Hide &Others"),
               QT_TRANSLATE_NOOP("HostCommand", "Show the selected parts and hide all others."),
               "app_isolate", "Alt+H"})
    {}

    QString whyInactive() const override
    {
        QString const nothing = SelectionCommand::whyInactive();
        if (!nothing.isEmpty())
            return nothing;
        return PartEdits::isAlone(*activeMeshDocument(), chosenParts())
                   ? translated(QT_TRANSLATE_NOOP("HostCommand", "No other part is shown."))
                   : QString();
    }

    void activated(int) override { PartEdits::isolate(*activeMeshDocument(), chosenParts()); }
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
           HideCommand, ShowCommand, ShowAllCommand, IsolateCommand>(manager);
}
