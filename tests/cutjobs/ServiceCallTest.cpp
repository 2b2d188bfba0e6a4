// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ServiceCall.h"
#include "tests/cutjobs/ConsoleLines.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Lines = std::vector<std::string>;

/// Runs a call that throws and returns what comes out: "abort: TEXT" or "failure: TEXT".
template <typename Call>
std::string outcomeOf(Call const& call)
{
    try {
        ServiceCall::run(call);
    } catch (Mell::AbortException const& abort) {
        return std::string("abort: ") + abort.what();
    } catch (char const* text) {
        return std::string("failure: ") + text;
    }
    return "returned";
}

}  // namespace

TEST(ServiceCall, ReturnsWhatTheCallReturns)
{
    EXPECT_EQ(ServiceCall::run([] { return 7; }), 7);
}

TEST(ServiceCall, TheUsersCancelStaysAnAbort)
{
    ConsoleLines const console;
    EXPECT_EQ(outcomeOf([] { throw Mell::AbortException("Aborting..."); }), "abort: Aborting...");
    EXPECT_EQ(console.lines(), Lines{"Command Abort."});
}

TEST(ServiceCall, AnAbortWithAnotherTextIsAFailure)
{
    ConsoleLines const console;
    for (char const* text : {"Aborting", "Aborting....", "aborting...", "", "Stop"})
        EXPECT_EQ(outcomeOf([&] { throw Mell::AbortException(text); }), "failure: ") << text;
    EXPECT_EQ(console.lines(), Lines(5, "Command Abort."));
}

TEST(ServiceCall, EverythingElseIsAFailureAndItsReasonIsLogged)
{
    ConsoleLines const console;
    EXPECT_EQ(outcomeOf([] { throw Mell::Exception("The part is open."); }), "failure: ");
    EXPECT_EQ(outcomeOf([] { throw std::runtime_error("no memory"); }), "failure: ");
    EXPECT_EQ(outcomeOf([] { throw 3; }), "failure: ");
    EXPECT_EQ(console.lines(), (Lines{"The part is open.", "no memory"}));
}

TEST(ServiceCall, WhatTheJobHoldsIsFreedBeforeTheExceptionGoesOn)
{
    int freed = 0;
    auto const onLeave = [&] { ++freed; };
    EXPECT_THROW(ServiceCall::run([] { throw Mell::AbortException("Aborting..."); }, onLeave),
                 Mell::AbortException);
    EXPECT_EQ(freed, 1);
    EXPECT_THROW(ServiceCall::run([] { throw 1; }, onLeave), char const*);
    EXPECT_EQ(freed, 2);
    ServiceCall::run([] {}, onLeave);
    EXPECT_EQ(freed, 2);
}
