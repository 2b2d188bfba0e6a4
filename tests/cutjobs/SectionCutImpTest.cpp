// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/SectionCutImp.h"
#include "tests/cutjobs/ConsoleLines.h"
#include "tests/cutjobs/RecordingSink.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Validator.h"
#include "tools/PlaneGraphicObject.h"

#include <gtest/gtest.h>

namespace {

using Events = std::vector<std::string>;

/// Runs the worker on the calling thread, where its signals come directly.
struct SectionRun
{
    explicit SectionRun(std::vector<Mesh::DocumentObject*> const& parts,
                        SECTIONCUTTYPE type = SECTIONCUT_PLANE)
    {
        QObject::connect(&worker, &CutWorker::resultReady,
                         [this](bool ok) { events.push_back(ok ? "true" : "false"); });
        QObject::connect(&worker, &CutWorker::processEnd,
                         [this] { events.push_back("process end"); });
        placePlane({15, 15, 10}, 20);
        worker.setObjects(parts);
        worker.setCutType(type);
        worker.setPinHoleParas({});
        worker.setLapJointParas({});
    }

    void placePlane(UPoint3<float> const& c, float reach)
    {
        plane.getProperty().setKeyPoints(
            {c, c + UVector3<float>(-reach, -reach, 0), c + UVector3<float>(reach, -reach, 0),
             c + UVector3<float>(reach, reach, 0), c + UVector3<float>(-reach, reach, 0)});
        worker.setPlaneObject(&plane);
    }

    Freecut::PlaneGraphicObject plane;
    SectionCutImp worker{nullptr};
    Events events;
};

Soup const block = box(30, 30, 30);

SECTIONCUTTYPE const allTypes[] = {SECTIONCUT_PLANE, SECTIONCUT_PINHOLE, SECTIONCUT_LAPJOINT};

bool isConnectorCut(SECTIONCUTTYPE type)
{
    return type != SECTIONCUT_PLANE;
}

/// How many values a cut of two parts reports.
int reportCount(SECTIONCUTTYPE type)
{
    TestDocument test;
    PluggedSink const sink;
    SectionRun run({test.add(block, "a"), test.add(block, "b")}, type);
    run.worker.doWork();
    return int(sink->values().size());
}

}  // namespace

TEST(SectionCutImp, TheToolOfThePlaneMayEndBeforeTheJob)
{
    for (SECTIONCUTTYPE const type : allTypes) {
        TestDocument test;
        auto* const part = test.add(block, "part");
        SectionRun run({part}, type);
        auto tool = std::make_unique<Freecut::PlaneGraphicObject>();
        tool->getProperty().setKeyPoints(run.plane.getProperty().getKeyPoints());
        run.worker.setPlaneObject(tool.get());
        tool->getProperty().setKeyPoints({});
        tool.reset();
        run.worker.doWork();
        EXPECT_EQ(run.worker.getResult().size(), 1u);
        EXPECT_EQ(run.worker.planes().at(part).distance, 10);
    }
}

TEST(SectionCutImp, PartsThatThePlaneMissesAreToldOfAndNoOthers)
{
    TestDocument test;
    auto* const above = test.add(box(30, 30, 30, {0, 0, 20}), "above");
    auto* const cut = test.add(block, "cut");
    auto* const aside = test.add(box(30, 30, 30, {100, 0, 0}), "aside");
    for (bool const isBounded : {false, true}) {
        SectionRun run({above, cut, aside});
        run.worker.setCheckBoundary(isBounded);
        run.worker.doWork();
        ASSERT_EQ(run.worker.remarks().size(), isBounded ? 2u : 1u);
        EXPECT_EQ(run.worker.remarks()[0].part, above);
        if (isBounded) {
            EXPECT_EQ(run.worker.remarks()[1].part, aside);
        }
        for (CutRemark const& remark : run.worker.remarks()) {
            EXPECT_EQ(remark.kind, CutRemark::Kind::NothingCut);
            EXPECT_EQ(remark.text.find("rectangle") != std::string::npos, isBounded);
        }
    }
}

TEST(SectionCutImp, APartThatThePlaneMissesIsNotCopied)
{
    TestDocument test;
    auto* const above = test.add(box(30, 30, 30, {0, 0, 20}), "above");
    auto* const below = test.add(box(30, 30, 5), "below");
    auto const ofAbove = above->meshProperty->getMesh()->readMesh();
    auto const ofBelow = below->meshProperty->getMesh()->readMesh();
    for (SECTIONCUTTYPE const type : allTypes) {
        SectionRun run({above, below}, type);
        run.worker.doWork();
        ASSERT_EQ(run.events, Events{"true"});
        EXPECT_EQ(run.worker.getResult().at(above).front()->readMesh(), ofAbove);
        EXPECT_EQ(run.worker.getResult().at(below).front()->readMesh(), ofBelow);
    }
}

TEST(SectionCutImp, APartThatThePlaneMissesIsCleanedUpAllTheSame)
{
    // A triangle without area, and a point that none uses.
    Soup soup = box(30, 30, 5);
    soup.add(soup.triangles[0][0], soup.triangles[0][1], soup.triangles[0][0]);
    soup.add({1, 2, 3});
    TestDocument test;
    auto* const part = test.add(soup, "part");
    SectionRun run({part});
    run.worker.doWork();
    MeshKernel const& piece = *run.worker.getResult().at(part).front();
    EXPECT_EQ(piece.readMesh()->triangles.size(), 12u);
    EXPECT_EQ(piece.readMesh()->vertices.size(), 8u);
    EXPECT_EQ(part->meshProperty->getMesh()->readMesh()->triangles.size(), 13u);
}

TEST(SectionCutImp, ThePieceTheNormalPointsToComesFirst)
{
    TestDocument test;
    auto* const part = test.add(block, "part");
    SectionRun run({part});
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"true"});
    auto const& pieces = run.worker.getResult().at(part);
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_EQ(pieces[0]->GetBox().MinZ(), 10);
    EXPECT_EQ(pieces[1]->GetBox().MaxZ(), 10);
}

TEST(SectionCutImp, ConnectorsHaveTheLowerPieceFirst)
{
    TestDocument test;
    auto* const part = test.add(block, "part");
    // Three is the one value of the type's range that has no name.
    for (SECTIONCUTTYPE const type : {SECTIONCUT_PINHOLE, SECTIONCUT_LAPJOINT, SECTIONCUTTYPE(3)}) {
        SectionRun run({part}, type);
        run.worker.doWork();
        EXPECT_EQ(run.events, Events{"true"});
        auto const& pieces = run.worker.getResult().at(part);
        ASSERT_EQ(pieces.size(), 2u);
        EXPECT_EQ(closedSolidFaults(*pieces[0]), "");
        pieces[0]->UpdateBoundingBox();
        EXPECT_NEAR(pieces[0]->GetBox().MaxZ(), type == SECTIONCUT_PINHOLE ? 15 : 13, 1e-4f);
    }
}

TEST(SectionCutImp, ASecondJobStartsAnew)
{
    TestDocument test;
    auto* const a = test.add(block, "a");
    auto* const b = test.add(block, "b");
    for (SECTIONCUTTYPE const type : allTypes) {
        SectionRun run({a}, type);
        run.worker.doWork();
        auto const first = soupOf(*run.worker.getResult().at(a)[0]);
        run.worker.setObjects({b});
        run.worker.doWork();
        EXPECT_EQ(run.events, (Events{"true", "true"}));
        EXPECT_EQ(run.worker.getResult().size(), 1u);
        ASSERT_EQ(run.worker.getResult().at(b).size(), 2u);
        auto const second = soupOf(*run.worker.getResult().at(b)[0]);
        EXPECT_EQ(first.points, second.points);
        EXPECT_EQ(first.triangles, second.triangles);
    }
}

TEST(SectionCutImp, ThreePartsAreCutInOneJob)
{
    TestDocument test;
    std::vector<Mesh::DocumentObject*> parts;
    for (float const z : {-10.0f, 0.0f, 5.0f})
        parts.push_back(test.add(box(30, 30, 30, {0, 0, z}), "part"));
    for (SECTIONCUTTYPE const type : allTypes) {
        SectionRun run(parts, type);
        run.worker.doWork();
        EXPECT_EQ(run.events, Events{"true"});
        ASSERT_EQ(run.worker.getResult().size(), 3u);
        for (auto const& [part, pieces] : run.worker.getResult()) {
            ASSERT_EQ(pieces.size(), 2u);
            for (auto const& piece : pieces)
                EXPECT_EQ(closedSolidFaults(*piece), "");
            double const loss = 27000 - volumeOf(soupOf(*pieces[0])) - volumeOf(soupOf(*pieces[1]));
            EXPECT_NEAR(loss, 0, isConnectorCut(type) ? 0.02 * 27000 : 1e-2);
        }
    }
}

TEST(SectionCutImp, WithoutPartsTheResultIsEmpty)
{
    for (SECTIONCUTTYPE const type : {SECTIONCUT_PLANE, SECTIONCUT_PINHOLE, SECTIONCUT_LAPJOINT}) {
        SectionRun run({}, type);
        run.worker.doWork();
        EXPECT_EQ(run.events, Events{"true"});
        EXPECT_TRUE(run.worker.getResult().empty());
    }
}

TEST(SectionCutImp, APartThatThePlaneDoesNotCrossIsOnePiece)
{
    TestDocument test;
    auto* const missed = test.add(box(5, 5, 5), "missed");
    auto* const cut = test.add(block, "cut");
    for (SECTIONCUTTYPE const type : allTypes) {
        SectionRun run({missed, cut}, type);
        run.worker.doWork();
        EXPECT_EQ(run.events, Events{"true"});
        ASSERT_EQ(run.worker.getResult().at(missed).size(), 1u);
        EXPECT_EQ(volumeOf(soupOf(*run.worker.getResult().at(missed)[0])), 125);
        EXPECT_EQ(run.worker.getResult().at(cut).size(), 2u);
    }
}

TEST(SectionCutImp, APartWithinTheGapBetweenTheFacesVanishes)
{
    TestDocument test;
    auto* const thin = test.add(box(5, 5, 0.1f, {0, 0, 10.05f}), "thin");
    auto* const cut = test.add(block, "cut");
    for (SECTIONCUTTYPE const type : {SECTIONCUT_PINHOLE, SECTIONCUT_LAPJOINT}) {
        SectionRun run({thin, cut}, type);
        PinHoleParas pins;
        pins.faceclearance = 0.2f;
        run.worker.setPinHoleParas(pins);
        run.worker.doWork();
        EXPECT_EQ(run.events, Events{"true"});
        EXPECT_EQ(run.worker.getResult().size(), 1u);
        EXPECT_EQ(run.worker.getResult().count(thin), 0u);
    }
}

TEST(SectionCutImp, WithBoundaryAPartOutsideTheRectangleIsOnePiece)
{
    TestDocument test;
    auto* const part = test.add(block, "part");
    SectionRun run({part});
    run.placePlane({100, 100, 10}, 20);
    run.worker.setCheckBoundary(true);
    run.worker.doWork();
    EXPECT_EQ(run.worker.getResult().at(part).size(), 1u);
    // A plane without an end cuts, however far away its centre lies.
    run.worker.setCheckBoundary(false);
    run.worker.doWork();
    EXPECT_EQ(run.worker.getResult().at(part).size(), 2u);
}

TEST(SectionCutImp, SeveralShellsOnASideAreOnePiece)
{
    TestDocument test;
    auto* const part = test.add(fromFrontView({"#.#", "###"}), "part");
    SectionRun run({part});
    run.placePlane({15, 5, 15}, 5);
    run.worker.doWork();
    auto const& pieces = run.worker.getResult().at(part);
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_EQ(componentsOf(soupOf(*pieces[0])), 2u);
}

TEST(SectionCutImp, WithoutAPlaneTheJobFails)
{
    TestDocument test;
    SectionRun run({test.add(block, "part")});
    run.worker.setPlaneObject(nullptr);
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"false"});
    EXPECT_EQ(run.worker.getErrorMessage(), "An error occurred in triangulate.");
    EXPECT_EQ(run.worker.reason(), "There is no cutting plane. Place one first.");
}

TEST(SectionCutImp, ProgressOfAPlainCutRunsOverTheParts)
{
    TestDocument test;
    PluggedSink const sink;
    SectionRun run({test.add(block, "a"), test.add(block, "b")});
    run.worker.doWork();
    std::vector<int> const values = sink->values();
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_NE(std::find(values.begin(), values.end(), 50), values.end());
    EXPECT_EQ(values.back(), 100);
    EXPECT_EQ(sink->titles(), std::vector<std::string>{"Section Cut"});
}

TEST(SectionCutImp, ACancelledConnectorCutIsLoggedThreeTimesAndLeavesNothing)
{
    for (SECTIONCUTTYPE const type : {SECTIONCUT_PINHOLE, SECTIONCUT_LAPJOINT}) {
        TestDocument test;
        PluggedSink const sink;
        ConsoleLines const console;
        sink->onProgress = [&](RecordingSink& s, int value) {
            if (value >= 75)
                s.cancel();
        };
        SectionRun run({test.add(block, "a"), test.add(block, "b")}, type);
        run.worker.doWork();
        EXPECT_EQ(run.events, Events{"process end"});
        EXPECT_TRUE(run.worker.getResult().empty());
        EXPECT_EQ(console.lines(), Events(3, "Command Abort."));
    }
}

TEST(SectionCutImp, ACancelAtAnyReportEndsTheProcess)
{
    for (SECTIONCUTTYPE const type : allTypes)
        for (int n = 1, count = reportCount(type); n <= count; n += int(roundStride)) {
            SCOPED_TRACE(testing::Message() << "type " << type << " report " << n);
            TestDocument test;
            PluggedSink const sink;
            ConsoleLines const console;
            int reports = 0;
            sink->onProgress = [&](RecordingSink& s, int) {
                if (++reports == n)
                    s.cancel();
            };
            SectionRun run({test.add(block, "a"), test.add(block, "b")}, type);
            run.worker.doWork();
            // A request that comes with the last report comes too late.
            if (reports < n + 1 && run.events == Events{"true"})
                continue;
            EXPECT_EQ(run.events, Events{"process end"});
            EXPECT_EQ(reports, n);
            if (isConnectorCut(type)) {
                EXPECT_TRUE(run.worker.getResult().empty());
                EXPECT_GE(console.lines().size(), 2u);
            }
            EXPECT_LE(console.lines().size(), isConnectorCut(type) ? 3u : 1u);
            for (std::string const& line : console.lines())
                EXPECT_EQ(line, "Command Abort.");
        }
}

TEST(SectionCutImp, ACancelledPlainCutKeepsTheFinishedPiecesUntilTheNextJob)
{
    TestDocument test;
    PluggedSink const sink;
    sink->onProgress = [&](RecordingSink&, int value) {
        if (value > 50)
            throw Mell::AbortException("Aborting...");
    };
    SectionRun run({test.add(block, "a"), test.add(block, "b")});
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"process end"});
    EXPECT_EQ(run.worker.getResult().size(), 1u);
}

TEST(SectionCutImp, AnAbortWithAnotherTextFailsAPlainCut)
{
    TestDocument test;
    PluggedSink const sink;
    sink->onProgress = [&](RecordingSink&, int) { throw Mell::AbortException("Something else"); };
    SectionRun run({test.add(block, "a")});
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"false"});
}
