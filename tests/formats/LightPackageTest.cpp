// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/LightPackage.h"
#include "host/formats/PartFiles.h"
#include "host/formats/ProjectXml.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/MeshBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Formats;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string const vertices =
    "<vertices><vertex x=\"0\" y=\"0\" z=\"0\"/><vertex x=\"1\" y=\"0\" z=\"0\"/>"
    "<vertex x=\"0\" y=\"2\" z=\"0\"/><vertex x=\"0\" y=\"0\" z=\"3\"/></vertices>";
std::string const triangles =
    "<triangles><triangle v1=\"0\" v2=\"2\" v3=\"1\"/><triangle v1=\"0\" v2=\"1\" v3=\"3\"/>"
    "<triangle v1=\"0\" v2=\"3\" v3=\"2\"/><triangle v1=\"1\" v2=\"2\" v3=\"3\"/></triangles>";

std::string packageOf(std::string const& mesh)
{
    return threeMfPackage("millimeter", "<resources><object id=\"1\" type=\"model\">" + mesh +
                                            "</object></resources><build><item objectid=\"1\"/>"
                                            "</build>");
}

/// What is taken out of a package with one mesh.
std::optional<LightPackage> lightOf(ScratchFolder const& folder, std::string const& mesh)
{
    InputFile input(folder.file("part.3mf", packageOf(mesh)), {});
    return readLightPackage(input);
}

std::string modelText(std::filesystem::path const& path)
{
    InputFile input(path, {});
    ZipReader const package(input);
    return ZipEntryStream(input, *package.find(modelEntryName)).readAll();
}

std::string replaced(std::string text, std::string_view what, std::string_view by)
{
    for (std::size_t place = 0; (place = text.find(what, place)) != text.npos; place += by.size())
        text.replace(place, what.size(), by);
    return text;
}

void expectSameMesh(UMesh<float> const& a, UMesh<float> const& b)
{
    ASSERT_EQ(a.vertices.size(), b.vertices.size());
    ASSERT_EQ(a.triangles.size(), b.triangles.size());
    for (std::size_t i = 0; i < a.triangles.size(); ++i)
        for (int corner = 0; corner < 3; ++corner)
            ASSERT_EQ(a.triangles[i]->cP(corner), b.triangles[i]->cP(corner)) << i;
}

}  // namespace

TEST(LightPackage, AMeshIsTakenOutHoweverItsAttributesStand)
{
    ScratchFolder const folder;
    std::string const plain = "<mesh>" + vertices + triangles + "</mesh>";
    std::string spread = replaced(plain, "><", ">\r\n\t <");
    std::string turned = replaced(plain, "x=\"1\" y=\"0\"", "y=\"0\"  x=\"1\"");
    std::string quoted = replaced(plain, "\"", "'");
    std::string painted = replaced(plain, "v3=\"1\"/>", "v3=\"1\" pid=\"4\" paint_color=\"8\" />");
    for (std::string const& mesh : {plain, spread, turned, quoted, painted}) {
        auto const light = lightOf(folder, mesh);
        ASSERT_TRUE(light) << mesh;
        ASSERT_EQ(light->model.meshes.size(), 1u);
        ModelMesh const& taken = light->model.meshes[0];
        EXPECT_THAT(taken.vertices, ElementsAre(UPoint3<float>(0, 0, 0), UPoint3<float>(1, 0, 0),
                                                UPoint3<float>(0, 2, 0), UPoint3<float>(0, 0, 3)));
        ASSERT_EQ(taken.triangles.size(), 4u);
        EXPECT_THAT(taken.triangles[1], ElementsAre(0, 1, 3));
        EXPECT_EQ(readParts(folder / "part.3mf").at(0).kernel->readMesh()->triangles.size(), 4u);
    }
}

TEST(LightPackage, AMeshInACommentIsNone)
{
    ScratchFolder const folder;
    std::string const mesh = "<mesh>" + vertices + triangles + "</mesh>";
    auto const light = lightOf(folder, "<!-- " + mesh + " -->" + mesh);
    ASSERT_TRUE(light);
    EXPECT_EQ(light->model.meshes.size(), 1u);
    EXPECT_EQ(readParts(folder / "part.3mf").size(), 1u);
}

TEST(LightPackage, WhatIsNotSoundIsLeftToTheLibrary)
{
    ScratchFolder const folder;
    std::string const plain = "<mesh>" + vertices + triangles + "</mesh>";
    std::pair<char const*, char const*> const changes[] = {
        {"v3=\"2\"", "v3=\"4\""},  // no such vertex
        {"v3=\"2\"", "v3=\"0\""},  // twice the same
        {"v3=\"2\"", ""},          // a corner is missing
        {"v3=\"2\"", "v3=\"2\" v3=\"2\""},
        {"v3=\"2\"", "v3=\"-2\""},
        {"z=\"3\"", "z=\"nan\""},
        {"z=\"3\"", "z=\"2e9\""},
        {"z=\"3\"", "z=\"3mm\""},
        {"z=\"3\"", ""},
        {"z=\"3\"", "z=\"&#51;\""},
        {"</triangles>", "</triangles><beamlattice/>"},
        {"</triangles>", "<!-- end --></triangles>"},
        {"<vertices>", ""},
        {"</mesh>", ""},
    };
    for (auto const& [from, to] : changes)
        EXPECT_FALSE(lightOf(folder, replaced(plain, from, to))) << from << " by " << to;
}

TEST(LightPackage, GivesTheMeshThatTheLibraryGives)
{
    ScratchFolder const folder;
    auto const path = folder / "torus.3mf";
    // Far more text than is looked at in one piece.
    writePart(path, "torus", *kernelOf(torus(20, 7, 240, 120)),
              *FormatRegistry::instance().byName("3mf"), {}, Overwrite::Refuse);
    std::string const text = modelText(path);
    std::string const start = "<resources>";
    std::string const inner = text.substr(text.find(start));
    std::string const build = inner.substr(0, inner.find("</model>"));
    // With a blank the meshes are not taken out.
    auto const byLibrary = folder.file(
        "library.3mf", threeMfPackage("millimeter", replaced(replaced(build, "<mesh>", "<mesh >"),
                                                             "p:UUID", "x")));
    InputFile input(byLibrary, {});
    auto const light = readLightPackage(input);
    ASSERT_TRUE(light);
    ASSERT_TRUE(light->model.meshes.empty());

    auto const fast = readParts(path);
    auto const slow = readParts(byLibrary);
    ASSERT_EQ(fast.size(), 1u);
    ASSERT_EQ(slow.size(), 1u);
    EXPECT_EQ(fast[0].name, slow[0].name);
    expectSameMesh(*fast[0].kernel->readMesh(), *slow[0].kernel->readMesh());
}

TEST(LightPackage, AnotherModelThanTheUsualOneIsLeftToTheLibrary)
{
    ScratchFolder const folder;
    std::string const package = packageOf("<mesh>" + vertices + triangles + "</mesh>");
    // Names of the same length, so that the package's directory stays right but for checksums.
    auto const path =
        folder.file("part.3mf", replaced(package, "3D/3dmodel.model", "3D/another.model"));
    InputFile input(path, {});
    bool isTaken = false;
    try {
        isTaken = readLightPackage(input).has_value();
    } catch (FileError const&) {
        // The entry that bears the name inside has another checksum now.
    }
    EXPECT_FALSE(isTaken);
}

TEST(LightPackage, ProgressNeverFalls)
{
    ScratchFolder const folder;
    auto const path = folder / "torus.3mf";
    writePart(path, "torus", *kernelOf(torus(20, 7, 240, 120)),
              *FormatRegistry::instance().byName("3mf"), {}, Overwrite::Refuse);
    std::vector<int> told;
    readParts(path, [&](int percent) { told.push_back(percent); });
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_GT(std::ranges::count_if(told, [](int p) { return p > 70 && p < 100; }), 0);
    EXPECT_EQ(told.back(), 100);
}
