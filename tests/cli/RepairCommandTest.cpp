// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

using Names = std::vector<std::string>;

TEST(FreecutRepair, WritesThePartMendedAndLeavesItsFile)
{
    FreecutFolder folder;
    folder.addStl(openBox(2, 3, 4), "open.stl");
    std::string const before = folder.read("open.stl");
    auto const result = folder.run({"repair", "open.stl", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(folder.files(), (Names{"open.stl", "open_repaired.stl"}));
    EXPECT_EQ(folder.read("open.stl"), before);
    EXPECT_EQ(closedSolidFaults(folder.mesh("open_repaired.stl")), "");
    EXPECT_NEAR(volumeOf(folder.mesh("open_repaired.stl")), 24, 1e-5);
    auto const report = result.json();
    EXPECT_EQ(report["command"], "repair");
    EXPECT_EQ(report["parts"][0]["closed"], false);
    EXPECT_EQ(report["parts"][0]["pieces"][0]["closed"], true);
}

TEST(FreecutRepair, AGoodPartStaysAsItIs)
{
    FreecutFolder folder;
    folder.addStl(torus(5, 2, 30, 20), "ring.stl");
    auto const result = folder.run({"repair", "ring.stl"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    // Binary STL files of the same triangles in the same order.
    EXPECT_EQ(folder.mesh("ring_repaired.stl").triangles, folder.mesh("ring.stl").triangles);
}

TEST(FreecutRepair, OnlyAllOfItMendsHolesBesideTheCut)
{
    for (auto const& [options, status] :
         std::vector<std::pair<Names, int>>{{{}, 4},
                                            {{"--repair", "touched"}, 4},
                                            {{"--no-repair"}, 4},
                                            {{"--repair", "all"}, 0}}) {
        FreecutFolder folder;
        folder.addStl(openBox(2, 3, 4), "open.stl");
        Names arguments{"zcut", "open.stl", "--height", "1"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, status) << testing::PrintToString(options) << result.errors;
        bool const isClosed = closedSolidFaults(folder.mesh("open_cut1.stl")).empty();
        EXPECT_EQ(isClosed, status == 0) << testing::PrintToString(options);
    }
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    for (Names const& options :
         std::vector<Names>{{"--repair", "some"}, {"--repair", "all", "--no-repair"}}) {
        Names arguments{"zcut", "part.stl", "--height", "1"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(folder.run(arguments).status, 2) << testing::PrintToString(options);
    }
}
