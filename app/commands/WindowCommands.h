// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

/// Std_FullScreen, Std_Shortcuts and Std_About, which act on the main window.
void registerWindowCommands(Base::CommandManager& manager);
