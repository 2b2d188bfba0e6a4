// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LoopNesting.h"

#include <gtest/gtest.h>

using Freecut::FlatLoops;

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
