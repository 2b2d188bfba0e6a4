// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/BackgroundWork.h"

#include <gtest/gtest.h>
#include <tbb/blocked_range.h>
#include <tbb/global_control.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <sys/resource.h>
#include <thread>

namespace {

/// Of the calling thread alone.
int niceness()
{
    return getpriority(PRIO_PROCESS, 0);
}

void onThread(std::function<void()> const& work)
{
    std::thread(work).join();
}

/// How far each thread stands back that takes part in a loop, of which several do, if several may.
std::map<std::thread::id, int> nicenessOfLoop()
{
    std::mutex mutex;
    std::map<std::thread::id, int> found;
    using Control = tbb::global_control;
    auto const wanted =
        std::min<std::size_t>(2, Control::active_value(Control::max_allowed_parallelism));
    auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    auto const isWaiting = [&] {
        std::lock_guard const lock(mutex);
        return found.size() < wanted && std::chrono::steady_clock::now() < deadline;
    };
    tbb::parallel_for(
        tbb::blocked_range<int>(0, 1000, 1),
        [&](auto const&) {
            {
                std::lock_guard const lock(mutex);
                found[std::this_thread::get_id()] = niceness();
            }
            while (isWaiting())
                std::this_thread::yield();
        },
        tbb::simple_partitioner());
    EXPECT_GE(found.size(), wanted);
    return found;
}

class BackgroundWorkTest : public testing::Test
{
protected:
    ~BackgroundWorkTest() override { BackgroundWork::setGivingWay(false); }
};

}  // namespace

TEST_F(BackgroundWorkTest, KeepsItsPriorityWhereThereIsNoWindow)
{
    int const before = niceness();
    onThread([&] {
        BackgroundWork::giveWay();
        EXPECT_EQ(niceness(), before);
    });
}

#ifdef __linux__

TEST_F(BackgroundWorkTest, StandsBackWithAllThreadsThatShareItsLoops)
{
    int const before = niceness();
    // A thread of loops that has helped somebody else comes along too.
    nicenessOfLoop();
    BackgroundWork::setGivingWay(true);
    onThread([&] {
        BackgroundWork::giveWay();
        EXPECT_GT(niceness(), before);
        for (auto const& [thread, its] : nicenessOfLoop())
            EXPECT_GT(its, before);
    });
    EXPECT_EQ(niceness(), before);
}

TEST_F(BackgroundWorkTest, StaysAsFarBackAsItIs)
{
    BackgroundWork::setGivingWay(true);
    onThread([&] {
        setpriority(PRIO_PROCESS, 0, 15);
        BackgroundWork::giveWay();
        EXPECT_EQ(niceness(), 15);
    });
}

#endif
