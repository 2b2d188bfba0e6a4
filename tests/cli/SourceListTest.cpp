// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Names = std::vector<std::string>;

/// Parts in a folder and in one within it, among other files.
class FolderOfParts : public FreecutFolder
{
public:
    FolderOfParts()
    {
        std::filesystem::create_directories(path("parts/deep"));
        for (std::string const name : {"parts/b.stl", "parts/a.STL", "parts/deep/c.stl"})
            addStl(box(1, 2, 3), name);
        addFile("parts/notes.txt", "none of these is a part");
        addFile("parts/deep/stl", "nor is this");
        std::filesystem::create_directories(path("empty.stl"));
    }

    Names sourcesOf(Names arguments) const
    {
        arguments.insert(arguments.begin(), "info");
        arguments.insert(arguments.end(), {"--json", "-"});
        auto const result = run(arguments);
        EXPECT_EQ(result.status, 0) << result.errors;
        Names sources;
        auto const report = result.json();
        for (auto const& part : report["parts"])
            sources.push_back(part["source"]);
        return sources;
    }
};

}  // namespace

TEST(FreecutSources, AFolderStandsForTheMeshFilesInItByTheirNames)
{
    FolderOfParts const folder;
    EXPECT_THAT(folder.sourcesOf({"parts"}), ElementsAre("parts/a.STL", "parts/b.stl"));
    EXPECT_THAT(folder.sourcesOf({"parts", "--recursive"}),
                ElementsAre("parts/a.STL", "parts/b.stl", "parts/deep/c.stl"));
    EXPECT_THAT(folder.sourcesOf({"parts/deep/c.stl", "parts"}),
                ElementsAre("parts/deep/c.stl", "parts/a.STL", "parts/b.stl"));
}

TEST(FreecutSources, APatternStandsForWhatItMatchesUnlessAFileHasThatName)
{
    FolderOfParts folder;
    EXPECT_THAT(folder.sourcesOf({"parts/*.stl"}), ElementsAre("parts/b.stl"));
    EXPECT_THAT(folder.sourcesOf({"*/*/?.stl"}), ElementsAre("parts/deep/c.stl"));
    folder.addStl(box(1, 1, 1), "[b].stl");
    EXPECT_THAT(folder.sourcesOf({"[b].stl"}), ElementsAre("[b].stl"));
}

TEST(FreecutSources, WhatStandsForNothingIsAnError)
{
    FolderOfParts const folder;
    auto const nothing = folder.run({"info", "*.ply"});
    EXPECT_EQ(nothing.status, 3);
    EXPECT_THAT(nothing.errors, HasSubstr("'*.ply': no file matches"));
    auto const empty = folder.run({"zcut", "empty.stl", "--height", "1"});
    EXPECT_EQ(empty.status, 3);
    EXPECT_THAT(empty.errors, HasSubstr("--recursive"));
    EXPECT_EQ(folder.run({"info", "empty.stl", "--recursive"}).status, 3);
}

TEST(FreecutSources, AFolderIsCutPartByPart)
{
    FolderOfParts const folder;
    auto const result = folder.run({"zcut", "parts", "--height", "1", "-o", "out"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(folder.files("out"),
                ElementsAre("a_cut1.stl", "a_cut2.stl", "b_cut1.stl", "b_cut2.stl"));
    auto const pair = folder.run({"boolean", "parts", "parts/deep/c.stl", "--union"});
    EXPECT_EQ(pair.status, 2);
    EXPECT_THAT(pair.errors, HasSubstr("takes two files, but 3 were given"));
}
