// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

using Names = std::vector<std::string>;

TEST(FreecutZCut, WritesBothPiecesUnderTheirNames)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    auto const result = folder.run({"zcut", "part.stl", "--height", "1"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(folder.files(), (Names{"part.stl", "part_cut1.stl", "part_cut2.stl"}));
    for (char const* piece : {"part_cut1.stl", "part_cut2.stl"})
        EXPECT_EQ(closedSolidFaults(folder.mesh(piece)), "") << piece;
    EXPECT_NEAR(volumeOf(folder.mesh("part_cut1.stl")), 18, 1e-5);
    EXPECT_NEAR(volumeOf(folder.mesh("part_cut2.stl")), 6, 1e-5);
    EXPECT_NE(result.output.find("part_cut1.stl"), std::string::npos);
}

TEST(FreecutZCut, TheReportTellsEverythingAndStandsAloneOnStandardOutput)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    auto const result =
        folder.run({"zcut", "part.stl", "--height", "1", "--threads", "1", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    EXPECT_EQ(report["schema"], 1);
    EXPECT_EQ(report["command"], "zcut");
    EXPECT_EQ(report["status"], 0);
    EXPECT_EQ(report["threads"], 1);
    for (char const* stage : {"load", "cut", "save", "total"})
        EXPECT_GE(report["seconds"][stage].get<double>(), 0) << stage;
    ASSERT_EQ(report["parts"].size(), 1u);
    auto const& part = report["parts"][0];
    EXPECT_EQ(part["source"], "part.stl");
    EXPECT_EQ(part["triangles"], 12);
    EXPECT_NEAR(part["volume"].get<double>(), 24, 1e-9);
    EXPECT_EQ(part["closed"], true);
    ASSERT_EQ(part["pieces"].size(), 2u);
    auto const& upper = part["pieces"][0];
    Names fields;
    for (auto const& field : upper.items())
        fields.push_back(field.key());
    EXPECT_EQ(fields,
              (Names{"name", "file", "triangles", "vertices", "shells", "volume", "area", "closed",
                     "borderEdges", "nonManifoldEdges", "inconsistentEdges", "box"}));
    EXPECT_EQ(upper["name"], "part_cut1");
    EXPECT_EQ(upper["file"], "part_cut1.stl");
    EXPECT_EQ(upper["triangles"], folder.mesh("part_cut1.stl").triangles.size());
    EXPECT_EQ(upper["shells"], 1);
    EXPECT_NEAR(upper["volume"].get<double>(), 18, 1e-9);
    EXPECT_NEAR(upper["area"].get<double>(), 42, 1e-9);
    EXPECT_EQ(upper["closed"], true);
    EXPECT_EQ(upper["box"], nlohmann::ordered_json::parse("[0.0,0.0,1.0,2.0,3.0,4.0]"));
}

TEST(FreecutZCut, TheReportGoesToAFileAndReplacesIt)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    folder.addFile("report.json", "old");
    auto const result = folder.run({"zcut", "part.stl", "--height", "1", "--json", "report.json"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output, "");
    EXPECT_EQ(nlohmann::json::parse(folder.read("report.json"))["command"], "zcut");
}

TEST(FreecutZCut, TheReportNeverReplacesAPart)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    std::string const before = folder.read("part.stl");
    EXPECT_EQ(folder.run({"zcut", "part.stl", "--height", "1", "--json", "part.stl"}).status, 2);
    EXPECT_EQ(folder.read("part.stl"), before);
    EXPECT_EQ(folder.files(), Names{"part.stl"});
}

TEST(FreecutZCut, QuietPrintsNothing)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    auto const result = folder.run({"zcut", "part.stl", "--height", "1", "--quiet"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
}

TEST(FreecutZCut, EachPartHasItsHeightInTheOneByOneForm)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 4), "a.stl");
    folder.addStl(box(1, 1, 4), "b.stl");
    auto const result = folder.run(
        {"zcut", "--heights", "1,2.5", "a.stl", "b.stl", "-o", "new/pieces", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(folder.files("new/pieces"),
              (Names{"a_cut1.stl", "a_cut2.stl", "b_cut1.stl", "b_cut2.stl"}));
    EXPECT_NEAR(volumeOf(folder.mesh("new/pieces/a_cut2.stl")), 1, 1e-6);
    EXPECT_NEAR(volumeOf(folder.mesh("new/pieces/b_cut2.stl")), 2.5, 1e-6);
    EXPECT_EQ(result.json()["parts"][1]["source"], "b.stl");
    EXPECT_EQ(result.json()["parts"][1]["pieces"][0]["name"], "b_cut1");
}

TEST(FreecutZCut, APartThatThePlaneMissesStaysWhole)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 4), "a.stl");
    auto const result = folder.run({"zcut", "a.stl", "--height", "-3"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "freecut: a.stl: Nothing was cut: the plane misses the part.\n");
    EXPECT_EQ(folder.files(), (Names{"a.stl", "a_cut.stl"}));
    EXPECT_EQ(volumeOf(folder.mesh("a_cut.stl")), 4);
}

TEST(FreecutZCut, PartsOfOneNameGetPiecesOfDifferentNames)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 4), "a.stl");
    auto const result = folder.run({"zcut", "a.stl", "a.stl", "--height", "1"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(folder.files().size(), 5u);
}

TEST(FreecutZCut, EveryFormatHoldsTheSamePieces)
{
    for (std::string const format : {"stl", "obj", "ply", "3mf"}) {
        FreecutFolder folder;
        folder.addStl(torus(5, 2, 30, 20), "ring.stl");
        auto const result = folder.run({"zcut", "ring.stl", "--height", "0.3", "--format", format});
        ASSERT_EQ(result.status, 0) << format << result.errors;
        double const volume = volumeOf(folder.mesh("ring_cut1." + format)) +
                              volumeOf(folder.mesh("ring_cut2." + format));
        EXPECT_NEAR(volume, volumeOf(torus(5, 2, 30, 20)), 1e-3) << format;
    }
}

TEST(FreecutZCut, PiecesTakeTheSourcesFormatByDefault)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 4), "a.stl");
    ASSERT_EQ(folder.run({"zcut", "a.stl", "--height", "1", "--format", "ply"}).status, 0);
    ASSERT_EQ(folder.run({"zcut", "a_cut1.ply", "--height", "2"}).status, 0);
    EXPECT_NEAR(volumeOf(folder.mesh("a_cut1_cut1.ply")), 2, 1e-6);
}

TEST(FreecutZCut, FilesThatExistAreReplacedOnlyByForce)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 4), "a.stl");
    folder.addFile("a_cut2.stl", "precious");
    auto const refused = folder.run({"zcut", "a.stl", "--height", "1"});
    EXPECT_EQ(refused.status, 3);
    EXPECT_NE(refused.errors.find("a_cut2.stl"), std::string::npos);
    EXPECT_NE(refused.errors.find("--force"), std::string::npos);
    EXPECT_EQ(folder.read("a_cut2.stl"), "precious");
    EXPECT_EQ(folder.files(), (Names{"a.stl", "a_cut2.stl"}));
    EXPECT_EQ(folder.run({"zcut", "a.stl", "--height", "1", "--force"}).status, 0);
    EXPECT_EQ(closedSolidFaults(folder.mesh("a_cut2.stl")), "");
}

TEST(FreecutZCut, ACutThatFailsEndsWithOneAndTheReason)
{
    FreecutFolder folder;
    Soup open = box(2, 3, 4);
    open.triangles.erase(open.triangles.begin() + 4, open.triangles.begin() + 6);
    folder.addStl(open, "open.stl");
    auto const result = folder.run({"zcut", "open.stl", "--height", "2"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors.find("freecut: open.stl: The part is open where the plane meets it"),
              0u)
        << result.errors;
    EXPECT_TRUE(
        result.errors.ends_with(" An error occurred in triangulate. With --repair all the "
                                "part is repaired before it is cut.\n"))
        << result.errors;
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(folder.files(), Names{"open.stl"});
}

TEST(FreecutZCut, WrongUsageEndsWithTwo)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 4), "a.stl");
    for (Names const& arguments :
         std::vector<Names>{{"zcut"},
                            {"zcut", "a.stl"},
                            {"zcut", "--height", "1"},
                            {"zcut", "a.stl", "--height", "1", "--heights", "1"},
                            {"zcut", "a.stl", "--height", "high"},
                            {"zcut", "a.stl", "--height", "nan"},
                            {"zcut", "a.stl", "--height", "inf"},
                            {"zcut", "a.stl", "--height", "-3e38"},
                            {"zcut", "a.stl", "--height", "1e99"},
                            {"zcut", "a.stl", "--height", "1,5"},
                            {"zcut", "a.stl", "--heights", "1,2"},
                            {"zcut", "a.stl", "--height", "1", "--format", "doc"},
                            {"zcut", "a.stl", "--height", "1", "--threads", "0"},
                            {"zcut", "a.stl", "--height", "1", "--nonsense"},
                            {"cut"},
                            {}}) {
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments) << result.errors;
        EXPECT_NE(result.errors, "") << testing::PrintToString(arguments);
    }
    EXPECT_EQ(folder.files(), Names{"a.stl"});
}

TEST(FreecutZCut, FilesThatCannotBeReadOrWrittenEndWithThree)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 4), "a.stl");
    folder.addFile("text.stl", "This is no part.");
    folder.addFile("file", "no folder");
    Names const before = folder.files();
    for (Names const& arguments :
         std::vector<Names>{{"zcut", "missing.stl", "--height", "1"},
                            {"zcut", "text.stl", "--height", "1"},
                            {"zcut", "a.stl", "--height", "1", "-o", "file"},
                            {"zcut", "a.stl", "--height", "1", "-o", "file/below"},
                            {"zcut", "a.stl", "--height", "1", "--json", "missing/r.json"},
                            {"zcut", "a.stl", "--height", "1", "--json", "."}}) {
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 3) << testing::PrintToString(arguments) << result.errors;
        EXPECT_NE(result.errors, "") << testing::PrintToString(arguments);
        EXPECT_EQ(folder.files(), before) << testing::PrintToString(arguments);
    }
}

TEST(FreecutZCut, HelpEndsWithZeroAndShowsExamples)
{
    FreecutFolder const folder;
    for (Names const& arguments :
         std::vector<Names>{{"--help"}, {"zcut", "--help"}, {"info", "--help"}}) {
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_NE(result.output.find("Example"), std::string::npos);
    }
}

TEST(FreecutZCut, TheSameCutGivesTheSameBytesWithAnyNumberOfThreads)
{
    FreecutFolder folder;
    folder.addStl(sphere(10, 60, 80), "ball.stl");
    ASSERT_EQ(
        folder.run({"zcut", "ball.stl", "--height", "1", "-o", "one", "--threads", "1"}).status, 0);
    ASSERT_EQ(
        folder.run({"zcut", "ball.stl", "--height", "1", "-o", "four", "--threads", "4"}).status,
        0);
    for (std::string const piece : {"ball_cut1.stl", "ball_cut2.stl"})
        EXPECT_EQ(folder.read("one/" + piece), folder.read("four/" + piece)) << piece;
}

TEST(FreecutZCut, ALocaleWithADecimalCommaChangesNothing)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 4), "a.stl");
    qputenv("LC_ALL", "de_DE.UTF-8");
    auto const result = folder.run({"zcut", "a.stl", "--height", "1.5", "--json", "-"});
    qunsetenv("LC_ALL");
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_NEAR(result.json()["parts"][0]["pieces"][1]["volume"].get<double>(), 1.5, 1e-9);
}
