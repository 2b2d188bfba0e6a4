// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QDockWidget;
class QMainWindow;

/// Leaves the title bars of docks away where a tab bears the title already.
class DockTitles : public QObject
{
    Q_OBJECT

public:
    explicit DockTitles(QMainWindow& window);

    void add(QDockWidget* dock);

private:
    void updateLater();
    void update();

    QMainWindow& m_window;
    bool m_isPending = false;
};
