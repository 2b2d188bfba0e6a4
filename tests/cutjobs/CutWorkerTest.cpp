// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/WorkerThread.h"
#include "platform/jobs/Exceptions.h"
#include "tests/cutjobs/FrameProbe.h"
#include "tests/cutjobs/RecordingSink.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

namespace {

/// Runs one job with that body and returns the front object's record of it.
std::vector<std::string> endOf(ProbeWorker::Run const& run)
{
    ProbeFront front(run);
    front.operateAndWait();
    return front.events;
}

using Events = std::vector<std::string>;

}  // namespace

TEST(CutWorker, ABodyThatReturnsIsAResult)
{
    EXPECT_EQ(endOf([](auto const&) {}), Events{"result true"});
}

TEST(CutWorker, AnAbortEndsTheProcessAndNothingElse)
{
    EXPECT_EQ(endOf([](auto const&) { throw Mell::AbortException("Aborting..."); }),
              Events{"process end"});
}

TEST(CutWorker, AnyOtherExceptionIsAFailureWithTheOneMessage)
{
    for (ProbeWorker::Run const& run : std::vector<ProbeWorker::Run>{
             [](auto const&) { throw ""; }, [](auto const&) { throw std::runtime_error("x"); },
             [](auto const&) { throw Mell::Exception("y"); }}) {
        ProbeFront front(run);
        front.operateAndWait();
        EXPECT_EQ(front.events, Events{"result false"});
        EXPECT_EQ(front.worker->getErrorMessage(), "An error occurred in triangulate.");
    }
}

TEST(CutWorker, TheReasonOfAFailureStandsBesideTheMessage)
{
    ProbeFront front([](auto const&) { throw Mell::Exception("The part is open."); });
    front.operateAndWait();
    EXPECT_EQ(front.worker->getErrorMessage(), "An error occurred in triangulate.");
    EXPECT_EQ(front.worker->reason(), "The part is open.");
}

TEST(CutWorker, ALaterJobForgetsTheReason)
{
    int job = 0;
    ProbeFront front([&](auto const&) {
        if (++job == 1)
            throw std::runtime_error("no memory");
        throw "";
    });
    front.operateAndWait();
    EXPECT_EQ(front.worker->reason(), "no memory");
    front.operateAndWait();
    EXPECT_EQ(front.worker->reason(), "");
}

TEST(CutWorker, ACancelLeavesTheErrorMessageEmpty)
{
    ProbeFront front([](auto const&) { throw Mell::AbortException("Aborting..."); });
    front.operateAndWait();
    EXPECT_TRUE(front.worker->getErrorMessage().isEmpty());
}

TEST(CutWorker, TheDisplayHasTheTitleTheRangeAndACancelButton)
{
    PluggedSink const sink;
    endOf([](auto const& progress) { progress(42); });
    EXPECT_EQ(sink->titles(), std::vector<std::string>{"Probe"});
    EXPECT_EQ(sink->range(), 100u);
    EXPECT_TRUE(sink->isCancelEnabled());
    EXPECT_EQ(sink->values(), std::vector<int>{42});
}

TEST(CutWorker, TheDisplayHasClosedWhenTheSignalComes)
{
    PluggedSink const sink;
    for (ProbeWorker::Run const& run : std::vector<ProbeWorker::Run>{
             [](auto const&) {}, [](auto const&) { throw ""; },
             [](auto const&) { throw Mell::AbortException("Aborting..."); }}) {
        std::atomic<int> openAtSignal = -1;
        {
            ProbeFront front(run);
            auto const note = [&] { openAtSignal = sink->openDisplays(); };
            // Direct: on the worker's thread, at the very moment of the signal.
            QObject::connect(front.worker, &CutWorker::resultReady, front.worker, note,
                             Qt::DirectConnection);
            QObject::connect(front.worker, &CutWorker::processEnd, front.worker, note,
                             Qt::DirectConnection);
            front.operateAndWait();
        }
        EXPECT_EQ(openAtSignal, 0);
    }
}

TEST(CutWorker, ACancelByTheUserReachesTheBodyThroughItsProgress)
{
    PluggedSink const sink;
    sink->cancel();
    EXPECT_EQ(endOf([](auto const& progress) { progress(1); }), Events{"process end"});
}

TEST(CutWorker, RunsOnItsOwnThreadAndServesSeveralJobs)
{
    QThread const* where = nullptr;
    ProbeFront front([&](auto const&) { where = QThread::currentThread(); });
    front.operateAndWait();
    EXPECT_NE(where, QThread::currentThread());
    EXPECT_NE(where, nullptr);
    front.operateAndWait();
    EXPECT_EQ(front.events, (Events{"result true", "result true"}));
}

TEST(CutWorker, TheFrontObjectHearsOnItsOwnThread)
{
    ProbeFront front([](auto const&) {});
    front.operateAndWait();
    EXPECT_EQ(front.heardOn, QThread::currentThread());
}

TEST(CutWorker, DestroyingTheFrontObjectWaitsForTheJob)
{
    PluggedSink const sink;
    std::atomic<bool> isReleased = false;
    std::atomic<bool> hasFinished = false;
    std::atomic<bool> isWorkerGone = false;
    {
        ProbeFront front([&](auto const&) {
            while (!isReleased)
                QThread::yieldCurrentThread();
            hasFinished = true;
        });
        QObject::connect(front.worker, &QObject::destroyed, [&] { isWorkerGone = true; });
        front.operate();
        sink->waitUntilOpen();
        isReleased = true;
    }
    EXPECT_TRUE(hasFinished);
    EXPECT_TRUE(isWorkerGone);
    EXPECT_EQ(sink->openDisplays(), 0);
}
