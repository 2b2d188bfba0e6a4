// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/ToolHint.h"
#include "platform/view/MeshGLView.h"
#include "tests/app/AppWindow.h"
#include "tests/app/MouseInWindow.h"

namespace {

/// A hand lays parts on their faces, in the window.
class LayFlatByHand : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        show();
        part = test->add(box(10, 20, 30), "slab");
        part->translate({-5, -10, 0}, 0);
        view().OnViewType(0);
        view().fitAll();
        QCoreApplication::processEvents();
    }

    Mesh::GLView& view() const { return window->view(); }
    QPoint positionOf(UPoint3<float> const& world) const
    {
        int x = 0, y = 0;
        view().getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }
    UVector3<float> size() const
    {
        UBox3<float> const box = part->getBoundingBox();
        return box.max - box.min;
    }

    Mesh::DocumentObject* part = nullptr;
};

}  // namespace

TEST_F(LayFlatByHand, TheFaceThatIsClickedComesToLieOnThePlate)
{
    trigger("Std_FaceDown");
    EXPECT_EQ(view().getInteractModeName(), "FaceDownTool");
    EXPECT_TRUE(toolHint("FaceDownTool", commands()).startsWith("Click on the face"));
    MouseInWindow const mouse(*window);
    // In the front view one sees the face towards -y, of 10 mm by 30.
    mouse.click(view(), positionOf({0, -10, 15}));
    EXPECT_EQ(test->document->undoNames(), std::vector<std::string>{"Lay Flat"});
    EXPECT_NEAR(size().Z(), 20, 1e-4);
    EXPECT_NEAR(part->getBoundingBox().MinZ(), 0, 1e-5);
    trigger("Std_Undo");
    EXPECT_EQ(size().Z(), 30);
    // A drag, and a click beside the part, lay nothing.
    mouse.drag(view(), positionOf({0, -10, 15}), {40, 30});
    mouse.click(view(), {5, view().height() - 5});
    EXPECT_TRUE(test->document->undoNames().empty());
}

TEST_F(LayFlatByHand, AMirroredPartLiesOnTheFaceThatIsSeen)
{
    part->mirror({}, {1, 0, 0});
    part->translate({0, 0, 3}, 0);
    view().fitAll();
    trigger("Std_FaceDown");
    MouseInWindow const mouse(*window);
    mouse.click(view(), positionOf({0, -10, 15}));
    // What was in front is at the bottom now.
    UMatrix4<float> const matrix = part->getMatrix();
    float low = 1e9f;
    for (UVertex<float> const* const vertex : part->meshProperty->getMesh()->readMesh()->vertices)
        if (vertex->cP().Y() == 0)
            low = std::min(low, (matrix * vertex->cP()).Z());
    EXPECT_NEAR(low, 0, 1e-4);
    EXPECT_NEAR(size().Z(), 20, 1e-4);
}

TEST_F(LayFlatByHand, WhileAJobRunsPartsStay)
{
    trigger("Std_FaceDown");
    JobGuard::Hold const job;
    MouseInWindow const mouse(*window);
    mouse.click(view(), positionOf({0, -10, 15}));
    EXPECT_EQ(size().Z(), 30);
    EXPECT_TRUE(test->document->undoNames().empty());
}

TEST_F(LayFlatByHand, TheCommandLaysWhatIsSelectedOnItsLargestFace)
{
    EXPECT_FALSE(action("Std_LayFlat")->isEnabled());
    test->document->select(part, true, true, true);
    trigger("Std_LayFlat");
    EXPECT_NEAR(size().Z(), 10, 1e-4);
    trigger("Std_Undo");
    EXPECT_EQ(size().Z(), 30);
}
