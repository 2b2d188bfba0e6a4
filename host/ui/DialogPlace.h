// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>

class DialogWidget;
class MainWindow;

/// Where a dialog stands in the main window, kept in the settings under its name: over the view, or
/// over the panels beside a narrow one, at the left or right edge, at a height of the user's choice, or docked at that edge while it is
/// pinned. A child of the dialog.
class DialogPlace : public QObject
{
    Q_OBJECT

public:
    DialogPlace(QString const& name, DialogWidget* dialog, MainWindow* window);
    ~DialogPlace() override;

    /// Before the dialog is shown.
    void bringUp();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QRect viewArea() const;
    /// Where it may lie: the view, and beside a view too narrow for both the panels at the
    /// dialog's edge, which are of less use meanwhile than what is being worked on.
    QRect room() const;
    void readStored();
    void store() const;
    void dock();
    void undock();
    /// Docks or undocks as the dialog is pinned and folded.
    void followDialog();
    /// Leaves the title of a dialog in view that stands at the same place.
    void stepAside();
    void placeLater();
    void place();
    void dragBy(QPoint const& way);
    void dropAt(QPoint const& place);
    Qt::DockWidgetArea area() const;

    QString m_key;
    DialogWidget* m_dialog;
    QPointer<MainWindow> m_window;
    /// A QDockWidget, or none.
    QPointer<QWidget> m_dock;
    /// Below the upper edge of the view.
    int m_offset = 0;
    bool m_isAtLeft = false;
    bool m_isWaiting = false;
    bool m_isDragged = false;
};
