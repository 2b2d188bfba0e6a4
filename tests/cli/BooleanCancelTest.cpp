// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/CancelledProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace {

using Names = std::vector<std::string>;

/// Asks a boolean to end at many moments between its first read byte and its last written one.
void expectAllOrNothing(Soup const& a, Soup const& b, std::string const& operation)
{
    SCOPED_TRACE(operation);
    FreecutFolder folder;
    folder.addStl(a, "a.stl");
    folder.addStl(b, "b.stl");
    Names const inputs{"a.stl", "b.stl"};
    CancelledProcess const process(
        builtPath("freecut"),
        {"boolean", "a.stl", "b.stl", operation, "--allow-open", "-o", "pieces"}, folder.path("."));
    CancelledProcess::End const whole = process.run();
    ASSERT_EQ(whole.status, 0);
    std::size_t const pieces = folder.files("pieces").size();
    int cancelled = 0;
    for (double const share : {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 0.97}) {
        SCOPED_TRACE(share);
        std::filesystem::remove_all(folder.path("pieces"));
        CancelledProcess::End const end = process.cancelAfter(share * whole.seconds, SIGTERM);
        if (end.status == 0) {
            EXPECT_EQ(folder.files("pieces").size(), pieces);
            continue;
        }
        EXPECT_EQ(end.status, 128 + SIGTERM);
        ++cancelled;
        Names left = folder.files();
        std::erase(left, "pieces");
        EXPECT_EQ(left, inputs);
        if (folder.files().size() > inputs.size()) {
            EXPECT_EQ(folder.files("pieces"), Names());
        }
    }
    EXPECT_GT(cancelled, 0);
}

Soup besideItself(Soup soup, float distance)
{
    for (auto& p : soup.points)
        p += UVector3<float>(0.6f * distance, 0.5f * distance, 0.62f * distance);
    return soup;
}

}  // namespace

TEST(FreecutCancel, ABooleanOfNearCopiesLeavesAllPiecesOrNone)
{
    Soup const ball = sphere(50, 120, 160);
    expectAllOrNothing(ball, besideItself(ball, 1e-3f), "--subtract");
    expectAllOrNothing(ball, besideItself(ball, 1), "--split");
}

/// Such operands are held against their results in the end.
TEST(FreecutCancel, ABooleanOfCrossingOperandsLeavesAllPiecesOrNone)
{
    Soup balls = sphere(50, 120, 160);
    balls.append(besideItself(sphere(40, 100, 120), 20));
    expectAllOrNothing(balls, besideItself(balls, 5), "--union");
}
