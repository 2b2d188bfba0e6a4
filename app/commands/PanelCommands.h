// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}

class ViewAppearance;
class WindowPanels;

/// Std_Check, Std_Repair, Std_DropToPlate and Std_CentreOnPlate on the selected parts; Std_CutView;
/// Std_Preferences.
///
/// panels, appearance  without them the commands do nothing
void registerPanelCommands(Base::CommandManager& manager, WindowPanels& panels,
                           ViewAppearance& appearance);
