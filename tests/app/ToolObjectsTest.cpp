// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/partlist/PartList.h"
#include "app/partlist/PartTreeView.h"
#include "platform/document/GraphicObject.h"
#include "tests/app/AppWindow.h"
#include "tests/support/ViewEvents.h"

#include <QMenu>

// Tool objects in a document are not parts: commands on parts leave them to their owner.
namespace {

class ToolObjects : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        first = test->add(box(10, 10, 10), "first");
        second = test->add(box(10, 10, 10, {20, 0, 0}), "second");
        tool = new Base::GraphicObject;
        test->document->addObject(tool, "Tool", true);
        tool->setSelected(true, true, false);
    }
    void TearDown() override
    {
        EXPECT_TRUE(tool->isSelected());
        test->document->detachObject(tool).reset();
        EXPECT_FALSE(test->document->contains(tool));
        while (test->document->undo())
            EXPECT_FALSE(test->document->contains(tool));
        AppWindow::TearDown();
    }

    PartList& partList() const { return *window->findChild<PartList*>(); }
    std::vector<std::string> selected() const
    {
        std::vector<std::string> names;
        for (Base::DocumentObject const* const object : test->document->getSelectedObjects())
            names.push_back(object->getName());
        std::ranges::sort(names);
        return names;
    }

    using Names = std::vector<std::string>;
    Mesh::DocumentObject* first = nullptr;
    Mesh::DocumentObject* second = nullptr;
    Base::GraphicObject* tool = nullptr;
};

}  // namespace

TEST_F(ToolObjects, AreNoReasonForACommandOnParts)
{
    for (char const* const name :
         {"Std_Delete", "Std_Duplicate", "Std_Group", "Std_Hide", "Std_SelectNone"})
        EXPECT_FALSE(commands().getCommandByName(name)->isActive()) << name;
    std::unique_ptr<QMenu> const menu(partList().makeContextMenu());
    for (QAction const* const entry : menu->actions())
        EXPECT_TRUE(entry->isSeparator() || !entry->isEnabled()) << entry->text().toStdString();
}

TEST_F(ToolObjects, StayWhenPartsAreDeletedAndDuplicated)
{
    first->setSelected(true, true, false);
    trigger("Std_Duplicate");
    EXPECT_EQ(test->names(), (Names{"first", "second", "Tool", "first_copy"}));
    trigger("Std_Delete");
    EXPECT_EQ(test->names(), (Names{"first", "second", "Tool"}));
    trigger("Std_Undo");
    EXPECT_EQ(test->names(), (Names{"first", "second", "Tool", "first_copy"}));
    trigger("Std_Undo");
    EXPECT_EQ(test->names(), (Names{"first", "second", "Tool"}));
    trigger("Std_Redo");
    EXPECT_TRUE(tool->isSelected());
}

TEST_F(ToolObjects, StayWhenTheMenuOfTheListDeletes)
{
    second->setSelected(true, true, true);
    std::unique_ptr<QMenu> const menu(partList().makeContextMenu());
    auto const actions = menu->actions();
    actions.back()->trigger();
    EXPECT_EQ(test->names(), (Names{"first", "Tool"}));
    trigger("Std_Undo");
    EXPECT_EQ(test->names(), (Names{"first", "second", "Tool"}));
}

TEST_F(ToolObjects, StaySelectedWhateverIsSelectedBesideThem)
{
    trigger("Std_SelectAll");
    EXPECT_EQ(selected(), (Names{"Tool", "first", "second"}));
    trigger("Std_SelectNone");
    EXPECT_EQ(selected(), Names{"Tool"});
    first->setSelected(true, true, true);
    trigger("Std_InvertSelection");
    EXPECT_EQ(selected(), (Names{"Tool", "second"}));
    // A click beside all parts.
    click(window->view(), {3, 3});
    EXPECT_EQ(selected(), Names{"Tool"});
    // The list follows, and what is chosen there leaves the tool alone.
    PartList& list = partList();
    QCoreApplication::processEvents();
    list.view()->selectAll();
    list.view()->clearSelection();
    QCoreApplication::processEvents();
    EXPECT_EQ(selected(), Names{"Tool"});
}
