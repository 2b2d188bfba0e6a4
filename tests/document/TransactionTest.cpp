// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/GraphicObject.h"
#include "tests/document/Parts.h"

#include <gtest/gtest.h>

using Names = std::vector<std::string>;

TEST(Transaction, CutIsUndoneAndRedoneExactly)
{
    PartsDocument plate;
    DocumentState const before(plate.document);
    plate.document.openTransaction("Section Cut");
    auto const pieces = plate.cut(plate.bunny);
    plate.cut(plate.hand);
    plate.document.commitTransaction();
    DocumentState const after(plate.document);

    EXPECT_NE(before, after);
    EXPECT_EQ(pieces[0]->getName(), "bunny_cut1");
    EXPECT_EQ(pieces[0]->getGroup(), plate.group);
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(plate.document.undo());
        EXPECT_EQ(DocumentState(plate.document), before);
        EXPECT_EQ(plate.bunny->getGroup(), plate.group);
        EXPECT_EQ(plate.bunny->getDocument(), &plate.document);
        EXPECT_EQ(pieces[0]->getDocument(), nullptr);
        EXPECT_FALSE(plate.document.undo());

        EXPECT_TRUE(plate.document.redo());
        EXPECT_EQ(DocumentState(plate.document), after);
        EXPECT_FALSE(plate.document.redo());
    }
}

TEST(Transaction, EveryKindOfChangeComesBack)
{
    PartsDocument plate;
    DocumentState const before(plate.document);
    plate.document.openTransaction("All");
    plate.hand->setName("glove");
    plate.hand->setName("mitten");
    plate.hand->setVisible(false);
    plate.hand->setColor(0x11223344);
    plate.group->addObject(plate.hand, nullptr);
    plate.group->removeObject(plate.gear);
    plate.document.clearSelection();
    plate.gear->setSelected(true, true, true);
    plate.bunny->translate({1, 2, 3}, 0);
    giveBox(*plate.bunny, 9, 9, 9);
    plate.bunny->scale({}, {2, 2, 2});
    plate.document.removeObject(plate.group);
    plate.document.commitTransaction();
    DocumentState const after(plate.document);
    EXPECT_EQ(plate.bunny->getGroup(), nullptr);

    for (int round = 0; round < 2; ++round) {
        plate.document.undo();
        EXPECT_EQ(DocumentState(plate.document), before);
        plate.document.redo();
        EXPECT_EQ(DocumentState(plate.document), after);
    }
}

TEST(Transaction, AbortPutsEverythingBackAndMakesNoStep)
{
    CountedPart::alive = 0;
    PartsDocument plate;
    DocumentState const before(plate.document);
    plate.document.openTransaction("Polygon Cut");
    plate.cut(plate.bunny);
    plate.document.setModified(true);
    plate.document.abortTransaction();
    EXPECT_EQ(DocumentState(plate.document), before);
    EXPECT_FALSE(plate.document.isModified());
    EXPECT_FALSE(plate.document.hasOpenTransaction());
    EXPECT_TRUE(plate.document.undoNames().empty());
    EXPECT_EQ(CountedPart::alive, 3);
}

TEST(Transaction, AbortWithoutAnOpenOneLeavesTheDocumentUnchanged)
{
    PartsDocument plate;
    plate.document.openTransaction("Section Cut");
    plate.cut(plate.bunny);
    plate.document.commitTransaction();
    plate.document.setModified(true);
    DocumentState const before(plate.document);
    plate.document.abortTransaction();
    EXPECT_EQ(DocumentState(plate.document), before);
    EXPECT_TRUE(plate.document.isModified());
    EXPECT_EQ(plate.document.undoNames(), Names{"Section Cut"});

    Mesh::Document empty;
    empty.abortTransaction();
    empty.commitTransaction();
    EXPECT_TRUE(empty.getObjectArray().empty());
}

TEST(Transaction, OpeningCommitsTheOneBefore)
{
    PartsDocument plate;
    plate.document.openTransaction("First");
    plate.hand->setName("glove");
    plate.document.openTransaction("Second");
    plate.hand->setName("mitten");
    plate.document.commitTransaction();
    EXPECT_EQ(plate.document.undoNames(), (Names{"Second", "First"}));
    plate.document.undo();
    EXPECT_EQ(plate.hand->getName(), "glove");
    EXPECT_EQ(plate.document.undoNames(), Names{"First"});
    EXPECT_EQ(plate.document.redoNames(), Names{"Second"});
    plate.document.undo();
    EXPECT_EQ(plate.hand->getName(), "hand");
}

TEST(Transaction, UndoCommitsTheOpenOneFirst)
{
    PartsDocument plate;
    plate.document.openTransaction("Rename");
    plate.hand->setName("glove");
    EXPECT_TRUE(plate.document.undo());
    EXPECT_EQ(plate.hand->getName(), "hand");
    EXPECT_FALSE(plate.document.hasOpenTransaction());
    EXPECT_TRUE(plate.document.redo());
    EXPECT_EQ(plate.hand->getName(), "glove");
}

TEST(Transaction, WithoutAChangeThereIsNoStep)
{
    PartsDocument plate;
    plate.document.openTransaction("Nothing");
    plate.hand->setName("hand");
    plate.bunny->setSelected(true, true, false);
    plate.document.commitTransaction();
    EXPECT_TRUE(plate.document.undoNames().empty());
}

TEST(Transaction, RemovedObjectsAreFreedWhenTheHistoryDropsThem)
{
    CountedPart::alive = 0;
    PartsDocument plate;
    plate.document.openTransaction("Section Cut");
    plate.cut(plate.bunny);
    plate.document.commitTransaction();
    EXPECT_EQ(CountedPart::alive, 5);
    plate.document.clearHistory();
    EXPECT_EQ(CountedPart::alive, 4);
}

TEST(Transaction, PiecesAreFreedWhenANewStepDropsTheRedo)
{
    CountedPart::alive = 0;
    PartsDocument plate;
    plate.document.openTransaction("Section Cut");
    plate.cut(plate.bunny);
    plate.document.commitTransaction();
    plate.document.undo();
    EXPECT_EQ(CountedPart::alive, 5);
    plate.document.openTransaction("Rename");
    plate.hand->setName("glove");
    plate.document.commitTransaction();
    EXPECT_EQ(CountedPart::alive, 3);
    EXPECT_FALSE(plate.document.redo());
}

TEST(Transaction, ToolObjectsThatComeAndGoDoNotDisturbTheOrder)
{
    // The tool stands before the parts when the cut runs and is gone when it is undone.
    Mesh::Document document;
    auto* const tool = new Base::GraphicObject;
    document.addObject(tool, "Plane", true);
    std::vector<Base::DocumentObject*> parts;
    for (char const* const name : {"a", "b", "c", "d"}) {
        parts.push_back(new CountedPart(name));
        document.addObject(parts.back(), nullptr, true);
    }
    tool->setSelected(true, true, true);
    document.openTransaction("Section Cut");
    document.removeObject(parts[1]);
    document.removeObject(parts[2]);
    tool->setSelected(false, true, false);
    tool->setVisible(false);
    document.commitTransaction();
    document.detachObject(tool).reset();

    document.undo();
    EXPECT_EQ(document.getObjectArray(), parts);
    EXPECT_TRUE(document.getSelectedObjects().empty());
    document.redo();
    EXPECT_EQ(document.getObjectArray(), (std::vector<Base::DocumentObject*>{parts[0], parts[3]}));
    document.undo();
    EXPECT_EQ(document.getObjectArray(), parts);
}

TEST(Transaction, UndoPassesOverWhatWasRemovedWithoutAStep)
{
    PartsDocument plate;
    plate.document.openTransaction("Rename");
    plate.hand->setName("glove");
    CountedPart* const cup = plate.add("cup");
    plate.document.commitTransaction();
    plate.document.removeObject(plate.hand);
    plate.document.removeObject(cup);
    DocumentState const before(plate.document);
    EXPECT_TRUE(plate.document.undo());
    EXPECT_EQ(DocumentState(plate.document), before);
    EXPECT_TRUE(plate.document.redo());
    EXPECT_EQ(DocumentState(plate.document), before);
}

TEST(Transaction, ChangesOutsideMakeNoStepAndSurviveAnUndo)
{
    PartsDocument plate;
    plate.document.openTransaction("Rename");
    plate.hand->setName("glove");
    plate.document.commitTransaction();
    plate.hand->setVisible(false);
    plate.hand->setSelected(true, true, true);
    EXPECT_EQ(plate.document.undoNames().size(), 1u);
    plate.document.undo();
    EXPECT_EQ(plate.hand->getName(), "hand");
    EXPECT_FALSE(plate.hand->isVisible());
    EXPECT_TRUE(plate.hand->isSelected());
}

TEST(Transaction, ObjectAddedAndRemovedInOneStepStaysOut)
{
    CountedPart::alive = 0;
    PartsDocument plate;
    plate.document.openTransaction("Try");
    CountedPart* const cup = plate.add("cup");
    plate.document.removeObject(cup);
    plate.document.addObject(cup, nullptr, true);
    plate.document.removeObject(cup);
    plate.document.commitTransaction();
    plate.document.undo();
    EXPECT_FALSE(plate.document.contains(cup));
    plate.document.redo();
    EXPECT_FALSE(plate.document.contains(cup));
    plate.document.clearHistory();
    EXPECT_EQ(CountedPart::alive, 3);
}

TEST(Transaction, UndoAndRedoMarkTheDocumentAsModified)
{
    PartsDocument plate;
    plate.document.openTransaction("Rename");
    plate.hand->setName("glove");
    plate.document.commitTransaction();
    EXPECT_FALSE(plate.document.isModified());
    plate.document.undo();
    EXPECT_TRUE(plate.document.isModified());
    plate.document.setModified(false);
    plate.document.redo();
    EXPECT_TRUE(plate.document.isModified());
}

TEST(Transaction, UndoOfAGroupsCreationLetsLaterMembersOut)
{
    PartsDocument plate;
    auto* const pair = new Mesh::DocumentObjectGroup;
    plate.document.openTransaction("Group");
    plate.document.addObject(pair, "new", true);
    plate.document.commitTransaction();
    pair->addObject(plate.hand, nullptr);
    plate.document.undo();
    EXPECT_EQ(plate.hand->getGroup(), nullptr);
    plate.document.clearHistory();
    EXPECT_EQ(plate.hand->getGroup(), nullptr);
}

TEST(Transaction, UndoAndRedoLeaveAToolSelectedAndWhereItIs)
{
    PartsDocument plate;
    auto* const tool = new Base::GraphicObject;
    plate.document.openTransaction("Cut");
    // A tool that comes and is selected within a step is no part of it.
    plate.document.addObject(tool, "Plane", true);
    tool->setSelected(true, true, false);
    plate.document.select(plate.gear, true, true, true);
    plate.document.removeObject(plate.hand);
    plate.document.commitTransaction();

    for (int round = 0; round < 2; ++round) {
        plate.document.undo();
        EXPECT_TRUE(plate.document.contains(tool));
        EXPECT_TRUE(tool->isSelected());
        EXPECT_TRUE(plate.bunny->isSelected());
        plate.document.redo();
        EXPECT_TRUE(tool->isSelected());
        EXPECT_TRUE(plate.gear->isSelected());
        EXPECT_FALSE(plate.bunny->isSelected());
    }
    plate.document.openTransaction("Aborted");
    plate.document.clearSelection();
    plate.document.abortTransaction();
    EXPECT_TRUE(tool->isSelected() && plate.gear->isSelected());

    plate.document.detachObject(tool).reset();
    plate.document.undo();
    EXPECT_EQ(plate.document.getObjectArray().size(), 4u) << "no undo brings a tool back";
    plate.document.redo();
}

TEST(Transaction, AStepThatTouchesNothingButAToolLeavesNoTrace)
{
    PartsDocument plate;
    auto* const tool = new Base::GraphicObject;
    plate.document.openTransaction("Draw");
    plate.document.addObject(tool, "Plane", true);
    tool->setSelected(true, true, false);
    tool->setVisible(false);
    tool->setName("Cuboid");
    tool->setSelected(false, true, false);
    plate.document.detachObject(tool).reset();
    plate.document.commitTransaction();
    EXPECT_TRUE(plate.document.undoNames().empty());
}
