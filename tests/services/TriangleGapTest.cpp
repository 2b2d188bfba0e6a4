// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/TrianglePair.h"
#include "host/services/boolean/TriangleGap.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Point = UPoint3<float>;
using Triangle = std::array<Point, 3>;

float between(float low, float high, std::mt19937& random)
{
    return std::uniform_real_distribution<float>(low, high)(random);
}

/// Long and thin in most cases, within a box of that size.
Triangle randomTriangle(float size, std::mt19937& random)
{
    auto const point = [&] {
        return Point(between(-size, size, random), between(-size, size, random),
                     between(-size, size, random));
    };
    Point const a = point(), b = point();
    UVector3<float> const aside(between(-1, 1, random), between(-1, 1, random), 0.3f);
    return {a, b, random() % 3 == 0 ? point() : b + aside * 0.01f};
}

bool doMeet(Triangle const& a, Triangle const& b)
{
    MeshArrays mesh;
    mesh.points.insert(mesh.points.end(), a.begin(), a.end());
    mesh.points.insert(mesh.points.end(), b.begin(), b.end());
    mesh.triangles = {{0, 1, 2}, {3, 4, 5}};
    return doTrianglesMeet(mesh, 0, 1);
}

/// The smallest distance of points of both on a lattice.
double sampledDistance(Triangle const& a, Triangle const& b)
{
    constexpr int steps = 16;
    auto const at = [](Triangle const& t, int i, int k) {
        return t[0] + (t[1] - t[0]) * (float(i) / steps) + (t[2] - t[0]) * (float(k) / steps);
    };
    double least = 1e30;
    for (int i = 0; i <= steps; ++i)
        for (int k = 0; i + k <= steps; ++k)
            for (int m = 0; m <= steps; ++m)
                for (int n = 0; m + n <= steps; ++n)
                    least = std::min(least, double((at(a, i, k) - at(b, m, n)).GetLength()));
    return least;
}

}  // namespace

/// No corner that moves by less than the distance makes two triangles meet that are told to be apart.
TEST(TriangleGap, IsNeverTooLarge)
{
    std::mt19937 random(7);
    int apart = 0;
    for (int i = 0; i < 4000; ++i) {
        Triangle a = randomTriangle(2, random);
        Triangle const b = randomTriangle(2, random);
        float const distance = between(0, 0.5f, random);
        if (!areFurtherApart(a, b, double(distance)))
            continue;
        ++apart;
        ASSERT_TRUE(areFurtherApart(b, a, double(distance)));
        for (int k = 0; k < 20; ++k) {
            Triangle moved = a;
            UVector3<float> way(between(-1, 1, random), between(-1, 1, random),
                                between(-1, 1, random));
            moved[random() % 3] += way.Normalize() * (0.999f * distance);
            ASSERT_FALSE(doMeet(moved, b)) << i;
        }
    }
    EXPECT_GT(apart, 500);
}

TEST(TriangleGap, IsSeenBetweenNearlyAllThatAreClearlyApart)
{
    std::mt19937 random(11);
    int seen = 0, all = 0;
    for (int i = 0; i < 300; ++i) {
        Triangle const a = randomTriangle(2, random), b = randomTriangle(2, random);
        double const distance = sampledDistance(a, b);
        if (distance < 0.5)
            continue;
        ++all;
        seen += areFurtherApart(a, b, 0.3 * distance);
    }
    ASSERT_GT(all, 100);
    EXPECT_GT(seen, all * 9 / 10);
}

TEST(TriangleGap, IsNoneBetweenTrianglesThatMeetOrAreFlatInOnePlace)
{
    Triangle const a{{{0, 0, 0}, {10, 0, 0}, {0, 10, 0}}};
    Triangle const across{{{2, 2, -1}, {2, 2, 1}, {3, 2, 1}}};
    EXPECT_FALSE(areFurtherApart(a, across, 0));
    Triangle const point{{{1, 1, 0}, {1, 1, 0}, {1, 1, 0}}};
    EXPECT_FALSE(areFurtherApart(a, point, 0));
    EXPECT_TRUE(areFurtherApart(a, {{{1, 1, 5}, {1, 1, 5}, {1, 1, 5}}}, 4.9));
    EXPECT_FALSE(areFurtherApart(a, {{{1, 1, 5}, {1, 1, 5}, {1, 1, 5}}}, 5.1));
}
