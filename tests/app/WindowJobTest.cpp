// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/WindowJob.h"
#include "platform/jobs/BackgroundWork.h"
#include "platform/jobs/Exceptions.h"
#include "tests/support/WaitUntil.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <sys/resource.h>
#include <thread>

namespace {

/// How work ends that does nothing but what it is given.
JobOutcome outcomeOf(WindowJob::Work work)
{
    WindowJob job;
    JobOutcome outcome;
    int taken = 0, told = 0;
    QObject::connect(&job, &WindowJob::finished, [&] {
        ++told;
        EXPECT_EQ(taken, 1);
        EXPECT_FALSE(JobGuard::instance()->isBusy());
    });
    job.start("Probe", std::move(work), [&](JobOutcome const& ended) {
        ++taken;
        EXPECT_TRUE(JobGuard::instance()->isBusy());
        outcome = ended;
    });
    EXPECT_TRUE(job.isRunning());
    EXPECT_TRUE(JobGuard::instance()->isBusy());
    EXPECT_TRUE(waitUntil([&] { return told > 0; }));
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(job.isRunning());
    return outcome;
}

}  // namespace

TEST(WindowJob, EndsWellWithoutAWord)
{
    std::thread::id where;
    EXPECT_TRUE(outcomeOf([&](WindowJob::Progress const& progress) {
                    where = std::this_thread::get_id();
                    progress(50);
                }).isDone());
    EXPECT_NE(where, std::this_thread::get_id());
}

TEST(WindowJob, StandsBackBehindTheWindow)
{
    BackgroundWork::setGivingWay(true);
    int niceness = 0;
    EXPECT_TRUE(outcomeOf([&](WindowJob::Progress const&) {
                    niceness = getpriority(PRIO_PROCESS, 0);
                }).isDone());
    EXPECT_GT(niceness, getpriority(PRIO_PROCESS, 0));
}

TEST(WindowJob, WhateverItsWorkThrowsEndsItWithASentence)
{
    auto const problemOf = [](auto const& failure) {
        JobOutcome const outcome = outcomeOf([&](WindowJob::Progress const&) { throw failure; });
        EXPECT_FALSE(outcome.isCancelled);
        EXPECT_FALSE(outcome.isDone());
        return outcome.problem.toStdString();
    };
    EXPECT_EQ(problemOf(Mell::Exception("The part is open.")), "The part is open.");
    EXPECT_EQ(problemOf(std::runtime_error("A library's.")), "A library's.");
    EXPECT_EQ(problemOf(std::bad_alloc()),
              "There is not enough free memory; close other programs, or take fewer parts.");
    EXPECT_EQ(problemOf("without a type"), "This could not be done.");
}

TEST(WindowJob, ThatIsCancelledHasNoProblem)
{
    JobOutcome const outcome =
        outcomeOf([](WindowJob::Progress const&) { throw Mell::AbortException("Aborting..."); });
    EXPECT_TRUE(outcome.isCancelled);
    EXPECT_TRUE(outcome.problem.isEmpty());
}

TEST(WindowJob, StopsAtTheNextReport)
{
    WindowJob job;
    bool isCancelled = false;
    job.start(
        "Probe",
        [](WindowJob::Progress const& progress) {
            for (;;)
                progress(0);
        },
        [&](JobOutcome const& outcome) { isCancelled = outcome.isCancelled; });
    job.stop();
    EXPECT_TRUE(waitUntil([&] { return !job.isRunning(); }));
    EXPECT_TRUE(isCancelled);
}

TEST(WindowJob, StaysBusyWhenItsEndBeginsTheNext)
{
    WindowJob job;
    int ended = 0;
    job.start(
        "First", [](WindowJob::Progress const&) {},
        [&](JobOutcome const&) {
            ++ended;
            job.start(
                "Second", [](WindowJob::Progress const&) {}, [&](JobOutcome const&) { ++ended; });
        });
    ASSERT_TRUE(waitUntil([&] { return ended == 1; }));
    EXPECT_TRUE(job.isRunning());
    EXPECT_TRUE(JobGuard::instance()->isBusy());
    ASSERT_TRUE(waitUntil([&] { return ended == 2; }));
    EXPECT_TRUE(waitUntil([] { return !JobGuard::instance()->isBusy(); }));
}

TEST(WindowJob, GoesWithoutAResultWhenItsOwnerGoes)
{
    bool isDone = false, isTaken = false;
    {
        WindowJob job;
        job.start(
            "Probe", [&](WindowJob::Progress const&) { isDone = true; },
            [&](JobOutcome const&) { isTaken = true; });
    }
    EXPECT_TRUE(isDone);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isTaken);
    EXPECT_FALSE(JobGuard::instance()->isBusy());
}
