// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/Termination.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <signal.h>

using Names = std::vector<std::string>;

namespace {

/// A scan with many folds, and an opening at one end.
Soup hardPart()
{
    Soup soup = corpus::noisyScan(60, 90, 0.3f, 5);
    soup.triangles.erase(soup.triangles.begin(), soup.triangles.begin() + 40);
    return soup;
}

/// Ends a command at many moments, the later ones in other stages. It must end by itself each time,
/// and leave all of its files or none.
void endAtManyMoments(Names const& arguments)
{
    FreecutFolder folder;
    folder.addStl(hardPart(), "part.stl");
    double slowest = 0;
    std::size_t cancelled = 0;
    for (double moment = 0.05; moment < 60; moment += 0.1 + moment / 4) {
        QProcess process;
        folder.prepare(process, arguments);
        process.start();
        ASSERT_TRUE(waitUntilInterruptible(process));
        Termination const end = terminateAfter(process, moment);
        ASSERT_FALSE(end.hasCrashed) << moment;
        if (end.exitCode != 128 + SIGTERM)
            break;
        ++cancelled;
        slowest = std::max(slowest, end.secondsToEnd);
        EXPECT_EQ(folder.files(), Names{"part.stl"}) << moment;
        EXPECT_NE(process.readAllStandardError().toStdString().find("Cancelled"),
                  std::string::npos);
    }
    EXPECT_GT(cancelled, 0u);
    testing::Test::RecordProperty("processor_seconds_to_end", std::to_string(slowest));
}

}  // namespace

TEST(FreecutRepairCancel, ARepairEndsAtAnyMomentAndLeavesNoFile)
{
    endAtManyMoments({"repair", "part.stl"});
}

TEST(FreecutRepairCancel, ACutThatMendsItsPiecesDoesTheSame)
{
    endAtManyMoments({"zcut", "part.stl", "--height", "0.37", "--repair", "all"});
}
