// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ImplicitPoints.h"
#include "host/services/exact/NarrowSigns.h"
#include "tests/services/WholePoint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Exact::ImplicitPoint;
using Point = UPoint3<float>;
__extension__ using Wide = __int128;

ImplicitPoint pointAt(Point const& p)
{
    ImplicitPoint point;
    point.points[0] = p;
    return point;
}

ImplicitPoint edgeThroughPlane(Point const& from, Point const& to, Point const& a, Point const& b,
                               Point const& c)
{
    return {ImplicitPoint::Kind::edgeThroughPlane, {from, to, a, b, c}};
}

/// Where an edge passes through the plane z = level.
ImplicitPoint edgeAtLevel(Point const& from, Point const& to, float level)
{
    return edgeThroughPlane(from, to, {0, 0, level}, {1, 0, level}, {0, 1, level});
}

/// (1/3, 2/3, 1), where an edge passes through a plane.
ImplicitPoint const thirds = edgeAtLevel({0, 0, 0}, {1, 2, 3}, 1);

/// The same on the planes y = 2x, z = 3x and z = 1.
ImplicitPoint const thirdsOfPlanes{
    ImplicitPoint::Kind::threePlanes,
    {Point(0, 0, 0), Point(1, 2, 0), Point(0, 0, 1), Point(0, 0, 0), Point(1, 0, 3), Point(0, 1, 0),
     Point(0, 0, 1), Point(1, 0, 1), Point(0, 1, 1)}};

float below(float x)
{
    return std::nextafter(x, -std::numeric_limits<float>::infinity());
}

float above(float x)
{
    return std::nextafter(x, std::numeric_limits<float>::infinity());
}

void expectPlace(ImplicitPoint const& point, Point const& expected)
{
    Exact::RoundedPoint const rounded = Exact::round(point);
    for (int k = 0; k < 3; ++k)
        EXPECT_EQ(rounded.single[k], expected[k]) << "axis " << k;
}

struct Sample
{
    ImplicitPoint point;
    FractionPoint place;
};

Sample randomPassage(std::mt19937& random)
{
    for (;;) {
        WholePoint const p = randomPoint(random, -4, 4), q = randomPoint(random, -4, 4);
        WholeTriangle const t = randomTriangle(random, -4, 4);
        if (dot(normalOf(t), q - p) != 0)
            return {edgeThroughPlane(p, q, t[0], t[1], t[2]), passage(p, q, t)};
    }
}

/// Cramer's rule.
Sample randomCrossing(std::mt19937& random)
{
    for (;;) {
        WholeTriangle t[3];
        WholePoint n[3];
        Sample sample;
        sample.point.kind = ImplicitPoint::Kind::threePlanes;
        WholePoint sum;
        for (std::size_t i = 0; i < 3; ++i) {
            t[i] = randomTriangle(random, -4, 4);
            n[i] = normalOf(t[i]);
            for (std::size_t k = 0; k < 3; ++k)
                sample.point.points[3 * i + k] = t[i][k];
        }
        for (std::size_t i = 0; i < 3; ++i)
            sum = sum + dot(n[i], t[i][0]) * cross(n[(i + 1) % 3], n[(i + 2) % 3]);
        std::int64_t const denominator = dot(n[0], cross(n[1], n[2]));
        if (denominator == 0)
            continue;
        sample.place = fraction(sum, denominator);
        return sample;
    }
}

Sample randomSample(std::mt19937& random)
{
    switch (random() % 3) {
        case 0: {
            WholePoint const p = randomPoint(random, -2, 2);
            return {pointAt(p), fraction(p, 1)};
        }
        case 1:
            return randomPassage(random);
        default:
            return randomCrossing(random);
    }
}

int signOfWide(Wide x)
{
    return (x > 0) - (x < 0);
}

int orientationOf(FractionPoint const& a, FractionPoint const& b, FractionPoint const& c, int axis)
{
    std::size_t const i = std::size_t(axis + 1) % 3, j = std::size_t(axis + 2) % 3;
    auto const minor = [&](FractionPoint const& p, FractionPoint const& q) {
        return Wide(p.numerators[i]) * q.numerators[j] - Wide(p.numerators[j]) * q.numerators[i];
    };
    return signOfWide(minor(b, c) * a.denominator - minor(a, c) * b.denominator +
                      minor(a, b) * c.denominator);
}

int comparisonOf(FractionPoint const& a, FractionPoint const& b, int axis)
{
    std::size_t const k = std::size_t(axis);
    return signOfWide(Wide(b.numerators[k]) * a.denominator -
                      Wide(a.numerators[k]) * b.denominator);
}

}  // namespace

TEST(ImplicitPoints, EdgeThroughPlaneAtThirdsRoundsToTheNearestFloats)
{
    expectPlace(thirds, {1.0f / 3, 2.0f / 3, 1});
    EXPECT_NEAR(Exact::round(thirds).place[0], 1.0 / 3, 1e-16);
    EXPECT_NEAR(Exact::round(thirds).place[1], 2.0 / 3, 1e-15);
}

TEST(ImplicitPoints, ThreePlanesMeetWhereAnEdgePassesThroughOneOfThem)
{
    expectPlace(thirdsOfPlanes, {1.0f / 3, 2.0f / 3, 1});
    EXPECT_TRUE(Exact::areEqual(thirds, thirdsOfPlanes));
    EXPECT_TRUE(Exact::areEqual(thirdsOfPlanes, thirds));
}

TEST(ImplicitPoints, OrderOfCornersAndOfEndsDoesNotMatter)
{
    EXPECT_TRUE(Exact::areEqual(
        thirds, edgeThroughPlane({1, 2, 3}, {0, 0, 0}, {0, 1, 1}, {1, 0, 1}, {0, 0, 1})));
    ImplicitPoint turned = thirdsOfPlanes;
    std::swap(turned.points[0], turned.points[1]);
    EXPECT_TRUE(Exact::areEqual(thirds, turned));
    EXPECT_EQ(Exact::compare(thirds, turned, 0), 0);
}

TEST(ImplicitPoints, ThirdLiesBetweenTheFloatsNextToIt)
{
    // The nearest float to a third is above it.
    float const nearest = 1.0f / 3;
    ImplicitPoint const high = pointAt({nearest, 2.0f / 3, 1}),
                        low = pointAt({below(nearest), 0, 1});
    EXPECT_EQ(Exact::compare(thirds, high, 0), 1);
    EXPECT_EQ(Exact::compare(high, thirds, 0), -1);
    EXPECT_EQ(Exact::compare(thirds, low, 0), -1);
    EXPECT_EQ(Exact::compare(thirds, high, 2), 0);
    EXPECT_FALSE(Exact::areEqual(thirds, high));
}

TEST(ImplicitPoints, OrientationTellsPointsOnALineFromThoseAUnitInTheLastPlaceBesideIt)
{
    ImplicitPoint const zero = pointAt({0, 0, 5});
    EXPECT_EQ(Exact::orient2d(zero, thirds, pointAt({1, 2, -7}), 2), 0);
    EXPECT_EQ(Exact::orient2d(zero, thirds, pointAt({1, above(2), 0}), 2), 1);
    EXPECT_EQ(Exact::orient2d(zero, thirds, pointAt({1, below(2), 0}), 2), -1);
    // Along x, (y, z) = (2/3, 1); along y, (z, x) = (1, 1/3).
    ImplicitPoint const origin = pointAt({0, 0, 0});
    EXPECT_EQ(Exact::orient2d(origin, thirds, pointAt({9, 2, 3}), 0), 0);
    EXPECT_EQ(Exact::orient2d(origin, thirds, pointAt({9, 2, above(3)}), 0), 1);
    EXPECT_EQ(Exact::orient2d(origin, thirds, pointAt({1, 9, 3}), 1), 0);
    EXPECT_EQ(Exact::orient2d(origin, thirds, pointAt({above(1), 9, 3}), 1), 1);
}

TEST(ImplicitPoints, CoordinatesOfVeryDifferentSizeAreExact)
{
    // At 1 / (2^200 + 1) of the way to x = 2^60: a little less than 2^-140, which no double tells.
    float const tiny = 0x1p-100f, huge = 0x1p100f;
    ImplicitPoint const point = edgeAtLevel({0, 0, -tiny}, {0x1p60f, 0, huge}, 0);
    expectPlace(point, {0x1p-140f, 0, 0});
    EXPECT_EQ(Exact::compare(point, pointAt({0x1p-140f, 0, 0}), 0), 1);
    EXPECT_EQ(Exact::compare(point, pointAt({below(0x1p-140f), 0, 0}), 0), -1);
    EXPECT_FALSE(Exact::areEqual(point, pointAt({0x1p-140f, 0, 0})));
    EXPECT_EQ(
        Exact::orient2d(pointAt({0x1p-140f, -huge, 0}), pointAt({0x1p-140f, huge, 0}), point, 2),
        1);
    EXPECT_EQ(Exact::orient2d(pointAt({0, -huge, 0}), point, pointAt({0, huge, 0}), 2), 1);
}

TEST(ImplicitPoints, PointNextToAHugeEndIsThatEnd)
{
    float const greatest = std::numeric_limits<float>::max();
    ImplicitPoint const point = edgeAtLevel({greatest, 0, 0x1p-149f}, {-greatest, 0, -greatest}, 0);
    expectPlace(point, {greatest, 0, 0});
    EXPECT_EQ(Exact::compare(point, pointAt({greatest, 0, 0}), 0), 1);
    // Half way between both ends.
    expectPlace(edgeAtLevel({greatest, greatest, -1}, {-greatest, greatest, 1}, 0),
                {0, greatest, 0});
}

TEST(ImplicitPoints, NearlyHalfWayBetweenTwoFloatsTheNearerOneIsTaken)
{
    // 2^-84 off the middle: as a double it is the middle, of which the even float would be taken.
    float const odd = above(1), even = above(odd);
    expectPlace(edgeAtLevel({odd, 0, -1}, {even, 0, 1}, -0x1p-60f), {odd, 0, -0x1p-60f});
    expectPlace(edgeAtLevel({1, 0, -1}, {odd, 0, 1}, 0x1p-60f), {odd, 0, 0x1p-60f});
    expectPlace(edgeAtLevel({-odd, 0, -1}, {-even, 0, 1}, -0x1p-60f), {-odd, 0, -0x1p-60f});
}

TEST(ImplicitPoints, RoundedPlacesAreTheNearestAndWithinTheirError)
{
    std::mt19937 random(1);
    for (int i = 0; i < 4000 && !HasFailure(); ++i) {
        Sample const sample = randomSample(random);
        Exact::RoundedPoint const rounded = Exact::round(sample.point);
        double largest = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            // Numerators and denominators are below 2^30, so that nothing here is rounded but what
            // is much larger than the nearest distance.
            long double const n = (long double)(sample.place.numerators[k]);
            long double const d = (long double)(sample.place.denominator);
            float const single = rounded.single[int(k)];
            long double const off = std::abs(n - single * d);
            EXPECT_LE(off, std::abs(n - below(single) * d));
            EXPECT_LE(off, std::abs(n - above(single) * d));
            EXPECT_LE(std::abs(n / d - rounded.place[k]), rounded.error);
            largest = std::max(largest, std::abs(rounded.place[k]));
        }
        EXPECT_LE(rounded.error, 1e-15 * largest);
    }
}

TEST(ImplicitPoints, SignsAreThoseOfWholeNumbers)
{
    std::mt19937 random(2);
    int onLines = 0, equal = 0, level = 0;
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        Sample const a = randomSample(random), b = randomSample(random), c = randomSample(random);
        int const axis = int(random() % 3);
        int const orientation = orientationOf(a.place, b.place, c.place, axis);
        int const order = comparisonOf(a.place, b.place, axis);
        EXPECT_EQ(Exact::orient2d(a.point, b.point, c.point, axis), orientation);
        EXPECT_EQ(Exact::compare(a.point, b.point, axis), order);
        EXPECT_EQ(Exact::areEqual(a.point, b.point), a.place == b.place);
        onLines += orientation == 0;
        level += order == 0;
        equal += a.place == b.place;
    }
    EXPECT_GT(onLines, 20);
    EXPECT_GT(level, 20);
    EXPECT_GT(equal, 5);
}

/// Sums and products must carry through all words: coordinates of up to 44 bits, of both signs.
TEST(ImplicitPoints, NarrowSignsTellWhatLiesOnALineThatPassesBesideItByOneBit)
{
    std::mt19937 random(3);
    auto const coordinate = [&] {
        return std::ldexp(float(int(random() % 0x1ffffff) - 0xffffff), int(random() % 20) - 20);
    };
    int onLine = 0;
    for (int i = 0; i < 5000 && !HasFailure(); ++i) {
        // Edges through two planes, both upright over one line: three passages lie on it.
        Point const a(coordinate(), coordinate(), 0), b(coordinate(), coordinate(), 0);
        auto const passage = [&] {
            return edgeThroughPlane({coordinate(), coordinate(), coordinate()},
                                    {coordinate(), coordinate(), coordinate()},
                                    {a.X(), a.Y(), coordinate()}, {b.X(), b.Y(), coordinate()},
                                    {a.X(), a.Y(), coordinate()});
        };
        ImplicitPoint const p = passage(), q = passage(), r = passage();
        auto const sign = Exact::narrowOrient2d(p, q, r, 2);
        auto const order = Exact::narrowCompare(p, q, 0);
        if (!sign || !order)
            continue;
        EXPECT_EQ(*sign, 0);
        EXPECT_EQ(Exact::narrowCompare(q, p, 0), -*order);
        // Seen from the line, a float beside it lies on the side that floats tell.
        if (*order == 0)
            continue;
        int const beside =
            Exact::narrowOrient2d(p, q, pointAt({a.X(), above(a.Y()), 0}), 2).value_or(0);
        if (beside != 0) {
            EXPECT_EQ(beside, *order);
            ++onLine;
        }
    }
    EXPECT_GT(onLine, 500);
}
