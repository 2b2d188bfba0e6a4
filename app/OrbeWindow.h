// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/MainWindow.h"

#include <functional>

class CommandGate;
class DocumentFollower;
class NoticeBar;
class QDockWidget;
class QHBoxLayout;
class StatusLine;
class ViewAppearance;
class WindowMenus;

namespace Mesh {
class GLView;
}

/// The window that people work in: one view of the active document, menus, tool bar, panels in
/// docks and the status line. The Application exists before it and after it.
///
/// Closing it while a job runs asks what to become of the job, and happens when the job has ended.
class OrbeWindow : public MainWindow
{
    Q_OBJECT

public:
    explicit OrbeWindow(QWidget* parent = nullptr);
    ~OrbeWindow() override;

    /// Shows commands that have been registered since, such as those of a module.
    void commandsAdded();

    /// Puts a panel, which the window then owns, into a dock.
    ///
    /// name  what the window remembers its place by
    QDockWidget* addPanel(QWidget* panel, QString const& name, Qt::DockWidgetArea area,
                          bool isVisible);
    /// Puts a widget to the right of the view.
    void addBesideView(QWidget* widget);

    /// Shows a message in a strip above the view.
    void addNotice(QString const& message);

    /// Asked before the window closes, to save what is unsaved; false keeps it open.
    void setMayClose(std::function<bool()> mayClose);

    Mesh::GLView& view() const { return *m_view; }
    WindowMenus& menus() const { return *m_menus; }
    StatusLine& statusLine() const { return *m_status; }
    NoticeBar& notices() const { return *m_notices; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildCentre();
    void buildCommands();
    void buildMenus();
    void buildStatusLine();
    void followDocument();
    void restorePlaces();

    void retranslate();
    void refresh();
    void refreshTitle();
    bool mayCloseDuringJob();
    void jobsChanged(bool busy);

    Mesh::GLView* m_view = nullptr;
    NoticeBar* m_notices = nullptr;
    QHBoxLayout* m_viewRow = nullptr;
    ViewAppearance* m_appearance = nullptr;
    CommandGate* m_gate = nullptr;
    WindowMenus* m_menus = nullptr;
    StatusLine* m_status = nullptr;
    DocumentFollower* m_follower = nullptr;
    std::function<bool()> m_mayClose;
    bool m_closesAfterJob = false;
    bool m_isAskingToClose = false;
};
