// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/Bodies.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// Two tetrahedra, one on the other, that share their tip and no more.
Soup hourglass()
{
    Soup soup;
    soup.points = {{0, 0, 0},  {1, 0, 1},   {-1, 1, 1},  {-1, -1, 1},
                   {1, 0, -1}, {-1, 1, -1}, {-1, -1, -1}};
    for (auto const& [a, b, c] : {std::array{1u, 2u, 3u}, {4u, 6u, 5u}}) {
        soup.add(a, b, c);
        soup.add(0, b, a);
        soup.add(0, c, b);
        soup.add(0, a, c);
    }
    return soup;
}

}  // namespace

TEST(Bodies, HangTogetherOverAVertexWhicheverCornersOfTrianglesItIs)
{
    Soup soup = hourglass();
    for (int turn = 0; turn < 3; ++turn) {
        SCOPED_TRACE(turn);
        BodyCount const count = countBodies(*kernelOf(soup));
        EXPECT_EQ(count.shells, 1u);
        EXPECT_EQ(count.bodies, 1u);
        for (auto& triangle : soup.triangles)
            std::rotate(triangle.begin(), triangle.begin() + 1, triangle.end());
    }
}

TEST(Bodies, ApartFromEachOtherAreCountedEach)
{
    Soup soup = hourglass();
    soup.append(hourglass());
    EXPECT_EQ(countBodies(*kernelOf(soup)).shells, 2u);
    EXPECT_EQ(countBodies(*kernelOf(soup)).bodies, 2u);
    EXPECT_EQ(countShells(*kernelOf(soup)), 2u);
}
