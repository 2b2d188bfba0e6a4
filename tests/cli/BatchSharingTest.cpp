// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FolderContent.h"
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <set>
#include <signal.h>
#include <sstream>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Json = nlohmann::ordered_json;
using Words = std::vector<std::string>;

constexpr int partCount = 24;

/// Many small parts, each cut in two, by runs that share one state folder.
class ManyBoxes : public FreecutFolder
{
public:
    ManyBoxes()
    {
        fs::create_directories(path("parts"));
        for (int i = 0; i < partCount; ++i)
            addStl(box(2, 3, float(i + 2)), "parts/box" + std::to_string(i + 10) + ".stl");
        addFile("jobs", run({"batch", "--make", "zcut parts --height 1 --output pieces"}).output);
    }

    Words batch(Words options = {}) const
    {
        options.insert(options.begin(), {"batch", "jobs", "--state", "done", "--stable"});
        return options;
    }

    std::string pieces() const { return contentOf(*this, "pieces"); }

    /// Each result that is remembered speaks of pieces that are there as a whole.
    void expectOnlyWhatWasDone() const
    {
        if (!fs::exists(path("done/results")))
            return;
        for (auto const& entry : fs::recursive_directory_iterator(path("done/results"))) {
            // What a killed process was writing bears another name.
            if (entry.path().extension() != ".json")
                continue;
            std::string const name = fs::relative(entry.path(), path(".")).string();
            Json const result = Json::parse(read(name));
            for (Json const& piece : result["report"]["parts"][0]["pieces"])
                EXPECT_EQ(mesh(piece["file"]).triangles.size(), piece["triangles"]);
        }
    }
};

int processesIn(std::string const& folder)
{
    int count = 0;
    std::error_code error;
    for (auto const& entry : fs::directory_iterator("/proc", error))
        count += fs::read_symlink(entry.path() / "cwd", error) == fs::path(folder);
    return count;
}

}  // namespace

TEST(FreecutBatchShards, AreDisjointAndTogetherTheWhole)
{
    ManyBoxes folder;
    std::set<int> lines;
    std::size_t count = 0, fewest = partCount;
    for (int number = 1; number <= 3; ++number) {
        auto const result = folder.run(folder.batch({"--shard", std::to_string(number) + "/3"}));
        EXPECT_EQ(result.status, 0) << result.errors;
        std::istringstream text(result.output);
        std::size_t own = 0;
        for (std::string line; std::getline(text, line); ++own)
            lines.insert(Json::parse(line)["line"].get<int>());
        count += own;
        fewest = std::min(fewest, own);
    }
    EXPECT_EQ(count, std::size_t(partCount));
    EXPECT_EQ(lines.size(), std::size_t(partCount));
    EXPECT_GT(fewest, 0u);

    auto const merged = folder.run({"batch", "--merge", "--state", "done", "--stable"});
    EXPECT_EQ(merged.status, 0) << merged.errors;
    std::string const piecesOfShards = folder.pieces();
    fs::remove_all(folder.path("done"));
    fs::remove_all(folder.path("pieces"));
    EXPECT_EQ(folder.run(folder.batch()).output, merged.output);
    EXPECT_EQ(folder.pieces(), piecesOfShards);
}

TEST(FreecutBatchShards, AMergeNamesThosePartsThatAreMissing)
{
    ManyBoxes folder;
    auto const none = folder.run({"batch", "--merge", "--state", "done"});
    EXPECT_EQ(none.status, 2);
    EXPECT_THAT(none.errors, HasSubstr("There are no results in done yet."));
    folder.run(folder.batch({"--shard", "2/3"}));
    auto const some = folder.run({"batch", "--merge", "--state", "done"});
    EXPECT_EQ(some.status, 2);
    EXPECT_THAT(some.errors, HasSubstr("--shard 1/3, 3/3 first"));
    EXPECT_EQ(some.output, "");
}

TEST(FreecutBatchShards, AreNamedFromOneToTheirNumber)
{
    ManyBoxes folder;
    for (std::string const wrong : {"0/3", "4/3", "1", "1/", "/2", "a/b", "1/0"}) {
        auto const result = folder.run(folder.batch({"--shard", wrong}));
        EXPECT_EQ(result.status, 2) << wrong;
        EXPECT_THAT(result.errors, HasSubstr("such as 1/4 to 4/4")) << wrong;
    }
    EXPECT_FALSE(fs::exists(folder.path("pieces")));
}

TEST(FreecutBatchState, AfterAnyNumberOfKillsARunGivesWhatOneWithoutThemGives)
{
    ManyBoxes folder;
    auto const undisturbed = folder.run(folder.batch());
    std::string const pieces = folder.pieces();
    fs::remove_all(folder.path("done"));
    fs::remove_all(folder.path("pieces"));

    std::mt19937 random(7);
    for (int kill = 0; kill < 12; ++kill) {
        QProcess process;
        folder.prepare(process, folder.batch());
        process.start();
        process.waitForStarted(-1);
        process.waitForFinished(int(random() % 150));
        process.kill();
        process.waitForFinished(-1);
        folder.expectOnlyWhatWasDone();
    }
    auto const last = folder.run(folder.batch());
    EXPECT_EQ(last.status, 0) << last.errors;
    EXPECT_EQ(last.output, undisturbed.output);
    EXPECT_EQ(folder.pieces(), pieces);
    EXPECT_THAT(folder.files("done/work"), IsEmpty());
}

TEST(FreecutBatchLimits, AJobThatTakesTooLongIsEndedAndDoneInALaterRunWithMoreTime)
{
    FreecutFolder folder;
    folder.addStl(sphere(2, 400, 400), "large.stl");
    folder.addStl(box(1, 1, 1), "small.stl");
    folder.addFile("jobs",
                   "{\"command\":\"repair\",\"files\":\"large.stl\"}\n"
                   "{\"command\":\"info\",\"files\":\"small.stl\"}\n");
    Words const arguments{"batch", "jobs", "--state", "done"};
    Words limited = arguments;
    limited.insert(limited.end(), {"--job-timeout", "0.05", "--jobs", "1"});
    auto const result = folder.run(limited);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("Line 1: It was ended after "));
    EXPECT_THAT(result.output, HasSubstr("\"line\":2"));
    EXPECT_THAT(folder.files(), ElementsAre("done", "jobs", "large.stl", "small.stl"));
    auto const later = folder.run(arguments);
    EXPECT_EQ(later.status, 0) << later.errors;
}

TEST(FreecutBatchLimits, AJobThatTakesTooMuchMemoryIsToldSoAndLeavesNothing)
{
    FreecutFolder folder;
    folder.addStl(sphere(2, 400, 400), "large.stl");
    folder.addFile("jobs", "{\"command\":\"info\",\"files\":\"large.stl\"}");
    auto const result = folder.run({"batch", "jobs", "--job-memory", "32"});
    EXPECT_NE(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr("Line 1: "));
    EXPECT_THAT(result.errors, HasSubstr("memory"));
    EXPECT_EQ(folder.run({"batch", "jobs"}).status, 0);
}

TEST(FreecutBatchCancel, EndsTheJobsThatRunAndKeepsWhatWasDone)
{
    FreecutFolder folder;
    folder.addStl(sphere(2, 400, 400), "large.stl");
    folder.addStl(box(1, 1, 1), "small.stl");
    folder.addFile("jobs",
                   "{\"command\":\"info\",\"files\":\"small.stl\"}\n"
                   "{\"command\":\"zcut\",\"every\":0.01,\"files\":\"large.stl\"}\n");
    QProcess process;
    folder.prepare(process, {"batch", "jobs", "--state", "done"});
    process.start();
    ASSERT_TRUE(waitUntilInterruptible(process));
    while (processesIn(folder.path("")) < 2 || !fs::exists(folder.path("done/results")))
        ASSERT_FALSE(process.waitForFinished(5)) << "the batch is over before it can be cancelled";
    process.terminate();
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 143);
    EXPECT_EQ(processesIn(folder.path("")), 0);
    EXPECT_THAT(folder.files("done/work"), IsEmpty());
    EXPECT_THAT(folder.files(), ElementsAre("done", "jobs", "large.stl", "small.stl"));
    EXPECT_THAT(
        folder.run({"batch", "jobs", "--state", "done", "--shard", "1/1", "--job-timeout", "0.05"})
            .errors,
        HasSubstr("1 of them in runs before"));
}

TEST(FreecutBatchCancel, WaitingForTheListEndsAtOnce)
{
    FreecutFolder const folder;
    QProcess process;
    folder.prepare(process, {"batch", "-"});
    process.start();
    ASSERT_TRUE(waitUntilInterruptible(process));
    process.terminate();
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 143);
}
