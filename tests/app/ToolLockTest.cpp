// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/StatusLine.h"
#include "platform/view/PointPickerMesh.h"
#include "tests/app/AppWindow.h"
#include "tests/support/RecordingTool.h"
#include "tests/support/ViewEvents.h"

namespace {

/// A tool as a module brings it: counts what reaches it.
class CountingTool : public Mesh::PointPickerMesh
{
public:
    static Base::Type classTypeId;
    static void init()
    {
        if (classTypeId.isBad())
            initSubclass(classTypeId, "Test::CountingTool", "Mesh::PointPickerMesh", create);
    }
    static void* create() { return static_cast<BaseClass*>(new CountingTool); }
    Base::Type getTypeId() const override { return classTypeId; }
    std::string getClassName() const override { return "Test::CountingTool"; }

    int mousePressEvent(QMouseEvent*) override { return ++presses, 0; }
    int keyPressEvent(QKeyEvent*) override { return ++keys, 1; }
    int wheelEvent(QWheelEvent*) override { return ++turns, 0; }

    static int presses, keys, turns;
};

constinit Base::Type CountingTool::classTypeId;
int CountingTool::presses = 0;
int CountingTool::keys = 0;
int CountingTool::turns = 0;

}  // namespace

TEST_F(AppWindow, AToolOfAModuleWaitsWhileAJobRuns)
{
    CountingTool::init();
    Mesh::GLView& view = window->view();
    ASSERT_TRUE(view.startSelection("Test::CountingTool"));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);

    click(view, {100, 100});
    QCoreApplication::sendEvent(&view, &key);
    EXPECT_EQ(CountingTool::presses, 1);
    EXPECT_EQ(CountingTool::keys, 1);
    {
        JobGuard::Hold const job;
        click(view, {100, 100});
        QCoreApplication::sendEvent(&view, &key);
        EXPECT_EQ(CountingTool::presses, 1);
        EXPECT_EQ(CountingTool::keys, 1);
        double width = 0, before = 0, after = 0;
        view.getCamera()->get_view_rect(width, before);
        turnWheel(view, {100, 100}, 1);
        view.getCamera()->get_view_rect(width, after);
        EXPECT_NE(before, after);
    }
    click(view, {100, 100});
    EXPECT_EQ(CountingTool::presses, 2);
}

TEST_F(AppWindow, WhileAJobRunsNothingTakesTheToolsPlaceAndTheStatusLineSaysWhy)
{
    CountingTool::init();
    Mesh::GLView& view = window->view();
    ASSERT_TRUE(view.startSelection("Test::CountingTool"));
    test->add(box(10, 10, 10), "part");
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    {
        JobGuard::Hold const job;
        auto const expectRefused = [&](char const* what) {
            EXPECT_EQ(view.getInteractModeName(), "Test::CountingTool") << what;
            EXPECT_EQ(window->statusLine().currentMessage(), JobGuard::instance()->reason())
                << what;
            window->statusLine().clearMessage();
        };
        for (char const* const name :
             {"Std_RectangleSelect", "Std_PickPoint", "FreecutPlane3Pts", "FreecutCylinder"}) {
            trigger(name);
            QCoreApplication::processEvents();
            EXPECT_FALSE(action(name)->isChecked()) << name;
            expectRefused(name);
        }
        QCoreApplication::sendEvent(&view, &escape);
        expectRefused("Escape");
        EXPECT_FALSE(view.startSelection("Test::CountingTool"));
        expectRefused("another start");
        click(view, {50, 50});
        expectRefused("a click");
        // Its owner is never refused.
        view.stopSelection();
        EXPECT_EQ(view.getInteractModeName(), "");
        // Selecting is free, with the host's own tools too.
        trigger("Std_RectangleSelect");
        EXPECT_EQ(view.getInteractModeName(), "Base::RectangleSelection");
        QCoreApplication::sendEvent(&view, &escape);
        EXPECT_EQ(view.getInteractModeName(), "");
    }
}

TEST_F(AppWindow, EscapeEndsWhatTheHandIsDoingAndThenTheTool)
{
    RecordingTool::enter();
    Mesh::GLView& view = window->view();
    ASSERT_TRUE(view.startSelection(RecordingTool::name));
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    press(view, {50, 50}, Qt::LeftButton);
    move(view, {90, 90}, Qt::LeftButton);
    QCoreApplication::sendEvent(&view, &escape);
    EXPECT_EQ(view.getInteractModeName(), RecordingTool::name);
    EXPECT_EQ(RecordingTool::log.back(), "release 0");
    EXPECT_EQ(RecordingTool::runningIn(view)->place, QPoint(50, 50));
    release(view, {90, 90}, Qt::LeftButton);
    QCoreApplication::sendEvent(&view, &escape);
    EXPECT_EQ(view.getInteractModeName(), "");
    EXPECT_EQ(RecordingTool::log.back(), "gone");
}
