// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/BriefNote.h"

#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/MainWindow.h"

#include <QStatusBar>

void noteBriefly(QString const& text)
{
    constexpr int shownMilliseconds = 10000;
    if (text.isEmpty())
        return;
    Base::ConsoleSingleton::Instance().Log(text.toStdString());
    if (MainWindow* const window = MainWindow::getInstance())
        window->statusBar()->showMessage(text, shownMilliseconds);
}
