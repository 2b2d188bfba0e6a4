// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/ZCutImp.h"
#include "tests/cutjobs/ConsoleLines.h"
#include "tests/cutjobs/RecordingSink.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// Runs the worker on the calling thread, where its signals come directly.
struct WorkerRun
{
    explicit WorkerRun(std::vector<Mesh::DocumentObject*> const& parts, float z)
    {
        QObject::connect(&worker, &CutWorker::resultReady,
                         [this](bool ok) { events.push_back(ok ? "true" : "false"); });
        QObject::connect(&worker, &CutWorker::processEnd,
                         [this] { events.push_back("process end"); });
        worker.setObjects(parts);
        worker.setZheight(1000);  // the rubber points alone say where the plane is
        worker.setRubPts({{0, 0, z}, {-20, -20, z}, {20, -20, z}});
    }

    ZCutImp worker{nullptr};
    std::vector<std::string> events;
};

using Events = std::vector<std::string>;

}  // namespace

TEST(ZCutImp, WithoutPartsTheResultIsEmpty)
{
    WorkerRun run({}, 1);
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"true"});
    EXPECT_TRUE(run.worker.getResult().empty());
}

TEST(ZCutImp, TheResultHoldsTheUpperPieceFirst)
{
    TestDocument test;
    auto* const part = test.add(box(2, 2, 4), "part");
    WorkerRun run({part}, 1);
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"true"});
    CutResultMap const result = run.worker.getResult();
    ASSERT_EQ(result.size(), 1u);
    auto const& pieces = result.at(part);
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_NEAR(volumeOf(soupOf(*pieces[0])), 12, 1e-5);
    EXPECT_NEAR(volumeOf(soupOf(*pieces[1])), 4, 1e-5);
    EXPECT_EQ(pieces[0]->GetBox().MinZ(), 1);
}

TEST(ZCutImp, PartsThatThePlaneMissesAreToldOfAndNoOthers)
{
    TestDocument test;
    auto* const above = test.add(box(1, 1, 1, {0, 0, 5}), "above");
    auto* const below = test.add(box(1, 1, 1, {5, 0, 0}), "below");
    auto* const empty = test.add({}, "empty");
    WorkerRun run({above, test.add(box(2, 2, 4), "cut"), below, empty}, 2);
    run.worker.doWork();
    ASSERT_EQ(run.worker.remarks().size(), 2u);
    EXPECT_EQ(run.worker.remarks()[0].part, above);
    EXPECT_EQ(run.worker.remarks()[1].part, below);
    for (CutRemark const& remark : run.worker.remarks()) {
        EXPECT_EQ(remark.kind, CutRemark::Kind::NothingCut);
        EXPECT_EQ(remark.text, "Nothing was cut: the plane misses the part.");
    }
}

TEST(ZCutImp, ASecondJobAddsToTheFirstOnesResult)
{
    TestDocument test;
    auto* const part = test.add(box(2, 2, 4), "part");
    WorkerRun run({part}, 1);
    run.worker.doWork();
    run.worker.doWork();
    EXPECT_EQ(run.worker.getResult().at(part).size(), 4u);
}

TEST(ZCutImp, ThePartItselfStaysAsItIs)
{
    TestDocument test;
    auto* const part = test.add(torus(5, 2, 30, 20), "part");
    auto const mesh = part->meshProperty->getMesh()->readMesh();
    Soup const before = soupOf(part);
    WorkerRun run({part}, 0.3f);
    run.worker.setReapir(true);
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"true"});
    EXPECT_EQ(part->meshProperty->getMesh()->readMesh(), mesh);
    EXPECT_EQ(soupOf(part).points, before.points);
    EXPECT_EQ(soupOf(part).triangles, before.triangles);
}

TEST(ZCutImp, WithRepairAPieceWithoutErrorsIsLeftUntouched)
{
    TestDocument test;
    PluggedSink const sink;
    auto* const cut = test.add(torus(5, 2, 30, 20), "cut");
    auto* const missed = test.add(box(1, 1, 1, {0, 0, 5}), "missed");
    WorkerRun run({cut, missed}, 0.3f);
    run.worker.setReapir(true);
    run.worker.doWork();
    CutResultMap const result = run.worker.getResult();
    ASSERT_EQ(result.at(cut).size(), 2u);
    ASSERT_EQ(result.at(missed).size(), 1u);
    // A repair tells a progress of its own, which begins anew, and gets a mesh of its own.
    std::vector<int> const values = sink->values();
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_EQ(result.at(missed)[0]->readMesh(), missed->meshProperty->getMesh()->readMesh());
    for (auto const& [part, reports] : run.worker.getRepairReports())
        for (Repair::Report const& report : reports)
            EXPECT_TRUE(report.isEmpty()) << part->getName();
}

TEST(ZCutImp, TheLowerPieceIsRepairedFirst)
{
    TestDocument test;
    ConsoleLines const console;
    // Boxes that cross above the plane, and others that cross below it.
    Soup soup = box(20, 20, 20);
    soup.append(box(4, 4, 4, {2.5f, 3.25f, 18.125f}));
    soup.append(box(4, 4, 4, {8.5f, 9.25f, -1.875f}));
    soup.append(box(4, 4, 4, {2.5f, 3.25f, -1.875f}));
    auto* const part = test.add(soup, "part");
    WorkerRun run({part}, 10);
    run.worker.setReapir(true);
    run.worker.setRepairsWhole(true);
    run.worker.doWork();
    auto const& reports = run.worker.getRepairReports().at(part);
    ASSERT_EQ(reports.size(), 2u);
    auto const upper = Repair::linesOf(reports[0]);
    auto const lower = Repair::linesOf(reports[1]);
    ASSERT_NE(upper, lower);
    std::vector<std::string> expected = lower;
    expected.insert(expected.end(), upper.begin(), upper.end());
    EXPECT_EQ(console.lines(), expected);
}

TEST(ZCutImp, ProgressRunsOverThePartsAndEndsAtHundred)
{
    TestDocument test;
    PluggedSink const sink;
    WorkerRun run({test.add(box(1, 1, 4), "a"), test.add(box(1, 1, 4, {5, 0, 0}), "b"),
                   test.add(box(1, 1, 4, {0, 5, 0}), "c")},
                  1);
    run.worker.doWork();
    std::vector<int> const values = sink->values();
    ASSERT_FALSE(values.empty());
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_EQ(values.back(), 100);
    for (int const partEnd : {33, 66, 100})
        EXPECT_NE(std::find(values.begin(), values.end(), partEnd), values.end()) << partEnd;
    EXPECT_EQ(sink->titles(), std::vector<std::string>{"Section Cut"});
}

TEST(ZCutImp, ACancelAtTheVeryEndIsACancelWithoutALogLine)
{
    TestDocument test;
    PluggedSink const sink;
    ConsoleLines const console;
    int hundreds = 0;
    // For one part 100 comes when the part is done, and again at the end of the job.
    sink->onProgress = [&](RecordingSink& s, int) {
        std::vector<int> const values = s.values();
        hundreds = int(std::count(values.begin(), values.end(), 100));
    };
    auto* const part = test.add(box(1, 1, 4), "part");
    WorkerRun counting({part}, 1);
    counting.worker.doWork();
    ASSERT_GT(hundreds, 1);

    PluggedSink const second;
    int left = hundreds;
    second->onProgress = [&](RecordingSink&, int value) {
        if (value == 100 && --left == 0)
            throw Mell::AbortException("Aborting...");
    };
    WorkerRun run({part}, 1);
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"process end"});
    EXPECT_TRUE(console.lines().empty());
}

TEST(ZCutImp, ACancelDuringARepairEndsAsAnyAbort)
{
    TestDocument test;
    PluggedSink const sink;
    ConsoleLines const console;
    // The pieces of a part that crosses itself need a repair, whose progress begins anew.
    int highest = 0;
    bool hasCancelled = false;
    sink->onProgress = [&](RecordingSink& s, int value) {
        if (highest == 100 && value < 100) {
            hasCancelled = true;
            s.cancel();
        }
        highest = std::max(highest, value);
    };
    WorkerRun run({test.add(crossingBoxes(), "part")}, 0.5f);
    run.worker.setReapir(true);
    run.worker.doWork();
    EXPECT_TRUE(hasCancelled);
    EXPECT_EQ(run.events, Events{"process end"});
    EXPECT_EQ(console.lines(), std::vector<std::string>{"Command Abort."});
}

TEST(ZCutImp, EachPieceHasAReportOfWhatTheRepairDid)
{
    TestDocument test;
    ConsoleLines const console;
    auto* const part = test.add(crossingBoxes(), "part");
    // Below the second box, so that the crossings are in the upper piece alone.
    WorkerRun run({part}, 0.5f);
    run.worker.setReapir(true);
    run.worker.setRepairsWhole(true);
    run.worker.doWork();
    CutResultMap const result = run.worker.getResult();
    ASSERT_EQ(run.worker.getRepairReports().size(), result.size());
    auto const& reports = run.worker.getRepairReports().at(part);
    ASSERT_EQ(reports.size(), result.at(part).size());
    EXPECT_GT(reports.front().countOf(Repair::Flaw::crossing), 0u);
    EXPECT_TRUE(reports.back().isEmpty());
    EXPECT_EQ(console.lines(), Repair::linesOf(reports.front()));
}

TEST(ZCutImp, ANullBoxDoesNoHarm)
{
    TestDocument test;
    auto* const part = test.add({}, "empty");
    WorkerRun run({part}, 1);
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"true"});
    EXPECT_TRUE(run.worker.getResult().empty());
}

TEST(ZCutImp, OneByOneAPartWithoutAPlaneOfItsOwnFailsTheJob)
{
    TestDocument test;
    auto* const first = test.add(box(2, 2, 4), "first");
    auto* const second = test.add(box(2, 2, 4), "second");
    // Three points: a plane for the first part alone.
    WorkerRun run({first, second}, 1);
    run.worker.setZCutonebyone(true);
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"false"});
    EXPECT_FALSE(run.worker.getResult().contains(second));
}
