// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/CommandTexts.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cassert>
#include <string_view>

namespace {

// clang-format off
constexpr std::array<CommandTexts, 18> table = {{
    {.className = "CmdPlanecut", .name = "Std_Sectioncut", .group = "Mesh",
     .menuText = QT_TRANSLATE_NOOP("CmdPlanecut", "Section Cut"),
     .toolTip = QT_TRANSLATE_NOOP("CmdPlanecut", "Section cut the selected part(s) or all parts."),
     .statusTip = QT_TRANSLATE_NOOP("CmdPlanecut", "Section Cut"),
     .toolTipPicture = ":/icons/icons/freecut.png",
     .pixmap = ":/icons/icons/freecut.png"},
    {.className = "CmdPolygoncut", .name = "Std_Polygoncut", .group = "Mesh",
     .menuText = QT_TRANSLATE_NOOP("CmdPolygoncut", "Polygon Cut"),
     .toolTip = QT_TRANSLATE_NOOP("CmdPolygoncut", "Polygon cut the selected part(s) or all parts."),
     .statusTip = QT_TRANSLATE_NOOP("CmdPolygoncut", "Polygon cut"),
     .toolTipPicture = ":/icons/icons/polygoncut.png",
     .pixmap = ":/icons/icons/polygoncut.png"},
    {.className = "CmdPolygonCutDeletePoint", .name = "Remove Point", .group = "FreeCut",
     .menuText = QT_TRANSLATE_NOOP("CmdPolygonCutDeletePoint", "Remove Point")},
    {.className = "CmdPolygonCutDeleteSelectedTeeth", .name = "Delete selected teeth", .group = "FreeCut",
     .menuText = QT_TRANSLATE_NOOP("CmdPolygonCutDeleteSelectedTeeth", "Delete selected teeth")},
    {.className = "CmdPolygonCutDeleteAllTeeth", .name = "Delete all teeth", .group = "FreeCut",
     .menuText = QT_TRANSLATE_NOOP("CmdPolygonCutDeleteAllTeeth", "Delete all teeth")},
    {.className = "CmdFreecutPlane3Pts", .name = "FreecutPlane3Pts", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutPlane3Pts", "3 points plane"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutPlane3Pts", "Create a cutting plane by clicking 3 points on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutPlane3Pts", "3 points plane"),
     .toolTipPicture = ":icons/icons/cut_3points.png",
     .pixmap = ":/icons/icons/cut_3points.png"},
    {.className = "CmdFreecutPlaneTangent", .name = "FreecutPlaneTangent", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutPlaneTangent", "Tangent plane"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneTangent", "Create a cutting plane tangential to surface by clicking any point on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneTangent", "Tangent plane"),
     .toolTipPicture = ":icons/icons/cut_tangent.png",
     .pixmap = ":/icons/icons/cut_tangent.png"},
    {.className = "CmdFreecutPlaneVertical", .name = "FreecutPlaneVertical", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutPlaneVertical", "Vertical plane"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneVertical", "Create a cutting plane vertical to surface by clicking any point on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneVertical", "Vertical plane"),
     .toolTipPicture = ":icons/icons/cut_vertical.png",
     .pixmap = ":/icons/icons/cut_vertical.png"},
    {.className = "CmdFreecutPlaneXYPlane", .name = "FreecutPlaneXYPlane", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutPlaneXYPlane", "XY plane"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneXYPlane", "Create a cutting plane parallel to XY plane by clicking any point on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneXYPlane", "XY plane"),
     .toolTipPicture = ":icons/icons/cut_xy.png",
     .pixmap = ":/icons/icons/cut_xy.png"},
    {.className = "CmdFreecutPlaneXZPlane", .name = "FreecutPlaneXZPlane", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutPlaneXZPlane", "XZ plane"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneXZPlane", "Create a cutting plane parallel to XZ plane by clicking any point on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneXZPlane", "XZ plane"),
     .toolTipPicture = ":icons/icons/cut_xz.png",
     .pixmap = ":/icons/icons/cut_xz.png"},
    {.className = "CmdFreecutPlaneYZPlane", .name = "FreecutPlaneYZPlane", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutPlaneYZPlane", "YZ plane"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneYZPlane", "Create a cutting plane parallel to YZ plane by clicking any point on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutPlaneYZPlane", "YZ plane"),
     .toolTipPicture = ":icons/icons/cut_yz.png",
     .pixmap = ":/icons/icons/cut_yz.png"},
    {.className = "CmdFreecutPolygon", .name = "FreecutPolygon", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutPolygon", "Polygon"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutPolygon", "Create a polygon by clicking 3 or more points on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutPolygon", "Polygon"),
     .toolTipPicture = ":icons/icons/cut_polygon.png",
     .pixmap = ":/icons/icons/cut_polygon.png"},
    {.className = "CmdFreecutCylinder", .name = "FreecutCylinder", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutCylinder", "Cylinder"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutCylinder", "Create a circle by clicking any point on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutCylinder", "Cylinder"),
     .toolTipPicture = ":icons/icons/cut_circle.png",
     .pixmap = ":/icons/icons/cut_circle.png"},
    {.className = "CmdFreecutCuboid", .name = "FreecutCuboid", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdFreecutCuboid", "Cuboid"),
     .toolTip = QT_TRANSLATE_NOOP("CmdFreecutCuboid", "Create a rectangle by click any point on part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdFreecutCuboid", "Cuboid"),
     .toolTipPicture = ":icons/icons/cut_rectangle.png",
     .pixmap = ":/icons/icons/cut_rectangle.png",
     .pixmapDark = ":/icons/icons/cut_rectangle_dark.png"},
    {.className = "CmdPolygonCutPreview", .name = "PolygoncutPreview", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdPolygonCutPreview", "Start preview"),
     .toolTip = QT_TRANSLATE_NOOP("CmdPolygonCutPreview", "Start the preview of cutting part."),
     .statusTip = QT_TRANSLATE_NOOP("CmdPolygonCutPreview", "Start the preview of cutting part."),
     .toolTipPicture = ":/icons/icons/cut_startPreview.png",
     .pixmap = ":/icons/icons/cut_startPreview.png"},
    {.className = "CmdPolygonCutStopPreview", .name = "PolygoncutStopPreview", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdPolygonCutStopPreview", "Stop preview"),
     .toolTip = QT_TRANSLATE_NOOP("CmdPolygonCutStopPreview", "Stop the preview of cutting part."),
     .statusTip = QT_TRANSLATE_NOOP("CmdPolygonCutStopPreview", "Stop the preview of cutting part."),
     .toolTipPicture = ":/icons/icons/cut_stopPreview.png",
     .pixmap = ":/icons/icons/cut_stopPreview.png"},
    {.className = "CmdPolygonCutReset", .name = "PolygoncutReset", .group = "None",
     .menuText = QT_TRANSLATE_NOOP("CmdPolygonCutReset", "Reset"),
     .toolTip = QT_TRANSLATE_NOOP("CmdPolygonCutReset", "Clear all cutting lines in the part(s)."),
     .statusTip = QT_TRANSLATE_NOOP("CmdPolygonCutReset", "Clear all cutting lines in the part(s)."),
     .toolTipPicture = ":/icons/icons/cut_reset.png",
     .pixmap = ":/icons/icons/cut_reset.png",
     .pixmapDark = ":/icons/icons/cut_reset.png"},
    {.className = "OrbeCmdZcut", .name = "Std_zCut", .group = "Mesh",
     .menuText = QT_TRANSLATE_NOOP("OrbeCmdZcut", "&Section Cut"),
     .toolTip = QT_TRANSLATE_NOOP("OrbeCmdZcut", "Section cut the selected part(s) or all parts."),
     .statusTip = QT_TRANSLATE_NOOP("OrbeCmdZcut", "Section Cut"),
     .toolTipPicture = ":/icons/icons/freecut.png",
     .pixmap = ":/icons/icons/freecut.png",
     .accelerator = "C"},
}};
// clang-format on

}  // namespace

std::span<CommandTexts const> commandTexts()
{
    return table;
}

CommandTexts const& textsOfCommand(char const* className)
{
    auto const found = std::find_if(table.begin(), table.end(), [&](CommandTexts const& texts) {
        return std::string_view(texts.className) == className;
    });
    assert(found != table.end());
    return *found;
}
