// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/Command.h"

#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/Action.h"
#include "platform/ui/Application.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/FailureText.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellMessageBox.h"

#include <QApplication>
#include <QIcon>

namespace Base {

namespace {

void showFailure(QString const& message)
{
    MellMessageBox::warning(MainWindow::getInstance(),
                            QCoreApplication::translate("MellCommons", "Attention"), message,
                            QCoreApplication::translate("MellCommons", "OK"), "", "", 0, -1);
}

}  // namespace

Command::Command(char const* name) : m_name(name) {}

Command::~Command()
{
    delete m_action;
}

Action* Command::getAction()
{
    if (!m_action && qobject_cast<QApplication*>(QCoreApplication::instance()))
        m_action = createAction();
    return static_cast<Action*>(m_action.data());
}

bool Command::hasAction() const
{
    return !m_action.isNull();
}

void Command::languageChange()
{
    if (hasAction())
        applyCommandData(className(), getAction());
}

Action* Command::createAction()
{
    auto* const action = new Action(this, MainWindow::getInstance());
    applyCommandData(className(), action);
    if (getPixmap())
        action->setIcon(QIcon(getMenuPixmap()));
    if (getAccel())
        action->setShortcut(QString::fromUtf8(getAccel()));
    return action;
}

char const* Command::className() const
{
    return "Base::Command";
}

void Command::applyCommandData(char const* context, Action* action) const
{
    auto const translated = [context](QString const& text) {
        return text.isEmpty() ? text
                              : QCoreApplication::translate(context, text.toUtf8().constData());
    };
    action->setText(translated(getMenuText()));
    action->setToolTip(translated(getToolTipText()));
    action->setStatusTip(translated(getStatusTip()));
    action->setWhatsThis(translated(getWhatsThis()));
}

void Command::updateActionIcon()
{
    if (hasAction() && getPixmap())
        getAction()->setIcon(QIcon(getMenuPixmap()));
}

bool Command::isActive()
{
    return true;
}

void Command::invoke(int state)
{
    // Nothing may leave a slot that the event loop has called.
    auto const run = [this, state] {
        try {
            activated(state);
        } catch (Mell::AbortException const&) {
            ConsoleSingleton::Instance().Log("Command Abort.");
        } catch (...) {
            showFailure(failureText());
        }
    };
    if (Application::Instance)
        Application::Instance->commandManager().pass(*this, run);
    else
        run();
}

QString Command::getHelpUrl() const
{
    return {};
}

}  // namespace Base
