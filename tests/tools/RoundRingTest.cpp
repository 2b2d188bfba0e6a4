// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/geometry/MellMath.h"
#include "tests/tools/OutlineScene.h"
#include "tools/RoundRing.h"

#include <gtest/gtest.h>

namespace {

using Freecut::Ring;
using Point = UPoint3<float>;

Ring const square{{0, 0, 7}, {10, 0, 7}, {10, 10, 7}, {0, 10, 7}};

Ring rounded(Ring ring, float radius)
{
    Freecut::roundRing(ring, radius);
    return ring;
}

double areaOf(Ring const& ring)
{
    Freecut::FlatRing flat;
    for (Point const& p : ring)
        flat.emplace_back(p.X(), p.Y());
    return signedArea(flat);
}

/// An isosceles triangle whose first corner is `degrees` wide, with long sides.
Ring wedge(double degrees)
{
    double const half = degrees * M_PI / 360;
    auto const x = float(100 * std::cos(half)), y = float(100 * std::sin(half));
    return {{0, 0, 0}, {x, -y, 0}, {x, y, 0}};
}

}  // namespace

TEST(RoundRing, ARightAngleGetsAPointForEveryTwoDegrees)
{
    Ring const ring = rounded(square, 2);
    // 45 points between the ends of each arc.
    ASSERT_EQ(ring.size(), 4u * 47);
    EXPECT_EQ(ring[0], Point(0, 2, 7));
    EXPECT_EQ(ring[46], Point(2, 0, 7));
    EXPECT_EQ(ring[47], Point(8, 0, 7));
    for (int i = 0; i < 47; ++i)
        EXPECT_NEAR(MellMath<float>::DisPt2Pt(ring[std::size_t(i)], {2, 2, 7}), 2, 1e-4);
    // The points are evenly spread over the quarter turn.
    for (int i = 0; i < 46; ++i)
        EXPECT_NEAR(MellMath<float>::DisPt2Pt(ring[std::size_t(i)], ring[std::size_t(i) + 1]),
                    4 * std::sin(M_PI / 4 / 46), 1e-4);
    EXPECT_NEAR(areaOf(ring), 100 - (4 - M_PI) * 4, 0.01);
}

TEST(RoundRing, NarrowCornersGetMorePointsThanWideOnes)
{
    // The arc turns by what is missing to a straight line: a point for each two degrees of it.
    for (auto const& [degrees, points] :
         {std::pair(61.0, 59), {90.5, 44}, {119.0, 30}, {150.5, 14}, {177.0, 1}, {179.0, 0}}) {
        Ring const corner = rounded(wedge(degrees), 0.01f);
        auto const isNear = [](Point const& p) { return std::hypot(p.X(), p.Y()) < 20; };
        EXPECT_EQ(std::count_if(corner.begin(), corner.end(), isNear), points + 2) << degrees;
    }
}

TEST(RoundRing, ACornerTooTightForTheRadiusKeepsItsPoint)
{
    EXPECT_EQ(rounded(square, 10), square) << "the arc would take the whole side";
    EXPECT_EQ(rounded(square, 12), square) << "a radius larger than a side";
    Ring const thin{{0, 0, 0}, {100, 0, 0}, {100, 1, 0}, {0, 1, 0}};
    EXPECT_EQ(rounded(thin, 2), thin);
}

TEST(RoundRing, ACornerCountsFromTheEndOfTheArcBeforeIt)
{
    // Each side has room for one arc of six, but not for two.
    Ring const ring = rounded(square, 6);
    ASSERT_EQ(ring.size(), 2u * 47 + 2);
    EXPECT_EQ(ring[46], Point(6, 0, 7)) << "the first corner is rounded";
    EXPECT_EQ(ring[47], Point(10, 0, 7)) << "the second has four left";
    EXPECT_EQ(ring[48], Point(10, 4, 7)) << "the third is rounded again";
    EXPECT_EQ(ring.back(), Point(0, 10, 7))
        << "the last one counts up to the first arc's beginning";
}

TEST(RoundRing, RadiiDownToAThousandthAreNone)
{
    EXPECT_EQ(rounded(square, 0.001f), square);
    EXPECT_EQ(rounded(square, 0), square);
    EXPECT_EQ(rounded(square, -3), square);
    EXPECT_EQ(rounded(square, std::nanf("")), square);
    EXPECT_GT(rounded(square, 0.0011f).size(), square.size());
    EXPECT_TRUE(rounded({}, 1).empty());
}

TEST(RoundRing, InwardCornersAreRoundedToo)
{
    Ring const corner{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {5, 10, 0}, {5, 5, 0}, {0, 5, 0}};
    Ring const ring = rounded(corner, 1);
    ASSERT_EQ(ring.size(), 6u * 47);
    // Five corners lose what one gains.
    EXPECT_NEAR(areaOf(ring), 75 - 4 * (1 - M_PI / 4), 0.01);
}

TEST(RoundRing, APointOnAStraightSideBecomesTwoInPlace)
{
    Ring const ring = rounded({{0, 0, 0}, {5, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}}, 1);
    ASSERT_EQ(ring.size(), 4u * 47 + 2);
    EXPECT_NEAR(MellMath<float>::DisPt2Pt(ring[47], {5, 0, 0}), 0, 1e-5);
    EXPECT_NEAR(MellMath<float>::DisPt2Pt(ring[48], {5, 0, 0}), 0, 1e-5);
}

TEST(RoundRing, ClockwiseAndTiltedRingsAreRoundedAlike)
{
    Ring const reversed(square.rbegin(), square.rend());
    EXPECT_NEAR(areaOf(rounded(reversed, 2)), -(100 - (4 - M_PI) * 4), 0.01);
    Ring tilted;
    for (Point const& p : square)
        tilted.push_back({p.X(), p.Y() * 0.6f, p.Y() * 0.8f});
    Ring const ring = rounded(tilted, 2);
    ASSERT_EQ(ring.size(), 4u * 47);
    EXPECT_NEAR(areaOf(ring), 0.6 * (100 - (4 - M_PI) * 4), 0.01);
}
