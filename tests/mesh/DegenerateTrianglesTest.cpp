// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

/// A box one of whose edges carries an extra point that only one of the two triangles at it uses:
/// the other side is filled by a triangle with its corners in a line.
Soup boxWithAFlatTriangle()
{
    Soup soup = box(2, 2, 2);
    auto const t = soup.triangles[0];
    std::uint32_t const middle = soup.add((soup.points[t[0]] + soup.points[t[1]]) * 0.5f);
    soup.triangles[0] = {t[0], middle, t[2]};
    soup.add(middle, t[1], t[2]);
    soup.add(t[0], t[1], middle);
    return soup;
}

/// How the points in a line are filled by flat triangles.
enum class Filling
{
    fromTheStart,
    fromTheEnd,
    byHalves
};

void fillLine(Soup& soup, std::vector<std::uint32_t> const& line, std::size_t first,
              std::size_t last, Filling filling)
{
    if (last - first < 2)
        return;
    std::size_t const middle = filling == Filling::byHalves       ? (first + last) / 2
                               : filling == Filling::fromTheStart ? last - 1
                                                                  : first + 1;
    soup.add(line[first], line[last], line[middle]);
    fillLine(soup, line, first, middle, filling);
    fillLine(soup, line, middle, last, filling);
}

/// A box one of whose edges carries many points that only one of the triangles at it uses.
Soup boxWithFlatTriangles(int count, Filling filling)
{
    Soup soup = box(8, 8, 8);
    auto const t = soup.triangles[0];
    auto const a = soup.points[t[0]], b = soup.points[t[1]];
    std::vector<std::uint32_t> line = {t[0]};
    for (int i = 1; i <= count; ++i)
        line.push_back(soup.add(a + (b - a) * (float(i) / 512)));
    line.push_back(t[1]);
    soup.triangles[0] = {line[0], line[1], t[2]};
    for (std::size_t i = 1; i + 1 < line.size(); ++i)
        soup.add(line[i], line[i + 1], t[2]);
    fillLine(soup, line, 0, line.size() - 1, filling);
    return soup;
}

}  // namespace

TEST(DegenerateTriangles, CleanMeshStaysAsItIs)
{
    auto const kernel = kernelOf(torus(10, 3, 12, 8));
    EXPECT_EQ(kernel->DeleteDegenerateTris(), 0u);
    EXPECT_EQ(soupOf(*kernel).triangles, torus(10, 3, 12, 8).triangles);
}

TEST(DegenerateTriangles, FlatTriangleIsSwappedAwayAndTheMeshStaysClosed)
{
    auto const kernel = kernelOf(boxWithAFlatTriangle());
    ASSERT_NE(closedSolidFaults(*kernel), "");
    EXPECT_EQ(kernel->DeleteDegenerateTris(), 1u);
    EXPECT_EQ(closedSolidFaults(*kernel), "");
    EXPECT_NEAR(volumeOf(soupOf(*kernel)), 8, 1e-6);
}

TEST(DegenerateTriangles, EdgeOfNoLengthCollapsesAndTheMeshStaysClosed)
{
    Soup soup = torus(10, 3, 12, 8);
    auto const t = soup.triangles[5];
    soup.points[t[1]] = soup.points[t[0]];
    auto const kernel = kernelOf(soup);
    EXPECT_EQ(kernel->DeleteDegenerateTris(), 2u);
    EXPECT_EQ(closedSolidFaults(*kernel), "");
}

TEST(DegenerateTriangles, ChainOfFlatTrianglesIsResolved)
{
    // A strip along an edge of the box: three points in a line, filled by flat triangles.
    Soup soup = box(8, 8, 8);
    auto const t = soup.triangles[0];
    auto const a = soup.points[t[0]];
    auto const b = soup.points[t[1]];
    std::uint32_t const p = soup.add(a * 0.75f + b * 0.25f);
    std::uint32_t const q = soup.add(a * 0.5f + b * 0.5f);
    std::uint32_t const r = soup.add(a * 0.25f + b * 0.75f);
    soup.triangles[0] = {t[0], p, t[2]};
    soup.add(p, q, t[2]);
    soup.add(q, r, t[2]);
    soup.add(r, t[1], t[2]);
    soup.add(t[0], t[1], r);
    soup.add(t[0], r, q);
    soup.add(t[0], q, p);
    auto const kernel = kernelOf(soup);
    EXPECT_EQ(kernel->DeleteDegenerateTris(), 3u);
    EXPECT_EQ(closedSolidFaults(*kernel), "");
    EXPECT_NEAR(volumeOf(soupOf(*kernel)), 512, 1e-4);
}

TEST(DegenerateTriangles, HundredsOfPointsInALineAreResolvedHoweverTheyAreFilled)
{
    for (Filling const filling : {Filling::fromTheStart, Filling::fromTheEnd, Filling::byHalves}) {
        SCOPED_TRACE(int(filling));
        auto const kernel = kernelOf(boxWithFlatTriangles(400, filling));
        EXPECT_EQ(kernel->DeleteDegenerateTris(), 400u);
        EXPECT_EQ(closedSolidFaults(*kernel), "");
        EXPECT_NEAR(volumeOf(soupOf(*kernel)), 512, 1e-4);
    }
}

TEST(DegenerateTriangles, LoneFlatTriangleIsTakenAway)
{
    Soup soup;
    soup.points = {{0, 0, 0}, {1, 1, 1}, {2, 2, 2}};
    soup.triangles = {{0, 1, 2}};
    auto const kernel = kernelOf(soup);
    EXPECT_EQ(kernel->DeleteDegenerateTris(), 1u);
    EXPECT_TRUE(kernel->getMesh()->triangles.empty());
}

TEST(DegenerateTriangles, NearlyFlatTriangleOfPointsFarApartInSizeIsKept)
{
    // A double cannot hold the difference of the first two points: without the rounding the three
    // do not lie on one line.
    Soup soup;
    soup.points = {{1e-20f, 0, 0}, {1, 1, 0}, {2, 2, 0}};
    soup.triangles = {{0, 1, 2}};
    EXPECT_EQ(kernelOf(soup)->DeleteDegenerateTris(), 0u);
}

TEST(DegenerateTriangles, CoordinatesThatAreNoNumbersAreLeftAlone)
{
    float const none = std::numeric_limits<float>::quiet_NaN();
    float const endless = std::numeric_limits<float>::infinity();
    for (float const broken : {none, endless, -endless}) {
        Soup soup;
        soup.points = {{0, 0, 0}, {1, 1, broken}, {2, 2, 2}};
        soup.triangles = {{0, 1, 2}};
        EXPECT_EQ(kernelOf(soup)->DeleteDegenerateTris(), 0u) << broken;
    }
}

TEST(DegenerateTriangles, FlatPartnerOfAFlatTriangleHasItsTurnInTheNextRound)
{
    // The swap of the first takes the second's longest edge away, under which its own partner was
    // looked for.
    Soup soup;
    soup.points = {{0, 0, 0}, {2, 0, 0}, {1, 0, 0}, {-5, 0, 0}};
    soup.triangles = {{0, 1, 2}, {1, 0, 3}};
    auto const kernel = kernelOf(soup);
    EXPECT_EQ(kernel->DeleteDegenerateTris(), 2u);
    EXPECT_TRUE(kernel->getMesh()->triangles.empty());
}
