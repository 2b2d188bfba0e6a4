// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/MeshBuilder.h"
#include "host/formats/PartFiles.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>

using namespace Formats;

namespace {

MeshFormat const& format(std::string const& name)
{
    return *FormatRegistry::instance().byName(name);
}

Soup onlyPart(std::filesystem::path const& path)
{
    auto const parts = readParts(path);
    EXPECT_EQ(parts.size(), 1u);
    return soupOf(*parts.at(0).kernel);
}

std::string bigEndian(std::string bytes)
{
    std::ranges::reverse(bytes);
    return bytes;
}

/// A square pyramid: four corners of one polygon, and a top.
std::array<std::array<double, 3>, 5> const pyramid = {
    {{0, 0, 0}, {0, 2, 0}, {2, 2, 0}, {2, 0, 0}, {1, 1, 3}}};

std::string tetrahedron3mf(std::string const& unit, std::string const& moreResources,
                           std::string const& build)
{
    return threeMfPackage(
        unit,
        "<resources><object id=\"1\" name=\"wedge\" type=\"model\"><mesh><vertices>"
        "<vertex x=\"0\" y=\"0\" z=\"0\"/><vertex x=\"1\" y=\"0\" z=\"0\"/><vertex x=\"0\" y=\"2\" "
        "z=\"0\"/><vertex x=\"0\" y=\"0\" z=\"3\"/></vertices><triangles><triangle v1=\"0\" "
        "v2=\"2\" v3=\"1\"/><triangle v1=\"0\" v2=\"1\" v3=\"3\"/><triangle v1=\"0\" v2=\"3\" "
        "v3=\"2\"/><triangle v1=\"1\" v2=\"2\" v3=\"3\"/></triangles></mesh></object>" +
            moreResources + "</resources><build>" + build + "</build>");
}

}  // namespace

TEST(FormatContent, StlFormsAreToldApartByContentNotByName)
{
    ScratchFolder const folder;
    Soup const soup = torus(20, 7, 24, 12);
    auto const kernel = kernelOf(soup);
    writePart(folder / "binary", "part", *kernel, format("stl"), {}, Overwrite::Refuse);
    writePart(folder / "ascii", "part", *kernel, format("stl-ascii"), {}, Overwrite::Refuse);
    // Many binary files begin like ASCII ones.
    std::string solid = contentOf(folder / "binary");
    solid.replace(0, 80, "solid facet normal\nfacet" + std::string(56, ' '));
    folder.file("solid.stl", solid);
    folder.file("wrong.ply", contentOf(folder / "binary"));
    folder.file("padded.stl", contentOf(folder / "binary") + std::string(100, '\0'));
    std::string upper = contentOf(folder / "ascii");
    std::ranges::transform(upper, upper.begin(), [](char c) { return char(std::toupper(c)); });
    std::string crlf = "  ";
    for (char const c : upper)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    folder.file("upper.obj", crlf);
    for (std::string const name :
         {"binary", "ascii", "solid.stl", "wrong.ply", "padded.stl", "upper.obj"}) {
        SCOPED_TRACE(name);
        Soup const read = onlyPart(folder / name);
        EXPECT_EQ(read.triangles.size(), soup.triangles.size());
        EXPECT_EQ(read.points.size(), soup.points.size());
        EXPECT_EQ(closedSolidFaults(read), "");
    }
}

TEST(FormatContent, SolidsOfOneAsciiStlAreJoined)
{
    ScratchFolder const folder;
    auto const first = kernelOf(box(1, 1, 1));
    auto const second = kernelOf(box(1, 1, 1, {5, 0, 0}));
    NamedMesh const both[] = {{"a", first.get()}, {"b c", second.get()}};
    writeParts(folder / "two.stl", both, format("stl-ascii"), {}, Overwrite::Refuse);
    EXPECT_EQ(componentsOf(onlyPart(folder / "two.stl")), 2u);
}

TEST(FormatContent, PlyIsReadInAllEncodingsWithExtraPropertiesAndPolygons)
{
    ScratchFolder const folder;
    for (std::string const encoding : {"ascii", "binary_little_endian", "binary_big_endian"}) {
        bool const isText = encoding == "ascii";
        auto const put = [&](auto value) {
            if (isText)
                return std::to_string(value) + " ";
            return encoding == "binary_big_endian" ? bigEndian(bytesOf(value)) : bytesOf(value);
        };
        std::string file =
            "ply\nformat " + encoding +
            " 1.0\ncomment made by hand\nelement camera 1\nproperty list uchar short "
            "lens\nelement vertex 5\nproperty uchar red\nproperty double x\nproperty "
            "double y\nproperty double z\nproperty list uint float weights\nelement "
            "face 5\nproperty list ushort uint vertex_index\nproperty char mark\n"
            "end_header\n";
        file += put(std::uint8_t(2)) + put(std::int16_t(-7)) + put(std::int16_t(8));
        for (auto const& [x, y, z] : pyramid)
            file += put(std::uint8_t(200)) + put(x) + put(y) + put(z) + put(std::uint32_t(1)) +
                    put(0.5f);
        std::vector<std::vector<std::uint32_t>> const faces = {
            {0, 1, 2, 3}, {1, 0, 4}, {2, 1, 4}, {3, 2, 4}, {0, 3, 4}};
        for (auto const& face : faces) {
            file += put(std::uint16_t(face.size()));
            for (std::uint32_t const index : face)
                file += put(index);
            file += put(std::int8_t(-1));
        }
        SCOPED_TRACE(encoding);
        Soup const soup = onlyPart(folder.file("pyramid", file));
        EXPECT_EQ(soup.triangles.size(), 6u);
        EXPECT_EQ(closedSolidFaults(soup), "");
        EXPECT_DOUBLE_EQ(volumeOf(soup), 4);
    }
}

TEST(FormatContent, StripsOfPlyAreReadWithTheirTurnsAndBreaks)
{
    // A tetrahedron as one strip, and a second one behind a break.
    ScratchFolder const folder;
    std::string const file =
        "ply\nformat ascii 1.0\nelement vertex 8\nproperty float x\nproperty float y\n"
        "property float z\nelement tristrips 1\nproperty list int int vertex_indices\n"
        "end_header\n0 0 0\n1 0 0\n0 2 0\n0 0 3\n5 0 0\n6 0 0\n5 2 0\n5 0 3\n"
        "13 0 2 1 3 0 2 -1 4 6 5 7 4 6\n";
    Soup const soup = onlyPart(folder.file("strips.ply", file));
    EXPECT_EQ(soup.triangles.size(), 8u);
    EXPECT_EQ(closedSolidFaults(soup), "");
    EXPECT_DOUBLE_EQ(volumeOf(soup), 2);
}

TEST(FormatContent, AByteOrderMarkStandsInFrontOfAnyText)
{
    ScratchFolder const folder;
    Soup const soup = box(1, 2, 3);
    auto const kernel = kernelOf(soup);
    for (std::string const name : {"obj", "off", "stl-ascii", "ply-ascii"}) {
        writePart(folder / name, "part", *kernel, format(name), {}, Overwrite::Refuse);
        std::string const marked = "\xEF\xBB\xBF" + contentOf(folder / name);
        SCOPED_TRACE(name);
        // Told by its content: the name says nothing.
        EXPECT_EQ(closedSolidFaults(onlyPart(folder.file("marked_" + name, marked))), "");
    }
}

TEST(FormatContent, OffIsReadInAllItsForms)
{
    ScratchFolder const folder;
    std::string const box =
        "0 0 0\n1 0 0\n1 2 0\n0 2 0\n0 0 3\n1 0 3\n1 2 3\n0 2 3\n"
        "4 0 3 2 1\n4 4 5 6 7\n4 0 1 5 4\n4 1 2 6 5\n4 2 3 7 6\n4 3 0 4 7\n";
    auto const withBehind = [&box](std::string const& behind) {
        std::string text;
        for (char const c : box)
            text += c == '\n' ? behind + "\r\n" : std::string(1, c);
        return text;
    };
    std::vector<std::pair<std::string, std::string>> const files = {
        {"plain.off", "OFF\n8 6 12\n" + box},
        {"one-line", "OFF 8 6 12\n" + box},
        {"without-keyword.off", "8 6 0\n" + box},
        {"without-edges", "OFF\n8 6\n" + box},
        {"coloured", "COFF\n8 6 0\n" + withBehind(" 255 0 0 255")},
        {"all-extras", "STCNOFF\n8 6 0\n" + withBehind("  0.5 0.5 0.5 1 0 0 1 0 0")},
        {"commented", "OFF # by hand\n\n# a box\n8 6 0 # no edges\n" + withBehind(" # here")},
    };
    for (auto const& [name, text] : files) {
        SCOPED_TRACE(name);
        Soup const soup = onlyPart(folder.file(name, text));
        EXPECT_EQ(soup.triangles.size(), 12u);
        EXPECT_EQ(closedSolidFaults(soup), "");
        EXPECT_DOUBLE_EQ(volumeOf(soup), 6);
    }
}

TEST(FormatContent, ObjHoldsHexadecimalNumbers)
{
    ScratchFolder const folder;
    Soup const soup = onlyPart(folder.file("hex.obj",
                                           "v 0x0p+0 -0x1.8p1 0X1P-2\nv 1 0 0\nv 0 1 0\n"
                                           "f 1 2 3\n"));
    EXPECT_EQ(soup.points[0], UPoint3<float>(0, -3, 0.25f));
}

TEST(FormatContent, ObjIsReadWithAllCornerFormsGroupsAndContinuedLines)
{
    ScratchFolder const folder;
    Soup const soup = onlyPart(folder.file("pyramid.obj",
                                           "# by hand\r\nmtllib none.mtl\no first\nv 0 0 0 1.0\n"
                                           "v +0 2.0e0 0 0.5 0.5 0.5\n\tv 2 2 -0\nv 2 0 0\n"
                                           "vt 0 0\nvn 0 0 -1\nv 1 1 3\ng base\n"
                                           "f 1/1/1 2/1/1 \\\n 3/1/1 4/1/1\no second\ns off\n"
                                           "f 2//1 1//1 5//1\nf -3/1 -4/1 -1/1\nf 4 3 5 # last\n"
                                           "l 1 2\nf 1 4 5"));
    EXPECT_EQ(closedSolidFaults(soup), "");
    EXPECT_DOUBLE_EQ(volumeOf(soup), 4);
}

TEST(FormatContent, AConcavePolygonIsSplitInsideItself)
{
    // A prism over a star of five points, its two bases one polygon each.
    ScratchFolder const folder;
    std::string file;
    int const corners = 10;
    double area = 0;
    std::vector<std::array<double, 2>> star;
    for (int i = 0; i < corners; ++i) {
        double const radius = i % 2 ? 2 : 9;
        star.push_back({radius * std::cos(i * M_PI / 5), radius * std::sin(i * M_PI / 5)});
    }
    for (int i = 0; i < corners; ++i) {
        auto const& [x, y] = star[i];
        auto const& [u, v] = star[(i + 1) % corners];
        area += (x * v - y * u) / 2;
        file += "v " + std::to_string(x) + " " + std::to_string(y) + " 0\n";
        file += "v " + std::to_string(x) + " " + std::to_string(y) + " 4\n";
    }
    std::string bottom = "f";
    std::string top = "f";
    for (int i = 0; i < corners; ++i) {
        bottom += ' ';
        bottom += std::to_string(2 * (corners - 1 - i) + 1);
        top += ' ';
        top += std::to_string(2 * i + 2);
        int const j = (i + 1) % corners;
        file += "f " + std::to_string(2 * i + 1) + " " + std::to_string(2 * j + 1) + " " +
                std::to_string(2 * j + 2) + " " + std::to_string(2 * i + 2) + "\n";
    }
    Soup const soup = onlyPart(folder.file("star.obj", file + bottom + "\n" + top + "\n"));
    EXPECT_EQ(closedSolidFaults(soup), "");
    EXPECT_NEAR(volumeOf(soup), 4 * area, 1e-3);
    // Outside the star, triangles would add area that others take away from the volume again.
    double flat = 0;
    for (auto const& t : soup.triangles)
        if (soup.points[t[0]].Z() == soup.points[t[1]].Z() &&
            soup.points[t[1]].Z() == soup.points[t[2]].Z()) {
            auto const n =
                (soup.points[t[1]] - soup.points[t[0]]) * (soup.points[t[2]] - soup.points[t[0]]);
            flat += n.GetLength() / 2;
        }
    EXPECT_NEAR(flat, 2 * area, 1e-3);
}

TEST(FormatContent, UnitsAndTransformsOf3mfAreApplied)
{
    ScratchFolder const folder;
    // A quarter turn about Z takes x to y; the translation is in the file's unit.
    auto const path = folder.file(
        "wedge.3mf",
        tetrahedron3mf("inch", "",
                       "<item objectid=\"1\" transform=\"0 1 0 -1 0 0 0 0 1 10 20 30\"/>"));
    auto const parts = readParts(path);
    ASSERT_EQ(parts.size(), 1u);
    EXPECT_EQ(parts[0].name, "wedge");
    UBox3<float> const& box = parts[0].kernel->GetBox();
    EXPECT_FLOAT_EQ(box.MinX(), 8 * 25.4f);
    EXPECT_FLOAT_EQ(box.MaxX(), 10 * 25.4f);
    EXPECT_FLOAT_EQ(box.MinY(), 20 * 25.4f);
    EXPECT_FLOAT_EQ(box.MaxY(), 21 * 25.4f);
    EXPECT_FLOAT_EQ(box.MaxZ(), 33 * 25.4f);
    EXPECT_EQ(closedSolidFaults(*parts[0].kernel), "");

    std::map<std::string, double> const millimetres = {{"micron", 0.001},  {"millimeter", 1},
                                                       {"centimeter", 10}, {"inch", 25.4},
                                                       {"foot", 304.8},    {"meter", 1000}};
    for (auto const& [unit, factor] : millimetres) {
        auto const file =
            folder.file("unit.3mf", tetrahedron3mf(unit, "", "<item objectid=\"1\"/>"));
        EXPECT_FLOAT_EQ(readParts(file).at(0).kernel->GetBox().MaxZ(), float(3 * factor)) << unit;
    }
}

TEST(FormatContent, ComponentsOf3mfArePlacedOneInTheOther)
{
    ScratchFolder const folder;
    // Object 2 mirrors the wedge and moves it; object 3 has object 2 twice; the build doubles it.
    auto const path = folder.file(
        "assembly.3mf",
        tetrahedron3mf("millimeter",
                       "<object id=\"2\" type=\"model\"><components><component objectid=\"1\" "
                       "transform=\"-1 0 0 0 1 0 0 0 1 5 0 0\"/></components></object>"
                       "<object id=\"3\" type=\"model\"><components><component objectid=\"2\"/>"
                       "<component objectid=\"2\" transform=\"1 0 0 0 1 0 0 0 1 0 100 0\"/>"
                       "</components></object>",
                       "<item objectid=\"3\" transform=\"2 0 0 0 2 0 0 0 2 0 0 7\"/>"));
    auto const parts = readParts(path);
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[0].name, "wedge");
    EXPECT_EQ(parts[1].name, "wedge 2");
    for (LoadedPart const& part : parts) {
        EXPECT_EQ(closedSolidFaults(*part.kernel), "");
        // Positive, so the reflection has turned the corners round.
        EXPECT_NEAR(volumeOf(soupOf(*part.kernel)), 8, 1e-4);
        EXPECT_FLOAT_EQ(part.kernel->GetBox().MinX(), 8);
        EXPECT_FLOAT_EQ(part.kernel->GetBox().MaxX(), 10);
        EXPECT_FLOAT_EQ(part.kernel->GetBox().MinZ(), 7);
    }
    EXPECT_FLOAT_EQ(parts[1].kernel->GetBox().MinY(), 200);
}

TEST(PointJoiner, JoinsEqualPositionsInOrderOfFirstAppearance)
{
    UMesh<float> mesh;
    PointJoiner joiner(mesh, 2);
    auto* const zero = joiner.join({0, 0, 0});
    auto* const other = joiner.join({1, 0, 0});
    EXPECT_EQ(joiner.join({-0.0f, 0, -0.0f}), zero);
    EXPECT_NE(joiner.join({std::nextafter(1.0f, 2.0f), 0, 0}), other);
    EXPECT_EQ(joiner.join({1, -0.0f, 0}), other);
    EXPECT_EQ(joiner.join({std::nanf(""), 0, 0}), nullptr);
    ASSERT_EQ(mesh.vertices.size(), 3u);
    EXPECT_EQ(mesh.vertices[1], other);
    EXPECT_EQ(other->cID(), 1u);
    auto* const negative = joiner.join({-0.0f, -0.0f, 5});
    EXPECT_FALSE(std::signbit(negative->cP().X()));
}

TEST(PointJoiner, AgreesWithASortedMapFarBeyondTheExpectedSize)
{
    // Few distinct values per axis give many repeats, and hashes of similar bits.
    std::mt19937 random(7);
    std::vector<UPoint3<float>> points;
    for (int i = 0; i < 300000; ++i)
        points.push_back({float(int(random() % 50)) / 4 - 5, float(int(random() % 50)) * 1024,
                          float(int(random() % 50)) - 25});
    std::map<std::array<float, 3>, std::size_t> places;
    UMesh<float> mesh;
    PointJoiner joiner(mesh, 10);
    std::vector<UVertex<float>*> joined(points.size());
    ASSERT_EQ(joiner.join(points, joined.data()), points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        auto const& p = points[i];
        auto const place = places.try_emplace({p.X(), p.Y(), p.Z()}, places.size()).first->second;
        ASSERT_EQ(joined[i]->cID(), place);
        ASSERT_EQ(mesh.vertices[place], joined[i]);
        ASSERT_EQ(joined[i]->cP(), p);
    }
    EXPECT_EQ(mesh.vertices.size(), places.size());
}

TEST(MeshBuilder, LeavesOutTrianglesThatLoseACornerAndThePointsOnlyTheyUse)
{
    MeshBuilder builder(2, 4);
    auto* const lonely = builder.points().join({9, 9, 9});
    auto* const a = builder.points().join({0, 0, 0});
    auto* const b = builder.points().join({1, 0, 0});
    auto* const c = builder.points().join({0, 1, 0});
    builder.addTriangle(a, a, lonely);
    builder.addTriangle(a, b, c);
    auto const kernel = builder.finish();
    auto const mesh = kernel->readMesh();
    EXPECT_EQ(mesh->triangleCount, 1u);
    ASSERT_EQ(mesh->vertexCount, 3u);
    EXPECT_EQ(mesh->vertices[0], a);
    EXPECT_EQ(mesh->vertices[2]->cID(), 2u);
    EXPECT_FLOAT_EQ(kernel->GetBox().MaxX(), 1);
}
