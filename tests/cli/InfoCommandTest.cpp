// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <fstream>

TEST(FreecutInfo, TellsSizeVolumeAndErrors)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    auto const result = folder.run({"info", "part.stl"});
    ASSERT_EQ(result.status, 0) << result.errors;
    for (char const* text :
         {"part.stl", "triangles  12\n", "vertices   8\n", "shells     1\n",
          "(0, 0, 0) to (2, 3, 4) mm", "24.000 mm3", "52.000 mm2", "closed     yes", "0 open edges",
          "0 pairs of triangles that cross", "0 shells that are inside out"})
        EXPECT_NE(result.output.find(text), std::string::npos) << text << "\n" << result.output;
}

TEST(FreecutInfo, CallsErrorsWhatTheGuideCallsThem)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    auto const result = folder.run({"info", "part.stl"});
    std::ifstream guide(sourcePath("docs/guide.md"));
    std::string line;
    while (std::getline(guide, line) && !line.starts_with("| Error |")) {
    }
    std::getline(guide, line);
    int count = 0;
    while (std::getline(guide, line) && line.starts_with("| ")) {
        std::string const error = line.substr(2, line.find(" |", 2) - 2);
        EXPECT_NE(result.output.find("0 " + error), std::string::npos) << error << "\n"
                                                                       << result.output;
        ++count;
    }
    EXPECT_EQ(count, 7);
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

TEST(FreecutInfo, AnOpenPartHasNoVolume)
{
    FreecutFolder folder;
    folder.addStl(openBox(2, 3, 4), "open.stl");
    auto const result = folder.run({"info", "open.stl"});
    ASSERT_EQ(result.status, 0) << result.errors;
    for (char const* text :
         {"volume     none, it is not closed\n", "closed     no, 4 open edges\n"})
        EXPECT_NE(result.output.find(text), std::string::npos) << text << "\n" << result.output;
    auto const report = folder.run({"info", "open.stl", "--json", "-"}).json();
    EXPECT_TRUE(report["parts"][0]["volume"].is_null());
}

TEST(FreecutInfo, AnEdgeOfFourTrianglesIsNotClosed)
{
    FreecutFolder folder;
    Soup touching = box(1, 1, 1);
    touching.append(box(1, 1, 1, {1, 1, 0}));
    folder.addStl(touching, "touching.stl");
    auto const report = folder.run({"info", "touching.stl", "--json", "-"}).json();
    EXPECT_EQ(report["parts"][0]["closed"], false);
    EXPECT_EQ(report["parts"][0]["errors"]["borderEdges"], 0);
    EXPECT_EQ(report["parts"][0]["errors"]["nonManifoldEdges"], 1);
}

TEST(FreecutInfo, SmallPartsShowEnoughFigures)
{
    FreecutFolder folder;
    folder.addStl(box(0.02f, 0.03f, 0.04f), "tiny.stl");
    auto const result = folder.run({"info", "tiny.stl"});
    EXPECT_NE(result.output.find("0.0000240000 mm3"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("0.00520000 mm2"), std::string::npos) << result.output;
    folder.addStl(box(0.0002f, 0.03f, 0.04f), "flat.stl");
    auto const flat = folder.run({"info", "flat.stl"});
    EXPECT_NE(flat.output.find("to (0.0002, 0.03, 0.04) mm"), std::string::npos) << flat.output;
}

TEST(FreecutInfo, CheckFailsForAPartWithErrors)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "good.stl");
    folder.addStl(crossingBoxes(), "crossing.stl");
    EXPECT_EQ(folder.run({"info", "good.stl", "--check"}).status, 0);
    EXPECT_EQ(folder.run({"info", "good.stl", "crossing.stl"}).status, 0);
    EXPECT_EQ(folder.run({"info", "good.stl", "crossing.stl", "--check"}).status, 1);
}

TEST(FreecutInfo, OutputThatCannotBeWrittenIsAFailure)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    QProcess process;
    folder.prepare(process, {"info", "part.stl"});
    process.setStandardOutputFile("/dev/full");
    process.start();
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 3);
    EXPECT_NE(process.readAllStandardError().toStdString().find("Standard output"),
              std::string::npos);
}

TEST(FreecutInfo, AFileThatCannotBeReadEndsWithThree)
{
    FreecutFolder const folder;
    auto const result = folder.run({"info", "missing.stl"});
    EXPECT_EQ(result.status, 3);
    EXPECT_NE(result.errors.find("missing.stl"), std::string::npos);
}
