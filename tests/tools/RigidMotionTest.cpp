// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/RigidMotion.h"

#include <gtest/gtest.h>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;

/// A quarter turn about z, which takes x to y.
RigidMotion quarterTurn(Point const& about)
{
    Axes const from{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}};
    Axes const to{{{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}};
    return {about, from, to};
}

/// Neither square to an axis nor through the origin.
RigidMotion obliqueTurn()
{
    return {{3, -2, 7}, Axes::ofView({1, 2, -3}, {0, 0, 1}), Axes::ofView({-2, 1, 1}, {0, 1, 0})};
}

void expectNear(Point const& found, Point const& expected)
{
    EXPECT_NEAR(found.X(), expected.X(), 1e-5);
    EXPECT_NEAR(found.Y(), expected.Y(), 1e-5);
    EXPECT_NEAR(found.Z(), expected.Z(), 1e-5);
}

}  // namespace

TEST(RigidMotion, TurnsAboutItsPoint)
{
    RigidMotion const turn = quarterTurn({1, 2, 3});
    expectNear(turn({1, 2, 3}), {1, 2, 3});
    expectNear(turn({5, 2, 3}), {1, 6, 3});
    expectNear(turn({1, 2, 9}), {1, 2, 9});
}

TEST(RigidMotion, IsUndoneByItsInverse)
{
    for (RigidMotion const& motion : {quarterTurn({1, 2, 3}), obliqueTurn()}) {
        for (Point const& p : {Point(0, 0, 0), Point(4, -5, 6), Point(-10, 0, 1)}) {
            expectNear(motion.inverse()(motion(p)), p);
            expectNear(motion(motion.inverse()(p)), p);
        }
    }
    EXPECT_EQ(RigidMotion().inverse(), RigidMotion());
}

TEST(RigidMotion, GoesOnWithTheNextOne)
{
    Point const p(4, -5, 6);
    RigidMotion const first = quarterTurn({1, 2, 3}), second = obliqueTurn();
    expectNear(first.then(second)(p), second(first(p)));
    expectNear(second.then(first)(p), first(second(p)));
}
