// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/CentreLines.h"
#include "connectors/ContourDistance.h"
#include "tests/connectors/ConnectorScene.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Point = UPoint3<float>;

/// A flat face given by points and triangles, and its centre lines.
std::vector<std::vector<Point>> linesOf(std::vector<UPoint2<float>> const& points,
                                        std::vector<std::array<std::uint32_t, 3>> const& triangles,
                                        float clearance)
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
    // A strip of 60 by 20 in six triangles.
    auto const lines =
        linesOf({{0, 0}, {20, 0}, {40, 0}, {60, 0}, {0, 20}, {20, 20}, {40, 20}, {60, 20}},
                {{0, 1, 4}, {1, 5, 4}, {1, 2, 5}, {2, 6, 5}, {2, 3, 6}, {3, 7, 6}}, 5);
    ASSERT_EQ(lines.size(), 1u);
    std::vector<Point> const expected{
        {10, 10, 0}, {20, 10, 0}, {30, 10, 0}, {40, 10, 0}, {50, 10, 0}};
    std::vector<Point> line = lines[0];
    if (line.front().X() > line.back().X())
        std::reverse(line.begin(), line.end());
    EXPECT_EQ(line, expected);
}

TEST(CentreLines, MeetAtTheCentroidOfATriangleWithThreeUsableEdges)
{
    // A triangle with a neighbour at each edge.
    auto const lines = linesOf({{0, 0}, {60, 0}, {30, 52}, {30, -52}, {75, 40}, {-15, 40}},
                               {{0, 1, 2}, {0, 3, 1}, {1, 4, 2}, {2, 5, 0}}, 5);
    Point const centroid(30, 52.0f / 3, 0);
    ASSERT_EQ(lines.size(), 3u);
    for (auto const& line : lines) {
        ASSERT_GE(line.size(), 2u);
        EXPECT_NEAR(line.front().X(), centroid.X(), 1e-4f);
        EXPECT_NEAR(line.front().Y(), centroid.Y(), 1e-4f);
    }
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

TEST(ContourDistance, IsThatOfTheNearestSegmentOfAll)
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
            EXPECT_EQ(distances.distance(p), distanceFrom(contours, p));
        }
    }
}

TEST(ContourDistance, WithoutContoursIsTheLargestFloat)
{
    EXPECT_EQ(ContourDistance({}).distance({1, 2, 3}), 3.4028235e38f);
}
