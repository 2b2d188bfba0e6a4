// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/module/LoadedModule.h"

#include <gtest/gtest.h>

namespace {

struct Expected
{
    char const* className;
    char const* name;
    char const* group;
    char const* menuText;
    char const* toolTip;
    char const* statusTip;
    char const* extendedToolTip;
    char const* pixmap;
    char const* pixmapDark;
    char const* accelerator;
};

// clang-format off
Expected const expected[] = {
    {"CmdPlanecut", "Std_Sectioncut", "Mesh", "Section Cut", "Section cut the selected part(s) or all parts.", "Section Cut", ":/icons/icons/freecut.png", ":/icons/icons/freecut.png", nullptr, nullptr},
    {"CmdPolygoncut", "Std_Polygoncut", "Mesh", "Polygon Cut", "Polygon cut the selected part(s) or all parts.", "Polygon cut", ":/icons/icons/polygoncut.png", ":/icons/icons/polygoncut.png", nullptr, nullptr},
    {"CmdPolygonCutDeletePoint", "Remove Point", "FreeCut", "Remove Point", "", "", "", nullptr, nullptr, nullptr},
    {"CmdPolygonCutDeleteSelectedTeeth", "Delete selected teeth", "FreeCut", "Delete selected teeth", "", "", "", nullptr, nullptr, nullptr},
    {"CmdPolygonCutDeleteAllTeeth", "Delete all teeth", "FreeCut", "Delete all teeth", "", "", "", nullptr, nullptr, nullptr},
    {"CmdFreecutPlane3Pts", "FreecutPlane3Pts", "None", "3 points plane", "Create a cutting plane by clicking 3 points on part(s).", "3 points plane", ":icons/icons/cut_3points.png", ":/icons/icons/cut_3points.png", nullptr, nullptr},
    {"CmdFreecutPlaneTangent", "FreecutPlaneTangent", "None", "Tangent plane", "Create a cutting plane tangential to surface by clicking any point on part(s).", "Tangent plane", ":icons/icons/cut_tangent.png", ":/icons/icons/cut_tangent.png", nullptr, nullptr},
    {"CmdFreecutPlaneVertical", "FreecutPlaneVertical", "None", "Vertical plane", "Create a cutting plane vertical to surface by clicking any point on part(s).", "Vertical plane", ":icons/icons/cut_vertical.png", ":/icons/icons/cut_vertical.png", nullptr, nullptr},
    {"CmdFreecutPlaneXYPlane", "FreecutPlaneXYPlane", "None", "XY plane", "Create a cutting plane parallel to XY plane by clicking any point on part(s).", "XY plane", ":icons/icons/cut_xy.png", ":/icons/icons/cut_xy.png", nullptr, nullptr},
    {"CmdFreecutPlaneXZPlane", "FreecutPlaneXZPlane", "None", "XZ plane", "Create a cutting plane parallel to XZ plane by clicking any point on part(s).", "XZ plane", ":icons/icons/cut_xz.png", ":/icons/icons/cut_xz.png", nullptr, nullptr},
    {"CmdFreecutPlaneYZPlane", "FreecutPlaneYZPlane", "None", "YZ plane", "Create a cutting plane parallel to YZ plane by clicking any point on part(s).", "YZ plane", ":icons/icons/cut_yz.png", ":/icons/icons/cut_yz.png", nullptr, nullptr},
    {"CmdFreecutPolygon", "FreecutPolygon", "None", "Polygon", "Create a polygon by clicking 3 or more points on part(s).", "Polygon", ":icons/icons/cut_polygon.png", ":/icons/icons/cut_polygon.png", nullptr, nullptr},
    {"CmdFreecutCylinder", "FreecutCylinder", "None", "Cylinder", "Create a circle by clicking any point on part(s).", "Cylinder", ":icons/icons/cut_circle.png", ":/icons/icons/cut_circle.png", nullptr, nullptr},
    {"CmdFreecutCuboid", "FreecutCuboid", "None", "Cuboid", "Create a rectangle by click any point on part(s).", "Cuboid", ":icons/icons/cut_rectangle.png", ":/icons/icons/cut_rectangle.png", ":/icons/icons/cut_rectangle_dark.png", nullptr},
    {"CmdPolygonCutPreview", "PolygoncutPreview", "None", "Start preview", "Start the preview of cutting part.", "Start the preview of cutting part.", ":/icons/icons/cut_startPreview.png", ":/icons/icons/cut_startPreview.png", nullptr, nullptr},
    {"CmdPolygonCutStopPreview", "PolygoncutStopPreview", "None", "Stop preview", "Stop the preview of cutting part.", "Stop the preview of cutting part.", ":/icons/icons/cut_stopPreview.png", ":/icons/icons/cut_stopPreview.png", nullptr, nullptr},
    {"CmdPolygonCutReset", "PolygoncutReset", "None", "Reset", "Clear all cutting lines in the part(s).", "Clear all cutting lines in the part(s).", ":/icons/icons/cut_reset.png", ":/icons/icons/cut_reset.png", ":/icons/icons/cut_reset.png", nullptr},
    {"OrbeCmdZcut", "Std_zCut", "Mesh", "&Section Cut", "Section cut the selected part(s) or all parts.", "Section Cut", ":/icons/icons/freecut.png", ":/icons/icons/freecut.png", nullptr, "C"},
};
// clang-format on

}  // namespace

TEST(CommandTexts, AllCommandsAreRegisteredInOrder)
{
    LoadedModule const module;
    std::vector<std::string> names;
    for (Base::Command const* const command :
         module.test.application.commandManager().getAllCommands())
        names.push_back(command->getName());
    std::vector<std::string> expectedNames;
    for (Expected const& row : expected)
        expectedNames.emplace_back(row.name);
    EXPECT_EQ(names, expectedNames);
}

TEST(CommandTexts, EveryTextStandsExactly)
{
    LoadedModule const module;
    for (Expected const& row : expected) {
        SCOPED_TRACE(row.name);
        Base::Command const* const command = module.command(row.name);
        ASSERT_NE(command, nullptr);
        EXPECT_STREQ(command->className(), row.className);
        EXPECT_EQ(command->getGroupName(), row.group);
        EXPECT_EQ(command->getMenuText(), row.menuText);
        EXPECT_EQ(command->getToolTipText(), row.toolTip);
        EXPECT_EQ(command->getStatusTip(), row.statusTip);
        EXPECT_EQ(command->getWhatsThis(), row.statusTip);
        EXPECT_EQ(command->getToolTipExtText(), row.extendedToolTip);
        EXPECT_STREQ(command->getPixmap(), row.pixmap);
        EXPECT_STREQ(command->getPixmapDark(), row.pixmapDark);
        EXPECT_STREQ(command->getAccel(), row.accelerator);
    }
}
