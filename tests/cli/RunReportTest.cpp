// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/BlockSection.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

// What every command that cuts tells about its parts: failures, what was not cut, what is open.
namespace {

using Names = std::vector<std::string>;
using Json = nlohmann::ordered_json;

/// A box that is open at the height of 2 mm.
Soup openAtTheSide()
{
    Soup open = box(2, 3, 4);
    open.triangles.erase(open.triangles.begin() + 4, open.triangles.begin() + 6);
    return open;
}

/// Good parts and one that cannot be cut at the height of 2 mm.
struct MixedFolder : FreecutFolder
{
    MixedFolder()
    {
        addStl(box(2, 3, 4), "a.stl");
        addStl(openAtTheSide(), "open.stl");
        addStl(box(2, 3, 4), "z.stl");
    }
    Json report() const { return Json::parse(read("report.json")); }
};

}  // namespace

TEST(FreecutRun, AFailureIsToldInTheReportAndNothingIsWritten)
{
    MixedFolder const folder;
    auto const result = folder.run(
        {"zcut", "a.stl", "open.stl", "z.stl", "--height", "2", "--json", "report.json"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(folder.files(), (Names{"a.stl", "open.stl", "report.json", "z.stl"}));
    Json const report = folder.report();
    EXPECT_EQ(report["schema"], 1);
    EXPECT_EQ(report["status"], 1);
    EXPECT_TRUE(report.contains("seconds"));
    EXPECT_TRUE(report.contains("threads"));
    ASSERT_EQ(report["parts"].size(), 3u);
    EXPECT_FALSE(report["parts"][0].contains("error"));
    EXPECT_TRUE(report["parts"][0]["pieces"].empty());
    std::string const error = report["parts"][1]["error"];
    EXPECT_EQ(error.find("The part is open where the plane meets it"), 0u);
    EXPECT_EQ(result.errors, "freecut: open.stl: " + error + "\n");
}

TEST(FreecutRun, KeepGoingCutsTheOtherParts)
{
    MixedFolder const folder;
    auto const result = folder.run({"zcut", "a.stl", "missing.stl", "open.stl", "z.stl", "--height",
                                    "2", "--keep-going", "-o", "pieces", "--json", "report.json"});
    // The first failure decides.
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(folder.files("pieces"),
              (Names{"a_cut1.stl", "a_cut2.stl", "z_cut1.stl", "z_cut2.stl"}));
    Json const report = folder.report();
    ASSERT_EQ(report["parts"].size(), 4u);
    EXPECT_NE(report["parts"][1]["error"].get<std::string>().find("missing.stl"),
              std::string::npos);
    EXPECT_TRUE(report["parts"][2].contains("error"));
    EXPECT_EQ(report["parts"][3]["pieces"].size(), 2u);
    for (char const* const name : {"missing.stl", "open.stl: "})
        EXPECT_NE(result.errors.find(name), std::string::npos) << result.errors;
    EXPECT_NE(result.output.find("z_cut2.stl"), std::string::npos);
}

TEST(FreecutRun, WithoutKeepGoingAFileThatCannotBeReadIsInTheReport)
{
    MixedFolder const folder;
    for (std::string const command : {"info", "zcut"}) {
        Names arguments{command, "missing.stl", "a.stl", "--json", "report.json"};
        if (command == "zcut")
            arguments.insert(arguments.end(), {"--height", "2"});
        EXPECT_EQ(folder.run(arguments).status, 3);
        Json const report = folder.report();
        EXPECT_EQ(report["command"], command);
        EXPECT_EQ(report["status"], 3);
        ASSERT_EQ(report["parts"].size(), 1u) << command;
        EXPECT_EQ(report["parts"][0]["source"], "missing.stl");
        EXPECT_TRUE(report["parts"][0].contains("error"));
    }
}

TEST(FreecutRun, AFailureOfTheWholeRunIsInTheReport)
{
    MixedFolder folder;
    folder.addFile("a_cut1.stl", "precious");
    EXPECT_EQ(folder.run({"zcut", "a.stl", "--height", "2", "--json", "report.json"}).status, 3);
    EXPECT_EQ(folder.report()["status"], 3);
    EXPECT_NE(folder.report()["error"].get<std::string>().find("a_cut1.stl"), std::string::npos);
    EXPECT_TRUE(folder.report()["parts"][0]["pieces"].empty());
}

TEST(FreecutRun, AFailureNamesTheFileThatIsToBlame)
{
    MixedFolder const folder;
    ASSERT_EQ(folder.run({"zcut", "a.stl", "--height", "2", "--format", "3mf"}).status, 0);
    auto const result = folder.run({"boolean", "a_cut1.3mf", "open.stl", "--union"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors.find("freecut: open.stl: "), 0u) << result.errors;
}

TEST(FreecutRun, APieceThatIsNotClosedIsToldByExitStatusFour)
{
    // Open at the top, cut further down.
    FreecutFolder folder;
    folder.addStl(openBox(2, 3, 4), "open.stl");
    Names const cut{"zcut", "open.stl", "--height", "1", "--no-repair", "--force", "--json", "-"};
    auto const refused = folder.run(cut);
    EXPECT_EQ(refused.status, 4);
    EXPECT_EQ(refused.errors.find("freecut: open_cut1.stl: The piece is not closed: 4 open edges"),
              0u)
        << refused.errors;
    EXPECT_EQ(folder.files(), (Names{"open.stl", "open_cut1.stl", "open_cut2.stl"}));
    Json const part = refused.json()["parts"][0];
    EXPECT_EQ(refused.json()["status"], 4);
    EXPECT_TRUE(part["volume"].is_null());
    EXPECT_EQ(part["pieces"][0]["closed"], false);
    EXPECT_EQ(part["pieces"][0]["borderEdges"], 4);
    EXPECT_TRUE(part["pieces"][0]["volume"].is_null());
    EXPECT_EQ(part["pieces"][1]["closed"], true);
    EXPECT_NEAR(part["pieces"][1]["volume"].get<double>(), 6, 1e-5);
    Names accepting = cut;
    accepting.push_back("--allow-open");
    auto const accepted = folder.run(accepting);
    EXPECT_EQ(accepted.status, 0);
    EXPECT_NE(accepted.errors.find("open_cut1.stl: The piece is not closed"), std::string::npos);
}

TEST(FreecutRun, NothingThatIsCutIsToldForEveryCommand)
{
    BlockFolder const folder;
    for (auto const& [arguments, sentence] : std::vector<std::pair<Names, std::string>>{
             {{"zcut", "--height", "30"}, "the plane misses the part."},
             {{"section", "--center", "0,0,30", "--normal", "0,0,1"}, "the plane misses the part."},
             {{"section", "--center", "0,0,30", "--normal", "0,0,1", "--pins"},
              "the plane misses the part."},
             {{"section", "--center", "0,0,-30", "--normal", "0,0,1", "--holes", "--face-clearance",
               "0"},
              "the plane misses the part."},
             {{"section", "--center", "0,0,10", "--normal", "0,0,1", "--bounded", "--size", "9,9"},
              "no section of the part lies within the plane's rectangle."},
             {{"cylinder", "--view", "top", "--center", "90,90", "--radius", "5"},
              "the tool misses the part."},
             {{"cylinder", "--view", "top", "--center", "90,90", "--radius", "5", "--clearance",
               "1", "--direction", "both"},
              "the tool misses the part."},
             {{"cylinder", "--view", "top", "--center", "20,15", "--radius", "90"},
              "the whole part lies within the tool."}}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        Names all{arguments[0], "block.stl"};
        all.insert(all.end(), arguments.begin() + 1, arguments.end());
        all.insert(all.end(), {"--force", "--json", "-"});
        auto const told = folder.run(all);
        EXPECT_EQ(told.status, 0);
        EXPECT_EQ(told.errors, "freecut: block.stl: Nothing was cut: " + sentence + "\n");
        Json const report = told.json();
        ASSERT_EQ(report["parts"][0]["pieces"].size(), 1u);
        EXPECT_NEAR(report["parts"][0]["pieces"][0]["volume"].get<double>(), 24000, 1e-2);
        EXPECT_EQ(report["parts"][0]["remarks"][0]["kind"], "nothingCut");
        all.push_back("--fail-if-uncut");
        auto const failed = folder.run(all);
        EXPECT_EQ(failed.status, 1);
        EXPECT_EQ(failed.errors, told.errors);
    }
}

TEST(FreecutRun, AGapThatTakesAPieceIsTold)
{
    BlockFolder const folder;
    for (auto const& [arguments, sentence] : std::vector<std::pair<Names, std::string>>{
             {{"section", "--center", "0,0,10", "--normal", "0,0,1", "--pins", "--face-clearance",
               "100"},
              "the upper piece is missing."},
             {{"section", "--center", "0,0,-1", "--normal", "0,0,1", "--pins", "--face-clearance",
               "100"},
              "nothing is left."},
             {{"section", "--center", "0,0,-1", "--normal", "0,0,1", "--pins", "--face-clearance",
               "5"},
              "The part's lower end"},
             {{"cylinder", "--view", "top", "--center", "20,15", "--radius", "5", "--clearance",
               "90", "--direction", "outside"},
              "that piece is missing."}}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        Names all{arguments[0], "block.stl"};
        all.insert(all.end(), arguments.begin() + 1, arguments.end());
        all.insert(all.end(), {"--force", "--json", "-"});
        auto const result = folder.run(all);
        EXPECT_EQ(result.status, 0);
        EXPECT_NE(result.errors.find(sentence), std::string::npos) << result.errors;
        EXPECT_EQ(result.json()["parts"][0]["remarks"][0]["kind"], "gapTakesPiece");
    }
}
