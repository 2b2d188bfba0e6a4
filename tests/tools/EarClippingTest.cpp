// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/OutlineScene.h"
#include "tools/EarClipping.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Freecut::FlatRing;
using Freecut::isPointInTriangle;
using Freecut::Loops;
using Freecut::Ring;
using Freecut::triangulateLoop;
using Point = UPoint3<float>;
using Vector = UVector3<float>;

Vector const up(0, 0, 1);

/// Scan by scan, each from the first point on, every point tested each time.
Loops slowTriangles(Ring points, Vector const& direction)
{
    Loops triangles;
    if (points.size() < 3)
        return triangles;
    for (;;) {
        if (points.size() < 4) {
            triangles.push_back(points);
            return triangles;
        }
        std::size_t const before = points.size();
        for (std::size_t i = 0; i < points.size(); ++i) {
            Point const previous = points[(i + points.size() - 1) % points.size()];
            Point const next = points[(i + 1) % points.size()];
            Vector const e1 = (points[i] - previous).Normalize();
            Vector const e2 = (next - points[i]).Normalize();
            if (!(((e1 * e2) | direction) > 0))
                continue;
            bool const isEar = std::none_of(points.begin(), points.end(), [&](Point const& p) {
                return isPointInTriangle(previous, points[i], next, p);
            });
            if (!isEar)
                continue;
            triangles.push_back({previous, points[i], next});
            points.erase(points.begin() + std::ptrdiff_t(i));
            break;
        }
        if (points.size() == before)
            return triangles;
    }
}

Ring raised(FlatRing const& flat, float z = 0)
{
    Ring ring;
    for (auto const& p : flat)
        ring.push_back({p.X(), p.Y(), z});
    return ring;
}

double areaOf(Loops const& triangles)
{
    double area = 0;
    for (Ring const& t : triangles)
        area += double(((t[1] - t[0]) * (t[2] - t[0])).GetLength()) / 2;
    return area;
}

/// A star-shaped ring with radii at random: anticlockwise and without crossings.
FlatRing randomStar(std::mt19937& random, int count)
{
    std::uniform_real_distribution<float> radius(10, 100);
    FlatRing ring = circlePoints(1, count);
    for (auto& p : ring) {
        float const r = radius(random);
        p = {p.X() * r, p.Y() * r};
    }
    return ring;
}

}  // namespace

TEST(EarClipping, FewerThanThreePointsGiveNothing)
{
    EXPECT_TRUE(triangulateLoop({}, up).empty());
    EXPECT_TRUE(triangulateLoop({{0, 0, 0}}, up).empty());
    EXPECT_TRUE(triangulateLoop({{0, 0, 0}, {1, 0, 0}}, up).empty());
}

TEST(EarClipping, ThreePointsAreOneTriangleWhateverTheirTurning)
{
    Ring const turned{{0, 0, 0}, {0, 1, 0}, {1, 0, 0}};
    EXPECT_EQ(triangulateLoop(turned, up), Loops{turned});
    Ring const line{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    EXPECT_EQ(triangulateLoop(line, up), Loops{line});
}

TEST(EarClipping, TheFirstEarGoesFirst)
{
    Ring const square{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    EXPECT_EQ(triangulateLoop(square, up),
              (Loops{{square[3], square[0], square[1]}, {square[1], square[2], square[3]}}));
}

TEST(EarClipping, AClockwiseLoopHasNoEars)
{
    EXPECT_TRUE(triangulateLoop({{0, 1, 0}, {1, 1, 0}, {1, 0, 0}, {0, 0, 0}}, up).empty());
    EXPECT_EQ(triangulateLoop({{0, 1, 0}, {1, 1, 0}, {1, 0, 0}, {0, 0, 0}}, -up).size(), 2u);
}

TEST(EarClipping, ALoopThatRunsOutOfEarsYieldsWhatWasFound)
{
    // A clockwise lobe is left over once the anticlockwise one is cut away.
    Ring const eight{{0, 0, 0}, {10, 10, 0}, {12, 10, 0}, {12, 0, 0}, {10, 0, 0}, {0, 10, 0}};
    Loops const triangles = triangulateLoop(eight, up);
    EXPECT_EQ(triangles, slowTriangles(eight, up));
    EXPECT_LT(triangles.size(), eight.size() - 2);
    EXPECT_TRUE(triangulateLoop({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}}, up).empty());
}

TEST(EarClipping, APointOnAnEdgeOrCornerIsNotInside)
{
    Point const a(0, 0, 0), b(4, 0, 0), c(0, 4, 0);
    EXPECT_TRUE(isPointInTriangle(a, b, c, {1, 1, 0}));
    EXPECT_TRUE(isPointInTriangle(a, c, b, {1, 1, 0})) << "either turning";
    EXPECT_FALSE(isPointInTriangle(a, b, c, {2, 0, 0}));
    EXPECT_FALSE(isPointInTriangle(a, b, c, {2, 2, 0}));
    EXPECT_FALSE(isPointInTriangle(a, b, c, a));
    EXPECT_FALSE(isPointInTriangle(a, b, c, c));
    EXPECT_FALSE(isPointInTriangle(a, b, c, {3, 3, 0}));
    EXPECT_FALSE(isPointInTriangle(a, b, c, {-1, 1, 0}));
}

TEST(EarClipping, TrianglesCoverTheLoop)
{
    std::mt19937 random(3);
    for (int const count : {4, 5, 31, 32, 33, 200}) {
        Ring const loop = raised(randomStar(random, count), 5);
        Loops const triangles = triangulateLoop(loop, up);
        EXPECT_EQ(triangles.size(), std::size_t(count) - 2);
        EXPECT_NEAR(areaOf(triangles), signedArea(seen(loop, topCamera())), 0.05) << count;
    }
}

TEST(EarClipping, GivesTheVeryTrianglesOfTheSlowScans)
{
    std::mt19937 random(11);
    for (int run = 0; run < 400; ++run) {
        FlatRing flat = randomStar(random, 4 + run % 60);
        if (run % 3 == 0)
            flat = wholeNumbers(flat);
        if (run % 5 == 0)
            flat.insert(flat.begin() + 2, flat[1]);
        if (run % 7 == 0)
            std::reverse(flat.begin(), flat.end());
        Ring const loop = raised(flat, 3);
        EXPECT_EQ(triangulateLoop(loop, up), slowTriangles(loop, up)) << "run " << run;
    }
}

// Products of lengths below a thousandth are tiny, and mean as much.
TEST(EarClipping, GivesTheVeryTrianglesOfTheSlowScansForTinyLoops)
{
    std::mt19937 random(14);
    for (int run = 0; run < 60; ++run) {
        Ring loop = raised(randomStar(random, 34 + run));
        for (Point& p : loop)
            p = p * 1e-4f;
        EXPECT_EQ(triangulateLoop(loop, up), slowTriangles(loop, up)) << "run " << run;
    }
}

TEST(EarClipping, GivesTheVeryTrianglesOfTheSlowScansForAnyPoints)
{
    std::mt19937 random(12);
    for (int run = 0; run < 400; ++run) {
        std::uniform_int_distribution<int> coordinate(-run % 30 - 1, run % 30 + 1);
        Ring loop(std::size_t(4 + run % 30));
        for (Point& p : loop)
            p = {float(coordinate(random)), float(coordinate(random)), 0};
        EXPECT_EQ(triangulateLoop(loop, up), slowTriangles(loop, up)) << "run " << run;
    }
}

TEST(EarClipping, GivesTheVeryTrianglesOfTheSlowScansInTiltedPlanes)
{
    // Rounding makes points of a straight side convex or not, and inside thin triangles or not.
    std::mt19937 random(13);
    GLCamera const camera = freeCamera();
    for (int run = 0; run < 60; ++run) {
        Ring loop = raised(run % 2 ? circlePoints(100, 150) : randomStar(random, 40));
        if (run % 4 < 2)
            for (std::size_t i = 0; i < loop.size(); i += 2)
                loop.insert(loop.begin() + std::ptrdiff_t(i) + 1,
                            (loop[i] + loop[(i + 1) % loop.size()]) * 0.5f);
        for (Point& p : loop)
            camera.ViewCSToWCSpoint(p);
        Vector const direction = camera.get_direction();
        EXPECT_EQ(triangulateLoop(loop, direction), slowTriangles(loop, direction)) << run;
    }
}
