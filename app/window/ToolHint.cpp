// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/ToolHint.h"

#include "app/commands/HostCommand.h"
#include "app/tools/FaceDownTool.h"
#include "app/tools/HandlesTool.h"
#include "app/tools/MeasureTool.h"
#include "platform/ui/Action.h"
#include "platform/ui/CommandManager.h"

#include <QCoreApplication>

namespace {

char const* const rectangleHint = QT_TRANSLATE_NOOP(
    "StatusLine",
    "Drag a rectangle around the parts to select them; hold Ctrl to add to the selection. Esc ends "
    "the tool.");
char const* const pickHint = QT_TRANSLATE_NOOP(
    "StatusLine", "Click on a part to see the coordinates of that point. Esc ends the tool.");
char const* const faceDownHint = QT_TRANSLATE_NOOP(
    "StatusLine", "Click on the face of a part that is to lie on the plate. Esc ends the tool.");
char const* const handlesHint = QT_TRANSLATE_NOOP(
    "StatusLine",
    "Drag an arrow to move the selected parts, or a ring to turn them; Shift leaves out the steps "
    "of 1 mm and 15°. Esc ends the tool.");
char const* const measureHint = QT_TRANSLATE_NOOP(
    "StatusLine",
    "Click on a part for its wall thickness, then on a second place for distance and angle; Ctrl+C "
    "copies them. Esc ends the tool.");
char const* const otherHint = QT_TRANSLATE_NOOP("StatusLine", "Esc ends the tool.");
//: The name of a tool and what a click does, a whole sentence.
char const* const commandHint = QT_TRANSLATE_NOOP("StatusLine", "%1: %2 Esc ends the tool.");

QString translated(char const* text)
{
    return QCoreApplication::translate("StatusLine", text);
}

QString translated(Base::Command const& command, QString const& text)
{
    return QCoreApplication::translate(command.className(), text.toUtf8().constData());
}

/// The module's command whose action is pressed; null if there is none.
Base::Command* pressedCommand(Base::CommandManager const& commands)
{
    for (Base::Command* const command : commands.getAllCommands())
        if (!dynamic_cast<HostCommand*>(command) && command->hasAction() &&
            command->getAction()->isChecked())
            return command;
    return nullptr;
}

}  // namespace

QString toolHint(std::string const& toolClass, Base::CommandManager const& commands)
{
    if (toolClass == "Base::RectangleSelection")
        return translated(rectangleHint);
    if (toolClass == "Mesh::PointPickerMesh")
        return translated(pickHint);
    if (toolClass == FaceDownTool::name)
        return translated(faceDownHint);
    if (toolClass == HandlesTool::name)
        return translated(handlesHint);
    if (toolClass == MeasureTool::name)
        return translated(measureHint);
    Base::Command const* const command = pressedCommand(commands);
    if (!command)
        return translated(otherHint);
    return translated(commandHint)
        .arg(translated(*command, command->getMenuText()).remove('&'),
             translated(*command, command->getToolTipText()));
}
