// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/PlaneCommands.h"

#include "platform/document/Document.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MainWindow.h"
#include "selection/PlanecutSelection.h"
#include "selection/RunningTool.h"

using Freecut::PlanecutSelection;

namespace {

Base::GLView* viewInFront()
{
    MainWindow const* const window = MainWindow::getInstance();
    return window ? window->activeGLView() : nullptr;
}

Base::GLView* viewOfActiveDocument()
{
    Base::Document const* const document = activeDocument();
    return document ? document->getView() : nullptr;
}

}  // namespace

void PlaneCommand::activated(int state)
{
    state != 0 ? switchOn() : switchOff();
}

void PlaneCommand::switchOn() const
{
    if (auto* const running = Freecut::runningTool<PlanecutSelection>(viewOfActiveDocument())) {
        if (running->getPlaneType() == m_type)
            return;
        running->resetSelection();
        running->setPlaneType(m_type);
        Freecut::noteEdit(activeDocument());
    } else if (Base::GLView* const view = viewInFront()) {
        view->startSelection(PlanecutSelection::toolName);
        if (auto* const started = Freecut::runningTool<PlanecutSelection>(view))
            started->setPlaneType(m_type);
    }
    if (MainWindow* const window = MainWindow::getInstance())
        emit window->signalUpdateToolbuttonState();
}

void PlaneCommand::switchOff() const
{
    Base::GLView* const view = viewInFront();
    if (view && runsIn(*view))
        view->stopSelection();
}

bool PlaneCommand::runsIn(Base::GLView const& view) const
{
    auto const* const running = Freecut::runningTool<PlanecutSelection>(&view);
    return running && running->getPlaneType() == m_type;
}
