// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>

namespace Base {
class CommandManager;
}

/// What the status line says about a running mouse tool, translated: what a click does, and how the
/// tool ends. Of a module's tool its command knows that, the one whose action is pressed.
///
/// toolClass  of the running tool, not empty
QString toolHint(std::string const& toolClass, Base::CommandManager const& commands);
