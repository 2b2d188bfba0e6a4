// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/mesh/UMesh.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Soup.h"
#include "tools/PartSection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Vector = UVector3<float>;

SectionLines sectionOf(Soup const& soup, Point const& on, Vector const& normal,
                       UMatrix4<float> const& matrix = {})
{
    return sectionOfPart(*kernelOf(soup)->readMesh(), matrix, on, normal, {});
}

double lengthOf(SectionLines const& section)
{
    double length = 0;
    for (auto const& [a, b] : section.lines)
        length += double((b - a).GetLength());
    return length;
}

bool hasCorner(SectionLines const& section, Point const& at)
{
    return std::any_of(section.corners.begin(), section.corners.end(),
                       [&](Point const& corner) { return (corner - at).GetLength() < 1e-4f; });
}

}  // namespace

TEST(PartSection, OfABlockIsItsOutlineWithFourCorners)
{
    SectionLines const section = sectionOf(box(8, 6, 4, {1, 2, 3}), {0, 0, 4.5f}, {0, 0, 2});
    EXPECT_NEAR(lengthOf(section), 28, 1e-4);
    ASSERT_EQ(section.corners.size(), 4u) << "points within a side are none";
    for (Point const& corner : {Point(1, 2, 4.5f), {9, 2, 4.5f}, {9, 8, 4.5f}, {1, 8, 4.5f}})
        EXPECT_TRUE(hasCorner(section, corner)) << corner.X() << ", " << corner.Y();
}

TEST(PartSection, ObliqueOnesLieOnThePlaneAndInThePart)
{
    Vector const normal(1, 2, 3);
    Point const on(4, 3, 2);
    SectionLines const section = sectionOf(box(8, 6, 4), on, normal);
    ASSERT_FALSE(section.lines.empty());
    for (auto const& [a, b] : section.lines)
        for (Point const& end : {a, b}) {
            EXPECT_NEAR((end - on) | normal, 0, 1e-4);
            EXPECT_TRUE(end.X() >= 0 && end.X() <= 8 && end.Y() >= 0 && end.Y() <= 6 &&
                        end.Z() >= 0 && end.Z() <= 4);
        }
}

TEST(PartSection, FollowsTheMatrixOfThePart)
{
    UMatrix4<float> matrix;
    matrix(0, 3) = 100;
    matrix(2, 3) = 10;
    SectionLines const section = sectionOf(box(8, 6, 4), {0, 0, 12}, {0, 0, 1}, matrix);
    EXPECT_NEAR(lengthOf(section), 28, 1e-4);
    EXPECT_TRUE(hasCorner(section, {100, 0, 12}));
    EXPECT_TRUE(sectionOf(box(8, 6, 4), {0, 0, 12}, {0, 0, 1}).lines.empty());
}

TEST(PartSection, WhatLiesInThePlaneIsMetOnce)
{
    // A vertex on the plane counts as above it, so that the part ends there or goes through it.
    EXPECT_TRUE(sectionOf(box(8, 6, 4), {0, 0, 0}, {0, 0, 1}).lines.empty());
    EXPECT_NEAR(lengthOf(sectionOf(box(8, 6, 4), {0, 0, 4}, {0, 0, 1})), 28, 1e-4);
}

TEST(PartSection, FacetsOfACurveAreNoCornersAndOpenEndsAre)
{
    Soup tube;
    constexpr unsigned sides = 120;
    for (unsigned i = 0; i < sides; ++i) {
        double const angle = 2 * M_PI * i / sides;
        tube.add(Point(float(std::cos(angle)), float(std::sin(angle)), -1));
        tube.add(Point(float(std::cos(angle)), float(std::sin(angle)), 1));
    }
    for (unsigned i = 0; i < sides; ++i) {
        unsigned const next = (i + 1) % sides;
        tube.add(2 * i, 2 * next, 2 * next + 1);
        tube.add(2 * i, 2 * next + 1, 2 * i + 1);
    }
    EXPECT_TRUE(sectionOf(tube, {}, {0, 0, 1}).corners.empty());
    tube.triangles.resize(sides);
    EXPECT_EQ(sectionOf(tube, {}, {0, 0, 1}).corners.size(), 2u);
}

TEST(PartSection, CanBeGivenUp)
{
    EXPECT_THROW(sectionOfPart(*kernelOf(box(1, 1, 1))->readMesh(), {}, {}, {0, 0, 1},
                               [] { throw Mell::AbortException("Aborting..."); }),
                 Mell::AbortException);
}
