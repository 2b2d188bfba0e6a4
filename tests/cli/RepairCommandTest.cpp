// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

using Names = std::vector<std::string>;

TEST(FreecutRepair, WritesThePartMendedAndLeavesItsFile)
{
    FreecutFolder folder;
    folder.addStl(openBox(2, 3, 4), "open.stl");
    std::string const before = folder.read("open.stl");
    auto const result = folder.run({"repair", "open.stl", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(folder.files(), (Names{"open.stl", "open_repaired.stl"}));
    EXPECT_EQ(folder.read("open.stl"), before);
    EXPECT_EQ(closedSolidFaults(folder.mesh("open_repaired.stl")), "");
    EXPECT_NEAR(volumeOf(folder.mesh("open_repaired.stl")), 24, 1e-5);
    auto const report = result.json();
    EXPECT_EQ(report["command"], "repair");
    EXPECT_EQ(report["parts"][0]["closed"], false);
    EXPECT_EQ(report["parts"][0]["pieces"][0]["closed"], true);
}

TEST(FreecutRepair, AGoodPartStaysAsItIs)
{
    FreecutFolder folder;
    folder.addStl(torus(5, 2, 30, 20), "ring.stl");
    auto const result = folder.run({"repair", "ring.stl"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    // Binary STL files of the same triangles in the same order.
    EXPECT_EQ(folder.mesh("ring_repaired.stl").triangles, folder.mesh("ring.stl").triangles);
}

TEST(FreecutRepair, OnlyAllOfItMendsHolesBesideTheCut)
{
    for (auto const& [options, status] :
         std::vector<std::pair<Names, int>>{{{}, 4},
                                            {{"--repair", "touched"}, 4},
                                            {{"--no-repair"}, 4},
                                            {{"--repair", "all"}, 0}}) {
        FreecutFolder folder;
        folder.addStl(openBox(2, 3, 4), "open.stl");
        Names arguments{"zcut", "open.stl", "--height", "1"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, status) << testing::PrintToString(options) << result.errors;
        bool const isClosed = closedSolidFaults(folder.mesh("open_cut1.stl")).empty();
        EXPECT_EQ(isClosed, status == 0) << testing::PrintToString(options);
    }
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "part.stl");
    for (Names const& options :
         std::vector<Names>{{"--repair", "some"}, {"--repair", "all", "--no-repair"}}) {
        Names arguments{"zcut", "part.stl", "--height", "1"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(folder.run(arguments).status, 2) << testing::PrintToString(options);
    }
}

TEST(FreecutRepair, APartThatIsOpenAtTheCutIsMendedFirstIfAllOfItShallBe)
{
    FreecutFolder folder;
    folder.addStl(corpus::boxWithOpenings({17}), "open.stl");
    std::string const before = folder.read("open.stl");
    Names const arguments{"zcut", "open.stl", "--height", "17.5", "--json", "-"};
    auto const refused = folder.run(arguments);
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(folder.files(), (Names{"open.stl"}));

    Names all = arguments;
    all.insert(all.end(), {"--repair", "all"});
    auto const result = folder.run(all);
    ASSERT_EQ(result.status, 0) << result.errors;
    for (char const* const name : {"open_cut1.stl", "open_cut2.stl"})
        EXPECT_EQ(closedSolidFaults(folder.mesh(name)), "") << name;
    auto const part = result.json()["parts"][0];
    EXPECT_EQ(part["closed"], false);
    EXPECT_EQ(part["repair"]["mended"][0]["kind"], "holes_closed");
    EXPECT_NE(result.errors.find("open.stl: Holes closed: 1, near ("), std::string::npos);
    EXPECT_EQ(folder.read("open.stl"), before);

    // The original is written as it was read.
    Names const section{"section",  "open.stl", "--center", "20,18,17.5", "--normal",       "0,0,1",
                        "--repair", "all",      "--format", "ply",        "--keep-original"};
    ASSERT_EQ(folder.run(section).status, 4);
    EXPECT_EQ(closedSolidFaults(folder.mesh("open_cut1.ply")), "");
    EXPECT_EQ(folder.mesh("open.ply").triangles.size(), folder.mesh("open.stl").triangles.size());
}

TEST(FreecutRepair, APartThatCannotBeMendedIsRefusedForWhatItIs)
{
    FreecutFolder folder;
    folder.addStl(corpus::moebiusBand(40), "band.stl");
    Names const arguments{"zcut", "band.stl", "--height", "0"};
    auto const refused = folder.run(arguments);
    EXPECT_EQ(refused.status, 1);
    Names all = arguments;
    all.insert(all.end(), {"--repair", "all"});
    auto const result = folder.run(all);
    EXPECT_EQ(result.status, 1);
    // Each says what to do next: first the repair, then something else.
    std::string const advice = " With --repair all the part is repaired before it is cut.\n";
    ASSERT_TRUE(refused.errors.ends_with(advice)) << refused.errors;
    EXPECT_EQ(result.errors,
              refused.errors.substr(0, refused.errors.size() - advice.size()) +
                  " A repair does not mend it without changing the shape: close the part in a "
                  "modelling program, or cut elsewhere.\n");
    // And nothing else.
    EXPECT_EQ(result.errors.find("Repair the part"), std::string::npos) << result.errors;
    EXPECT_EQ(folder.files(), (Names{"band.stl"}));
}

TEST(FreecutRepair, EveryCuttingCommandMendsItsPiecesWhenAsked)
{
    FreecutFolder folder;
    Soup part = box(30, 30, 30);
    part.append(box(40, 10, 10, {20, 10, 10}));
    folder.addStl(part, "part.stl");
    folder.addStl(box(11, 60, 60, {14, -10, -10}), "tool.stl");
    std::vector<Names> const commands = {
        {"section", "part.stl", "--center", "0,0,13.1", "--normal", "0,0,1"},
        {"polygon", "part.stl", "--view", "top", "--points", "-5,-5;25,-5;25,40;-5,40"},
        {"cylinder", "part.stl", "--view", "top", "--center", "26,14", "--radius", "8"},
        {"cuboid", "part.stl", "--view", "top", "--center", "26,14", "--length", "9", "--width",
         "8"},
        {"boolean", "part.stl", "tool.stl", "--split"},
    };
    for (Names const& command : commands) {
        std::size_t mended[3] = {}, told[3] = {};
        double volumes[3] = {};
        int place = 0;
        for (Names const& options :
             {Names{}, Names{"--repair", "touched"}, Names{"--repair", "all"}}) {
            Names arguments = command;
            arguments.insert(arguments.end(), options.begin(), options.end());
            arguments.insert(arguments.end(), {"--force", "--allow-open", "--json", "-"});
            auto const result = folder.run(arguments);
            ASSERT_EQ(result.status, 0) << command[0] << result.errors;
            auto const pieces = result.json()["parts"][0]["pieces"];
            for (auto const& piece : pieces) {
                Soup const mesh = folder.mesh(piece["file"]);
                volumes[place] += volumeOf(mesh);
                // The other tools pass along walls of both shells, which may touch in edges then.
                if (place > 0 && command[0] == "section") {
                    EXPECT_EQ(closedSolidFaults(mesh), "");
                }
                told[place] += piece.contains("repair");
                if (piece.contains("repair"))
                    for (auto const& item : piece["repair"]["mended"])
                        mended[place] += item["count"].get<std::size_t>();
            }
            ++place;
        }
        EXPECT_EQ(told[0], 0u) << command[0];
        EXPECT_GT(mended[1], 0u) << command[0];
        // Or left, with the reason, where shells have walls in common.
        EXPECT_GT(told[2], 0u) << command[0];
        EXPECT_NEAR(volumes[0], 31000, 1) << command[0];
        // What counts twice in the part counts once in what is mended.
        if (command[0] == "section") {
            EXPECT_NEAR(volumes[1], 30000, 1);
        }
    }
}
