// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

/// Std_Undo, Std_Redo, Std_Delete, Std_Duplicate, Std_Group, Std_Ungroup, Std_Hide, Std_Show,
/// Std_ShowAll and Std_Isolate. All but the first two are undo steps with a name.
void registerEditCommands(Base::CommandManager& manager);
