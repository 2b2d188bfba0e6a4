// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/BlockSection.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <signal.h>

namespace {

using Names = std::vector<std::string>;

Names fieldsOf(nlohmann::ordered_json const& object)
{
    Names fields;
    for (auto const& field : object.items())
        fields.push_back(field.key());
    return fields;
}

}  // namespace

TEST(FreecutSection, APlainCutWritesTheUpperPieceFirst)
{
    BlockFolder const folder;
    auto const result = folder.run(sectionOf({"block.stl"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(folder.files(), (Names{"block.stl", "block_cut1.stl", "block_cut2.stl"}));
    for (char const* const piece : {"block_cut1.stl", "block_cut2.stl"}) {
        EXPECT_EQ(closedSolidFaults(folder.mesh(piece)), "") << piece;
        EXPECT_NEAR(volumeOf(folder.mesh(piece)), 12000, 1e-2) << piece;
    }
    for (UPoint3<float> const& point : folder.mesh("block_cut1.stl").points)
        EXPECT_GE(point.Z(), 10);
}

TEST(FreecutSection, ASlantingPlaneCutsWhereItStands)
{
    FreecutFolder folder;
    folder.addStl(box(20, 20, 20), "block.stl");
    auto const result = folder.run(
        {"section", "block.stl", "--center", "10,10,10", "--normal", "-3,-3,-3", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const part = result.json()["parts"][0];
    // The regular hexagon through six edge midpoints of the cube.
    EXPECT_NEAR(part["section"]["area"].get<double>(), 300 * std::sqrt(3.0), 1e-2);
    EXPECT_EQ(part["section"]["contours"], 1);
    for (auto const& piece : part["pieces"])
        EXPECT_NEAR(piece["volume"].get<double>(), 4000, 1e-2);
}

TEST(FreecutSection, TheReportTellsPlaneSectionAndPositions)
{
    BlockFolder const folder;
    auto const result = folder.run(sectionOf({"block.stl"}, {"--pins", "--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    EXPECT_EQ(fieldsOf(report), (Names{"schema", "command", "connectors", "plane", "dryRun",
                                       "parts", "status", "seconds", "threads"}));
    EXPECT_EQ(report["command"], "section");
    EXPECT_EQ(report["connectors"], "pins");
    EXPECT_EQ(report["dryRun"], false);
    EXPECT_EQ(fieldsOf(report["plane"]), (Names{"center", "normal", "size", "bounded"}));
    EXPECT_EQ(report["plane"]["center"], nlohmann::ordered_json::parse("[20.0,15.0,10.0]"));
    EXPECT_EQ(report["plane"]["normal"], nlohmann::ordered_json::parse("[0.0,0.0,1.0]"));
    EXPECT_NEAR(report["plane"]["size"][0].get<double>(), std::sqrt(2900.0), 1e-4);
    EXPECT_EQ(report["plane"]["bounded"], false);
    auto const& part = report["parts"][0];
    EXPECT_EQ(fieldsOf(part),
              (Names{"source", "triangles", "volume", "closed", "section", "positions", "pieces"}));
    EXPECT_NEAR(part["section"]["area"].get<double>(), 1200, 1e-3);
    EXPECT_EQ(part["section"]["contours"], 1);
    ASSERT_FALSE(part["positions"].empty());
    for (auto const& position : part["positions"]) {
        EXPECT_GT(position[0].get<double>(), 2);
        EXPECT_LT(position[0].get<double>(), 38);
        EXPECT_NEAR(position[2].get<double>(), 10, 1e-4);
    }
    ASSERT_EQ(part["pieces"].size(), 2u);
    EXPECT_EQ(part["pieces"][0]["name"], "block_cut1");
}

TEST(FreecutSection, EachPositionGetsAPinAndAHole)
{
    BlockFolder const folder;
    auto const result = folder.run(
        sectionOf({"block.stl"}, {"--pins", "--radius", "1.5", "--height", "4", "--spacing", "10",
                                  "--top-clearance", "0.5", "--side-clearance", "0.25",
                                  "--face-clearance", "0", "--tolerance", "0.001", "--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const part = result.json()["parts"][0];
    auto const count = double(part["positions"].size());
    ASSERT_GE(count, 2);
    double const pin = std::numbers::pi * 1.5 * 1.5 * 4;
    double const hole = std::numbers::pi * 1.75 * 1.75 * 4.5;
    EXPECT_NEAR(part["pieces"][0]["volume"].get<double>(), 12000 + count * pin, count);
    EXPECT_NEAR(part["pieces"][1]["volume"].get<double>(), 12000 - count * hole, count);
    for (auto const& piece : part["pieces"])
        EXPECT_EQ(closedSolidFaults(folder.mesh(piece["file"])), "");
}

TEST(FreecutSection, HolesGoIntoBothPieces)
{
    BlockFolder const folder;
    auto const result = folder.run(sectionOf({"block.stl"}, {"--holes", "--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    EXPECT_EQ(report["connectors"], "holes");
    EXPECT_FALSE(report["parts"][0]["positions"].empty());
    for (auto const& piece : report["parts"][0]["pieces"]) {
        EXPECT_LT(piece["volume"].get<double>(), 11990);
        EXPECT_EQ(closedSolidFaults(folder.mesh(piece["file"])), "");
    }
}

TEST(FreecutSection, TheSideDistanceBringsConnectorsToTheContour)
{
    BlockFolder const folder;
    auto const result = folder.run(
        sectionOf({"block.stl"}, {"--pins", "--side-distance", "4.5", "--dry-run", "--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const part = result.json()["parts"][0];
    ASSERT_FALSE(part["positions"].empty());
    for (auto const& position : part["positions"]) {
        double const x = position[0], y = position[1];
        EXPECT_NEAR(std::min({x, 40 - x, y, 30 - y}), 4.5, 0.01);
    }
}

TEST(FreecutSection, ALapJointLeavesATongueAndANotch)
{
    BlockFolder const folder;
    auto const result =
        folder.run(sectionOf({"block.stl"}, {"--lap-joint", "--notch-depth", "2", "--side-distance",
                                             "3", "--notch-clearance", "0.5", "--front-clearance",
                                             "0.25", "--back-clearance", "0.75", "--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    EXPECT_EQ(report["connectors"], "lap-joint");
    auto const& part = report["parts"][0];
    EXPECT_EQ(fieldsOf(part),
              (Names{"source", "triangles", "volume", "closed", "section", "pieces"}));
    EXPECT_NEAR(part["pieces"][0]["box"][5].get<double>(), 12, 1e-4);
    EXPECT_NEAR(part["pieces"][1]["box"][2].get<double>(), 10.25, 1e-4);
    for (auto const& piece : part["pieces"])
        EXPECT_EQ(closedSolidFaults(folder.mesh(piece["file"])), "");
}

TEST(FreecutSection, ALapJointFollowsTheContoursThatAreChosen)
{
    FreecutFolder folder;
    folder.addStl(tube(20, 10, 20, 64), "tube.stl");
    std::map<std::string, double> volumes;
    for (std::string const which : {"outer", "inner", "all"}) {
        auto const result =
            folder.run({"section", "tube.stl", "--center", "0,0,10", "--normal", "0,0,1",
                        "--lap-joint", "--based-on", which, "-o", which, "--json", "-"});
        ASSERT_EQ(result.status, 0) << result.errors;
        auto const part = result.json()["parts"][0];
        EXPECT_EQ(part["section"]["contours"], 2);
        volumes[which] = part["pieces"][0]["volume"];
    }
    EXPECT_NE(volumes["outer"], volumes["inner"]);
    EXPECT_NE(volumes["outer"], volumes["all"]);
    EXPECT_NE(volumes["inner"], volumes["all"]);
}

TEST(FreecutSection, ConnectorsThatLeaveThePartAreToldWithTheOptionToBlame)
{
    // Above the plane the block goes on for 1.5 mm.
    BlockFolder const folder;
    for (auto const& [option, sentence] : std::vector<std::pair<std::string, std::string>>{
             {"--pins", "Choose a smaller --height."},
             {"--holes", "Choose a smaller --height."},
             {"--lap-joint", "Choose a smaller --notch-depth."}}) {
        auto const result = folder.run({"section", "block.stl", "--center", "20,15,18.5",
                                        "--normal", "0,0,1", option, "--force", "--json", "-"});
        ASSERT_EQ(result.status, 0) << result.errors;
        EXPECT_NE(result.errors.find("only 1.5 mm"), std::string::npos) << result.errors;
        EXPECT_NE(result.errors.find(sentence), std::string::npos) << result.errors;
        auto const remarks = result.json()["parts"][0]["remarks"];
        ASSERT_FALSE(remarks.empty());
        EXPECT_EQ(remarks[0]["kind"], "connectorLeavesPart");
        EXPECT_NEAR(remarks[0]["places"][0][2].get<double>(), 18.5, 1e-3);
    }
}

TEST(FreecutSection, TheRunTellsTheSamePositionsAsADryRun)
{
    BlockFolder const folder;
    auto const dry = folder.run(sectionOf({"block.stl"}, {"--pins", "--dry-run", "--json", "-"}));
    auto const run = folder.run(sectionOf({"block.stl"}, {"--pins", "--json", "-"}));
    auto const dryPart = dry.json()["parts"][0];
    auto const runPart = run.json()["parts"][0];
    ASSERT_FALSE(dryPart["positions"].empty());
    EXPECT_EQ(runPart["positions"], dryPart["positions"]);
    EXPECT_EQ(runPart["section"]["contours"], dryPart["section"]["contours"]);
    EXPECT_NEAR(runPart["section"]["area"].get<double>(), dryPart["section"]["area"].get<double>(),
                1e-6);
}

TEST(FreecutSection, ASectionTooSmallForAPinIsToldAndCutPlainly)
{
    BlockFolder const folder;
    auto const result =
        folder.run(sectionOf({"block.stl"}, {"--pins", "--radius", "18", "--spacing", "50", "-o",
                                             "pieces", "--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_NE(result.errors.find("block.stl: The section has no room for a connector"),
              std::string::npos)
        << result.errors;
    auto const part = result.json()["parts"][0];
    EXPECT_TRUE(part["positions"].empty());
    ASSERT_EQ(part["remarks"].size(), 1u);
    EXPECT_EQ(part["remarks"][0]["kind"], "noRoomForConnectors");
    EXPECT_NE(result.errors.find("--radius"), std::string::npos) << result.errors;
    ASSERT_EQ(part["pieces"].size(), 2u);
    EXPECT_NEAR(part["pieces"][0]["volume"].get<double>(), 12000, 12);
}

TEST(FreecutSection, ASectionTooSmallForALapJointIsToldAndCutPlainly)
{
    BlockFolder const folder;
    std::string const sentence =
        "The section has no room for a lap joint, so its halves are plain.";
    for (Names const& options : std::vector<Names>{{"--side-distance", "15"},
                                                   {"--based-on", "inner"},
                                                   {"--side-distance", "100", "--dry-run"}}) {
        Names all{"--lap-joint", "-o", "pieces", "--force", "--json", "report.json"};
        all.insert(all.end(), options.begin(), options.end());
        auto const result = folder.run(sectionOf({"block.stl"}, all));
        ASSERT_EQ(result.status, 0) << result.errors;
        EXPECT_EQ(result.errors.find("freecut: block.stl: " + sentence), 0u) << result.errors;
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1);
        auto const part = nlohmann::json::parse(folder.read("report.json"))["parts"][0];
        ASSERT_EQ(part["remarks"].size(), 1u);
        EXPECT_EQ(part["remarks"][0]["text"].get<std::string>().find(sentence), 0u);
        if (options.back() == "--dry-run")
            continue;
        ASSERT_EQ(part["pieces"].size(), 2u);
        EXPECT_NEAR(part["pieces"][0]["volume"].get<double>(), 12000, 1e-2);
        EXPECT_NEAR(part["pieces"][1]["volume"].get<double>(), 1200 * 9.8, 1e-1);
    }
}

TEST(FreecutSection, ADryRunMeasuresAndWritesNothing)
{
    BlockFolder const folder;
    auto const result = folder.run(
        sectionOf({"block.stl"}, {"--pins", "--dry-run", "-o", "pieces", "--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    EXPECT_EQ(report["dryRun"], true);
    EXPECT_NEAR(report["parts"][0]["section"]["area"].get<double>(), 1200, 1e-3);
    EXPECT_TRUE(report["parts"][0]["pieces"].empty());
    EXPECT_EQ(folder.files(), Names{"block.stl"});
    auto const cut =
        folder.run(sectionOf({"block.stl"}, {"--pins", "-o", "pieces", "--json", "-"}));
    EXPECT_EQ(cut.json()["parts"][0]["positions"], report["parts"][0]["positions"]);
    auto const table = folder.run(sectionOf({"block.stl"}, {"--pins", "--dry-run"}));
    EXPECT_NE(table.output.find("1200 mm2 in 1 contour, room for"), std::string::npos)
        << table.output;
}

TEST(FreecutSection, ABoundedPlaneCutsOnlyWhatLiesWithinIt)
{
    FreecutFolder folder;
    // A bridge on two posts.
    folder.addStl(fromFrontView({"###", "#.#"}), "bridge.stl");
    Names const plane = {"section", "bridge.stl", "--center", "5,5,5",  "--normal",
                         "0,0,1",   "--size",     "12,12",    "--json", "-"};
    auto const run = [&](Names const& more) {
        Names arguments = plane;
        arguments.insert(arguments.end(), more.begin(), more.end());
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 0) << result.errors;
        return result.json()["parts"][0];
    };
    auto const bounded = run({"--bounded", "-o", "bounded"});
    EXPECT_NEAR(bounded["section"]["area"].get<double>(), 100, 1e-3);
    EXPECT_EQ(bounded["section"]["contours"], 1);
    auto const unbounded = run({"-o", "unbounded"});
    EXPECT_NEAR(unbounded["section"]["area"].get<double>(), 200, 1e-3);
    EXPECT_EQ(unbounded["section"]["contours"], 2);
}

// A plane is stretched along its diagonals, which nearly coincide in a narrow one.
TEST(FreecutSection, WithoutABoundaryTheShapeOfThePlaneDoesNotMatter)
{
    BlockFolder const folder;
    for (std::string const size : {"1,1000", "1000,1", "50,50"}) {
        auto const result = folder.run({"section", "block.stl", "--center", "20,15,10", "--normal",
                                        "1,2,3", "--size", size, "--dry-run", "--json", "-"});
        ASSERT_EQ(result.status, 0) << result.errors;
        EXPECT_NEAR(result.json()["parts"][0]["section"]["area"].get<double>(), 1247.219, 0.05)
            << size;
    }
}

TEST(FreecutSection, WidthRunsAlongXAndHeightAlongYForAVerticalNormal)
{
    BlockFolder const folder;
    auto const areaFor = [&](std::string const& size) {
        auto const result = folder.run(
            sectionOf({"block.stl"}, {"--bounded", "--size", size, "--dry-run", "--json", "-"}));
        EXPECT_EQ(result.status, 0) << result.errors;
        return result.json()["parts"][0]["section"]["area"].get<double>();
    };
    EXPECT_NEAR(areaFor("41,31"), 1200, 1e-3);
    EXPECT_EQ(areaFor("31,41"), 0);
}

TEST(FreecutSection, APartThatThePlaneMissesStaysWhole)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 1), "a.stl");
    auto const result = folder.run({"section", "a.stl", "--center", "-1,-2,-3", "--normal",
                                    "-1,0,0", "--pins", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const part = result.json()["parts"][0];
    EXPECT_EQ(part["section"]["area"], 0.0);
    EXPECT_EQ(part["section"]["contours"], 0);
    EXPECT_TRUE(part["positions"].empty());
    EXPECT_EQ(folder.files(), (Names{"a(cut).stl", "a.stl"}));
    EXPECT_EQ(volumeOf(folder.mesh("a(cut).stl")), 1);
}

TEST(FreecutSection, KeepOriginalWritesThePartsToo)
{
    BlockFolder const folder;
    auto result = folder.run(sectionOf({"block.stl"}, {"--keep-original", "-o", "pieces"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(folder.files("pieces"), (Names{"block.stl", "block_cut1.stl", "block_cut2.stl"}));
    EXPECT_NEAR(volumeOf(folder.mesh("pieces/block.stl")), 24000, 1e-2);
    std::string const before = folder.read("block.stl");
    result = folder.run(sectionOf({"block.stl"}, {"--keep-original"}));
    EXPECT_EQ(result.status, 0) << "the original is in its place: " << result.errors;
    EXPECT_EQ(folder.read("block.stl"), before);
}

TEST(FreecutSection, SeveralPartsAreCutByOnePlane)
{
    FreecutFolder folder;
    folder.addStl(box(10, 10, 20), "a.stl");
    folder.addStl(box(10, 10, 20, {30, 0, 5}), "b.stl");
    auto const result = folder.run(sectionOf({"a.stl", "b.stl"}, {"--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    ASSERT_EQ(report["parts"].size(), 2u);
    EXPECT_EQ(report["parts"][1]["source"], "b.stl");
    EXPECT_NEAR(report["parts"][1]["pieces"][1]["volume"].get<double>(), 500, 1e-3);
}

TEST(FreecutSection, AnOpenPartIsRefusedWithTheReason)
{
    FreecutFolder folder;
    folder.addStl(openBox(40, 30, 20), "open.stl");
    Names const plane = {"section", "open.stl", "--center", "20,15,10", "--normal", "1,0,0"};
    for (Names const& more : std::vector<Names>{{}, {"--json", "-"}, {"--dry-run"}}) {
        Names arguments = plane;
        arguments.insert(arguments.end(), more.begin(), more.end());
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.errors.find("open"), std::string::npos) << result.errors;
    }
    EXPECT_EQ(folder.files(), Names{"open.stl"});
}

TEST(FreecutSection, CtrlCEndsWith130AndLeavesNoFile)
{
    FreecutFolder folder;
    folder.addStl(sphere(50, 300, 400), "ball.stl");
    Names arguments(12, "ball.stl");
    arguments.insert(arguments.begin(), "section");
    arguments.insert(arguments.end(), {"--center", "0,0,1.234", "--normal", "0,0.1,1", "--pins",
                                       "-o", "pieces", "--json", "report.json"});
    QProcess process;
    folder.prepare(process, arguments);
    process.start();
    ASSERT_TRUE(waitUntilInterruptible(process));
    sendSignal(process, SIGINT);
    process.waitForFinished(-1);
    ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 130);
    EXPECT_EQ(folder.files(), Names{"ball.stl"});
}

TEST(FreecutSection, TheSameCutGivesTheSameBytesWithAnyNumberOfThreads)
{
    FreecutFolder folder;
    folder.addStl(torus(20, 6, 80, 60), "ring.stl");
    for (std::string const threads : {"1", "4"})
        ASSERT_EQ(folder
                      .run({"section", "ring.stl", "--center", "0,0,0.5", "--normal", "0,0.2,1",
                            "--pins", "--radius", "1", "-o", threads, "--threads", threads})
                      .status,
                  0);
    for (std::string const piece : {"/ring_cut1.stl", "/ring_cut2.stl"}) {
        EXPECT_EQ(closedSolidFaults(folder.mesh("1" + piece)), "") << piece;
        EXPECT_EQ(folder.read("1" + piece), folder.read("4" + piece)) << piece;
    }
}

TEST(FreecutSection, HelpEndsWithZeroAndShowsExamples)
{
    FreecutFolder const folder;
    auto const result = folder.run({"section", "--help"});
    EXPECT_EQ(result.status, 0);
    for (char const* const text : {"Example", "--center", "--pins", "--holes", "--lap-joint",
                                   "--based-on", "--dry-run", "(default: 0.01)"})
        EXPECT_NE(result.output.find(text), std::string::npos) << text;
}

TEST(FreecutSection, ALocaleWithADecimalCommaChangesNothing)
{
    BlockFolder const folder;
    qputenv("LC_ALL", "de_DE.UTF-8");
    auto const result = folder.run(
        {"section", "block.stl", "--center", "20,15,2.5", "--normal", "0,0,0.5", "--json", "-"});
    qunsetenv("LC_ALL");
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_NEAR(result.json()["parts"][0]["pieces"][1]["volume"].get<double>(), 3000, 1e-3);
}
