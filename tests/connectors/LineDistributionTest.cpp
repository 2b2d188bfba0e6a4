// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/CircleMeeting.h"
#include "connectors/LineDistribution.h"
#include "platform/geometry/MellMath.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Point = UPoint3<float>;
using Line = std::vector<Point>;

void expectPoints(std::vector<Point> const& actual, std::vector<Point> const& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(actual[i][k], expected[i][k], 1e-3f) << "point " << i << " axis " << k;
}

float leastDistance(std::vector<Point> const& points)
{
    float least = 1e30f;
    for (std::size_t i = 0; i < points.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            least = std::min(least, MellMath<float>::DisPt2Pt(points[i], points[j]));
    return least;
}

float distanceFrom(std::vector<Line> const& lines, Point const& p)
{
    float least = 1e30f;
    for (Line const& line : lines)
        for (std::size_t i = 0; i + 1 < line.size(); ++i)
            least = std::min(least, MellMath<float>::DisPt2Segment(p, line[i], line[i + 1]));
    return least;
}

struct MeetingRow
{
    float ca;
    float cb;
    float x;
    bool endsSegment;
    std::optional<float> distance;
};

}  // namespace

TEST(CircleMeeting, FollowsTheTableOfAnglesAndDistances)
{
    constexpr float s = 5;
    for (MeetingRow const& row : {
             MeetingRow{1, 1, 8, false, 3.0f},            // both ahead: where the circle begins
             MeetingRow{0.6f, 0, 5, false, 0.0f},         // 3 - sqrt(25 - 16)
             MeetingRow{0.8f, -0.5f, 6, false, 1.3300f},  // outside the circle: 4.8 - 3.4699
             MeetingRow{0.6f, -0.5f, 5, false, 6.0f},     // inside: 3 + 3
             MeetingRow{-0.6f, -1, 5, false, 0.0f},       // behind, inside: -3 + 3
             MeetingRow{-1, -1, 2, false, 3.0f},
             MeetingRow{-0.6f, -1, 6, false, {}},  // behind and out of reach
             MeetingRow{-0.6f, 0.1f, 2, true, {}},
             MeetingRow{-0.6f, 0, 9, true, {}},
         }) {
        SCOPED_TRACE(testing::Message() << row.ca << " " << row.cb << " " << row.x);
        CircleMeeting const meeting(row.ca, row.cb, row.x, s);
        EXPECT_EQ(meeting.endsSegment, row.endsSegment);
        ASSERT_EQ(meeting.distance.has_value(), row.distance.has_value());
        if (row.distance) {
            EXPECT_NEAR(*meeting.distance, *row.distance, 2e-4f);
        }
    }
}

TEST(CircleMeeting, ALineThatPassesTheCircleMeetsItWhereItIsNearest)
{
    EXPECT_NEAR(*CircleMeeting(0.6f, 0.6f, 10, 5).distance, 6, 1e-5f);
}

TEST(LineDistribution, AStraightLineIsFilledStepByStep)
{
    expectPoints(distributeAlongLines({{{0, 0, 0}, {20, 0, 0}}}, 6),
                 {{0, 0, 0}, {6, 0, 0}, {12, 0, 0}, {18, 0, 0}});
}

TEST(LineDistribution, StepsGoOnOverThePointsOfALine)
{
    expectPoints(distributeAlongLines({{{0, 0, 0}, {4, 0, 0}, {9, 0, 0}, {20, 0, 0}}}, 6),
                 {{0, 0, 0}, {6, 0, 0}, {12, 0, 0}, {18, 0, 0}});
}

TEST(LineDistribution, AroundACornerTheStraightDistanceCounts)
{
    auto const points = distributeAlongLines({{{0, 0, 0}, {8, 0, 0}, {8, 20, 0}}}, 6);
    // From (6, 0) to the circle's meeting with x = 8.
    float const y = std::sqrt(32.0f);
    expectPoints(points, {{0, 0, 0}, {6, 0, 0}, {8, y, 0}, {8, y + 6, 0}, {8, y + 12, 0}});
}

// Rows of the table in which a line leaves the circle behind its start, or has nothing of it ahead,
// cannot come from points near a segment: the distances above show them alone.

TEST(LineDistribution, WhereACircleLiesAheadTheLineIsFilledBackFromIt)
{
    // The line's first point is too near to the first one placed. Of the second one the circle
    // begins at 20 - 4; from there the steps lead back until the first point is too near.
    expectPoints(distributeAlongLines({{{-3, 0, 0}}, {{20, 3, 0}}, {{0, 0, 0}, {18, 0, 0}}}, 5),
                 {{-3, 0, 0}, {20, 3, 0}, {16, 0, 0}, {11, 0, 0}, {6, 0, 0}});
}

TEST(LineDistribution, InsideACircleTheLineGoesOnWhereItLeavesIt)
{
    // Ahead of the start, beside the line: 3 + 4.
    expectPoints(distributeAlongLines({{{3, 3, 0}}, {{0, 0, 0}, {20, 0, 0}}}, 5),
                 {{3, 3, 0}, {7, 0, 0}});
    // Behind the start, beside the line: -3 + sqrt(25 - 1).
    expectPoints(distributeAlongLines({{{-3, 1, 0}}, {{0, 0, 0}, {4, 0, 0}}}, 5),
                 {{-3, 1, 0}, {std::sqrt(24.0f) - 3, 0, 0}});
    // Behind the start, in line with it.
    expectPoints(distributeAlongLines({{{-3, 0, 0}}, {{0, 0, 0}, {4, 0, 0}}}, 5),
                 {{-3, 0, 0}, {2, 0, 0}});
}

TEST(LineDistribution, ALineThatEndsInAPointIsFilledBackFromItsEnd)
{
    expectPoints(distributeAlongLines({{{-3, 0, 0}}, {{12, 0, 0}}, {{0, 0, 0}, {12, 0, 0}}}, 5),
                 {{-3, 0, 0}, {12, 0, 0}, {7, 0, 0}, {2, 0, 0}});
}

TEST(LineDistribution, ASegmentWithinOneCircleStaysBare)
{
    expectPoints(distributeAlongLines({{{0, 0, 0}}, {{1, 0, 0}, {2, 1, 0}, {3, 0, 0}}}, 6),
                 {{0, 0, 0}});
}

TEST(LineDistribution, ASegmentFarFromAllPointsBeginsWithItsFirstPoint)
{
    // The first segment has a point where it leaves the circle beside it, and no step beyond.
    expectPoints(distributeAlongLines({{{3, 3, 0}}, {{0, 0, 0}, {20, 0, 0}, {20, 16, 0}}}, 5),
                 {{3, 3, 0}, {7, 0, 0}, {20, 0, 0}, {20, 5, 0}, {20, 10, 0}, {20, 15, 0}});
}

TEST(LineDistribution, ARepeatedPointIsPassed)
{
    expectPoints(
        distributeAlongLines({{{0, 0, 0}, {0, 0, 0}, {7, 0, 0}, {7, 0, 0}, {13, 0, 0}}}, 6),
        {{0, 0, 0}, {6, 0, 0}, {12, 0, 0}});
}

TEST(LineDistribution, SpacingBeyondTheLineGivesOnePoint)
{
    expectPoints(distributeAlongLines({{{1, 2, 3}, {9, 2, 3}, {9, 4, 3}}}, 50), {{1, 2, 3}});
}

TEST(LineDistribution, NoLinesGiveNoPoints)
{
    EXPECT_TRUE(distributeAlongLines({}, 6).empty());
    EXPECT_TRUE(distributeAlongLines({{}}, 6).empty());
}

TEST(LineDistribution, WithoutSpacingNothingIsPlaced)
{
    EXPECT_TRUE(distributeAlongLines({{{0, 0, 0}, {9, 0, 0}}}, 0).empty());
    EXPECT_TRUE(distributeAlongLines({{{0, 0, 0}, {9, 0, 0}}}, -1).empty());
}

TEST(LineDistribution, ALineCloseToAnEarlierOneStaysBare)
{
    // Between neighbours on the first line there is no room either.
    auto const points = distributeAlongLines({{{0, 0, 0}, {30, 0, 0}}, {{0, 1, 0}, {30, 1, 0}}}, 6);
    EXPECT_EQ(points.size(), 6u);
    for (Point const& p : points)
        EXPECT_EQ(p.Y(), 0);
}

TEST(LineDistribution, AFarLineBeginsAtItsFirstPoint)
{
    expectPoints(distributeAlongLines({{{0, 0, 0}, {1, 0, 0}}, {{0, 50, 0}, {7, 50, 0}}}, 6),
                 {{0, 0, 0}, {0, 50, 0}, {6, 50, 0}});
}

TEST(LineDistribution, AClosedLineEndsShortOfItsBeginning)
{
    Line ring;
    for (int i = 0; i <= 96; ++i) {
        float const t = float(i % 96) * 6.2831853f / 96;
        ring.push_back({20 * std::cos(t), 20 * std::sin(t), 0});
    }
    auto const points = distributeAlongLines({ring}, 6);
    // A chord of 6 takes 17.25 degrees of this circle.
    EXPECT_EQ(points.size(), 20u);
    EXPECT_EQ(points.front(), ring.front());
    EXPECT_GE(MellMath<float>::DisPt2Pt(points.front(), points.back()), 6);
}

TEST(LineDistribution, APointFartherBackThanASpacingDoesNotMisleadTheWalk)
{
    // A point beside the line keeps the walk from stepping on, so that the next point stands two
    // spacings on. The step after it must count from there.
    std::vector<Line> const lines{{{9, 5, 0}}, {{100, 0, 0}}, {{0, 0, 0}, {8, 0, 0}, {60, 0, 0}}};
    auto const points = distributeAlongLines(lines, 6);
    EXPECT_GE(leastDistance(points), 6 - 1e-3f);
    float const third = 9 + std::sqrt(11.0f);
    ASSERT_EQ(points.size(), 11u);
    for (std::size_t i = 3; i < points.size(); ++i)
        EXPECT_NEAR(points[i].X(), third + 6 * float(i - 3), 1e-3f);
}

TEST(LineDistribution, ALineThatBendsOffTheDirectionOfEarlierPointsIsFollowed)
{
    // Seen from (8, 0) both earlier points lie straight ahead, but the line turns there.
    auto const points =
        distributeAlongLines({{{5, 0, 0}}, {{12, 0, 0}}, {{8, -30, 0}, {8, 0, 0}, {8, 30, 0}}}, 6);
    EXPECT_GE(leastDistance(points), 6 - 1e-3f);
    EXPECT_GE(points.size(), 8u);
    for (std::size_t i = 2; i < points.size(); ++i)
        EXPECT_NEAR(points[i].X(), 8, 1e-3f);
}

TEST(LineDistribution, ALineThatLeavesAStraightWalkStaysBareWithinTwoSpacingsOfIt)
{
    // Between two points on a level, away at a right angle: a place at (6, 9.17) would be free, but
    // the walk counts as straight, and the line ends less than two spacings from the point before.
    expectPoints(distributeAlongLines({{{0, 0, 0}, {10, 0, 0}}, {{6, 0, 0}, {6, 9.5f, 0}}}, 10),
                 {{0, 0, 0}, {10, 0, 0}});
    // A longer one is not bare.
    expectPoints(distributeAlongLines({{{0, 0, 0}, {10, 0, 0}}, {{6, 0, 0}, {6, 25, 0}}}, 10),
                 {{0, 0, 0}, {10, 0, 0}, {6, 9.1652f, 0}, {6, 19.1652f, 0}});
}

TEST(LineDistribution, AnyTwoPointsAreAtLeastTheSpacingApartAndOnTheLines)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> place(-40, 40);
    for (int run = 0; run < rounds(300); ++run) {
        std::vector<Line> lines(1 + run % 7);
        for (Line& line : lines)
            for (int i = 0; i < 2 + run % 11; ++i)
                line.push_back({place(random), place(random), 0});
        float const spacing = 1 + float(run % 13);
        auto const points = distributeAlongLines(lines, spacing);
        ASSERT_FALSE(points.empty());
        EXPECT_GE(leastDistance(points), spacing - 2e-3f) << run;
        for (Point const& p : points)
            EXPECT_LE(distanceFrom(lines, p), 1e-2f) << run;
        EXPECT_EQ(points, distributeAlongLines(lines, spacing));
    }
}
