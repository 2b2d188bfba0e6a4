// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/MeshGLView.h"
#include "platform/view/NavigationStyle.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tests/support/ViewEvents.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Preset = Base::NavigationStyle::Preset;
using Point = UPoint3<float>;

class Navigation : public testing::Test
{
protected:
    Navigation()
    {
        view.resize(800, 600);
        view.setDocument(test.document);
        test.add(box(20, 20, 20), "box");
        view.OnViewType(0);
        view.fitAll();
    }

    QPoint positionOf(Point const& world) const
    {
        int x = 0, y = 0;
        view.getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }
    double viewHeight() const
    {
        double width = 0, height = 0;
        view.getCamera()->get_view_rect(width, height);
        return height;
    }

    TestDocument test;
    Mesh::GLView view;
    Point const onFront{13, 0, 14};
};

}  // namespace

TEST_F(Navigation, ADragTurnsAboutThePointUnderTheMouse)
{
    for (auto const projection :
         {GLCamera::Projection::Parallel, GLCamera::Projection::Perspective}) {
        view.setProjection(projection);
        view.OnViewType(0);
        view.fitAll();
        QPoint const start = positionOf(onFront);
        Mesh::GLView::Pick pick;
        ASSERT_TRUE(view.pickPoint(start, pick));
        drag(view, start, start + QPoint(120, 60), Qt::RightButton);
        EXPECT_LE((positionOf(pick.point) - start).manhattanLength(), 1);
        EXPECT_EQ(view.viewIndex(), -1);
        EXPECT_NEAR(view.getViewDirection().Z(), std::sin(60 * 0.4 * M_PI / 180), 1e-5);
    }
}

TEST_F(Navigation, WhatIsDraggedFollowsTheMouse)
{
    // A point in front of the pivot moves the way the mouse does.
    QPoint const start = positionOf({10, 0, 10});
    view.getCamera()->set_pivot({10, 10, 10});
    press(view, {1, 1}, Qt::RightButton);
    move(view, {20, 1}, Qt::RightButton);
    move(view, {40, 1}, Qt::RightButton);
    EXPECT_GT(positionOf({10, 0, 10}).x(), start.x());
    release(view, {40, 1}, Qt::RightButton);
    view.OnViewType(0);
    QPoint const level = positionOf({10, 0, 10});
    drag(view, {1, 1}, {1, 40}, Qt::RightButton);
    EXPECT_GT(positionOf({10, 0, 10}).y(), level.y());
}

TEST_F(Navigation, TurnsEndStraightAboveAndBelow)
{
    drag(view, {400, 1}, {400, 599}, Qt::RightButton);
    EXPECT_NEAR(view.getViewDirection().Z(), 1, 1e-6);
    drag(view, {400, 599}, {400, 1}, Qt::RightButton);
    drag(view, {400, 599}, {400, 1}, Qt::RightButton);
    EXPECT_NEAR(view.getViewDirection().Z(), -1, 1e-6);
    EXPECT_NEAR(view.getViewDirection().GetLength(), 1, 1e-6);
}

TEST_F(Navigation, TurnsKeepTheHorizonLevel)
{
    drag(view, {400, 300}, {620, 410}, Qt::RightButton);
    drag(view, {400, 300}, {210, 150}, Qt::RightButton);
    UVector3<float> const across = view.getViewUpDirection() * view.getViewDirection();
    EXPECT_NEAR(across.Z(), 0, 1e-6);
}

TEST_F(Navigation, ADragMovesTheViewWithTheMouse)
{
    QPoint const start = positionOf(onFront);
    UVector3<float> const direction = view.getViewDirection();
    drag(view, start, start + QPoint(70, -40), Qt::MiddleButton);
    EXPECT_LE((positionOf(onFront) - start - QPoint(70, -40)).manhattanLength(), 1);
    EXPECT_EQ(view.getViewDirection(), direction);
}

TEST_F(Navigation, TheWheelZoomsToTheMouse)
{
    QPoint const start = positionOf(onFront);
    double const height = viewHeight();
    turnWheel(view, start, 2);
    EXPECT_NEAR(viewHeight(), height * 0.81, 1e-9);
    EXPECT_LE((positionOf(onFront) - start).manhattanLength(), 1);
    turnWheel(view, start, -1);
    EXPECT_NEAR(viewHeight(), height * 0.81 * 1.1, 1e-9);
    EXPECT_LE((positionOf(onFront) - start).manhattanLength(), 1);
}

TEST_F(Navigation, AShortMoveIsAClickAndTurnsNothing)
{
    UVector3<float> const direction = view.getViewDirection();
    drag(view, {100, 100}, {102, 102}, Qt::RightButton);
    EXPECT_EQ(view.getViewDirection(), direction);
}

TEST_F(Navigation, PresetsSayWhichButtonDoesWhat)
{
    struct Case
    {
        Preset preset;
        Qt::MouseButton button;
        Qt::KeyboardModifiers modifiers;
        bool turns, moves, zooms;
    };
    Case const cases[] = {
        {Preset::TurnByRight, Qt::RightButton, Qt::NoModifier, true, false, false},
        {Preset::TurnByRight, Qt::MiddleButton, Qt::NoModifier, false, true, false},
        {Preset::TurnByRight, Qt::RightButton, Qt::ShiftModifier, false, true, false},
        {Preset::TurnByRight, Qt::LeftButton, Qt::NoModifier, false, false, false},
        {Preset::TurnByMiddle, Qt::MiddleButton, Qt::NoModifier, true, false, false},
        {Preset::TurnByMiddle, Qt::MiddleButton, Qt::ShiftModifier, false, true, false},
        {Preset::TurnByMiddle, Qt::MiddleButton, Qt::ControlModifier, false, false, true},
        {Preset::TurnByMiddle, Qt::RightButton, Qt::NoModifier, false, false, false},
        {Preset::MoveByRight, Qt::MiddleButton, Qt::NoModifier, true, false, false},
        {Preset::MoveByRight, Qt::RightButton, Qt::NoModifier, false, true, false},
        {Preset::MoveByRight, Qt::RightButton, Qt::ControlModifier, false, false, true},
        {Preset::TurnByLeft, Qt::LeftButton, Qt::NoModifier, true, false, false},
        {Preset::TurnByLeft, Qt::LeftButton, Qt::AltModifier, true, false, false},
        {Preset::TurnByLeft, Qt::LeftButton, Qt::ShiftModifier, false, true, false},
        {Preset::TurnByLeft, Qt::LeftButton, Qt::ControlModifier, false, false, false},
        {Preset::TurnByLeft, Qt::RightButton, Qt::NoModifier, true, false, false},
        {Preset::TurnByLeft, Qt::RightButton, Qt::ControlModifier, false, false, true},
        {Preset::TurnByLeft, Qt::MiddleButton, Qt::NoModifier, false, true, false},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(testing::Message() << int(c.preset) << " " << c.button);
        view.OnViewType(0);
        view.fitAll();
        view.navigationStyle()->setPreset(c.preset);
        double const height = viewHeight();
        UVector3<float> const direction = view.getViewDirection();
        Point const ref = view.getViewRefPoint();
        drag(view, {400, 300}, {430, 330}, c.button, c.modifiers);
        EXPECT_EQ(view.getViewDirection() != direction, c.turns);
        EXPECT_EQ(viewHeight() != height, c.zooms);
        if (!c.turns && !c.zooms) {
            EXPECT_EQ(view.getViewRefPoint() != ref, c.moves);
        }
    }
}

TEST_F(Navigation, AnotherButtonDoesNotEndADrag)
{
    press(view, {400, 300}, Qt::RightButton);
    move(view, {420, 300}, Qt::RightButton);
    sendMouse(view, QEvent::MouseButtonPress, {420, 300}, Qt::MiddleButton,
              Qt::RightButton | Qt::MiddleButton);
    sendMouse(view, QEvent::MouseButtonRelease, {420, 300}, Qt::MiddleButton, Qt::RightButton);
    EXPECT_TRUE(view.navigationStyle()->isNavigating());
    release(view, {420, 300}, Qt::RightButton);
    EXPECT_FALSE(view.navigationStyle()->isNavigating());
}

TEST_F(Navigation, ADragWhoseReleaseWentElsewhereEndsWithTheNextMove)
{
    press(view, {400, 300}, Qt::RightButton);
    move(view, {420, 300}, Qt::RightButton);
    UVector3<float> const direction = view.getViewDirection();
    move(view, {500, 300});
    EXPECT_FALSE(view.navigationStyle()->isNavigating());
    EXPECT_EQ(view.getViewDirection(), direction);
}

TEST_F(Navigation, ASecondButtonDoesNotTurnWhatTheFirstDrags)
{
    UVector3<float> const direction = view.getViewDirection();
    press(view, {400, 300}, Qt::LeftButton);
    move(view, {420, 300}, Qt::LeftButton);
    sendMouse(view, QEvent::MouseButtonPress, {420, 300}, Qt::RightButton,
              Qt::LeftButton | Qt::RightButton);
    move(view, {480, 300}, Qt::LeftButton | Qt::RightButton);
    EXPECT_FALSE(view.navigationStyle()->isNavigating());
    EXPECT_EQ(view.getViewDirection(), direction);
}

TEST_F(Navigation, FittingShowsTheWholeBoxAndFillsThePicture)
{
    test.add(box(5, 60, 10, {-40, 3, 2}), "long");
    for (auto const projection :
         {GLCamera::Projection::Parallel, GLCamera::Projection::Perspective})
        for (int type = 0; type < 7; ++type) {
            view.setProjection(projection);
            view.OnViewType(type);
            view.fitAll();
            UBox3<float> const all = view.getSceneBox(false);
            double reach = 0;
            for (int corner = 0; corner < 8; ++corner) {
                QPoint const p = positionOf({corner & 1 ? all.MaxX() : all.MinX(),
                                             corner & 2 ? all.MaxY() : all.MinY(),
                                             corner & 4 ? all.MaxZ() : all.MinZ()});
                reach = std::max({reach, std::abs(p.x() / 400.0 - 1), std::abs(p.y() / 300.0 - 1)});
            }
            EXPECT_LE(reach, 0.86) << type;
            EXPECT_GE(reach, 0.84) << type;
        }
}

TEST_F(Navigation, FittingTheSelectionLooksAtWhatIsSelected)
{
    Mesh::DocumentObject* const small = test.add(box(2, 2, 2, {100, 100, 100}), "small");
    small->setSelected(true, true, true);
    view.fitSelection();
    EXPECT_EQ(view.getViewRefPoint(), Point(101, 101, 101));
    EXPECT_LT(viewHeight(), 4);
    small->setSelected(false, true, false);
    view.fitSelection();
    EXPECT_LT(viewHeight(), 4);
}
