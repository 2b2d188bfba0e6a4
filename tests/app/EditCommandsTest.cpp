// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/document/DocumentObjectGroup.h"
#include "tests/app/AppWindow.h"

#include <algorithm>
#include <random>

namespace {

class EditCommands : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        for (int i = 0; i < 4; ++i)
            parts.push_back(
                test->add(box(10, 10, 10, {20.0f * float(i), 0, 0}), "part" + std::to_string(i)));
    }

    void invoke(std::string const& name) { commands().getCommandByName(name)->invoke(0); }
    bool isActive(std::string const& name) { return commands().getCommandByName(name)->isActive(); }

    void selectOnly(std::vector<int> const& indices)
    {
        test->document->clearSelection();
        for (int const index : indices)
            parts[std::size_t(index)]->setSelected(true, true, false);
    }

    /// All that a step can change, as text.
    std::string state() const
    {
        std::string text;
        for (Base::DocumentObject* const object : test->document->getObjectArray()) {
            text += object->getClassName() + ' ' + object->getName();
            text += object->isVisible() ? " shown" : " hidden";
            UBox3<float> const box = object->getBoundingBox();
            if (!box.Isnullptr())
                text += ' ' + std::to_string(box.MinX()) + ' ' + std::to_string(box.MaxX());
            auto const* const part = dynamic_cast<Mesh::DocumentObject*>(object);
            if (part && part->getGroup())
                text += " in " + part->getGroup()->getName();
            text += '\n';
        }
        return text;
    }

    std::vector<Mesh::DocumentObject*> parts;
};

}  // namespace

TEST_F(EditCommands, DeleteTakesTheSelectedPartsInOneStep)
{
    selectOnly({1, 3});
    invoke("Std_Delete");
    EXPECT_EQ(test->names(), (std::vector<std::string>{"part0", "part2"}));
    EXPECT_EQ(test->document->undoNames(), std::vector<std::string>{"Delete"});
    EXPECT_TRUE(test->document->isModified());
    invoke("Std_Undo");
    EXPECT_EQ(test->names(), (std::vector<std::string>{"part0", "part1", "part2", "part3"}));
    invoke("Std_Redo");
    EXPECT_EQ(test->names(), (std::vector<std::string>{"part0", "part2"}));
}

TEST_F(EditCommands, DuplicatesStandBesideTheirOriginalsAndAreSelected)
{
    selectOnly({0, 1});
    invoke("Std_Duplicate");
    auto const all = test->document->getMeshObjects();
    ASSERT_EQ(all.size(), 6u);
    EXPECT_EQ(all[4]->getName(), "part0_copy");
    // The two reach from 0 to 30, and there is a gap.
    EXPECT_FLOAT_EQ(all[4]->getBoundingBox().MinX(), 35);
    EXPECT_FLOAT_EQ(all[5]->getBoundingBox().MinX(), 55);
    EXPECT_EQ(test->document->getSelectedMeshObjects(),
              (std::vector<Mesh::DocumentObject*>{all[4], all[5]}));
    EXPECT_FLOAT_EQ(parts[0]->getBoundingBox().MinX(), 0);
}

TEST_F(EditCommands, GroupsTakePartsInAndUngroupLetsThemGo)
{
    selectOnly({0, 2});
    EXPECT_FALSE(isActive("Std_Ungroup"));
    invoke("Std_Group");
    auto const groups = test->document->getGroups();
    ASSERT_EQ(groups.size(), 1u);
    EXPECT_EQ(groups[0]->getObjects(), (std::vector<Mesh::DocumentObject*>{parts[0], parts[2]}));
    selectOnly({2});
    ASSERT_TRUE(isActive("Std_Ungroup"));
    invoke("Std_Ungroup");
    EXPECT_TRUE(test->document->getGroups().empty());
    EXPECT_EQ(parts[0]->getGroup(), nullptr);
    EXPECT_EQ(test->document->getMeshObjects().size(), 4u);
}

TEST_F(EditCommands, AGroupThatHasLostItsLastPartGoes)
{
    selectOnly({0});
    invoke("Std_Group");
    selectOnly({0});
    invoke("Std_Delete");
    EXPECT_TRUE(test->document->getGroups().empty());
    invoke("Std_Undo");
    ASSERT_EQ(test->document->getGroups().size(), 1u);
    EXPECT_EQ(parts[0]->getGroup(), test->document->getGroups()[0]);
}

TEST_F(EditCommands, HideAndShowChangeWhatIsSeen)
{
    EXPECT_FALSE(isActive("Std_ShowAll"));
    selectOnly({0, 1});
    invoke("Std_Hide");
    EXPECT_FALSE(parts[0]->isVisible());
    EXPECT_TRUE(parts[2]->isVisible());
    selectOnly({0});
    invoke("Std_Show");
    EXPECT_TRUE(parts[0]->isVisible());
    EXPECT_FALSE(parts[1]->isVisible());
    invoke("Std_ShowAll");
    EXPECT_TRUE(parts[1]->isVisible());
    EXPECT_FALSE(isActive("Std_ShowAll"));
    EXPECT_EQ(test->document->undoNames(), (std::vector<std::string>{"Show All", "Show", "Hide"}));
}

TEST_F(EditCommands, HideOthersLeavesTheSelectedPartsAloneInOneStep)
{
    parts[3]->setVisible(false);
    selectOnly({1, 3});
    invoke("Std_Isolate");
    std::vector<bool> shown;
    for (Mesh::DocumentObject const* const part : parts)
        shown.push_back(part->isVisible());
    EXPECT_EQ(shown, (std::vector<bool>{false, true, false, true}));
    EXPECT_EQ(test->document->undoNames(), std::vector<std::string>{"Hide Others"});
    EXPECT_FALSE(isActive("Std_Isolate"));
    invoke("Std_Undo");
    EXPECT_TRUE(parts[0]->isVisible());
    EXPECT_FALSE(parts[3]->isVisible());
    selectOnly({});
    EXPECT_FALSE(isActive("Std_Isolate"));
}

TEST_F(EditCommands, SelectAllAndInvertLeaveHiddenPartsAlone)
{
    selectOnly({3});
    invoke("Std_Hide");
    invoke("Std_SelectAll");
    EXPECT_EQ(test->document->getSelectedMeshObjects().size(), 3u);
    selectOnly({1});
    invoke("Std_InvertSelection");
    EXPECT_EQ(test->document->getSelectedMeshObjects(),
              (std::vector<Mesh::DocumentObject*>{parts[0], parts[2]}));
    invoke("Std_SelectNone");
    EXPECT_TRUE(test->document->getSelectedObjects().empty());
    EXPECT_EQ(test->document->undoNames().size(), 1u);
}

TEST_F(EditCommands, ACommandThatChangesNothingLeavesNoStep)
{
    selectOnly({0});
    invoke("Std_Hide");
    test->document->setModified(false);
    invoke("Std_Hide");
    EXPECT_EQ(test->document->undoNames().size(), 1u);
    EXPECT_FALSE(test->document->isModified());
}

TEST_F(EditCommands, RandomSequencesAreUndoneAndRedoneStepByStep)
{
    char const* const names[] = {"Std_Delete", "Std_Duplicate", "Std_Group",  "Std_Ungroup",
                                 "Std_Hide",   "Std_Show",      "Std_ShowAll"};
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        test->document->clearHistory();
        std::vector<std::string> states{state()};
        for (int step = 0; step < 30; ++step) {
            auto const all = test->document->getMeshObjects();
            test->document->clearSelection();
            for (Mesh::DocumentObject* const part : all)
                if (random() % 3 == 0)
                    part->setSelected(true, true, false);
            std::size_t const before = test->document->undoNames().size();
            invoke(names[random() % std::size(names)]);
            if (test->document->undoNames().size() > before)
                states.push_back(state());
        }
        ASSERT_EQ(states.size(), test->document->undoNames().size() + 1) << seed;
        for (std::size_t i = states.size() - 1; i > 0; --i) {
            ASSERT_EQ(state(), states[i]) << seed << " before undo " << i;
            invoke("Std_Undo");
        }
        ASSERT_EQ(state(), states[0]) << seed;
        for (std::size_t i = 1; i < states.size(); ++i) {
            invoke("Std_Redo");
            ASSERT_EQ(state(), states[i]) << seed << " after redo " << i;
        }
    }
}
