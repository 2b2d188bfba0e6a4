// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

/// What the host shows of one command. Texts are in the source language and end up translated in
/// the context of the class name; a null one is not set.
struct CommandTexts
{
    char const* className;
    /// The key under which menus and tool bars find the command.
    char const* name;
    char const* group;
    char const* menuText;
    char const* toolTip = nullptr;
    /// Shown in the status bar and as "what's this".
    char const* statusTip = nullptr;
    /// The picture of the extended tool tip.
    char const* toolTipPicture = nullptr;
    char const* pixmap = nullptr;
    char const* pixmapDark = nullptr;
    char const* accelerator = nullptr;
};

/// All commands of the plug-in, in the order of their registration.
std::span<CommandTexts const> commandTexts();

/// The texts of one command. There is no other class name than those in the table.
CommandTexts const& textsOfCommand(char const* className);
