// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}
class WindowPanels;

/// Enters Std_NextFlaw and Std_PreviousFlaw, which go through the places of errors that a check has
/// found.
void registerFlawCommands(Base::CommandManager& manager, WindowPanels& panels);
