// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MainWindow.h"

#include "platform/ui/MellViewSlider.h"
#include "platform/ui/SideControlTab.h"
#include "platform/view/GLView.h"

namespace {

MainWindow* currentWindow = nullptr;

}  // namespace

MainWindow* MainWindow::getInstance()
{
    return currentWindow;
}

Base::MellViewSlider* MainWindow::getViewSlider()
{
    return Base::MellViewSlider::instance();
}

MainWindow::MainWindow(QWidget* parent) : MainWindowBase(parent)
{
    currentWindow = this;
}

MainWindow::~MainWindow()
{
    if (currentWindow == this)
        currentWindow = nullptr;
}

Base::GLView* MainWindow::activeGLView() const
{
    return m_activeView;
}

void MainWindow::setActiveGLView(Base::GLView* view)
{
    if (view == m_activeView)
        return;
    if (m_activeView)
        disconnect(m_activeView, nullptr, this, nullptr);
    m_activeView = view;
    if (view)
        connect(view, &Base::GLView::signalInteractModeChanged, this,
                &MainWindow::signalUpdateToolbuttonState);
    emit signalActiveGLViewChanged();
}

SideControlTab* MainWindow::getSideControl() const
{
    return m_sideControl;
}

void MainWindow::setSideControl(SideControlTab* control)
{
    m_sideControl = control;
}

void MainWindow::updateActiveGLView()
{
    if (m_activeView)
        m_activeView->redraw();
}
