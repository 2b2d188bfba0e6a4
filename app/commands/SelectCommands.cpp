// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/SelectCommands.h"

#include "app/commands/CheckableCommand.h"
#include "app/parts/PartEdits.h"
#include "app/tools/FaceDownTool.h"
#include "app/tools/HandlesTool.h"
#include "app/tools/MeasureTool.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>

namespace {

using Parts = std::vector<Mesh::DocumentObject*>;

/// Selects these parts and no other, telling the listeners once.
void selectOnly(Mesh::Document& document, Parts const& parts)
{
    if (parts.empty())
        document.clearSelection();
    for (Mesh::DocumentObject* const part : parts)
        part->setSelected(true, false, part == parts.front());
    if (!parts.empty())
        document.signalObjectSelectionChanged();
}

/// A command that selects among the visible parts: what is hidden cannot be seen to be selected.
class VisiblePartsCommand : public HostCommand
{
public:
    using HostCommand::HostCommand;

    bool changesDocument() const override { return false; }

    QString whyInactive() const override
    {
        if (QString const why = whyNoPart(); !why.isEmpty())
            return why;
        return visibleParts().empty()
                   ? translated(QT_TRANSLATE_NOOP("HostCommand", "Show a part first."))
                   : QString();
    }

protected:
    static Parts visibleParts()
    {
        Parts parts = activeMeshDocument()->getMeshObjects();
        std::erase_if(parts, [](auto const* part) { return !part->isVisible(); });
        return parts;
    }
};

class SelectAllCommand : public VisiblePartsCommand
{
public:
    SelectAllCommand()
        : VisiblePartsCommand("Std_SelectAll",
                              {QT_TRANSLATE_NOOP("HostCommand", "Select &All"),
                               QT_TRANSLATE_NOOP("HostCommand", "Select all visible parts."),
                               "app_select_all", "Ctrl+A"})
    {}

    void activated(int) override { selectOnly(*activeMeshDocument(), visibleParts()); }
};

class InvertSelectionCommand : public VisiblePartsCommand
{
public:
    InvertSelectionCommand()
        : VisiblePartsCommand(
              "Std_InvertSelection",
              {QT_TRANSLATE_NOOP("HostCommand", "&Invert Selection"),
               QT_TRANSLATE_NOOP("HostCommand",
                                 "Select the visible parts that are not selected instead."),
               "app_invert", "Ctrl+I"})
    {}

    void activated(int) override
    {
        Parts parts = visibleParts();
        std::erase_if(parts, [](auto const* part) { return part->isSelected(); });
        selectOnly(*activeMeshDocument(), parts);
    }
};

class SelectNoneCommand : public HostCommand
{
public:
    SelectNoneCommand()
        : HostCommand("Std_SelectNone", {QT_TRANSLATE_NOOP("HostCommand", "Select &Nothing"),
                                         QT_TRANSLATE_NOOP("HostCommand", "Empty the selection."),
                                         "app_select_none", "Ctrl+Shift+A"})
    {}

    bool changesDocument() const override { return false; }

    QString whyInactive() const override
    {
        Mesh::Document const* const document = activeMeshDocument();
        return document && !PartEdits::selectedObjects(*document).empty()
                   ? QString()
                   : translated(QT_TRANSLATE_NOOP("HostCommand", "Nothing is selected."));
    }

    void activated(int) override { activeMeshDocument()->clearSelection(); }
};

/// Switches a mouse tool of the view in front on and off.
class MouseToolCommand : public CheckableCommand
{
public:
    MouseToolCommand(char const* name, Texts const& texts, char const* toolClass)
        : CheckableCommand(name, texts), m_toolClass(toolClass)
    {}

    bool changesDocument() const override { return false; }
    QString whyInactive() const override { return whyNoPart(); }

    bool isChecked() const override
    {
        Base::GLView const* const view = activeView();
        return view && view->getInteractModeName() == m_toolClass;
    }

    void activated(int) override
    {
        Base::GLView* const view = activeView();
        if (!view)
            return;
        if (isChecked())
            view->stopSelection();
        else
            view->startSelection(m_toolClass);
    }

private:
    static Base::GLView* activeView()
    {
        return MainWindow::getInstance() ? MainWindow::getInstance()->activeGLView() : nullptr;
    }

    char const* m_toolClass;
};

}  // namespace

void registerSelectCommands(Base::CommandManager& manager)
{
    manager.addCommand(new SelectAllCommand);
    manager.addCommand(new SelectNoneCommand);
    manager.addCommand(new InvertSelectionCommand);
    manager.addCommand(new MouseToolCommand(
        "Std_RectangleSelect",
        {QT_TRANSLATE_NOOP("HostCommand", "Select by Rectan&gle"),
         QT_TRANSLATE_NOOP("HostCommand", "Select the parts within a rectangle that you drag."),
         "app_rectangle", "R"},
        "Base::RectangleSelection"));
    manager.addCommand(new MouseToolCommand(
        "Std_PickPoint",
        {QT_TRANSLATE_NOOP("HostCommand", "Pick a &Point"),
         QT_TRANSLATE_NOOP("HostCommand", "Show the coordinates of a point that you click."),
         "app_pick", "I"},
        "Mesh::PointPickerMesh"));
    FaceDownTool::init();
    manager.addCommand(new MouseToolCommand(
        "Std_FaceDown",
        {QT_TRANSLATE_NOOP("HostCommand", "Lay Flat on a &Face"),
         QT_TRANSLATE_NOOP("HostCommand", "Lay a part on the plate with the face that you click."),
         "app_face_down", "L"},
        FaceDownTool::name));
    HandlesTool::init();
    manager.addCommand(new MouseToolCommand(
        "Std_Handles",
        {QT_TRANSLATE_NOOP("HostCommand", "Mo&ve and Turn by Handles"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Show arrows and rings by which the mouse moves and turns the selected "
                           "parts."),
         "app_place", "G"},
        HandlesTool::name));
    MeasureTool::init();
    manager.addCommand(new MouseToolCommand(
        "Std_Measure",
        {QT_TRANSLATE_NOOP("HostCommand", "&Measure"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Tell wall thickness, distance and angle at places of parts that you "
                           "click."),
         "app_measure", "M"},
        MeasureTool::name));
}
