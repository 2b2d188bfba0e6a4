// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/EveryStep.h"
#include "host/services/StageProgress.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

/// What is reported of a stage from 10 to 50, step by step.
std::vector<int> reportsOf(std::function<void(StageProgress&)> const& work)
{
    EveryStep const everyStep;
    std::vector<int> reports;
    std::function<void(int)> const progress = [&](int percent) { reports.push_back(percent); };
    StageProgress stage(progress);
    stage.begin(10, 50, 8);
    work(stage);
    stage.finish();
    return reports;
}

}  // namespace

TEST(StageProgress, StepsTakeEqualShares)
{
    EXPECT_EQ(reportsOf([](StageProgress& stage) {
                  for (int i = 0; i < 4; ++i)
                      stage.add(2);
              }),
              (std::vector<int>{10, 20, 30, 40, 50, 50}));
}

TEST(StageProgress, MoreStepsThanWereToldEndWithTheStage)
{
    EXPECT_EQ(reportsOf([](StageProgress& stage) { stage.add(11); }),
              (std::vector<int>{10, 50, 50}));
}

TEST(StageProgress, AnAmountThatBecomesKnownLateFillsTheRest)
{
    // Counted from the start of the stage, the first of the new steps would be at 16 after 30.
    EXPECT_EQ(reportsOf([](StageProgress& stage) {
                  stage.add(4);
                  stage.setAmount(4);
                  for (int i = 0; i < 4; ++i)
                      stage.add(1);
              }),
              (std::vector<int>{10, 30, 35, 40, 45, 50, 50}));
}

TEST(StageProgress, AnAmountInPlaceOfAnotherFillsTheWholeStage)
{
    EXPECT_EQ(reportsOf([](StageProgress& stage) {
                  stage.setAmount(2);
                  stage.add(1);
                  stage.add(1);
              }),
              (std::vector<int>{10, 30, 50, 50}));
}
