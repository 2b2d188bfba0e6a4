// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Errors.h"
#include "cli/ExitStatus.h"
#include "cli/Failure.h"
#include "host/formats/FileError.h"
#include "platform/jobs/Exceptions.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace {

/// What is made of something thrown.
template <typename Thrown>
Failure failureOf(Thrown const& thrown)
{
    try {
        throw thrown;
    } catch (...) {
        return failureInFlight();
    }
}

}  // namespace

TEST(FreecutFailure, WhateverIsThrownHasAStatusAndASentence)
{
    EXPECT_EQ(failureOf(UsageError("Give --height.")).status, EXIT_WRONG_USAGE);
    EXPECT_EQ(failureOf(Formats::FileError("a.stl", "it is empty.")).status, EXIT_FILE_FAILED);
    EXPECT_EQ(failureOf(Mell::Exception("The part is open.")).message, "The part is open.");
    EXPECT_EQ(failureOf(std::runtime_error("Broken.")).message, "Broken.");
    EXPECT_NE(failureOf(std::bad_alloc()).message.find("memory"), std::string::npos);
    // As a job ends whose reason has been told elsewhere, and as nobody should.
    char const* const empty = "";
    for (Failure const& failure : {failureOf(empty), failureOf(7)}) {
        EXPECT_EQ(failure.status, EXIT_CUT_FAILED);
        EXPECT_EQ(failure.message.find("An unknown error occurred"), 0u);
    }
    char const* const text = "It is too cold.";
    EXPECT_EQ(failureOf(text).message, "It is too cold.");
    EXPECT_EQ(failureOf(text).status, EXIT_CUT_FAILED);
}
