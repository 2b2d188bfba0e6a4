// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/BothWays.h"
#include "tests/cli/Rings.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Words = std::vector<std::string>;

}  // namespace

TEST(FreecutStream, APieceIsWhatACutInMemoryMakes)
{
    BothWays folder;
    folder.addStl(ring(), "ring.stl");
    folder.expectTheSame({"zcut", "ring.stl", "--height", "1.234"});
}

TEST(FreecutStream, VerticesEdgesAndFacesInThePlaneAreCutAsInMemory)
{
    BothWays fine;
    fine.addStl(ring(), "ring.stl");
    fine.expectTheSame({"zcut", "ring.stl", "--height", "0"});
    BothWays coarse;
    coarse.addStl(torus(20, 7, 4, 4), "coarse.stl");
    coarse.expectTheSame({"zcut", "coarse.stl", "--height", "0"});
    // The lower step ends in the plane.
    BothWays steps;
    steps.addStl(box(30, 10, 10), "low.stl");
    steps.addStl(box(10, 10, 20), "high.stl");
    ASSERT_EQ(steps.run({"boolean", "low.stl", "high.stl", "--union", "-o", "made"}).status, 0);
    std::string const made = "made/" + steps.files("made").front();
    steps.expectTheSame({"zcut", made, "--height", "10"});
}

TEST(FreecutStream, SlicesOfOnePassAreThoseOfCutsInMemory)
{
    BothWays folder;
    folder.addStl(ring(), "ring.stl");
    folder.expectTheSame({"zcut", "ring.stl", "--every", "1.7"});
    BothWays coarse;
    // Triangles that meet many planes.
    coarse.addStl(box(10, 10, 10), "box.stl");
    coarse.expectTheSame({"zcut", "box.stl", "--every", "0.9"});
}

TEST(FreecutStream, TextAndPlyFilesGiveTheSamePieces)
{
    FreecutFolder folder;
    folder.addStl(ring(), "ring.stl");
    ASSERT_EQ(folder.run({"zcut", "ring.stl", "--height", "1", "--stream", "-o", "binary"}).status,
              0);
    for (std::string const format : {"stl-ascii", "ply"}) {
        ASSERT_EQ(folder.run({"convert", "ring.stl", "--format", format, "-o", format}).status, 0);
        std::string const file = folder.files(format).front();
        auto const result = folder.run(
            {"zcut", format + '/' + file, "--height", "1", "--stream", "-o", format + "-pieces"});
        ASSERT_EQ(result.status, 0) << result.errors;
        for (std::string const name : {"/ring_cut1.stl", "/ring_cut2.stl"})
            EXPECT_TRUE(folder.read("binary" + name) == folder.read(format + "-pieces" + name))
                << format;
    }
}

TEST(FreecutStream, StandardInputIsCutAsItComes)
{
    FreecutFolder folder;
    folder.addStl(ring(), "ring.stl");
    std::string const part = folder.read("ring.stl");
    QProcess process;
    folder.prepare(process, {"zcut", "-", "--height", "1", "--stream", "-o", "pieces"});
    process.start();
    process.write(part.data(), qint64(part.size()));
    process.closeWriteChannel();
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    EXPECT_THAT(folder.files("pieces"), ElementsAre("stdin_cut1.stl", "stdin_cut2.stl"));
    for (std::string const name : {"pieces/stdin_cut1.stl", "pieces/stdin_cut2.stl"})
        EXPECT_EQ(closedSolidFaults(folder.mesh(name)), "");
}

TEST(FreecutStream, WhatIsOpenInThePlaneIsRefusedWithThePlaceAndLeavesNothing)
{
    FreecutFolder folder;
    folder.addStl(tornRing(), "torn.stl");
    auto const result =
        folder.run({"zcut", "torn.stl", "--height", "0.1", "--stream", "-o", "pieces"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("near ("));
    EXPECT_THAT(folder.files("pieces"), IsEmpty());
}

TEST(FreecutStream, AHoleElsewhereStaysAndItsPieceIsToldToBeOpen)
{
    FreecutFolder folder;
    Soup part = ring();
    std::erase_if(part.triangles,
                  [&](auto const& corners) { return part.points[corners[0]].Z() > 6.8; });
    folder.addStl(part, "torn.stl");
    Words const command{"zcut", "torn.stl", "--height", "0.1", "--stream", "--json", "-"};
    auto const result = folder.run(command);
    EXPECT_EQ(result.status, 4);
    EXPECT_THAT(result.errors, HasSubstr("torn_cut1.stl: The piece is not closed"));
    auto const pieces = result.json()["parts"][0]["pieces"];
    EXPECT_EQ(pieces[0]["closed"], false);
    EXPECT_EQ(pieces[0]["volume"], nullptr);
    EXPECT_EQ(pieces[1]["closed"], true);
    EXPECT_EQ(closedSolidFaults(folder.mesh("torn_cut2.stl")), "");
}

TEST(FreecutStream, APlaneThatMissesCopiesThePartAndThatIsSaid)
{
    FreecutFolder folder;
    folder.addStl(ring(), "ring.stl");
    auto const result = folder.run({"zcut", "ring.stl", "--height", "30", "--stream"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr("Nothing was cut"));
    EXPECT_THAT(folder.files(), ElementsAre("ring.stl", "ring_cut.stl"));
    EXPECT_EQ(folder.mesh("ring_cut.stl").triangles.size(), ring().triangles.size());
}

TEST(FreecutStream, AFileInTheWayIsKeptAndSoIsAllElse)
{
    FreecutFolder folder;
    folder.addStl(ring(), "ring.stl");
    folder.addFile("ring_cut2.stl", "mine");
    EXPECT_EQ(folder.run({"zcut", "ring.stl", "--height", "1", "--stream"}).status, 3);
    EXPECT_EQ(folder.read("ring_cut2.stl"), "mine");
    EXPECT_THAT(folder.files(), ElementsAre("ring.stl", "ring_cut2.stl"));
    EXPECT_EQ(folder.run({"zcut", "ring.stl", "--height", "1", "--stream", "--force"}).status, 0);
    EXPECT_EQ(closedSolidFaults(folder.mesh("ring_cut2.stl")), "");
}

TEST(FreecutStream, WhatNeedsThePartInMemoryIsRefused)
{
    FreecutFolder folder;
    folder.addStl(ring(), "ring.stl");
    Words const command{"zcut", "ring.stl", "--height", "1", "--stream"};
    for (Words const& more :
         {Words{"--format", "3mf"}, Words{"--repair", "all"}, Words{"-o", "-"}}) {
        auto const result = folder.run(with(command, more));
        EXPECT_EQ(result.status, 2) << more[0];
        EXPECT_THAT(result.errors, HasSubstr("--stream")) << more[0];
    }
    folder.addFile("part.obj", "v 0 0 0\n");
    EXPECT_THAT(folder.run({"zcut", "part.obj", "--height", "1", "--stream"}).errors,
                HasSubstr("only STL and binary PLY"));
    EXPECT_THAT(folder.files(), ElementsAre("part.obj", "ring.stl"));
}

TEST(FreecutStream, IsChosenByItselfWhereThePartWouldNotFitIntoMemory)
{
    if (isUnderSanitizers)
        GTEST_SKIP() << "Sanitizers take more address space than the limit.";
    FreecutFolder folder;
    folder.addStl(sphere(20, 600, 600), "large.stl");
    folder.addFile("jobs", R"({"command":"zcut","files":"large.stl","height":1.2})");
    auto const result = folder.run({"batch", "jobs", "--job-memory", "120"});
    EXPECT_EQ(result.status, 0) << result.errors;
    auto const report = nlohmann::ordered_json::parse(result.output)["report"];
    EXPECT_EQ(report["parts"][0]["streamed"], true);
    for (std::string const name : {"large_cut1.stl", "large_cut2.stl"})
        EXPECT_EQ(closedSolidFaults(folder.mesh(name)), "");
}
