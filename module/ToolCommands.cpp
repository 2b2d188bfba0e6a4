// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/ToolCommands.h"

#include "platform/ui/Action.h"
#include "platform/ui/MainWindow.h"

#include <QIcon>

Base::Action* ToolCommand::createAction()
{
    if (MainWindow const* const window = MainWindow::getInstance()) {
        auto const update = [this] { updateState(); };
        connect(window, &MainWindow::signalActiveGLViewChanged, this, update);
        connect(window, &MainWindow::signalUpdateToolbuttonState, this, update);
    }
    auto* const action = new Base::Action(this, MainWindow::getInstance());
    action->setShortcut(QString::fromUtf8(getAccel()));
    applyCommandData(className(), action);
    if (getPixmap())
        action->setIcon(QIcon(QString::fromUtf8(getPixmap())));
    action->setCheckable(true);
    return action;
}

void ToolCommand::activated(int)
{
    updateState();
}

void ToolCommand::updateState()
{
    MainWindow const* const window = MainWindow::getInstance();
    Base::GLView const* const view = window ? window->activeGLView() : nullptr;
    if (view && hasAction())
        getAction()->setChecked(runsIn(*view));
}

bool ToolCommand::runsIn(Base::GLView const&) const
{
    return false;
}
