// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

namespace {

/// Plates that stand, or lie, side by side: a pair of these crosses everywhere.
Soup plates(int count, bool areUpright)
{
    Soup soup;
    auto const length = float(2 * count + 1);
    for (int i = 0; i < count; ++i) {
        auto const place = float(2 * i + 1);
        soup.append(areUpright ? box(1, length, length, {place, 0, 0})
                               : box(length, 1, length, {0, place, 0.5f}));
    }
    return soup;
}

}  // namespace

/// More than a million pairs of triangles meet, for which there is no room.
TEST(BooleanCommand, WithTooLittleMemoryEndsWithASentenceAndWritesNothing)
{
    if (isUnderSanitizers)
        GTEST_SKIP() << "Sanitizers take more address space than the limit.";
    // The first is too little for the contacts, the second for what becomes of them.
    for (char const* const kibibytes : {"400000", "550000"}) {
        FreecutFolder folder;
        folder.addStl(plates(250, true), "a.stl");
        folder.addStl(plates(250, false), "b.stl");
        QProcess process;
        folder.prepare(process, {});
        process.setProgram("sh");
        process.setArguments(
            {"-c",
             QString("ulimit -v %1; exec \"$0\" boolean a.stl b.stl --subtract").arg(kibibytes),
             QString::fromStdString(builtPath("freecut"))});
        process.start();
        ASSERT_TRUE(process.waitForFinished(120'000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 1);
        std::string const errors = process.readAllStandardError().toStdString();
        EXPECT_NE(errors.find("The two solids meet in too many places to be combined. Move one of "
                              "them a little and try again."),
                  std::string::npos)
            << kibibytes << ": " << errors;
        EXPECT_EQ(folder.files(), (std::vector<std::string>{"a.stl", "b.stl"}));
    }
}
