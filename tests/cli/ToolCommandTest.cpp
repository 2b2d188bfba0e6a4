// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Names = std::vector<std::string>;
using Json = nlohmann::ordered_json;

/// A folder with a block of 40 x 30 x 20 mm.
struct BlockFolder : FreecutFolder
{
    BlockFolder() { addStl(box(40, 30, 20), "block.stl"); }

    Result cut(Names const& shape, Names const& more = {}) const
    {
        Names arguments{shape.front(), "block.stl"};
        arguments.insert(arguments.end(), shape.begin() + 1, shape.end());
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    std::vector<double> volumes(Result const& result) const
    {
        std::vector<double> volumes;
        Json const report = result.json();
        for (auto const& piece : report["parts"][0]["pieces"]) {
            EXPECT_EQ(closedSolidFaults(mesh(piece["file"])), "");
            volumes.push_back(volumeOf(mesh(piece["file"])));
        }
        return volumes;
    }
};

Names const triangle{"polygon", "--view", "top", "--points", "5,5;25,5;5,20"};
Names const circle{"cylinder", "--view", "top", "--center", "20,15", "--radius", "5"};
Names const rectangle{"cuboid",   "--view", "front",   "--center", "20,10",
                      "--length", "10",     "--width", "8"};

double areaOf(Json const& loop)
{
    double sum = 0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        auto const& p = loop[i];
        auto const& q = loop[(i + 1) % loop.size()];
        sum += p[0].get<double>() * q[1].get<double>() - q[0].get<double>() * p[1].get<double>();
    }
    return sum / 2;
}

}  // namespace

TEST(FreecutTools, APolygonTakesOutWhatLiesWithinIt)
{
    BlockFolder const folder;
    auto const result = folder.cut(triangle, {"--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(folder.files(), (Names{"block.stl", "block_cut1.stl", "block_cut2.stl"}));
    auto const volumes = folder.volumes(result);
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_NEAR(volumes[0], 150 * 20, 0.1);
    EXPECT_NEAR(volumes[0] + volumes[1], 24000, 0.1);
}

TEST(FreecutTools, ACylinderCutsRound)
{
    BlockFolder const folder;
    auto const volumes =
        folder.volumes(folder.cut(circle, {"--tolerance", "0.001", "--json", "-"}));
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_NEAR(volumes[0], M_PI * 25 * 20, 2);
    EXPECT_NEAR(volumes[0] + volumes[1], 24000, 0.1);
}

TEST(FreecutTools, ANotchPointsClockwiseFromTheTop)
{
    BlockFolder const folder;
    auto const result = folder.cut(circle, {"--notch", "2,3,90", "--dry-run", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    double right = 0;
    Json const report = result.json();
    for (auto const& p : report["tool"]["outlines"]["nominal"][0])
        right = std::max(right, p[0].get<double>());
    EXPECT_NEAR(right, 20 + std::sqrt(24.0) + 3, 1e-3);
}

TEST(FreecutTools, ACuboidStandsAcrossItsView)
{
    BlockFolder const folder;
    auto const volumes = folder.volumes(folder.cut(rectangle, {"--json", "-"}));
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_NEAR(volumes[0], 80 * 30, 0.1);
}

TEST(FreecutTools, CoordinatesAreThoseThatTheViewLeavesFree)
{
    // A tool at (12, 7) of each view, and what it takes off the block at most.
    struct Case
    {
        char const* view;
        int first, second;
    };
    for (Case const& row : {Case{"front", 0, 2}, Case{"back", 0, 2}, Case{"top", 0, 1},
                            Case{"bottom", 0, 1}, Case{"left", 1, 2}, Case{"right", 1, 2}}) {
        BlockFolder const folder;
        auto const result = folder.cut(
            {"cuboid", "--view", row.view, "--center", "12,7", "--length", "2", "--width", "2"});
        ASSERT_EQ(result.status, 0) << result.errors;
        for (auto const& p : folder.mesh("block_cut1.stl").points) {
            EXPECT_NEAR(p[row.first], 12, 1.0001) << row.view;
            EXPECT_NEAR(p[row.second], 7, 1.0001) << row.view;
        }
    }
}

TEST(FreecutTools, AClearanceLeavesItsGap)
{
    BlockFolder const folder;
    for (auto const& [side, inner, outer] : {std::tuple("inside", 9.0 * 7, 80.0),
                                             {"outside", 80.0, 11 * 9 - 1 + M_PI / 4},
                                             {"both", 9.0 * 7, 11 * 9 - 1 + M_PI / 4}}) {
        auto const volumes = folder.volumes(folder.cut(
            rectangle, {"--clearance", "0.5", "--direction", side, "--force", "--json", "-"}));
        ASSERT_EQ(volumes.size(), 2u);
        EXPECT_NEAR(volumes[0], inner * 30, 1) << side;
        EXPECT_NEAR(volumes[1], 24000 - outer * 30, 1) << side;
    }
}

TEST(FreecutTools, CutTillEndsTheToolInThePart)
{
    BlockFolder const folder;
    auto const volumes = folder.volumes(folder.cut(triangle, {"--cut-till", "12", "--json", "-"}));
    ASSERT_EQ(volumes.size(), 2u);
    EXPECT_NEAR(volumes[0], 150 * 8, 0.1);
}

TEST(FreecutTools, TheReportTellsOutlinesAndDepth)
{
    BlockFolder const folder;
    auto const result = folder.cut(rectangle, {"--round", "2", "--clearance", "0.5", "--direction",
                                               "both", "--json", "-", "--dry-run"});
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    EXPECT_EQ(report["command"], "cuboid");
    EXPECT_EQ(report["dryRun"], true);
    EXPECT_NEAR(report["tool"]["depth"].get<double>(), 30.6, 1e-3);
    EXPECT_NEAR(report["tool"]["reach"][0].get<double>(), -0.3, 1e-3);
    EXPECT_NEAR(report["tool"]["reach"][1].get<double>(), 30.3, 1e-3);
    auto const& outlines = report["tool"]["outlines"];
    EXPECT_NEAR(areaOf(outlines["nominal"][0]), 80, 1e-3);
    double const rounded = 80 - 4 * (4 - M_PI);
    EXPECT_NEAR(areaOf(outlines["rounded"][0]), rounded, 0.02);
    EXPECT_LT(areaOf(outlines["inner"][0]), rounded);
    EXPECT_GT(areaOf(outlines["outer"][0]), rounded);
    EXPECT_TRUE(outlines["dropped"].empty());
    EXPECT_TRUE(report["parts"][0]["pieces"].empty());
    EXPECT_EQ(folder.files(), Names{"block.stl"}) << "a dry run writes nothing";
}

TEST(FreecutTools, ACrossingOutlineKeepsItsFirstLobe)
{
    BlockFolder const folder;
    auto const result = folder.run({"polygon", "block.stl", "--view", "top", "--points",
                                    "0,0;10,10;10,0;0,10", "--dry-run", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const outlines = result.json()["tool"]["outlines"];
    EXPECT_EQ(outlines["nominal"].size(), 1u);
    EXPECT_NEAR(areaOf(outlines["nominal"][0]), 25, 1e-6);
    EXPECT_EQ(outlines["dropped"].size(), 1u);
}

TEST(FreecutTools, ThePictureShowsOutlinesAndSilhouettes)
{
    BlockFolder const folder;
    auto const result = folder.cut(
        rectangle, {"--round", "1", "--clearance", "0.5", "--svg", "out.svg", "--dry-run"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(folder.files(), (Names{"block.stl", "out.svg"}));
    std::string const picture = folder.read("out.svg");
    EXPECT_TRUE(picture.starts_with("<svg "));
    EXPECT_TRUE(picture.ends_with("</svg>\n"));
    for (char const* const name : {"parts", "nominal", "rounded", "inner"})
        EXPECT_NE(picture.find("id=\"" + std::string(name) + "\""), std::string::npos) << name;
    EXPECT_EQ(picture.find("id=\"outer\""), std::string::npos);
    // The block from the front: four edges around 40 x 20, each in one of its two directions.
    for (auto const& [there, back] : {std::pair("M0 0L40 0", "M40 0L0 0"),
                                      {"M0 -20L40 -20", "M40 -20L0 -20"},
                                      {"M0 0L0 -20", "M0 -20L0 0"},
                                      {"M40 0L40 -20", "M40 -20L40 0"}})
        EXPECT_TRUE(picture.find(there) != std::string::npos ||
                    picture.find(back) != std::string::npos)
            << there;
}

TEST(FreecutTools, KeepOriginalWritesThePartsToo)
{
    BlockFolder const folder;
    auto const result = folder.cut(circle, {"--keep-original", "-o", "out"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(folder.files("out"), (Names{"block.stl", "block_cut1.stl", "block_cut2.stl"}));
}

TEST(FreecutTools, AToolThatMissesOrEnclosesAPartLeavesItWhole)
{
    BlockFolder const folder;
    for (char const* const center : {"200,200", "20,15"}) {
        auto const result = folder.run({"cylinder", "block.stl", "--view", "top", "--center",
                                        center, "--radius", "60", "--json", "-", "--force"});
        ASSERT_EQ(result.status, 0) << result.errors;
        ASSERT_EQ(folder.volumes(result).size(), 1u);
        EXPECT_NEAR(folder.volumes(result)[0], 24000, 0.1);
    }
}

TEST(FreecutTools, AClearanceThatSwallowsTheToolIsTold)
{
    BlockFolder const folder;
    auto const result = folder.cut(rectangle, {"--clearance", "5", "--json", "-"});
    ASSERT_EQ(result.status, 0);
    EXPECT_NE(result.errors.find("Choose a smaller --clearance"), std::string::npos);
    EXPECT_EQ(folder.volumes(result).size(), 2u);
}

TEST(FreecutTools, WhatWasChangedInTheRequestIsTold)
{
    BlockFolder const folder;
    for (auto const& [shape, more, sentence] : std::vector<std::tuple<Names, Names, std::string>>{
             {rectangle, {"--round", "100"}, "--round does not fit: 4 corners stay sharp"},
             {{"polygon", "--view", "top", "--points", "5,5;25,25;25,5;5,25"},
              {},
              "The outline crosses itself: 1 part of it is dropped."},
             {circle, {"--tolerance", "6"}, "The tolerance is larger than the radius"}}) {
        Names all = more;
        all.insert(all.end(), {"--dry-run", "--json", "-"});
        auto const result = folder.cut(shape, all);
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_EQ(result.errors.find("freecut: " + sentence), 0u) << result.errors;
        Json const report = result.json();
        ASSERT_EQ(report["remarks"].size(), 1u) << sentence;
        EXPECT_EQ(report["remarks"][0]["kind"], "requestChanged");
    }
    auto const rounded = folder.cut(rectangle, {"--round", "2", "--dry-run"});
    EXPECT_EQ(rounded.errors, "");
}

TEST(FreecutTools, WrongValuesAreNamedBeforeAnythingIsRead)
{
    FreecutFolder const folder;
    struct Case
    {
        Names arguments;
        char const* text;
    };
    Case const cases[] = {
        {{"polygon", "--view", "top", "--points", "0,0;1,1"}, "three corners"},
        {{"polygon", "--view", "top", "--points", "0,0;1,1;x,2"}, "two coordinates"},
        {{"polygon", "--view", "top", "--points", "0,0;1,1;2,0", "--round", "0"}, "--round"},
        {{"cylinder", "--view", "top", "--center", "0", "--radius", "5"}, "--center"},
        {{"cylinder", "--view", "top", "--center", "0,0", "--radius", "-1"}, "--radius"},
        {{"cylinder", "--view", "top", "--center", "0,0", "--radius", "5", "--notch", "2,2"},
         "--notch"},
        {{"cylinder", "--view", "top", "--center", "0,0", "--radius", "5", "--tolerance", "0"},
         "--tolerance"},
        {{"cuboid", "--view", "top", "--center", "0,0", "--length", "0", "--width", "1"},
         "--length"},
        {{"cuboid", "--view", "top", "--center", "0,0", "--length", "1", "--width", "1", "--angle",
          "400"},
         "--angle"},
        {{"cuboid", "--view", "top", "--center", "0,0", "--length", "1", "--width", "1",
          "--clearance", "0"},
         "--clearance"},
        {{"cuboid", "--view", "aside", "--center", "0,0", "--length", "1", "--width", "1"},
         "--view"},
        {{"cuboid", "--view", "top", "--center", "0,0", "--length", "1", "--width", "1",
          "--direction", "both"},
         "--clearance"},
    };
    for (Case const& row : cases) {
        Names arguments = row.arguments;
        arguments.insert(arguments.begin() + 1, "missing.stl");
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 2) << row.text;
        EXPECT_NE(result.errors.find(row.text), std::string::npos) << result.errors;
    }
}

TEST(FreecutTools, AnOutlineWithoutAreaIsRefused)
{
    BlockFolder const folder;
    auto const result =
        folder.run({"polygon", "block.stl", "--view", "top", "--points", "0,0;10,0;20,0"});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors.find("encloses nothing"), std::string::npos);
    EXPECT_EQ(result.errors.find("--scale"), std::string::npos) << result.errors;
    EXPECT_EQ(folder.files(), Names{"block.stl"});
}

TEST(FreecutTools, AnOutlineThatIsSmallerThanTheGridIsToldOfTheUnit)
{
    BlockFolder const folder;
    auto const result = folder.run({"polygon", "block.stl", "--view", "top", "--points",
                                    "0.00001,0.00001;0.0001,0.00001;0.0001,0.0001"});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors.find("--scale"), std::string::npos) << result.errors;
    EXPECT_EQ(folder.files(), Names{"block.stl"});
}

TEST(FreecutTools, AnOutlineOfTooManyCrossingsIsRefused)
{
    BlockFolder const folder;
    std::string points;
    for (int i = 1; i <= 1002; ++i) {
        std::string const at = std::to_string(i);
        points += i % 2 ? "0," + at + ";1003," + at + ";" : "1003," + at + ";0," + at + ";";
    }
    for (int i = 1002; i >= 1; --i) {
        std::string const at = std::to_string(i);
        points += i % 2 ? at + ",1003;" + at + ",0;" : at + ",0;" + at + ",1003;";
    }
    points.pop_back();
    auto const result = folder.run({"polygon", "block.stl", "--view", "top", "--points", points});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors.find("Draw it with fewer crossings."), std::string::npos)
        << result.errors;
    EXPECT_EQ(folder.files(), Names{"block.stl"});
}
