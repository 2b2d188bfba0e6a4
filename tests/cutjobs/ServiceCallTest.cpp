// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ServiceCall.h"
#include "platform/jobs/FlawException.h"
#include "tests/cutjobs/ConsoleLines.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Lines = std::vector<std::string>;

/// Runs a call that throws and returns what comes out: "abort: TEXT" or "failure: TEXT".
template <typename Call>
std::string outcomeOf(Call const& call, CutFailure& failure)
{
    try {
        ServiceCall::run(failure, call);
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
    CutFailure failure;
    failure.reason = "untouched";
    std::string const outcome = outcomeOf(call, failure);
    EXPECT_EQ(failure.reason, "untouched");
    return outcome;
}

}  // namespace

TEST(ServiceCall, ReturnsWhatTheCallReturns)
{
    CutFailure failure;
    EXPECT_EQ(ServiceCall::run(failure, [] { return 7; }), 7);
    EXPECT_EQ(failure.reason, "");
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
    CutFailure failure;
    EXPECT_EQ(outcomeOf([] { throw Mell::Exception("The part is open."); }, failure), "failure: ");
    EXPECT_EQ(failure.reason, "The part is open.");
    EXPECT_EQ(outcomeOf([] { throw std::runtime_error("no memory"); }, failure), "failure: ");
    EXPECT_EQ(failure.reason, "no memory");
    EXPECT_EQ(outcomeOf([] { throw 3; }), "failure: ");
    EXPECT_EQ(console.lines(), (Lines{"The part is open.", "no memory"}));
}

TEST(ServiceCall, APlaceThatIsNamedIsKeptWithItsReasonAndWithNoOther)
{
    ConsoleLines const console;
    CutFailure failure;
    UPoint3<float> const place(1, 2, 3);
    EXPECT_EQ(outcomeOf([&] { throw Mell::FlawException("Open.", place, true); }, failure),
              "failure: ");
    EXPECT_EQ(failure.reason, "Open.");
    EXPECT_EQ(failure.place, place);
    EXPECT_TRUE(failure.repairMayHelp);
    EXPECT_EQ(outcomeOf([] { throw Mell::Exception("No memory."); }, failure), "failure: ");
    EXPECT_EQ(failure.place, std::nullopt);
    EXPECT_FALSE(failure.repairMayHelp);
}
