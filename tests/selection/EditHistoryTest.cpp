// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/CuboidcutSelection.h"
#include "selection/CylindercutSelection.h"
#include "selection/PlanecutSelection.h"
#include "selection/PointLabel.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RoundSteps.h"
#include "selection/ToolEdit.h"
#include "tests/selection/SelectionScene.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <cmath>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Points = std::vector<Point>;

/// A block of 80 x 60 x 10 mm seen from above, 3 pixels to the millimetre.
class EditHistoryOf : public testing::Test
{
protected:
    EditHistoryOf()
    {
        scene.add(box(80, 60, 10, {-40, -30, -5}), "block");
        scene.view.getCamera()->set_ref(0, 0, 0, true);
        scene.view.getCamera()->set_view_height(100);
    }

    QPoint at(float x, float y) const { return scene.positionOf({x, y, 5}); }
    void clickAt(float x, float y) { click(scene.view, at(x, y)); }
    void dragFrom(Point const& from, QPoint way)
    {
        QPoint const start = scene.positionOf(from);
        move(scene.view, start);
        drag(scene.view, start, start + way, Qt::LeftButton);
    }
    /// False if the view makes nothing of it.
    bool pressKey(int key, Qt::KeyboardModifiers modifiers = {}, bool isRepeat = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, {}, isRepeat);
        return scene.view.navigationStyle()->key(&event);
    }
    Base::ToolHistory& history() const
    {
        return *scene.view.navigationStyle()->mouseModel()->history();
    }
    bool canUndo() const { return history().whyNoUndo().isEmpty(); }
    bool canRedo() const { return history().whyNoRedo().isEmpty(); }
    void undo() { history().undo(); }
    void redo() { history().redo(); }

    Points square() const { return {{-20, -15, 0}, {20, -15, 0}, {20, 15, 0}, {-20, 15, 0}}; }
    PolygoncutSelection* drawSquare()
    {
        auto* const tool = scene.start<PolygoncutSelection>();
        for (Point const& corner : square())
            clickAt(corner.X(), corner.Y());
        return tool;
    }
    static TeethParas jagged()
    {
        TeethParas paras;
        paras.teethWidth = 4;
        paras.teethHeight = 3;
        paras.teethDistance = 6;
        paras.teethMethod = 1;
        return paras;
    }
    static std::size_t toothPoints(PolygoncutSelection const& tool)
    {
        std::size_t count = 0;
        for (TeethEdge const& edge : tool.getPolygon()->getProperty().getEdgeRecords())
            count += edge.editing ? edge.teethPoints.size()
                                  : (edge.applied ? edge.appliedPoints.size() : 0);
        return count;
    }

    SelectionScene scene;
};

using ThePlane = EditHistoryOf;
using ThePolygon = EditHistoryOf;
using ThePointTools = EditHistoryOf;

}  // namespace

TEST_F(ThePlane, TakesPicksBackOneByOneAndThePlaneWithTheLastOne)
{
    auto* const tool = scene.start<PlanecutSelection>();
    tool->setPlaneType(PLANE_3POINTS);
    EXPECT_FALSE(history().isInUse());
    clickAt(-20, -10);
    clickAt(20, -10);
    clickAt(3, 14);
    ASSERT_TRUE(tool->getPlaneObject());
    Points const corners = tool->getPlaneObject()->getProperty().getCorners();
    undo();
    EXPECT_FALSE(tool->getPlaneObject());
    EXPECT_EQ(tool->getPicks().size(), 2u);
    EXPECT_EQ(scene.names().size(), 1u) << "the plane has left the document";
    undo();
    undo();
    EXPECT_TRUE(tool->getPicks().empty());
    EXPECT_FALSE(canUndo());
    EXPECT_FALSE(history().whyNoUndo().isEmpty());
    for (int i = 0; i < 3; ++i)
        redo();
    ASSERT_TRUE(tool->getPlaneObject());
    EXPECT_EQ(tool->getPlaneObject()->getProperty().getCorners(), corners);
    EXPECT_TRUE(tool->getPicks().empty());
    EXPECT_FALSE(canRedo());
}

TEST_F(ThePlane, TakesEachDragBackAsOneStep)
{
    auto* const tool = scene.start<PlanecutSelection>();
    tool->setPlaneType(PLANE_XZ);
    clickAt(0, 0);
    PlaneProperty const& plane = tool->getPlaneObject()->getProperty();
    Points const placed = plane.getCorners();
    dragFrom(plane.getKeyPoints()[0], {0, 20});
    Points const moved = plane.getCorners();
    ASSERT_NE(moved, placed);
    dragFrom(plane.getKeyPoints()[0], {0, 10});
    ASSERT_NE(plane.getCorners(), moved);
    undo();
    EXPECT_EQ(plane.getCorners(), moved);
    undo();
    EXPECT_EQ(plane.getCorners(), placed);
    redo();
    EXPECT_EQ(plane.getCorners(), moved);
    // Something else drops what had been taken back.
    dragFrom(plane.getKeyPoints()[0], {0, -30});
    EXPECT_FALSE(canRedo());
}

TEST_F(ThePlane, ADragThatIsGivenUpOrRefusedIsNoStep)
{
    auto* const tool = scene.start<PlanecutSelection>();
    tool->setPlaneType(PLANE_XZ);
    clickAt(0, 0);
    PlaneProperty const& plane = tool->getPlaneObject()->getProperty();
    Points const placed = plane.getCorners();
    QPoint const centre = scene.positionOf(plane.getKeyPoints()[0]);
    move(scene.view, centre);
    press(scene.view, centre, Qt::LeftButton);
    move(scene.view, centre + QPoint(0, 15), Qt::LeftButton);
    EXPECT_NE(plane.getCorners(), placed);
    // Undo in the middle of a drag gives it up too.
    undo();
    EXPECT_EQ(plane.getCorners(), placed);
    release(scene.view, centre + QPoint(0, 15), Qt::LeftButton);
    dragFrom(plane.getKeyPoints()[0], {0, 1000});
    EXPECT_EQ(plane.getCorners(), placed) << "off all parts in one step";
    undo();
    EXPECT_FALSE(tool->getPlaneObject()) << "the only step was the click";
}

TEST_F(ThePlane, ArrowKeysNudgeItAlongItsNormalByTheStepOfItsDialog)
{
    auto* const tool = scene.start<PlanecutSelection>();
    tool->setPlaneType(PLANE_XZ);
    EXPECT_FALSE(pressKey(Qt::Key_Up)) << "nothing to move yet";
    clickAt(0, 0);
    tool->setNudge(0.5f);
    PlaneProperty const& plane = tool->getPlaneObject()->getProperty();
    float const y = plane.getKeyPoints()[0].Y();
    UVector3<float> const normal = ((plane.getCorners()[1] - plane.getCorners()[0]) *
                                    (plane.getCorners()[2] - plane.getCorners()[1]))
                                       .Normalize();
    EXPECT_TRUE(pressKey(Qt::Key_Up));
    EXPECT_NEAR(plane.getKeyPoints()[0].Y(), y + 0.5f * normal.Y(), 1e-4);
    EXPECT_TRUE(pressKey(Qt::Key_Left, Qt::ShiftModifier));
    EXPECT_NEAR(plane.getKeyPoints()[0].Y(), y - 4.5f * normal.Y(), 1e-4);
    EXPECT_FALSE(pressKey(Qt::Key_Up, Qt::ControlModifier));
    undo();
    EXPECT_NEAR(plane.getKeyPoints()[0].Y(), y + 0.5f * normal.Y(), 1e-4);
    // Held down it is one step.
    for (int i = 0; i < 5; ++i)
        pressKey(Qt::Key_Down, {}, i > 0);
    EXPECT_NEAR(plane.getKeyPoints()[0].Y(), y - 2 * normal.Y(), 1e-4);
    undo();
    EXPECT_NEAR(plane.getKeyPoints()[0].Y(), y + 0.5f * normal.Y(), 1e-4);
    for (int i = 0; i < 200; ++i)
        pressKey(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_LE(std::abs(plane.getKeyPoints()[0].Y()), 30) << "never off the parts";
}

TEST_F(ThePolygon, TakesPointsAndDragsBackAndComesAnewByRedo)
{
    PolygoncutSelection* const tool = drawSquare();
    Points const drawn = tool->getPolygon()->getPoints();
    ASSERT_EQ(drawn.size(), 4u);
    dragFrom(drawn[1], {15, 9});
    Points const dragged = tool->getPolygon()->getPoints();
    ASSERT_NE(dragged, drawn);
    undo();
    EXPECT_EQ(tool->getPolygon()->getPoints(), drawn);
    for (std::size_t left = 3; left > 0; --left) {
        undo();
        ASSERT_EQ(tool->getPolygon()->getPoints().size(), left);
        EXPECT_EQ(tool->getPolygon()->getPointLabels().size(), left);
        EXPECT_TRUE(PointLabel::selectedVertex(*tool->getPolygon()));
    }
    undo();
    EXPECT_FALSE(tool->getGraphicObject());
    EXPECT_EQ(scene.names().size(), 1u);
    EXPECT_FALSE(canUndo());
    for (int i = 0; i < 5; ++i)
        redo();
    ASSERT_TRUE(tool->getPolygon());
    EXPECT_EQ(tool->getPolygon()->getPoints(), dragged);
    EXPECT_EQ(tool->getPolygon()->getProperty().getEdgeRecords().size(), 4u);
    EXPECT_EQ(tool->getPolygon()->getPointLabels().size(), 4u);
    EXPECT_FALSE(canRedo());
}

TEST_F(ThePolygon, ARefusedPointIsNoStep)
{
    PolygoncutSelection* const tool = drawSquare();
    Points const drawn = tool->getPolygon()->getPoints();
    EXPECT_TRUE(canUndo());
    undo();
    redo();
    EXPECT_EQ(tool->getPolygon()->getPoints(), drawn);
    noteEdit(scene.document);
    EXPECT_FALSE(canRedo());
    undo();
    EXPECT_EQ(tool->getPolygon()->getPoints().size(), 3u) << "telling of nothing adds nothing";
}

TEST_F(ThePolygon, BackspaceRemovesThePointThatWasDrawnLast)
{
    auto* const tool = scene.start<PolygoncutSelection>();
    EXPECT_FALSE(pressKey(Qt::Key_Backspace));
    // Clockwise, and one more in between: the order of the outline is another one.
    Points const order{{-20, -15, 0}, {-20, 15, 0}, {20, 15, 0}, {20, -15, 0}, {0, -15, 0}};
    std::vector<Points> outlines;
    for (Point const& point : order) {
        clickAt(point.X(), point.Y());
        outlines.push_back(tool->getPolygon()->getPoints());
    }
    for (std::size_t i = order.size() - 1; i > 0; --i) {
        EXPECT_TRUE(pressKey(Qt::Key_Backspace));
        EXPECT_EQ(tool->getPolygon()->getPoints(), outlines[i - 1]) << i;
    }
    EXPECT_TRUE(pressKey(Qt::Key_Backspace));
    EXPECT_FALSE(tool->getGraphicObject());
    undo();
    ASSERT_TRUE(tool->getPolygon());
    EXPECT_EQ(tool->getPolygon()->getPoints(), outlines[0]);
    undo();
    EXPECT_EQ(tool->getPolygon()->getPoints(), outlines[1]);
    // What comes next is the newest again.
    clickAt(25, 20);
    EXPECT_TRUE(pressKey(Qt::Key_Backspace));
    EXPECT_EQ(tool->getPolygon()->getPoints(), outlines[1]);
}

TEST_F(ThePolygon, ArrowKeysNudgeTheSelectedPointAcrossTheView)
{
    PolygoncutSelection* const tool = drawSquare();
    float const step = finestStep(scene.view);
    EXPECT_FLOAT_EQ(step, 0.5f);
    std::size_t const selected = *PointLabel::selectedVertex(*tool->getPolygon());
    Points const drawn = tool->getPolygon()->getPoints();
    EXPECT_TRUE(pressKey(Qt::Key_Right));
    EXPECT_TRUE(pressKey(Qt::Key_Up, Qt::ShiftModifier));
    Points const nudged = tool->getPolygon()->getPoints();
    EXPECT_NEAR(nudged[selected].X(), drawn[selected].X() + step, 1e-4);
    EXPECT_NEAR(nudged[selected].Y(), drawn[selected].Y() + 10 * step, 1e-4);
    EXPECT_EQ(nudged[selected].Z(), drawn[selected].Z());
    undo();
    undo();
    EXPECT_EQ(tool->getPolygon()->getPoints(), drawn);
}

TEST_F(ThePolygon, TeethAreTakenBackWithTheirParameters)
{
    PolygoncutSelection* const tool = drawSquare();
    tool->setAddTeeth(true);
    tool->setTeethParas(jagged());
    QPoint const onEdge = at(0, -15);
    move(scene.view, onEdge);
    click(scene.view, onEdge);
    std::size_t const points = toothPoints(*tool);
    ASSERT_GT(points, 6u);
    TeethParas finer = jagged();
    finer.teethWidth = 2;
    finer.teethDistance = 3;
    tool->setTeethParas(finer);
    ASSERT_TRUE(tool->teethAlgorithm());
    ASSERT_GT(toothPoints(*tool), points);
    tool->applyTeeth();
    undo();
    undo();
    EXPECT_EQ(toothPoints(*tool), points);
    EXPECT_EQ(tool->getTeethParas().teethWidth, 4);
    undo();
    EXPECT_EQ(toothPoints(*tool), 0u);
    redo();
    redo();
    redo();
    EXPECT_GT(toothPoints(*tool), points);
    int applied = 0;
    for (TeethEdge const& edge : tool->getPolygon()->getProperty().getEdgeRecords())
        applied += edge.applied;
    EXPECT_EQ(applied, 1);
}

// Nobody could confirm or end it any more.
TEST_F(ThePolygon, ATrialOfTeethDoesNotComeBackWhenNobodyEditsTeeth)
{
    PolygoncutSelection* const tool = drawSquare();
    tool->setAddTeeth(true);
    tool->setTeethParas(jagged());
    QPoint const onEdge = at(0, -15);
    move(scene.view, onEdge);
    click(scene.view, onEdge);
    tool->applyTeeth();
    std::size_t const applied = toothPoints(*tool);
    tool->setAddTeeth(false);
    undo();
    EXPECT_EQ(toothPoints(*tool), 0u) << "one step back to where there were none";
    EXPECT_EQ(tool->getPolygon()->getPoints().size(), 4u);
    for (TeethEdge const& edge : tool->getPolygon()->getProperty().getEdgeRecords())
        EXPECT_FALSE(edge.editing);
    redo();
    EXPECT_EQ(toothPoints(*tool), applied);
}

TEST_F(ThePolygon, StepsFollowTheToolWhereTurnsOfTheViewHaveTakenIt)
{
    PolygoncutSelection* const tool = drawSquare();
    PolygonProperty& record = tool->getPolygon()->getProperty();
    Points const drawn = record.getKeyPoints();
    dragFrom(drawn[0], {-12, 6});
    // What the picture does when the view is turned from above to the front.
    RigidMotion const turn({0, 0, 0}, Axes::ofView({0, 0, 1}, {0, 1, 0}),
                           Axes::ofView({0, -1, 0}, {0, 0, 1}));
    scene.view.OnViewType(0);
    Points turned = record.getKeyPoints();
    for (Point& point : turned)
        point = turn(point);
    record.setKeyPoints(turned);
    record.addTurn(turn);
    noteEdit(scene.document);
    undo();
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        EXPECT_NEAR(record.getKeyPoints()[i].X(), drawn[i].X(), 1e-3);
        EXPECT_NEAR(record.getKeyPoints()[i].Z(), drawn[i].Y(), 1e-3) << "up the screen";
    }
    redo();
    EXPECT_NEAR(record.getKeyPoints()[0].X(), turned[0].X(), 1e-3);
    EXPECT_NEAR(record.getKeyPoints()[0].Z(), turned[0].Z(), 1e-3);
}

TEST_F(ThePolygon, IsNotEditedByUndoDuringAPreview)
{
    PolygoncutSelection* const tool = drawSquare();
    Points const drawn = tool->getPolygon()->getPoints();
    tool->getPolygon()->getProperty().setPreviewing(true);
    EXPECT_FALSE(canUndo());
    undo();
    EXPECT_FALSE(pressKey(Qt::Key_Backspace));
    EXPECT_FALSE(pressKey(Qt::Key_Left));
    EXPECT_EQ(tool->getPolygon()->getPoints(), drawn);
}

TEST_F(ThePolygon, ComesBackAfterAResetAndForgetsAllWithTheTool)
{
    PolygoncutSelection* tool = drawSquare();
    Points const drawn = tool->getPolygon()->getPoints();
    tool->resetSelection();
    noteEdit(scene.document);
    undo();
    ASSERT_TRUE(tool->getPolygon());
    EXPECT_EQ(tool->getPolygon()->getPoints(), drawn);
    scene.view.stopSelection();
    tool = scene.start<PolygoncutSelection>();
    EXPECT_FALSE(history().isInUse());
    EXPECT_FALSE(tool->getGraphicObject());
}

TEST_F(ThePointTools, TakeClicksDragsAndFieldsBack)
{
    auto* const tool = scene.start<CuboidcutSelection>();
    clickAt(0, 0);
    CuboidProperty* record = &tool->getCuboid()->getProperty();
    record->setCuboidParameters(false, 0, 0, false, 0, 178, false, 1, false, 2, 20, 30, 0);
    noteEdit(scene.document);
    Point const centre = record->getKeyPoints()[0];
    dragFrom(record->getKeyPoints()[1], {12, 0});
    EXPECT_GT(record->getCuboidLength(), 30);
    clickAt(25, 20);
    EXPECT_NE(record->getKeyPoints()[0], centre);
    undo();
    EXPECT_EQ(record->getKeyPoints()[0], centre);
    EXPECT_GT(record->getCuboidLength(), 30);
    undo();
    EXPECT_EQ(record->getCuboidLength(), 30);
    undo();
    undo();
    EXPECT_FALSE(tool->getGraphicObject());
    for (int i = 0; i < 3; ++i)
        redo();
    record = &tool->getCuboid()->getProperty();
    EXPECT_GT(record->getCuboidLength(), 30);
    EXPECT_EQ(record->getCuboidWidth(), 20);
    EXPECT_EQ(record->getKeyPoints()[0], centre);
    EXPECT_TRUE(tool->getCuboid()->getLabel());
}

TEST_F(ThePointTools, ArrowKeysNudgeTheCentre)
{
    auto* const tool = scene.start<CylindercutSelection>();
    clickAt(0, 0);
    CylinderProperty& record = tool->getCylinder()->getProperty();
    record.setShapeParameters(false, 0, 0, false, 0, 178, false, 2, 10, true, 4, 5, 0, 0.025f);
    noteEdit(scene.document);
    Point const centre = record.getKeyPoints()[0];
    float const step = finestStep(scene.view);
    EXPECT_TRUE(pressKey(Qt::Key_Down));
    EXPECT_NEAR(record.getKeyPoints()[0].Y(), centre.Y() - step, 1e-4);
    EXPECT_FALSE(pressKey(Qt::Key_Backspace));
    undo();
    EXPECT_EQ(record.getKeyPoints()[0], centre);
    EXPECT_EQ(record.getRadius(), 10);
}

TEST(RoundLength, IsTheLeastRoundOneThatIsLongEnough)
{
    EXPECT_FLOAT_EQ(roundLength(0.34, 1, 1), 0.5f);
    EXPECT_FLOAT_EQ(roundLength(0.2, 1, 1), 0.2f);
    EXPECT_FLOAT_EQ(roundLength(0.21, 10, 1), 5);
    EXPECT_FLOAT_EQ(roundLength(0.51, 1, 1), 1);
    EXPECT_FLOAT_EQ(roundLength(1e-5, 1, 1), 1e-5f);
    EXPECT_FLOAT_EQ(roundLength(90, 1, 1), 100);
    EXPECT_FLOAT_EQ(roundLength(2.54, 1, 25.4), 2.54f) << "a tenth of an inch";
}

TEST(RigidMotion, TurnsAboutItsPointAndBack)
{
    RigidMotion const turn({1, 2, 3}, Axes::ofView({0, 0, 1}, {0, 1, 0}),
                           Axes::ofView({1, 0, 0}, {0, 0, 1}));
    // From above to from the right: across the screen lies y then, and up z.
    Point const moved = turn({2, 4, 3});
    EXPECT_NEAR(moved.X(), 1, 1e-6);
    EXPECT_NEAR(moved.Y(), 3, 1e-6);
    EXPECT_NEAR(moved.Z(), 5, 1e-6);
    Point const back = turn.then(turn.inverse())({7, -8, 9});
    EXPECT_NEAR(back.X(), 7, 1e-6);
    EXPECT_NEAR(back.Y(), -8, 1e-6);
    EXPECT_NEAR(back.Z(), 9, 1e-6);
}
