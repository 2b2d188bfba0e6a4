// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Words = std::vector<std::string>;

class BoxFolder : public FreecutFolder
{
public:
    BoxFolder() { addStl(box(4, 4, 12), "box.stl"); }
};

}  // namespace

TEST(FreecutNamePattern, NamesPiecesByFileNumberAndUsualName)
{
    BoxFolder const folder;
    auto const result =
        folder.run({"zcut", "box.stl", "--every", "1", "--name", "{stem}-{piece:02}"});
    EXPECT_EQ(result.status, 0) << result.errors;
    auto const names = folder.files();
    EXPECT_EQ(names.size(), 13u);
    EXPECT_EQ(names.front(), "box-01.stl");
    EXPECT_EQ(names[11], "box-12.stl");
    // Number 1 is the uppermost, as without a pattern.
    EXPECT_EQ(folder.mesh("box-01.stl").points.front().Z() >= 11, true);
}

TEST(FreecutNamePattern, IsUnderstoodByEveryCommandThatWritesPieces)
{
    BoxFolder folder;
    folder.addStl(box(1, 1, 20), "rod.stl");
    for (Words const& command :
         {Words{"zcut", "box.stl", "--height", "5"},
          Words{"section", "box.stl", "--center", "0,0,5", "--normal", "0,0,1"},
          Words{"cylinder", "box.stl", "--view", "top", "--center", "2,2", "--radius", "1"},
          Words{"boolean", "box.stl", "rod.stl", "--split"}, Words{"repair", "box.stl"},
          Words{"convert", "box.stl"}}) {
        Words arguments = command;
        arguments.insert(arguments.end(), {"--name", "{part}_{piece}{name}", "-o", "pieces"});
        auto const result = folder.run(arguments);
        EXPECT_EQ(result.status, 0) << command.front() << result.errors;
        for (std::string const& name : folder.files("pieces"))
            EXPECT_TRUE(name.starts_with("box_1box") || name.starts_with("box_2box")) << name;
        std::filesystem::remove_all(folder.path("pieces"));
    }
}

TEST(FreecutNamePattern, SaysWhatIsWrongInIt)
{
    BoxFolder const folder;
    for (auto const& [pattern, reason] :
         {std::pair("{step}", "{step} means nothing"), std::pair("{piece", "a brace has no end"),
          std::pair("piece}", "a brace has no beginning"),
          std::pair("{piece:2}", "says no number of digits"),
          std::pair("{piece:00}", "says no number of digits")}) {
        auto const result = folder.run({"zcut", "box.stl", "--height", "5", "--name", pattern});
        EXPECT_EQ(result.status, 2) << pattern;
        EXPECT_THAT(result.errors, HasSubstr(reason)) << pattern;
    }
    EXPECT_THAT(folder.files(), ElementsAre("box.stl"));
}

TEST(FreecutNamePattern, NamesThatWouldBeTheSameAreToldApartByNumbers)
{
    BoxFolder const folder;
    EXPECT_EQ(folder.run({"zcut", "box.stl", "--height", "5", "--name", "{stem}-piece"}).status, 0);
    EXPECT_THAT(folder.files(), ElementsAre("box-piece.stl", "box-piece_2.stl", "box.stl"));
}
