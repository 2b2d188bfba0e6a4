// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/AsciiFacets.h"
#include "host/formats/PartFiles.h"
#include "tests/formats/ReadError.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/MeshBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace Formats;
using testing::HasSubstr;

namespace {

/// A facet of seven lines; its first corner bears a number.
std::string facet(std::string const& x, std::string const& end = "\n")
{
    return "  facet normal 0 0 1" + end + "    outer loop" + end + "      vertex " + x + " 0 0" +
           end + "      vertex 1 2 0" + end + "      vertex 0 1 0" + end + "    endloop" + end +
           "  endfacet" + end;
}

std::string facets(std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += facet(std::to_string(i + 2));
    return text;
}

/// More than one thread reads at once.
constexpr std::size_t many = 15000;

}  // namespace

TEST(AsciiFacets, ManyAreTakenInTheOrderOfTheText)
{
    std::string const text = facets(many);
    AsciiFacets const taken = scanAsciiFacets(text);
    ASSERT_EQ(taken.count(), many);
    EXPECT_EQ(taken.bytes, text.size());
    for (std::size_t i = 0; i < many; ++i)
        ASSERT_EQ(taken.facets[i][0], UPoint3<float>(float(i + 2), 0, 0));
    EXPECT_EQ(taken.facets.back()[2], UPoint3<float>(0, 1, 0));
}

TEST(AsciiFacets, CornersHaveTheNumbersOfTheirOwnLine)
{
    std::mt19937 random(5);
    // Few that come again and again, short and long ones, which differ in one digit here or there.
    std::vector<std::string> numbers;
    for (std::string const digits :
         {"1", "1.25", "10000001", "-3.1250000000000000000000000", "72.5e-3"})
        for (char const digit : {'2', '3', '4'})
            numbers.push_back(std::string(digits).replace(digits.size() / 2, 1, 1, digit));
    std::string text;
    std::vector<Facet> expected(many);
    for (Facet& corners : expected) {
        text += "facet normal 0 0 1\nouter loop\n";
        for (UPoint3<float>& corner : corners) {
            text += "vertex";
            for (int axis = 0; axis < 3; ++axis) {
                std::string const& number = numbers[random() % numbers.size()];
                text += ' ' + number;
                corner[axis] = std::strtof(number.c_str(), nullptr);
            }
            text += '\n';
        }
        text += "endloop\nendfacet\n";
    }
    AsciiFacets const taken = scanAsciiFacets(text);
    EXPECT_EQ(taken.bytes, text.size());
    EXPECT_TRUE(taken.facets == expected);
}

TEST(AsciiFacets, LineEndsOfOtherSystemsAreUsual)
{
    std::string const text = facet("7", "\r\n") + facet("8", " \r\n");
    EXPECT_EQ(scanAsciiFacets(text).count(), 2u);
    EXPECT_EQ(scanAsciiFacets(text).bytes, text.size());
}

TEST(AsciiFacets, StopBeforeWhatIsWrittenOtherwise)
{
    for (std::string const unusual : {"+5", "nan", "inf", "1e99", "0x1p3", "x", ""}) {
        std::string const before = facets(3);
        AsciiFacets const taken = scanAsciiFacets(before + facet(unusual) + facets(2));
        EXPECT_EQ(taken.count(), 3u) << unusual;
        EXPECT_EQ(taken.bytes, before.size()) << unusual;
    }
    EXPECT_EQ(scanAsciiFacets("FACET NORMAL 0 0 1\n").count(), 0u);
    EXPECT_EQ(scanAsciiFacets("").count(), 0u);
}

TEST(AsciiFacets, AFacetThatIsNotThereAsAWholeIsLeft)
{
    std::string const whole = facet("3");
    for (std::size_t length = 0; length < whole.size(); ++length)
        ASSERT_EQ(scanAsciiFacets(whole.substr(0, length)).count(), 0u) << length;
}

TEST(AsciiFacets, NothingIsTakenBehindAGapInALongText)
{
    // The gap lies in the first of several pieces.
    std::string const text = facets(10) + "endsolid a\nsolid b\n" + facets(many);
    EXPECT_EQ(scanAsciiFacets(text).count(), 10u);
}

TEST(AsciiFacets, SolidsAndUnusualFacetsBetweenUsualOnesAreRead)
{
    ScratchFolder const folder;
    std::string text = "solid a\n" + facets(many) + "endsolid a\nsolid b\n";
    text +=
        "FACET normal 0 0 1 outer loop vertex\n+1e1 0 0 vertex 0 0 5 vertex 0 5 0 endloop "
        "endfacet\n";
    text += facets(many) + "endsolid b\n";
    auto const parts = readParts(folder.file("two.stl", text));
    ASSERT_EQ(parts.size(), 1u);
    EXPECT_EQ(parts[0].kernel->readMesh()->triangles.size(), 2 * many + 1);
}

TEST(AsciiFacets, AnErrorBehindManyFacetsNamesItsLine)
{
    ScratchFolder const folder;
    for (std::size_t const before : {std::size_t(1), std::size_t(700), many}) {
        auto const path =
            folder.file("bad.stl", "solid a\n" + facets(before) + facet("1e99") + "endsolid a\n");
        // The solid's line, the facets, and the third line of the next.
        EXPECT_THAT(readError(path), HasSubstr("line " + std::to_string(1 + 7 * before + 3)));
    }
}

TEST(AsciiStlWriter, CornersReadBackBitForBit)
{
    using Limits = std::numeric_limits<float>;
    ScratchFolder const folder;
    std::vector<UPoint3<float>> corners;
    float const values[] = {Limits::denorm_min(), -Limits::min(), Limits::max(),
                            Limits::lowest(),     0.1f,           -1.17549435e-38f,
                            16777217.0f,          123456.789f};
    for (float const a : values)
        for (float const b : values)
            corners.insert(corners.end(), {{a, b, 1}, {b, 2, a}, {a, 3, b}});
    Soup soup;
    for (UPoint3<float> const& corner : corners)
        soup.add(corner);
    for (std::uint32_t i = 0; i < corners.size(); i += 3)
        soup.add(i, i + 1, i + 2);
    auto const path = folder / "limits.stl";
    writePart(path, "limits", *kernelOf(soup), *FormatRegistry::instance().byName("stl-ascii"), {},
              Overwrite::Refuse);

    auto const parts = readParts(path);
    auto const mesh = parts.at(0).kernel->readMesh();
    ASSERT_EQ(mesh->triangles.size(), corners.size() / 3);
    for (std::size_t i = 0; i < corners.size(); ++i)
        ASSERT_EQ(mesh->triangles[i / 3]->cP(int(i % 3)), corners[i]) << i;
}

TEST(AsciiStlWriter, NormalsHaveSixDecimalsAtMostAndNoneThatAreZero)
{
    ScratchFolder const folder;
    Soup soup;
    for (UPoint3<float> const& corner : {UPoint3<float>(0, 0, 0), {1, 0, 0}, {0, 1, 0}, {1, 0, 1}})
        soup.add(corner);
    soup.add(0, 1, 2);
    soup.add(0, 2, 3);
    auto const path = folder / "normals.stl";
    writePart(path, "part", *kernelOf(soup), *FormatRegistry::instance().byName("stl-ascii"), {},
              Overwrite::Refuse);
    std::string const text = contentOf(path);
    EXPECT_THAT(text, HasSubstr("facet normal 0 0 1\n"));
    EXPECT_THAT(text, HasSubstr("facet normal 0.707107 0 -0.707107\n"));
}
