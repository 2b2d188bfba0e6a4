// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/CommandGate.h"

#include "app/commands/CheckableCommand.h"
#include "app/jobs/JobGuard.h"
#include "platform/ui/Action.h"
#include "platform/ui/CommandManager.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QThread>

namespace {

QString translated(Base::Command const& command, QString const& text)
{
    return text.isEmpty()
               ? text
               : QCoreApplication::translate(command.className(), text.toUtf8().constData());
}

/// What the command does, and, where it cannot be used, then why. Commands of the application tell
/// their keys too; those of modules have tips of their own.
QString toolTipOf(Base::Command const& command, Base::Action const& action, QString const& why)
{
    QString tip = translated(command, command.getToolTipText());
    if (tip.isEmpty())
        tip = translated(command, command.getMenuText()).remove('&');
    QKeySequence const keys = action.getQAction()->shortcut();
    if (!keys.isEmpty() && dynamic_cast<HostCommand const*>(&command))
        tip += QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText));
    return why.isEmpty() ? tip : tip + '\n' + why;
}

void bringInLine(Base::Command& command)
{
    Base::Action* const action = command.getAction();
    QString const why = whyInactive(command);
    action->setEnabled(why.isEmpty());
    action->setToolTip(toolTipOf(command, *action, why));
    if (auto const* const host = dynamic_cast<HostCommand const*>(&command))
        action->setText(host->currentText());
    if (auto const* const checkable = dynamic_cast<CheckableCommand const*>(&command)) {
        action->setChecked(checkable->isChecked());
        // An icon would stand where menus show the state.
        action->getQAction()->setIconVisibleInMenu(false);
    }
}

}  // namespace

CommandGate::CommandGate(Base::CommandManager& manager, QObject* parent)
    : QObject(parent), m_manager(manager)
{
    m_manager.setGate(
        [this](Base::Command& command, std::function<void()> const& run) { pass(command, run); });
    connect(JobGuard::instance(), &JobGuard::busyChanged, this, &CommandGate::refresh);
}

CommandGate::~CommandGate()
{
    m_manager.setGate({});
}

void CommandGate::refresh()
{
    m_isRefreshPending = false;
    for (Base::Command* const command : m_manager.getAllCommands())
        if (command->hasAction())
            bringInLine(*command);
}

void CommandGate::refreshLater()
{
    if (m_isRefreshPending)
        return;
    m_isRefreshPending = true;
    QMetaObject::invokeMethod(this, &CommandGate::refresh, Qt::QueuedConnection);
}

bool CommandGate::explain(QKeySequence const& keys)
{
    for (Base::Command* const command : m_manager.getAllCommands()) {
        QAction const* const action =
            command->hasAction() ? command->getAction()->getQAction() : nullptr;
        if (!action || action->isEnabled() || action->shortcut() != keys)
            continue;
        emit refused(whyInactive(*command));
        return true;
    }
    return false;
}

void CommandGate::pass(Base::Command& command, std::function<void()> const& run)
{
    int const level = QThread::currentThread()->loopLevel();
    bool const isPartOfAnother = !m_loopLevels.empty() && m_loopLevels.back() == level;
    QString const why = isPartOfAnother ? QString() : whyInactive(command);
    if (!why.isEmpty()) {
        // A checkable action has changed its state already.
        refreshLater();
        emit refused(why);
        return;
    }
    if (dynamic_cast<HostCommand const*>(&command)) {
        run();
    } else {
        // A module's command may wait for its job in an event loop, and what it starts shows no
        // progress at first.
        JobGuard::Hold const hold;
        m_loopLevels.push_back(level);
        run();
        m_loopLevels.pop_back();
    }
    refreshLater();
}
