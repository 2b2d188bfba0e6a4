// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorProgress.h"
#include "tests/cutjobs/RecordingSink.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>
#include <vector>

using namespace ConnectorProgress;

TEST(ConnectorProgress, AStageIsAShareOfItsPart)
{
    EXPECT_EQ(overall(0, {20, 20}, 0, 1), 20);
    EXPECT_EQ(overall(50, {20, 20}, 0, 1), 30);
    EXPECT_EQ(overall(100, {40, 60}, 0, 1), 100);
    EXPECT_EQ(overall(99, {0, 25}, 0, 1), 24);
    EXPECT_EQ(overall(100, {25, 65}, 1, 2), 95);
    EXPECT_EQ(overall(50, {0, 20}, 1, 3), 36);
}

TEST(ConnectorProgress, MoreThanHundredIsTheStagesEnd)
{
    EXPECT_EQ(overall(250, {20, 20}, 0, 1), 40);
}

TEST(ConnectorProgress, ASpanIsAShareOfAStage)
{
    std::vector<int> seen;
    auto const inStage =
        span(stage([&](int percent) { seen.push_back(percent); }, {40, 60}, 0, 2), {70, 30});
    inStage(0);
    inStage(50);
    inStage(100);
    // 70, 85 and 100 of a stage that begins at 40 and spans 60, halved.
    EXPECT_EQ(seen, (std::vector<int>{41, 45, 50}));
}

TEST(ConnectorProgress, OverNoFunctionThereIsNone)
{
    EXPECT_FALSE(stage({}, {0, 100}, 0, 1));
    EXPECT_FALSE(span({}, {0, 100}));
}

TEST(ConnectorProgress, APollReportsNoNumberAndEndsByTheUsersCancel)
{
    PluggedSink const sink;
    int numbers = 0;
    sink->onProgress = [&](RecordingSink&, int) { ++numbers; };
    auto const poll = ConnectorProgress::poll();
    auto const start = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(30))
        poll();
    sink->cancel();
    std::string text;
    try {
        for (;;)
            poll();
    } catch (Mell::AbortException const& abort) {
        text = abort.what();
    }
    EXPECT_EQ(text, "Aborting...");
    EXPECT_EQ(numbers, 0);
}

TEST(ConnectorProgress, APollWithoutADisplayGoesOn)
{
    auto const poll = ConnectorProgress::poll();
    std::this_thread::sleep_for(std::chrono::milliseconds(15));
    EXPECT_NO_THROW(poll());
}
