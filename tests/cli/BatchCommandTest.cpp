// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FolderContent.h"
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using Json = nlohmann::ordered_json;
using Words = std::vector<std::string>;

/// Four boxes of different heights, and a list that cuts each at 1.
class FourBoxes : public FreecutFolder
{
public:
    FourBoxes()
    {
        fs::create_directories(path("parts"));
        for (int i = 1; i <= 4; ++i)
            addStl(box(2, 3, float(i + 1)), "parts/box" + std::to_string(i) + ".stl");
        addFile("jobs.jsonl",
                run({"batch", "--make", "zcut parts/*.stl --height 1 --output pieces"}).output);
    }

    Result batch(Words options) const
    {
        options.insert(options.begin(), {"batch", "jobs.jsonl"});
        return run(options);
    }

    std::string pieces() const { return contentOf(*this, "pieces"); }
};

std::vector<Json> resultsIn(std::string const& text)
{
    std::vector<Json> results;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        results.push_back(Json::parse(line));
    return results;
}

std::vector<int> statusesIn(std::string const& text)
{
    std::vector<int> statuses;
    for (Json const& result : resultsIn(text))
        statuses.push_back(result["status"]);
    return statuses;
}

}  // namespace

TEST(FreecutBatchMake, WritesOneJobForEachFileAndReadsQuotesAsAShellDoes)
{
    FreecutFolder folder;
    fs::create_directories(folder.path("two words"));
    folder.addStl(box(1, 1, 1), "two words/a.stl");
    folder.addStl(box(1, 1, 1), "two words/b.stl");
    auto const result =
        folder.run({"batch", "--make",
                    "section 'two words/'*.stl --center=-1,0,0.5 --normal \"0,0,1\" --no-repair"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output,
              "{\"command\":\"section\",\"files\":[\"two words/a.stl\"],\"center\":\"-1,0,0.5\","
              "\"no-repair\":true,\"normal\":\"0,0,1\"}\n"
              "{\"command\":\"section\",\"files\":[\"two words/b.stl\"],\"center\":\"-1,0,0.5\","
              "\"no-repair\":true,\"normal\":\"0,0,1\"}\n");
}

TEST(FreecutBatchMake, KeepsTheTwoFilesOfABooleanTogether)
{
    FreecutFolder folder;
    auto const result = folder.run({"batch", "--make", "boolean a.stl b.stl --subtract"});
    EXPECT_EQ(result.output,
              "{\"command\":\"boolean\",\"files\":[\"a.stl\",\"b.stl\"],\"subtract\":true}\n");
}

TEST(FreecutBatchMake, RefusesWhatNoJobCanHave)
{
    FreecutFolder folder;
    for (auto const& [line, reason] : {std::pair("zcut a.stl --hight 3", "--hight"),
                                       std::pair("manual", "\"manual\" is no command"),
                                       std::pair("zcut a.stl --json -", "the batch's own"),
                                       std::pair("zcut 'a.stl --height 3", "has no end"),
                                       std::pair("zcut --height 3", "with files"),
                                       std::pair("zcut a.stl --height", "takes a value"),
                                       std::pair("zcut a.stl --force=2", "is a switch")}) {
        auto const result = folder.run({"batch", "--make", line});
        EXPECT_EQ(result.status, 2) << line;
        EXPECT_THAT(result.errors, HasSubstr(reason)) << line;
    }
}

TEST(FreecutBatch, GivesTheReportAndThePiecesThatTheCommandGives)
{
    FourBoxes folder;
    auto const result = folder.batch({});
    EXPECT_EQ(result.status, 0) << result.errors;
    auto const results = resultsIn(result.output);
    ASSERT_EQ(results.size(), 4u);
    std::string const ofBatch = folder.pieces();
    fs::remove_all(folder.path("pieces"));

    for (int i = 1; i <= 4; ++i) {
        Json const& own = results[std::size_t(i - 1)];
        EXPECT_EQ(own["line"], i);
        EXPECT_EQ(own["status"], 0);
        EXPECT_GT(own["measured"]["seconds"], 0);
        EXPECT_GT(own["measured"]["peakMemoryMb"], 1);
        auto report = folder
                          .run({"zcut", "parts/box" + std::to_string(i) + ".stl", "--height", "1",
                                "-o", "pieces", "--threads", "1", "--json", "-"})
                          .json();
        report.erase("seconds");
        EXPECT_EQ(own["report"], report);
    }
    EXPECT_EQ(folder.pieces(), ofBatch);
}

TEST(FreecutBatch, UnderstandsNumbersListsAndSwitches)
{
    FreecutFolder folder;
    folder.addStl(box(2, 3, 4), "a.stl");
    folder.addFile("jobs",
                   "\n{\"files\":\"a.stl\",\"command\":\"section\",\"center\":[0,0,1.5],"
                   "\"normal\":[0,0,1],\"name\":[\"top\",\"bottom\"],\"force\":true,"
                   "\"quiet-no\":false}\n");
    auto const result = folder.run({"batch", "jobs"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(folder.files(), ElementsAre("a.stl", "a_bottom.stl", "a_top.stl", "jobs"));
    EXPECT_EQ(resultsIn(result.output).at(0)["line"], 2);
}

TEST(FreecutBatch, AWrongLineIsNamedBeforeAnythingIsDone)
{
    FourBoxes folder;
    for (auto const& [line, reason] :
         {std::pair("{\"command\":", "it is no JSON object"),
          std::pair("[1]", "\"command\" and \"files\""),
          std::pair("{\"command\":\"zcut\",\"files\":[]}", "\"files\" takes"),
          std::pair("{\"command\":\"batch\",\"files\":\"a\"}", "is no command that a job can have"),
          std::pair("{\"command\":\"zcut\",\"files\":\"a\",\"hight\":3}",
                    "is no option of freecut zcut"),
          std::pair("{\"command\":\"zcut\",\"files\":\"a\",\"height\":{}}", "a text, a number")}) {
        folder.addFile("wrong", folder.read("jobs.jsonl") + line + '\n');
        auto const result = folder.run({"batch", "wrong"});
        EXPECT_EQ(result.status, 2) << line;
        EXPECT_THAT(result.errors, HasSubstr("Line 5 of wrong: ")) << line;
        EXPECT_THAT(result.errors, HasSubstr(reason)) << line;
        EXPECT_FALSE(fs::exists(folder.path("pieces")));
    }
}

TEST(FreecutBatch, AFileThatCannotBeCutHarmsOnlyItsOwnLine)
{
    FourBoxes folder;
    folder.addFile("parts/box2.stl", "solid of nothing");
    fs::remove(folder.path("parts/box3.stl"));
    auto const result = folder.batch({});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(statusesIn(result.output), ElementsAre(0, 3, 3, 0));
    EXPECT_THAT(result.errors, HasSubstr("Line 2: "));
    EXPECT_THAT(result.errors, HasSubstr("parts/box3.stl"));
    EXPECT_THAT(folder.files("pieces"),
                ElementsAre("box1_cut1.stl", "box1_cut2.stl", "box4_cut1.stl", "box4_cut2.stl"));
}

TEST(FreecutBatch, AFileInTheWayIsKeptAndNoneOfTheOtherPiecesAppears)
{
    FourBoxes folder;
    fs::create_directories(folder.path("pieces"));
    folder.addFile("pieces/box2_cut2.stl", "mine");
    auto const result = folder.batch({});
    EXPECT_THAT(statusesIn(result.output), ElementsAre(0, 3, 0, 0));
    EXPECT_EQ(folder.read("pieces/box2_cut2.stl"), "mine");
    EXPECT_FALSE(fs::exists(folder.path("pieces/box2_cut1.stl")));
}

TEST(FreecutBatch, ASecondRunDoesOnlyWhatIsMissing)
{
    FourBoxes folder;
    auto const first = folder.batch({"--state", "done", "--stable"});
    EXPECT_THAT(first.errors, Not(HasSubstr("runs before")));
    auto const second = folder.batch({"--state", "done", "--stable"});
    EXPECT_EQ(second.output, first.output);
    EXPECT_THAT(second.errors, HasSubstr("4 of them in runs before"));

    // A part that has changed, and a piece that has gone.
    folder.addStl(box(2, 3, 7), "parts/box1.stl");
    fs::remove(folder.path("pieces/box1_cut1.stl"));
    fs::remove(folder.path("pieces/box1_cut2.stl"));
    fs::remove(folder.path("pieces/box4_cut2.stl"));
    auto const third = folder.batch({"--state", "done", "--stable"});
    EXPECT_EQ(third.status, 0) << third.errors;
    EXPECT_THAT(third.errors, HasSubstr("2 of them in runs before"));
    EXPECT_TRUE(fs::exists(folder.path("pieces/box4_cut2.stl")));
    EXPECT_THAT(folder.files("done/work"), IsEmpty());
}

TEST(FreecutBatch, AFailureOfTheCutIsRememberedUntilItIsAskedForAgain)
{
    FourBoxes folder;
    Soup open = box(2, 3, 4);
    open.triangles.pop_back();
    folder.addStl(open, "parts/box2.stl");
    auto const arguments = Words{"--state", "done"};
    EXPECT_THAT(statusesIn(folder.batch(arguments).output), ElementsAre(0, 1, 0, 0));
    EXPECT_THAT(folder.batch(arguments).errors, HasSubstr("4 of them in runs before"));
    EXPECT_THAT(folder.batch({"--state", "done", "--retry-failed"}).errors,
                HasSubstr("3 of them in runs before"));
}

TEST(FreecutBatch, AnInputFileOfAnOptionBelongsToTheJob)
{
    FreecutFolder folder;
    folder.addStl(box(20, 20, 20), "a.stl");
    auto const outlineOf = [](int size) {
        return "<svg xmlns='http://www.w3.org/2000/svg'><path d='M 0 0 H " + std::to_string(size) +
               " V 5 H 0 Z'/></svg>";
    };
    folder.addFile("shape.svg", outlineOf(5));
    folder.addFile("jobs",
                   "{\"command\":\"polygon\",\"files\":\"a.stl\",\"view\":\"top\","
                   "\"outline\":\"shape.svg\",\"force\":true}");
    Words const arguments{"batch", "jobs", "--state", "done"};
    EXPECT_EQ(folder.run(arguments).status, 0) << folder.run(arguments).errors;
    EXPECT_THAT(folder.run(arguments).errors, HasSubstr("1 of them in runs before"));
    folder.addFile("shape.svg", outlineOf(6));
    EXPECT_THAT(folder.run(arguments).errors, Not(HasSubstr("runs before")));
}

TEST(FreecutBatch, ExpectsAboutTheMemoryThatJobsTake)
{
    if (isUnderSanitizers)
        GTEST_SKIP() << "memory is another one under sanitizers";
    FreecutFolder folder;
    folder.addStl(torus(20, 7, 500, 300), "ring.stl");
    for (std::string const format : {"stl-ascii", "obj", "off", "ply", "ply-ascii", "3mf"})
        ASSERT_EQ(folder.run({"convert", "ring.stl", "--format", format, "-o", format}).status, 0);
    folder.addFile("jobs.jsonl",
                   R"({"command": "info", "files": "3mf/ring.3mf"}
{"command": "info", "files": "stl-ascii/ring.stl"}
{"command": "convert", "files": "ply-ascii/ring.ply", "format": "off", "output": "made"}
{"command": "repair", "files": "obj/ring.obj", "output": "repaired"}
{"command": "zcut", "files": "ring.stl", "height": 1, "output": "cut"}
{"command": "zcut", "files": "off/ring.off", "every": 2, "output": "slices"}
{"command": "section", "files": "ply/ring.ply", "center": "0,0,1", "normal": "0,1,1", "output": "section"}
{"command": "cuboid", "files": "3mf/ring.3mf", "view": "top", "center": "20,0", "length": 20, "width": 20, "output": "in"}
)");
    auto const result = folder.run({"batch", "jobs.jsonl", "--results", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    for (Json const& line : resultsIn(result.output)) {
        double const expected = line["measured"]["expectedMemoryMb"];
        double const taken = line["measured"]["peakMemoryMb"];
        EXPECT_GT(expected, taken / 1.5) << line["command"] << line["files"];
        EXPECT_LT(expected, taken * 1.5) << line["command"] << line["files"];
    }
}
