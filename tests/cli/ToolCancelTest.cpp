// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/AllOrNothing.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

/// Outlines with many teeth take long to be moved sideways, and that cannot be interrupted.
TEST(FreecutCancel, AToolWithManyTeethLeavesAllPiecesOrNone)
{
    FreecutFolder folder;
    folder.addStl(box(170, 30, 20), "bar.stl");
    expectAllOrNothing(
        folder, {"polygon", "bar.stl", "--view", "top", "--points", "5,10;165,10;165,20;5,20",
                 "--teeth", "puzzle:1,3;width=2;height=1;distance=3", "--clearance", "0.05",
                 "--direction", "both", "-o", "pieces"});
}

TEST(FreecutCancel, ASectionWithManyPinsLeavesAllPiecesOrNone)
{
    FreecutFolder folder;
    folder.addStl(box(120, 120, 20), "plate.stl");
    expectAllOrNothing(folder, {"section", "plate.stl", "--center", "60,60,10", "--normal", "0,0,1",
                                "--pins", "--radius", "0.5", "--height", "2", "--spacing", "2",
                                "--side-distance", "1.5", "-o", "pieces"});
}
