// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/PointPickerMesh.h"
#include "tests/app/AppWindow.h"
#include "tests/view/ViewEvents.h"

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
