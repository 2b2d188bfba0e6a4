// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"
#include "tools/TeethLayout.h"
#include "tools/TeethShapes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Names = std::vector<std::string>;
using Json = nlohmann::ordered_json;

/// A block of 40 x 30 x 20 mm, and in it a rectangle of 20 x 15 mm whose corners run anticlockwise.
struct ToothedBlock : FreecutFolder
{
    ToothedBlock() { addStl(box(40, 30, 20), "block.stl"); }

    Result cut(Names const& teeth, Names const& more = {}) const
    {
        Names arguments{"polygon", "block.stl", "--view", "top", "--points", "5,5;25,5;25,20;5,20",
                        "--json",  "-",         "--force"};
        for (std::string const& text : teeth) {
            arguments.push_back("--teeth");
            arguments.push_back(text);
        }
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }

    /// Of the piece within the tool; the others are what is left of the block.
    double volumeWithin(Names const& teeth) const
    {
        Result const result = cut(teeth);
        EXPECT_EQ(result.status, 0) << result.errors;
        double within = 0, all = 0;
        Json const report = result.json();
        for (auto const& piece : report["parts"][0]["pieces"]) {
            EXPECT_EQ(closedSolidFaults(mesh(piece["file"])), "");
            double const volume = volumeOf(mesh(piece["file"]));
            within = all == 0 ? volume : within;
            all += volume;
        }
        EXPECT_NEAR(all, 24000, 0.5);
        return within;
    }
};

constexpr double plain = 20 * 15 * 20;

}  // namespace

TEST(FreecutTeeth, EachStyleAddsItsTeeth)
{
    ToothedBlock const folder;
    EXPECT_NEAR(folder.volumeWithin({"jagged:1;width=2;height=1;count=4"}), plain + 4 * 1 * 20,
                0.2);
    EXPECT_NEAR(folder.volumeWithin({"dovetail:1;width=2;lower=1;height=1;count=4"}),
                plain + 4 * 1.5 * 20, 0.2);
    // Two arcs take from the tab what two others give; what is left is a rectangle.
    EXPECT_NEAR(folder.volumeWithin({"puzzle:1;width=3;height=2;count=4"}), plain + 4 * 4 * 20, 60);
}

TEST(FreecutTeeth, FlippedTeethAreTakenAway)
{
    ToothedBlock const folder;
    EXPECT_NEAR(folder.volumeWithin({"jagged:1;count=4;flip"}), plain - 4 * 1 * 20, 0.2);
}

TEST(FreecutTeeth, EdgesMayHaveTeethOfTheirOwn)
{
    ToothedBlock const folder;
    EXPECT_NEAR(folder.volumeWithin({"jagged:1,3;count=4", "dovetail:2;count=2"}),
                plain + (8 * 1 + 2 * 1.5) * 20, 0.2);
    EXPECT_NEAR(folder.volumeWithin({"jagged:all;count=3"}), plain + 12 * 1 * 20, 0.2);
}

TEST(FreecutTeeth, WhatFollowsThemIsAFile)
{
    ToothedBlock const folder;
    auto const result =
        folder.run({"polygon", "--view", "top", "--points", "5,5;25,5;25,20;5,20",
                    "--teeth=jagged:1;count=4", "--teeth=dovetail:2;count=2", "block.stl"});
    EXPECT_EQ(result.status, 0) << result.errors;
}

TEST(FreecutTeeth, SpacingByDistanceIsWhatStandsIfNothingIsGiven)
{
    // (20 - 2) / 3 + 1 teeth; an offset of 4 mm leaves (16 - 2) / 3 + 1.
    ToothedBlock const folder;
    EXPECT_NEAR(folder.volumeWithin({"jagged:1"}), plain + 7 * 20, 0.2);
    EXPECT_NEAR(folder.volumeWithin({"jagged:1;distance=3;offset=4"}), plain + 5 * 20, 0.2);
}

TEST(FreecutTeeth, PointsAreThoseOfTheWindow)
{
    // The window's own layout and shapes, on the same edge.
    Freecut::TeethParas paras;
    paras.teethStyle = Freecut::TEETH_PUZZLE;
    paras.teethWidth = 3;
    paras.teethHeight = 2;
    paras.teethCount = 4;
    paras.useOffset = true;
    paras.teethOffset = 1;
    Freecut::EdgeFrame const edge({5, 5, 0}, {25, 5, 0}, {0, 0, 1}, true);
    Freecut::TeethLayout layout;
    ASSERT_EQ(Freecut::layOutTeeth(paras, 20, layout), Freecut::TeethFault::None);
    auto const expected =
        Freecut::rowOfTeeth(paras, edge, Freecut::teethCentres(edge, layout)).points;

    ToothedBlock const folder;
    auto const result = folder.cut({"puzzle:1;width=3;height=2;count=4;offset=1"}, {"--dry-run"});
    ASSERT_EQ(result.status, 0) << result.errors;
    Json const outline = result.json()["tool"]["outlines"]["nominal"][0];
    ASSERT_EQ(outline.size(), 4 + expected.size());
    for (UPoint3<float> const& point : expected) {
        double nearest = 1e9;
        for (auto const& p : outline)
            nearest = std::min(nearest, std::hypot(p[0].get<double>() - double(point.X()),
                                                   p[1].get<double>() - double(point.Y())));
        // Outlines are whole thousandths, truncated.
        EXPECT_LT(nearest, 0.002) << point.X() << ' ' << point.Y();
    }
}

TEST(FreecutTeeth, TheGapAroundThemIsTheClearance)
{
    ToothedBlock const folder;
    auto const result = folder.cut({"dovetail:1;count=4"}, {"--clearance", "0.1"});
    ASSERT_EQ(result.status, 0) << result.errors;
    double all = 0;
    Json const report = result.json();
    for (auto const& piece : report["parts"][0]["pieces"])
        all += volumeOf(folder.mesh(piece["file"]));
    // Along a dovetail the outline is 2 + 2 sqrt(1.25) mm instead of 1 mm.
    double const length = 2 * (20 + 15) + 4 * (1 + 2 * std::sqrt(1.25));
    EXPECT_NEAR(24000 - all, length * 0.1 * 20, 3);
}

TEST(FreecutTeeth, WhatDoesNotFitIsRefusedWithAReason)
{
    struct Row
    {
        Names teeth;
        std::string why;
    };
    ToothedBlock const folder;
    for (Row const& row :
         std::vector<Row>{{{"round:1"}, "jagged, dovetail or puzzle"},
                          {{"jagged"}, "a colon and edges"},
                          {{"jagged:5"}, "edges from 1 to 4, or all"},
                          {{"jagged:"}, "edges from 1 to 4, or all"},
                          {{"jagged:1;lower=1"}, "for dovetails, lower"},
                          {{"jagged:1;count=0"}, "a count from 1 to 9,999"},
                          {{"jagged:1;count=2.5"}, "a count from 1 to 9,999"},
                          {{"jagged:1;count=2;distance=3"}, "not both"},
                          {{"jagged:1;width=2;width=3"}, "takes width once"},
                          {{"jagged:1;width"}, "--teeth width"},
                          {{"jagged:1;offset=-1"}, "must be 0 mm or more"},
                          {{"jagged:1;width=4"}, "edge 1: The teeth would overlap"},
                          {{"dovetail:2;width=4"}, "edge 2: The teeth would overlap"},
                          {{"puzzle:1;width=1;height=2"}, "its height or more"},
                          {{"jagged:2;offset=15"}, "edge 2: The offset is as long as the edge"},
                          {{"jagged:1", "puzzle:all"}, "edge 1: It has teeth already"}}) {
        auto const result = folder.cut(row.teeth);
        EXPECT_EQ(result.status, 2) << row.why;
        EXPECT_NE(result.errors.find(row.why), std::string::npos) << result.errors;
        EXPECT_EQ(folder.files(), Names{"block.stl"});
    }
}

TEST(FreecutTeeth, AnEdgeThatIsTooShortForAToothIsTold)
{
    ToothedBlock const folder;
    auto const result = folder.cut({"jagged:2;width=16;distance=20"}, {"--dry-run"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_NE(result.errors.find("1 edge is too short for a tooth"), std::string::npos)
        << result.errors;
}
