// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/MainWindowBase.h"

#include <QPointer>

namespace Base {
class GLView;
class MellViewSlider;
}  // namespace Base

class SideControlTab;

/// The main window: parent of all message boxes, and holder of the view in front. The command line
/// has none.
class MainWindow : public MainWindowBase
{
    Q_OBJECT

public:
    /// The window made last, or null.
    static MainWindow* getInstance();
    /// The height slider, also without a window; never null.
    static Base::MellViewSlider* getViewSlider();

    /// The pages beside the view, or null.
    SideControlTab* getSideControl() const;
    /// Makes it known, borrowed.
    void setSideControl(SideControlTab* control);

    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// The view in front, or null.
    Base::GLView* activeGLView() const;
    /// Puts a view in front, borrowed; null for none. When its mouse tool changes, the tool buttons
    /// are told.
    void setActiveGLView(Base::GLView* view);
    /// Repaints the view in front.
    void updateActiveGLView();

signals:
    void signalActiveGLViewChanged();
    /// Tool buttons re-read their state.
    void signalUpdateToolbuttonState();

private:
    QPointer<Base::GLView> m_activeView;
    QPointer<SideControlTab> m_sideControl;
};
