// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/TLabel.h"
#include "selection/CuboidcutSelection.h"
#include "selection/CylindercutSelection.h"
#include "selection/PolygoncutSelection.h"
#include "tests/selection/SelectionScene.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"

#include <gtest/gtest.h>

#include <QPixmap>

#include <cmath>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;

/// A block of 80 x 60 x 10 mm seen from above, 3 pixels to the millimetre.
class SolidTool : public testing::Test
{
protected:
    SolidTool()
    {
        scene.add(box(80, 60, 10, {-40, -30, -5}), "block");
        scene.view.getCamera()->set_ref(0, 0, 0, true);
        scene.view.getCamera()->set_view_height(100);
    }

    QPoint at(float x, float y) const { return scene.positionOf({x, y, 0}); }
    void clickAt(float x, float y) { click(scene.view, at(x, y)); }
    void dragFrom(Point const& from, float x, float y)
    {
        QPoint const start = scene.positionOf(from);
        move(scene.view, start);
        drag(scene.view, start, at(x, y), Qt::LeftButton);
    }
    QImage cursorPicture() const { return scene.view.cursor().pixmap().toImage(); }
    static QImage picture(char const* name)
    {
        return QPixmap(QStringLiteral(":/icons/icons/%1.png").arg(name)).toImage();
    }

    /// A cuboid of 30 by 20 mm in the middle.
    CuboidProperty& drawCuboid()
    {
        auto* const tool = scene.start<CuboidcutSelection>();
        clickAt(0, 0);
        CuboidProperty& record = tool->getCuboid()->getProperty();
        record.setCuboidParameters(false, 0, 0, false, 0, 178, false, 1, false, 2, 20, 30, 0);
        return record;
    }
    /// A cylinder of 10 mm in the middle.
    CylinderProperty& drawCylinder(bool hasNotch)
    {
        auto* const tool = scene.start<CylindercutSelection>();
        clickAt(0, 0);
        CylinderProperty& record = tool->getCylinder()->getProperty();
        record.setShapeParameters(false, 0, 0, false, 0, 178, false, 2, 10, hasNotch, 4, 5, 0,
                                  0.025f);
        return record;
    }

    SelectionScene scene;
};

constexpr double aPixel = 0.34;

}  // namespace

TEST_F(SolidTool, AClickMakesTheCuboidAndAnotherOneMovesIt)
{
    CuboidProperty& record = drawCuboid();
    EXPECT_EQ(record.getKeyPoints().size(), 4u);
    EXPECT_EQ(record.getEyeKeyPoints().size(), 4u);
    clickAt(30, 20);
    EXPECT_NEAR(record.getKeyPoints()[0].X(), 30, aPixel);
    EXPECT_EQ(record.getCuboidLength(), 30);
    EXPECT_EQ(scene.names().size(), 2u);
    auto* const tool = runningTool<CuboidcutSelection>(&scene.view);
    EXPECT_EQ(tool->getCuboid()->getLabel()->styleSheet(), TLabel::selectedStyle);
    EXPECT_EQ(runningTool<PolygoncutSelection>(&scene.view), nullptr);
}

TEST_F(SolidTool, TheCuboidsHandlesMoveSizeAndTurnIt)
{
    CuboidProperty& record = drawCuboid();
    dragFrom(record.getKeyPoints()[1], 20, 3);
    EXPECT_NEAR(record.getCuboidLength(), 35, aPixel) << "counted from the middle, on one side";
    dragFrom(record.getKeyPoints()[3], 5, 16);
    EXPECT_NEAR(record.getCuboidWidth(), 26, aPixel);
    dragFrom(record.getKeyPoints()[0], 3, 3);
    EXPECT_NEAR(record.getKeyPoints()[0].X(), 3, aPixel);
    Point const centre = record.getKeyPoints()[0];
    dragFrom(record.getKeyPoints()[2], centre.X(), centre.Y() + 20);
    EXPECT_NEAR(record.getCuboidAngle(), M_PI / 2 - std::atan2(26.0, 35.0), 0.05);
    EXPECT_NEAR(record.getKeyPoints()[2].X(), centre.X(), 0.6) << "the corner is under the mouse";
}

TEST_F(SolidTool, TheCuboidShowsWhatItsHandlesDo)
{
    CuboidProperty const& record = drawCuboid();
    move(scene.view, scene.positionOf(record.getKeyPoints()[2]));
    EXPECT_EQ(cursorPicture(), picture("cursor_2drotate"));
    move(scene.view, scene.positionOf(record.getKeyPoints()[1]));
    EXPECT_EQ(cursorPicture(), picture("cursor_freecutmove"));
    move(scene.view, at(35, 25));
    EXPECT_EQ(cursorPicture(), picture("cursor_cuboidcut"));
}

TEST_F(SolidTool, TypedCoordinatesMoveTheCentreWithoutASignal)
{
    CuboidProperty& record = drawCuboid();
    auto* const tool = runningTool<CuboidcutSelection>(&scene.view);
    tool->setSelectedPointInfo(7, 8, 9);
    EXPECT_EQ(record.getKeyPoints()[0].X(), 7);
    EXPECT_EQ(record.getKeyPoints()[0].Y(), 8);
    EXPECT_NE(record.getKeyPoints()[0].Z(), 9);
    EXPECT_NEAR(record.getKeyPoints()[1].X(), 22, 1e-4) << "the handles follow";
}

TEST_F(SolidTool, TheCylindersCircleIsDraggedWhereItIsTouched)
{
    CylinderProperty& record = drawCylinder(false);
    Point const rim = record.getKeyPoints()[0] + UVector3<float>(10, 0, 0);
    dragFrom(rim, 15, 0);
    EXPECT_NEAR(record.getRadius(), 15, aPixel);
    EXPECT_NEAR(record.getKeyPoints()[0].X(), 0, aPixel);
    EXPECT_EQ(scene.names().size(), 2u) << "and no click moves the tool";
}

TEST_F(SolidTool, TheCylindersNotchFollowsTheMouse)
{
    CylinderProperty& record = drawCylinder(true);
    dragFrom(record.getKeyPoints()[1], 3, 20);
    EXPECT_NEAR(record.getNotchWidth(), 6, 2 * aPixel);
    EXPECT_NEAR(record.getNotchLength(), 20 - std::sqrt(100.0 - 9.0), aPixel);
    float const length = record.getNotchLength();
    dragFrom(record.getKeyPoints()[1], -8, -20);
    EXPECT_LT(record.getNotchLength(), length);
    EXPECT_GT(record.getNotchLength(), -10.0f) << "it followed as far as its side goes";
}

TEST_F(SolidTool, WithoutANotchItsHandleTakesNoClick)
{
    CylinderProperty& record = drawCylinder(false);
    record.getKeyPoints()[1] = record.getKeyPoints()[0] + UVector3<float>(25, 0, 0);
    clickAt(25, 0);
    EXPECT_NEAR(record.getKeyPoints()[0].X(), 25, aPixel);
}

TEST_F(SolidTool, APreviewFreezesBoth)
{
    for (bool const isCuboid : {true, false}) {
        VolumeProperty& record = isCuboid ? static_cast<VolumeProperty&>(drawCuboid())
                                          : static_cast<VolumeProperty&>(drawCylinder(true));
        record.setPreviewing(true);
        std::vector<Point> const before = record.getKeyPoints();
        clickAt(30, 20);
        dragFrom(before[0], 10, 10);
        EXPECT_EQ(record.getKeyPoints(), before);
    }
}

TEST_F(SolidTool, AnotherToolTakesTheObjectAway)
{
    drawCuboid();
    drawCylinder(false);
    EXPECT_EQ(scene.names().size(), 2u);
    scene.view.stopSelection();
    EXPECT_EQ(scene.names(), std::vector<std::string>{"block"});
}
