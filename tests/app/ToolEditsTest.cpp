// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/SolidToolPage.h"
#include "platform/ui/CutViewSlider.h"
#include "selection/CuboidcutSelection.h"
#include "tests/app/ToolWindow.h"
#include "tools/CuboidGraphicObject.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

// The edits of a running tool in the shown window: which keys take back what, and what the window
// says of it.
namespace {

using namespace Freecut;
class ToolEdits : public ToolWindow
{
protected:
    void SetUp() override
    {
        ToolWindow::SetUp();
        if (!IsSkipped())
            addBlock();
    }

    CuboidcutSelection* cuboidTool() const { return runningTool<CuboidcutSelection>(&view()); }
};

}  // namespace

TEST_F(ToolEdits, UndoTakesTheToolsEditsBackAndStopsAtTheDocuments)
{
    test->document->openTransaction("Move");
    test->add(box(5, 5, 5, {40, 0, 0}), "small");
    test->document->commitTransaction();
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
    clickAt({0, 0, 15});
    ASSERT_TRUE(cuboidTool() && cuboidTool()->getCuboid());
    CuboidProperty const& record = cuboidTool()->getCuboid()->getProperty();
    auto* const length =
        polygonDialog()->widgets().pages[2]->findChildren<MellQuantitySpinBox*>()[0];
    float const first = record.getCuboidLength();
    typeInto(length, "17");
    EXPECT_EQ(record.getCuboidLength(), 17);
    typeInto(length, "23");
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
    clickAt({3, 4, 15});
    ASSERT_TRUE(planeTool()->getPlaneObject());
    auto const& ui = sectionDialog()->widgets();
    for (int i = 0; i < 3; ++i)
        typeInto(ui.center[std::size_t(i)], "0");
    int const place = ui.slider->value();
    typeInto(ui.center[2], "5");
    EXPECT_NE(ui.slider->value(), place);
    pressUndo();
    EXPECT_EQ(ui.center[2]->value(), 0);
    EXPECT_EQ(ui.slider->value(), place);
    // The arrow keys move it by the step of the dialog.
    typeInto(ui.step, "2");
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
    clickAt({3, 4, 15});
    ASSERT_TRUE(planeTool()->getPlaneObject());
    PlaneProperty const& plane = planeTool()->getPlaneObject()->getProperty();
    auto const& ui = sectionDialog()->widgets();
    typeInto(ui.center[2], "0");
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
        clickAt(p);
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
