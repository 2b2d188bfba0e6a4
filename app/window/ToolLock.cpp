// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/ToolLock.h"

#include "app/jobs/JobGuard.h"
#include "app/tools/FaceDownTool.h"
#include "app/tools/HandlesTool.h"
#include "app/tools/MeasureTool.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"

ToolLock::ToolLock(Base::GLView& view) : QObject(&view), m_view(view)
{
    view.setToolLock([this] { return JobGuard::instance()->isBusy() && isModulesToolRunning(); });
    connect(&view, &Base::GLView::signalToolRefused, this, &ToolLock::refuse);
}

bool ToolLock::escape()
{
    if (m_view.navigationStyle()->cancelDrag())
        return true;
    if (m_view.getInteractModeName().empty())
        return false;
    if (m_view.isToolLocked())
        refuse();
    else
        m_view.stopSelection();
    return true;
}

bool ToolLock::isModulesToolRunning() const
{
    std::string const tool = m_view.getInteractModeName();
    return !tool.empty() && tool != "Base::RectangleSelection" && tool != "Mesh::PointPickerMesh" &&
           tool != FaceDownTool::name && tool != HandlesTool::name && tool != MeasureTool::name;
}

void ToolLock::refuse()
{
    emit refused(JobGuard::instance()->reason());
}
