// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/StatusLine.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/DialogSectioncut.h"
#include "dialogs/SolidToolPage.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/view/NavigationStyle.h"
#include "selection/CuboidcutSelection.h"
#include "selection/PlanecutSelection.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "tests/app/AppWindow.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/ViewEvents.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>

// The edits of a running tool in the shown window: which keys take back what, and what the window
// says of it.
namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Points = std::vector<Point>;

class ToolEdits : public AppWindow
{
protected:
    void SetUp() override
    {
        if (!hasDisplay())
            GTEST_SKIP() << displayIsMissing;
        AppWindow::SetUp();
        window->resize(1400, 950);
        show();
        test->add(box(60, 40, 30, {-30, -20, -15}), "block");
        view().OnViewType(2);
        view().fitAll();
        settle();
    }

    Mesh::GLView& view() const { return window->view(); }
    template <typename Dialog>
    Dialog* dialog(char const* name) const
    {
        return static_cast<Dialog*>(DialogWindowManager::instance()->getDialogWindow(name));
    }
    DialogPolygoncut* polygonDialog() const { return dialog<DialogPolygoncut>("DialogPolygoncut"); }
    DialogSectioncut* sectionDialog() const { return dialog<DialogSectioncut>("DialogSectioncut"); }
    PolygoncutSelection* polygonTool() const { return runningTool<PolygoncutSelection>(&view()); }
    PlanecutSelection* planeTool() const { return runningTool<PlanecutSelection>(&view()); }
    CuboidcutSelection* cuboidTool() const { return runningTool<CuboidcutSelection>(&view()); }

    static void settle()
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 120)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    void clickAt(float x, float y)
    {
        int px, py;
        view().getWidgetcoordFromWCS({x, y, 15}, px, py);
        QTest::mouseClick(&view(), Qt::LeftButton, {}, {px, py});
        settle();
    }
    /// To whatever has the focus, as from a keyboard.
    void pressKey(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window->windowHandle(), Qt::Key(key), modifiers);
        settle();
    }
    void pressUndo() { pressKey(Qt::Key_Z, Qt::ControlModifier); }
    void pressRedo() { pressKey(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    QString status() const { return window->statusLine().currentMessage(); }
    /// What is typed into a field, with Enter at the end.
    void type(MellQuantitySpinBox* field, QString const& text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field->lineEdit(), text);
        QTest::keyClick(field->lineEdit(), Qt::Key_Return);
        settle();
    }
    void open(char const* command)
    {
        trigger(command);
        settle();
    }
    void drawTriangle()
    {
        clickAt(-20, -10);
        clickAt(20, -10);
        clickAt(0, 15);
        ASSERT_TRUE(polygonTool() && polygonTool()->getPolygon());
        ASSERT_EQ(polygonTool()->getPolygon()->getPoints().size(), 3u);
    }
};

}  // namespace

TEST_F(ToolEdits, UndoTakesTheToolsEditsBackAndStopsAtTheDocuments)
{
    test->document->openTransaction("Move");
    test->add(box(5, 5, 5, {40, 0, 0}), "small");
    test->document->commitTransaction();
    open("Std_Polygoncut");
    drawTriangle();
    EXPECT_EQ(action("Std_Undo")->text(), "&Undo: edit of the tool");
    pressUndo();
    ASSERT_TRUE(polygonTool()->getPolygon());
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints().size(), 2u);
    pressUndo();
    pressUndo();
    EXPECT_FALSE(polygonTool()->getGraphicObject());
    EXPECT_FALSE(polygonDialog()->getGraphicObject());
    EXPECT_FALSE(action("Std_Undo")->isEnabled());
    view().setFocus();
    pressUndo();
    EXPECT_EQ(test->names().size(), 2u) << "nothing of the document";
    EXPECT_TRUE(status().startsWith("All edits of the tool have been taken back."))
        << status().toStdString();
    for (int i = 0; i < 3; ++i)
        pressRedo();
    ASSERT_TRUE(polygonTool()->getPolygon());
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints().size(), 3u);
    EXPECT_EQ(polygonDialog()->getGraphicObject(), polygonTool()->getGraphicObject());
    EXPECT_TRUE(polygonDialog()->widgets().ok->isEnabled());
    takePicture("tool-redone");
    // The tool takes its edits along.
    view().setFocus();
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(polygonTool());
    pressUndo();
    EXPECT_EQ(test->names(), std::vector<std::string>{"block"});
}

TEST_F(ToolEdits, WithoutAnyTheDialogLeavesUndoToTheDocument)
{
    test->document->openTransaction("Move");
    test->add(box(5, 5, 5, {40, 0, 0}), "small");
    test->document->commitTransaction();
    open("Std_Sectioncut");
    ASSERT_TRUE(planeTool());
    view().setFocus();
    pressUndo();
    EXPECT_EQ(test->names(), std::vector<std::string>{"block"});
    pressRedo();
    EXPECT_EQ(test->names().size(), 2u);
    EXPECT_TRUE(sectionDialog() && planeTool());
}

TEST_F(ToolEdits, AFieldIsTakenBackFromWithinItUnlessSomethingIsBeingTyped)
{
    open("Std_Polygoncut");
    polygonDialog()->widgets().tabs->setCurrentIndex(2);
    settle();
    clickAt(0, 0);
    ASSERT_TRUE(cuboidTool() && cuboidTool()->getCuboid());
    CuboidProperty const& record = cuboidTool()->getCuboid()->getProperty();
    auto* const length =
        polygonDialog()->widgets().pages[2]->findChildren<MellQuantitySpinBox*>()[0];
    float const first = record.getCuboidLength();
    type(length, "17");
    EXPECT_EQ(record.getCuboidLength(), 17);
    type(length, "23");
    EXPECT_EQ(record.getCuboidLength(), 23);
    ASSERT_TRUE(length->hasFocus() || length->lineEdit()->hasFocus());
    pressUndo();
    EXPECT_EQ(record.getCuboidLength(), 17);
    EXPECT_EQ(length->value(), 17);
    // The text alone goes back while it is being typed.
    length->selectAll();
    QTest::keyClicks(length->lineEdit(), "9");
    pressUndo();
    EXPECT_EQ(record.getCuboidLength(), 17);
    pressUndo();
    EXPECT_EQ(record.getCuboidLength(), first);
    pressRedo();
    pressRedo();
    EXPECT_EQ(record.getCuboidLength(), 23);
    EXPECT_EQ(length->value(), 23);
}

TEST_F(ToolEdits, NumbersAndSliderFollowWhatIsTakenBackOfAPlane)
{
    open("Std_Sectioncut");
    planeTool()->setPlaneType(PLANE_XY);
    clickAt(3, 4);
    ASSERT_TRUE(planeTool()->getPlaneObject());
    auto const& ui = sectionDialog()->widgets();
    for (int i = 0; i < 3; ++i)
        type(ui.center[std::size_t(i)], "0");
    int const place = ui.slider->value();
    type(ui.center[2], "5");
    EXPECT_NE(ui.slider->value(), place);
    pressUndo();
    EXPECT_EQ(ui.center[2]->value(), 0);
    EXPECT_EQ(ui.slider->value(), place);
    // The arrow keys move it by the step of the dialog.
    type(ui.step, "2");
    view().setFocus();
    pressKey(Qt::Key_Up);
    EXPECT_NEAR(std::abs(ui.center[2]->value()), 2, 1e-4);
    pressUndo();
    EXPECT_EQ(ui.center[2]->value(), 0);
    takePicture("tool-plane-back");
}

// Dragged by real presses, of which the application knows.
TEST_F(ToolEdits, ADragOfTheSliderIsOneStep)
{
    open("Std_Sectioncut");
    planeTool()->setPlaneType(PLANE_XY);
    clickAt(3, 4);
    ASSERT_TRUE(planeTool()->getPlaneObject());
    PlaneProperty const& plane = planeTool()->getPlaneObject()->getProperty();
    auto const& ui = sectionDialog()->widgets();
    type(ui.center[2], "0");
    Points const before = plane.getCorners();
    QWidget* const slider = ui.slider;
    QWindow* const handle = window->windowHandle();
    auto const inWindow = [&](QPoint place) { return slider->mapTo(window.get(), place); };
    int const y = slider->height() / 2;
    int const x = slider->width() / 2;
    QTest::mousePress(handle, Qt::LeftButton, {}, inWindow({x, y}));
    for (int i = 1; i <= 5; ++i) {
        QTest::mouseMove(handle, inWindow({x + 8 * i, y}));
        settle();
    }
    QTest::mouseRelease(handle, Qt::LeftButton, {}, inWindow({x + 40, y}));
    settle();
    ASSERT_NE(plane.getCorners(), before);
    pressUndo();
    EXPECT_EQ(plane.getCorners(), before);
}

TEST_F(ToolEdits, WhatMustBeToldOfACutStandsInTheLogAndTheStatusLine)
{
    open("Std_Polygoncut");
    for (Point const& p : {Point(40, 0, 0), Point(44, 0, 0), Point(42, 5, 0)})
        clickAt(p.X(), p.Y());
    ASSERT_TRUE(polygonDialog()->widgets().ok->isEnabled());
    polygonDialog()->widgets().ok->click();
    ASSERT_TRUE(waitUntil([&] { return !polygonDialog() && !JobGuard::instance()->isBusy(); }));
    settle();
    QString const told = "block: Nothing was cut: the tool misses the part.";
    EXPECT_EQ(status(), told);
    bool isLogged = false;
    for (QPlainTextEdit const* const log : window->findChildren<QPlainTextEdit*>())
        isLogged = isLogged || log->toPlainText().contains(told);
    EXPECT_TRUE(isLogged);
    takePicture("cut-remark");
}
