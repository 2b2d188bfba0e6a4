// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/ToolObjects.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/PlaneGraphicObject.h"

#include <gtest/gtest.h>

namespace {

using Freecut::CuboidGraphicObject;
using Freecut::PlaneGraphicObject;
using Freecut::ToolObjects;

/// Counts how many of its kind there are.
class CountedPlane : public PlaneGraphicObject
{
public:
    CountedPlane() { ++alive; }
    ~CountedPlane() override { --alive; }
    static inline int alive = 0;
};

struct DeletionListener : sigslot::has_slots<sigslot::single_threaded>
{
    void deleted(Base::DocumentObject* object, std::string className)
    {
        names.push_back(className);
        // The object still exists as what it was.
        EXPECT_EQ(object->getClassName(), className);
    }
    std::vector<std::string> names;
};

}  // namespace

TEST(ToolObjects, LeaveUnderTheirOwnClassNameAndAreDeleted)
{
    TestDocument test;
    DeletionListener listener;
    test.document->signalDelObject.connect(&listener, &DeletionListener::deleted);
    ToolObjects tools;
    tools.add(*test.document, new CountedPlane);
    tools.add(*test.document, new CuboidGraphicObject);
    EXPECT_EQ(test.document->getObjectArray().size(), 2u);
    EXPECT_EQ(CountedPlane::alive, 1);

    tools.clear();

    EXPECT_TRUE(test.document->getObjectArray().empty());
    EXPECT_EQ(CountedPlane::alive, 0);
    std::ranges::sort(listener.names);
    EXPECT_EQ(listener.names, (std::vector<std::string>{"Freecut::CuboidGraphicObject",
                                                        "Freecut::PlaneGraphicObject"}));
    EXPECT_TRUE(tools.isEmpty());
}

TEST(ToolObjects, LeaveWithTheirOwner)
{
    TestDocument test;
    {
        ToolObjects tools;
        tools.add(*test.document, new CountedPlane);
    }
    EXPECT_EQ(CountedPlane::alive, 0);
    EXPECT_TRUE(test.document->getObjectArray().empty());
}

TEST(ToolObjects, AreNeitherBroughtBackNorTakenByTheHistory)
{
    TestDocument test;
    test.add(box(1, 1, 1), "part");
    ToolObjects tools;
    test.document->openTransaction("Move");
    auto* const plane = new CountedPlane;
    tools.add(*test.document, plane);
    test.document->commitTransaction();
    tools.clear();
    test.document->undo();
    test.document->redo();
    EXPECT_EQ(test.names(), std::vector<std::string>{"part"});
    EXPECT_EQ(CountedPlane::alive, 0);
}

TEST(ToolObjects, AreNotFreedTwiceWhenAnotherHandTakesThemOut)
{
    TestDocument test;
    ToolObjects tools;
    std::vector<Base::DocumentObject*> lost;
    tools.whenLost([&](Base::DocumentObject* object) { lost.push_back(object); });
    auto* const plane = new CountedPlane;
    tools.add(*test.document, plane);
    test.document->removeObject(plane);
    EXPECT_EQ(lost, std::vector<Base::DocumentObject*>{plane});
    EXPECT_TRUE(tools.isEmpty());
    tools.clear();
    EXPECT_EQ(CountedPlane::alive, 0);
}

TEST(ToolObjects, GoBeforeTheirDocument)
{
    TestDocument test;
    ToolObjects tools;
    int lost = 0;
    tools.whenLost([&](Base::DocumentObject*) { ++lost; });
    tools.add(*test.document, new CountedPlane);
    test.application.closeDocument(test.document);
    EXPECT_EQ(lost, 1);
    EXPECT_EQ(CountedPlane::alive, 0);
    EXPECT_TRUE(tools.isEmpty());
}
