// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/CrossingPair.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <signal.h>

namespace {

using Names = std::vector<std::string>;

/// Two boxes of 8 mm3 that have 1 mm3 in common.
void addBoxes(FreecutFolder& folder)
{
    folder.addStl(box(2, 2, 2), "a.stl");
    folder.addStl(box(2, 2, 2, {1, 1, 1}), "b.stl");
}

}  // namespace

TEST(FreecutBoolean, WritesOnePieceNamedAfterTheFirstSolid)
{
    for (auto const& [operation, volume] :
         {std::pair<std::string, double>("union", 15), {"intersect", 1}, {"subtract", 7}}) {
        FreecutFolder folder;
        addBoxes(folder);
        auto const result = folder.run({"boolean", "a.stl", "b.stl", "--" + operation});
        ASSERT_EQ(result.status, 0) << operation << result.errors;
        EXPECT_EQ(result.errors, "");
        std::string const piece = "a_" + operation + ".stl";
        EXPECT_EQ(folder.files(), (Names{"a.stl", piece, "b.stl"}));
        EXPECT_EQ(closedSolidFaults(folder.mesh(piece)), "") << operation;
        EXPECT_NEAR(volumeOf(folder.mesh(piece)), volume, 1e-5) << operation;
        EXPECT_NE(result.output.find(piece), std::string::npos);
    }
}

TEST(FreecutBoolean, SplitWritesWhatIsInsideAndWhatIsOutside)
{
    FreecutFolder folder;
    addBoxes(folder);
    auto const result = folder.run({"boolean", "a.stl", "b.stl", "--split", "-o", "pieces"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(folder.files("pieces"), (Names{"a_inside.stl", "a_outside.stl"}));
    for (char const* const piece : {"pieces/a_inside.stl", "pieces/a_outside.stl"})
        EXPECT_EQ(closedSolidFaults(folder.mesh(piece)), "") << piece;
    EXPECT_NEAR(volumeOf(folder.mesh("pieces/a_inside.stl")), 1, 1e-5);
    EXPECT_NEAR(volumeOf(folder.mesh("pieces/a_outside.stl")), 7, 1e-5);
}

TEST(FreecutBoolean, SubtractTakesTheSecondSolidFromTheFirst)
{
    FreecutFolder folder;
    folder.addStl(box(4, 4, 4), "a.stl");
    folder.addStl(box(2, 2, 2, {1, 1, 3}), "b.stl");
    ASSERT_EQ(folder.run({"boolean", "a.stl", "b.stl", "--subtract"}).status, 0);
    ASSERT_EQ(folder.run({"boolean", "b.stl", "a.stl", "--subtract"}).status, 0);
    EXPECT_NEAR(volumeOf(folder.mesh("a_subtract.stl")), 60, 1e-4);
    EXPECT_NEAR(volumeOf(folder.mesh("b_subtract.stl")), 4, 1e-4);
}

TEST(FreecutBoolean, TheReportTellsOperationPartsAndPieces)
{
    FreecutFolder folder;
    addBoxes(folder);
    auto const result =
        folder.run({"boolean", "a.stl", "b.stl", "--subtract", "--threads", "1", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    Names fields;
    for (auto const& field : report.items())
        fields.push_back(field.key());
    EXPECT_EQ(fields,
              (Names{"schema", "command", "operation", "parts", "status", "seconds", "threads"}));
    EXPECT_EQ(report["command"], "boolean");
    EXPECT_EQ(report["operation"], "subtract");
    EXPECT_EQ(report["threads"], 1);
    ASSERT_EQ(report["parts"].size(), 2u);
    EXPECT_EQ(report["parts"][0]["source"], "a.stl");
    EXPECT_NEAR(report["parts"][0]["volume"].get<double>(), 8, 1e-9);
    EXPECT_EQ(report["parts"][1]["source"], "b.stl");
    EXPECT_TRUE(report["parts"][1]["pieces"].empty());
    ASSERT_EQ(report["parts"][0]["pieces"].size(), 1u);
    auto const& piece = report["parts"][0]["pieces"][0];
    EXPECT_EQ(piece["name"], "a_subtract");
    EXPECT_EQ(piece["file"], "a_subtract.stl");
    EXPECT_EQ(piece["closed"], true);
    EXPECT_NEAR(piece["volume"].get<double>(), 7, 1e-6);
}

TEST(FreecutBoolean, AnEmptyResultIsNoFailure)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 1), "a.stl");
    folder.addStl(box(1, 1, 1, {5, 5, 5}), "b.stl");
    auto const apart = folder.run({"boolean", "a.stl", "b.stl", "--intersect"});
    EXPECT_EQ(apart.status, 0) << apart.errors;
    EXPECT_NE(apart.output.find("Nothing is left"), std::string::npos) << apart.output;
    EXPECT_EQ(folder.files(), (Names{"a.stl", "b.stl"}));
    auto const whole = folder.run({"boolean", "a.stl", "b.stl", "--split"});
    EXPECT_EQ(whole.status, 0) << whole.errors;
    EXPECT_EQ(folder.files(), (Names{"a.stl", "a_outside.stl", "b.stl"}));
    EXPECT_NEAR(volumeOf(folder.mesh("a_outside.stl")), 1, 1e-6);
}

TEST(FreecutBoolean, PiecesTakeTheFirstSolidsFormatOrTheChosenOne)
{
    FreecutFolder folder;
    addBoxes(folder);
    ASSERT_EQ(folder.run({"boolean", "a.stl", "b.stl", "--union", "--format", "ply"}).status, 0);
    ASSERT_EQ(folder.run({"boolean", "a_union.ply", "b.stl", "--subtract"}).status, 0);
    EXPECT_NEAR(volumeOf(folder.mesh("a_union_subtract.ply")), 7, 1e-5);
}

TEST(FreecutBoolean, FilesThatExistAreReplacedOnlyByForce)
{
    FreecutFolder folder;
    addBoxes(folder);
    folder.addFile("a_union.stl", "precious");
    EXPECT_EQ(folder.run({"boolean", "a.stl", "b.stl", "--union"}).status, 3);
    EXPECT_EQ(folder.read("a_union.stl"), "precious");
    EXPECT_EQ(folder.run({"boolean", "a.stl", "b.stl", "--union", "--force"}).status, 0);
    EXPECT_EQ(closedSolidFaults(folder.mesh("a_union.stl")), "");
}

TEST(FreecutBoolean, WrongUsageEndsWithTwo)
{
    FreecutFolder folder;
    addBoxes(folder);
    for (Names const& arguments :
         std::vector<Names>{{"boolean"},
                            {"boolean", "--union"},
                            {"boolean", "a.stl", "--union"},
                            {"boolean", "a.stl", "b.stl"},
                            {"boolean", "a.stl", "b.stl", "a.stl", "--union"},
                            {"boolean", "a.stl", "b.stl", "--union", "--split"},
                            {"boolean", "a.stl", "b.stl", "--unite"},
                            {"boolean", "a.stl", "b.stl", "--union", "--height", "1"},
                            {"boolean", "a.stl", "b.stl", "--union", "--json", "b.stl"}}) {
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments) << result.errors;
        EXPECT_NE(result.errors, "") << testing::PrintToString(arguments);
    }
    EXPECT_EQ(folder.files(), (Names{"a.stl", "b.stl"}));
}

TEST(FreecutBoolean, FilesThatCannotBeReadEndWithThree)
{
    FreecutFolder folder;
    addBoxes(folder);
    folder.addFile("text.stl", "This is no part.");
    for (char const* const file : {"missing.stl", "text.stl"}) {
        auto const result = folder.run({"boolean", "a.stl", file, "--union"});
        EXPECT_EQ(result.status, 3) << result.errors;
        EXPECT_NE(result.errors.find(file), std::string::npos) << result.errors;
    }
}

TEST(FreecutBoolean, HelpEndsWithZeroAndShowsExamples)
{
    FreecutFolder const folder;
    auto const result = folder.run({"boolean", "--help"});
    EXPECT_EQ(result.status, 0);
    for (char const* const text : {"Example", "--union", "--intersect", "--subtract", "--split"})
        EXPECT_NE(result.output.find(text), std::string::npos) << text;
}

TEST(FreecutBoolean, CtrlCEndsWith130AndLeavesNoFile)
{
    FreecutFolder folder;
    folder.addStl(sphere(50, 500, 700), "a.stl");
    folder.addStl(sphere(50, 500, 700, {20.1f, 10.3f, 5.7f}), "b.stl");
    QProcess process;
    folder.prepare(process, {"boolean", "a.stl", "b.stl", "--union", "-o", "pieces"});
    process.start();
    ASSERT_TRUE(waitUntilInterruptible(process));
    sendSignal(process, SIGINT);
    process.waitForFinished(-1);
    ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 130);
    EXPECT_EQ(folder.files(), (Names{"a.stl", "b.stl"}));
}

TEST(FreecutBoolean, TheSameBooleanGivesTheSameBytesWithAnyNumberOfThreads)
{
    FreecutFolder folder;
    folder.addStl(sphere(10, 60, 80), "a.stl");
    folder.addStl(torus(10, 3, 60, 40), "b.stl");
    for (std::string const threads : {"1", "4"})
        ASSERT_EQ(
            folder
                .run({"boolean", "a.stl", "b.stl", "--split", "-o", threads, "--threads", threads})
                .status,
            0);
    for (std::string const piece : {"/a_inside.stl", "/a_outside.stl"})
        EXPECT_EQ(folder.read("1" + piece), folder.read("4" + piece)) << piece;
}

TEST(FreecutBoolean, NamesTheFileThatIsToBlameAndThePlace)
{
    FreecutFolder folder;
    folder.addStl(box(10, 10, 10), "whole.stl");
    // Its border crosses the other's side x = 10.
    Soup lidless = openBox(4, 4, 5);
    for (auto& p : lidless.points)
        p += UVector3<float>(8, 3, 2);
    folder.addStl(lidless, "lidless.stl");
    auto const asTool = folder.run({"boolean", "whole.stl", "lidless.stl", "--subtract"});
    EXPECT_EQ(asTool.status, 1);
    EXPECT_NE(asTool.errors.find("lidless.stl: The tool is open where the two meet, near (10, "),
              std::string::npos)
        << asTool.errors;
    auto const asPart = folder.run({"boolean", "lidless.stl", "whole.stl", "--subtract"});
    EXPECT_EQ(asPart.status, 1);
    EXPECT_NE(asPart.errors.find("lidless.stl: The part is open where the two meet, near (10, "),
              std::string::npos)
        << asPart.errors;
    for (auto const& refused : {asTool, asPart})
        EXPECT_TRUE(refused.errors.ends_with(" Repair it (freecut repair) and try again.\n"))
            << refused.errors;
    EXPECT_EQ(folder.files().size(), 2u);
}

TEST(FreecutBoolean, TellsThatAPieceCrossesItselfByRounding)
{
    FreecutFolder folder;
    SolidPair const pair = pairLeftCrossing();
    folder.addStl(pair.a, "a.stl");
    folder.addStl(pair.b, "b.stl");
    auto const result =
        folder.run({"boolean", "a.stl", "b.stl", "--subtract", "--json", "-", "--quiet"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_NE(result.errors.find("A piece crosses itself where coordinates had to be rounded."),
              std::string::npos)
        << result.errors;
    auto const remarks = result.json()["parts"][0]["remarks"];
    ASSERT_EQ(remarks.size(), 1u);
    EXPECT_EQ(remarks[0]["kind"], "pieceCrossesItself");
    EXPECT_FALSE(remarks[0]["places"].empty());
}
