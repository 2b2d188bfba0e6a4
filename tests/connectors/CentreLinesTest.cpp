// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/CentreLines.h"
#include "connectors/ContourDistance.h"
#include "tests/connectors/ConnectorScene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Point = UPoint3<float>;
using Lines = std::vector<std::vector<Point>>;

/// A flat face given by points and triangles, and its centre lines.
Lines linesOf(std::vector<UPoint2<float>> const& points,
              std::vector<std::array<std::uint32_t, 3>> const& triangles, float clearance)
{
    Soup soup;
    for (UPoint2<float> const& p : points)
        soup.add({p.X(), p.Y(), 0});
    soup.triangles = triangles;
    auto const kernel = kernelOf(soup);
    auto const contours = extractSectionContours(kernel.get());
    return extractCentreLines(*kernel->getMesh(), ContourDistance(contours), clearance);
}

}  // namespace

TEST(CentreLines, JoinTheMidpointsOfInnerEdges)
{
    // A strip of 60 by 20 in six triangles. The line starts in the first triangle that it passes,
    // the second one, and goes on to the front from there.
    auto const lines =
        linesOf({{0, 0}, {20, 0}, {40, 0}, {60, 0}, {0, 20}, {20, 20}, {40, 20}, {60, 20}},
                {{0, 1, 4}, {1, 5, 4}, {1, 2, 5}, {2, 6, 5}, {2, 3, 6}, {3, 7, 6}}, 5);
    EXPECT_EQ(lines, (Lines{{{50, 10, 0}, {40, 10, 0}, {30, 10, 0}, {20, 10, 0}, {10, 10, 0}}}));
}

TEST(CentreLines, RunTheOtherWayWithTheTrianglesInTheOtherOrder)
{
    auto const lines =
        linesOf({{0, 0}, {20, 0}, {40, 0}, {60, 0}, {0, 20}, {20, 20}, {40, 20}, {60, 20}},
                {{3, 7, 6}, {2, 3, 6}, {2, 6, 5}, {1, 2, 5}, {1, 5, 4}, {0, 1, 4}}, 5);
    EXPECT_EQ(lines, (Lines{{{10, 10, 0}, {20, 10, 0}, {30, 10, 0}, {40, 10, 0}, {50, 10, 0}}}));
}

TEST(CentreLines, MeetAtTheCentroidOfATriangleWithThreeUsableEdges)
{
    // A triangle with a neighbour at each edge: a line around each of its corners in turn.
    auto const lines = linesOf({{0, 0}, {60, 0}, {30, 51}, {30, -51}, {75, 40}, {-15, 40}},
                               {{0, 1, 2}, {0, 3, 1}, {1, 4, 2}, {2, 5, 0}}, 5);
    Point const centroid(30, 17, 0);
    EXPECT_EQ(
        lines,
        (Lines{{centroid, {15, 25.5f, 0}}, {centroid, {30, 0, 0}}, {centroid, {45, 25.5f, 0}}}));
}

TEST(CentreLines, OfAJunctionDoNotDependOnTheTriangleThatFollowsInTheList)
{
    // Beside the junction lies a strip too narrow for a line, one of its triangles before the
    // junction in the list and the other, whose last edge they share, behind it.
    auto const lines =
        linesOf({{0, 0},
                 {60, 0},
                 {30, 51},
                 {30, -51},
                 {75, 40},
                 {-15, 40},
                 {100, 0},
                 {104, 0},
                 {104, 4},
                 {100, 4}},
                {{6, 7, 8}, {0, 1, 2}, {8, 9, 6}, {0, 3, 1}, {1, 4, 2}, {2, 5, 0}}, 5);
    Point const centroid(30, 17, 0);
    EXPECT_EQ(
        lines,
        (Lines{{centroid, {15, 25.5f, 0}}, {centroid, {30, 0, 0}}, {centroid, {45, 25.5f, 0}}}));
}

TEST(CentreLines, GoOnFromAJunctionIntoALongerArm)
{
    // The same with one arm a triangle longer: the first line goes on into it.
    auto const lines =
        linesOf({{0, 0}, {60, 0}, {30, 51}, {30, -51}, {75, 40}, {-15, 40}, {90, -51}},
                {{0, 1, 2}, {0, 3, 1}, {1, 4, 2}, {2, 5, 0}, {3, 6, 1}}, 5);
    Point const centroid(30, 17, 0);
    EXPECT_EQ(lines, (Lines{{{45, -25.5f, 0}, centroid, {15, 25.5f, 0}},
                            {centroid, {30, 0, 0}},
                            {centroid, {45, 25.5f, 0}}}));
}

TEST(CentreLines, OfAnArmThatComesFirstEndInTheJunction)
{
    auto const lines =
        linesOf({{0, 0}, {60, 0}, {30, 51}, {30, -51}, {75, 40}, {-15, 40}, {90, -51}},
                {{0, 3, 1}, {0, 1, 2}, {1, 4, 2}, {2, 5, 0}, {3, 6, 1}}, 5);
    Point const centroid(30, 17, 0);
    EXPECT_EQ(lines, (Lines{{centroid, {30, 0, 0}, {45, -25.5f, 0}},
                            {centroid, {30, 0, 0}},
                            {centroid, {45, 25.5f, 0}}}));
}

TEST(CentreLines, TakeTheOtherWayThroughAJunctionWhenTheFirstIsTaken)
{
    // Two junctions side by side with neighbours all around: the second line finds the second
    // junction's first way taken by the first line, and both its points in the centroid.
    auto const lines =
        linesOf({{0, 0}, {60, 0}, {30, 51}, {30, -51}, {-20, -40}, {80, -40}, {80, 40}, {-20, 40}},
                {{0, 1, 2}, {0, 3, 1}, {3, 0, 4}, {1, 3, 5}, {2, 1, 6}, {0, 2, 7}}, 5);
    Point const upper(30, 17, 0), lower(30, -17, 0);
    EXPECT_EQ(lines, (Lines{{lower, upper, {15, 25.5f, 0}},
                            {upper, lower, lower},
                            {upper, {45, 25.5f, 0}},
                            {lower, {15, -25.5f, 0}}}));
}

TEST(CentreLines, AnEdgeWithoutClearanceIsNotPassed)
{
    // The strip is 20 wide, so 9.9 and the margin of 0.1 is just too much.
    std::vector<UPoint2<float>> const points{{0, 0}, {40, 0}, {80, 0}, {0, 20}, {40, 20}, {80, 20}};
    std::vector<std::array<std::uint32_t, 3>> const triangles{
        {0, 1, 3}, {1, 4, 3}, {1, 2, 4}, {2, 5, 4}};
    EXPECT_EQ(linesOf(points, triangles, 9.8f).size(), 1u);
    EXPECT_TRUE(linesOf(points, triangles, 9.95f).empty());
}

TEST(CentreLines, OfALoneTriangleThereAreNone)
{
    EXPECT_TRUE(linesOf({{0, 0}, {60, 0}, {30, 52}}, {{0, 1, 2}}, 1).empty());
}

TEST(ContourDistance, IsBeyondWhatTheNearestSegmentOfAllIsBeyond)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<float> place(-50, 50);
    for (std::size_t const size : {1u, 3u, 8u, 9u, 500u}) {
        std::vector<SectionContour> contours(3);
        for (SectionContour& contour : contours) {
            Point p(place(random), place(random), 1000);
            for (std::size_t i = 0; i < size; ++i) {
                p += UVector3<float>(place(random) * 0.05f, place(random) * 0.05f, 0);
                contour.push_back(p);
            }
        }
        ContourDistance const distances(contours);
        for (int i = 0; i < 200; ++i) {
            Point const p(place(random), place(random), 1000);
            double const nearest = distanceFrom(contours, p);
            EXPECT_FALSE(distances.isBeyond(p, nearest));
            EXPECT_FALSE(distances.isBeyond(p, 2 * nearest));
            EXPECT_TRUE(distances.isBeyond(p, std::nextafter(nearest, 0)));
            EXPECT_TRUE(distances.isBeyond(p, nearest / 2));
        }
    }
}

TEST(ContourDistance, AnswersAlikeWithWhatEarlierPointsTold)
{
    // Spikes that stand close together, and points that walk in and out among and beside them.
    SectionContour spikes;
    for (int i = 0; i < 400; ++i)
        spikes.push_back({0.01f * float(i), i % 2 == 0 ? 2.0f : 0.0f, 5});
    ContourDistance const distances({spikes});
    std::mt19937 random(5);
    std::uniform_real_distribution<float> step(-0.3f, 0.3f);
    double const limit = 0.6;
    ContourDistance::Recall recall;
    int beyond = 0;
    Point p(2, 1, 5);
    for (int i = 0; i < 5000; ++i) {
        // Every now and then far away, where nothing told holds.
        p = i % 500 == 0 ? Point(2 + step(random), 3, 5)
                         : p + UVector3<float>(step(random), step(random), 0);
        bool const isBeyond = distances.isBeyond(p, limit);
        EXPECT_EQ(distances.isBeyond(p, limit, recall), isBeyond);
        beyond += isBeyond;
    }
    EXPECT_GT(beyond, 500);
    EXPECT_LT(beyond, 4500);
}

TEST(ContourDistance, WithoutContoursIsBeyondAll)
{
    ContourDistance::Recall recall;
    EXPECT_TRUE(ContourDistance({}).isBeyond({1, 2, 3}, 1e30, recall));
    EXPECT_TRUE(ContourDistance({}).isBeyond({1, 2, 3}, 1e30));
}
