// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/Commands.h"

#include "module/DialogCommands.h"
#include "module/OrbeCmdZcut.h"
#include "module/PlaneCommands.h"
#include "module/PolygonEditCommands.h"
#include "module/PreviewCommands.h"
#include "module/SolidToolCommands.h"
#include "module/ToolCommands.h"
#include "platform/ui/CommandManager.h"

namespace {

template <typename... Commands>
void addAll(Base::CommandManager& manager)
{
    (manager.addCommand(new Commands), ...);
}

}  // namespace

void registerCommands(Base::CommandManager& manager)
{
    addAll<CmdPlanecut, CmdPolygoncut, CmdPolygonCutDeletePoint, CmdPolygonCutDeleteSelectedTeeth,
           CmdPolygonCutDeleteAllTeeth, CmdFreecutPlane3Pts, CmdFreecutPlaneTangent,
           CmdFreecutPlaneVertical, CmdFreecutPlaneXYPlane, CmdFreecutPlaneXZPlane,
           CmdFreecutPlaneYZPlane, CmdFreecutPolygon, CmdFreecutCylinder, CmdFreecutCuboid,
           CmdPolygonCutPreview, CmdPolygonCutStopPreview, CmdPolygonCutReset, OrbeCmdZcut>(
        manager);
}
