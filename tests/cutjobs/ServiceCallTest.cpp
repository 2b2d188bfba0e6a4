// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ServiceCall.h"
#include "tests/cutjobs/ConsoleLines.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Lines = std::vector<std::string>;

/// Runs a call that throws and returns what comes out: "abort: TEXT" or "failure: TEXT".
template <typename Call>
std::string outcomeOf(Call const& call, std::string& reason)
{
    try {
        ServiceCall::run(reason, call);
    } catch (Mell::AbortException const& abort) {
        return std::string("abort: ") + abort.what();
    } catch (char const* text) {
        return std::string("failure: ") + text;
    }
    return "returned";
}

template <typename Call>
std::string outcomeOf(Call const& call)
{
    std::string reason = "untouched";
    std::string const outcome = outcomeOf(call, reason);
    EXPECT_EQ(reason, "untouched");
    return outcome;
}

}  // namespace

TEST(ServiceCall, ReturnsWhatTheCallReturns)
{
    std::string reason;
    EXPECT_EQ(ServiceCall::run(reason, [] { return 7; }), 7);
    EXPECT_EQ(reason, "");
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

TEST(ServiceCall, EverythingElseIsAFailureWhoseReasonIsKeptAndLogged)
{
    ConsoleLines const console;
    std::string reason;
    EXPECT_EQ(outcomeOf([] { throw Mell::Exception("The part is open."); }, reason), "failure: ");
    EXPECT_EQ(reason, "The part is open.");
    EXPECT_EQ(outcomeOf([] { throw std::runtime_error("no memory"); }, reason), "failure: ");
    EXPECT_EQ(reason, "no memory");
    EXPECT_EQ(outcomeOf([] { throw 3; }), "failure: ");
    EXPECT_EQ(console.lines(), (Lines{"The part is open.", "no memory"}));
}
