// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/GraphicViewProvider.h"
#include "selection/PlanecutSelection.h"
#include "tests/selection/SelectionScene.h"
#include "tools/PlaneGraphicObject.h"

#include <gtest/gtest.h>

#include <QCursor>
#include <QMouseEvent>
#include <QPixmap>

#include <cmath>

namespace {

using Freecut::PlanecutSelection;
using Point = UPoint3<float>;
using Type = PlanecutSelection::PlaneType;

/// A block of 40 x 20 x 10 mm seen from above, about the origin, its upper face at z = 5.
class PlaneTool : public testing::Test
{
protected:
    PlaneTool() { part = scene.add(box(40, 20, 10, {-20, -10, -5}), "block"); }

    PlanecutSelection* start(Type type)
    {
        auto* const tool = scene.start<PlanecutSelection>();
        tool->setPlaneType(type);
        return tool;
    }
    PlanecutSelection* tool() const { return Freecut::runningTool<PlanecutSelection>(&scene.view); }

    void clickAt(Point const& world) { click(scene.view, scene.positionOf(world)); }
    std::vector<Point> corners() const
    {
        return tool()->getPlaneObject()->getProperty().getCorners();
    }
    Point handle(int index) const
    {
        return tool()->getPlaneObject()->getProperty().getKeyPoints()[std::size_t(index)];
    }
    QPoint handlePosition(int index) const { return scene.positionOf(handle(index)); }

    /// Hovers, presses, moves and releases, as a hand does.
    void dragHandle(int index, QPoint way, Qt::KeyboardModifiers modifiers = {})
    {
        QPoint const from = handlePosition(index);
        move(scene.view, from, {}, modifiers);
        drag(scene.view, from, from + way, Qt::LeftButton, modifiers);
    }

    QImage cursorPicture() const { return scene.view.cursor().pixmap().toImage(); }
    static QImage picture(char const* name)
    {
        return QPixmap(QStringLiteral(":/icons/icons/%1.png").arg(name)).toImage();
    }

    SelectionScene scene;
    Mesh::DocumentObject* part;
};

struct ChangeCount : sigslot::has_slots<sigslot::single_threaded>
{
    void changed() { ++count; }
    int count = 0;
};

}  // namespace

TEST_F(PlaneTool, IsFoundByItsTypeAlone)
{
    EXPECT_EQ(tool(), nullptr);
    start(Type::PLANE_XY);
    EXPECT_NE(tool(), nullptr);
    EXPECT_EQ(scene.view.getInteractModeName(), "Freecut::PlanecutSelection");
    scene.view.startSelection("Mesh::PointPickerMesh");
    EXPECT_EQ(tool(), nullptr);
    EXPECT_EQ(Freecut::runningTool<PlanecutSelection>(nullptr), nullptr);
}

TEST_F(PlaneTool, OneClickMakesAPlaneOfAFixedTypeThroughTheClick)
{
    start(Type::PLANE_YZ);
    clickAt({5, 2, 5});
    ASSERT_TRUE(tool()->getPlaneObject());
    EXPECT_TRUE(tool()->getPicks().empty());
    float const size = std::sqrt(40.0f * 40 + 20 * 20 + 10 * 10);
    EXPECT_FLOAT_EQ(tool()->getPlaneSize().width, size);
    EXPECT_FLOAT_EQ(tool()->getPlaneSize().height, size);
    Point const center = handle(0);
    // The middle of a pixel is what the mouse can aim at.
    EXPECT_NEAR(center.X(), 5, 0.5);
    EXPECT_NEAR(center.Y(), 2, 0.5);
    EXPECT_NEAR(center.Z(), 5, 1e-4);
    // a = y and b = z: c0 = P - b*W/2 - a*H/2, c1 = c0 + a*H, c2 = c1 + b*W.
    EXPECT_NEAR(corners()[0].Y(), center.Y() - size / 2, 1e-4);
    EXPECT_NEAR(corners()[0].Z(), center.Z() - size / 2, 1e-4);
    EXPECT_NEAR(corners()[1].Y(), center.Y() + size / 2, 1e-4);
    EXPECT_NEAR(corners()[2].Z(), center.Z() + size / 2, 1e-4);
    EXPECT_EQ(corners()[0].X(), center.X());
}

TEST_F(PlaneTool, ThePlaneIsAToolObjectThatIsSelectedAndShown)
{
    start(Type::PLANE_XY);
    clickAt({0, 0, 5});
    auto* const plane = tool()->getPlaneObject();
    EXPECT_EQ(plane->getDocument(), scene.document);
    EXPECT_TRUE(plane->isSelected());
    EXPECT_EQ(plane->getViewProvider()->getClassName(), "Freecut::PlaneViewProvider");
}

TEST_F(PlaneTool, TangentLiesOnTheSurfaceAndVerticalStandsOnIt)
{
    auto const normalOf = [this] {
        UVector3<float> n = (corners()[1] - corners()[0]) * (corners()[2] - corners()[1]);
        return n.Normalize();
    };
    start(Type::PLANE_TANGENT);
    clickAt({3, 3, 5});
    EXPECT_NEAR(normalOf().Z(), 1, 1e-5);
    EXPECT_NEAR(corners()[0].Z(), 5, 1e-4);
    tool()->resetSelection();
    tool()->setPlaneType(Type::PLANE_VERTICAL);
    clickAt({3, 3, 5});
    EXPECT_NEAR(normalOf().Z(), 0, 1e-5);
}

TEST_F(PlaneTool, ThreeClicksMakeThePlaneOfThreePoints)
{
    start(Type::PLANE_3POINTS);
    clickAt({-15, -5, 5});
    EXPECT_EQ(tool()->getPicks().size(), 1u);
    EXPECT_FALSE(tool()->getPlaneObject());
    clickAt({15, -5, 5});
    EXPECT_EQ(tool()->getPicks().size(), 2u);
    clickAt({0, 8, 5});
    ASSERT_TRUE(tool()->getPlaneObject());
    EXPECT_TRUE(tool()->getPicks().empty());
    EXPECT_NEAR(handle(0).Y(), 8, 0.5);
    EXPECT_NEAR(handle(0).Z(), 5, 1e-4);
    // |P0 - P2| = |P1 - P2| = sqrt(15^2 + 13^2)
    EXPECT_NEAR(tool()->getPlaneSize().width, 2 * std::hypot(15.0f, 13.0f), 1.5);
}

TEST_F(PlaneTool, ASecondClickOnTheFirstPlaceIsIgnored)
{
    start(Type::PLANE_3POINTS);
    clickAt({-15, -5, 5});
    clickAt({-15, -5, 5});
    EXPECT_EQ(tool()->getPicks().size(), 1u);
}

TEST_F(PlaneTool, AThirdClickOnTheFirstPlaceIsIgnoredAndTheMarksStayTwo)
{
    start(Type::PLANE_3POINTS);
    clickAt({-15, -5, 5});
    clickAt({15, -5, 5});
    clickAt({-15, -5, 5});
    EXPECT_EQ(tool()->getPicks().size(), 2u);
    EXPECT_FALSE(tool()->getPlaneObject());
}

TEST_F(PlaneTool, AClickBesideAllPartsDoesNothing)
{
    start(Type::PLANE_3POINTS);
    clickAt({-15, -5, 5});
    clickAt({-40, -40, 5});
    EXPECT_EQ(tool()->getPicks().size(), 1u);
    start(Type::PLANE_XY);
    clickAt({-40, -40, 5});
    EXPECT_FALSE(tool()->getPlaneObject());
}

TEST_F(PlaneTool, APickGoesByWhereThePartIsPlaced)
{
    part->setMatrix(
        [] {
            UMatrix4<float> raised;
            raised(2, 3) = 30;
            return raised;
        }(),
        true, true);
    start(Type::PLANE_XY);
    clickAt({5, 5, 35});
    EXPECT_NEAR(handle(0).Z(), 35, 1e-3);
}

TEST_F(PlaneTool, NumbersPlaceAPlaneWhereNoneStands)
{
    for (Type const type : {Type::PLANE_3POINTS, Type::PLANE_XY, Type::PLANE_XZ, Type::PLANE_YZ}) {
        start(type);
        EXPECT_EQ(tool()->setPlaneByCenterAndNormal({1, 2, 3}, {0, 0, 1}), 1);
        ASSERT_TRUE(tool()->getPlaneObject());
        EXPECT_NEAR(handle(0).X(), 1, 1e-5);
        std::vector<Point> const before = corners();
        EXPECT_EQ(tool()->setPlaneByCenterAndNormal({4, 5, 6}, {1, 0, 0}), 1);
        EXPECT_EQ(corners(), before);
    }
    for (Type const type : {Type::PLANE_TANGENT, Type::PLANE_VERTICAL}) {
        start(type);
        EXPECT_EQ(tool()->setPlaneByCenterAndNormal({1, 2, 3}, {0, 0, 1}), 1);
        EXPECT_FALSE(tool()->getPlaneObject());
    }
}

TEST_F(PlaneTool, NumbersTakeAwayTheMarksOfAnUnfinishedPick)
{
    start(Type::PLANE_3POINTS);
    clickAt({-15, -5, 5});
    tool()->setPlaneByCenterAndNormal({0, 0, 0}, {0, 0, 1});
    EXPECT_TRUE(tool()->getPicks().empty());
    EXPECT_TRUE(tool()->getPlaneObject());
}

TEST_F(PlaneTool, AResetKeepsTheSizeForTheNextPlane)
{
    start(Type::PLANE_XY);
    clickAt({0, 0, 5});
    tool()->setPlaneSize({12, 34});
    tool()->resetSelection();
    EXPECT_FALSE(tool()->getPlaneObject());
    EXPECT_EQ(scene.names(), std::vector<std::string>{"block"});
    clickAt({0, 0, 5});
    EXPECT_NEAR((corners()[2] - corners()[1]).GetLength(), 12, 1e-4);
    EXPECT_NEAR((corners()[1] - corners()[0]).GetLength(), 34, 1e-4);
}

TEST_F(PlaneTool, TheTypeChosenLastIsThatOfTheNextTool)
{
    start(Type::PLANE_XZ);
    scene.view.stopSelection();
    EXPECT_EQ(scene.start<PlanecutSelection>()->getPlaneType(), Type::PLANE_XZ);
    start(Type::PLANE_3POINTS);
    scene.view.stopSelection();
}

TEST_F(PlaneTool, ThePlaneGoesWithTheTool)
{
    start(Type::PLANE_XY);
    clickAt({0, 0, 5});
    scene.view.stopSelection();
    EXPECT_EQ(scene.names(), std::vector<std::string>{"block"});
    start(Type::PLANE_XY);
    clickAt({0, 0, 5});
    scene.application.closeDocument(scene.document);
}

TEST_F(PlaneTool, TheCentreMovesThePlane)
{
    start(Type::PLANE_YZ);
    clickAt({5, 2, 5});
    std::vector<Point> const before = corners();
    QPoint const from = handlePosition(0);
    double const millimetres = 200.0 / 300;
    dragHandle(0, {15, 0});
    EXPECT_NEAR(corners()[0].X(), before[0].X() + 15 * millimetres, 1e-3);
    EXPECT_NEAR(corners()[2].Y(), before[2].Y(), 1e-3);
    EXPECT_EQ(scene.positionOf(handle(0)), from + QPoint(15, 0));
}

TEST_F(PlaneTool, ADragBeyondTheLastPartStopsAtTheLastValidPlace)
{
    start(Type::PLANE_YZ);
    clickAt({5, 2, 5});
    Freecut::PlaneSize const size = tool()->getPlaneSize();
    dragHandle(0, {200, 0});
    EXPECT_LT(corners()[0].X(), 20);
    EXPECT_NEAR(tool()->getPlaneSize().width, size.width, 1e-3);
    EXPECT_NEAR(tool()->getPlaneSize().height, size.height, 1e-3);
}

TEST_F(PlaneTool, ACornerTurnsAndAnEdgeTiltsThePlane)
{
    start(Type::PLANE_XY);
    clickAt({0, 0, 5});
    // Drawn through the upper face the plane would not go through the parts.
    tool()->resetSelection();
    tool()->setPlaneByCenterAndNormal({0, 0, 0}, {0, 0, 1});
    std::vector<Point> const before = corners();
    dragHandle(1, {0, 20});
    EXPECT_NE(corners()[0], before[0]);
    EXPECT_NEAR(corners()[0].Z(), 0, 1e-4);
    EXPECT_NEAR(handle(0).X(), 0, 1e-4);

    std::vector<Point> const turned = corners();
    scene.view.OnViewType(0);
    dragHandle(5, {0, 20});
    EXPECT_GT(std::fabs(corners()[0].Z() - turned[0].Z()), 1);
    EXPECT_NEAR(handle(0).Z(), 0, 1e-4);
}

TEST_F(PlaneTool, ControlResizesAndTheCentreThenChangesNothing)
{
    start(Type::PLANE_XY)->setPlaneByCenterAndNormal({0, 0, 0}, {0, 0, 1});
    std::vector<Point> const before = corners();
    dragHandle(0, {20, 20}, Qt::ControlModifier);
    EXPECT_EQ(corners(), before);
    dragHandle(3, {15, -15}, Qt::ControlModifier);
    EXPECT_NEAR(corners()[0].X(), before[0].X(), 1e-4);
    EXPECT_NEAR(corners()[2].X(), before[2].X() + 10, 1e-3);
    EXPECT_NEAR(corners()[2].Y(), before[2].Y() + 10, 1e-3);
    EXPECT_NEAR(tool()->getPlaneSize().height, corners()[1].X() - corners()[0].X(), 1e-3);
}

TEST_F(PlaneTool, AResizeMayLeaveTheParts)
{
    start(Type::PLANE_YZ);
    clickAt({5, 2, 5});
    scene.view.OnViewType(4);
    dragHandle(5, {0, 30}, Qt::ControlModifier);
    dragHandle(7, {0, -130}, Qt::ControlModifier);
    for (Point const& corner : corners())
        EXPECT_EQ(corner.X(), corners()[0].X());
}

TEST_F(PlaneTool, ControlIsReadAtThePress)
{
    start(Type::PLANE_XY)->setPlaneByCenterAndNormal({0, 0, 0}, {0, 0, 1});
    Freecut::PlaneSize const size = tool()->getPlaneSize();
    QPoint const from = handlePosition(8);
    move(scene.view, from);
    press(scene.view, from, Qt::LeftButton);
    move(scene.view, from + QPoint(20, 0), Qt::LeftButton, Qt::ControlModifier);
    release(scene.view, from + QPoint(20, 0), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_NEAR(tool()->getPlaneSize().height, size.height, 1e-3);

    move(scene.view, from, {}, Qt::ControlModifier);
    press(scene.view, handlePosition(8), Qt::LeftButton, Qt::ControlModifier);
    move(scene.view, handlePosition(8) + QPoint(15, 0), Qt::LeftButton);
    release(scene.view, handlePosition(8), Qt::LeftButton);
    EXPECT_NEAR(tool()->getPlaneSize().height, size.height + 10, 0.1);
}

TEST_F(PlaneTool, APressDragsTheHandleThatTheMouseWasOverLast)
{
    start(Type::PLANE_XY)->setPlaneByCenterAndNormal({0, 0, 0}, {0, 0, 1});
    std::vector<Point> const before = corners();
    move(scene.view, handlePosition(0));
    // No move leads to the corner.
    drag(scene.view, handlePosition(1), handlePosition(1) + QPoint(15, 0), Qt::LeftButton);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(corners()[i].X(), before[i].X() + 10, 1e-3) << i;
}

TEST_F(PlaneTool, OnceThePlaneStandsAClickPicksAPoint)
{
    start(Type::PLANE_XY);
    clickAt({0, 0, 5});
    EXPECT_FALSE(tool()->pickedPoint());
    clickAt({-8, 4, 5});
    ASSERT_TRUE(tool()->pickedPoint());
    EXPECT_NEAR(tool()->pickedPoint()->X(), -8, 0.5);
    EXPECT_EQ(scene.document->getObjectArray().size(), 2u);
}

TEST_F(PlaneTool, AReleaseOverAPartAfterADragPicksNothing)
{
    start(Type::PLANE_YZ);
    clickAt({5, 2, 5});
    dragHandle(0, {10, 5});
    EXPECT_FALSE(tool()->pickedPoint());
    EXPECT_EQ(scene.document->getObjectArray().size(), 2u);
}

TEST_F(PlaneTool, TheCursorsTellWhatAHandleDoes)
{
    start(Type::PLANE_XY)->setPlaneByCenterAndNormal({0, 0, 0}, {0, 0, 1});
    EXPECT_EQ(cursorPicture(), picture("cursor_planecut"));
    EXPECT_EQ(scene.view.cursor().hotSpot(), QPoint(0, 0));
    char const* const expected[] = {"cursor_freecutmove", "cursor_2drotate", "cursor_2drotate",
                                    "cursor_2drotate",    "cursor_2drotate", "cursor_3drotate",
                                    "cursor_3drotate",    "cursor_3drotate", "cursor_3drotate"};
    for (int i = 0; i < 9; ++i) {
        move(scene.view, handlePosition(i));
        EXPECT_EQ(cursorPicture(), picture(expected[i])) << i;
    }
    move(scene.view, handlePosition(8), {}, Qt::ControlModifier);
    EXPECT_EQ(cursorPicture(), picture("cursor_freecutmove"));
    move(scene.view, handlePosition(8), {}, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(cursorPicture(), picture("cursor_3drotate"));
    // Off the handles the cursor stays what it was.
    move(scene.view, {3, 3});
    EXPECT_EQ(cursorPicture(), picture("cursor_3drotate"));
    dragHandle(8, {1, 0});
    EXPECT_TRUE(cursorPicture().isNull());
    scene.view.stopSelection();
    EXPECT_TRUE(cursorPicture().isNull());
}

TEST_F(PlaneTool, ANewToolKeepsItsCursorWhenTheOldOneGoes)
{
    start(Type::PLANE_XY);
    start(Type::PLANE_XY);
    EXPECT_EQ(cursorPicture(), picture("cursor_planecut"));
}

TEST_F(PlaneTool, EachEditTellsTheListenersOfThePlane)
{
    start(Type::PLANE_XY)->setPlaneByCenterAndNormal({0, 0, 0}, {0, 0, 1});
    ChangeCount count;
    tool()->getPlaneObject()->signalChanged.connect(&count, &ChangeCount::changed);
    QPoint const from = handlePosition(1);
    move(scene.view, from);
    press(scene.view, from, Qt::LeftButton);
    EXPECT_EQ(count.count, 0);
    move(scene.view, from + QPoint(3, 3), Qt::LeftButton);
    move(scene.view, from + QPoint(6, 6), Qt::LeftButton);
    EXPECT_EQ(count.count, 2);
    release(scene.view, from + QPoint(6, 6), Qt::LeftButton);
    EXPECT_EQ(count.count, 2);
}

TEST_F(PlaneTool, TheResultsOfItsEventsLeaveTheViewItsOwnButtons)
{
    auto* const running = start(Type::PLANE_3POINTS);
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, {});
    QMouseEvent way(QEvent::MouseMove, QPointF(1, 1), Qt::NoButton, Qt::LeftButton, {});
    QMouseEvent up(QEvent::MouseButtonRelease, QPointF(1, 1), Qt::LeftButton, {}, {});
    EXPECT_EQ(running->mousePressEvent(&down), 0);
    EXPECT_EQ(running->mouseMoveEvent(&way), 0);
    EXPECT_EQ(running->mouseReleaseEvent(&up), 1);
}

TEST_F(PlaneTool, ADragThatIsGivenUpPutsThePlaneBack)
{
    start(Type::PLANE_XY)->setPlaneByCenterAndNormal({0, 0, 0}, {0, 0, 1});
    std::vector<Point> const before = corners();
    Freecut::PlaneSize const size = tool()->getPlaneSize();
    for (Qt::KeyboardModifiers const modifiers : {Qt::NoModifier, Qt::ControlModifier}) {
        QPoint const from = handlePosition(3);
        move(scene.view, from, {}, modifiers);
        press(scene.view, from, Qt::LeftButton, modifiers);
        move(scene.view, from + QPoint(9, -20), Qt::LeftButton, modifiers);
        EXPECT_NE(corners(), before);
        EXPECT_TRUE(scene.view.navigationStyle()->cancelDrag());
        EXPECT_EQ(corners(), before);
        EXPECT_EQ(tool()->getPlaneSize().width, size.width);
        move(scene.view, from + QPoint(30, -30), Qt::LeftButton, modifiers);
        release(scene.view, from + QPoint(30, -30), Qt::LeftButton, modifiers);
        EXPECT_EQ(corners(), before);
    }
}

TEST_F(PlaneTool, AResetTakesTheMarkOfThePickerAway)
{
    start(Type::PLANE_XY);
    clickAt({0, 0, 5});
    clickAt({-8, 4, 5});
    ASSERT_TRUE(tool()->pickedPoint());
    tool()->resetSelection();
    EXPECT_FALSE(tool()->pickedPoint());
}

TEST_F(PlaneTool, TheViewShowsWhereThePlaneMeetsTheParts)
{
    start(Type::PLANE_YZ);
    EXPECT_FALSE(scene.view.sectionPlane());
    clickAt({5, 2, 5});
    ASSERT_TRUE(scene.view.sectionPlane());
    EXPECT_EQ(scene.view.sectionPlane()->point, corners()[1]);
    EXPECT_NEAR(scene.view.sectionPlane()->normal.X(), 1, 1e-6);
    dragHandle(0, {-9, 0});
    EXPECT_EQ(scene.view.sectionPlane()->point, corners()[1]);
    scene.view.stopSelection();
    EXPECT_FALSE(scene.view.sectionPlane());
}
