// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/TLabel.h"
#include "display/VolumeViewProvider.h"
#include "module/Commands.h"
#include "selection/PointLabel.h"
#include "selection/PolygoncutSelection.h"
#include "tests/selection/ModalAnswer.h"
#include "tests/selection/SelectionScene.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/VolumeOutline.h"

#include <gtest/gtest.h>

#include <QPixmap>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;

/// A block of 80 x 60 x 10 mm seen from above; clicks are given in millimetres.
class PolygonTool : public testing::Test
{
protected:
    PolygonTool()
    {
        registerCommands(scene.application.commandManager());
        scene.add(box(80, 60, 10, {-40, -30, -5}), "block");
        scene.view.getCamera()->set_ref(0, 0, 0, true);
        scene.view.getCamera()->set_view_height(100);
        tool = scene.start<PolygoncutSelection>();
        TeethParas paras;
        paras.teethWidth = 4;
        paras.teethHeight = 3;
        paras.teethCount = 3;
        tool->setTeethParas(paras);
    }

    QPoint at(float x, float y) const { return scene.positionOf({x, y, 0}); }
    void clickAt(float x, float y, Qt::MouseButton button = Qt::LeftButton)
    {
        click(scene.view, at(x, y), button);
    }
    /// Anticlockwise from the lower left; that corner comes last and goes into the closing edge.
    void drawSquare()
    {
        for (auto const& [x, y] : {std::pair(20, -15), {20, 15}, {-20, 15}, {-20, -15}})
            clickAt(float(x), float(y));
    }
    /// Puts confirmed teeth on the lower side.
    void addTeethBelow()
    {
        tool->setAddTeeth(true);
        move(scene.view, at(0, -15));
        clickAt(0, -15);
        tool->applyTeeth();
        tool->setAddTeeth(false);
    }
    std::vector<TeethEdge>& edges() { return tool->getPolygon()->getProperty().getEdgeRecords(); }
    std::vector<Point> points() const { return tool->getPolygon()->getPoints(); }
    int selectedVertex() const
    {
        auto const selected = PointLabel::selectedVertex(*tool->getPolygon());
        return selected ? int(*selected) : -1;
    }
    QImage cursorPicture() const { return scene.view.cursor().pixmap().toImage(); }
    static QImage picture(char const* name)
    {
        return QPixmap(QStringLiteral(":/icons/icons/%1.png").arg(name)).toImage();
    }

    SelectionScene scene;
    PolygoncutSelection* tool;
    ModalAnswer answer;
};

void expectAt(Point const& p, float x, float y)
{
    EXPECT_NEAR(p.X(), x, 0.2);
    EXPECT_NEAR(p.Y(), y, 0.2);
}

}  // namespace

TEST_F(PolygonTool, StartsWithItsCursorAndNoTool)
{
    EXPECT_EQ(cursorPicture(), picture("cursor_polygoncut"));
    EXPECT_EQ(tool->getGraphicObject(), nullptr);
    press(scene.view, at(0, 0), Qt::LeftButton);
    EXPECT_EQ(tool->getGraphicObject(), nullptr) << "a click is over with the release";
}

TEST_F(PolygonTool, ClicksMakeTheObjectThenVerticesAndEdges)
{
    clickAt(-20, -15);
    ASSERT_NE(tool->getPolygon(), nullptr);
    EXPECT_EQ(scene.document->getSelectedObjects().back(), tool->getPolygon());
    EXPECT_EQ(edges().size(), 1u);
    EXPECT_EQ(selectedVertex(), 0);
    clickAt(20, -15);
    EXPECT_EQ(edges().size(), 2u);
    EXPECT_EQ(selectedVertex(), 1);
    clickAt(0, 20);
    expectAt(points()[2], 0, 20);
    EXPECT_EQ(selectedVertex(), 2);
    EXPECT_EQ(tool->getPolygon()->getPointLabels().size(), 3u);
    EXPECT_TRUE(edges()[0].flip) << "as the selection's";
    EXPECT_TRUE(answer.seen.isEmpty());
}

TEST_F(PolygonTool, TheThirdPointGoesToTheSideOnWhichItLies)
{
    clickAt(-20, -15);
    clickAt(20, -15);
    clickAt(0, -25);
    expectAt(points()[1], 0, -25);
    EXPECT_EQ(selectedVertex(), 1);
}

TEST_F(PolygonTool, LaterPointsGoIntoTheNearestEdge)
{
    drawSquare();
    clickAt(25, 0);
    ASSERT_EQ(points().size(), 5u);
    expectAt(points()[2], 25, 0);
    clickAt(-25, 0);
    expectAt(points()[0], -25, 0);
    EXPECT_EQ(selectedVertex(), 0);
    EXPECT_EQ(edges().size(), 6u);
}

TEST_F(PolygonTool, APointOnItsOwnEdgeIsTakenAndOneOnAVertexIsNot)
{
    drawSquare();
    Point eye = points()[0];
    scene.view.getEyePointFromWCSPoint(eye);
    EXPECT_FALSE(tool->addPointOfPolygonCut(eye));
    EXPECT_EQ(answer.seen, QStringList("Attention: Invalid point."));
    EXPECT_EQ(points().size(), 4u);
    eye.X() += 0.0001f;
    eye.Y() -= 0.0001f;
    EXPECT_TRUE(tool->addPointOfPolygonCut(eye));
    EXPECT_EQ(points().size(), 5u);
    EXPECT_TRUE(tool->addPointOfPolygonCut({0, -15, 0})) << "on the edge";
}

TEST_F(PolygonTool, AnEdgeThatWouldTouchAVertexIsRefused)
{
    drawSquare();
    // A notch from above whose tip comes near the lower side.
    PolygonProperty& record = tool->getPolygon()->getProperty();
    float const z = points()[0].Z();
    record.setKeyPoints({{-20, -20, z},
                         {20, -20, z},
                         {20, 20, z},
                         {-5, 20, z},
                         {-10, -19, z},
                         {-15, 20, z},
                         {-20, 20, z}});
    record.setEdgeRecords(std::vector<TeethEdge>(7));
    for (int i = 4; i < 7; ++i)
        tool->getPolygon()->getPointLabels().push_back(
            PointLabel::make(*tool->getPolygon(), &scene.view));
    std::vector<Point> const before = points();
    // From the lower left corner through the tip.
    EXPECT_FALSE(tool->addPointOfPolygonCut({10, -17, 0}));
    EXPECT_EQ(answer.seen, QStringList("Attention: Invalid point."));
    EXPECT_EQ(points(), before);
    EXPECT_EQ(edges().size(), 7u);
    EXPECT_TRUE(tool->addPointOfPolygonCut({10, -18, 0}));
    EXPECT_EQ(points().size(), 8u);
}

TEST_F(PolygonTool, DragsMoveAVertexAndNothingElse)
{
    drawSquare();
    drag(scene.view, at(20, 15), at(30, 25), Qt::LeftButton);
    EXPECT_EQ(points().size(), 4u);
    expectAt(points()[2], 30, 25);
    expectAt(points()[1], 20, -15);
    EXPECT_EQ(tool->getPolygon()->getProperty().getEyeKeyPoints().size(), 4u);
}

TEST_F(PolygonTool, HoverShowsTheEdgeAndTheCursor)
{
    drawSquare();
    move(scene.view, at(20, 0));
    EXPECT_EQ(tool->getHoverEdge(), 1);
    EXPECT_EQ(cursorPicture(), picture("cursor_polygoncut"));
    move(scene.view, at(20, 15));
    EXPECT_EQ(cursorPicture(), picture("cursor_freecutmove"));
    move(scene.view, at(0, 0));
    EXPECT_EQ(tool->getHoverEdge(), -1);
    EXPECT_EQ(cursorPicture(), picture("cursor_polygoncut"));
    tool->setAddTeeth(true);
    EXPECT_EQ(cursorPicture(), picture("cursor_addteeth"));
}

TEST_F(PolygonTool, IsFrozenInAPreview)
{
    drawSquare();
    std::vector<Point> const drawn = points();
    tool->getPolygon()->getProperty().setPreviewing(true);
    clickAt(25, 0);
    drag(scene.view, at(20, 15), at(30, 25), Qt::LeftButton);
    clickAt(20, 15, Qt::RightButton);
    EXPECT_EQ(points(), drawn);
    EXPECT_TRUE(answer.seen.isEmpty());
}

TEST_F(PolygonTool, TypedCoordinatesMoveTheSelectedVertex)
{
    drawSquare();
    ASSERT_EQ(selectedVertex(), 0);
    tool->getPolygon()->getProperty().setViewIndex(2);
    tool->setSelectedPointInfo(-25, -18, 99);
    EXPECT_FLOAT_EQ(points()[0].X(), -25);
    EXPECT_FLOAT_EQ(points()[0].Y(), -18);
    EXPECT_NE(points()[0].Z(), 99);
    Point const other = points()[1];
    tool->setSelectedPointInfo(other.X(), other.Y(), 0);
    EXPECT_EQ(answer.seen, QStringList("Attention: This point already exists."));
    EXPECT_FLOAT_EQ(points()[0].X(), -25);
}

TEST_F(PolygonTool, TeethHoldTheirVertices)
{
    drawSquare();
    addTeethBelow();
    ASSERT_TRUE(edges()[0].applied);
    Point const before = points()[0];
    drag(scene.view, at(-20, -15), at(-25, -20), Qt::LeftButton);
    EXPECT_EQ(points()[0], before);
    QString const text =
        "Attention: You can not move this point, because one of the edges contain "
        "this point has teeth.";
    EXPECT_EQ(answer.seen, QStringList(text)) << "once, not at each step";
    tool->getPolygon()->getProperty().setViewIndex(2);
    tool->setSelectedPointInfo(1, 2, 3);
    EXPECT_EQ(answer.seen.size(), 2);
    EXPECT_EQ(points()[0], before);
    drag(scene.view, at(20, 15), at(25, 20), Qt::LeftButton);
    EXPECT_EQ(answer.seen.size(), 2) << "neither of its edges has teeth";
    EXPECT_EQ(points().size(), 4u);
}

TEST_F(PolygonTool, AsksBeforeItDividesAnEdgeWithTeeth)
{
    drawSquare();
    addTeethBelow();
    answer.setAnswer("No");
    clickAt(0, -20);
    EXPECT_EQ(answer.seen, QStringList("Question: Do you want to split an edge with teeth?"));
    EXPECT_EQ(points().size(), 4u);
    EXPECT_TRUE(edges()[0].applied);
    answer.setAnswer("Yes");
    clickAt(0, -20);
    ASSERT_EQ(points().size(), 5u);
    for (TeethEdge const& edge : edges())
        EXPECT_FALSE(edge.hasTeeth);
    expectAt(points()[1], 0, -20);
}

TEST_F(PolygonTool, TheMenuOfAVertexTakesItOut)
{
    drawSquare();
    addTeethBelow();
    answer.setAnswer("Remove Point");
    clickAt(20, -15, Qt::RightButton);
    EXPECT_EQ(answer.seen, QStringList("Remove Point"));
    ASSERT_EQ(points().size(), 3u);
    expectAt(points()[1], 20, 15);
    EXPECT_EQ(edges().size(), 3u);
    EXPECT_FALSE(edges()[0].hasTeeth);
    EXPECT_EQ(tool->getPolygon()->getPointLabels().size(), 3u);
}

TEST_F(PolygonTool, WithoutItsFirstVertexTheJoinedEdgeIsTheLast)
{
    drawSquare();
    for (int i = 0; i < 4; ++i)
        edges()[std::size_t(i)].teethCount = i;
    answer.setAnswer("Remove Point");
    clickAt(-20, -15, Qt::RightButton);
    ASSERT_EQ(edges().size(), 3u);
    EXPECT_EQ(edges()[0].teethCount, 1);
    EXPECT_EQ(edges()[1].teethCount, 2);
    EXPECT_EQ(edges()[2].teethCount, 4) << "a fresh one";
    // Down to nothing.
    clickAt(20, -15, Qt::RightButton);
    EXPECT_EQ(edges().size(), 2u);
    EXPECT_EQ(edges()[0].teethCount, 2) << "the one that stayed, and the joined one";
    clickAt(20, 15, Qt::RightButton);
    clickAt(-20, 15, Qt::RightButton);
    EXPECT_TRUE(points().empty());
    EXPECT_TRUE(edges().empty());
    clickAt(0, 0);
    EXPECT_EQ(points().size(), 1u);
}

TEST_F(PolygonTool, RemovingTheSelectedVertexSelectsTheOneBefore)
{
    drawSquare();
    answer.setAnswer("Remove Point");
    clickAt(-20, -15, Qt::RightButton);
    EXPECT_EQ(selectedVertex(), 2);
    expectAt(points()[2], -20, 15);
}

TEST_F(PolygonTool, InTeethModeAClickChoosesTheEdge)
{
    drawSquare();
    tool->setAddTeeth(true);
    clickAt(0, 0);
    EXPECT_EQ(points().size(), 4u);
    move(scene.view, at(0, -15));
    clickAt(0, -15);
    EXPECT_TRUE(edges()[0].editing);
    EXPECT_EQ(edges()[0].basePoints.size(), 3u);
    EXPECT_EQ(tool->getPolygon()->getProperty().getEyeTeethPoints()[0].size(),
              edges()[0].teethPoints.size());
    move(scene.view, at(20, 0));
    clickAt(20, 0);
    EXPECT_FALSE(edges()[0].hasTeeth);
    EXPECT_TRUE(edges()[1].editing);
    clickAt(20, 15, Qt::RightButton);
    EXPECT_EQ(answer.seen.filter("Remove").size(), 0) << "no menu for a vertex in teeth mode";
}

TEST_F(PolygonTool, AnAppliedEdgeBringsItsParametersBack)
{
    drawSquare();
    addTeethBelow();
    TeethParas const applied = tool->getTeethParas();
    TeethParas other = applied;
    other.teethWidth = 1;
    other.teethStyle = TEETH_PUZZLE;
    other.teethHeight = 0.5f;
    other.flipTeeth = false;
    tool->setTeethParas(other);
    tool->setAddTeeth(true);
    move(scene.view, at(0, -15));
    clickAt(0, -15);
    EXPECT_EQ(tool->getTeethParas(), applied);
    EXPECT_TRUE(edges()[0].editing);
}

TEST_F(PolygonTool, TeethThatDoNotFitAreTold)
{
    drawSquare();
    tool->setAddTeeth(true);
    move(scene.view, at(0, -15));
    auto const tryWith = [&](auto&& change) {
        TeethParas paras;
        paras.teethWidth = paras.upperWidth = paras.lowerWidth = 4;
        paras.teethHeight = paras.doveHeight = 3;
        paras.teethCount = 3;
        change(paras);
        tool->setTeethParas(paras);
        move(scene.view, at(0, -15));
        clickAt(0, -15);
        EXPECT_FALSE(edges()[0].hasTeeth);
    };
    tryWith([](TeethParas& p) { p.teethStyle = 2, p.teethHeight = 5; });
    tryWith([](TeethParas& p) { p.useOffset = true, p.teethOffset = 100; });
    tryWith([](TeethParas& p) { p.teethStyle = 1, p.teethCount = 30; });
    tryWith([](TeethParas& p) { p.teethCount = 30; });
    tryWith([](TeethParas& p) { p.teethMethod = 1, p.teethDistance = p.teethWidth = 0.001f; });
    EXPECT_EQ(answer.seen,
              (QStringList{"Attention: Width(W) must be larger or equal to Height(H).",
                           "Attention: Offset(O) is too large for some edge.",
                           "Attention: Upper width(W1) or lower width(W2) are too large.",
                           "Attention: Width(W) is too large.",
                           "Attention: There would be too many teeth on some edge. Choose a larger "
                           "distance(D)."}));
}

TEST_F(PolygonTool, TeethSlideByTheirBaseAndAreReshapedByTheirHandle)
{
    drawSquare();
    TeethParas paras = tool->getTeethParas();
    paras.teethHeight = 8;
    tool->setTeethParas(paras);
    tool->setAddTeeth(true);
    move(scene.view, at(0, -15));
    clickAt(0, -15);
    Point const base = edges()[0].basePoints[1];
    QPoint const from = scene.positionOf(base);
    drag(scene.view, from, from + QPoint(9, 30), Qt::LeftButton);
    EXPECT_GT(edges()[0].basePoints[1].X(), base.X() + 2);
    EXPECT_FLOAT_EQ(edges()[0].basePoints[1].Y(), base.Y());

    QPoint const handle = scene.positionOf(edges()[0].handlePoints[1]);
    drag(scene.view, handle, handle + QPoint(0, 9), Qt::LeftButton);
    EXPECT_NEAR(tool->getTeethParas().teethHeight, 14, 0.5) << "twice the way of the handle";
    EXPECT_EQ(points().size(), 4u);
}

TEST_F(PolygonTool, TheMenuOfAnEdgeTakesTeethOut)
{
    drawSquare();
    addTeethBelow();
    tool->setAddTeeth(true);
    answer.setAnswer("Delete selected teeth");
    move(scene.view, at(20, 0));
    clickAt(20, 0);
    tool->applyTeeth();
    ASSERT_TRUE(edges()[1].applied);
    move(scene.view, at(5, -15));
    clickAt(5, -15, Qt::RightButton);
    EXPECT_EQ(answer.seen.last(), "Delete selected teeth|Delete all teeth");
    EXPECT_FALSE(edges()[0].hasTeeth);
    EXPECT_TRUE(edges()[1].applied);
    answer.setAnswer("Delete all teeth");
    move(scene.view, at(5, -15));
    clickAt(5, -15, Qt::RightButton);
    EXPECT_FALSE(edges()[1].hasTeeth);
    EXPECT_EQ(edges().size(), 4u);
}

TEST_F(PolygonTool, AResetStartsOver)
{
    drawSquare();
    move(scene.view, at(0, -15));
    tool->resetSelection();
    EXPECT_EQ(tool->getGraphicObject(), nullptr);
    EXPECT_EQ(scene.names(), std::vector<std::string>{"block"});
    clickAt(0, 0);
    EXPECT_EQ(points().size(), 1u);
    scene.view.stopSelection();
    EXPECT_EQ(scene.names(), std::vector<std::string>{"block"});
    EXPECT_TRUE(scene.view.findChildren<TLabel*>().isEmpty());
}

TEST_F(PolygonTool, EverythingDrawnEndsInTheOutline)
{
    drawSquare();
    addTeethBelow();
    auto* const provider = static_cast<VolumeViewProvider*>(tool->getPolygon()->getViewProvider());
    EXPECT_EQ(provider->getOutline()->outlines().solidLoops[0].size(), 4u + 7u + 1u);
}
