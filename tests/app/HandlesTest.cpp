// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/HandleShape.h"
#include "app/tools/HandlesTool.h"
#include "app/window/ToolHint.h"
#include "tests/app/MouseInWindow.h"
#include "tests/app/ShownWindow.h"

#include <QLabel>

namespace {

using Names = std::vector<std::string>;

/// A hand moves and turns parts by their handles, in the window.
class HandlesByHand : public ShownWindow
{
protected:
    void prepare() override
    {
        part = test->add(box(20, 30, 40), "block");
        part->translate({-10, -15, 0}, 0);
        view().OnViewType(6);
        view().fitAll();
        test->document->select(part, true, true, true);
        trigger("Std_Handles");
        ASSERT_EQ(view().getInteractModeName(), "HandlesTool");
    }

    UPoint3<float> middle() const
    {
        UBox3<float> const box = part->getBoundingBox();
        return (box.min + box.max) * 0.5f;
    }
    QPoint positionOf(UPoint3<float> const& world) const
    {
        QPoint position;
        view().getWidgetcoordFromWCS(world, position.rx(), position.ry());
        return position;
    }
    /// A place on a handle, away from the others; a ring is taken where the view's front is.
    QPoint grip(int handle) const
    {
        HandleShape const shape(view(), middle());
        auto const lines = shape.lines(handle);
        for (std::size_t i = 0; i < lines.size(); i += 2) {
            QPoint const place = positionOf((lines[i] + lines[i + 1]) * 0.5f);
            if (shape.at(place) == handle)
                return place;
        }
        ADD_FAILURE() << "no place on handle " << handle;
        return {};
    }
    /// The way on the screen of a way in the world.
    QPoint way(UVector3<float> const& offset) const
    {
        return positionOf(middle() + offset) - positionOf(middle());
    }
    QLabel const* amount() const { return view().findChild<QLabel*>("HandleAmount"); }
    Names steps() const { return test->document->undoNames(); }

    Mesh::DocumentObject* part = nullptr;
};

}  // namespace

TEST_F(HandlesByHand, AnArrowMovesAlongItsAxisInWholeMillimetres)
{
    EXPECT_TRUE(toolHint("HandlesTool", commands()).startsWith("Drag an arrow"));
    MouseInWindow const mouse(*window);
    for (int axis = 0; axis < 3; ++axis) {
        UBox3<float> const before = part->getBoundingBox();
        UVector3<float> offset;
        offset[axis] = 12.3f;
        mouse.drag(view(), grip(axis), way(offset));
        UBox3<float> const after = part->getBoundingBox();
        for (int i = 0; i < 3; ++i) {
            float const moved = after.min[i] - before.min[i];
            if (i == axis) {
                EXPECT_NEAR(moved, 12, 1.01) << axis;
                EXPECT_NEAR(moved, std::round(moved), 1e-5) << axis;
            } else {
                EXPECT_EQ(moved, 0) << axis;
            }
        }
        EXPECT_EQ(steps(), Names(std::size_t(axis) + 1, "Move"));
    }
    for (int i = 0; i < 3; ++i)
        trigger("Std_Undo");
    EXPECT_EQ(part->getBoundingBox().MinX(), -10);
    EXPECT_EQ(part->getBoundingBox().MinZ(), 0);
}

TEST_F(HandlesByHand, WithShiftAnyAmountIsTaken)
{
    // Seen from the front a millimetre of x is the same everywhere.
    view().OnViewType(0);
    QCoreApplication::processEvents();
    QPoint const from = grip(0);
    QPoint const pixels(37, 0);
    MouseInWindow const mouse(*window);
    mouse.drag(view(), from, pixels, Qt::ShiftModifier);
    double width = 0, height = 0;
    view().getCamera()->get_view_rect(width, height);
    EXPECT_NEAR(part->getBoundingBox().MinX(), -10 + 37 * width / view().width(), 0.02);
}

TEST_F(HandlesByHand, ARingTurnsInStepsOfFifteenDegrees)
{
    view().OnViewType(2);
    QCoreApplication::processEvents();
    QPoint const middleOfView = positionOf(middle());
    QPoint const from = grip(5);
    QPoint const arm = from - middleOfView;
    // From above, a quarter turn anticlockwise on the screen is one about z.
    QPoint const to = middleOfView + QPoint(arm.y(), -arm.x());
    MouseInWindow const mouse(*window);
    mouse.moveTo(view(), from);
    mouse.press(view(), from);
    for (int i = 1; i <= 8; ++i)
        mouse.moveTo(view(), from + (to - from) * i / 8);
    ASSERT_TRUE(amount() && amount()->isVisible());
    EXPECT_EQ(amount()->text(), QString("Z  +90.0%1").arg(QChar(0xb0)));
    takePicture("handles-turned");
    mouse.release(view(), to);
    EXPECT_FALSE(amount() && amount()->isVisible());
    UBox3<float> const box = part->getBoundingBox();
    EXPECT_NEAR(box.MaxX() - box.MinX(), 30, 1e-3);
    EXPECT_NEAR(box.MaxY() - box.MinY(), 20, 1e-3);
    // Anticlockwise: what was at +x is at +y now.
    EXPECT_NEAR(part->getMatrix()(1, 0), 1, 1e-5);
    EXPECT_EQ(steps(), Names{"Rotate"});
}

TEST_F(HandlesByHand, SmallTurnsFallBackToTheLastStep)
{
    view().OnViewType(2);
    QCoreApplication::processEvents();
    QPoint const from = grip(5);
    MouseInWindow const mouse(*window);
    // A few pixels are less than half a step.
    mouse.drag(view(), from, {0, 5});
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(part->getBoundingBox().MinX(), -10);
}

TEST_F(HandlesByHand, EscapePutsBackWhatIsDragged)
{
    MouseInWindow const mouse(*window);
    QPoint const from = grip(0);
    mouse.moveTo(view(), from);
    mouse.press(view(), from);
    mouse.moveTo(view(), from + way({20, 0, 0}));
    EXPECT_GT(part->getBoundingBox().MinX(), 5);
    // Nothing can be undone meanwhile.
    EXPECT_FALSE(commands().getCommandByName("Std_Undo")->isActive());
    window->activateWindow();
    view().setFocus();
    QTest::keyClick(&view(), Qt::Key_Escape);
    EXPECT_EQ(part->getBoundingBox().MinX(), -10);
    mouse.release(view(), from + way({20, 0, 0}));
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(view().getInteractModeName(), "HandlesTool");
}

TEST_F(HandlesByHand, APartThatGoesDuringTheDragEndsIt)
{
    auto* const other = test->add(box(5, 5, 5, {60, 0, 0}), "other");
    test->document->select(other, true, true, false);
    QCoreApplication::processEvents();
    UPoint3<float> const pivot = [&] {
        UBox3<float> both = part->getBoundingBox();
        both.Add(other->getBoundingBox());
        return (both.min + both.max) * 0.5f;
    }();
    HandleShape const shape(view(), pivot);
    auto const lines = shape.lines(0);
    QPoint const from = positionOf((lines[0] + lines[1]) * 0.5f);
    MouseInWindow const mouse(*window);
    mouse.moveTo(view(), from);
    mouse.press(view(), from);
    mouse.moveTo(view(), from + way({20, 0, 0}));
    test->document->removeObject(other);
    mouse.moveTo(view(), from + way({30, 0, 0}));
    mouse.release(view(), from + way({30, 0, 0}));
    EXPECT_EQ(part->getBoundingBox().MinX(), -10);
    EXPECT_TRUE(steps().empty());
}

TEST_F(HandlesByHand, WhileAJobRunsPartsStay)
{
    QPoint const from = grip(0);
    JobGuard::Hold const job;
    MouseInWindow const mouse(*window);
    mouse.drag(view(), from, way({20, 0, 0}));
    EXPECT_EQ(part->getBoundingBox().MinX(), -10);
    EXPECT_TRUE(steps().empty());
}

TEST_F(HandlesByHand, AClickBesideThemSelects)
{
    auto* const other = test->add(box(20, 20, 20, {60, 0, 0}), "other");
    view().fitAll();
    QCoreApplication::processEvents();
    MouseInWindow const mouse(*window);
    mouse.click(view(), positionOf({70, 10, 20}));
    EXPECT_EQ(test->document->getSelectedMeshObjects(), std::vector{other});
    // And the tool ends by its command.
    trigger("Std_Handles");
    EXPECT_EQ(view().getInteractModeName(), "");
}

TEST_F(HandlesByHand, AreSeenOverThePart)
{
    auto const count = [&] {
        QImage const picture = view().grabFramebuffer();
        int blue = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                blue += picture.pixelColor(x, y) == QColor(0x2f, 0x6f, 0xdc);
        return blue;
    };
    EXPECT_GT(count(), 50);
    takePicture("handles");
    MouseInWindow const mouse(*window);
    mouse.moveTo(view(), grip(2));
    takePicture("handle-hovered");
    test->document->clearSelection();
    QCoreApplication::processEvents();
    EXPECT_EQ(count(), 0);
}
