// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/SolidToolCommands.h"

#include "platform/ui/Action.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"
#include "selection/CuboidcutSelection.h"
#include "selection/CylindercutSelection.h"
#include "selection/PolygoncutSelection.h"

CmdFreecutPolygon::CmdFreecutPolygon()
    : SolidToolCommand(textsOfCommand("CmdFreecutPolygon"), Freecut::PolygoncutSelection::toolName)
{}

CmdFreecutCylinder::CmdFreecutCylinder()
    : SolidToolCommand(textsOfCommand("CmdFreecutCylinder"),
                       Freecut::CylindercutSelection::toolName)
{}

CmdFreecutCuboid::CmdFreecutCuboid()
    : SolidToolCommand(textsOfCommand("CmdFreecutCuboid"), Freecut::CuboidcutSelection::toolName)
{}

void SolidToolCommand::activated(int state)
{
    MainWindow const* const window = MainWindow::getInstance();
    Base::GLView* const view = window ? window->activeGLView() : nullptr;
    if (!view)
        return;
    if (hasAction() ? getAction()->isChecked() : state != 0)
        view->startSelection(m_toolName);
    else if (view->getInteractModeName() == m_toolName)
        view->stopSelection();
}

bool SolidToolCommand::runsIn(Base::GLView const& view) const
{
    return view.getInteractModeName() == m_toolName;
}
