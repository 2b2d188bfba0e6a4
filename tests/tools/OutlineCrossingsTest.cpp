// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/FlatShapes.h"
#include "tools/OutlineCrossings.h"
#include "tools/SegmentRelation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using Freecut::FlatLoops;
using Freecut::FlatRing;
using Freecut::ResolvedLoops;
using Freecut::resolveSelfIntersections;
using Point = UPoint2<float>;

/// By which part of a fine grid's cells the loops' filling differs from where the outline runs
/// around them `wanted` times or more.
double misfilledShare(FlatRing const& outline, FlatLoops const& solid, int wanted)
{
    float low = 1e9f, high = -1e9f;
    for (Point const& p : outline) {
        low = std::min({low, p.X(), p.Y()});
        high = std::max({high, p.X(), p.Y()});
    }
    int constexpr cells = 150;
    int wrong = 0, filled = 0;
    for (int i = 0; i < cells; ++i)
        for (int k = 0; k < cells; ++k) {
            double const x = low + (high - low) * (i + 0.503) / cells;
            double const y = low + (high - low) * (k + 0.497) / cells;
            int const turns = windingOf(outline, x, y);
            bool const isWanted = wanted > 0 ? turns >= wanted : turns <= wanted;
            bool const isSolid = std::any_of(solid.begin(), solid.end(), [&](FlatRing const& loop) {
                return windingOf(loop, x, y) != 0;
            });
            wrong += isWanted != isSolid;
            filled += isWanted;
        }
    EXPECT_GT(filled, 0) << "the oracle must see something";
    return double(wrong) / std::max(filled, 1);
}

FlatRing rotated(FlatRing ring, std::size_t places)
{
    std::rotate(ring.begin(), ring.begin() + std::ptrdiff_t(places), ring.end());
    return ring;
}

/// The codes of all pairs of edges that touch twice.
std::set<int> overlapCodes(FlatRing const& q)
{
    std::set<int> codes;
    Point p1, p2;
    for (std::size_t i = 0; i < q.size(); ++i)
        for (std::size_t j = i + 2; j < q.size(); ++j) {
            int const code =
                Freecut::segmentRelation(q[i], q[i + 1], q[j], q[(j + 1) % q.size()], p1, p2);
            if (code < 0 && code % 2 == 0)
                codes.insert(code);
        }
    return codes;
}

bool isSplitAt(Point const& point, ResolvedLoops const& loops)
{
    auto const has = [&](FlatRing const& loop) {
        return std::count(loop.begin(), loop.end(), point) > 0;
    };
    return std::any_of(loops.solid.begin(), loops.solid.end(), has) ||
           std::any_of(loops.residual.begin(), loops.residual.end(), has);
}

void expectClosed(FlatLoops const& loops)
{
    for (FlatRing const& loop : loops) {
        EXPECT_GE(loop.size(), 3u);
        EXPECT_EQ(loop.front(), loop.back());
    }
}

}  // namespace

TEST(OutlineCrossings, ASimplePolygonIsOneLoopWithItsFirstPointRepeated)
{
    FlatRing const square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    ResolvedLoops const loops = resolveSelfIntersections(square);
    EXPECT_EQ(loops.solid, (FlatLoops{{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}}));
    EXPECT_TRUE(loops.residual.empty());
}

TEST(OutlineCrossings, NothingAndSinglePointsGiveNoLoop)
{
    EXPECT_TRUE(resolveSelfIntersections({}).solid.empty());
    EXPECT_TRUE(resolveSelfIntersections({{3, 4}}).solid.empty());
    EXPECT_TRUE(resolveSelfIntersections({{3, 4}}).residual.empty());
}

TEST(OutlineCrossings, TwoPointsAreALoopThereAndBack)
{
    EXPECT_EQ(resolveSelfIntersections({{0, 0}, {10, 0}}).solid,
              (FlatLoops{{{0, 0}, {10, 0}, {0, 0}}}));
}

TEST(OutlineCrossings, OfAFigureEightTheFirstEdgesLobeIsSolid)
{
    FlatRing const eight{{0, 0}, {10, 10}, {10, 0}, {0, 10}};
    ResolvedLoops const loops = resolveSelfIntersections(eight);
    EXPECT_EQ(loops.solid, (FlatLoops{{{0, 0}, {5, 5}, {0, 10}, {0, 0}}}));
    EXPECT_EQ(loops.residual, (FlatLoops{{{10, 10}, {5, 5}, {10, 0}, {10, 10}}}));
    ResolvedLoops const other = resolveSelfIntersections(rotated(eight, 1));
    ASSERT_EQ(other.solid.size(), 1u);
    EXPECT_LT(misfilledShare(eight, other.solid, -1), 0.02);
    EXPECT_LT(misfilledShare(eight, loops.solid, 1), 0.02);
}

TEST(OutlineCrossings, OfAPentagramTheStarIsSolidAndItsMiddleIsDrawn)
{
    FlatRing const star = pentagram(1000);
    ResolvedLoops const loops = resolveSelfIntersections(star);
    ASSERT_EQ(loops.solid.size(), 1u);
    EXPECT_EQ(loops.solid[0].size(), 11u);
    ASSERT_EQ(loops.residual.size(), 1u);
    EXPECT_EQ(loops.residual[0].size(), 6u);
    EXPECT_LT(misfilledShare(star, loops.solid, 1), 0.01);
    expectClosed(loops.solid);
}

TEST(OutlineCrossings, ALoopTurnedOverAtACornerFallsAway)
{
    // At the upper right corner the outline overshoots and comes back from above.
    FlatRing const outline{{0, 0}, {100, 0}, {100, 110}, {110, 100}, {0, 100}};
    ResolvedLoops const loops = resolveSelfIntersections(outline);
    EXPECT_EQ(loops.solid, (FlatLoops{{{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}}}));
    EXPECT_EQ(loops.residual, (FlatLoops{{{100, 110}, {100, 100}, {110, 100}, {100, 110}}}));
    EXPECT_LT(misfilledShare(outline, loops.solid, 1), 0.01);
}

TEST(OutlineCrossings, ALoopTurnedInwardIsFilledFromOutside)
{
    FlatRing const outline{{0, 0}, {100, 0}, {100, 100}, {40, 40}, {60, 40}, {0, 100}};
    ResolvedLoops const loops = resolveSelfIntersections(outline);
    EXPECT_EQ(loops.solid.size(), 1u);
    EXPECT_EQ(loops.residual.size(), 1u);
    EXPECT_LT(misfilledShare(outline, loops.solid, 1), 0.01);
}

TEST(OutlineCrossings, ALoopStartedOnItsInnerTurnKeepsTheInnerTurn)
{
    // A snail: the inner turn runs the same way as the outer one.
    FlatRing const snail{{0, 0},   {100, 0}, {100, 100}, {20, 100},
                         {20, 20}, {80, 20}, {80, 80},   {0, 80}};
    ResolvedLoops const fromOutside = resolveSelfIntersections(snail);
    EXPECT_LT(misfilledShare(snail, fromOutside.solid, 1), 0.02);
    ResolvedLoops const fromInside = resolveSelfIntersections(rotated(snail, 4));
    EXPECT_LT(misfilledShare(snail, fromInside.solid, 2), 0.02);
}

TEST(OutlineCrossings, ASpiralClosedAcrossItsTurnsFollowsTheRule)
{
    // Three turns inward, closed by a straight edge that crosses the two turns outside it.
    FlatRing spiral;
    for (int i = 0; i < 72; ++i) {
        double const angle = 2 * M_PI * i / 24 + 0.01;
        double const radius = 1000 - 10 * i;
        spiral.push_back({float(radius * std::cos(angle)), float(radius * std::sin(angle))});
    }
    spiral = wholeNumbers(spiral);
    ResolvedLoops const loops = resolveSelfIntersections(spiral);
    expectClosed(loops.solid);
    // Two crossings: the outermost turn and the innermost one are on the first edge's side. The
    // inner one is within the outer one.
    ASSERT_EQ(loops.solid.size(), 1u);
    EXPECT_EQ(loops.residual.size(), 2u);
    EXPECT_LT(misfilledShare(spiral, loops.solid, 1), 0.01);
}

TEST(OutlineCrossings, AVertexThatJustTouchesAnEdgeDoesNotSplit)
{
    // Codes -1 to -9 by themselves: a tooth whose tip touches the opposite side.
    FlatRing const outline{{0, 0}, {100, 0}, {100, 100}, {60, 100}, {50, 0}, {40, 100}, {0, 100}};
    for (std::size_t places = 0; places < outline.size(); ++places) {
        ResolvedLoops const loops = resolveSelfIntersections(rotated(outline, places));
        ASSERT_EQ(loops.solid.size(), 1u);
        EXPECT_EQ(loops.solid[0].size(), outline.size() + 1);
        EXPECT_TRUE(loops.residual.empty());
    }
}

TEST(OutlineCrossings, WhereEdgesOverlapTheNeighboursDecide)
{
    struct Case
    {
        char const* name;
        FlatRing outline;
        bool isSplit;
    };
    // An edge comes from above, overlaps the one at the bottom, and goes on above or below.
    Case const cases[] = {
        {"within it, going on below",
         {{0, 0}, {100, 0}, {100, 100}, {30, 100}, {30, 0}, {70, 0}, {70, -50}, {0, -50}},
         true},
        {"within it, turning back",
         {{0, 0}, {100, 0}, {100, 100}, {70, 100}, {70, 0}, {30, 0}, {30, 100}, {0, 100}},
         false},
        {"over its end, where the neighbours are apart",
         {{0, 0}, {100, 0}, {100, 100}, {30, 100}, {30, 0}, {-50, 0}, {-50, -50}, {-20, -80}},
         false},
    };
    for (Case const& row : cases) {
        ResolvedLoops const loops = resolveSelfIntersections(row.outline);
        EXPECT_EQ(loops.solid.size() + loops.residual.size() > 1, row.isSplit) << row.name;
    }
}

TEST(OutlineCrossings, EveryCodeOfAnOverlapSplitsInItsMiddle)
{
    // Run backwards and started elsewhere, the same overlaps have other codes.
    struct Case
    {
        FlatRing outline;
        Point split;
    };
    Case const cases[] = {
        {{{0, 0}, {100, 0}, {150, 50}, {30, 50}, {30, 0}, {70, 0}, {70, -50}}, {50, 0}},
        {{{0, 0}, {100, 0}, {100, 100}, {-50, 100}, {40, 0}, {-30, 0}, {40, 30}}, {20, 0}},
        {{{0, 0}, {100, 0}, {60, 40}, {60, 90}, {120, 90}, {60, 0}, {130, 0}, {130, -50}}, {80, 0}},
    };
    std::set<int> codes;
    for (Case const& row : cases)
        for (bool const isReversed : {false, true})
            for (std::size_t places = 0; places < row.outline.size(); ++places) {
                FlatRing outline = rotated(row.outline, places);
                if (isReversed)
                    std::reverse(outline.begin(), outline.end());
                codes.merge(overlapCodes(outline));
                EXPECT_TRUE(isSplitAt(row.split, resolveSelfIntersections(outline)));
            }
    EXPECT_EQ(codes, (std::set<int>{-14, -12, -10, -8, -6, -4}));
}

TEST(OutlineCrossings, CrossingTeethOfNeighbouringEdgesAreFound)
{
    // Teeth that point inward on two edges of a corner reach through each other.
    FlatRing const outline{{0, 0},   {100, 0},  {100, 10},  {85, 15},
                           {75, 12}, {100, 30}, {100, 100}, {0, 100}};
    FlatRing const crossed{{0, 0},   {80, 0},  {90, 20},  {95, 0},    {100, 0},
                           {100, 8}, {80, 12}, {100, 16}, {100, 100}, {0, 100}};
    ASSERT_EQ(resolveSelfIntersections(outline).residual.size(), 0u);
    ResolvedLoops const loops = resolveSelfIntersections(crossed);
    EXPECT_FALSE(loops.solid.empty());
    EXPECT_FALSE(loops.residual.empty());
    expectClosed(loops.solid);
}

TEST(OutlineCrossings, SimpleCircleLikeOutlinesStayWholeAtAnySize)
{
    for (int const count : {3, 31, 32, 33, 64, 65, 2000}) {
        FlatRing const ring = wholeNumbers(circlePoints(100000, count));
        ResolvedLoops const loops = resolveSelfIntersections(ring);
        ASSERT_EQ(loops.solid.size(), 1u) << count;
        EXPECT_EQ(loops.solid[0].size(), ring.size() + 1);
        EXPECT_NEAR(signedArea(loops.solid[0]), signedArea(ring), 1);
    }
}
