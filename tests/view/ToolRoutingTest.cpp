// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/OrientationCube.h"
#include "tests/support/RecordingTool.h"
#include "tests/support/ShownView.h"

#include <QLabel>

// Which events belong to a tool: what it has begun, and nothing that others have begun.
namespace {

using Log = std::vector<std::string>;

class ToolRouting : public testing::Test
{
protected:
    ToolRouting()
    {
        RecordingTool::enter();
        view.resize(800, 600);
        view.setDocument(test.document);
        view.startSelection(RecordingTool::name);
    }

    Log& log = RecordingTool::log;
    TestDocument test;
    Mesh::GLView view;
};

/// The middle of the cube's face that is in front.
QPoint onCube(Mesh::GLView const& view)
{
    for (int x = view.width() - 1; x > 0; x -= 2)
        for (int y = 0; y < view.height(); y += 2)
            if (OrientationCube::viewAt(view, {x, y}) >= 0)
                return {x, y};
    return {};
}

/// Takes presses for itself, as a label of a tool does.
class PressTaker : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void mousePressEvent(QMouseEvent*) override {}
};

}  // namespace

TEST_F(ToolRouting, AReleaseWhosePressWasALabelsDoesNotReachTheTool)
{
    PressTaker label(&view);
    label.setGeometry(100, 100, 40, 20);
    press(label, {5, 5}, Qt::LeftButton);
    // A label passes the release on to the view.
    release(label, {5, 5}, Qt::LeftButton);
    EXPECT_EQ(log, Log{});
    click(view, {110, 110});
    EXPECT_EQ(log, (Log{"press 1", "release 1"}));
}

TEST_F(ToolRouting, AReleaseGoesToTheToolThatHasSeenThePress)
{
    press(view, {50, 50}, Qt::LeftButton);
    view.startSelection(RecordingTool::name);
    log.clear();
    release(view, {50, 50}, Qt::LeftButton);
    EXPECT_EQ(log, Log{});

    RecordingTool::onPress = [](RecordingTool& tool) { tool.getGLViewer()->stopSelection(); };
    test.add(box(20, 20, 20), "box")->setSelected(true, true, true);
    click(view, {2, 2});
    EXPECT_EQ(test.document->getSelectedObjects().size(), 1u) << "the view took the click";
}

TEST_F(ToolRouting, EachButtonHasItsOwnPress)
{
    sendMouse(view, QEvent::MouseButtonPress, {50, 50}, Qt::LeftButton, Qt::LeftButton);
    sendMouse(view, QEvent::MouseButtonPress, {50, 50}, Qt::RightButton,
              Qt::LeftButton | Qt::RightButton);
    sendMouse(view, QEvent::MouseButtonRelease, {50, 50}, Qt::LeftButton, Qt::RightButton);
    sendMouse(view, QEvent::MouseButtonRelease, {50, 50}, Qt::RightButton, Qt::NoButton);
    sendMouse(view, QEvent::MouseButtonRelease, {50, 50}, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(log, (Log{"press 1", "press 2", "release 1", "release 2"}));
}

TEST_F(ToolRouting, ALostReleaseEndsTheDragAsAReleaseOfNoButton)
{
    press(view, {50, 50}, Qt::LeftButton);
    move(view, {60, 60}, Qt::LeftButton);
    move(view, {70, 70});
    EXPECT_EQ(log, (Log{"press 1", "drag", "release 0", "hover"}));
    log.clear();
    // The next press is one like any other.
    press(view, {50, 50}, Qt::LeftButton);
    press(view, {50, 50}, Qt::LeftButton);
    release(view, {50, 50}, Qt::LeftButton);
    EXPECT_EQ(log, (Log{"press 1", "release 0", "press 1", "release 1"}));
}

TEST_F(ToolRouting, ACapturedPressOfTheRightButtonIsADragOfTheTool)
{
    RecordingTool::onPress = [](RecordingTool& tool) { tool.capturePress(); };
    UVector3<float> const direction = view.getViewDirection();
    drag(view, {100, 100}, {200, 150}, Qt::RightButton);
    EXPECT_EQ(view.getViewDirection(), direction);
    EXPECT_EQ(log, (Log{"press 2", "drag", "drag", "drag", "drag", "drag", "release 2"}));
    RecordingTool::onPress = nullptr;
    drag(view, {100, 100}, {200, 150}, Qt::RightButton);
    EXPECT_NE(view.getViewDirection(), direction) << "a capture lasts for one drag";
}

TEST_F(ToolRouting, ADragThatIsGivenUpFallsBackToWhereItBegan)
{
    EXPECT_FALSE(view.navigationStyle()->cancelDrag());
    press(view, {50, 60}, Qt::LeftButton);
    move(view, {90, 90}, Qt::LeftButton);
    log.clear();
    EXPECT_TRUE(view.navigationStyle()->cancelDrag());
    EXPECT_EQ(log, (Log{"drag", "release 0"}));
    EXPECT_EQ(RecordingTool::runningIn(view)->place, QPoint(50, 60));
    log.clear();
    EXPECT_FALSE(view.navigationStyle()->cancelDrag());
    release(view, {90, 90}, Qt::LeftButton);
    EXPECT_EQ(log, Log{}) << "the button comes up after all";
}

TEST_F(ToolRouting, AToolMayPutBackByItselfWhatIsGivenUp)
{
    int putBack = 0;
    RecordingTool::onPress = [&](RecordingTool& tool) { tool.capturePress([&] { ++putBack; }); };
    drag(view, {50, 60}, {90, 90}, Qt::RightButton);
    EXPECT_FALSE(view.navigationStyle()->cancelDrag());
    press(view, {50, 60}, Qt::RightButton);
    move(view, {90, 90}, Qt::RightButton);
    log.clear();
    EXPECT_TRUE(view.navigationStyle()->cancelDrag());
    EXPECT_EQ(putBack, 1);
    EXPECT_EQ(log, Log{"release 0"});
}

TEST_F(ToolRouting, ATurnThatIsGivenUpPutsTheCameraBack)
{
    view.OnViewType(6);
    UVector3<float> const direction = view.getViewDirection(), up = view.getViewUpDirection();
    UPoint3<float> const reference = view.getViewRefPoint();
    for (Qt::KeyboardModifiers const modifiers :
         {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier}) {
        press(view, {100, 100}, Qt::RightButton, modifiers);
        move(view, {180, 160}, Qt::RightButton, modifiers);
        EXPECT_TRUE(view.navigationStyle()->isNavigating());
        view.resize(view.width() + 10, view.height());
        EXPECT_TRUE(view.navigationStyle()->cancelDrag());
        EXPECT_EQ(view.getViewDirection(), direction);
        EXPECT_EQ(view.getViewUpDirection(), up);
        EXPECT_EQ(view.getViewRefPoint(), reference);
        int width = 0, height = 0;
        view.getCamera()->get_screen(width, height);
        EXPECT_EQ(width, view.width());
        release(view, {180, 160}, Qt::RightButton);
        EXPECT_EQ(log.back(), "release 0");
    }
}

TEST_F(ToolRouting, APressOnTheViewCubeIsTheCubesUntilItsRelease)
{
    QPoint const cube = onCube(view);
    ASSERT_FALSE(cube.isNull());
    press(view, cube, Qt::LeftButton);
    move(view, {50, 50}, Qt::LeftButton);
    release(view, {50, 50}, Qt::LeftButton);
    EXPECT_EQ(log, Log{});
    // Its release lost, the cube lets go as well.
    press(view, cube, Qt::LeftButton);
    move(view, {50, 50});
    EXPECT_EQ(log, Log{"hover"});
    log.clear();
    // A drag of the tool that ends on the cube ends.
    press(view, {50, 50}, Qt::LeftButton);
    move(view, cube, Qt::LeftButton);
    release(view, cube, Qt::LeftButton);
    EXPECT_EQ(log, (Log{"press 1", "drag", "release 1"}));
}

TEST_F(ToolRouting, AnotherButtonBesideAPressOnTheCubeIsAWholePress)
{
    QPoint const cube = onCube(view);
    press(view, cube, Qt::LeftButton);
    sendMouse(view, QEvent::MouseButtonPress, {50, 50}, Qt::RightButton,
              Qt::LeftButton | Qt::RightButton);
    sendMouse(view, QEvent::MouseButtonRelease, cube, Qt::LeftButton, Qt::RightButton);
    sendMouse(view, QEvent::MouseButtonRelease, {50, 50}, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(log, (Log{"press 2", "release 2"}));
}

TEST_F(ToolRouting, AToolThatReplacesAnotherInAnEventKeepsItsCursor)
{
    RecordingTool::onRelease = [](RecordingTool& tool) {
        RecordingTool::onRelease = nullptr;
        tool.getGLViewer()->startSelection(RecordingTool::name);
    };
    click(view, {50, 50});
    EXPECT_EQ(log, (Log{"press 1", "release 1", "gone"}));
    EXPECT_EQ(view.cursor().shape(), Qt::CrossCursor);
    // A next tool that sets none gets none.
    RecordingTool::onRelease = [](RecordingTool& tool) {
        tool.getGLViewer()->startSelection("Mesh::PointPickerMesh");
    };
    click(view, {50, 50});
    EXPECT_EQ(view.getInteractModeName(), "Mesh::PointPickerMesh");
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ToolRouting, ALockedToolSeesTheMousePassAndNothingElse)
{
    bool isLocked = true;
    int refused = 0;
    view.setToolLock([&] { return isLocked; });
    QObject::connect(&view, &Base::GLView::signalToolRefused, [&] { ++refused; });
    UVector3<float> const direction = view.getViewDirection();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, {}, "a");
    QCoreApplication::sendEvent(&view, &key);
    click(view, {50, 50});
    move(view, {60, 60});
    EXPECT_EQ(log, (Log{"release 0", "hover"}));
    EXPECT_EQ(refused, 1);
    RecordingTool::onPress = [](RecordingTool& tool) { tool.capturePress(); };
    drag(view, {100, 100}, {200, 150}, Qt::RightButton);
    EXPECT_NE(view.getViewDirection(), direction) << "the view can be turned";
    EXPECT_FALSE(view.startSelection("Mesh::PointPickerMesh"));
    EXPECT_EQ(refused, 2);
    EXPECT_EQ(view.getInteractModeName(), RecordingTool::name);
    isLocked = false;
    log.clear();
    click(view, {50, 50});
    EXPECT_EQ(log, (Log{"press 1", "release 1"}));
}

TEST_F(ToolRouting, ADragThatALockOvertakesEndsWithoutAnEdit)
{
    bool isLocked = false;
    int putBack = 0;
    view.setToolLock([&] { return isLocked; });
    RecordingTool::onPress = [&](RecordingTool& tool) { tool.capturePress([&] { ++putBack; }); };
    press(view, {50, 50}, Qt::LeftButton);
    isLocked = true;
    move(view, {60, 60}, Qt::LeftButton);
    view.navigationStyle()->cancelDrag();
    EXPECT_EQ(log, (Log{"press 1", "release 0"}));
    EXPECT_EQ(putBack, 0);
}

TEST_F(ToolRouting, TheOwnerOfALockedToolMayEndIt)
{
    view.setToolLock([] { return true; });
    view.stopSelection();
    EXPECT_EQ(view.getInteractModeName(), "");
    EXPECT_TRUE(view.startSelection(RecordingTool::name)) << "nothing runs that is locked";
}

TEST_F(ToolRouting, AToolEndsWithTheDocumentOfItsView)
{
    view.setDocument(test.document);
    EXPECT_EQ(view.getInteractModeName(), RecordingTool::name);
    Mesh::Document* const other = test.application.newDocument("other");
    view.setDocument(other);
    EXPECT_EQ(view.getInteractModeName(), "");
    view.startSelection(RecordingTool::name);
    test.application.closeDocument(other);
    EXPECT_EQ(view.getInteractModeName(), "");
}

TEST_F(ToolRouting, FittingKeepsTheDepthOfTheReferencePlane)
{
    test.add(box(20, 20, 200), "tall");
    view.OnViewType(2);
    UPoint3<float> low(10, 10, 0);
    view.getEyePointFromWCSPoint(low);
    view.fitAll();
    UPoint3<float> after(10, 10, 0);
    view.getEyePointFromWCSPoint(after);
    EXPECT_FLOAT_EQ(after.Z(), low.Z());
    EXPECT_NEAR(after.X(), 0, 1e-4);
    view.stopSelection();
    view.fitAll();
    EXPECT_EQ(view.getViewRefPoint(), UPoint3<float>(10, 10, 100)) << "without a tool";
}

TEST_F(ToolRouting, ATurnThatIsHeldUpLeavesTheReferencePointAlone)
{
    test.add(box(20, 20, 200), "tall");
    view.fitAll();
    view.OnViewType(2);
    UPoint3<float> const reference = view.getViewRefPoint();
    // Straight above, a drag downwards cannot turn any farther.
    drag(view, {420, 300}, {420, 360}, Qt::RightButton);
    EXPECT_EQ(view.getViewRefPoint(), reference);
    drag(view, {420, 300}, {420, 240}, Qt::RightButton);
    EXPECT_NE(view.getViewDirection(), (UVector3<float>(0, 0, 1)));
}

TEST_F(ToolRouting, ThePickersMarkCanBeCleared)
{
    test.add(box(20, 20, 20), "box");
    view.OnViewType(2);
    view.fitAll();
    view.startSelection("Mesh::PointPickerMesh");
    auto* const picker = static_cast<Mesh::PointPickerMesh*>(view.navigationStyle()->mouseModel());
    picker->clearMark();
    click(view, {400, 300});
    ASSERT_TRUE(picker->pickedPoint());
    press(view, {400, 300}, Qt::LeftButton);
    picker->clearMark();
    release(view, {400, 300}, Qt::LeftButton);
    EXPECT_FALSE(picker->pickedPoint());
    EXPECT_EQ(view.findChild<QLabel*>("PickedPoint"), nullptr);
}
