// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PolledWork.h"
#include "platform/jobs/Exceptions.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(PolledWork, ACancelDoesNotWaitForWorkThatCannotBeInterrupted)
{
    std::promise<void> gate;
    auto const isOpen = gate.get_future().share();
    int polls = 0;
    EXPECT_THROW(runPolled(
                     [isOpen] {
                         isOpen.wait();
                         return 1;
                     },
                     [&] {
                         if (++polls == 3)
                             throw Mell::AbortException("Aborting...");
                     }),
                 Mell::AbortException);
    EXPECT_EQ(polls, 3);
    gate.set_value();
}

TEST(PolledWork, GivesWhatTheWorkGivesAndThrowsWhatItThrows)
{
    auto const nothing = [] {};
    EXPECT_EQ(runPolled([] { return 7; }, nothing), 7);
    EXPECT_THROW(runPolled([]() -> int { throw std::runtime_error("no"); }, nothing),
                 std::runtime_error);
}

TEST(PolledWork, WithoutAPollItIsDoneHere)
{
    EXPECT_EQ(runPolled([] { return std::this_thread::get_id(); }, {}), std::this_thread::get_id());
    EXPECT_NE(runPolled([] { return std::this_thread::get_id(); }, [] {}),
              std::this_thread::get_id());
}
