// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/HandleHit.h"
#include "selection/PointLabel.h"
#include "selection/ToolEdit.h"
#include "tests/app/ToolWindow.h"

#include <QTabBar>
#include <QTabWidget>

#include <cmath>
#include <ctime>
#include <iostream>

// The view that a tool draws in: turned, moved, resized, and busy.
namespace {

using namespace Freecut;

class ToolViews : public ToolWindow
{
};

}  // namespace

TEST_F(ToolViews, PerspectiveGivesWayWhileAToolRuns)
{
    addBlock();
    trigger("Std_Perspective");
    settle();
    open("Std_Polygoncut");
    EXPECT_EQ(view().getCamera()->projection(), GLCamera::Projection::Parallel);
    for (Point const& p : {Point(-20, -10, 0), Point(20, -10, 0), Point(0, 15, 0)})
        click(view(), positionOf(p));
    settle();
    cutByShape();
    EXPECT_EQ(view().getCamera()->projection(), GLCamera::Projection::Perspective);
    expectTwoPieces(blockVolume);
}

TEST_F(ToolViews, APreviewOutlivesAnotherSizeOfTheWindow)
{
    addBlock();
    drawTriangle();
    Points const points = drawn();
    auto const& ui = polygonDialog()->widgets();
    ui.startPreview->click();
    settle();
    window->resize(1180, 800);
    settle();
    drag(view(), {300, 300}, {380, 250}, Qt::RightButton);
    settle();
    takePicture("preview-resized");
    EXPECT_EQ(drawn(), points);
    // Neither tabs nor keys change anything during a preview.
    EXPECT_FALSE(ui.tabs->tabBar()->isEnabled());
    view().setFocus();
    QTest::keyClick(window->windowHandle(), Qt::Key_Backspace);
    QTest::keyClick(window->windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_EQ(drawn(), points);
    ui.stopPreview->click();
    settle();
    EXPECT_EQ(drawn(), points);
    EXPECT_EQ(view().viewIndex(), 2);
    window->resize(1400, 950);
    settle();
    cutByShape();
    expectTwoPieces(blockVolume);
}

// Seen on the screen a turn leaves the shape; taken back afterwards it still stands there.
TEST_F(ToolViews, WhatIsTakenBackAfterTheViewWasTurnedStandsWhereItWasOnTheScreen)
{
    addBlock();
    drawTriangle();
    std::vector<QPoint> before;
    for (Point const& point : drawn())
        before.push_back(positionOf(point));
    QPoint const corner = before[2];
    move(view(), corner);
    drag(view(), corner, corner + QPoint(40, 25), Qt::LeftButton);
    settle();
    drag(view(), {500, 500}, {620, 430}, Qt::RightButton);
    settle();
    ASSERT_EQ(view().viewIndex(), -1);
    EXPECT_LE((positionOf(drawn()[2]) - corner - QPoint(40, 25)).manhattanLength(), 2);
    view().setFocus();
    QTest::keyClick(window->windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    ASSERT_EQ(drawn().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_LE((positionOf(drawn()[i]) - before[i]).manhattanLength(), 2) << i;
    takePicture("undo-after-turn");
    // A pan in between leaves it on the part.
    Points const points = drawn();
    drag(view(), {500, 500}, {560, 520}, Qt::MiddleButton);
    settle();
    QTest::keyClick(window->windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    QTest::keyClick(window->windowHandle(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    settle();
    ASSERT_EQ(drawn().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_LE((drawn()[i] - points[i]).GetLength(), 0.05f) << i;
}

// How long a picture takes is told, and asked of nobody: it depends on the machine.
TEST_F(ToolViews, AVertexOfTwoHundredPointsWithThreeHundredTeethFollowsTheMouse)
{
    addBlock();
    drawTriangle();
    constexpr std::size_t count = 200, toothed = 100;
    PolygonProperty& record = polygonTool()->getPolygon()->getProperty();
    float const z = record.getKeyPoints()[0].Z();
    Points points;
    for (std::size_t i = 0; i < count; ++i) {
        double const angle = 2 * M_PI * double(i) / count;
        points.emplace_back(float(18 * std::cos(angle)), float(18 * std::sin(angle)), z);
    }
    std::vector<TeethEdge> edges(count);
    for (std::size_t i = 0; i < toothed; ++i)
        edges[i].hasTeeth = edges[i].editing = true;
    record.setKeyPoints(points);
    record.setEdgeRecords(edges);
    PointLabel::renew(*polygonTool()->getPolygon(), &view(), std::vector<int>(count, 1), 0);
    TeethParas paras;
    paras.teethWidth = 0.15f;
    paras.teethHeight = 0.2f;
    paras.teethCount = 3;
    polygonTool()->setTeethParas(paras);
    ASSERT_TRUE(polygonTool()->teethAlgorithm());
    polygonTool()->applyTeeth();
    finishEdit(*polygonTool()->getPolygon());
    settle();
    // The first one that the mouse touches there.
    QPoint const from = positionOf(drawn()[150]);
    std::size_t const vertex = std::size_t(*handleAt(view(), from, drawn()));
    QPoint const before = positionOf(drawn()[vertex]);
    move(view(), from);
    press(view(), from, Qt::LeftButton);
    constexpr int steps = 60;
    auto const ofThisThread = [] {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return double(now.tv_sec) * 1000 + double(now.tv_nsec) * 1e-6;
    };
    std::clock_t const start = std::clock();
    double const startOfThread = ofThisThread();
    QElapsedTimer timer;
    timer.start();
    for (int i = 1; i <= steps; ++i) {
        move(view(), from + QPoint(i / 2, i), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    double const processor = double(std::clock() - start) / CLOCKS_PER_SEC * 1000 / steps;
    double const ownTime = (ofThisThread() - startOfThread) / steps;
    std::cout << "a picture of the drag: " << processor << " ms processor time, " << ownTime
              << " ms of them on the window's thread, " << double(timer.elapsed()) / steps
              << " ms in all\n";
    release(view(), from + QPoint(steps / 2, steps), Qt::LeftButton);
    settle();
    QPoint const way(steps / 2, steps);
    EXPECT_LE((positionOf(drawn()[vertex]) - before - way).manhattanLength(), 2);
    takePicture("many-points");
    QTest::keyClick(&view(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_LE((positionOf(drawn()[vertex]) - before).manhattanLength(), 1);
}
