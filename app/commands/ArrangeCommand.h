// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

/// Adds the command that puts parts side by side on the build plate.
void registerArrangeCommand(Base::CommandManager& manager);
