// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeySequence>

namespace Base {
class Command;
class CommandManager;
}  // namespace Base

/// The keys of commands: those that they come with, or what the user has chosen instead. Choices are
/// kept in the settings by the names of the commands, also of those that are not there at the moment.
///
/// thread  the user interface thread
namespace KeyBindings {

/// Gives every command its keys.
void apply(Base::CommandManager const& commands);

/// The keys that a command has now, and those that it comes with.
QKeySequence keysOf(Base::Command& command);
QKeySequence usualKeysOf(Base::Command const& command);

/// Stores the keys of a command, none included, and gives them to it. Of another command with the
/// same keys they have to be taken first: see holder().
void setKeys(Base::Command& command, QKeySequence const& keys);

/// The command other than `asking` that has these keys; null if none has.
Base::Command* holder(Base::CommandManager const& commands, QKeySequence const& keys,
                      Base::Command const& asking);

/// Gives all commands the keys that they come with, and forgets the choices.
void reset(Base::CommandManager const& commands);

/// Whether keys mean something in views and lists already, and so cannot be those of a command.
bool areTaken(QKeySequence const& keys);

}  // namespace KeyBindings
