// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

/// Adds the command that cuts the selected parts at several heights.
void registerHeightCutCommand(Base::CommandManager& manager);
