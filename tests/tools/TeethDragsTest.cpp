// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/TeethDrags.h"
#include "tools/TeethLayout.h"
#include "tools/TeethShapes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Vector = UVector3<float>;

EdgeFrame const edge({0, 0, 0}, {100, 0, 0}, {0, 0, 10}, false);

TeethParas parasOf(int style, float width, float height)
{
    TeethParas paras;
    paras.teethStyle = style;
    paras.teethWidth = width;
    paras.teethHeight = height;
    paras.upperWidth = width;
    paras.lowerWidth = width / 2;
    paras.doveHeight = height;
    paras.flipTeeth = false;
    return paras;
}

std::vector<Point> const three{{20, 0, 0}, {50, 0, 0}, {80, 0, 0}};

bool slides(std::vector<Point> const& centres, std::size_t tooth, float by)
{
    Vector const slide =
        slideOfTooth(parasOf(TEETH_JAGGED, 10, 5), edge, centres, tooth, {by, 0, 0});
    return slide != Vector();
}

}  // namespace

TEST(SlideOfTooth, KeepsTheMiddleOneAWidthFromItsNeighbours)
{
    EXPECT_TRUE(slides(three, 1, 19.9f));
    EXPECT_FALSE(slides(three, 1, 20)) << "they would touch";
    EXPECT_TRUE(slides(three, 1, -19.9f));
    EXPECT_FALSE(slides(three, 1, -20));
}

TEST(SlideOfTooth, KeepsTheOuterOnesWithinTheEdge)
{
    EXPECT_TRUE(slides(three, 0, -14.9f));
    EXPECT_FALSE(slides(three, 0, -15));
    EXPECT_TRUE(slides(three, 0, 19.9f));
    EXPECT_FALSE(slides(three, 0, 20));
    EXPECT_TRUE(slides(three, 2, 14.9f));
    EXPECT_FALSE(slides(three, 2, 15));
    EXPECT_FALSE(slides(three, 2, -20));
}

TEST(SlideOfTooth, TurnsBackAtTheStart)
{
    // 30 to the left of 20 is 10 beyond the start, and counts as 10 on the edge.
    EXPECT_TRUE(slides(three, 0, -30));
    EXPECT_FALSE(slides(three, 0, -24));
}

TEST(SlideOfTooth, ASingleOneHasTheEndAsItsNeighbourAWholeWidthAway)
{
    std::vector<Point> const one{{50, 0, 0}};
    EXPECT_TRUE(slides(one, 0, 39.9f));
    EXPECT_FALSE(slides(one, 0, 40));
    EXPECT_TRUE(slides(one, 0, -44.9f));
    EXPECT_FALSE(slides(one, 0, -45));
}

TEST(SlideOfTooth, GoesAlongTheEdgeAlone)
{
    Vector const slide = slideOfTooth(parasOf(TEETH_JAGGED, 10, 5), edge, three, 1, {3, 4, 50});
    EXPECT_EQ(slide, Vector(3, 0, 0));
}

TEST(SlideOfTooth, MeasuresADovetailAtItsWidest)
{
    TeethParas paras = parasOf(TEETH_DOVETAIL, 10, 5);
    paras.lowerWidth = 16;
    EXPECT_EQ(slideOfTooth(paras, edge, three, 1, {14, 0, 0}), Vector()) << "16 from 80";
    EXPECT_EQ(slideOfTooth(paras, edge, three, 1, {13.5f, 0, 0}), Vector(13.5f, 0, 0));
}

TEST(ReshapedTeeth, TheHandleOfEachStyleGivesItsOwnParametersBack)
{
    for (int const style : {TEETH_JAGGED, TEETH_DOVETAIL, TEETH_PUZZLE}) {
        TeethParas const paras = parasOf(style, 8, 6);
        TeethRow const row = rowOfTeeth(paras, edge, three);
        TeethParas const same = reshapedTeeth(paras, edge, three, row.handles[1] - three[1]);
        EXPECT_NEAR(same.toothWidth(), 8, 1e-4) << style;
        EXPECT_NEAR(same.lowerWidth, 4, 1e-4) << style;
        EXPECT_NEAR(style == TEETH_DOVETAIL ? same.doveHeight : same.teethHeight, 6, 1e-4) << style;
    }
}

TEST(ReshapedTeeth, JaggedGrowsToTheLastAdmittedStepAndThenInHeightAlone)
{
    TeethParas const paras = parasOf(TEETH_JAGGED, 8, 6);
    // Inner gaps of 30 admit a width of 30, the outer ones of 20 one of 40.
    TeethParas const widest = reshapedTeeth(paras, edge, three, {7.5f, 4, 0});
    EXPECT_EQ(widest.teethWidth, 30);
    EXPECT_EQ(widest.teethHeight, 8);
    TeethParas const beyond = reshapedTeeth(paras, edge, three, {7.51f, 5, 0});
    EXPECT_EQ(beyond.teethWidth, 8);
    EXPECT_EQ(beyond.teethHeight, 10);
}

TEST(ReshapedTeeth, AnOuterGapCountsForHalfATooth)
{
    std::vector<Point> const nearStart{{5, 0, 0}, {80, 0, 0}};
    TeethParas const paras = parasOf(TEETH_JAGGED, 8, 6);
    EXPECT_EQ(reshapedTeeth(paras, edge, nearStart, {2.5f, 1, 0}).teethWidth, 10);
    EXPECT_EQ(reshapedTeeth(paras, edge, nearStart, {2.51f, 1, 0}).teethWidth, 8);
}

TEST(ReshapedTeeth, ADovetailKeepsItsRatioAndAlwaysTakesTheHeight)
{
    TeethParas const paras = parasOf(TEETH_DOVETAIL, 8, 6);
    TeethParas const wider = reshapedTeeth(paras, edge, three, {15, 3, 0});
    EXPECT_EQ(wider.upperWidth, 30);
    EXPECT_EQ(wider.lowerWidth, 15);
    EXPECT_EQ(wider.doveHeight, 3);
    TeethParas const beyond = reshapedTeeth(paras, edge, three, {15.1f, 2, 0});
    EXPECT_EQ(beyond.upperWidth, 8);
    EXPECT_EQ(beyond.lowerWidth, 4);
    EXPECT_EQ(beyond.doveHeight, 2);

    TeethParas foot = paras;
    foot.lowerWidth = 16;
    EXPECT_EQ(reshapedTeeth(foot, edge, three, {7.5f, 3, 0}).lowerWidth, 30);
    EXPECT_EQ(reshapedTeeth(foot, edge, three, {7.6f, 3, 0}).lowerWidth, 16);
}

TEST(ReshapedTeeth, APuzzleChangesAsAWholeAndKeepsItsNeckOpen)
{
    TeethParas const paras = parasOf(TEETH_PUZZLE, 8, 6);
    TeethParas const wider = reshapedTeeth(paras, edge, three, {14, 4, 0});
    EXPECT_EQ(wider.teethWidth, 30);
    EXPECT_EQ(wider.teethHeight, 4);
    EXPECT_EQ(reshapedTeeth(paras, edge, three, {14.1f, 4, 0}), paras);
    EXPECT_EQ(reshapedTeeth(paras, edge, three, {1, 4, 0}), paras) << "the neck would close";
    EXPECT_EQ(reshapedTeeth(paras, edge, three, {1.01f, 4, 0}).teethHeight, 4);
}

TEST(ReshapedTeeth, FoldAtTheEdgeAndAtTheMiddle)
{
    TeethParas const paras = parasOf(TEETH_JAGGED, 8, 6);
    EXPECT_EQ(reshapedTeeth(paras, edge, three, {-2.5f, -4, 0}),
              reshapedTeeth(paras, edge, three, {2.5f, 4, 0}));
}
