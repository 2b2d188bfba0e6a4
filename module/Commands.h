// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

/// Makes all commands of the plug-in and hands them to the manager, in the order of the table.
void registerCommands(Base::CommandManager& manager);
