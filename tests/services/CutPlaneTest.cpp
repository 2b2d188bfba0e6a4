// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/CutPlane.h"
#include "tests/support/Soup.h"

#include <gtest/gtest.h>

#include <random>

namespace {

class Points
{
public:
    UPoint3<float> next() { return {m_number(m_random), m_number(m_random), m_number(m_random)}; }

private:
    std::mt19937 m_random{7};
    std::uniform_real_distribution<float> m_number{-50, 50};
};

CutPlane planeThrough(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c)
{
    Soup corners;
    for (UPoint3<float> const& point : {a, b, c})
        corners.add(point);
    corners.add(0, 1, 2);
    return CutPlane(*kernelOf(corners));
}

}  // namespace

// Edges that meet the plane in one place have one point there, whichever places they come from.
TEST(CutPlane, ACrossingsThirdCoordinateFollowsFromTheOtherTwoAsTheyAreRounded)
{
    Points points;
    int crossings = 0;
    for (int planes = 0; planes < 200; ++planes) {
        CutPlane const plane = planeThrough(points.next(), points.next(), points.next());
        for (int i = 0; i < 50; ++i) {
            UPoint3<float> const below = points.next(), above = points.next();
            if (plane.sideOf(below) >= 0 || plane.sideOf(above) <= 0)
                continue;
            ++crossings;
            UPoint3<float> const point = plane.crossing(below, above);
            ASSERT_EQ(point, plane.lift(plane.project(point)));
        }
    }
    EXPECT_GT(crossings, 1000);
}
