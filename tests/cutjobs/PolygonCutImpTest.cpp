// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PolygonCutImp.h"
#include "tests/cutjobs/ConsoleLines.h"
#include "tests/cutjobs/RecordingSink.h"
#include "tests/support/CrossingPair.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Events = std::vector<std::string>;

/// Runs the worker on the calling thread, where its signals come directly.
struct PolygonRun
{
    explicit PolygonRun(std::vector<Mesh::DocumentObject*> const& parts)
    {
        QObject::connect(&worker, &CutWorker::resultReady,
                         [this](bool ok) { events.push_back(ok ? "true" : "false"); });
        QObject::connect(&worker, &CutWorker::processEnd,
                         [this] { events.push_back("process end"); });
        worker.setObjects(parts);
    }

    void cut(Soup const& tool, bool useClearance = false)
    {
        worker.setParas(useClearance, useClearance);
        worker.setInOutPolygonMesh(kernelOf(tool).release(), nullptr);
        worker.doWork();
    }
    void cutApart(Soup const& in, Soup const& out)
    {
        worker.setParas(true, false);
        worker.setInOutPolygonMesh(kernelOf(in).release(), kernelOf(out).release());
        worker.doWork();
    }
    std::vector<double> volumes(Mesh::DocumentObject* part) const
    {
        std::vector<double> result;
        CutResultMap const pieces = worker.getResult();
        for (auto const& piece : pieces.at(part)) {
            EXPECT_EQ(closedSolidFaults(*piece), "");
            result.push_back(volumeOf(soupOf(*piece)));
        }
        return result;
    }

    PolygonCutImp worker{nullptr};
    Events events;
};

/// A kernel that tells when it is deleted.
class WatchedKernel : public MeshKernel
{
public:
    WatchedKernel(Soup const& soup, int& deaths)
        : MeshKernel(kernelOf(soup).get()), m_deaths(deaths)
    {}
    ~WatchedKernel() override { ++m_deaths; }

private:
    int& m_deaths;
};

Soup const block = box(30, 30, 30);
/// A column through the block's middle, and one that is wider by half a millimetre on each side.
Soup const column = box(10, 10, 40, {10, 10, -5});
Soup const widerColumn = box(11, 11, 40, {9.5f, 9.5f, -5});

}  // namespace

TEST(PolygonCutImp, WhatLiesWithinTheToolComesFirst)
{
    TestDocument test;
    auto* const part = test.add(block, "part");
    PolygonRun run({part});
    run.cut(column);
    EXPECT_EQ(run.events, Events{"true"});
    auto const volumes = run.volumes(part);
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_NEAR(volumes[0], 3000, 1e-3);
    EXPECT_NEAR(volumes[1], 24000, 1e-3);
}

TEST(PolygonCutImp, AClearanceLeavesAGapBetweenThePieces)
{
    TestDocument test;
    auto* const part = test.add(block, "part");
    PolygonRun run({part});
    run.cutApart(column, widerColumn);
    EXPECT_EQ(run.events, Events{"true"});
    auto const volumes = run.volumes(part);
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_NEAR(volumes[0], 3000, 1e-3);
    EXPECT_NEAR(volumes[1], 27000 - 121 * 30, 1e-3);
}

TEST(PolygonCutImp, AClearanceWithOneSolidSplitsByIt)
{
    TestDocument test;
    auto* const part = test.add(block, "part");
    PolygonRun run({part});
    run.cut(widerColumn, true);
    auto const volumes = run.volumes(part);
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_NEAR(volumes[0] + volumes[1], 27000, 1e-3);
}

TEST(PolygonCutImp, AToolThatEnclosesOrMissesAPartLeavesItWhole)
{
    for (Soup const& tool : {box(50, 50, 50, {-10, -10, -10}), box(5, 5, 5, {100, 0, 0})}) {
        TestDocument test;
        auto* const part = test.add(block, "part");
        PolygonRun run({part});
        run.cut(tool);
        EXPECT_EQ(run.events, Events{"true"});
        ASSERT_EQ(run.volumes(part).size(), 1u);
        EXPECT_NEAR(run.volumes(part)[0], 27000, 1e-3);
    }
}

TEST(PolygonCutImp, AnEmptyToolLeavesAPartWhole)
{
    TestDocument test;
    auto* const part = test.add(block, "part");
    PolygonRun run({part});
    run.cut(Soup());
    EXPECT_EQ(run.volumes(part).size(), 1u);
}

TEST(PolygonCutImp, APartInTheGapHasNoPieces)
{
    TestDocument test;
    auto* const inGap = test.add(box(0.2f, 5, 5, {9.6f, 12, 5}), "in the gap");
    auto* const part = test.add(block, "part");
    PolygonRun run({inGap, part});
    run.cutApart(column, widerColumn);
    EXPECT_EQ(run.events, Events{"true"});
    CutResultMap const result = run.worker.getResult();
    EXPECT_EQ(result.count(inGap), 0u);
    EXPECT_EQ(result.count(part), 1u);
}

TEST(PolygonCutImp, ProgressOfASplitRunsOverNinetyPercentOfEachPart)
{
    TestDocument test;
    PluggedSink const sink;
    PolygonRun run({test.add(block, "a"), test.add(block, "b")});
    run.cut(column);
    std::vector<int> values = sink->values();
    EXPECT_EQ(values.back(), 100);
    values.pop_back();
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_NE(std::find(values.begin(), values.end(), 45), values.end()) << "the first part's end";
    EXPECT_EQ(values.back(), 95);
    EXPECT_EQ(sink->titles(), std::vector<std::string>{"Polygon Cut"});
}

TEST(PolygonCutImp, ProgressOfAClearanceCutRunsToTwiceTheEnd)
{
    TestDocument test;
    PluggedSink const sink;
    PolygonRun run({test.add(block, "part")});
    run.cutApart(column, widerColumn);
    std::vector<int> values = sink->values();
    EXPECT_EQ(values.back(), 100);
    values.pop_back();
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_EQ(values.back(), 200);
    EXPECT_NE(std::find(values.begin(), values.end(), 50), values.end());
    for (int const value : values)
        EXPECT_TRUE(value <= 50 || value >= 100) << value;
}

TEST(PolygonCutImp, TheToolsGoWithTheJobHoweverItEnds)
{
    struct Case
    {
        char const* name;
        std::vector<Soup> parts;
        bool useClearance;
        /// The value that the job is stopped at; -1 for none.
        int stopAt;
        char const* abortText;
        std::string event;
    };
    Case const cases[] = {
        {"done", {block}, true, -1, "", "true"},
        {"no parts", {}, true, -1, "", "true"},
        {"cancelled in the split", {block}, false, 1, "Aborting...", "process end"},
        {"cancelled in the first boolean", {block}, true, 1, "Aborting...", "process end"},
        {"cancelled in the second boolean", {block}, true, 101, "Aborting...", "process end"},
        {"failed in the first boolean", {block}, true, 1, "Something else", "false"},
    };
    for (Case const& row : cases) {
        TestDocument test;
        PluggedSink const sink;
        sink->onProgress = [&](RecordingSink&, int value) {
            if (row.stopAt >= 0 && value >= row.stopAt)
                throw Mell::AbortException(row.abortText);
        };
        std::vector<Mesh::DocumentObject*> parts;
        for (Soup const& soup : row.parts)
            parts.push_back(test.add(soup, "part"));
        int deaths = 0;
        PolygonRun run(parts);
        run.worker.setParas(row.useClearance, false);
        run.worker.setInOutPolygonMesh(new WatchedKernel(column, deaths),
                                       new WatchedKernel(widerColumn, deaths));
        run.worker.doWork();
        EXPECT_EQ(run.events, Events{row.event}) << row.name;
        EXPECT_EQ(deaths, 2) << row.name;
        // A later job with new tools runs normally.
        sink->onProgress = nullptr;
        run.cut(column);
        EXPECT_EQ(run.events.back(), "true") << row.name;
        EXPECT_EQ(run.worker.getResult().size(), parts.size()) << row.name;
    }
}

TEST(PolygonCutImp, ACancelIsLoggedOnceAndTheMessageOfAFailureIsKept)
{
    TestDocument test;
    PluggedSink const sink;
    ConsoleLines const console;
    sink->onProgress = [](RecordingSink& s, int) { s.cancel(); };
    PolygonRun run({test.add(block, "part")});
    run.cut(column);
    EXPECT_EQ(run.events, Events{"process end"});
    EXPECT_EQ(console.lines(), Events{"Command Abort."});
    EXPECT_EQ(run.worker.getErrorMessage(), "");
}

TEST(PolygonCutImp, APieceThatRoundingLeavesCrossingItselfIsTold)
{
    SolidPair const pair = pairLeftCrossing();
    for (bool const isApart : {false, true}) {
        TestDocument test;
        Mesh::DocumentObject* const part = test.add(pair.a, "part");
        PolygonRun run({part});
        if (isApart)
            run.cutApart(pair.b, pair.b);
        else
            run.cut(pair.b);
        ASSERT_EQ(run.events.back(), "true");
        ASSERT_EQ(run.worker.remarks().size(), 1u) << isApart;
        CutRemark const& remark = run.worker.remarks()[0];
        EXPECT_EQ(remark.kind, CutRemark::Kind::PieceCrossesItself);
        EXPECT_EQ(remark.part, part);
        EXPECT_FALSE(remark.places.empty());
    }
}

TEST(PolygonCutImp, WithoutAToolTheJobFails)
{
    TestDocument test;
    PolygonRun run({test.add(block, "part")});
    run.worker.doWork();
    EXPECT_EQ(run.events, Events{"false"});
    EXPECT_EQ(run.worker.getErrorMessage(), "An error occurred in triangulate.");
    int deaths = 0;
    run.worker.setParas(true, false);
    run.worker.setInOutPolygonMesh(new WatchedKernel(column, deaths), nullptr);
    run.worker.doWork();
    EXPECT_EQ(run.events.back(), "false");
    EXPECT_EQ(deaths, 1);
}

TEST(PolygonCutImp, WithoutPartsTheJobIsDoneWhateverTheTool)
{
    int deaths = 0;
    PolygonRun run({});
    run.worker.doWork();
    run.worker.setParas(true, false);
    run.worker.setInOutPolygonMesh(new WatchedKernel(column, deaths),
                                   new WatchedKernel(widerColumn, deaths));
    run.worker.doWork();
    EXPECT_EQ(run.events, (Events{"true", "true"}));
    EXPECT_TRUE(run.worker.getResult().empty());
    EXPECT_EQ(deaths, 2);
}

TEST(PolygonCutImp, AnOpenToolIsClosedBeforeItCuts)
{
    // A cap of the column that ends within the block is missing.
    Soup open = box(10, 10, 20, {10, 10, -5});
    std::erase_if(open.triangles, [&](auto const& t) {
        return open.points[t[0]].Z() == 15 && open.points[t[1]].Z() == 15 &&
               open.points[t[2]].Z() == 15;
    });
    ASSERT_EQ(borderEdgesOf(open), 4u);
    TestDocument test;
    auto* const part = test.add(block, "part");
    PolygonRun run({part});
    run.cut(open);
    EXPECT_EQ(run.events, Events{"true"});
    std::vector<double> const volumes = run.volumes(part);
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_NEAR(volumes[0], 1500, 0.01);
    EXPECT_NEAR(volumes[1], 25500, 0.01);
}

TEST(PolygonCutImp, ToolsThatWereNeverUsedGoWithTheWorker)
{
    int deaths = 0;
    {
        PolygonCutImp worker(nullptr);
        worker.setInOutPolygonMesh(new WatchedKernel(column, deaths),
                                   new WatchedKernel(column, deaths));
        worker.setInOutPolygonMesh(new WatchedKernel(column, deaths), nullptr);
        EXPECT_EQ(deaths, 2);
    }
    EXPECT_EQ(deaths, 3);
}

TEST(PolygonCutImp, APartWithoutAMeshIsLeftAlone)
{
    TestDocument test;
    auto* const empty = new Mesh::DocumentObject;
    test.document->addObject(empty, "empty", true);
    auto* const part = test.add(block, "part");
    PolygonRun run({empty, part});
    run.cut(column);
    EXPECT_EQ(run.events, Events{"true"});
    EXPECT_EQ(run.volumes(part).size(), 2u);
}
