// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

using Names = std::vector<std::string>;

TEST(FreecutConvert, WritesEveryFormatAndBackTheSameTriangles)
{
    FreecutFolder folder;
    folder.addStl(torus(5, 2, 30, 20), "ring.stl");
    for (auto const& [format, extension] : {std::pair("stl-ascii", "stl"),
                                            {"ply", "ply"},
                                            {"ply-ascii", "ply"},
                                            {"obj", "obj"},
                                            {"off", "off"},
                                            {"3mf", "3mf"}}) {
        SCOPED_TRACE(format);
        std::string const there = std::string("to-") + format, back = std::string("from-") + format;
        auto const away = folder.run({"convert", "ring.stl", "--format", format, "-o", there});
        ASSERT_EQ(away.status, 0) << away.errors;
        EXPECT_EQ(away.errors, "");
        auto const home =
            folder.run({"convert", there + "/ring." + extension, "--format", "stl", "-o", back});
        ASSERT_EQ(home.status, 0) << home.errors;
        Soup const source = folder.mesh("ring.stl"), copy = folder.mesh(back + "/ring.stl");
        EXPECT_TRUE(copy.triangles == source.triangles);
        EXPECT_TRUE(copy.points == source.points);
    }
}

TEST(FreecutConvert, NeverReplacesAFileUnasked)
{
    FreecutFolder folder;
    folder.addStl(box(1, 2, 3), "box.stl");
    std::string const before = folder.read("box.stl");
    auto const result = folder.run({"convert", "box.stl", "--unit", "cm"});
    EXPECT_EQ(result.status, 3);
    EXPECT_NE(result.errors.find("--force"), std::string::npos) << result.errors;
    EXPECT_EQ(folder.read("box.stl"), before);
    ASSERT_EQ(folder.run({"convert", "box.stl", "--unit", "cm", "--force"}).status, 0);
    EXPECT_DOUBLE_EQ(volumeOf(folder.mesh("box.stl")), 6000);
}

TEST(FreecutConvert, AnOpenPartStaysOpenAndIsToldWithoutAFailure)
{
    FreecutFolder folder;
    folder.addStl(openBox(2, 3, 4), "open.stl");
    auto const result = folder.run({"convert", "open.stl", "--format", "off"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_NE(result.errors.find("open.off: The piece is not closed"), std::string::npos)
        << result.errors;
    EXPECT_EQ(folder.mesh("open.off").triangles.size(), folder.mesh("open.stl").triangles.size());
}

TEST(FreecutConvert, PartsOfTheSameNameGetFilesOfTheirOwn)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 1), "part.stl");
    ASSERT_EQ(folder.run({"convert", "part.stl", "--format", "obj"}).status, 0);
    ASSERT_EQ(
        folder.run({"convert", "part.stl", "part.obj", "--format", "ply", "-o", "out"}).status, 0);
    EXPECT_EQ(folder.files("out"), (Names{"part.ply", "part1.ply"}));
}

TEST(FreecutConvert, PiecesOfEveryCommandKeepTheColourOfTheirPart)
{
    FreecutFolder folder;
    constexpr unsigned color = 0x3366CCFF;
    for (auto const& [name, soup] :
         {std::pair("a", box(10, 10, 10)), {"b", box(10, 10, 10, {5, 5, 5})}}) {
        auto const kernel = kernelOf(soup);
        std::array const parts{Formats::NamedMesh{name, kernel.get(), color}};
        Formats::writeParts(folder.path(std::string(name) + ".3mf"), parts,
                            *Formats::FormatRegistry::instance().byName("3mf"), {},
                            Formats::Overwrite::Refuse);
    }
    std::vector<Names> const commands{
        {"convert"},
        {"repair"},
        {"zcut", "--height", "3"},
        {"zcut", "--every", "4"},
        {"section", "--center", "5,5,5", "--normal", "1,1,1", "--pins", "--keep-original"},
        {"polygon", "--view", "top", "--points", "2,2;8,2;8,8"},
        {"boolean", "b.3mf", "--split"},
    };
    for (Names command : commands) {
        SCOPED_TRACE(command.front());
        command.insert(command.begin() + 1, "a.3mf");
        command.insert(command.end(), {"--force", "-o", command.front()});
        auto const result = folder.run(command);
        ASSERT_EQ(result.status, 0) << result.errors;
        auto const pieces = folder.files(command[0]);
        EXPECT_FALSE(pieces.empty());
        for (std::string const& piece : pieces)
            for (auto const& part : Formats::readParts(folder.path(command[0] + '/' + piece)))
                EXPECT_EQ(part.color, color) << piece;
    }
}
