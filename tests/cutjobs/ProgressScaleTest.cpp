// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ProgressScale.h"

#include <gtest/gtest.h>

#include <vector>

using namespace ProgressScale;

TEST(ProgressScale, PlaneCutRunsOverThePartsShare)
{
    EXPECT_EQ(planeCut(0, 0, 1), 0);
    EXPECT_EQ(planeCut(57, 0, 1), 57);
    EXPECT_EQ(planeCut(100, 0, 1), 100);
    EXPECT_EQ(planeCut(0, 1, 3), 33);
    EXPECT_EQ(planeCut(50, 1, 3), 50);
    EXPECT_EQ(planeCut(100, 1, 3), 66);
    EXPECT_EQ(planeCut(99, 2, 3), 99);
}

TEST(ProgressScale, PlaneCutAboveHundredIsTheEndOfThePart)
{
    EXPECT_EQ(planeCut(101, 0, 1), 100);
    EXPECT_EQ(planeCut(101, 0, 3), 33);
    EXPECT_EQ(planeCut(5000, 1, 3), 66);
    EXPECT_EQ(planeCut(101, 2, 3), 100);
}

TEST(ProgressScale, SplitBySolidEndsAtNineTenthsOfThePart)
{
    EXPECT_EQ(splitBySolid(0, 0, 1), 0);
    EXPECT_EQ(splitBySolid(50, 0, 1), 45);
    EXPECT_EQ(splitBySolid(100, 0, 1), 90);
    EXPECT_EQ(splitBySolid(100, 0, 2), 45);
    EXPECT_EQ(splitBySolid(0, 1, 2), 50);
    EXPECT_EQ(splitBySolid(100, 1, 2), 95);
}

TEST(ProgressScale, SplitBySolidAboveHundredIsNineTenthsOfThePart)
{
    EXPECT_EQ(splitBySolid(101, 0, 1), 90);
    EXPECT_EQ(splitBySolid(101, 0, 2), 45);
    EXPECT_EQ(splitBySolid(200, 1, 2), 95);
    EXPECT_EQ(splitBySolid(101, 2, 4), 72);
    // 90 if it went on to 101 hundredths.
    EXPECT_EQ(splitBySolid(101, 18, 21), 89);
}

TEST(ProgressScale, FirstBooleanIsTheFirstHalfOfThePart)
{
    EXPECT_EQ(firstBoolean(0, 0, 1), 0);
    EXPECT_EQ(firstBoolean(50, 0, 1), 25);
    EXPECT_EQ(firstBoolean(100, 0, 1), 50);
    EXPECT_EQ(firstBoolean(100, 1, 2), 75);
    EXPECT_EQ(firstBoolean(0, 2, 3), 66);
}

TEST(ProgressScale, FirstBooleanAboveHundredIsHalfThePart)
{
    EXPECT_EQ(firstBoolean(101, 0, 1), 50);
    EXPECT_EQ(firstBoolean(101, 1, 2), 75);
    EXPECT_EQ(firstBoolean(101, 2, 3), 83);
}

TEST(ProgressScale, SecondBooleanRunsToTwiceTheJob)
{
    EXPECT_EQ(secondBoolean(0, 0, 1), 100);
    EXPECT_EQ(secondBoolean(50, 0, 1), 150);
    EXPECT_EQ(secondBoolean(100, 0, 1), 200);
    EXPECT_EQ(secondBoolean(0, 1, 2), 150);
    EXPECT_EQ(secondBoolean(100, 1, 2), 200);
    EXPECT_EQ(secondBoolean(25, 0, 3), 41);
}

TEST(ProgressScale, SecondBooleanAboveHundredIsTheEndOfThePart)
{
    EXPECT_EQ(secondBoolean(101, 0, 1), 100);
    EXPECT_EQ(secondBoolean(101, 0, 2), 50);
    EXPECT_EQ(secondBoolean(101, 1, 3), 66);
}

TEST(ProgressScale, AClearanceCutOfOnePartRunsToFiftyThenFromHundredToTwoHundred)
{
    std::vector<int> seen;
    auto const job = [&](int percent) { seen.push_back(percent); };
    for (Rule const rule : {firstBoolean, secondBoolean})
        for (int percent : {0, 50, 100})
            scaled(job, rule, 0, 1)(percent);
    EXPECT_EQ(seen, (std::vector<int>{0, 25, 50, 100, 150, 200}));
}

TEST(ProgressScale, PartDoneTruncates)
{
    EXPECT_EQ(partDone(0, 1), 100);
    EXPECT_EQ(partDone(0, 3), 33);
    EXPECT_EQ(partDone(1, 3), 66);
    EXPECT_EQ(partDone(2, 3), 100);
}

TEST(ProgressScale, AnEmptyJobFunctionIsNotCalled)
{
    EXPECT_NO_THROW(scaled({}, planeCut, 0, 1)(50));
}

TEST(ProgressScale, WhatTheJobFunctionThrowsPasses)
{
    auto const progress = scaled([](int) { throw 7; }, planeCut, 0, 1);
    EXPECT_THROW(progress(1), int);
}
