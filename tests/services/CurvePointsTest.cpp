// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/ExactSigns.h"
#include "host/services/boolean/CurvePoints.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Point = UPoint3<float>;

/// A triangle of a hundredth to a hundred units far from the origin; flat ones lie within a few
/// roundings of one slanted plane, so that volumes between them are lost in double.
TriangleCorners randomTriangle(std::mt19937& random, float size, bool isFlat)
{
    std::uniform_real_distribution<float> place(-size, size);
    TriangleCorners t;
    for (Point& p : t) {
        float const x = place(random), y = place(random);
        float const z = isFlat ? x + 2 * y + 1e-4f * float(int(random() % 5) - 2) : place(random);
        p = {x + 300, y - 70, z + 1000};
    }
    return t;
}

OperandSoup soupOf(TriangleCorners const& first, TriangleCorners const& second)
{
    OperandSoup soup;
    soup.mesh.points.assign(first.begin(), first.end());
    soup.mesh.points.insert(soup.mesh.points.end(), second.begin(), second.end());
    soup.mesh.triangles = {{0, 1, 2}, {3, 4, 5}};
    soup.firstPointOfSecond = 3;
    soup.firstTriangleOfSecond = 1;
    return soup;
}

/// Tells whether the point is one that had to be found.
bool expectExact(CurvePoints const& points, std::uint32_t number)
{
    Exact::RoundedPoint const exact = Exact::round(points.exact(number));
    CurvePoints::Estimate const estimate = points.estimate(number);
    for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_EQ(points.rounded(number)[int(k)], exact.single[int(k)]);
        EXPECT_LE(std::abs(estimate.place[k] - exact.place[k]), estimate.error + exact.error);
    }
    return number >= 6;
}

}  // namespace

TEST(CurvePoints, EstimatesAreWithinTheirErrorAndFloatsAreTheNearest)
{
    std::mt19937 random(1);
    int found = 0;
    for (int i = 0; i < 40000 && !HasFailure(); ++i) {
        float const size = std::pow(10.0f, float(int(random() % 5) - 2));
        bool const isFlat = i % 2 == 0;
        TriangleCorners const first = randomTriangle(random, size, isFlat);
        TriangleCorners const second = randomTriangle(random, size, isFlat);
        if (ExactSigns::areCollinear(first[0], first[1], first[2]) ||
            ExactSigns::areCollinear(second[0], second[1], second[2]))
            continue;
        TriangleContact const contact = contactOf(first, second);
        OperandSoup const soup = soupOf(first, second);
        CurvePoints points(soup);
        for (std::size_t k = 0; k < std::size_t(contact.count); ++k)
            found += expectExact(points, points.add(contact.points[k], 0, 1));
    }
    EXPECT_GT(found, 5000);
}

TEST(CurvePoints, OnePointHasOneNumber)
{
    std::mt19937 random(2);
    int asked = 0;
    for (int i = 0; i < 5000; ++i) {
        TriangleCorners const first = randomTriangle(random, 1, false);
        TriangleCorners const second = randomTriangle(random, 1, false);
        TriangleContact const contact = contactOf(first, second);
        if (contact.count != 2)
            continue;
        OperandSoup const soup = soupOf(first, second);
        CurvePoints points(soup);
        std::uint32_t const from = points.add(contact.points[0], 0, 1);
        std::uint32_t const to = points.add(contact.points[1], 0, 1);
        EXPECT_NE(from, to);
        EXPECT_EQ(points.add(contact.points[0], 0, 1), from);
        EXPECT_EQ(points.add(contact.points[1], 0, 1), to);
        EXPECT_EQ(points.size(), 8u);
        ++asked;
    }
    EXPECT_GT(asked, 100);
}
