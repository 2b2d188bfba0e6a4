// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/StatusLine.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/DialogSectioncut.h"
#include "dialogs/SolidToolPage.h"
#include "dialogs/ToolButton.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/MellMessageBox.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/NavigationStyle.h"
#include "selection/HandleHit.h"
#include "selection/PlanecutSelection.h"
#include "selection/PointLabel.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "selection/ToolEdit.h"
#include "tests/app/AppWindow.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"
#include "tests/support/ViewEvents.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <ctime>
#include <iostream>
#include <set>

// What happens around a running tool and its dialog in the shown window.
namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Points = std::vector<Point>;

class ToolEdgeCases : public AppWindow
{
protected:
    void SetUp() override
    {
        if (!hasDisplay())
            GTEST_SKIP() << displayIsMissing;
        AppWindow::SetUp();
        window->resize(1400, 950);
        show();
    }
    void TearDown() override
    {
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
        if (window)
            AppWindow::TearDown();
    }

    Mesh::GLView& view() const { return window->view(); }
    Mesh::Document& document() const
    {
        return static_cast<Mesh::Document&>(*test->application.activeDocument());
    }
    template <typename Dialog>
    Dialog* dialog(char const* name) const
    {
        return static_cast<Dialog*>(DialogWindowManager::instance()->getDialogWindow(name));
    }
    DialogPolygoncut* polygonDialog() const { return dialog<DialogPolygoncut>("DialogPolygoncut"); }
    DialogSectioncut* sectionDialog() const { return dialog<DialogSectioncut>("DialogSectioncut"); }
    PolygoncutSelection* polygonTool() const { return runningTool<PolygoncutSelection>(&view()); }
    PlanecutSelection* planeTool() const { return runningTool<PlanecutSelection>(&view()); }

    static void settle()
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 120)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    QPoint positionOf(Point const& world) const
    {
        int x, y;
        view().getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }
    Mesh::DocumentObject* addBlock(float scale = 1)
    {
        Mesh::DocumentObject* const part = test->add(
            box(60 * scale, 40 * scale, 30 * scale, {-30 * scale, -20 * scale, -15 * scale}),
            "block");
        view().OnViewType(2);
        view().fitAll();
        settle();
        return part;
    }
    void open(char const* command)
    {
        trigger(command);
        settle();
    }
    /// A plane across z through a click on the top of the block, at a height.
    void placePlane(Point const& on, double height)
    {
        open("Std_Sectioncut");
        if (planeTool()->getPlaneType() != PLANE_XY)
            sectionDialog()->widgets().planeButtons[PLANE_XY]->click();
        click(view(), positionOf(on));
        settle();
        ASSERT_TRUE(planeTool() && planeTool()->getPlaneObject());
        MellQuantitySpinBox* const z = sectionDialog()->widgets().center[2];
        z->setValue(height);
        emit z->editingFinished();
        settle();
    }
    void drawTriangle()
    {
        open("Std_Polygoncut");
        for (Point const& p : {Point(-20, -10, 0), Point(20, -10, 0), Point(0, 15, 0)})
            click(view(), positionOf(p));
        settle();
        ASSERT_TRUE(polygonTool() && polygonTool()->getPolygon());
    }
    Points drawn() const { return polygonTool()->getPolygon()->getPoints(); }
    template <typename Dialog>
    void cut(Dialog const* open, char const* name)
    {
        ASSERT_TRUE(open->widgets().ok->isEnabled());
        open->widgets().ok->click();
        ASSERT_TRUE(waitUntil([&] {
            return !DialogWindowManager::instance()->getDialogWindow(name) &&
                   !JobGuard::instance()->isBusy();
        }));
        settle();
    }
    std::vector<Soup> parts() const
    {
        std::vector<Soup> found;
        for (Mesh::DocumentObject const* const part : document().getMeshObjects())
            found.push_back(soupOf(part));
        return found;
    }
    /// The whole part and two closed pieces that add up to it.
    void expectTwoPieces(double volume)
    {
        std::vector<Soup> const found = parts();
        ASSERT_EQ(found.size(), 3u);
        EXPECT_EQ(closedSolidFaults(found[1]), "");
        EXPECT_EQ(closedSolidFaults(found[2]), "");
        EXPECT_NEAR(volumeOf(found[1]) + volumeOf(found[2]), volume, 1e-4 * volume);
    }
};

/// Answers the next message box by its first button.
class OneAnswer : public QObject
{
public:
    OneAnswer()
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            if (auto* const box =
                    qobject_cast<MellMessageBox*>(QApplication::activeModalWidget())) {
                text = box->text();
                box->reject();
            }
        });
        m_timer.start(5);
    }
    QString text;

private:
    QTimer m_timer;
};

}  // namespace

TEST_F(ToolEdgeCases, AToolIsKeptThroughThemeLanguageAndUnit)
{
    addBlock();
    drawTriangle();
    Points const points = drawn();
    auto const& ui = polygonDialog()->widgets();
    MellQuantitySpinBox* const rounding = ui.pages[0]->findChildren<MellQuantitySpinBox*>()[0];
    double const value = rounding->value();
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    settle();
    takePicture("tool-kept-dark-german-inch");
    ASSERT_TRUE(polygonTool() && polygonTool()->getPolygon());
    EXPECT_EQ(drawn(), points);
    EXPECT_EQ(polygonDialog()->getGraphicObject(), polygonTool()->getPolygon());
    EXPECT_EQ(ui.cancel->text(), "Abbrechen");
    EXPECT_EQ(rounding->value(), value);
    EXPECT_TRUE(ui.ok->isEnabled());
    cut(polygonDialog(), "DialogPolygoncut");
    expectTwoPieces(72000);
}

TEST_F(ToolEdgeCases, PartsComeGoMoveAndHideWhileAPlaneStands)
{
    Mesh::DocumentObject* const part = addBlock();
    placePlane({5, 5, 15}, 3);
    auto const& ui = sectionDialog()->widgets();
    int const range = ui.slider->maximum();
    // A part that moves takes the range of the slider along.
    UMatrix4<float> up;
    up(2, 3) = 40;
    part->setMatrix(up, true, true);
    settle();
    test->add(box(10, 10, 100, {50, 0, -15}), "tower");
    settle();
    EXPECT_GT(ui.slider->maximum(), range);
    EXPECT_TRUE(planeTool()->getPlaneObject());
    // Hidden parts are cut as well.
    for (Mesh::DocumentObject* const each : document().getMeshObjects())
        each->setVisible(false);
    settle();
    EXPECT_TRUE(planeTool()->getPlaneObject() && ui.ok->isEnabled());
    for (Mesh::DocumentObject* const each : document().getMeshObjects())
        document().removeObject(each);
    settle();
    ASSERT_TRUE(sectionDialog());
    EXPECT_TRUE(planeTool()->getPlaneObject());
    OneAnswer const answer;
    ui.ok->click();
    EXPECT_EQ(answer.text, "Please load at least 1 part in one document.");
    ui.cancel->click();
    settle();
    EXPECT_FALSE(sectionDialog());
    EXPECT_TRUE(document().getObjectArray().empty());
}

TEST_F(ToolEdgeCases, PartsGoAndHideWhileAShapeIsDrawn)
{
    Mesh::DocumentObject* const part = addBlock();
    drawTriangle();
    Points const points = drawn();
    part->setVisible(false);
    settle();
    EXPECT_EQ(drawn(), points);
    EXPECT_TRUE(polygonDialog()->widgets().ok->isEnabled());
    part->setVisible(true);
    document().removeObject(part);
    settle();
    EXPECT_EQ(drawn(), points);
    OneAnswer const answer;
    polygonDialog()->widgets().ok->click();
    EXPECT_EQ(answer.text, "Please load at least 1 part in one document.");
    addBlock();
    EXPECT_TRUE(polygonDialog()->widgets().ok->isEnabled());
    cut(polygonDialog(), "DialogPolygoncut");
    expectTwoPieces(72000);
}

TEST_F(ToolEdgeCases, AnotherDocumentEndsTheShapeAndItsDialog)
{
    addBlock();
    drawTriangle();
    trigger("Std_New");
    settle();
    EXPECT_FALSE(polygonDialog());
    EXPECT_EQ(view().getInteractModeName(), "");
    EXPECT_TRUE(document().getObjectArray().empty());
}

TEST_F(ToolEdgeCases, AnotherDocumentEndsThePlane)
{
    addBlock();
    placePlane({5, 5, 15}, 3);
    trigger("Std_New");
    settle();
    EXPECT_FALSE(planeTool());
    EXPECT_TRUE(document().getObjectArray().empty());
}

TEST_F(ToolEdgeCases, ACutByTheKeyCLeavesPlaneAndDialogAsTheyAre)
{
    Mesh::DocumentObject* const part = addBlock();
    placePlane({5, 5, 15}, 3);
    Points const corners = planeTool()->getPlaneObject()->getProperty().getCorners();
    part->setSelected(true, true, false);
    MainWindow::getViewSlider()->setHeight(-4);
    settle();
    view().setFocus();
    QTest::keyClick(window->windowHandle(), Qt::Key_C);
    ASSERT_TRUE(waitUntil([&] {
        return document().getMeshObjects().size() == 2 && !JobGuard::instance()->isBusy();
    }));
    settle();
    ASSERT_TRUE(sectionDialog() && planeTool() && planeTool()->getPlaneObject());
    EXPECT_EQ(planeTool()->getPlaneObject()->getProperty().getCorners(), corners);
    EXPECT_TRUE(sectionDialog()->widgets().ok->isEnabled());
    // The plane goes through the upper piece alone; the lower one is told to be whole.
    sectionDialog()->widgets().allParts->click();
    cut(sectionDialog(), "DialogSectioncut");
    EXPECT_TRUE(window->statusLine().currentMessage().contains("Nothing was cut"))
        << window->statusLine().currentMessage().toStdString();
}

TEST_F(ToolEdgeCases, ADialogOpenedTwiceIsOneAndAClosedOneComesBackEmpty)
{
    addBlock();
    drawTriangle();
    DialogPolygoncut const* const first = polygonDialog();
    Points const points = drawn();
    open("Std_Polygoncut");
    EXPECT_EQ(polygonDialog(), first);
    EXPECT_EQ(drawn(), points);
    polygonDialog()->widgets().cancel->click();
    settle();
    EXPECT_FALSE(polygonDialog());
    EXPECT_EQ(document().getObjectArray().size(), 1u);
    open("Std_Polygoncut");
    ASSERT_TRUE(polygonDialog());
    EXPECT_FALSE(polygonTool()->getGraphicObject());
    EXPECT_FALSE(polygonDialog()->widgets().ok->isEnabled());
    // The other dialog takes the view over.
    open("Std_Sectioncut");
    EXPECT_TRUE(planeTool());
    EXPECT_FALSE(polygonTool());
}

TEST_F(ToolEdgeCases, OnASmallScreenTheDialogsScrollAndTheirButtonsStayInReach)
{
    window->resize(1024, 700);
    settle();
    addBlock();
    auto const isInWindow = [&](QWidget* widget) {
        return widget->isVisible() && window->rect().contains(QRect(
                                          widget->mapTo(window.get(), QPoint()), widget->size()));
    };
    open("Std_Sectioncut");
    sectionDialog()->widgets().useAdvanced->click();
    settle();
    takePicture("small-section");
    EXPECT_TRUE(isInWindow(sectionDialog()->widgets().ok));
    EXPECT_TRUE(isInWindow(sectionDialog()->widgets().cancel));
    sectionDialog()->widgets().cancel->click();
    settle();
    open("Std_Polygoncut");
    takePicture("small-polygon");
    EXPECT_TRUE(isInWindow(polygonDialog()->widgets().ok));
    EXPECT_TRUE(isInWindow(polygonDialog()->widgets().cancel));
    // What lies below comes up when it gets the focus.
    QWidget* const last = polygonDialog()->widgets().showCoordinate;
    polygonDialog()->widgets().tabs->tabBar()->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 40 && !last->hasFocus(); ++i)
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
    settle();
    EXPECT_TRUE(last->hasFocus());
    EXPECT_TRUE(isInWindow(last));
}

TEST_F(ToolEdgeCases, TheKeyboardAloneGoesThroughTheWholeDialog)
{
    addBlock();
    placePlane({5, 5, 15}, 3);
    auto const& ui = sectionDialog()->widgets();
    ui.normal[0]->setFocus(Qt::TabFocusReason);
    settle();
    std::set<QWidget*> reached;
    auto const walk = [&](Qt::Key key, int steps) {
        for (int i = 0; i < steps; ++i) {
            reached.insert(QApplication::focusWidget());
            QTest::keyClick(window->windowHandle(), key,
                            key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        }
    };
    walk(Qt::Key_Backtab, 15);
    ui.normal[0]->setFocus(Qt::TabFocusReason);
    walk(Qt::Key_Tab, 60);
    auto const isReached = [&](QWidget* widget) {
        for (QWidget* const each : reached)
            if (each && (each == widget || widget->isAncestorOf(each)))
                return true;
        return false;
    };
    for (QWidget* const widget :
         {static_cast<QWidget*>(ui.normal[2]), static_cast<QWidget*>(ui.center[0]),
          static_cast<QWidget*>(ui.slider), static_cast<QWidget*>(ui.step),
          static_cast<QWidget*>(ui.size[1]), static_cast<QWidget*>(ui.removeOriginal),
          static_cast<QWidget*>(ui.useBoundary), static_cast<QWidget*>(ui.useAdvanced),
          static_cast<QWidget*>(ui.ok), static_cast<QWidget*>(ui.cancel)})
        EXPECT_TRUE(isReached(widget)) << widget->metaObject()->className();
    EXPECT_TRUE(isReached(ui.allParts) || isReached(ui.selectedParts));
    ui.ok->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window->windowHandle(), Qt::Key_Space);
    ASSERT_TRUE(waitUntil([&] { return !sectionDialog() && !JobGuard::instance()->isBusy(); }));
    expectTwoPieces(72000);
}

TEST_F(ToolEdgeCases, PartsOfAHundredthOfAMillimetreAndOfTenMetresAreCut)
{
    for (float const scale : {1.0f / 6000, 10000.0f / 60}) {
        addBlock(scale);
        double const volume = volumeOf(parts()[0]);
        placePlane({5 * scale, 5 * scale, 15 * scale}, 0);
        cut(sectionDialog(), "DialogSectioncut");
        std::vector<Soup> const found = parts();
        ASSERT_EQ(found.size(), 3u) << scale;
        EXPECT_EQ(closedSolidFaults(found[1]), "") << scale;
        EXPECT_NEAR(volumeOf(found[1]) + volumeOf(found[2]), volume, 1e-3 * volume) << scale;
        for (Mesh::DocumentObject* const each : document().getMeshObjects())
            document().removeObject(each);
    }
}

TEST_F(ToolEdgeCases, APlaneThatOnlyTouchesThePartsLeavesThemWholeAndSaysSo)
{
    addBlock();
    placePlane({5, 5, 15}, 15);
    EXPECT_NEAR(sectionDialog()->widgets().center[2]->value(), 15, 1e-4);
    cut(sectionDialog(), "DialogSectioncut");
    EXPECT_TRUE(window->statusLine().currentMessage().contains("Nothing was cut"))
        << window->statusLine().currentMessage().toStdString();
    for (Soup const& part : parts())
        EXPECT_NEAR(volumeOf(part), 72000, 1e-6 * 72000);
}

TEST_F(ToolEdgeCases, APartWithAMatrixIsCutWhereItStands)
{
    Mesh::DocumentObject* const part = addBlock();
    UMatrix4<float> placed;
    placed(0, 3) = 200;
    placed(2, 3) = 80;
    part->setMatrix(placed, true, true);
    view().fitAll();
    settle();
    placePlane({205, 5, 95}, 85);
    cut(sectionDialog(), "DialogSectioncut");
    ASSERT_EQ(document().getMeshObjects().size(), 3u);
    UBox3<float> const upper = document().getMeshObjects()[1]->getBoundingBox();
    UBox3<float> const lower = document().getMeshObjects()[2]->getBoundingBox();
    EXPECT_NEAR(std::max(upper.MinZ(), lower.MinZ()), 85, 1e-3);
    EXPECT_NEAR(upper.MinX(), 170, 1e-3);
    expectTwoPieces(72000);
}

TEST_F(ToolEdgeCases, PerspectiveGivesWayWhileAToolRuns)
{
    addBlock();
    trigger("Std_Perspective");
    settle();
    open("Std_Polygoncut");
    EXPECT_EQ(view().getCamera()->projection(), GLCamera::Projection::Parallel);
    for (Point const& p : {Point(-20, -10, 0), Point(20, -10, 0), Point(0, 15, 0)})
        click(view(), positionOf(p));
    settle();
    cut(polygonDialog(), "DialogPolygoncut");
    EXPECT_EQ(view().getCamera()->projection(), GLCamera::Projection::Perspective);
    expectTwoPieces(72000);
}

TEST_F(ToolEdgeCases, APreviewOutlivesAnotherSizeOfTheWindow)
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
    cut(polygonDialog(), "DialogPolygoncut");
    expectTwoPieces(72000);
}

TEST_F(ToolEdgeCases, TabsChangeInEveryStateAndLeaveNoToolBehind)
{
    addBlock();
    open("Std_Polygoncut");
    for (int round = 0; round < 2; ++round)
        for (int const tab : {1, 2, 0}) {
            polygonDialog()->widgets().tabs->setCurrentIndex(tab);
            settle();
            EXPECT_FALSE(polygonDialog()->getGraphicObject());
            EXPECT_EQ(document().getObjectArray().size(), 1u);
            click(view(), positionOf({0, 0, 15}));
            settle();
            EXPECT_TRUE(polygonDialog()->getGraphicObject());
            EXPECT_EQ(document().getObjectArray().size(), 2u);
            // One point of a polygon cuts nothing.
            EXPECT_EQ(polygonDialog()->widgets().ok->isEnabled(), tab != 0);
        }
}

// Seen on the screen a turn leaves the shape; taken back afterwards it still stands there.
TEST_F(ToolEdgeCases, WhatIsTakenBackAfterTheViewWasTurnedStandsWhereItWasOnTheScreen)
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
TEST_F(ToolEdgeCases, AVertexOfTwoHundredPointsWithThreeHundredTeethFollowsTheMouse)
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
