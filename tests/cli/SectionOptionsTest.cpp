// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/BlockSection.h"

#include <gtest/gtest.h>

#include <map>

// What the values and words of a section's command line may be.
namespace {

using Names = std::vector<std::string>;

}  // namespace

TEST(FreecutSection, AValueOutsideItsLimitsIsRefusedWithTheLimit)
{
    BlockFolder const folder;
    for (auto const& [options, message] : std::vector<std::pair<Names, std::string>>{
             {{"--pins", "--radius", "0"},
              "--radius must be from 0.001 mm to 100000 mm, but is 0."},
             {{"--pins", "--radius", "100001"}, "100000 mm, but is 100001."},
             {{"--holes", "--tolerance", "3"}, "to 2 mm (the radius), but is 3."},
             {{"--pins", "--tolerance", "0.0009"}, "from 0.001 mm"},
             {{"--pins", "--height", "0"}, "from 0.001 mm"},
             {{"--pins", "--radius", "5", "--side-distance", "4"}, "from 5 mm (the radius)"},
             {{"--pins", "--radius", "5", "--spacing", "10"},
              "from 10.02 mm (twice the radius and side clearance)"},
             {{"--pins", "--spacing", "1000001"}, "to 1000000 mm"},
             {{"--pins", "--top-clearance", "-0.1"}, "from 0 mm"},
             {{"--pins", "--side-clearance", "-0.1"}, "from 0 mm"},
             {{"--pins", "--face-clearance", "100001"}, "to 100000 mm"},
             {{"--lap-joint", "--notch-depth", "0"}, "from 0.001 mm"},
             {{"--lap-joint", "--side-distance", "0"}, "from 0.001 mm"},
             {{"--lap-joint", "--notch-clearance", "2.1"}, "to 2 mm (the side distance)"},
             {{"--lap-joint", "--front-clearance", "3.1"}, "to 3 mm (the notch depth)"},
             {{"--lap-joint", "--back-clearance", "3.1"}, "to 3 mm (the notch depth)"},
             {{"--size", "0,5"}, "at least 0.001 mm"}}) {
        auto const result = folder.run(sectionOf({"block.stl"}, options));
        EXPECT_EQ(result.status, 2) << testing::PrintToString(options);
        EXPECT_NE(result.errors.find(message), std::string::npos) << result.errors;
    }
    EXPECT_EQ(folder.files(), Names{"block.stl"});
}

TEST(FreecutSection, ValuesAtTheirLimitsAreTaken)
{
    BlockFolder const folder;
    for (Names const& options :
         std::vector<Names>{{"--pins", "--radius", "0.001"},
                            {"--pins", "--tolerance", "2"},
                            {"--pins", "--tolerance", "0.001"},
                            {"--pins", "--side-distance", "2"},
                            {"--pins", "--spacing", "4.02"},
                            {"--pins", "--radius", "7", "--side-clearance", "0", "--spacing", "14"},
                            {"--holes", "--top-clearance", "0", "--face-clearance", "0"},
                            {"--lap-joint", "--notch-clearance", "0", "--front-clearance", "3"},
                            {"--lap-joint", "--back-clearance", "0", "--based-on", "outer"}}) {
        Names all = options;
        all.push_back("--dry-run");
        auto const result = folder.run(sectionOf({"block.stl"}, all));
        EXPECT_EQ(result.status, 0) << testing::PrintToString(options) << result.errors;
    }
}

TEST(FreecutSection, DefaultsGiveWayToWhatIsGiven)
{
    // A large radius carries side distance and spacing along, a small one the tolerance.
    BlockFolder const folder;
    auto const result = folder.run(
        sectionOf({"block.stl"}, {"--holes", "--radius", "5", "--dry-run", "--json", "-"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    auto const positions = result.json()["parts"][0]["positions"];
    for (std::size_t i = 0; i < positions.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_GE(std::hypot(positions[i][0].get<double>() - positions[k][0].get<double>(),
                                 positions[i][1].get<double>() - positions[k][1].get<double>()),
                      10.02 - 1e-3);
    EXPECT_EQ(folder.run(sectionOf({"block.stl"}, {"--pins", "--radius", "0.005"})).status, 0);
}

TEST(FreecutSection, WrongUsageEndsWithTwo)
{
    BlockFolder const folder;
    for (Names const& arguments :
         std::vector<Names>{{"section"},
                            {"section", "block.stl"},
                            {"section", "block.stl", "--center", "0,0,1"},
                            {"section", "block.stl", "--center", "0,0", "--normal", "0,0,1"},
                            {"section", "block.stl", "--center", "0,0,1,", "--normal", "0,0,1"},
                            {"section", "block.stl", "--center", "0,0,nan", "--normal", "0,0,1"},
                            {"section", "block.stl", "--center", "0,0,1", "--normal", "0,0,0"},
                            {"section", "block.stl", "--center", "0,0,1", "--normal", "up"},
                            sectionOf({"block.stl"}, {"--size", "5"}),
                            sectionOf({"block.stl"}, {"--pins", "--holes"}),
                            sectionOf({"block.stl"}, {"--pins", "--lap-joint"}),
                            sectionOf({"block.stl"}, {"--radius", "2"}),
                            sectionOf({"block.stl"}, {"--based-on", "all"}),
                            sectionOf({"block.stl"}, {"--lap-joint", "--radius", "2"}),
                            sectionOf({"block.stl"}, {"--pins", "--notch-depth", "2"}),
                            sectionOf({"block.stl"}, {"--pins", "--based-on", "all"}),
                            sectionOf({"block.stl"}, {"--lap-joint", "--based-on", "some"}),
                            sectionOf({"block.stl"}, {"--pins", "--radius", "wide"}),
                            sectionOf({"block.stl"}, {"--json", "block.stl"})}) {
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments) << result.errors;
        EXPECT_NE(result.errors, "") << testing::PrintToString(arguments);
    }
    EXPECT_EQ(folder.files(), Names{"block.stl"});
}

// --keep-clear alone was told to take --lap-joint, with which it has no meaning.
TEST(FreecutSection, AnOptionOfConnectorsNamesTheConnectorsThatItShapes)
{
    BlockFolder const folder;
    for (auto const& [option, connectors] : std::vector<std::pair<Names, std::string>>{
             {{"--keep-clear"}, "add --pins or --holes."},
             {{"--radius", "2"}, "add --pins or --holes."},
             {{"--notch-depth", "2"}, "add --lap-joint."},
             {{"--based-on", "all"}, "add --lap-joint."},
             {{"--side-distance", "2"}, "add --pins, --holes or --lap-joint."}}) {
        auto const result = folder.run(sectionOf({"block.stl"}, option));
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.errors.find(connectors), std::string::npos) << result.errors;
    }
}
