// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/prisms/PrismRegions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace {

using Point2 = PrismRegions::Point2;
using Edge = PrismShells::Edge;
using Shell = PrismShells::Shell;
using Polygon = std::array<Point2, 3>;

constexpr double reach = 0.01;

/// A star around a place.
Shell starAt(Point2 const& centre, double radius, std::mt19937& random)
{
    std::uniform_real_distribution<double> share(0.3, 1);
    std::vector<Point2> points;
    for (int i = 0; i < 40; ++i) {
        double const angle = 2 * std::numbers::pi * i / 40, r = radius * share(random);
        points.push_back({centre[0] + r * std::cos(angle), centre[1] + r * std::sin(angle)});
    }
    Shell shell;
    for (std::size_t i = 0; i < points.size(); ++i)
        shell.outline.push_back({points[i], points[(i + 1) % points.size()]});
    return shell;
}

double distance(Point2 const& p, Edge const& edge)
{
    double const x = edge[1][0] - edge[0][0], y = edge[1][1] - edge[0][1];
    double const t =
        std::clamp(((p[0] - edge[0][0]) * x + (p[1] - edge[0][1]) * y) / (x * x + y * y), 0.0, 1.0);
    return std::hypot(edge[0][0] + t * x - p[0], edge[0][1] + t * y - p[1]);
}

bool isLeft(Edge const& edge, Point2 const& p)
{
    return (edge[1][0] - edge[0][0]) * (p[1] - edge[0][1]) >
           (edge[1][1] - edge[0][1]) * (p[0] - edge[0][0]);
}

double distance(Edge const& a, Edge const& b)
{
    if (isLeft(a, b[0]) != isLeft(a, b[1]) && isLeft(b, a[0]) != isLeft(b, a[1]))
        return 0;
    return std::min({distance(a[0], b), distance(a[1], b), distance(b[0], a), distance(b[1], a)});
}

/// By the angle in which edges are seen.
bool isWithin(Point2 const& p, std::vector<Edge> const& edges)
{
    double turned = 0;
    for (auto const& [a, b] : edges) {
        double const ax = a[0] - p[0], ay = a[1] - p[1], bx = b[0] - p[0], by = b[1] - p[1];
        turned += std::atan2(ax * by - ay * bx, ax * bx + ay * by);
    }
    return std::abs(turned) > 1;
}

/// How far a triangle is from what a shell covers: zero within it or around it.
double distance(Shell const& shell, Polygon const& polygon)
{
    std::vector<Edge> const sides{
        {polygon[0], polygon[1]}, {polygon[1], polygon[2]}, {polygon[2], polygon[0]}};
    if (isWithin(polygon[0], shell.outline) || isWithin(shell.outline[0][0], sides))
        return 0;
    double least = 1e300;
    for (Edge const& edge : shell.outline)
        for (Edge const& side : sides)
            least = std::min(least, distance(edge, side));
    return least;
}

/// Small triangles, large ones and needles.
Polygon randomTriangle(std::mt19937& random)
{
    std::uniform_real_distribution<double> place(0, 10), turn(0, 2 * std::numbers::pi);
    Point2 const first{place(random), place(random)};
    double const length = std::pow(10.0, place(random) / 4 - 2), angle = turn(random),
                 width = length * std::pow(10.0, -place(random) / 2);
    Point2 const second{first[0] + length * std::cos(angle), first[1] + length * std::sin(angle)};
    Point2 const third{second[0] - width * std::sin(angle), second[1] + width * std::cos(angle)};
    return random() % 2 ? Polygon{first, second, third} : Polygon{first, third, second};
}

}  // namespace

// Boxes of needles hold much that is nowhere near them, and what the needle before has met is no
// answer for this one.
TEST(PrismRegions, AreFoundByTheTrianglesThatComeNearThem)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(1, 9);
    std::vector<Shell> shells;
    for (int i = 0; i < 12; ++i)
        shells.push_back(starAt({place(random), place(random)}, i == 0 ? 3 : 0.4, random));
    PrismRegions const regions(shells, reach);
    PrismRegions::Met met = nullptr;
    std::size_t nearCount = 0, farCount = 0;
    for (int round = 0; round < 20000; ++round) {
        Polygon const polygon = randomTriangle(random);
        std::vector<std::uint32_t> expected, found;
        bool isOnTheEdge = false;
        for (std::uint32_t i = 0; i < shells.size(); ++i) {
            double const far = distance(shells[i], polygon);
            isOnTheEdge |= std::abs(far - reach) < 1e-9;
            if (far <= reach)
                expected.push_back(i);
        }
        if (isOnTheEdge)
            continue;
        regions.findNear(polygon, found);
        ASSERT_EQ(found, expected) << "round " << round;
        ASSERT_EQ(regions.isAnyNear(polygon, met), !expected.empty()) << "round " << round;
        ++(expected.empty() ? farCount : nearCount);
    }
    EXPECT_GT(nearCount, 2000u);
    EXPECT_GT(farCount, 2000u);
}
