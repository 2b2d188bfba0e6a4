// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/OrientationCube.h"
#include "platform/view/PointPickerMesh.h"
#include "tests/support/ShownView.h"

namespace {

class Cube : public testing::Test
{
protected:
    Cube() { view.resize(800, 600); }

    Mesh::GLView view;
    /// The middle of the cube.
    QPoint const middle{742, 58};
};

}  // namespace

TEST_F(Cube, ShowsTheFaceOfTheStandardViewThatIsShown)
{
    for (int type = 0; type < 6; ++type) {
        view.OnViewType(type);
        EXPECT_EQ(OrientationCube::viewAt(view, middle), type);
        EXPECT_EQ(OrientationCube::viewAt(view, middle - QPoint(25, 0)) >= 0, true);
    }
    EXPECT_EQ(OrientationCube::viewAt(view, middle + QPoint(0, 60)), -1);
    EXPECT_EQ(OrientationCube::viewAt(view, {100, 100}), -1);
}

TEST_F(Cube, HasItsFacesWhereTheyAreSeenFromTheIsometricView)
{
    view.OnViewType(6);
    EXPECT_EQ(OrientationCube::viewAt(view, middle), 6);
    EXPECT_EQ(OrientationCube::viewAt(view, middle - QPoint(0, 30)), 2);
    EXPECT_EQ(OrientationCube::viewAt(view, middle + QPoint(-27, 15)), 0);
    EXPECT_EQ(OrientationCube::viewAt(view, middle + QPoint(27, 15)), 5);
}

TEST_F(Cube, TurnsTheViewByAClickThatNoToolSees)
{
    view.startSelection("Mesh::PointPickerMesh");
    view.OnViewType(6);
    QPoint const front = middle + QPoint(-27, 15);
    press(view, front, Qt::LeftButton);
    release(view, {100, 100}, Qt::LeftButton);
    EXPECT_EQ(view.viewIndex(), 6);
    click(view, front);
    EXPECT_EQ(view.viewIndex(), 0);
    drag(view, {100, 100}, {150, 120}, Qt::RightButton);
    EXPECT_EQ(view.viewIndex(), -1);
}

TEST_F(Cube, LeavesOtherButtonsToTheView)
{
    view.OnViewType(0);
    drag(view, middle, middle + QPoint(-80, 40), Qt::RightButton);
    EXPECT_EQ(view.viewIndex(), -1);
    view.OnViewType(0);
    press(view, middle, Qt::RightButton);
    release(view, middle, Qt::RightButton);
    EXPECT_EQ(view.viewIndex(), 0);
}

class ShownCube : public ShownView
{
};

INSTANTIATE_TEST_SUITE_P(Path, ShownCube, bothPaths, pathName);

TEST_P(ShownCube, HighlightsWhatIsUnderTheMouse)
{
    view->OnViewType(6);
    settle();
    QPoint const front(400 - 58 - 20, 58 + 20);
    auto const colorOf = [&](char const* name) {
        return picture(name).pixelColor(front * int(view->devicePixelRatioF()));
    };
    QColor const plain = colorOf("cube");
    move(*view, front);
    QColor const hovered = colorOf("cube-hovered");
    EXPECT_GT(hovered.red() - hovered.blue(), plain.red() - plain.blue() + 40);
    move(*view, {10, 10});
    EXPECT_EQ(colorOf("cube-left"), plain);
    move(*view, {400 - 58, 58});
    picture("cube-corner");
}
