// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/FlatShapes.h"
#include "tools/LoopNesting.h"
#include "tools/SegmentRelation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using Freecut::FlatLoops;
using Freecut::FlatRing;

namespace {

/// The rule with every vertex asked about every edge.
bool plainlyLiesIn(FlatRing const& a, FlatRing const& b)
{
    for (UPoint2<float> const& v : a) {
        bool touches = false;
        int crossed = 0;
        for (std::size_t i = 0; i + 1 < b.size(); ++i) {
            UPoint2<float> const& p = b[i];
            UPoint2<float> const& q = b[i + 1];
            touches = touches || Freecut::liesBetween(v, p, q);
            if ((p.Y() > v.Y()) != (q.Y() > v.Y()))
                crossed += p.X() + (double(v.Y()) - p.Y()) / (double(q.Y()) - p.Y()) *
                                       (double(q.X()) - p.X()) >
                           v.X();
        }
        if (!touches)
            return crossed % 2 == 1;
    }
    return true;
}

}  // namespace

TEST(LoopNesting, ALoopWithinAnotherSolidLoopIsOnlyDrawn)
{
    FlatLoops solid{{{40, 40}, {60, 40}, {60, 60}, {40, 60}, {40, 40}},
                    {{0, 0}, {200, 0}, {200, 200}, {0, 200}, {0, 0}},
                    {{48, 48}, {52, 48}, {50, 52}, {48, 48}}};
    FlatLoops residual;
    FlatLoops const before = solid;
    Freecut::moveNestedLoops(solid, residual);
    EXPECT_EQ(solid, FlatLoops{before[1]});
    EXPECT_EQ(residual, (FlatLoops{before[2], before[0]})) << "the last one first";
}

TEST(LoopNesting, AVertexUnderARightAngleCountsAsTouching)
{
    // Every vertex of the small square sees an edge of the thin box under more than a right angle,
    // though it lies beside the box.
    FlatLoops solid{{{45, 20}, {55, 20}, {55, 30}, {45, 30}, {45, 20}},
                    {{0, 0}, {100, 0}, {100, 10}, {0, 10}, {0, 0}}};
    FlatLoops residual;
    Freecut::moveNestedLoops(solid, residual);
    EXPECT_EQ(solid.size(), 1u);
    EXPECT_EQ(residual.size(), 1u);
    // Farther away it sees them under less, and is outside.
    FlatLoops apart{{{45, 120}, {55, 120}, {55, 130}, {45, 130}, {45, 120}},
                    {{0, 0}, {100, 0}, {100, 10}, {0, 10}, {0, 0}}};
    Freecut::moveNestedLoops(apart, residual);
    EXPECT_EQ(apart.size(), 2u);
}

TEST(LoopNesting, TurningIsJudgedByOneExtremeCorner)
{
    UVector3<float> const up(0, 0, 1);
    Freecut::Ring const square{{0, 0, 5}, {10, 0, 5}, {10, 10, 5}, {0, 10, 5}, {0, 0, 5}};
    EXPECT_TRUE(Freecut::isLoopCounterClockwise(square, up));
    EXPECT_FALSE(Freecut::isLoopCounterClockwise(square, -up));
    Freecut::Ring const reversed(square.rbegin(), square.rend());
    EXPECT_FALSE(Freecut::isLoopCounterClockwise(reversed, up));
    EXPECT_FALSE(Freecut::isLoopCounterClockwise({}, up));
    EXPECT_FALSE(Freecut::isLoopCounterClockwise({{1, 2, 3}}, up));
    EXPECT_FALSE(Freecut::isLoopCounterClockwise({{1, 2, 3}, {1, 2, 3}}, up)) << "no corner";
    // Upright loops are judged by Z: from the front, x to the right and z up.
    Freecut::Ring const front{{0, 7, 0}, {10, 7, 0}, {5, 7, 10}, {0, 7, 0}};
    EXPECT_TRUE(Freecut::isLoopCounterClockwise(front, {0, -1, 0}));
    EXPECT_FALSE(Freecut::isLoopCounterClockwise(front, {0, 1, 0}));
    // The first point is the highest, so the lowest one decides.
    Freecut::Ring const fromTop{{5, 7, 10}, {0, 7, 0}, {10, 7, 1}, {5, 7, 10}};
    EXPECT_TRUE(Freecut::isLoopCounterClockwise(fromTop, {0, -1, 0}));
    // Seen from the left, y runs to the left: by Y, and by X if all is level in Y.
    Freecut::Ring const alongX{{0, 3, 5}, {10, 3, 5}, {0, 3, 5}};
    EXPECT_FALSE(Freecut::isLoopCounterClockwise(alongX, up)) << "no area";
}

TEST(LoopNesting, RandomLoopsAreSortedAsByAskingEveryVertexAboutEveryEdge)
{
    std::mt19937 random(11);
    std::size_t nested = 0, free = 0;
    for (int run = 0; run < 300; ++run) {
        float const reach = run % 3 == 0 ? 10 : run % 3 == 1 ? 1000 : 3e7f;
        std::uniform_real_distribution<float> place(-reach, reach), size(reach / 500, reach / 3);
        FlatLoops solid;
        for (int i = 0; i < 40; ++i) {
            FlatRing loop = circlePoints(size(random), 3 + i, {place(random), place(random)});
            if (run % 2)
                loop = wholeNumbers(loop);
            loop.push_back(loop[0]);
            solid.push_back(loop);
        }
        FlatLoops expectedSolid, expectedResidual, residual;
        for (FlatRing const& a : solid) {
            bool const liesIn = std::any_of(solid.begin(), solid.end(), [&](FlatRing const& b) {
                return &a != &b && plainlyLiesIn(a, b);
            });
            (liesIn ? expectedResidual : expectedSolid).push_back(a);
        }
        std::reverse(expectedResidual.begin(), expectedResidual.end());
        Freecut::moveNestedLoops(solid, residual);
        ASSERT_EQ(solid, expectedSolid) << "run " << run;
        ASSERT_EQ(residual, expectedResidual) << "run " << run;
        nested += residual.size();
        free += solid.size();
    }
    EXPECT_GT(nested, 1000u);
    EXPECT_GT(free, 1000u);
}
