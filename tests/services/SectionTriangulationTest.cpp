// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/FlatSigns.h"
#include "host/services/exact/SectionTriangulation.h"
#include "tests/support/FillingJudge.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace {

using Exact::SectionPoint2;
using Exact::SectionSegment;

/// Contours in a plane with what lies on their left.
struct Outlines
{
    std::vector<SectionPoint2> points;
    std::vector<SectionSegment> segments;

    /// Joins points as they come, and the last to the first.
    void add(std::vector<SectionPoint2> const& ring)
    {
        auto const first = std::uint32_t(points.size()), count = std::uint32_t(ring.size());
        points.insert(points.end(), ring.begin(), ring.end());
        for (std::uint32_t i = 0; i < count; ++i)
            segments.push_back({first + i, first + (i + 1) % count});
    }

    std::string fault()
    {
        auto const filling = Exact::fillSection(points, segments, {});
        if (filling.layers != 1)
            return std::to_string(filling.layers) + " layers";
        std::vector<judge::FlatEdge> contours;
        for (SectionSegment const& segment : segments) {
            if (!segment.splits.empty())
                return "split";
            if (segment.weight != 0)
                contours.push_back({segment.from, segment.to});
        }
        return judge::fillingFault(points, contours, filling.triangles);
    }
};

/// A closed line around the origin, out and in again by a share of its radius at random.
std::vector<SectionPoint2> roughCircle(std::uint32_t count, double radius, double roughness,
                                       std::uint32_t seed, bool isClockwise = false)
{
    std::mt19937 random(seed);
    std::vector<SectionPoint2> ring;
    for (std::uint32_t i = 0; i < count; ++i) {
        double const share = double(random()) / double(std::mt19937::max());
        double const reach = radius * (1 + roughness * (share - 0.5));
        double const angle = 2 * std::numbers::pi * i / count * (isClockwise ? -1 : 1);
        ring.push_back({float(reach * std::cos(angle)), float(reach * std::sin(angle))});
    }
    return ring;
}

std::vector<SectionPoint2> square(double x, double y, double size, bool isClockwise = false)
{
    if (isClockwise)
        return {{x, y}, {x, y + size}, {x + size, y + size}, {x + size, y}};
    return {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
}

}  // namespace

TEST(SectionTriangulation, PointsInOnePlaceCountAsOne)
{
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        // Each ring has points of its own, of which one lies where one of the first ring lies.
        Outlines rings;
        std::mt19937 random(seed);
        std::uint32_t const count = 3 + seed;
        rings.add(roughCircle(count, 50, 0.3, seed));
        std::uint32_t const shared = random() % count;
        SectionPoint2 const corner = rings.points[shared];
        rings.points.push_back(corner);
        for (SectionSegment& segment : rings.segments)
            if (segment.from == shared)
                segment.from = count;
        double area = 0;
        for (std::uint32_t i = 0; i < count; ++i) {
            SectionPoint2 const& a = rings.points[i];
            SectionPoint2 const& b = rings.points[(i + 1) % count];
            area += a[0] * b[1] - a[1] * b[0];
        }
        double filled = 0;
        for (auto const& t : Exact::fillSection(rings.points, rings.segments, {}).triangles) {
            auto const& [a, b, c] = t;
            SectionPoint2 const &p = rings.points[a], &q = rings.points[b], &r = rings.points[c];
            filled += (q[0] - p[0]) * (r[1] - p[1]) - (q[1] - p[1]) * (r[0] - p[0]);
        }
        EXPECT_NEAR(filled, area, 1e-6 * area) << seed;
    }
}

TEST(SectionTriangulation, FillsRoughRingsByAConstrainedDelaunayTriangulation)
{
    for (int round = 0; round < rounds(40); ++round) {
        Outlines rings;
        auto const seed = std::uint32_t(round);
        rings.add(roughCircle(3 + seed * seed, 50, 0.3, seed));
        rings.add(roughCircle(3 + 2 * seed, 20, 0.9, seed + 100, true));
        EXPECT_EQ(rings.fault(), "") << round;
    }
}

TEST(SectionTriangulation, FillsStarsWhoseEdgesCrossManyOthersOfTheirPoints)
{
    for (int round = 0; round < rounds(20); ++round) {
        Outlines star;
        star.add(roughCircle(100 + 40 * std::uint32_t(round), 50, 1.9, std::uint32_t(round)));
        EXPECT_EQ(star.fault(), "") << round;
    }
}

TEST(SectionTriangulation, FillsAPlateThatIsThinAndRoughOnOneSideOnly)
{
    Outlines plate;
    std::vector<SectionPoint2> ring{{0, 0}, {100, 0}};
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i)
        ring.push_back({100 - 0.05 * i, 0.1f + float(random() % 100) * 0.001f});
    plate.add(ring);
    EXPECT_EQ(plate.fault(), "");
}

TEST(SectionTriangulation, FillsSquaresInRowsWhoseCornersLieOnCommonCirclesAndLines)
{
    Outlines grid;
    grid.add(square(-1, -1, 41));
    for (int x = 0; x < 20; ++x)
        for (int y = 0; y < 20; ++y)
            grid.add(square(2 * x, 2 * y, 1, true));
    EXPECT_EQ(grid.fault(), "");
}

TEST(SectionTriangulation, FillsASquareOfManyPointsInLineWhicheverWayItIsTurned)
{
    std::vector<SectionPoint2> ring;
    for (int i = 0; i < 50; ++i)
        ring.push_back({double(i), 0});
    for (int i = 0; i < 50; ++i)
        ring.push_back({50, double(i)});
    ring.push_back({50, 50});
    ring.push_back({0, 50});
    for (int quarter = 0; quarter < 4; ++quarter) {
        Outlines outlines;
        outlines.add(ring);
        EXPECT_EQ(outlines.fault(), "") << quarter;
        for (SectionPoint2& p : ring)
            p = {-p[1], p[0]};
    }
}

TEST(SectionTriangulation, KeepsSegmentsThatOnlyDivide)
{
    Outlines block;
    block.add(square(0, 0, 10));
    // Beside the way from corner to corner, and not on it.
    for (int i = 1; i < 9; ++i)
        block.points.push_back({double(i), i % 2 == 0 ? 1.0 : 9.0});
    block.segments.push_back({0, 2, 0});
    auto filling = Exact::fillSection(block.points, block.segments, {});
    int beside = 0;
    for (auto const& t : filling.triangles)
        for (std::size_t i = 0; i < 3; ++i) {
            std::uint32_t const from = t[i], to = t[(i + 1) % 3];
            beside += (from == 0 && to == 2) || (from == 2 && to == 0);
        }
    EXPECT_EQ(beside, 2);
}

TEST(SectionTriangulation, LiesInLayersWhereContoursRunTwiceOrBackwards)
{
    Outlines twice;
    twice.add(square(0, 0, 10));
    for (std::uint32_t i = 0; i < 4; ++i)
        twice.segments.push_back({i, (i + 1) % 4});
    auto filling = Exact::fillSection(twice.points, twice.segments, {});
    EXPECT_EQ(filling.layers, 2);
    EXPECT_EQ(filling.triangles.size(), 4u);

    Outlines backwards;
    backwards.add(square(0, 0, 10, true));
    filling = Exact::fillSection(backwards.points, backwards.segments, {});
    EXPECT_EQ(filling.layers, 1);
    ASSERT_EQ(filling.triangles.size(), 2u);
    for (auto const& [a, b, c] : filling.triangles)
        EXPECT_EQ(judge::flatTurn(backwards.points[a], backwards.points[b], backwards.points[c]),
                  -1);
}

TEST(SectionTriangulation, FillsNothingBetweenPointsInOneLine)
{
    for (std::uint32_t const count : {2u, 3u, 9u}) {
        Outlines line;
        for (std::uint32_t i = 0; i < count; ++i) {
            line.points.push_back({double(i), 2.0 * i});
            line.segments.push_back({i, (i + 1) % count});
        }
        EXPECT_TRUE(Exact::fillSection(line.points, line.segments, {}).triangles.empty()) << count;
    }
}

TEST(SectionTriangulation, CanBeLeftAtAnyReport)
{
    struct Left
    {
    };
    Outlines ring;
    ring.add(roughCircle(40000, 50, 0.3, 1));
    int const never = 1'000'000;
    // Returns how many reports came.
    auto const fillAndLeaveAt = [&](int last) {
        int told = 0;
        auto const tell = [&](int percent) {
            EXPECT_GE(percent, 0);
            EXPECT_LE(percent, 100);
            if (told++ == last)
                throw Left();
        };
        auto copy = ring;
        Exact::fillSection(copy.points, copy.segments, tell);
        return told;
    };
    int const count = fillAndLeaveAt(never);
    EXPECT_GE(count, 20);
    for (int part = 0; part < 8; ++part)
        EXPECT_THROW(fillAndLeaveAt(part * (count - 1) / 7), Left);
}

TEST(FlatSigns, AreThoseOfRationalNumbers)
{
    std::mt19937 random(7);
    auto const number = [&](int kind) -> double {
        double const small = double(random() % 8);
        switch (kind) {
            case 0:  // On a grid.
                return small;
            case 1:  // Floats that nearly are.
                return float(small) * (1 + 0x1p-23f * float(random() % 2));
            case 2:  // Doubles that nearly are, and that a difference rounds.
                return small / 3 + (random() % 2 == 0 ? 0x1p-54 : 0);
            default:  // Of very different sizes.
                return std::ldexp(small, int(random() % 300) - 150);
        }
    };
    for (int round = 0; round < rounds(20000); ++round) {
        std::array<SectionPoint2, 4> p;
        for (auto& [x, y] : p) {
            x = number(round % 4);
            y = number(round % 4);
        }
        auto& [a, b, c, d] = p;
        int const turn = judge::flatTurn(a, b, c);
        ASSERT_EQ(Exact::flatOrientation(a, b, c), turn) << round;
        if (turn < 0)
            std::swap(a, b);
        if (turn != 0) {
            ASSERT_EQ(Exact::isInCircle(a, b, c, d), judge::isWithinCircle(a, b, c, d)) << round;
        }
    }
}
