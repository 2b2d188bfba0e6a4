// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
class GLView;
}  // namespace Base

/// Std_Join, Std_TakeAway, Std_Intersect, Std_SplitByParts, Std_SplitShells, Std_Merge and
/// Std_DuplicateRow.
///
/// view  in which places are shown; owns what the commands start
void registerCombineCommands(Base::CommandManager& manager, Base::GLView& view);
