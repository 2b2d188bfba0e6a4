// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class DialogPage;
class DialogTitleBar;
class QHBoxLayout;
class QVBoxLayout;

/// The frame of all dialogs: a title bar with the buttons pin, fold, maximise and close, a main
/// page for the content, and a row of buttons at the foot. It is a window of its own, or a part of
/// the main window where DialogWindowManager places it.
///
/// While a job runs (EventNotify) the page and the buttons are disabled and the user cannot close
/// the dialog. Enter in a field ends the editing and presses no button.
class Dialog : public QDialog
{
    Q_OBJECT

public:
    Dialog(QWidget* parent, bool modal);
    ~Dialog() override;

    /// Whether there is a pin button; there is one at first.
    void setPinEnable(bool enabled);
    bool isPinEnabled() const { return m_isPinEnabled; }
    /// A pinned dialog stays open when its work is done, and in the main window it takes room of
    /// its own instead of lying over the view.
    bool isPinned() const { return m_isPinned; }

    /// Enables or disables the main page; the title bar and the buttons at the foot stay as they
    /// are, and so do windows whose parent is on the page.
    void setMainPageEnable(bool enabled);
    /// Whether the dialog is unfolded.
    bool isMainPageVisible() const { return m_isUnfolded; }
    bool isMaximizedInPlace() const { return m_isMaximized; }

    /// For the content, without margins; it keeps its natural height and scrolls where it must.
    QVBoxLayout* mainLayout() const;
    /// For the buttons at the foot, from left to right; they stand at the right end.
    QHBoxLayout* buttonLayout() const { return m_buttonLayout; }

    QSize sizeHint() const override;

    // What dialogs fill in; each does what is said here unless it is overridden.

    /// Sets all texts again, after the language has changed.
    virtual void retranslate();
    /// Enables or disables page, buttons and closing, at the end and the start of a job.
    virtual void setWidgetEnabled(bool enabled);
    /// The unit in which lengths are shown has changed; quantity fields follow by themselves.
    virtual void resetUnit();
    /// Unfolds the dialog, or folds it to its title bar.
    virtual void slotMainPageVisible(bool visible);
    virtual void onMaximizeButtonClicked();
    virtual void onRestoreButtonClicked();
    virtual void slotPinDialog(bool pinned);
    /// Whether there is a button to maximise and restore; there is none at first.
    virtual void setMaxRestoreEnable(bool enabled);
    /// The close button, or Escape: starts to hide the dialog.
    virtual void on_close_clicked();
    /// `theme` is the value of g_ThemeColor. Draws the dialog anew.
    virtual void slotThemeColorChanged(int theme);
    /// The dialog has come up.
    virtual void on_show_animate_finished();
    /// The dialog is hidden from the user: closes it.
    virtual void on_hide_animate_finished();
    virtual void on_start_hide_animate();
    /// Whether the dialog is deleted when it closes.
    virtual bool isOneoff() const;
    /// Lets go of what the dialog works on, before it is deleted.
    virtual void terminate();

signals:
    /// The dialog has closed.
    void signalClosed();
    void signalPinned(bool pinned);
    void signalMaximized(bool maximized);
    /// The room that the dialog wants has changed.
    void signalSizeChanged();
    /// The user drags a dialog that is no window of its own: the way, and where it is dropped, in
    /// screen pixels.
    void signalDragged(QPoint way);
    void signalDropped(QPoint place);

protected:
    /// Whether the user may close the dialog now.
    bool isClosable() const { return !m_isBusy; }

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void buildFrame();
    void connectTitleBar();
    void connectHost();
    void moveBy(QPoint const& way);
    void fitWindow();

    DialogTitleBar* m_titleBar;
    QWidget* m_body;
    DialogPage* m_page;
    QWidget* m_foot;
    QHBoxLayout* m_buttonLayout;
    bool m_isPinEnabled = true;
    bool m_isPinned = false;
    bool m_isUnfolded = true;
    bool m_isMaximized = false;
    bool m_isBusy = false;
    bool m_isHiding = false;
};
