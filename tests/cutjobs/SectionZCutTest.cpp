// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/SectionZCut.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/jobs/BackgroundWork.h"
#include "platform/jobs/EventNotify.h"
#include "platform/ui/MellViewSlider.h"
#include "tests/cutjobs/ConsoleLines.h"
#include "tests/cutjobs/RecordingSink.h"
#include "tests/cutjobs/ZCutRun.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <atomic>
#include <sys/resource.h>

using Names = std::vector<std::string>;
using Points = std::vector<UPoint3<float>>;

TEST(SectionZCut, TwoClosedPiecesTakeThePlaceOfThePart)
{
    TestDocument test;
    auto* const part = test.add(box(2, 3, 4), "box");
    ZCutRun run;
    run.cutAt(test, {part}, 1.5f);
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.message.isEmpty());
    EXPECT_EQ(run.finishedCount, 1);
    EXPECT_EQ(test.names(), (Names{"box_cut1", "box_cut2"}));
    auto const pieces = run.piecesOf(part);
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_EQ(closedSolidFaults(soupOf(pieces[0])), "");
    EXPECT_EQ(closedSolidFaults(soupOf(pieces[1])), "");
    // The upper piece comes first.
    EXPECT_NEAR(volumeOf(soupOf(pieces[0])), 2 * 3 * 2.5, 1e-5);
    EXPECT_NEAR(volumeOf(soupOf(pieces[1])), 2 * 3 * 1.5, 1e-5);
}

TEST(SectionZCut, PiecesOfEveryClosedFamilyAddUpToThePart)
{
    for (NamedSoup const& mesh : closedMeshes()) {
        TestDocument test;
        auto* const part = test.add(mesh.soup, mesh.name);
        UBox3<float> const box = part->getBoundingBox();
        ZCutRun run;
        run.cutAt(test, {part}, box.MinZ() + (box.MaxZ() - box.MinZ()) * 0.37f);
        ASSERT_EQ(run.code, 1) << mesh.name;
        double volume = 0;
        for (auto* const piece : run.piecesOf(part)) {
            EXPECT_EQ(closedSolidFaults(soupOf(piece)), "") << mesh.name;
            volume += volumeOf(soupOf(piece));
        }
        double const whole = volumeOf(mesh.soup);
        EXPECT_NEAR(volume, whole, 1e-5 * whole) << mesh.name;
    }
}

TEST(SectionZCut, AHeightBelowAllPartsLeavesEachWhole)
{
    TestDocument test;
    std::vector<Mesh::DocumentObject*> const parts = {test.add(box(1, 1, 1), "a"),
                                                      test.add(torus(5, 1, 20, 10), "b")};
    ZCutRun run;
    run.cutAt(test, parts, -50);
    EXPECT_EQ(run.code, 1);
    for (auto* const part : parts) {
        ASSERT_EQ(run.piecesOf(part).size(), 1u);
        EXPECT_EQ(volumeOf(soupOf(run.piecesOf(part)[0])), volumeOf(soupOf(part)));
    }
    Names names = test.names();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Names{"a_cut", "b_cut"}));
}

TEST(SectionZCut, StandsBackBehindAWindow)
{
    BackgroundWork::setGivingWay(true);
    TestDocument test;
    auto* const part = test.add(box(2, 3, 4), "box");
    PluggedSink const sink;
    std::atomic<int> niceness = 0;
    sink->onProgress = [&](RecordingSink&, int) { niceness = getpriority(PRIO_PROCESS, 0); };
    ZCutRun run;
    run.cutAt(test, {part}, 1.5f);
    BackgroundWork::setGivingWay(false);
    EXPECT_EQ(run.code, 1);
    EXPECT_GT(niceness, getpriority(PRIO_PROCESS, 0));
}

TEST(SectionZCut, AStartWithoutADocumentFinishesBeforeItReturns)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 1), "box");
    for (bool const oneByOne : {false, true}) {
        Freecut::SectionZCut cut(nullptr);
        std::vector<int> codes;
        QObject::connect(&cut, &Freecut::SectionZCut::finished,
                         [&](int code, QString const& message) {
                             codes.push_back(code);
                             EXPECT_TRUE(message.isEmpty());
                         });
        oneByOne ? cut.startZCutonebyone({part}, {0.5f}) : cut.startZCut({part}, 0.5f);
        EXPECT_EQ(codes, std::vector<int>{-1});
    }
}

TEST(SectionZCut, AnEmptyListFinishesBeforeItReturns)
{
    TestDocument test;
    for (bool const oneByOne : {false, true}) {
        Freecut::SectionZCut cut(nullptr);
        cut.setDocument(test.document);
        std::vector<int> codes;
        QObject::connect(&cut, &Freecut::SectionZCut::finished,
                         [&](int code, QString const&) { codes.push_back(code); });
        oneByOne ? cut.startZCutonebyone({}, {}) : cut.startZCut({}, 0.5f);
        EXPECT_EQ(codes, std::vector<int>{-1});
    }
}

TEST(SectionZCut, EachPartIsCutAtItsOwnHeightAlsoBehindAMissingOne)
{
    TestDocument test;
    auto* const a = test.add(box(1, 1, 4), "a");
    auto* const b = test.add(box(1, 1, 4, {10, 0, 0}), "b");
    ZCutRun run;
    run.cutOneByOne(test, {a, nullptr, b}, {1, 2, 3});
    ASSERT_EQ(run.code, 1);
    ASSERT_EQ(run.piecesOf(a).size(), 2u);
    ASSERT_EQ(run.piecesOf(b).size(), 2u);
    EXPECT_NEAR(volumeOf(soupOf(run.piecesOf(a)[1])), 1, 1e-6);
    EXPECT_NEAR(volumeOf(soupOf(run.piecesOf(b)[1])), 3, 1e-6);
}

TEST(SectionZCut, AMissingPartInTheCommonFormIsPassedOver)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 4), "a");
    ZCutRun run;
    run.cutAt(test, {nullptr, part}, 1);
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.piecesOf(part).size(), 2u);
}

TEST(SectionZCut, PartsThatAreAllMissingAreAnEmptyCut)
{
    for (bool const oneByOne : {false, true}) {
        TestDocument test;
        test.add(box(1, 1, 4), "part");
        ZCutRun run;
        oneByOne ? run.cutOneByOne(test, {nullptr, nullptr}, {1, 2})
                 : run.cutAt(test, {nullptr, nullptr}, 1);
        EXPECT_EQ(run.finishedCount, 1);
        EXPECT_EQ(run.code, 1);
        EXPECT_TRUE(run.message.isEmpty());
        EXPECT_TRUE(run.cut.newParts().empty());
        EXPECT_EQ(test.names(), Names{"part"});
        EXPECT_FALSE(test.document->hasOpenTransaction());
    }
}

TEST(SectionZCut, ThePlaneOfAllPartsReachesFiveMillimetresBeyondThem)
{
    TestDocument test;
    auto* const a = test.add(box(1, 2, 4), "a");
    auto* const b = test.add(box(3, 4, 4, {10, 20, 0}), "b");
    ZCutRun run;
    run.cutAt(test, {a, nullptr, b}, 1.5f);
    EXPECT_EQ(run.cut.rubberPoints(), (Points{{6.5f, 12, 1.5f}, {-5, -5, 1.5f}, {18, -5, 1.5f}}));
}

TEST(SectionZCut, ThePlaneOfEachPartReachesTenMillimetresBeyondIt)
{
    TestDocument test;
    auto* const a = test.add(box(1, 2, 4), "a");
    auto* const b = test.add(box(3, 4, 4, {10, 20, 0}), "b");
    ZCutRun run;
    run.cutOneByOne(test, {a, nullptr, b}, {1.5f, 2, 2.5f});
    EXPECT_EQ(run.cut.rubberPoints(), (Points{{0.5f, 1, 1.5f},
                                              {-10, -10, 1.5f},
                                              {11, -10, 1.5f},
                                              {11.5f, 22, 2.5f},
                                              {0, 10, 2.5f},
                                              {23, 10, 2.5f}}));
}

TEST(SectionZCut, OneUndoBringsThePartsBackAndRedoThePieces)
{
    TestDocument test;
    auto* const part = test.add(box(2, 3, 4), "box");
    ZCutRun run;
    run.cutAt(test, {part}, 1.5f);
    EXPECT_EQ(test.document->undoNames(), Names{"Section Cut"});
    EXPECT_TRUE(test.document->isModified());
    ASSERT_TRUE(test.document->undo());
    EXPECT_EQ(test.names(), Names{"box"});
    EXPECT_EQ(volumeOf(soupOf(part)), 24);
    ASSERT_TRUE(test.document->redo());
    EXPECT_EQ(test.names(), (Names{"box_cut1", "box_cut2"}));
}

TEST(SectionZCut, PiecesAreSelectedAndAsVisibleAsTheirSource)
{
    TestDocument test;
    auto* const shown = test.add(box(1, 1, 4), "shown");
    auto* const hidden = test.add(box(1, 1, 4, {9, 0, 0}), "hidden");
    hidden->setVisible(false);
    ZCutRun run;
    run.cutAt(test, {shown, hidden}, 1);
    EXPECT_EQ(test.document->getSelectedObjects().size(), 4u);
    for (auto* const piece : run.piecesOf(shown))
        EXPECT_TRUE(piece->isVisible());
    for (auto* const piece : run.piecesOf(hidden))
        EXPECT_FALSE(piece->isVisible());
}

TEST(SectionZCut, PiecesOfAPartInAGroupStandInThatGroup)
{
    TestDocument test;
    auto* const group = new Mesh::DocumentObjectGroup;
    test.document->addObject(group, "group", true);
    auto* const part = test.add(box(1, 1, 4), "part");
    group->addObject(part, "part");
    ZCutRun run;
    run.cutAt(test, {part}, 1);
    EXPECT_EQ(group->getObjects(), run.piecesOf(part));
    EXPECT_EQ(group->getObjects().size(), 2u);
    EXPECT_EQ(part->getGroup(), nullptr);
    EXPECT_FALSE(test.document->contains(part));
    ASSERT_TRUE(test.document->undo());
    EXPECT_EQ(group->getObjects(), std::vector<Mesh::DocumentObject*>{part});
}

TEST(SectionZCut, WithoutUndoTheOnePieceBearsTheSourcesName)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 4), "part");
    ZCutRun run;
    run.cut.setPara({.undoable = false, .repair = true});
    run.cutAt(test, {part}, -1);
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(test.names(), Names{"part"});
    EXPECT_NE(test.document->getObjectArray()[0], part);
    EXPECT_TRUE(test.document->undoNames().empty());
    EXPECT_FALSE(test.document->isModified());
}

TEST(SectionZCut, WithoutUndoAllPiecesBearTheSourcesName)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 4), "part");
    ZCutRun run;
    run.cut.setPara({.undoable = false, .repair = true});
    run.cutAt(test, {part}, 2);
    EXPECT_EQ(test.names(), (Names{"part", "part"}));
}

TEST(SectionZCut, CountsOfThePiecesAreTrue)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 4), "part");
    ZCutRun run;
    run.cutAt(test, {part}, 2);
    for (auto* const piece : run.piecesOf(part)) {
        auto const mesh = piece->meshProperty->getMesh()->readMesh();
        EXPECT_EQ(mesh->triangleCount, mesh->triangles.size());
        EXPECT_EQ(mesh->vertexCount, mesh->vertices.size());
        EXPECT_GT(mesh->triangleCount, 0u);
    }
}

TEST(SectionZCut, TheSliderTakesTheRangeOfThePiecesThatStay)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 4, {0, 0, 7}), "part");
    ZCutRun run;
    run.cutAt(test, {part}, 9);
    EXPECT_EQ(Base::MellViewSlider::instance()->getMinimum(), 7);
    EXPECT_EQ(Base::MellViewSlider::instance()->getMaximum(), 11);
}

TEST(SectionZCut, ACancelLeavesTheDocumentAsItWas)
{
    TestDocument test;
    PluggedSink const sink;
    ConsoleLines const console;
    sink->cancel();
    int ends = 0;
    int starts = 0;
    QObject const context;
    QObject::connect(EventNotify::instance(), &EventNotify::endEvent, &context, [&] { ++ends; });
    QObject::connect(EventNotify::instance(), &EventNotify::startEvent, &context,
                     [&] { ++starts; });
    auto* const part = test.add(sphere(10, 40, 60), "part");
    ZCutRun run;
    run.cutAt(test, {part}, 2);
    EXPECT_EQ(run.code, -1);
    EXPECT_TRUE(run.message.isEmpty());
    EXPECT_EQ(run.finishedCount, 1);
    EXPECT_EQ(test.names(), Names{"part"});
    EXPECT_FALSE(test.document->isModified());
    EXPECT_TRUE(test.document->undoNames().empty());
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(starts, 0);
    EXPECT_EQ(console.lines(), Names{"Command Abort."});
}

TEST(SectionZCut, ACutThatWorksSendsNoEndEvent)
{
    TestDocument test;
    int ends = 0;
    QObject const context;
    QObject::connect(EventNotify::instance(), &EventNotify::endEvent, &context, [&] { ++ends; });
    ZCutRun run;
    run.cutAt(test, {test.add(box(1, 1, 4), "part")}, 2);
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(ends, 0);
}

TEST(SectionZCut, AnAbortWithAnotherTextIsAFailureAndNoSilentCancel)
{
    TestDocument test;
    PluggedSink const sink;
    sink->onProgress = [](RecordingSink&, int) { throw Mell::AbortException("Stop"); };
    auto* const part = test.add(box(1, 1, 4), "part");
    ZCutRun run;
    run.cutAt(test, {part}, 2);
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.message, "An error occurred in triangulate.");
    EXPECT_EQ(test.names(), Names{"part"});
    EXPECT_FALSE(test.document->isModified());
}

TEST(SectionZCut, AnOpenPartFailsAndTheLogSaysWhy)
{
    TestDocument test;
    ConsoleLines const console;
    auto* const part = test.add(openBox(2, 3, 4), "part");
    ZCutRun run;
    run.cutAt(test, {part}, 2);
    // A border away from the plane does no harm; one at the plane does.
    EXPECT_EQ(run.code, 1);

    Soup sideless = box(2, 3, 4);
    sideless.triangles.erase(sideless.triangles.begin() + 4, sideless.triangles.begin() + 6);
    auto* const open = test.add(sideless, "open");
    bool const wasModified = test.document->isModified();
    Names const before = test.names();
    ZCutRun second;
    second.cutAt(test, {open}, 2);
    EXPECT_EQ(second.code, 0);
    EXPECT_EQ(second.message, "An error occurred in triangulate.");
    EXPECT_EQ(test.names(), before);
    EXPECT_EQ(test.document->isModified(), wasModified);
    ASSERT_EQ(console.lines().size(), 1u);
    EXPECT_NE(console.lines()[0].find("The part is open where the plane meets it"),
              std::string::npos);
}
