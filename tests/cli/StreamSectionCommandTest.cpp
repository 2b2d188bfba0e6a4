// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/AllOrNothing.h"
#include "tests/cli/BothWays.h"
#include "tests/cli/Rings.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Words = std::vector<std::string>;

Words sectionOf(std::string const& file, std::string const& center, std::string const& normal)
{
    return {"section", file, "--center=" + center, "--normal=" + normal};
}

std::string asText(UPoint3<float> const& p)
{
    nlohmann::json const numbers{p.X(), p.Y(), p.Z()};
    std::string const text = numbers.dump();
    return text.substr(1, text.size() - 2);
}

Soup moved(Soup soup, UVector3<float> const& way)
{
    for (UPoint3<float>& point : soup.points)
        point = point + way;
    return soup;
}

}  // namespace

TEST(FreecutStreamedSection, PiecesAreThoseOfACutInMemory)
{
    BothWays folder;
    folder.addStl(ring(), "ring.stl");
    folder.expectTheSame(sectionOf("ring.stl", "1,2,0.5", "0.3,-0.5,1"));
    folder.expectTheSame(sectionOf("ring.stl", "1,2,0.5", "-1,0,0"));
    folder.expectTheSame(with(sectionOf("ring.stl", "1,2,0.5", "3,1,-1"), {"--size", "20,90"}));
}

TEST(FreecutStreamedSection, VerticesEdgesAndFacesInThePlaneAreCutAsInMemory)
{
    BothWays blocks;
    blocks.addStl(box(10, 10, 10), "box.stl");
    // Through upright edges and diagonals; through three corners; through the middles of six edges.
    for (char const* const normal : {"1,-1,0", "-1,1,0"})
        blocks.expectTheSame(sectionOf("box.stl", "5,5,5", normal));
    blocks.expectTheSame(sectionOf("box.stl", "10,0,0", "1,1,1"));
    blocks.expectTheSame(sectionOf("box.stl", "5,5,5", "1,1,1"));
    // A step that ends in the plane.
    BothWays steps;
    steps.addStl(box(10, 10, 30), "low.stl");
    steps.addStl(box(20, 10, 10), "high.stl");
    ASSERT_EQ(steps.run({"boolean", "low.stl", "high.stl", "--union", "-o", "made"}).status, 0);
    std::string const made = "made/" + steps.files("made").front();
    for (char const* const normal : {"1,0,0", "-1,0,0"})
        steps.expectTheSame(sectionOf(made, "10,3,3", normal));
}

TEST(FreecutStreamedSection, PlanesThroughVerticesInAnyDirectionAreCutAsInMemory)
{
    BothWays folder;
    // So far from the origin that rounding moves the plane.
    Soup const part = moved(ring(), {400, -300, 150});
    folder.addStl(part, "ring.stl");
    std::mt19937 random(18);
    for (int round = 0; round < 12; ++round) {
        auto const component = [&] { return float(int(random() % 2001) - 1000) / 1000; };
        UPoint3<float> const& vertex = part.points[random() % part.points.size()];
        UPoint3<float> const normal(component(), component(), component());
        folder.expectTheSame(sectionOf("ring.stl", asText(vertex), asText(normal)), 1);
    }
}

TEST(FreecutStreamedSection, APieceCutOnceMoreInItsOwnFaceIsLeftWhole)
{
    BothWays folder;
    folder.addStl(box(10, 10, 10), "box.stl");
    ASSERT_EQ(folder.run(sectionOf("box.stl", "5,5,5", "1,1,1")).status, 0);
    for (std::string const piece : {"box_cut1.stl", "box_cut2.stl"}) {
        folder.expectTheSame(sectionOf(piece, "5,5,5", "1,1,1"), 1);
        EXPECT_EQ(folder.files("streamed").size(), 1u) << piece;
    }
}

TEST(FreecutStreamedSection, FacesThatRoundingHasLeftBesideThePlaneAreCutAsInMemory)
{
    BothWays folder;
    folder.addStl(moved(box(10, 10, 10), {70.1f, 30.3f, -20.7f}), "box.stl");
    for (char const* const normal : {"1,0.3,0.7", "-0.2,1,0.1", "0.3,-0.4,1", "1,1,-0.9"}) {
        Words const plane = sectionOf("box.stl", "75,35,-16", normal);
        ASSERT_EQ(folder.run(with(plane, {"--force"})).status, 0);
        for (std::string const piece : {"box_cut1.stl", "box_cut2.stl"})
            folder.expectTheSame(sectionOf(piece, "75,35,-16", normal), 1);
    }
}

TEST(FreecutStreamedSection, APlaneThatMayBeOffByMoreThanWasKeptIsRefused)
{
    FreecutFolder folder;
    folder.addStl(ring(), "ring.stl");
    // Corners a millimetre from a centre two kilometres away say little of a direction.
    auto const result = folder.run(
        with(sectionOf("ring.stl", "0,2000000,0", "1,0.00001,0.3"), {"--size", "1,1", "--stream"}));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("would not be exact enough over the whole part"));
    EXPECT_THAT(folder.files(), ElementsAre("ring.stl"));
}

TEST(FreecutStreamedSection, WhatIsOpenInThePlaneIsRefusedWithThePlaceAndLeavesNothing)
{
    FreecutFolder folder;
    folder.addStl(tornRing(), "torn.stl");
    auto const result = folder.run(with(sectionOf("torn.stl", "0,0,0", "0.01,0,1"), {"--stream"}));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("near ("));
    EXPECT_THAT(folder.files(), ElementsAre("torn.stl"));
}

TEST(FreecutStreamedSection, WhatNeedsThePartInMemoryIsRefusedByName)
{
    FreecutFolder folder;
    folder.addStl(ring(), "ring.stl");
    Words const command = with(sectionOf("ring.stl", "0,0,0", "0,0,1"), {"--stream"});
    for (std::string const option :
         {"--pins", "--holes", "--lap-joint", "--bounded", "--keep-original", "--dry-run"}) {
        auto const result = folder.run(with(command, {option}));
        EXPECT_EQ(result.status, 2) << option;
        EXPECT_THAT(result.errors, HasSubstr(option + " needs parts in memory"));
    }
    EXPECT_THAT(folder.files(), ElementsAre("ring.stl"));
}

TEST(FreecutStreamedSection, NamesAndTheWordForWhatMissesAreThoseOfACutInMemory)
{
    FreecutFolder folder;
    folder.addStl(ring(), "ring.stl");
    auto const named = folder.run(with(sectionOf("ring.stl", "0,0,1", "0,1,5"),
                                       {"--stream", "--name", "top,bottom", "-o", "named"}));
    EXPECT_EQ(named.status, 0) << named.errors;
    EXPECT_THAT(folder.files("named"), ElementsAre("ring_bottom.stl", "ring_top.stl"));
    auto const missed = folder.run(with(sectionOf("ring.stl", "0,0,9", "0,0,1"),
                                        {"--stream", "--fail-if-uncut", "-o", "missed"}));
    EXPECT_EQ(missed.status, 1);
    EXPECT_THAT(missed.errors, HasSubstr("Nothing was cut: the plane misses the part."));
    EXPECT_THAT(folder.files("missed"), testing::IsEmpty());
}

TEST(FreecutStreamedSection, ACancelAtAnyMomentLeavesAllPiecesOrNothing)
{
    FreecutFolder folder;
    folder.addStl(sphere(20, 700, 700), "large.stl");
    expectAllOrNothing(
        folder, with(sectionOf("large.stl", "0,0,1", "1,2,3"), {"--stream", "-o", "pieces"}));
}

TEST(FreecutStreamedSection, StandardInputIsCutAsItComes)
{
    FreecutFolder folder;
    folder.addStl(ring(), "stdin.stl");
    Words const command = with(sectionOf("-", "0,0,1", "1,2,3"), {"--stream", "-o", "piped"});
    QProcess process;
    folder.prepare(process, command);
    process.setStandardInputFile(QString::fromStdString(folder.path("stdin.stl")));
    process.start();
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    ASSERT_EQ(folder.run(with(sectionOf("stdin.stl", "0,0,1", "1,2,3"), {"--stream", "-o", "file"}))
                  .status,
              0);
    for (std::string const name : {"/stdin_cut1.stl", "/stdin_cut2.stl"})
        EXPECT_TRUE(folder.read("piped" + name) == folder.read("file" + name)) << name;
}

TEST(FreecutStreamedSection, IsChosenByItselfForPlainCutsOfWhatWouldNotFitIntoMemory)
{
    if (isUnderSanitizers)
        GTEST_SKIP() << "Sanitizers take more address space than the limit.";
    FreecutFolder folder;
    folder.addStl(sphere(20, 600, 600), "large.stl");
    folder.addFile(
        "jobs", R"({"command":"section","files":"large.stl","center":[0,0,1],"normal":[1,2,3]})");
    auto const result = folder.run({"batch", "jobs", "--job-memory", "120"});
    EXPECT_EQ(result.status, 0) << result.errors;
    auto const report = nlohmann::ordered_json::parse(result.output)["report"];
    EXPECT_EQ(report["parts"][0]["streamed"], true);
    for (std::string const name : {"large_cut1.stl", "large_cut2.stl"})
        EXPECT_EQ(closedSolidFaults(folder.mesh(name)), "");
}
