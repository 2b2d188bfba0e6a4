// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

/// Adds the command that lays pieces on the faces that cuts made.
void registerCutFaceCommand(Base::CommandManager& manager);
