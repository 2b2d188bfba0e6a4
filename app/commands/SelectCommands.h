// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

/// Std_SelectAll, Std_SelectNone, Std_InvertSelection, and the mouse tools Std_RectangleSelect and
/// Std_PickPoint of the view in front.
void registerSelectCommands(Base::CommandManager& manager);
