// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/LivePlane.h"

#include "platform/ui/CutView.h"
#include "platform/ui/DockWidget.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/SideControlTab.h"

namespace Freecut {

std::optional<LivePlane> livePlane()
{
    MainWindow const* const window = MainWindow::getInstance();
    SideControlTab const* const pages = window ? window->getSideControl() : nullptr;
    DockWidget const* const page = pages ? pages->getDock(QStringLiteral("Preparing")) : nullptr;
    CutView const* const cutView = page ? page->getCutView() : nullptr;
    LivePlane plane;
    if (!cutView || !cutView->getCutParameters(plane.point, plane.normal))
        return {};
    return plane;
}

std::optional<PlaneType> typeAlongAxes(UVector3<float> const& normal)
{
    bool const x = normal.X() != 0, y = normal.Y() != 0, z = normal.Z() != 0;
    if (x && !y && !z)
        return PLANE_YZ;
    if (!x && y && !z)
        return PLANE_XZ;
    if (!x && !y && z)
        return PLANE_XY;
    return {};
}

}  // namespace Freecut
