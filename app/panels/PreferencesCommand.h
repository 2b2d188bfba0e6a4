// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class ViewAppearance;
class ViewPreferences;

namespace Base {
class CommandManager;
}

/// Registers "Std_Preferences", which opens the preferences or brings them in front.
///
/// appearance, view  outlive the commands' use
void registerPreferencesCommand(Base::CommandManager& manager, ViewAppearance& appearance,
                                ViewPreferences& view);
