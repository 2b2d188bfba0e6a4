// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/ApartSlider.h"
#include "platform/view/MeshGLView.h"
#include "tests/app/AppWindow.h"
#include "tests/app/MouseInWindow.h"

#include <QSlider>

namespace {

class ApartByHand : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        test->add(box(20, 20, 20), "low");
        test->add(box(20, 20, 20, {0, 0, 20}), "high");
        show();
    }

    Mesh::GLView& view() const { return window->view(); }
    QSlider& slider() const { return window->findChild<ApartSlider*>()->slider(); }
};

}  // namespace

TEST_F(ApartByHand, DraggingTheSliderDrawsThePartsApart)
{
    ASSERT_TRUE(slider().isVisible());
    MouseInWindow const mouse(*window);
    mouse.drag(slider(), {6, slider().height() / 2}, {slider().width() / 2, 0});
    EXPECT_GT(view().drawnApart(), 0.5);
    EXPECT_LT(view().drawnApart(), 1.5);
    EXPECT_TRUE(test->document->undoNames().empty());
    mouse.drag(slider(), {6 + slider().width() / 2, slider().height() / 2}, {-slider().width(), 0});
    EXPECT_EQ(view().drawnApart(), 0);
}

TEST_F(ApartByHand, AToolPutsThemTogether)
{
    slider().setValue(100);
    EXPECT_EQ(view().drawnApart(), 1);
    trigger("Std_PickPoint");
    EXPECT_EQ(view().drawnApart(), 0);
    EXPECT_FALSE(slider().isEnabled());
    EXPECT_EQ(slider().toolTip(), "End the tool first: it goes by where the parts are.");
    trigger("Std_PickPoint");
    EXPECT_TRUE(slider().isEnabled());
    EXPECT_EQ(slider().value(), 0);
}

TEST_F(ApartByHand, PartsHaveColoursInTurnUnlessOneTakesThemAway)
{
    EXPECT_TRUE(action("Std_TintParts")->isChecked());
    EXPECT_TRUE(view().arePartsTinted());
    trigger("Std_TintParts");
    EXPECT_FALSE(view().arePartsTinted());
    start();
    EXPECT_FALSE(view().arePartsTinted());
}
