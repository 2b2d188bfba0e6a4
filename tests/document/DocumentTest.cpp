// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/GraphicObject.h"
#include "platform/document/RenamePara.h"
#include "platform/document/q2s.h"
#include "platform/jobs/Exceptions.h"
#include "tests/document/Parts.h"

#include <gtest/gtest.h>

namespace {

using Objects = std::vector<Base::DocumentObject*>;

struct SupportedPart : Mesh::DocumentObject
{
    std::string getClassName() const override { return "Support::DocumentObject"; }
};

struct Listener : sigslot::has_slots<sigslot::single_threaded>
{
    void added(Base::DocumentObject* object) { log.push_back("new " + object->getName()); }
    void removed(Base::DocumentObject* object, std::string className)
    {
        log.push_back("del " + object->getName() + " " + className);
    }
    void changed(Base::DocumentObject* object) { log.push_back("changed " + object->getName()); }
    void selection() { log.push_back("selection"); }
    void gone() { log.push_back("gone"); }

    explicit Listener(Base::Document& document)
    {
        document.signalNewObject.connect(this, &Listener::added);
        document.signalDelObject.connect(this, &Listener::removed);
        document.signalObjectChanged.connect(this, &Listener::changed);
        document.signalObjectSelectionChanged.connect(this, &Listener::selection);
        document.signalDocumentDeleted.connect(this, &Listener::gone);
    }

    std::vector<std::string> log;
};

}  // namespace

TEST(Document, IsAMeshDocumentByTypeAndName)
{
    Mesh::Document const document("plate");
    EXPECT_TRUE(document.getTypeId().isDerivedFrom(Mesh::Document::getClassTypeId()));
    EXPECT_EQ(document.getClassName(), "Mesh::Document");
    EXPECT_EQ(document.getName(), "plate");
    EXPECT_FALSE(document.isModified());
}

TEST(Document, AddedObjectTakesTheNameAndThePlaceAtTheEnd)
{
    Mesh::Document document;
    auto* const first = new Mesh::DocumentObject;
    auto* const second = new Mesh::DocumentObject;
    second->setName("own");
    document.addObject(first, "given", true);
    document.addObject(second, nullptr, true);
    EXPECT_EQ(document.getObjectArray(), (Objects{first, second}));
    EXPECT_EQ(first->getName(), "given");
    EXPECT_EQ(second->getName(), "own");
    EXPECT_EQ(first->getDocument(), &document);

    document.addObject(first, "again", true);
    EXPECT_EQ(document.getObjectArray().size(), 2u);
    EXPECT_EQ(first->getName(), "again");
}

TEST(Document, ObjectOfAnotherDocumentIsRefused)
{
    Mesh::Document document;
    Mesh::Document other;
    auto* const part = new CountedPart("bunny");
    document.addObject(part, nullptr, true);
    EXPECT_THROW(other.addObject(part, nullptr, true), Mell::Exception);
    EXPECT_TRUE(other.getObjectArray().empty());
    EXPECT_TRUE(document.contains(part));
}

TEST(Document, PartsAreTheObjectsOfTheTwoPartClasses)
{
    Mesh::Document document;
    auto* const part = new Mesh::DocumentObject;
    auto* const supported = new SupportedPart;
    auto* const tool = new Base::GraphicObject;
    document.addObject(part, "a", true);
    document.addObject(tool, "b", true);
    document.addObject(supported, "c", true);
    EXPECT_EQ(document.getMeshObjects(), (std::vector<Mesh::DocumentObject*>{part, supported}));

    part->setVisible(false);
    EXPECT_EQ(document.getPartList(), (std::vector<Mesh::DocumentObject*>{supported}));

    tool->setSelected(true, true, false);
    supported->setSelected(true, true, false);
    EXPECT_EQ(document.getSelectedObjects(), (Objects{tool, supported}));
    EXPECT_EQ(document.getSelectedMeshObjects(), (std::vector<Mesh::DocumentObject*>{supported}));
}

TEST(Document, SelectionAddsUnlessItIsExclusive)
{
    PartsDocument plate;
    plate.hand->setSelected(true, true, false);
    EXPECT_EQ(plate.document.getSelectedObjects(), (Objects{plate.bunny, plate.hand}));
    plate.gear->setSelected(true, true, true);
    EXPECT_EQ(plate.document.getSelectedObjects(), (Objects{plate.gear}));
    EXPECT_TRUE(plate.gear->isSelected());
    plate.document.removefromSelectedObjects(plate.gear);
    plate.document.removefromSelectedObjects(plate.hand);
    EXPECT_TRUE(plate.document.getSelectedObjects().empty());
}

TEST(Document, RemovalOutsideATransactionFreesTheObject)
{
    CountedPart::alive = 0;
    PartsDocument plate;
    plate.document.removeObject(plate.bunny);
    EXPECT_EQ(CountedPart::alive, 2);
    EXPECT_FALSE(plate.document.contains(plate.bunny));
    EXPECT_TRUE(plate.document.getSelectedObjects().empty());
    EXPECT_FALSE(plate.document.undo());
    plate.document.removeObject(plate.bunny);
    EXPECT_EQ(CountedPart::alive, 2);
}

TEST(Document, FreesItsObjectsWhenItDies)
{
    CountedPart::alive = 0;
    {
        PartsDocument plate;
        plate.document.openTransaction("Section Cut");
        plate.cut(plate.bunny);
        plate.document.commitTransaction();
        EXPECT_EQ(CountedPart::alive, 5);
    }
    EXPECT_EQ(CountedPart::alive, 0);
}

TEST(Document, DetachedObjectBelongsToTheCaller)
{
    CountedPart::alive = 0;
    PartsDocument plate;
    {
        std::unique_ptr<Base::DocumentObject> const hand = plate.document.detachObject(plate.hand);
        EXPECT_EQ(hand.get(), plate.hand);
        EXPECT_EQ(hand->getDocument(), nullptr);
        EXPECT_EQ(plate.document.detachObject(plate.hand), nullptr);
    }
    EXPECT_EQ(CountedPart::alive, 2);
    EXPECT_EQ(plate.document.getObjectArray(), (Objects{plate.bunny, plate.gear, plate.group}));
}

TEST(Document, DeletedObjectLeavesItsDocument)
{
    PartsDocument plate;
    delete plate.bunny;
    EXPECT_EQ(plate.document.getObjectArray(), (Objects{plate.hand, plate.gear, plate.group}));
    EXPECT_TRUE(plate.document.getSelectedObjects().empty());
}

TEST(Document, PiecesAreNumberedFromOne)
{
    Mesh::Document document;
    EXPECT_EQ(q2s(Mesh::g_RenamePara.suffix), "_cut");
    for (char const* const expected : {"bunny_cut1", "bunny_cut2", "bunny_cut3"}) {
        std::string const name = document.getUniqueObjectName("bunny", "_cut", true, true);
        EXPECT_EQ(name, expected);
        document.addObject(new Mesh::DocumentObject, name.c_str(), true);
    }
    document.removeObject(document.getObjectArray()[1]);
    EXPECT_EQ(document.getUniqueObjectName("bunny", "_cut", true, true), "bunny_cut2");
}

TEST(Document, SinglePieceIsNumberedOnlyIfItMust)
{
    Mesh::Document document;
    EXPECT_EQ(document.getUniqueObjectName("bunny", "_cut", true, false), "bunny_cut");
    document.addObject(new Mesh::DocumentObject, "bunny_cut", true);
    EXPECT_EQ(document.getUniqueObjectName("bunny", "_cut", true, false), "bunny_cut1");
    EXPECT_EQ(document.getUniqueObjectName("bunny", "_cut", false, false), "bunny");
}

TEST(Document, NamesNeedNotBeUnique)
{
    Mesh::Document document;
    document.addObject(new Mesh::DocumentObject, "bunny(cut)", true);
    document.addObject(new Mesh::DocumentObject, "bunny(cut)", true);
    EXPECT_EQ(document.getMeshObjects()[0]->getName(), document.getMeshObjects()[1]->getName());
}

TEST(Document, ListenersHearOfEveryChange)
{
    auto plate = std::make_unique<PartsDocument>();
    Listener listener(plate->document);
    plate->add("cup");
    plate->hand->setName("glove");
    plate->hand->setVisible(false);
    plate->hand->setVisible(false);
    plate->hand->setSelected(true, true, false);
    plate->hand->setSelected(false, false, false);
    plate->document.removeObject(plate->bunny);
    plate.reset();
    EXPECT_EQ(listener.log,
              (std::vector<std::string>{"new cup", "changed glove", "changed glove", "selection",
                                        "del bunny Mesh::DocumentObject", "selection", "gone"}));
}

TEST(Document, ListenersHearOfAnUndoWhenAllOfItIsDone)
{
    PartsDocument plate;
    DocumentState const before(plate.document);
    plate.document.openTransaction("Section Cut");
    plate.cut(plate.bunny);
    plate.document.commitTransaction();

    struct Check : sigslot::has_slots<sigslot::single_threaded>
    {
        void removed(Base::DocumentObject*, std::string)
        {
            sawFinalState = DocumentState(*document) == *expected;
        }
        Mesh::Document const* document;
        DocumentState const* expected;
        bool sawFinalState = false;
    } check;
    check.document = &plate.document;
    check.expected = &before;
    plate.document.signalDelObject.connect(&check, &Check::removed);
    plate.document.undo();
    EXPECT_TRUE(check.sawFinalState);
}

TEST(Document, ColorComponentsAreClampedAndPacked)
{
    Mesh::DocumentObject part;
    EXPECT_EQ(part.getColor(), 0u);
    part.setColor(300, 2, -5, 255);
    EXPECT_EQ(part.getColor(), 0xFF0200FFu);
}

TEST(Document, UuidsAreMadeOnceAndDiffer)
{
    Mesh::DocumentObject first;
    Mesh::DocumentObject const second;
    std::string const uuid = first.getUuid();
    EXPECT_EQ(uuid.size(), 36u);
    EXPECT_EQ(first.getUuid(), uuid);
    EXPECT_NE(second.getUuid(), uuid);
    first.setUuid("mine");
    EXPECT_EQ(first.getUuid(), "mine");
}

TEST(Document, WhatDeselectsPartsLeavesAToolSelected)
{
    PartsDocument plate;
    auto* const tool = new Base::GraphicObject;
    plate.document.addObject(tool, "Plane", true);
    tool->setSelected(true, true, false);
    plate.gear->setSelected(true, true, true);
    EXPECT_EQ(plate.document.getSelectedObjects(), (Objects{tool, plate.gear}));
    Listener listener(plate.document);
    plate.document.clearSelection();
    EXPECT_EQ(plate.document.getSelectedObjects(), Objects{tool});
    plate.document.clearSelection();
    EXPECT_EQ(listener.log, std::vector<std::string>{"selection"});
    tool->setSelected(false, true, false);
    EXPECT_TRUE(plate.document.getSelectedObjects().empty());
    plate.document.detachObject(tool).reset();
}
