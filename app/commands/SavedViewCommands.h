// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMenu;
class SavedViews;

namespace Base {
class CommandManager;
}

/// Registers Std_SaveView, Std_RemoveView, and Std_SavedView1 to Std_SavedView9, which go to one.
///
/// views  borrowed; without it the commands do nothing
void registerSavedViewCommands(Base::CommandManager& manager, SavedViews& views);

/// Fills a menu with all of them: those of views that were not kept yet tell their keys.
void fillSavedViewMenu(QMenu& menu, Base::CommandManager& manager);
