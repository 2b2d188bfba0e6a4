// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/KeyBindings.h"

#include "platform/ui/Action.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/StoredSettings.h"

namespace KeyBindings {

namespace {

// What the settings hold besides keys.
QString const usual = QStringLiteral("usual");
QString const none = QStringLiteral("none");

QString keyOf(Base::Command const& command)
{
    return QStringLiteral("/Keys/") + QString::fromStdString(command.getName());
}

/// What makes no sense counts as no choice.
QKeySequence storedKeysOf(Base::Command const& command)
{
    QString const text = storedValue(keyOf(command), usual).toString();
    if (text == none)
        return {};
    QKeySequence const keys = QKeySequence::fromString(text, QKeySequence::PortableText);
    bool const isKeys = text != usual && keys.count() == 1 && keys[0] != Qt::Key_unknown;
    return isKeys && !areTaken(keys) ? keys : usualKeysOf(command);
}

void give(Base::Command& command, QKeySequence const& keys)
{
    if (Base::Action* const action = command.getAction())
        action->getQAction()->setShortcut(keys);
}

}  // namespace

void apply(Base::CommandManager const& commands)
{
    for (Base::Command* const command : commands.getAllCommands()) {
        QKeySequence const keys = storedKeysOf(*command);
        // What one asks for by its own keys must not have to make the action of each command.
        if (keys != usualKeysOf(*command))
            give(*command, keys);
    }
}

QKeySequence keysOf(Base::Command& command)
{
    Base::Action* const action = command.getAction();
    return action ? action->getQAction()->shortcut() : QKeySequence();
}

QKeySequence usualKeysOf(Base::Command const& command)
{
    return command.getAccel() ? QKeySequence(QString::fromUtf8(command.getAccel()))
                              : QKeySequence();
}

void setKeys(Base::Command& command, QKeySequence const& keys)
{
    QString const text = keys.isEmpty() ? none : keys.toString(QKeySequence::PortableText);
    storeValue(keyOf(command), keys == usualKeysOf(command) ? usual : text);
    give(command, keys);
}

Base::Command* holder(Base::CommandManager const& commands, QKeySequence const& keys,
                      Base::Command const& asking)
{
    if (keys.isEmpty())
        return nullptr;
    for (Base::Command* const command : commands.getAllCommands())
        if (command != &asking && keysOf(*command) == keys)
            return command;
    return nullptr;
}

void reset(Base::CommandManager const& commands)
{
    for (Base::Command* const command : commands.getAllCommands())
        if (keysOf(*command) != usualKeysOf(*command))
            setKeys(*command, usualKeysOf(*command));
}

bool areTaken(QKeySequence const& keys)
{
    constexpr int plain[] = {Qt::Key_Escape, Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Return,
                             Qt::Key_Enter,  Qt::Key_Backspace, Qt::Key_Space,   Qt::Key_Up,
                             Qt::Key_Down,   Qt::Key_Left,      Qt::Key_Right};
    for (int const key : plain)
        for (int const modifiers : {0, int(Qt::SHIFT)})
            if (keys == QKeySequence(key | modifiers))
                return true;
    return false;
}

}  // namespace KeyBindings
