// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

/// What all main windows have.
class MainWindowBase : public QMainWindow
{
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;

signals:
    /// The theme has changed; the value is that of g_ThemeColor.
    void signalThemeColorChanged(int theme);
};
