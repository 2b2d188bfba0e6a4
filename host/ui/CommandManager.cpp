// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/CommandManager.h"

#include "platform/ui/Action.h"
#include "platform/ui/Command.h"

namespace Base {

CommandManager::CommandManager() = default;
CommandManager::~CommandManager() = default;

bool CommandManager::addCommand(Command* command)
{
    std::unique_ptr<Command> owned(command);
    if (getCommandByName(command->getName()))
        return false;
    m_commands.push_back(std::move(owned));
    return true;
}

bool CommandManager::addTo(char const* name, QWidget* widget)
{
    Command* const command = getCommandByName(name);
    Action* const action = command ? command->getAction() : nullptr;
    if (!action)
        return false;
    action->addTo(widget);
    return true;
}

Command* CommandManager::getCommandByName(std::string const& name) const
{
    for (auto const& command : m_commands)
        if (command->getName() == name)
            return command.get();
    return nullptr;
}

std::vector<Command*> CommandManager::getAllCommands() const
{
    std::vector<Command*> all;
    for (auto const& command : m_commands)
        all.push_back(command.get());
    return all;
}

void CommandManager::setGate(Gate gate)
{
    m_gate = std::move(gate);
}

void CommandManager::pass(Command& command, std::function<void()> const& run)
{
    if (m_gate)
        m_gate(command, run);
    else
        run();
}

void CommandManager::updateActions()
{
    for (auto const& command : m_commands)
        if (command->hasAction())
            command->getAction()->setEnabled(command->isActive());
}

void CommandManager::languageChange()
{
    for (auto const& command : m_commands)
        command->languageChange();
}

void CommandManager::updateActionIcons()
{
    for (auto const& command : m_commands)
        command->updateActionIcon();
}

}  // namespace Base
