// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ToolPreparation.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

std::function<void(int)> const nobody;

/// Two tips over a ring of five points, each of which is `step` places further than the one before:
/// by two it is a star, which the ring goes around twice.
Soup tipsOverFivePoints(int step)
{
    Soup soup;
    for (int i = 0; i < 5; ++i) {
        double const angle = 2 * std::numbers::pi * step * i / 5;
        soup.add({float(10 * std::cos(angle)), float(10 * std::sin(angle)), 0});
    }
    soup.add({0, 0, 12});
    soup.add({0, 0, -12});
    for (std::uint32_t i = 0; i < 5; ++i) {
        soup.add(i, (i + 1) % 5, 5);
        soup.add((i + 1) % 5, i, 6);
    }
    return soup;
}

bool isSimple(Soup const& tool)
{
    StageProgress progress(nobody);
    return prepareTool(*kernelOf(tool), progress).isSimple;
}

}  // namespace

TEST(ToolPreparation, ConvexShellsAreSimple)
{
    EXPECT_TRUE(isSimple(tipsOverFivePoints(1)));
    EXPECT_TRUE(isSimple(box(1, 2, 3)));
    EXPECT_TRUE(isSimple(cylinder(2, 5, 63)));
    EXPECT_TRUE(isSimple(sphere(7, 20, 30, {1, 2, 3})));
}

// All of its edges bend outward.
TEST(ToolPreparation, AShellThatGoesAroundTwiceIsNotSimple)
{
    ASSERT_EQ(windingNumberAt(tipsOverFivePoints(2), {0.1, 0.2, 0.3}), 2);
    EXPECT_FALSE(isSimple(tipsOverFivePoints(2)));
}

// Results of that many triangles are not held against their operands.
TEST(ToolPreparation, AShellThatGoesAroundTwiceIsSolidOnce)
{
    Soup const part = sphere(30, 80, 80, {100, 0, 0});
    ASSERT_GT(part.triangles.size(), 10'000u);
    Soup const united = combined(part, tipsOverFivePoints(2), Intersect::BOOLEAN_UNION);
    EXPECT_EQ(closedSolidFaults(united), "");
    EXPECT_EQ(windingNumberAt(united, {0.1, 0.2, 0.3}), 1);
    EXPECT_EQ(windingNumberAt(united, {100, 1, 2}), 1);
}
