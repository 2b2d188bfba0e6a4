// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/NavigationStyle.h"
#include "tests/app/MouseInWindow.h"
#include "tests/app/ShownWindow.h"
#include "tests/support/ViewEvents.h"

#include <QMenu>

namespace {

/// The right button in the shown view, over two boxes.
class ViewMenuByHand : public ShownWindow
{
protected:
    void prepare() override
    {
        a = test->add(box(20, 20, 20), "a");
        b = test->add(box(20, 20, 20, {40, 0, 0}), "b");
        view().OnViewType(2);
        view().fitAll();
    }
    QPoint positionOf(UPoint3<float> const& world) const
    {
        QPoint position;
        view().getWidgetcoordFromWCS(world, position.rx(), position.ry());
        return position;
    }
    QMenu* menu() const { return view().findChild<QMenu*>("ViewMenu"); }
    /// What the menu of a right click offers.
    std::vector<std::string> offered(QPoint position)
    {
        click(view(), position, Qt::RightButton);
        std::vector<std::string> names;
        for (QAction const* const entry : menu() ? menu()->actions() : QList<QAction*>())
            if (!entry->isSeparator())
                names.push_back(entry->objectName().toStdString());
        return names;
    }
    void close()
    {
        menu()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        ASSERT_FALSE(menu());
    }
    static bool has(std::vector<std::string> const& names, char const* name)
    {
        return std::find(names.begin(), names.end(), name) != names.end();
    }

    Mesh::DocumentObject* a = nullptr;
    Mesh::DocumentObject* b = nullptr;
};

}  // namespace

TEST_F(ViewMenuByHand, OffersWhatFitsTheSelection)
{
    auto names = offered(positionOf({10, 10, 20}));
    EXPECT_TRUE(a->isSelected());
    for (char const* const name : {"Std_Hide", "Std_Duplicate", "Std_Delete", "Std_Sectioncut"})
        EXPECT_TRUE(has(names, name)) << name;
    for (char const* const name : {"Std_Join", "Std_Ungroup", "Std_ShowAll"})
        EXPECT_FALSE(has(names, name)) << name;
    close();

    test->document->select(b, true, true, false);
    names = offered(positionOf({50, 10, 20}));
    EXPECT_TRUE(a->isSelected() && b->isSelected());
    EXPECT_TRUE(has(names, "Std_Join"));
    close();

    names = offered(positionOf({30, 10, 0}));
    EXPECT_TRUE(has(names, "Std_FitAll"));
    EXPECT_FALSE(has(names, "Std_Delete"));
    EXPECT_FALSE(has(names, "Std_ShowAll"));
    close();
}

TEST_F(ViewMenuByHand, DoesWhatIsChosenAndUndoTakesItBack)
{
    offered(positionOf({10, 10, 20}));
    takePicture("view-menu");
    QAction* const hide = action("Std_Hide");
    MouseInWindow(*menu()).click(*menu(), menu()->actionGeometry(hide).center());
    EXPECT_FALSE(a->isVisible());
    EXPECT_TRUE(b->isVisible());
    trigger("Std_Undo");
    EXPECT_TRUE(a->isVisible());
}

TEST_F(ViewMenuByHand, SaysThatAJobForbidsAnEdit)
{
    JobGuard::Hold const job;
    EXPECT_TRUE(has(offered(positionOf({10, 10, 20})), "Std_Delete"));
    EXPECT_FALSE(action("Std_Delete")->isEnabled());
    EXPECT_TRUE(action("Std_Delete")->toolTip().contains(JobGuard::instance()->reason()));
    EXPECT_TRUE(action("Std_FitSelection")->isEnabled());
    close();
}

TEST_F(ViewMenuByHand, IsNoMatterOfADragOrATool)
{
    drag(view(), positionOf({10, 10, 20}), positionOf({30, 10, 20}), Qt::RightButton);
    EXPECT_FALSE(menu());
    ASSERT_TRUE(view().startSelection("Mesh::PointPickerMesh"));
    click(view(), positionOf({10, 10, 20}), Qt::RightButton);
    EXPECT_FALSE(menu());
}

TEST_F(ViewMenuByHand, EscapeTakesARectangleBack)
{
    test->document->select(b, true, true, true);
    MouseInWindow const mouse(*window);
    QPoint const from = positionOf({-5, 25, 0}), to = positionOf({25, -5, 0});
    mouse.press(view(), from);
    mouse.moveTo(view(), to);
    QTest::keyClick(&view(), Qt::Key_Escape);
    mouse.release(view(), to);
    EXPECT_FALSE(a->isSelected());
    EXPECT_TRUE(b->isSelected());
    mouse.drag(view(), from, to - from);
    EXPECT_TRUE(a->isSelected());
    EXPECT_FALSE(b->isSelected());
}
