// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

TEST(FreecutInfo, TellsSizeVolumeAndErrors)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    auto const result = folder.run({"info", "part.stl"});
    ASSERT_EQ(result.status, 0) << result.errors;
    for (char const* text :
         {"part.stl", "triangles  12\n", "vertices   8\n", "shells     1\n",
          "(0, 0, 0) to (2, 3, 4) mm", "24.000 mm3", "52.000 mm2", "closed     yes",
          "0 border edges", "0 self-intersections", "0 misoriented shells"})
        EXPECT_NE(result.output.find(text), std::string::npos) << text << "\n" << result.output;
}

TEST(FreecutInfo, CountsEachKindOfError)
{
    FreecutFolder folder;
    folder.addStl(openBox(2, 3, 4), "open.stl");
    folder.addStl(crossingBoxes(), "crossing.stl");
    auto const result = folder.run({"info", "open.stl", "crossing.stl", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const parts = result.json()["parts"];
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[0]["closed"], false);
    EXPECT_EQ(parts[0]["errors"]["borderEdges"], 4);
    EXPECT_EQ(parts[0]["errors"]["selfIntersections"], 0);
    EXPECT_EQ(parts[1]["closed"], true);
    EXPECT_EQ(parts[1]["shells"], 2);
    EXPECT_GT(parts[1]["errors"]["selfIntersections"], 0);
}

TEST(FreecutInfo, AFileThatCannotBeReadEndsWithThree)
{
    FreecutFolder const folder;
    auto const result = folder.run({"info", "missing.stl"});
    EXPECT_EQ(result.status, 3);
    EXPECT_NE(result.errors.find("missing.stl"), std::string::npos);
}
