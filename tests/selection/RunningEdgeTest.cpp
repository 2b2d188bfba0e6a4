// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/MainWindow.h"
#include "selection/PointSnap.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RoundSteps.h"
#include "tests/selection/SelectionScene.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

#include <QStatusBar>

#include <cmath>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Points = std::vector<Point>;

/// A block of 80 x 60 x 10 mm seen from above, 3 pixels to the millimetre, and a window to talk to.
class RunningEdgeOfPolygon : public testing::Test
{
protected:
    RunningEdgeOfPolygon()
    {
        scene.add(box(80, 60, 10, {-40, -30, -5}), "block");
        scene.view.getCamera()->set_ref(0, 0, 0, true);
        scene.view.getCamera()->set_view_height(100);
        tool = scene.start<PolygoncutSelection>();
    }

    QPoint at(float x, float y) const { return scene.positionOf({x, y, 5}); }
    void clickAt(float x, float y, Qt::KeyboardModifiers keys = {})
    {
        click(scene.view, at(x, y), Qt::LeftButton, keys);
    }
    Points points() const { return tool->getPolygon()->getPoints(); }
    QString told() const { return window.statusBar()->currentMessage(); }

    SelectionScene scene;
    MainWindow window;
    PolygoncutSelection* tool;
};

/// A pyramid of 60 by 60 mm and 40 mm high: half way up it is 30 by 30 mm, where its faces have no edge.
Soup pyramid()
{
    Soup soup;
    for (auto const& [x, y] : {std::pair(-30, -30), {30, -30}, {30, 30}, {-30, 30}})
        soup.add(Point(float(x), float(y), -20));
    soup.add(Point(0, 0, 20));
    for (unsigned i = 0; i < 4; ++i)
        soup.add(i, (i + 1) % 4, 4);
    soup.add(0, 2, 1);
    soup.add(0, 3, 2);
    return soup;
}

double degreesOf(Point const& from, Point const& to)
{
    return measureEdge({from.X(), from.Y()}, {to.X(), to.Y()}).degrees;
}

}  // namespace

TEST(PointSnap, MeasuresEdgesAnticlockwiseFromTheRight)
{
    EXPECT_NEAR(measureEdge({1, 1}, {4, 5}).length, 5, 1e-9);
    EXPECT_NEAR(measureEdge({0, 0}, {0, 2}).degrees, 90, 1e-9);
    EXPECT_NEAR(measureEdge({0, 0}, {-2, 0}).degrees, 180, 1e-9);
    EXPECT_NEAR(measureEdge({0, 0}, {1, -1}).degrees, 315, 1e-6);
    EXPECT_EQ(measureEdge({0, 0}, {1, 0}).degrees, 0);
}

TEST(PointSnap, RoundEdgesHaveWholeStepsInMultiplesOfFifteenDegrees)
{
    Place const straight = onRoundEdge({1, 2}, {11.2f, 2.6f}, 5);
    EXPECT_NEAR(straight.X(), 11, 1e-5);
    EXPECT_NEAR(straight.Y(), 2, 1e-5);
    Place const slant = onRoundEdge({0, 0}, {7.2f, 6.9f}, 2);
    EXPECT_NEAR(slant.X(), 10 * std::sqrt(0.5), 1e-5);
    EXPECT_NEAR(slant.Y(), 10 * std::sqrt(0.5), 1e-5);
    Place const least = onRoundEdge({0, 0}, {0.01f, 0}, 2);
    EXPECT_NEAR(least.X(), 2, 1e-5) << "never of no length";
}

TEST(PointSnap, CornersComeBeforeEdgesAndThoseBeforeAlignment)
{
    SnapTargets targets;
    targets.corners = {{10, 10}};
    targets.edges = {{{0, 0}, {10, 10}}};
    targets.aligned = {{30, 50}};
    EXPECT_EQ(snapped({10.5f, 10.5f}, targets, 1), Place(10, 10));
    Place const onEdge = snapped({5, 6}, targets, 1);
    EXPECT_NEAR(onEdge.X(), 5.5, 1e-5);
    EXPECT_NEAR(onEdge.Y(), 5.5, 1e-5);
    EXPECT_EQ(snapped({30.5f, 20}, targets, 1), Place(30, 20));
    EXPECT_EQ(snapped({30.5f, 49.5f}, targets, 1), Place(30, 50));
    EXPECT_EQ(snapped({31, 20}, targets, 1), Place(31, 20)) << "as far as the reach is not near";
}

TEST_F(RunningEdgeOfPolygon, IsMeasuredInTheStatusLineWhileTheMouseMoves)
{
    move(scene.view, at(0, 0));
    EXPECT_EQ(told(), "") << "no edge yet";
    clickAt(0, 0);
    move(scene.view, at(10, 10));
    EXPECT_TRUE(told().startsWith("Edge: 14.")) << told().toStdString();
    EXPECT_TRUE(told().contains("45.0°")) << told().toStdString();
    clickAt(20, 0);
    move(scene.view, at(10, 10));
    EXPECT_TRUE(told().contains("Next edge: ")) << told().toStdString();
    move(scene.view, at(20, 0));
    EXPECT_EQ(told(), "") << "over a point there is nothing to draw";
    tool->resetSelection();
    EXPECT_EQ(told(), "");
}

TEST_F(RunningEdgeOfPolygon, ShiftTurnsANewEdgeToFifteenDegreesAndARoundLength)
{
    clickAt(-20, -10);
    clickAt(11.3f, -8.7f, Qt::ShiftModifier);
    ASSERT_EQ(points().size(), 2u);
    float const step = gridStep(scene.view);
    EXPECT_FLOAT_EQ(step, 5);
    EXPECT_NEAR(points()[1].Y(), points()[0].Y(), 1e-3) << "level";
    double const length = double((points()[1] - points()[0]).GetLength());
    EXPECT_NEAR(length / step, std::round(length / step), 1e-4);
    EXPECT_NEAR(length, 30, 1e-3);
}

TEST_F(RunningEdgeOfPolygon, ShiftHoldsADragAndLettingGoFollowsTheMouseAgain)
{
    for (Point const& p : {Point(-20, -15, 0), Point(20, -15, 0), Point(0, 15, 0)})
        clickAt(p.X(), p.Y());
    std::size_t const i = 2;
    Point const before = points()[1];
    QPoint const from = scene.positionOf(points()[i]);
    QPoint const to = from + QPoint(13, -17);
    move(scene.view, from);
    press(scene.view, from, Qt::LeftButton, Qt::ShiftModifier);
    move(scene.view, to, Qt::LeftButton, Qt::ShiftModifier);
    double const degrees = degreesOf(before, points()[i]);
    EXPECT_NEAR(degrees / 15, std::round(degrees / 15), 1e-3);
    move(scene.view, to, Qt::LeftButton);
    EXPECT_LE((scene.positionOf(points()[i]) - to).manhattanLength(), 1);
    release(scene.view, to, Qt::LeftButton);
}

TEST_F(RunningEdgeOfPolygon, ControlDrawsPointsToCornersAndEdgesOfParts)
{
    clickAt(-38.8f, -28.5f, Qt::ControlModifier);
    ASSERT_EQ(points().size(), 1u);
    EXPECT_NEAR(points()[0].X(), -40, 1e-3);
    EXPECT_NEAR(points()[0].Y(), -30, 1e-3);
    clickAt(10, -29, Qt::ControlModifier);
    EXPECT_NEAR(points()[1].Y(), -30, 1e-3);
    // Just beside the part.
    clickAt(41.2f, 10, Qt::ControlModifier);
    bool isOnSide = false;
    for (Point const& point : points())
        isOnSide = isOnSide || std::abs(point.X() - 40) < 1e-3f;
    EXPECT_TRUE(isOnSide);
    clickAt(5, 5);
    EXPECT_EQ(points().size(), 4u) << "without a key a click stays where it is";
}

TEST_F(RunningEdgeOfPolygon, ControlDrawsPointsToTheSectionOfPartsHalfWayThrough)
{
    scene.document->removeObject(scene.document->getMeshObjects()[0]);
    scene.add(pyramid(), "pyramid");
    tool = scene.start<PolygoncutSelection>();
    move(scene.view, at(2, 14.2f), {}, Qt::ControlModifier);
    tool->getSections().work().finish();
    EXPECT_EQ(tool->getSections().section().lines.size(), 4u) << "one for each side";
    // Beside the section's upper side, and near its corner.
    clickAt(6, 14.2f, Qt::ControlModifier);
    clickAt(-14.1f, -15.8f, Qt::ControlModifier);
    ASSERT_EQ(points().size(), 2u);
    EXPECT_NEAR(points()[0].Y(), 15, 1e-3);
    EXPECT_NEAR(points()[0].X(), 6, 0.2);
    EXPECT_NEAR(points()[1].X(), -15, 1e-3);
    EXPECT_NEAR(points()[1].Y(), -15, 1e-3);
    // Without the key it is neither shown nor does it hold.
    move(scene.view, at(2, -14.2f));
    EXPECT_TRUE(tool->getSections().section().lines.empty());
    clickAt(20, -14.2f);
    for (Point const& point : points())
        EXPECT_TRUE(std::abs(point.Y() + 15) > 0.3f || point.X() < 0) << point.X();
}

TEST_F(RunningEdgeOfPolygon, TheSectionFollowsWhatIsSeenOfTheParts)
{
    scene.document->removeObject(scene.document->getMeshObjects()[0]);
    Mesh::DocumentObject* const part = scene.add(pyramid(), "pyramid");
    tool = scene.start<PolygoncutSelection>();
    auto const widthOfSection = [&] {
        move(scene.view, at(2, 14.2f), {}, Qt::ControlModifier);
        tool->getSections().work().finish();
        float widest = 0;
        for (auto const& [a, b] : tool->getSections().section().lines)
            for (Point const& end : {a, b})
                widest = std::max(widest, std::abs(end.X()));
        return widest;
    };
    EXPECT_NEAR(widthOfSection(), 15, 1e-3);
    UMatrix4<float> moved;
    moved(0, 3) = 7;
    part->setMatrix(moved, true, true);
    EXPECT_NEAR(widthOfSection(), 22, 1e-3);
    part->setVisible(false);
    EXPECT_EQ(widthOfSection(), 0);
    part->setVisible(true);
    // Where the cut ends, too: at the depth of a quarter of the pyramid from below.
    for (Point const& p : {Point(-50, -40, 0), Point(50, -40, 0), Point(50, 40, 0)})
        clickAt(p.X(), p.Y());
    PolygonProperty& record = tool->getPolygon()->getProperty();
    record.setShapeParameters(false, 0, 0, true, -10, 178, false, 1, false, 2);
    EXPECT_NEAR(widthOfSection(), 7 + 22.5, 0.1);
    scene.view.stopSelection();
}

TEST_F(RunningEdgeOfPolygon, TellsWhichKeysHoldAPoint)
{
    clickAt(0, 0);
    move(scene.view, at(10, 10));
    EXPECT_TRUE(told().contains("Ctrl: points, edges, section.")) << told().toStdString();
}

TEST_F(RunningEdgeOfPolygon, ControlDrawsADraggedPointInLineWithTheOthers)
{
    // Beside the part, which would hold it otherwise.
    for (Point const& p : {Point(-50, -40, 0), Point(50, -40, 0), Point(50, 40, 0)})
        clickAt(p.X(), p.Y());
    auto const order = points();
    std::size_t third = 0;
    for (std::size_t i = 0; i < order.size(); ++i)
        if (order[i].Y() > 30)
            third = i;
    QPoint const from = scene.positionOf(order[third]);
    move(scene.view, from);
    drag(scene.view, from, from + QPoint(5, -15), Qt::LeftButton, Qt::ControlModifier);
    float const x = points()[third].X();
    float const first = points()[(third + 1) % 3].X(), second = points()[(third + 2) % 3].X();
    EXPECT_TRUE(x == first || x == second || std::abs(x - first) < 1e-3f ||
                std::abs(x - second) < 1e-3f)
        << x;
}
