// SPDX-License-Identifier: GPL-3.0-or-later
// Where the work on a boolean is cut short, nothing may come out wrong in silence. The limits and
// what follows stand in docs/decisions/0005-booleans.md.
#include "host/services/boolean/BooleanNotes.h"
#include "host/services/boolean/RoundingCrossings.h"
#include "host/services/boolean/RoundingMending.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "tests/services/BoxUnderATip.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/OperandContacts.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

namespace {

std::function<void(int)> const nobody;

/// A long plate along x and so many across it, as shells that cross. All reach out of the upper side
/// of `slabFor(count)` by 2 and into it by 2.
Soup crossingPlates(int count, bool isLongOneFirst)
{
    Soup const longOne = box(2 * float(count) + 1, 1, 4, {0, 9.5f, 8});
    Soup soup;
    if (isLongOneFirst)
        soup.append(longOne);
    for (int i = 0; i < count; ++i)
        soup.append(box(1, 20, 4, {2 * float(i) + 1, 0, 8}));
    if (!isLongOneFirst)
        soup.append(longOne);
    return soup;
}

Soup slabFor(int count)
{
    return box(2 * float(count) + 11, 30, 10, {-5, -5, 0});
}

/// Boxes under tips that rounding has pushed through their tops, or not yet.
Soup tips(int count, float height)
{
    Soup soup;
    for (int i = 0; i < count; ++i) {
        Soup one = boxUnderATip(height);
        for (auto& p : one.points)
            p += UVector3<float>(25 * float(i % 16), 35 * float(i / 16), 0);
        soup.append(one);
    }
    return soup;
}

std::vector<std::string> linesOf(std::function<void()> const& work)
{
    std::vector<std::string> lines;
    Base::ConsoleSingleton::Instance().setListener(
        [&](std::string const& line) { lines.push_back(line); });
    work();
    Base::ConsoleSingleton::Instance().setListener({});
    return lines;
}

/// A tube of so many sides along x, from -10 to 40, without its end at 40.
Soup openTube(int sides, float y, float z)
{
    Soup tube;
    auto const middle = tube.add({-10, y, z});
    for (int i = 0; i < sides; ++i) {
        double const angle = 2 * std::numbers::pi * (i + 0.3) / sides;
        auto const across = y + 3 * float(std::cos(angle)), up = z + 3 * float(std::sin(angle));
        tube.add({-10, across, up});
        tube.add({40, across, up});
    }
    for (std::uint32_t i = 0; i < std::uint32_t(sides); ++i) {
        std::uint32_t const a = 1 + 2 * i, b = 1 + 2 * ((i + 1) % std::uint32_t(sides));
        tube.add(middle, b, a);
        tube.add(a, b, b + 1);
        tube.add(a, b + 1, a + 1);
    }
    return tube;
}

}  // namespace

// Each point on a segment took a round of dividing, of which there are thirty: then all of both
// solids went the slow way.
TEST(BooleanLimits, CurvesAcrossOneSegmentAreDividedInFewRoundsHoweverManyTheyAre)
{
    for (bool const isLongOneFirst : {false, true}) {
        constexpr int count = 60;
        Soup const part = slabFor(count), tool = crossingPlates(count, isLongOneFirst);
        EXPECT_TRUE(OperandContacts(part, tool).areCurvesBuilt());
        Soup const rest = combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
        EXPECT_EQ(closedSolidFaults(rest), "");
        // Of the long plate what the others leave.
        double const taken = 2 * (20 * count + (2 * count + 1) - count);
        EXPECT_NEAR(volumeOf(rest), volumeOf(part) - taken, 0.01);
    }
}

// Each tip is a pair or more; they could all be mended, but surfaces that cross in so many places lie
// on each other.
TEST(BooleanLimits, AThousandPairsThatCrossByRoundingAreNamedAndLeftAsTheyAre)
{
    float const pushed = std::nextafter(std::nextafter(40.0f, 0.0f), 0.0f);
    Soup const right = tips(600, 40.5f), crossing = tips(600, pushed);
    OperandSoup operand;
    operand.mesh = {right.points, right.triangles};
    operand.firstPointOfSecond = operand.pointCount();
    operand.firstTriangleOfSecond = operand.triangleCount();
    auto const piece = [&](std::size_t triangles) {
        std::vector<PieceTriangle> all;
        for (std::uint32_t t = 0; t < triangles; ++t)
            all.push_back({crossing.triangles[t], t, false});
        return all;
    };
    std::vector<bool> isFree(crossing.points.size(), false);
    std::size_t const pointsOfOne = crossing.points.size() / 600;
    for (std::size_t i = pointsOfOne; i <= isFree.size(); i += pointsOfOne)
        isFree[i - 1] = true;
    StageProgress progress(nobody);

    std::vector<std::vector<PieceTriangle>> pieces{piece(crossing.triangles.size())};
    auto places = crossing.points;
    auto const left = RoundingMending(operand, pieces, places, isFree).run(progress);
    ASSERT_GE(left.size(), RoundingCrossings::mostPairs);
    EXPECT_EQ(places, crossing.points);
    auto const lines = linesOf([&] { logCrossings(left); });
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_NE(lines[5].find("at least " + std::to_string(left.size() - 5)), std::string::npos)
        << lines[5];

    // A fourth of them is mended.
    pieces = {piece(crossing.triangles.size() / 4)};
    EXPECT_TRUE(RoundingMending(operand, pieces, places, isFree).run(progress).empty());
}

// Lines along x pass the tubes' open ends, or run along their walls: none that is
// asked tells what lies within.
TEST(BooleanLimits, WhereNoLineTellsTheCurvesDo)
{
    Soup const part = box(20, 20, 20);
    for (int const sides : {48, 200}) {
        Soup tool = openTube(sides, 8, 8.5f);
        tool.append(openTube(sides, 10.25f, 10));
        auto const [within, outside] = split(part, tool);
        EXPECT_EQ(closedSolidFaults(within), "");
        EXPECT_EQ(closedSolidFaults(outside), "");
        EXPECT_NEAR(volumeOf(within) + volumeOf(outside), 8000, 0.01);
        // Two circles of radius 3 whose centres are `d` apart.
        double const d = std::hypot(2.25, 1.5);
        double const lens = 2 * 9 * std::acos(d / 6) - d / 2 * std::sqrt(36 - d * d);
        double const area = 2 * std::numbers::pi * 9 - lens;
        EXPECT_NEAR(volumeOf(within) / 20, area, 0.01 * area * 48 / sides);
    }
}
