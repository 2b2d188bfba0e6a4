// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace Base {

class Command;

/// All commands by name.
class CommandManager
{
public:
    CommandManager();
    ~CommandManager();
    CommandManager(CommandManager const&) = delete;
    CommandManager& operator=(CommandManager const&) = delete;

    /// Registers a command and takes ownership. A second one of the same name is freed at once, and
    /// the first stays; false then.
    bool addCommand(Command* command);

    /// Places a command's action on a widget (Action::addTo); false if there is no such command.
    bool addTo(char const* name, QWidget* widget);

    /// Null if there is none.
    Command* getCommandByName(std::string const& name) const;
    /// In the order of their registration.
    std::vector<Command*> getAllCommands() const;

    /// What stands between a trigger and its command, and calls `run` or does not.
    using Gate = std::function<void(Command& command, std::function<void()> const& run)>;
    /// Every invocation goes through the gate; an empty one lets all pass.
    void setGate(Gate gate);
    /// Called by Command::invoke.
    void pass(Command& command, std::function<void()> const& run);

    /// Enables the actions of the commands that are active now, and disables the others.
    void updateActions();
    void languageChange();
    /// Chooses all actions' pictures by the theme.
    void updateActionIcons();

private:
    std::vector<std::unique_ptr<Command>> m_commands;
    Gate m_gate;
};

}  // namespace Base
