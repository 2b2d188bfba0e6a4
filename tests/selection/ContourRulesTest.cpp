// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/ContourRules.h"

#include <gtest/gtest.h>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Flat = UPoint2<float>;

UVector3<float> const up{0, 0, 30};
std::vector<Point> const square{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};

int indexOf(std::vector<Point> const& vertices, Point const& p)
{
    return insertionIndex(vertices, p, up);
}

TeethEdge confirmed(std::vector<Point> points)
{
    TeethEdge edge;
    edge.hasTeeth = true;
    edge.applied = true;
    edge.appliedPoints = std::move(points);
    return edge;
}

}  // namespace

TEST(InsertionIndex, OfTheFirstTwoIsTheirNumber)
{
    EXPECT_EQ(indexOf({}, {1, 2, 3}), 0);
    EXPECT_EQ(indexOf({{0, 0, 0}}, {1, 2, 3}), 1);
}

TEST(InsertionIndex, OfTheThirdFollowsTheSideOfTheLine)
{
    std::vector<Point> const line{{0, 0, 0}, {10, 0, 0}};
    EXPECT_EQ(indexOf(line, {5, 5, 0}), 2);
    EXPECT_EQ(indexOf(line, {5, -5, 0}), 1);
    EXPECT_EQ(indexOf(line, {5, 0, 0}), 1) << "on the line";
    EXPECT_EQ(insertionIndex(line, {5, 5, 0}, -up), 1);
}

TEST(InsertionIndex, OfOthersIsInTheNearestEdge)
{
    EXPECT_EQ(indexOf(square, {5, -1, 0}), 1);
    EXPECT_EQ(indexOf(square, {11, 5, 0}), 2);
    EXPECT_EQ(indexOf(square, {5, 12, 0}), 3);
    EXPECT_EQ(indexOf(square, {-3, 5, 0}), 0) << "the closing edge";
}

TEST(InsertionIndex, BeyondACornerIsInTheEdgeThatThePointLiesMostAlong)
{
    // The corner (10, 0) is nearest to both of its edges.
    EXPECT_EQ(indexOf(square, {12, -8, 0}), 1) << "less against the edge along x";
    EXPECT_EQ(indexOf(square, {18, -2, 0}), 2);
    EXPECT_EQ(indexOf(square, {15, -5, 0}), 1) << "even: the first of the two";
}

TEST(SegmentContact, PassesCrossingsAndSharedEnds)
{
    EXPECT_EQ(segmentContact({0, 0}, {10, 10}, {0, 10}, {10, 0}), 1);
    EXPECT_EQ(segmentContact({0, 0}, {10, 0}, {10, 0}, {10, 5}), 0);
    EXPECT_EQ(segmentContact({0, 0}, {10, 0}, {0, 5}, {10, 5}), 0);
}

TEST(SegmentContact, AddsUpEveryEndThatLiesOnTheOther)
{
    EXPECT_EQ(segmentContact({0, 0}, {10, 0}, {5, 0}, {5, 5}), -1);
    EXPECT_EQ(segmentContact({0, 0}, {10, 0}, {5, 5}, {5, 0}), -3);
    EXPECT_EQ(segmentContact({5, 0}, {5, 5}, {0, 0}, {10, 0}), -5);
    EXPECT_EQ(segmentContact({5, 5}, {5, 0}, {0, 0}, {10, 0}), -9);
    EXPECT_EQ(segmentContact({0, 0}, {10, 0}, {2, 0}, {8, 0}), -4);
    EXPECT_EQ(segmentContact({0, 0}, {10, 0}, {5, 0}, {15, 0}), -10);
}

TEST(SegmentContact, CountsProductsUpToAHundredthAsZero)
{
    EXPECT_EQ(segmentContact({0, 0}, {10, 0}, {5, 0.0009f}, {5, 5}), -1);
    EXPECT_EQ(segmentContact({0, 0}, {10, 0}, {5, 0.0011f}, {5, 5}), 0);
}

TEST(TouchesItself, IsNeverTrueOfThreePoints)
{
    EXPECT_FALSE(touchesItself({{0, 0}, {10, 0}, {5, 0}}));
    EXPECT_FALSE(touchesItself({{0, 0}, {0, 0}, {0, 0}}));
}

TEST(TouchesItself, FindsAVertexOnAnEdgeThatIsNotItsOwn)
{
    EXPECT_TRUE(touchesItself({{0, 0}, {10000, 0}, {10000, 9000}, {5000, 0}, {0, 9000}}));
    EXPECT_FALSE(touchesItself({{0, 0}, {10000, 0}, {10000, 9000}, {5000, 1}, {0, 9000}}));
}

TEST(TouchesItself, LetsCrossingsAndTheClosingEdgePass)
{
    EXPECT_FALSE(touchesItself({{0, 0}, {10000, 10000}, {10000, 0}, {0, 10000}}));
    // A vertex on the edge from the last point to the first.
    EXPECT_FALSE(touchesItself({{0, 0}, {9000, 0}, {0, 5000}, {9000, 10000}, {0, 10000}}));
}

TEST(TrialOutline, HasTheNewPointInThousandthsTruncated)
{
    std::vector<Point> const outline =
        trialOutline(square, std::vector<TeethEdge>(4), {5.0009f, -1.9999f, 0}, 1);
    EXPECT_EQ(outline,
              (std::vector<Point>{
                  {0, 0, 0}, {5000, -1999, 0}, {10000, 0, 0}, {10000, 10000, 0}, {0, 10000, 0}}));
}

TEST(TrialOutline, KeepsConfirmedTeethOfOtherEdges)
{
    std::vector<TeethEdge> edges(4);
    edges[2] = confirmed({{6, 11, 0}, {4, 11, 0}});
    edges[3] = confirmed({{1, 5, 0}});
    edges[3].applied = false;
    std::vector<Point> const outline = trialOutline(square, edges, {5, -1, 0}, 1);
    EXPECT_EQ(outline, (std::vector<Point>{{0, 0, 0},
                                           {5000, -1000, 0},
                                           {10000, 0, 0},
                                           {10000, 10000, 0},
                                           {6000, 11000, 0},
                                           {4000, 11000, 0},
                                           {0, 10000, 0}}));
}

TEST(TrialOutline, LosesTheTeethOfTheDividedEdge)
{
    std::vector<TeethEdge> edges(4);
    edges[0] = confirmed({{6, -1, 0}});
    edges[3] = confirmed({{1, 5, 0}});
    EXPECT_EQ(trialOutline(square, edges, {5, -1, 0}, 1).size(), 6u);
    EXPECT_EQ(trialOutline(square, edges, {-1, 5, 0}, 0).size(), 6u) << "the closing edge";
}

TEST(DividedEdge, IsTheOneBeforeTheNewVertex)
{
    EXPECT_EQ(dividedEdge(4, 1), 0);
    EXPECT_EQ(dividedEdge(4, 3), 2);
    EXPECT_EQ(dividedEdge(4, 0), 3);
}
