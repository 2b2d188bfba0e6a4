// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CurveThinning.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using Freecut::Curve;
using Point = UPoint2<double>;

double distanceFromEdge(Point const& p, Point const& a, Point const& b)
{
    UVector2<double> const along = b - a, to = p - a;
    double const squared = along.X() * along.X() + along.Y() * along.Y();
    double const share =
        squared > 0 ? std::clamp((to.X() * along.X() + to.Y() * along.Y()) / squared, 0.0, 1.0) : 0;
    return std::hypot(to.X() - share * along.X(), to.Y() - share * along.Y());
}

/// The points of `few` are points of the curve in their order, and each of the others lies beside
/// the edge that stands for it.
void expectWithin(Curve const& curve, Curve const& few, double tolerance)
{
    ASSERT_FALSE(few.empty());
    ASSERT_EQ(few[0], curve[0]);
    std::size_t edge = 0;
    for (std::size_t i = 1; i < curve.size(); ++i) {
        if (edge + 1 < few.size() && curve[i] == few[edge + 1]) {
            ++edge;
            continue;
        }
        Point const& end = few[edge + 1 < few.size() ? edge + 1 : 0];
        ASSERT_LE(distanceFromEdge(curve[i], few[edge], end), tolerance + 1e-9) << i;
    }
    EXPECT_EQ(edge + 1, few.size());
}

/// An arc's points on the grid, as near to each other as a rounding's.
Curve fineCircle(double radius, int points)
{
    Curve curve;
    for (int i = 0; i < points; ++i) {
        double const angle = 2 * M_PI * i / points;
        curve.emplace_back(std::trunc(radius * std::cos(angle)),
                           std::trunc(radius * std::sin(angle)));
    }
    return curve;
}

}  // namespace

TEST(CurveThinning, KeepsCornersAndLeavesPointsBetweenThemOut)
{
    Curve curve;
    for (int i = 0; i < 10; ++i)
        curve.emplace_back(1000 * i, i % 2);
    for (Point const& corner : {Point(10000, 0), Point(10000, 5000), Point(0, 5000)})
        curve.push_back(corner);
    Curve const few = Freecut::thinned(curve, 2);
    EXPECT_EQ(few, (Curve{{0, 0}, {10000, 0}, {10000, 5000}, {0, 5000}}));
    EXPECT_EQ(Freecut::thinned(curve, 0.2), curve);
}

TEST(CurveThinning, OfArcsOnTheGridKeepsEveryPointWithinTheTolerance)
{
    for (double const radius : {200.0, 250.0, 3000.0})
        for (double const tolerance : {1.0, 2.0, 4.0}) {
            SCOPED_TRACE(testing::Message() << radius << ' ' << tolerance);
            Curve const circle = fineCircle(radius, 1000);
            Curve const few = Freecut::thinned(circle, tolerance);
            expectWithin(circle, few, tolerance);
            // Truncated to the grid a point lies up to 0.7 units beside the arc.
            EXPECT_LT(few.size(), circle.size() / 5);
        }
}

TEST(CurveThinning, KeepsPlacesWhereACurveTurnsBack)
{
    // Along one line and back, in small steps and with repeated points.
    Curve curve;
    for (int x : {0, 3, 3, 9, 40, 39, 20, 21, 60, 10, 10, -5})
        curve.emplace_back(x, 0);
    curve.emplace_back(0, 30);
    expectWithin(curve, Freecut::thinned(curve, 0.5), 0.5);
    for (double const end : {40.0, 20.0, 60.0, -5.0}) {
        Curve const few = Freecut::thinned(curve, 0.5);
        EXPECT_NE(std::find(few.begin(), few.end(), Point(end, 0)), few.end()) << end;
    }
}

TEST(CurveThinning, OfAnythingKeepsEveryPointWithinTheTolerance)
{
    std::mt19937 random(3);
    std::uniform_int_distribution<int> step(-4, 6), size(3, 300);
    for (int run = 0; run < 500; ++run) {
        SCOPED_TRACE(run);
        Curve curve;
        double x = 0, y = 0;
        for (int i = size(random); i > 0; --i) {
            x += step(random);
            y += run % 3 ? step(random) / 3 : 0;
            // No two points are the same, so that the test can tell them apart.
            curve.emplace_back(x, y + 1e-6 * i);
        }
        Curve const few = Freecut::thinned(curve, 1.5);
        if (few.size() < curve.size())
            expectWithin(curve, few, 1.5);
    }
}

TEST(CurveThinning, CurvesThatWouldNotEncloseAnythingStayAsTheyAre)
{
    for (Curve const& curve :
         {Curve{}, Curve{{1, 2}}, Curve{{0, 0}, {5, 0}}, Curve{{0, 0}, {5, 0}, {9, 0}, {4, 0.1}}})
        EXPECT_EQ(Freecut::thinned(curve, 1), curve);
}
