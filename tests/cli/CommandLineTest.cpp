// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/BlockSection.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

// What all commands have in common on the command line.
namespace {

using Names = std::vector<std::string>;

}  // namespace

TEST(FreecutCommandLine, TellsItsVersion)
{
    FreecutFolder const folder;
    auto const result = folder.run({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output.find("freecut "), 0u) << result.output;
    for (std::string const library : {"Qt", "CGAL", "oneTBB", "Clipper", "lib3mf", "zlib",
                                      "libdeflate", "CLI11", "nlohmann-json"}) {
        std::size_t const name = result.output.find(library + ' ');
        ASSERT_NE(name, std::string::npos) << result.output;
        EXPECT_TRUE(std::isdigit(result.output[name + library.size() + 1])) << result.output;
    }
}

TEST(FreecutCommandLine, AnUnknownOptionIsNamedWithTheNearestOne)
{
    FreecutFolder const folder;
    auto const errorsOf = [&](std::vector<std::string> const& arguments) {
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 2);
        return result.errors;
    };
    EXPECT_EQ(errorsOf({"--verson"}),
              "freecut: \"--verson\" is no option of freecut. Did you mean \"--version\"?\n");
    EXPECT_EQ(errorsOf({"section", "block.stl", "--nromal=0,0,1"}),
              "freecut: \"--nromal\" is no option of freecut section. Did you mean "
              "\"--normal\"?\n");
    EXPECT_EQ(errorsOf({"zcut", "block.stl", "--height", "1", "--xyzzyxyzzy"}),
              "freecut: \"--xyzzyxyzzy\" is no option of freecut zcut. See freecut zcut --help.\n");
    // What is known is not to blame, nor are names of files.
    EXPECT_NE(errorsOf({"section", "block.stl", "--normal", "0,0,1"}).find("--center"),
              std::string::npos);
    EXPECT_EQ(errorsOf({"zcut", "--", "--verson"}).find("is no option"), std::string::npos);
    EXPECT_EQ(folder.run({"zcut", "--help"}).status, 0);
}

TEST(FreecutCommandLine, AnUnknownCommandIsNamedWithTheNearestOne)
{
    FreecutFolder const folder;
    auto const misspelt = folder.run({"sectoin", "block.stl"});
    EXPECT_EQ(misspelt.status, 2);
    EXPECT_EQ(misspelt.errors, "freecut: \"sectoin\" is no command. Did you mean \"section\"?\n");
    auto const other = folder.run({"slice", "block.stl"});
    EXPECT_EQ(other.status, 2);
    EXPECT_EQ(other.errors.find("Did you mean"), std::string::npos) << other.errors;
    EXPECT_NE(other.errors.find("zcut, section, boolean"), std::string::npos) << other.errors;
}

TEST(FreecutCommandLine, TheHelpTellsEveryExitStatus)
{
    FreecutFolder const folder;
    std::string const help = folder.run({"--help"}).output;
    for (char const* const status : {"0 done", "1 the cut failed", "2 wrong", "3 a file", "4 the",
                                     "130 by", "143 by", "129 when"})
        EXPECT_NE(help.find(status), std::string::npos) << status << help;
}

TEST(FreecutCommandLine, AReportOrPictureThatCouldReplaceAnythingIsRefused)
{
    BlockFolder folder;
    folder.addStl(box(1, 1, 1), "part.json");
    Names const before = folder.files();
    Names const cylinder{"cylinder", "block.stl", "--view",   "top",
                         "--center", "20,15",     "--radius", "5"};
    for (Names const& more : std::vector<Names>{{"--json", "block.stl"},
                                                {"--json", "block_cut1.stl"},
                                                {"--json", "other.PLY"},
                                                {"--svg", "block_cut2.stl"},
                                                {"--svg", "block.stl"},
                                                {"--svg", "a.svg", "--json", "./a.svg"}}) {
        Names arguments = cylinder;
        arguments.insert(arguments.end(), more.begin(), more.end());
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(more);
        EXPECT_EQ(folder.files(), before) << testing::PrintToString(more);
    }
    EXPECT_EQ(folder.run({"info", "block.stl", "part.json", "--json", "part.json"}).status, 2);
}

TEST(FreecutCommandLine, AnEmptyFolderIsRefusedAndFormatsTakeEitherCase)
{
    BlockFolder const folder;
    auto const empty = folder.run({"zcut", "block.stl", "--height", "5", "-o", ""});
    EXPECT_EQ(empty.status, 2);
    EXPECT_NE(empty.errors.find("takes a folder"), std::string::npos) << empty.errors;
    EXPECT_EQ(folder.run({"zcut", "block.stl", "--height", "5", "--format", "PLY"}).status, 0);
    EXPECT_EQ(folder.files(), (Names{"block.stl", "block_cut1.ply", "block_cut2.ply"}));
}

TEST(FreecutCommandLine, NamesGoToTheSamePiecesWhateverTheirNumbers)
{
    BlockFolder const folder;
    for (Names const& more :
         std::vector<Names>{{},
                            {"--pins"},
                            {"--holes", "--face-clearance", "0"},
                            {"--pins", "--radius", "50", "--face-clearance", "0"},
                            {"--lap-joint"}}) {
        SCOPED_TRACE(testing::PrintToString(more));
        Names options{"--name", "top,bottom", "--force"};
        options.insert(options.end(), more.begin(), more.end());
        auto const result = folder.run(sectionOf({"block.stl"}, options));
        ASSERT_EQ(result.status, 0) << result.errors;
        EXPECT_EQ(folder.files(), (Names{"block.stl", "block_bottom.stl", "block_top.stl"}));
        float highest = 0;
        for (UPoint3<float> const& p : folder.mesh("block_top.stl").points)
            highest = std::max(highest, p.Z());
        EXPECT_EQ(highest, 20);
    }
    ASSERT_EQ(folder
                  .run({"cylinder", "block.stl", "--view", "top", "--center", "20,15", "--radius",
                        "5", "--name", "in,out"})
                  .status,
              0);
    EXPECT_LT(volumeOf(folder.mesh("block_in.stl")), volumeOf(folder.mesh("block_out.stl")));
    for (std::string const names : {"one", "same,same", "a/b,a:b", ",b"})
        EXPECT_EQ(folder.run({"zcut", "block.stl", "--height", "5", "--name", names}).status, 2)
            << names;
}

TEST(FreecutCommandLine, PartsAreScaledFirst)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 1), "inch.stl");
    auto const result =
        folder.run({"zcut", "inch.stl", "--scale", "25.4", "--height", "12.7", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    for (auto const& piece : report["parts"][0]["pieces"])
        EXPECT_NEAR(piece["volume"].get<double>(), 25.4 * 25.4 * 12.7, 1e-2);
    for (std::string const scale : {"0", "-1", "big", "nan"})
        EXPECT_EQ(folder.run({"info", "inch.stl", "--scale", scale}).status, 2) << scale;
}

TEST(FreecutCommandLine, AUnitIsThatOfFilesThatNameNone)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 1), "cube.stl");
    ASSERT_EQ(folder.run({"repair", "cube.stl", "--format", "3mf"}).status, 0);
    for (auto const& [unit, length] :
         {std::pair("mm", 1.0), {"cm", 10.0}, {"m", 1000.0}, {"inch", 25.4}}) {
        auto const result =
            folder.run({"info", "cube.stl", "cube_repaired.3mf", "--unit", unit, "--json", "-"});
        ASSERT_EQ(result.status, 0) << result.errors;
        auto const parts = result.json()["parts"];
        EXPECT_NEAR(parts[0]["volume"].get<double>(), std::pow(length, 3),
                    1e-6 * std::pow(length, 3))
            << unit;
        EXPECT_DOUBLE_EQ(parts[1]["volume"].get<double>(), 1) << unit;
    }
    auto const both =
        folder.run({"info", "cube.stl", "--unit", "cm", "--scale", "2", "--json", "-"});
    EXPECT_NEAR(both.json()["parts"][0]["volume"].get<double>(), 8000, 1e-3);
    EXPECT_EQ(folder.run({"info", "cube.stl", "--unit", "furlong"}).status, 2);
}

TEST(FreecutCommandLine, ASizeTooSmallForAnyPartIsAnsweredByAdvice)
{
    BlockFolder const folder;
    auto const pins = folder.run(sectionOf({"block.stl"}, {"--pins", "--radius", "0.0002"}));
    EXPECT_NE(pins.errors.find("--scale"), std::string::npos) << pins.errors;
    auto const tool = folder.run(
        {"cylinder", "block.stl", "--view", "top", "--center", "0,0", "--radius", "0.0002"});
    EXPECT_NE(tool.errors.find("--scale"), std::string::npos) << tool.errors;
    auto const zero = folder.run(sectionOf({"block.stl"}, {"--pins", "--radius", "0"}));
    EXPECT_EQ(zero.errors.find("--scale"), std::string::npos) << zero.errors;
}
