// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/AllOrNothing.h"

#include "tests/support/CancelledProcess.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

void expectAllOrNothing(FreecutFolder& folder, std::vector<std::string> const& arguments)
{
    using Names = std::vector<std::string>;
    Names const inputs = folder.files();
    CancelledProcess const process(builtPath("freecut"), arguments, folder.path("."));
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
