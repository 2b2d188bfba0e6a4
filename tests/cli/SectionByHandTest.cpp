// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/BlockSection.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>

// Connectors of a section cut that are put and left out by hand, and presets of their values.
namespace {

using Arguments = std::vector<std::string>;
using Json = nlohmann::ordered_json;

Arguments with(Arguments arguments, Arguments const& more)
{
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

Json dryPart(BlockFolder const& folder, Arguments const& more)
{
    auto const result =
        folder.run(sectionOf({"block.stl"}, with({"--dry-run", "--json", "-"}, more)));
    EXPECT_EQ(result.status, 0) << result.errors;
    return result.json()["parts"][0];
}

Json cutPart(BlockFolder const& folder, Arguments const& more)
{
    auto const result = folder.run(
        sectionOf({"block.stl"}, with({"-o", "pieces", "--force", "--json", "-"}, more)));
    EXPECT_EQ(result.status, 0) << result.errors;
    return result.json()["parts"][0];
}

Json positionsWithout(Json positions, std::size_t number)
{
    positions.erase(number - 1);
    return positions;
}

}  // namespace

TEST(FreecutByHand, TheListNumbersTheConnectors)
{
    BlockFolder const folder;
    auto const result = folder.run(sectionOf({"block.stl"}, {"--pins", "--dry-run"}));
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_NE(result.output.find("\n    1  "), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("\n    2  "), std::string::npos) << result.output;
    Json const part = dryPart(folder, {"--pins"});
    ASSERT_EQ(part["connectors"].size(), part["positions"].size());
    EXPECT_EQ(part["connectors"][1]["number"], 2);
    EXPECT_EQ(part["connectors"][1]["position"], part["positions"][1]);
    EXPECT_EQ(part["connectors"][1]["state"], "stands");
}

TEST(FreecutByHand, ANumberIsLeftOutAndKeepsItsPlaceInTheList)
{
    BlockFolder const folder;
    Json const all = dryPart(folder, {"--pins"});
    ASSERT_GE(all["positions"].size(), 3u);
    Json const dry = dryPart(folder, {"--pins", "--without", "2"});
    EXPECT_EQ(dry["positions"], positionsWithout(all["positions"], 2));
    EXPECT_EQ(dry["connectors"].size(), all["connectors"].size());
    EXPECT_EQ(dry["connectors"][1]["state"], "leftOut");
    Json const cut = cutPart(folder, {"--pins", "--without", "2", "--without", "1"});
    EXPECT_EQ(cut["positions"], positionsWithout(dry["positions"], 1));
}

TEST(FreecutByHand, AConnectorStandsWhereItIsAskedForAndOthersGiveWay)
{
    BlockFolder const folder;
    Arguments const places{"--pins", "--at", "20,5,10", "--at", "3.5,15,10"};
    Json const dry = dryPart(folder, places);
    std::size_t const count = dry["connectors"].size();
    EXPECT_EQ(dry["connectors"][count - 2]["position"], Json({20.0, 5.0, 10.0}));
    EXPECT_EQ(dry["connectors"][count - 1]["position"], Json({3.5, 15.0, 10.0}));
    for (auto const& connector : dry["connectors"])
        if (!connector["added"].get<bool>()) {
            auto const x = connector["position"][0].get<double>();
            auto const y = connector["position"][1].get<double>();
            double const nearest = std::min(std::hypot(x - 20, y - 5), std::hypot(x - 3.5, y - 15));
            EXPECT_EQ(connector["state"] == "givesWay", nearest < 4.02) << x << " " << y;
        }
    EXPECT_EQ(cutPart(folder, places)["positions"], dry["positions"]);
}

TEST(FreecutByHand, OnlyWhatIsAskedForStandsWithoutAllOthers)
{
    BlockFolder const folder;
    Json const part = cutPart(folder, {"--holes", "--face-clearance", "0", "--without", "all",
                                       "--at", "10,10,10", "--at", "30,20.5,10.004"});
    ASSERT_EQ(part["positions"].size(), 2u);
    // A place with three decimals is in the plane.
    EXPECT_EQ(part["positions"][1], Json({30.0, 20.5, 10.0}));
    for (auto const& piece : part["pieces"]) {
        Soup const soup = folder.mesh(piece["file"].get<std::string>());
        EXPECT_EQ(closedSolidFaults(soup), "");
        double const hole = 32.0 / 2 * 2.01 * 2.01 * std::sin(2 * std::acos(-1.0) / 32) * 5.01;
        EXPECT_NEAR(volumeOf(soup), 12000 - 2 * hole, 0.05);
    }
}

TEST(FreecutByHand, NoConnectorAtAllLeavesPlainHalves)
{
    BlockFolder const folder;
    Json const part = cutPart(folder, {"--pins", "--face-clearance", "0", "--without", "all"});
    EXPECT_TRUE(part["positions"].empty());
    EXPECT_FALSE(part.contains("remarks"));
    for (auto const& piece : part["pieces"])
        EXPECT_NEAR(piece["volume"].get<double>(), 12000, 1e-2);
}

TEST(FreecutByHand, WhatLeavesThePartIsToldByADryRunAsByACut)
{
    BlockFolder const folder;
    for (Arguments const& options :
         {Arguments{"--pins", "--height", "12"}, Arguments{"--holes", "--at", "0,15,10"},
          Arguments{"--lap-joint", "--notch-depth", "11"},
          Arguments{"--pins", "--face-clearance", "11"}}) {
        Json const dry = dryPart(folder, options), cut = cutPart(folder, options);
        ASSERT_FALSE(dry["remarks"].empty()) << options[0];
        EXPECT_EQ(dry["remarks"], cut["remarks"]) << options[0];
    }
    Json const at = dryPart(folder, {"--holes", "--at", "0,15,10"});
    EXPECT_TRUE(at["connectors"].back()["leavesPart"].get<bool>());
    EXPECT_FALSE(at["connectors"][0]["leavesPart"].get<bool>());
}

TEST(FreecutByHand, WhatCannotBeIsRefusedWithAWayOut)
{
    BlockFolder folder;
    folder.addStl(box(40, 30, 20), "other.stl");
    struct Case
    {
        Arguments files;
        Arguments options;
        char const* said;
    };
    for (Case const& wrong :
         {Case{{"block.stl"}, {"--pins", "--at", "20,15"}, "three coordinates"},
          Case{{"block.stl"}, {"--pins", "--at", "20,15,12"}, "is 20,15,10."},
          Case{{"block.stl"}, {"--pins", "--at", "9,9,10", "--at", "10,9,10"}, "4.02 mm apart"},
          Case{{"block.stl"}, {"--pins", "--without", "900"}, "There is no connector 900"},
          Case{{"block.stl"}, {"--pins", "--without", "0"}, "number in the list"},
          Case{{"block.stl"}, {"--pins", "--without", "x"}, "number in the list"},
          Case{{"block.stl"}, {"--lap-joint", "--without", "1"}, "--without has no meaning"},
          Case{{"block.stl"}, {"--at", "20,15,10"}, "--at shapes connectors"},
          Case{{"block.stl", "other.stl"}, {"--pins", "--without", "1"}, "one by one"}}) {
        auto const result = folder.run(sectionOf(wrong.files, wrong.options));
        EXPECT_NE(result.status, 0) << wrong.said;
        EXPECT_NE(result.errors.find(wrong.said), std::string::npos) << result.errors;
        EXPECT_EQ(folder.files(), (Arguments{"block.stl", "other.stl"}));
    }
}

TEST(FreecutPreset, ItsValuesAreThoseThatOptionsWouldGive)
{
    BlockFolder folder;
    folder.addFile("pins.json", R"({"name": "P", "connector": "pins",
        "pins": {"radius": 1.5, "height": 4, "spacing": 9, "sideClearance": 0.2}})");
    Arguments const options{"--pins", "--radius",         "1.5", "--height", "4", "--spacing",
                            "9",      "--side-clearance", "0.2"};
    Json const byOptions = cutPart(folder, options);
    for (Arguments const& preset :
         {Arguments{"--preset", "pins.json"}, Arguments{"--preset", "pins.json", "--pins"}})
        EXPECT_EQ(cutPart(folder, preset)["pieces"], byOptions["pieces"]);
    // An option goes before it.
    EXPECT_EQ(cutPart(folder, {"--preset", "pins.json", "--radius", "1"})["pieces"],
              cutPart(folder, {"--pins", "--radius", "1", "--height", "4", "--spacing", "9",
                               "--side-clearance", "0.2"})["pieces"]);
    folder.addFile(
        "joint.json",
        R"({"connector": "lapJoint", "lapJoint": {"notchDepth": 2, "basedOn": "outer"}})");
    EXPECT_EQ(
        cutPart(folder, {"--preset", "joint.json"})["pieces"],
        cutPart(folder, {"--lap-joint", "--notch-depth", "2", "--based-on", "outer"})["pieces"]);
}

TEST(FreecutPreset, WhatCannotBeUsedIsRefusedWithItsName)
{
    BlockFolder folder;
    folder.addFile("bad.json", "{");
    folder.addFile("unknown.json", R"({"pins": {"radios": 2}})");
    folder.addFile("wide.json", R"({"pins": {"tolerance": 3, "radius": 2}})");
    folder.addFile("joint.json", R"({"lapJoint": {}})");
    for (auto const& [options, said] :
         {std::pair(Arguments{"--preset", "none.json"}, "none.json"),
          std::pair(Arguments{"--preset", "bad.json"}, "not JSON"),
          std::pair(Arguments{"--preset", "unknown.json"}, "radios"),
          std::pair(Arguments{"--preset", "wide.json"}, "from 0.001 to 2 mm, but is 3"),
          std::pair(Arguments{"--preset", "joint.json", "--pins"}, "no values for --pins")}) {
        auto const result = folder.run(sectionOf({"block.stl"}, options));
        EXPECT_NE(result.status, 0) << said;
        EXPECT_NE(result.errors.find(said), std::string::npos) << result.errors;
    }
}
