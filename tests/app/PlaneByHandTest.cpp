// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/MouseInWindow.h"
#include "tests/app/ToolWindow.h"

#include <QCursor>
#include <QPixmap>

#include <cmath>

// How a plane is picked and dragged in the shown view, by a mouse over the window.
namespace {

using namespace Freecut;

class PlaneByHand : public ToolWindow
{
protected:
    void SetUp() override
    {
        ToolWindow::SetUp();
        if (!IsSkipped())
            mouse = std::make_unique<MouseInWindow>(*window);
    }

    void choose(PlaneType type)
    {
        if (!sectionDialog())
            open("Std_Sectioncut");
        if (planeTool() && planeTool()->getPlaneType() == type)
            return;
        mouse->click(*sectionDialog()->widgets().planeButtons[type]);
        settle();
    }
    void pickAt(Point const& world)
    {
        mouse->click(view(), positionOf(world));
        settle();
    }
    /// A plane of a fixed kind through a point, where the mouse need not reach, all of which lies
    /// within the view and beside the dialog.
    void standPlane(PlaneType type, Point const& center)
    {
        choose(type);
        planeTool()->setPlaneSize({.width = 24, .height = 30});
        planeTool()->setPlaneByCenterAndNormal(center, {0, 0, 1});
        settle();
    }
    Points corners() const { return plane().getCorners(); }
    QPoint handle(int index) const
    {
        return positionOf(plane().getKeyPoints()[std::size_t(index)]);
    }
    void dragHandle(int index, QPoint way, Qt::KeyboardModifiers modifiers = {})
    {
        mouse->drag(view(), handle(index), way, modifiers);
        settle();
    }
    UVector3<float> firstAxis() const
    {
        UVector3<float> axis = corners()[1] - corners()[0];
        return axis.Normalize();
    }
    bool showsCursor(char const* name) const
    {
        return view().cursor().pixmap().toImage() ==
               QPixmap(QStringLiteral(":/icons/icons/%1.png").arg(name)).toImage();
    }

    std::unique_ptr<MouseInWindow> mouse;
};

}  // namespace

TEST_F(PlaneByHand, ASecondPickOnTheFirstPlaceIsIgnoredAndSoIsAThird)
{
    addBlock();
    choose(PLANE_3POINTS);
    Point const first(-20, -10, 15), second(20, -10, 15);
    pickAt(first);
    pickAt(first);
    EXPECT_EQ(planeTool()->getPicks().size(), 1u);
    pickAt(second);
    pickAt(first);
    pickAt(second);
    EXPECT_EQ(planeTool()->getPicks().size(), 2u);
    EXPECT_FALSE(planeTool()->getPlaneObject());
    EXPECT_FALSE(sectionDialog()->widgets().ok->isEnabled());
    pickAt({3, 12, 15});
    EXPECT_TRUE(planeTool()->getPlaneObject());
    EXPECT_TRUE(planeTool()->getPicks().empty());
}

TEST_F(PlaneByHand, PicksBesideEveryPartLeaveThoseThatThereAre)
{
    addBlock();
    choose(PLANE_3POINTS);
    pickAt({-20, -10, 15});
    pickAt({-33, -10, 15});
    EXPECT_EQ(planeTool()->getPicks().size(), 1u);
}

TEST_F(PlaneByHand, OneClickEndsThePickingOfEveryKindButThreePoints)
{
    addBlock();
    for (PlaneType const type : {PLANE_TANGENT, PLANE_VERTICAL, PLANE_XY, PLANE_XZ, PLANE_YZ}) {
        choose(type);
        pickAt({4, 6, 15});
        ASSERT_TRUE(planeTool()->getPlaneObject()) << type;
        EXPECT_TRUE(planeTool()->getPicks().empty()) << type;
        EXPECT_TRUE(sectionDialog()->widgets().ok->isEnabled()) << type;
    }
}

TEST_F(PlaneByHand, AFaceThatLooksUpTakesItsFirstAxisAlongYAndOneThatLooksForwardAlongZ)
{
    addBlock();
    choose(PLANE_TANGENT);
    pickAt({4, 6, 15});
    EXPECT_EQ(firstAxis(), UVector3<float>(0, 1, 0));
    EXPECT_NEAR(corners()[2].Z(), 15, 1e-4);
    sectionDialog()->widgets().cancel->click();
    settle();
    lookFrom(0);
    choose(PLANE_TANGENT);
    pickAt({4, -20, 3});
    ASSERT_TRUE(planeTool()->getPlaneObject());
    EXPECT_EQ(firstAxis().X(), 0);
    EXPECT_NEAR(std::fabs(firstAxis().Z()), 1, 1e-6);
    EXPECT_NEAR(corners()[2].Y(), -20, 1e-4);
}

TEST_F(PlaneByHand, AnotherKindTakesThePlaneAwayWithoutEndingTheTool)
{
    addBlock();
    choose(PLANE_3POINTS);
    pickAt({-20, -10, 15});
    PlanecutSelection const* const tool = planeTool();
    choose(PLANE_XY);
    EXPECT_EQ(planeTool(), tool);
    EXPECT_TRUE(planeTool()->getPicks().empty());
    pickAt({4, 6, 15});
    ASSERT_TRUE(planeTool()->getPlaneObject());
    choose(PLANE_XZ);
    EXPECT_EQ(planeTool(), tool);
    EXPECT_FALSE(planeTool()->getPlaneObject());
    EXPECT_FALSE(sectionDialog()->widgets().ok->isEnabled());
    EXPECT_EQ(document().getObjectArray().size(), 1u);
    pickAt({4, 6, 15});
    EXPECT_TRUE(planeTool()->getPlaneObject());
}

TEST_F(PlaneByHand, TheCommandOfTheKindThatRunsLeavesThePlane)
{
    addBlock();
    choose(PLANE_XZ);
    pickAt({4, 6, 15});
    Points const before = corners();
    commands().getCommandByName("FreecutPlaneXZPlane")->invoke(1);
    ASSERT_TRUE(planeTool() && planeTool()->getPlaneObject());
    EXPECT_EQ(corners(), before);
}

TEST_F(PlaneByHand, SevenPixelsBesideAHandleHitItAndEightDoNot)
{
    addBlock();
    standPlane(PLANE_XY, {0, 0, 0});
    QPoint const middle = handle(0);
    ASSERT_TRUE(showsCursor("cursor_planecut"));
    for (QPoint const& beside : {QPoint(8, 0), QPoint(0, 8), QPoint(-8, 0), QPoint(0, -8)}) {
        mouse->moveTo(view(), middle + beside);
        EXPECT_TRUE(showsCursor("cursor_planecut")) << beside.x() << ", " << beside.y();
    }
    mouse->moveTo(view(), middle + QPoint(7, -7));
    EXPECT_TRUE(showsCursor("cursor_freecutmove"));
}

TEST_F(PlaneByHand, EveryHandleShowsWhatItDoesAndWithControlThatItMoves)
{
    addBlock();
    standPlane(PLANE_XY, {0, 0, 0});
    for (int i = 0; i < 9; ++i) {
        mouse->moveTo(view(), handle(i));
        EXPECT_TRUE(showsCursor(i == 0  ? "cursor_freecutmove"
                                : i < 5 ? "cursor_2drotate"
                                        : "cursor_3drotate"))
            << i;
        mouse->moveTo(view(), handle(i) + QPoint(1, 0), Qt::ControlModifier);
        EXPECT_TRUE(showsCursor("cursor_freecutmove")) << i;
    }
}

TEST_F(PlaneByHand, ADragBeyondAllPartsStopsWithinThemAndKeepsTheSize)
{
    addBlock();
    standPlane(PLANE_YZ, {5, 0, 0});
    PlaneSize const size = planeTool()->getPlaneSize();
    QPoint const beyond = positionOf({60, 0, 0}) - positionOf({5, 0, 0});
    dragHandle(0, beyond);
    EXPECT_GT(corners()[0].X(), 5);
    EXPECT_LT(corners()[0].X(), 30);
    EXPECT_NEAR(planeTool()->getPlaneSize().width, size.width, 1e-3);
    EXPECT_NEAR(planeTool()->getPlaneSize().height, size.height, 1e-3);
    // It can be had back from where it stopped.
    dragHandle(0, QPoint(-40, 0));
    EXPECT_LT(corners()[0].X(), 30);
}

TEST_F(PlaneByHand, WithControlTheCentreChangesNothingAndACornerTheSize)
{
    addBlock();
    standPlane(PLANE_XY, {0, 0, 0});
    Points const before = corners();
    dragHandle(0, {30, 20}, Qt::ControlModifier);
    EXPECT_EQ(corners(), before);
    Point const opposite = before[0];
    dragHandle(3, {-20, 20}, Qt::ControlModifier);
    EXPECT_NE(corners()[2], before[2]);
    EXPECT_EQ(corners()[0], opposite);
    EXPECT_NEAR(sectionDialog()->widgets().size[0]->value(),
                double((corners()[1] - corners()[0]).GetLength()), 1e-3);
}

TEST_F(PlaneByHand, ControlCountsAtThePressAlone)
{
    addBlock();
    standPlane(PLANE_XY, {0, 0, 0});
    auto const sideOf = [&] { return (corners()[1] - corners()[0]).GetLength(); };
    float const side = sideOf();
    // Pressed only after the button: still a tilt.
    QPoint from = handle(8);
    mouse->moveTo(view(), from);
    mouse->press(view(), from);
    mouse->moveTo(view(), from + QPoint(-30, 0), Qt::ControlModifier);
    mouse->release(view(), from + QPoint(-30, 0), Qt::ControlModifier);
    settle();
    EXPECT_NEAR(sideOf(), side, 1e-3);
    // Released after the button: still a change of size.
    from = handle(8);
    mouse->moveTo(view(), from, Qt::ControlModifier);
    mouse->press(view(), from, Qt::ControlModifier);
    mouse->moveTo(view(), from + QPoint(-30, 0));
    mouse->release(view(), from + QPoint(-30, 0));
    settle();
    EXPECT_LT(sideOf(), side - 1);
}

TEST_F(PlaneByHand, AlongItsAxisATiltTurnsByNothing)
{
    addBlock();
    standPlane(PLANE_XY, {0, 0, 0});
    Points const before = corners();
    // The middle of the edge between the first two corners, along that edge.
    dragHandle(5, {60, 0});
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_LT((corners()[i] - before[i]).GetLength(), 1e-3) << i;
}

TEST_F(PlaneByHand, ADragThatEndsOverAPartPicksNothing)
{
    addBlock();
    standPlane(PLANE_YZ, {5, 0, 0});
    dragHandle(0, {-25, 10});
    EXPECT_FALSE(planeTool()->pickedPoint());
    EXPECT_EQ(document().getObjectArray().size(), 2u);
    EXPECT_TRUE(view().cursor().pixmap().isNull()) << "the cursor of the drag has gone";
}

TEST_F(PlaneByHand, EscapeTakesTheRunningDragBackAndOnlyThenTheTool)
{
    addBlock();
    standPlane(PLANE_XY, {0, 0, 0});
    Points const before = corners();
    view().setFocus();
    QPoint const from = handle(1);
    mouse->moveTo(view(), from);
    mouse->press(view(), from);
    mouse->moveTo(view(), from + QPoint(25, 40));
    EXPECT_NE(corners(), before);
    pressKey(Qt::Key_Escape);
    ASSERT_TRUE(planeTool() && planeTool()->getPlaneObject());
    EXPECT_EQ(corners(), before);
    mouse->release(view(), from + QPoint(25, 40));
    EXPECT_EQ(corners(), before);
}

TEST_F(PlaneByHand, TheArrowKeysNudgeItByTheStepAndWithShiftByTen)
{
    addBlock();
    standPlane(PLANE_XY, {0, 0, 0});
    typeInto(sectionDialog()->widgets().step, "0.5");
    view().setFocus();
    pressKey(Qt::Key_Up);
    EXPECT_NEAR(std::fabs(corners()[0].Z()), 0.5, 1e-5);
    pressKey(Qt::Key_Down);
    EXPECT_NEAR(corners()[0].Z(), 0, 1e-5);
    pressKey(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_NEAR(std::fabs(corners()[0].Z()), 5, 1e-5);
}
