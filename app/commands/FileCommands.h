// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

class DocumentFiles;

/// Registers Std_New, Std_Open, Std_Save, Std_SaveAs, Std_Export, Std_ExportSelected and Std_Quit.
/// Std_Quit closes the main window, which asks about unsaved work.
///
/// files  borrowed; without it the commands do nothing
void registerFileCommands(Base::CommandManager& commands, DocumentFiles& files);
