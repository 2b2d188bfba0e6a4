// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/HandleHit.h"
#include "tests/selection/SelectionScene.h"

#include <gtest/gtest.h>

TEST(HandleHit, SevenPixelsInBothDirectionsHitAndEightInOneMiss)
{
    QPoint const handle(100, 50);
    EXPECT_TRUE(Freecut::isOnHandle({107, 57}, handle));
    EXPECT_TRUE(Freecut::isOnHandle({93, 43}, handle));
    EXPECT_FALSE(Freecut::isOnHandle({108, 50}, handle));
    EXPECT_FALSE(Freecut::isOnHandle({100, 42}, handle));
}

TEST(HandleHit, TheFirstHandleInTheListWins)
{
    SelectionScene scene;
    UPoint3<float> const near(0, 0, 0), nearToo(0.1f, 0, 0), far(80, 0, 0);
    QPoint const mouse = scene.positionOf(near);
    EXPECT_EQ(Freecut::handleAt(scene.view, mouse, {far, nearToo, near}), 1);
    EXPECT_EQ(Freecut::handleAt(scene.view, mouse, {far}), std::nullopt);
}
