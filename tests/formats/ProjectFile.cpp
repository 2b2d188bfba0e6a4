// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ProjectFile.h"

#include "host/formats/PartFiles.h"
#include "platform/jobs/Exceptions.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/MeshBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <sys/resource.h>

using namespace Formats;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

ProjectObject part(std::string name, Soup const& soup)
{
    ProjectObject object;
    object.uuid = "uuid of " + name;
    object.name = std::move(name);
    object.kernel = kernelOf(soup);
    return object;
}

ProjectObject group(std::string name)
{
    ProjectObject object;
    object.kind = ProjectObject::Kind::Group;
    object.uuid = "uuid of " + name;
    object.name = std::move(name);
    return object;
}

UMatrix4<float> turnedAndMoved()
{
    float const values[16] = {0.36f, 0.48f, -0.8f, 0, -0.8f,     0.6f,   0,         0,
                              0.48f, 0.64f, 0.6f,  0, 1.f / 3.f, -1e-6f, 1234.567f, 1};
    return UMatrix4<float>(values);
}

/// Points and corners of a kernel's records, in their order, as bytes.
std::string recordBytes(MeshKernel const& kernel)
{
    auto const mesh = kernel.readMesh();
    std::string bytes;
    for (UVertex<float> const* const vertex : mesh->vertices)
        bytes += bytesOf(vertex->cP());
    for (UTriangle<float> const* const triangle : mesh->triangles)
        for (int corner = 0; corner < 3; ++corner)
            bytes += bytesOf(triangle->cV(corner)->cID());
    return bytes;
}

std::string placementBytes(MeshKernel const& kernel)
{
    return bytesOf(kernel.getMatrix());
}

std::vector<ProjectObject> sampleProject()
{
    std::vector<ProjectObject> objects;
    objects.push_back(part("Zahnrad \"größer\" <&> 歯車", box(2, 3, 4)));
    objects.back().color = 0x336699ff;
    objects.back().kernel->getMatrix() = turnedAndMoved();
    objects.push_back(group("Gruppe\nin zwei Zeilen"));
    objects.push_back(part("hidden", torus(20, 7, 30, 12)));
    objects.back().isVisible = false;
    objects.back().groupUuid = objects[1].uuid;
    objects.back().color = 0x11223344;
    objects.push_back(part("ghost", sphere(5, 8, 12)));
    objects.back().isVisible = false;
    objects.back().isSemiVisible = true;
    objects.back().parentUuid = objects[0].uuid;
    objects.push_back(part("hidden", box(1, 1, 1)));
    objects.back().uuid = "another of that name";
    objects.back().isSupport = true;
    return objects;
}

void expectSame(std::vector<ProjectObject> const& actual,
                std::vector<ProjectObject> const& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(expected[i].name);
        EXPECT_EQ(actual[i].kind, expected[i].kind);
        EXPECT_EQ(actual[i].uuid, expected[i].uuid);
        EXPECT_EQ(actual[i].parentUuid, expected[i].parentUuid);
        EXPECT_EQ(actual[i].groupUuid, expected[i].groupUuid);
        EXPECT_EQ(actual[i].name, expected[i].name);
        EXPECT_EQ(actual[i].isVisible, expected[i].isVisible);
        EXPECT_EQ(actual[i].isSemiVisible, expected[i].isSemiVisible);
        EXPECT_EQ(actual[i].color, expected[i].color);
        EXPECT_EQ(actual[i].isSupport, expected[i].isSupport);
        ASSERT_EQ(!actual[i].kernel, !expected[i].kernel);
        if (!expected[i].kernel)
            continue;
        EXPECT_EQ(recordBytes(*actual[i].kernel), recordBytes(*expected[i].kernel));
        EXPECT_EQ(placementBytes(*actual[i].kernel), placementBytes(*expected[i].kernel));
    }
}

/// A decimal comma for everything that asks the C++ locale.
class DecimalComma : public std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
};

}  // namespace

TEST(ProjectFile, EverythingComesBackBitByBit)
{
    ScratchFolder const folder;
    auto const objects = sampleProject();
    writeProject(folder / "plate.3mf", objects, {}, Overwrite::Refuse);
    EXPECT_TRUE(isProjectFile(folder / "plate.3mf"));
    expectSame(readProject(folder / "plate.3mf"), objects);
}

TEST(ProjectFile, AnyFloatComesBackBitByBit)
{
    ScratchFolder const folder;
    std::mt19937 random(7);
    Soup soup = torus(20, 7, 60, 40);
    // Random bits between 1e-38 and 1e9 of both signs, and the borders of the format.
    for (auto& point : soup.points)
        for (int axis = 0; axis < 3; ++axis) {
            std::uint32_t const exponent = 1 + random() % 155;
            std::uint32_t const bits =
                (random() & 0x80000000u) | exponent << 23 | (random() & 0x7fffffu);
            std::memcpy(&point[axis], &bits, sizeof bits);
        }
    soup.points[0] = {std::numeric_limits<float>::denorm_min(), -0.f, 1e9f};
    std::vector<ProjectObject> const objects = {part("odd", soup)};
    writeProject(folder / "odd.3mf", objects, {}, Overwrite::Refuse);
    expectSame(readProject(folder / "odd.3mf"), objects);
}

TEST(ProjectFile, RecordsThatCoincideOrAreNotUsedStayApart)
{
    ScratchFolder const folder;
    Soup soup = boxesSharingAnEdge();
    soup.add(soup.points[0]);
    std::vector<ProjectObject> const objects = {part("odd", soup)};
    writeProject(folder / "odd.3mf", objects, {}, Overwrite::Refuse);
    expectSame(readProject(folder / "odd.3mf"), objects);
}

TEST(ProjectFile, EmptyProjectsAndEmptyPartsComeBack)
{
    ScratchFolder const folder;
    writeProject(folder / "empty.3mf", {}, {}, Overwrite::Refuse);
    EXPECT_TRUE(readProject(folder / "empty.3mf").empty());

    std::vector<ProjectObject> const objects = {group("group"), part("empty", {}),
                                                part("box", box(1, 2, 3))};
    writeProject(folder / "part.3mf", objects, {}, Overwrite::Refuse);
    expectSame(readProject(folder / "part.3mf"), objects);
}

TEST(ProjectFile, ReadAsPartsItGivesThemAsTheyArePlaced)
{
    ScratchFolder const folder;
    auto const objects = sampleProject();
    writeProject(folder / "plate.3mf", objects, {}, Overwrite::Refuse);
    auto const parts = readParts(folder / "plate.3mf");
    ASSERT_EQ(parts.size(), 4u);
    EXPECT_EQ(parts[0].name, objects[0].name);
    EXPECT_EQ(parts[0].color, objects[0].color);
    EXPECT_EQ(parts[2].color, 0u);
    Soup const placed = soupOf(*objects[0].kernel);
    Soup const read = soupOf(*parts[0].kernel);
    ASSERT_EQ(read.points.size(), placed.points.size());
    for (std::size_t i = 0; i < placed.points.size(); ++i)
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(read.points[i][axis], placed.points[i][axis], 1e-3f);
}

TEST(ProjectFile, AnIndependentProgramReadsIt)
{
    if (std::system("prusa-slicer --help > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "prusa-slicer is not installed";
    ScratchFolder const folder;
    std::vector<ProjectObject> objects = {part("torus", torus(20, 7, 30, 12)), group("group")};
    objects[0].groupUuid = objects[1].uuid;
    objects[0].color = 0x336699ff;
    objects[0].kernel->getMatrix()(2, 3) = 40;
    writeProject(folder / "plate.3mf", objects, {}, Overwrite::Refuse);
    std::string const command = "prusa-slicer --info '" + (folder / "plate.3mf").string() +
                                "' > '" + (folder / "report").string() + "' 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::string const report = contentOf(folder / "report");
    EXPECT_THAT(report, HasSubstr("number_of_facets = 720"));
    EXPECT_THAT(report, HasSubstr("manifold = yes"));
    EXPECT_THAT(report, HasSubstr("min_z = 33.0"));
}

TEST(ProjectFile, APackageWithoutTheAttachmentIsReadAsPartsWithTheirMaterials)
{
    ScratchFolder const folder;
    auto const path = folder.file(
        "foreign.3mf",
        threeMfPackage(
            "inch",
            "<resources><basematerials id=\"5\"><base name=\"PLA\" displaycolor=\"#0A0B0C\"/>"
            "</basematerials><object id=\"1\" name=\"tetra\" pid=\"5\" pindex=\"0\"><mesh>"
            "<vertices><vertex x=\"0\" y=\"0\" z=\"0\"/><vertex x=\"1\" y=\"0\" z=\"0\"/>"
            "<vertex x=\"0\" y=\"1\" z=\"0\"/><vertex x=\"0\" y=\"0\" z=\"1\"/></vertices>"
            "<triangles><triangle v1=\"0\" v2=\"2\" v3=\"1\"/><triangle v1=\"0\" v2=\"1\" "
            "v3=\"3\"/><triangle v1=\"1\" v2=\"2\" v3=\"3\"/><triangle v1=\"2\" v2=\"0\" "
            "v3=\"3\"/></triangles></mesh></object></resources><build><item objectid=\"1\"/>"
            "</build>"));
    EXPECT_FALSE(isProjectFile(path));
    auto const objects = readProject(path);
    ASSERT_EQ(objects.size(), 1u);
    EXPECT_EQ(objects[0].name, "tetra");
    EXPECT_EQ(objects[0].color, 0x0a0b0cffu);
    EXPECT_FLOAT_EQ(objects[0].kernel->GetBox().MaxX(), 25.4f);
}

TEST(ProjectFile, WhatAnotherProgramChangedIsTakenAsItIs)
{
    ScratchFolder const folder;
    std::string const head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    std::string const relations =
        head +
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/"
        "relationships\"><Relationship Id=\"rel0\" ";
    std::string const mesh =
        "<mesh><vertices><vertex x=\"0\" y=\"0\" z=\"0\"/><vertex x=\"1\" y=\"0\" z=\"0\"/>"
        "<vertex x=\"0\" y=\"1\" z=\"0\"/><vertex x=\"0\" y=\"0\" z=\"1\"/></vertices>"
        "<triangles><triangle v1=\"0\" v2=\"2\" v3=\"1\"/><triangle v1=\"0\" v2=\"1\" v3=\"3\"/>"
        "<triangle v1=\"1\" v2=\"2\" v3=\"3\"/><triangle v1=\"2\" v2=\"0\" v3=\"3\"/></triangles>"
        "</mesh></object>";
    std::vector<ZipEntry> const entries = {
        {"[Content_Types].xml",
         head + "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                "<Default Extension=\"rels\" "
                "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
                "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
                "<Default Extension=\"model\" "
                "ContentType=\"application/vnd.ms-package.3dmanufacturing-3dmodel+xml\"/></Types>"},
        {"_rels/.rels", relations +
                            "Target=\"/3D/3dmodel.model\" Type=\"http://schemas.microsoft.com/"
                            "3dmanufacturing/2013/01/3dmodel\"/></Relationships>"},
        {"3D/_rels/3dmodel.model.rels",
         relations + "Target=\"/Metadata/Orbe_project.xml\" "
                     "Type=\"urn:orbe:relationships:project\"/></Relationships>"},
        {"Metadata/Orbe_project.xml",
         head + "<project xmlns=\"urn:orbe:project:1\" version=\"1\">"
                "<part name=\"removed\" item=\"00000003-0000-4000-8000-000000000009\"/>"
                "<part name=\"moved\" group=\"G\" visible=\"no\" "
                "item=\"00000003-0000-4000-8000-000000000000\"/>"
                "<group uuid=\"G\" name=\"group\"/><unknown/></project>"},
        {"3D/3dmodel.model",
         head +
             "<model unit=\"millimeter\" "
             "xmlns=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\" "
             "xmlns:p=\"http://schemas.microsoft.com/3dmanufacturing/production/2015/06\">"
             "<resources><object id=\"1\" p:UUID=\"00000002-0000-4000-8000-000000000000\">" +
             mesh +
             "<object id=\"2\" name=\"added\" p:UUID=\"00000002-0000-4000-8000-000000000001\">" +
             mesh +
             "</resources><build p:UUID=\"00000001-0000-4000-8000-000000000000\">"
             "<item objectid=\"1\" transform=\"1 0 0 0 1 0 0 0 1 5 6 7\" "
             "p:UUID=\"00000003-0000-4000-8000-000000000000\"/>"
             "<item objectid=\"2\" p:UUID=\"00000003-0000-4000-8000-000000000001\"/>"
             "</build></model>"}};
    auto const path = folder.file("changed.3mf", storedZip(entries));
    EXPECT_TRUE(isProjectFile(path));
    auto const objects = readProject(path);
    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(objects[0].name, "moved");
    EXPECT_EQ(objects[0].groupUuid, "G");
    EXPECT_FALSE(objects[0].isVisible);
    EXPECT_EQ(objects[0].kernel->getMatrix()(2, 3), 7);
    EXPECT_EQ(objects[0].kernel->GetBox().MinX(), 5);
    EXPECT_EQ(objects[1].kind, ProjectObject::Kind::Group);
    EXPECT_EQ(objects[2].name, "added");
    EXPECT_EQ(objects[2].kernel->readMesh()->triangles.size(), 4u);

    std::vector<ZipEntry> newer = entries;
    newer[3].content.replace(newer[3].content.find("version=\"1\">"), 12, "version=\"2\">");
    try {
        readProject(folder.file("newer.3mf", storedZip(newer)));
        FAIL() << "read";
    } catch (FileError const& error) {
        EXPECT_THAT(error.what(), HasSubstr("newer version"));
    }
}

TEST(ProjectFile, APartFileIsNoProject)
{
    ScratchFolder const folder;
    auto const kernel = kernelOf(box(1, 2, 3));
    for (auto const& format : FormatRegistry::instance().formats()) {
        auto const path = folder / std::string(format->name());
        writePart(path, "part", *kernel, *format, {}, Overwrite::Refuse);
        EXPECT_FALSE(isProjectFile(path)) << format->name();
    }
    EXPECT_FALSE(isProjectFile(folder / "none"));
    EXPECT_FALSE(isProjectFile(folder.path()));
}

TEST(ProjectFile, TheSameObjectsGiveTheSameBytesInAnyLocale)
{
    ScratchFolder const folder;
    auto const objects = sampleProject();
    writeProject(folder / "one.3mf", objects, {}, Overwrite::Refuse);
    std::locale const before;
    std::string const beforeInC = std::setlocale(LC_ALL, nullptr);
    std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    // Where the system has such a locale, the C library's numbers get a comma too.
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    writeProject(folder / "two.3mf", objects, {}, Overwrite::Refuse);
    auto const read = readProject(folder / "one.3mf");
    std::locale::global(before);
    std::setlocale(LC_ALL, beforeInC.c_str());
    EXPECT_EQ(contentOf(folder / "one.3mf"), contentOf(folder / "two.3mf"));
    expectSame(read, objects);
}

TEST(ProjectFile, AFullDiskOrACancelLeavesTheOldFile)
{
    ScratchFolder const folder;
    auto const path = folder.file("plate.3mf", "precious");
    std::vector<ProjectObject> const objects = {part("torus", torus(20, 7, 300, 120))};
    for (int const percent : {0, 30, 60, 100})
        EXPECT_THROW(writeProject(
                         path, objects,
                         [&](int value) {
                             if (value >= percent)
                                 throw Mell::AbortException("Aborting...");
                         },
                         Overwrite::Allow),
                     Mell::AbortException);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit const limit{20000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::string problem;
    try {
        writeProject(path, objects, {}, Overwrite::Allow);
    } catch (FileError const& error) {
        problem = error.what();
    }
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_THAT(problem, HasSubstr("plate.3mf': it cannot be written"));
    EXPECT_EQ(contentOf(path), "precious");
    EXPECT_THAT(folder.names(), ElementsAre("plate.3mf"));
}

TEST(ProjectFile, ACoordinateThatOtherProgramsRefuseIsNamed)
{
    ScratchFolder const folder;
    Soup soup = box(1, 2, 3);
    soup.points[3][1] = std::numeric_limits<float>::quiet_NaN();
    std::vector<ProjectObject> const objects = {part("broken", soup)};
    try {
        writeProject(folder / "plate.3mf", objects, {}, Overwrite::Refuse);
        FAIL() << "written";
    } catch (FileError const& error) {
        EXPECT_THAT(error.what(), HasSubstr("a coordinate of the part 'broken'"));
    }
    EXPECT_THAT(folder.names(), ElementsAre());
}

TEST(ProjectFile, ADamagedFileIsAnErrorAtEveryByte)
{
    ScratchFolder const folder;
    std::vector<ProjectObject> const objects = {part("box", box(1, 2, 3)), group("group")};
    writeProject(folder / "plate.3mf", objects, {}, Overwrite::Refuse);
    std::string const whole = contentOf(folder / "plate.3mf");
    // Cut off anywhere the directory at the end is gone.
    for (std::size_t size = 0; size < whole.size(); size += 7)
        EXPECT_THROW(readProject(folder.file("cut.3mf", whole.substr(0, size))), FileError) << size;
    for (std::size_t at = 0; at < whole.size(); at += 3) {
        std::string damaged = whole;
        damaged[at] = char(damaged[at] ^ 0x55);
        try {
            readProject(folder.file("damaged.3mf", damaged));
        } catch (FileError const&) {
            // Either is right; the process must only live on.
        }
        isProjectFile(folder / "damaged.3mf");
    }
}
