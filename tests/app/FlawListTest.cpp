// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/FlawList.h"
#include "app/panels/PartInformation.h"
#include "app/window/WindowPanels.h"
#include "platform/view/PlaceMark.h"
#include "tests/app/MouseInWindow.h"
#include "tests/app/ShownWindow.h"

#include <QListWidget>

namespace {

/// Two open trays, one of them turned away from the viewer, whose errors are looked for.
class FlawListInWindow : public ShownWindow
{
protected:
    void prepare() override
    {
        tray = test->add(openBox(30, 30, 30), "tray");
        other = test->add(openBox(30, 30, 30), "other");
        other->translate({50, 0, 0}, 0);
        view().OnViewType(6);
        view().fitAll();
    }

    QListWidget& list() const { return window->findChild<FlawList*>()->list(); }
    void check(std::vector<Mesh::DocumentObject*> const& parts)
    {
        select(parts);
        trigger("Std_Check");
        ASSERT_TRUE(waitUntil([] { return !JobGuard::instance()->isBusy(); }));
        QCoreApplication::processEvents();
    }
    void select(std::vector<Mesh::DocumentObject*> const& parts)
    {
        test->document->clearSelection();
        for (Mesh::DocumentObject* const part : parts)
            part->setSelected(true, true, false);
        QCoreApplication::processEvents();
    }
    QStringList rows() const
    {
        QStringList texts;
        for (int i = 0; i < list().count(); ++i)
            texts << list().item(i)->text();
        return texts;
    }
    /// Of the colour of the marks.
    int markedPixels() const
    {
        return pixelsIn([](QColor const& color) {
            return color.red() > 200 && color.green() < 80 && color.blue() < 70;
        });
    }

    Mesh::DocumentObject* tray = nullptr;
    Mesh::DocumentObject* other = nullptr;
};

}  // namespace

TEST_F(FlawListInWindow, APlaceThatIsClickedComesIntoTheMiddleOfTheView)
{
    int const before = markedPixels();
    check({tray, other});
    EXPECT_EQ(rows(), QStringList({"tray: 4 open edges", "other: 4 open edges"}));
    EXPECT_GT(markedPixels(), before + 200);
    MouseInWindow const mouse(*window);
    mouse.click(*list().viewport(), list().visualItemRect(list().item(1)).center());
    auto const* const mark = Base::PlaceMark::in(view());
    ASSERT_TRUE(mark && mark->isVisible());
    EXPECT_EQ(mark->place().Z(), 30);
    EXPECT_GE(mark->place().X(), 50);
    int x = 0, y = 0;
    view().getWidgetcoordFromWCS(mark->place(), x, y);
    EXPECT_LE((QPoint(x, y) - view().rect().center()).manhattanLength(), 4);
    takePicture("flaw-list");
    // By keys too.
    QTest::keyClick(&list(), Qt::Key_Up);
    ASSERT_TRUE(Base::PlaceMark::in(view()));
    EXPECT_LE(Base::PlaceMark::in(view())->place().X(), 30);
}

TEST_F(FlawListInWindow, ShowsWhatIsSelectedAndForgetsWhatHasChanged)
{
    check({tray, other});
    select({other});
    EXPECT_EQ(rows(), QStringList{"other: 4 open edges"});
    select({tray, other});
    EXPECT_EQ(rows().size(), 2);
    tray->translate({0, 0, 5}, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows(), QStringList{"other: 4 open edges"});
    test->document->removeObject(other);
    QCoreApplication::processEvents();
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_FALSE(window->findChild<FlawList*>()->isVisible());
}

TEST_F(FlawListInWindow, ARepairTakesTheMarksAway)
{
    int const before = markedPixels();
    check({tray});
    EXPECT_GT(markedPixels(), before + 100);
    trigger("Std_Repair");
    ASSERT_TRUE(waitUntil([] { return !JobGuard::instance()->isBusy(); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_LE(markedPixels(), before + 20);
}

TEST_F(FlawListInWindow, ANewDocumentHasNoMarks)
{
    check({tray});
    EXPECT_EQ(rows().size(), 1);
    trigger("Std_New");
    QCoreApplication::processEvents();
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(FlawListInWindow, KeysGoThroughThePlacesOneByOneAndAround)
{
    EXPECT_FALSE(action("Std_NextFlaw")->isEnabled());
    check({tray, other});
    ASSERT_EQ(list().count(), 2);
    window->view().setFocus();
    auto const press = [&](Qt::KeyboardModifiers modifiers) {
        QCoreApplication::processEvents();
        QTest::keyClick(window->windowHandle(), Qt::Key_F8, modifiers);
        QCoreApplication::processEvents();
        return list().currentRow();
    };
    EXPECT_TRUE(action("Std_NextFlaw")->isEnabled());
    EXPECT_EQ(press({}), 0);
    EXPECT_EQ(press({}), 1);
    EXPECT_EQ(press({}), 0);
    EXPECT_EQ(press(Qt::ShiftModifier), 1);
    EXPECT_EQ(press(Qt::ShiftModifier), 0);
    select({});
    QCoreApplication::processEvents();
    EXPECT_EQ(press({}), -1);
}
