// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryFolder.h"
#include "host/document/DocumentProject.h"
#include "tests/app/ObjectStates.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/CancelledProcess.h"
#include "tests/support/Places.h"
#include "tests/support/TestDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <random>

using testing::IsEmpty;

namespace {

/// What a killed program had written down.
struct Log
{
    /// Fingerprints, in the order in which the states came to be.
    std::vector<std::uint64_t> states;
    /// How many states there were when the last but one had been kept: the last that was kept is
    /// none of an earlier time.
    std::size_t least = 0;
    int kept = 0;
};

Log readLog(std::filesystem::path const& path)
{
    Log log;
    std::ifstream file(path);
    std::size_t atLastKept = 0;
    for (std::string word; file >> word;) {
        std::uint64_t fingerprint = 0;
        if (word == "kept") {
            log.least = std::exchange(atLastKept, log.states.size());
            ++log.kept;
        } else if (file >> fingerprint) {
            log.states.push_back(fingerprint);
        }
    }
    return log;
}

std::uint64_t recoveredFingerprint(RecoveryFolder const& folder)
{
    RecoveryFolder::Contents contents = folder.read([](int) {});
    EXPECT_THAT(contents.problems, IsEmpty());
    TestDocument scene;
    addProject(*scene.document, std::move(contents.objects));
    return fingerprintOf(*scene.document);
}

}  // namespace

TEST(Recovery, AfterAKillAtAnyMomentOneOfTheStatesThatExistedIsThere)
{
    constexpr int kills = 200;
    std::mt19937 random(20);
    // Most moments fall into the first writing, where one is as good as another; a few later ones
    // are there for what replaces older states.
    std::uniform_real_distribution<double> early(0.02, 0.1), late(0.1, 0.3);
    int recovered = 0;
    for (int run = 0; run < kills; ++run) {
        ScratchFolder const folder;
        double const seconds = run % 5 == 0 ? late(random) : early(random);
        CancelledProcess const victim(
            builtPath("recovery_victim"),
            {(folder / "r").string(), std::to_string(run), (folder / "log").string()});
        ASSERT_TRUE(victim.cancelAfter(seconds, SIGKILL).isInterrupted);
        Log const log = readLog(folder / "log");
        auto const left = RecoveryFolder::leftOver(folder / "r");
        if (left.empty()) {
            EXPECT_EQ(log.kept, 0) << "run " << run;
            continue;
        }
        ++recovered;
        std::uint64_t const fingerprint = recoveredFingerprint(*left[0]);
        auto const known =
            std::find(log.states.begin() + std::ptrdiff_t(log.least ? log.least - 1 : 0),
                      log.states.end(), fingerprint);
        EXPECT_NE(known, log.states.end())
            << "run " << run << ", " << seconds << " s, " << log.states.size() << " states, "
            << log.kept << " kept";
    }
    EXPECT_GT(recovered, kills / 4);
}
