// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/ShapeWindow.h"

#include <cmath>

// Cuboid and cylinder as hands place, size and turn them; and the commands of tools.
namespace {

using namespace Freecut;

class PointTools : public ShapeWindow
{
protected:
    CuboidProperty& cuboid() const
    {
        return runningTool<CuboidcutSelection>(&view())->getCuboid()->getProperty();
    }
    CylinderProperty& cylinder() const
    {
        return runningTool<CylindercutSelection>(&view())->getCylinder()->getProperty();
    }
    MellQuantitySpinBox* field(int tab, int row) const
    {
        return ui().pages[std::size_t(tab)]->findChildren<MellQuantitySpinBox*>()[row];
    }
    /// 20 mm long and 12 wide in the middle.
    void placeCuboid() const
    {
        openTab(2);
        clickAt({0, 0, 0});
        enter(field(2, 0), 20);
        enter(field(2, 1), 12);
        settle();
    }
    /// With a radius of 8 mm, and with a key of 4 by 5 mm.
    void placeCylinder() const
    {
        openTab(1);
        clickAt({0, -4, 0});
        enter(field(1, 0), 8);
        find<QCheckBox>(ui().pages[1], "Use Notch")->click();
        enter(field(1, 2), 4);
        enter(field(1, 3), 5);
        settle();
    }

    ModalAnswer answer;
};

constexpr double aPixel = 0.2;

}  // namespace

TEST_F(PointTools, ASecondClickMovesThemAndTheirSizeStays)
{
    placeCuboid();
    clickAt({9, -12, 0});
    EXPECT_NEAR(cuboid().getKeyPoints()[0].X(), 9, aPixel);
    EXPECT_EQ(cuboid().getCuboidLength(), 20);
    EXPECT_EQ(document().getObjectArray().size(), 2u);
    placeCylinder();
    clickAt({-14, 9, 0});
    EXPECT_NEAR(cylinder().getKeyPoints()[0].X(), -14, aPixel);
    EXPECT_EQ(cylinder().getRadius(), 8);
    EXPECT_EQ(document().getObjectArray().size(), 2u);
}

TEST_F(PointTools, ACuboidHasASizeBeforeItCanBeTurned)
{
    openTab(2);
    clickAt({0, 0, 0});
    float const scene = std::sqrt(60.0f * 60 + 40 * 40 + 30 * 30);
    EXPECT_NEAR(cuboid().getCuboidLength(), scene / 2, 1e-3);
    EXPECT_NEAR(field(2, 0)->value(), double(scene) / 2, 1e-3);
    enter(field(2, 0), 20);
    enter(field(2, 1), 12);
    Point const corner = cuboid().getKeyPoints()[2];
    dragTo(corner, {0, 12, 0});
    EXPECT_NEAR(cuboid().getCuboidAngle(), M_PI / 2 - std::atan2(12.0, 20.0), 0.03);
    EXPECT_NEAR(field(2, 2)->value(), double(cuboid().getCuboidAngle()) * 180 / M_PI, 1e-2);
    EXPECT_NEAR(cuboid().getKeyPoints()[2].X(), 0, 2 * aPixel) << "the corner is under the mouse";
    cutByShape();
    expectTwoPieces(blockVolume);
}

TEST_F(PointTools, ASideDraggedThroughTheCentreFoldsAndComesBackOnItsOwnSide)
{
    placeCuboid();
    Point const handle = cuboid().getKeyPoints()[1];
    ASSERT_NEAR(handle.X(), 10, 0.2);
    // Twenty steps of a millimetre: the length falls by each until nothing is left, and grows again.
    hover(handle);
    press(view(), positionOf(handle), Qt::LeftButton);
    float least = 100;
    for (int step = 1; step <= 30; ++step) {
        move(view(), positionOf(handle + UVector3<float>(float(-step), 0, 0)), Qt::LeftButton);
        ASSERT_GE(cuboid().getCuboidLength(), 0);
        least = std::min(least, cuboid().getCuboidLength());
        ASSERT_GE(cuboid().getKeyPoints()[1].X(), cuboid().getKeyPoints()[0].X() - 1e-3f)
            << "a length that is not negative leaves the handle on its side";
    }
    release(view(), positionOf(handle + UVector3<float>(-30, 0, 0)), Qt::LeftButton);
    settle();
    EXPECT_LT(least, 1.2);
    EXPECT_NEAR(field(2, 0)->value(), double(cuboid().getCuboidLength()), 1e-3);
    EXPECT_TRUE(answer.seen.isEmpty());
}

TEST_F(PointTools, TheNotchStaysOnItsSideOfTheCentre)
{
    placeCylinder();
    Point const handle = cylinder().getKeyPoints()[1];
    ASSERT_GT(handle.Y(), cylinder().getKeyPoints()[0].Y() + 8);
    // In one step behind the centre.
    hover(handle);
    press(view(), positionOf(handle), Qt::LeftButton);
    move(view(), positionOf({3, -11, 0}), Qt::LeftButton);
    release(view(), positionOf({3, -11, 0}), Qt::LeftButton);
    settle();
    EXPECT_EQ(cylinder().getKeyPoints()[1], handle);
    EXPECT_EQ(cylinder().getNotchWidth(), 4);
    EXPECT_EQ(cylinder().getNotchLength(), 5);
}

TEST_F(PointTools, ANotchWiderThanTheCylinderTakesThePlainDistance)
{
    placeCylinder();
    Point const centre = cylinder().getKeyPoints()[0];
    dragTo(cylinder().getKeyPoints()[1], centre + UVector3<float>(10, 14, 0));
    EXPECT_NEAR(cylinder().getNotchWidth(), 20, 2 * aPixel);
    EXPECT_NEAR(cylinder().getNotchLength(), 14, aPixel);
    EXPECT_NEAR(field(1, 2)->value(), double(cylinder().getNotchWidth()), 1e-3);
    EXPECT_NEAR(field(1, 3)->value(), double(cylinder().getNotchLength()), 1e-3);
}

TEST_F(PointTools, TypedCoordinatesMoveTheCentre)
{
    placeCuboid();
    find<QCheckBox>(polygonDialog(), "Show coordinate")->click();
    settle();
    typeInto(ui().moveFields[0], "7.5");
    typeInto(ui().moveFields[1], "-3");
    EXPECT_NEAR(cuboid().getKeyPoints()[0].X(), 7.5, 1e-4);
    EXPECT_NEAR(cuboid().getKeyPoints()[0].Y(), -3, 1e-4);
    EXPECT_NEAR(cuboid().getKeyPoints()[1].X(), 17.5, 1e-3) << "the handles follow";
}

TEST_F(PointTools, TheButtonsOfToolsFollowTheToolThatRuns)
{
    struct Button
    {
        char const* command;
        int tab;
    };
    for (auto const& [command, tab] :
         {Button{"FreecutPolygon", 0}, {"FreecutCylinder", 1}, {"FreecutCuboid", 2}}) {
        openTab(tab == 0 ? 1 : 0);
        openTab(tab);
        emit window->signalUpdateToolbuttonState();
        for (char const* const other : {"FreecutPolygon", "FreecutCylinder", "FreecutCuboid"})
            EXPECT_EQ(action(other)->isChecked(), std::string(other) == command)
                << command << ", " << other;
    }
    // Pressed again it ends the tool, and pressed once more it starts it.
    trigger("FreecutCuboid");
    EXPECT_EQ(view().getInteractModeName(), "");
    trigger("FreecutCuboid");
    EXPECT_EQ(view().getInteractModeName(), "Freecut::CuboidcutSelection");
}

TEST_F(PointTools, ASecondPlaneCommandDiscardsThePlaneAndTheSameOneKeepsIt)
{
    ui().cancel->click();
    settle();
    placeLevelPlane({5, 5, 15}, 3);
    PlanecutSelection const* const tool = planeTool();
    Points const corners = plane().getCorners();
    // The command of the running type, with its action checked.
    action("FreecutPlaneXYPlane")->setChecked(true);
    commands().getCommandByName("FreecutPlaneXYPlane")->invoke(1);
    settle();
    ASSERT_TRUE(planeTool()->getPlaneObject());
    EXPECT_EQ(plane().getCorners(), corners);
    action("FreecutPlaneXZPlane")->trigger();
    settle();
    EXPECT_EQ(planeTool(), tool) << "the tool was not stopped";
    EXPECT_FALSE(planeTool()->getPlaneObject());
    EXPECT_EQ(planeTool()->getPlaneType(), PLANE_XZ);
    EXPECT_FALSE(sectionDialog()->widgets().ok->isEnabled());
    EXPECT_FALSE(action("FreecutPlaneXYPlane")->isChecked());
    clickAt({5, 5, 15});
    EXPECT_TRUE(planeTool()->getPlaneObject());
}

TEST_F(PointTools, RemovingCornersOfATriangleLeavesTwoAndTheJoinedEdge)
{
    openTab(0);
    for (Point const& p : {Point(-20, -10, 0), Point(20, -10, 0), Point(0, 15, 0)})
        clickAt(p);
    answer.setAnswer("Remove Point");
    click(view(), positionOf({20, -10, 0}), Qt::RightButton);
    settle();
    EXPECT_EQ(drawn().size(), 2u);
    EXPECT_EQ(edges().size(), 2u);
    EXPECT_FALSE(ui().ok->isEnabled());
    // What is left is one line, and can be drawn on.
    clickAt({18, -12, 0});
    EXPECT_EQ(drawn().size(), 3u);
    EXPECT_TRUE(ui().ok->isEnabled());
}

TEST_F(PointTools, WithoutItsFirstCornerTheJoinedEdgeIsTheLast)
{
    openTab(0);
    drawRectangle();
    openTeeth();
    // Teeth on the edge that stays first.
    Points const before = drawn();
    Point const onSecond = before[1] + (before[2] - before[1]) * 0.5f;
    ASSERT_EQ(edgeAt(onSecond), 1u);
    chooseEdge(onSecond);
    pressInTeeth("OK");
    answer.setAnswer("Remove Point");
    click(view(), positionOf(before[0]), Qt::RightButton);
    settle();
    ASSERT_EQ(drawn().size(), 3u);
    ASSERT_EQ(edges().size(), 3u);
    EXPECT_TRUE(edges()[0].applied);
    EXPECT_FALSE(edges()[2].hasTeeth);
    EXPECT_EQ(drawn()[0], before[1]);
}
