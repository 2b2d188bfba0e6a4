// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/SectionArea.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using Point = UPoint3<double>;
using Vector = UVector3<double>;

std::optional<double> areaOf(Mesh::DocumentObject const& part, Point const& point,
                             Vector const& normal)
{
    MeshKernel const& kernel = *part.meshProperty->getMesh();
    return sectionArea(*kernel.readMesh(), kernel.getMatrix(), point, normal);
}

}  // namespace

TEST(SectionArea, OfABoxIsThatOfItsCut)
{
    TestDocument test;
    auto const* const part = test.add(box(20, 30, 40), "box");
    EXPECT_NEAR(*areaOf(*part, {0, 0, 10}, {0, 0, 1}), 600, 1e-9);
    EXPECT_NEAR(*areaOf(*part, {0, 0, 10}, {0, 0, -5}), 600, 1e-9);
    EXPECT_NEAR(*areaOf(*part, {7, 0, 0}, {1, 0, 0}), 1200, 1e-9);
    // Through an edge and the opposite one: the height by the diagonal of the floor.
    EXPECT_NEAR(*areaOf(*part, {0, 0, 0}, {3, -2, 0}), 40 * std::hypot(20, 30), 1e-9);
    // Inclined by 45 degrees within the sides.
    EXPECT_NEAR(*areaOf(*part, {10, 15, 20}, {1, 0, 1}), 600 * std::numbers::sqrt2, 1e-9);
    EXPECT_EQ(*areaOf(*part, {0, 0, 41}, {0, 0, 1}), 0);
}

TEST(SectionArea, InAFaceIsThatOfTheSideAbove)
{
    TestDocument test;
    auto const* const part = test.add(box(20, 30, 40), "box");
    EXPECT_NEAR(*areaOf(*part, {0, 0, 40}, {0, 0, 1}), 600, 1e-9);
    EXPECT_EQ(*areaOf(*part, {0, 0, 0}, {0, 0, 1}), 0);
}

TEST(SectionArea, FollowsThePlacementAndLeavesCavitiesOut)
{
    TestDocument test;
    Soup hollow = box(20, 20, 20);
    Soup inner = box(10, 8, 6, {5, 6, 7});
    for (auto& triangle : inner.triangles)
        std::swap(triangle[0], triangle[1]);
    auto const offset = std::uint32_t(hollow.points.size());
    hollow.points.insert(hollow.points.end(), inner.points.begin(), inner.points.end());
    for (auto triangle : inner.triangles) {
        for (auto& corner : triangle)
            corner += offset;
        hollow.triangles.push_back(triangle);
    }
    Mesh::DocumentObject* const part = test.add(hollow, "hollow");
    EXPECT_NEAR(*areaOf(*part, {0, 0, 10}, {0, 0, 1}), 400 - 80, 1e-9);
    part->scale({}, {2, 3, 1});
    part->translate({100, 200, 300}, 0);
    EXPECT_NEAR(*areaOf(*part, {0, 0, 310}, {0, 0, 1}), 6 * (400 - 80), 1e-6);
    part->scale({}, {-1, 1, 1});
    EXPECT_NEAR(*areaOf(*part, {0, 0, 310}, {0, 0, 1}), 6 * (400 - 80), 1e-6);
}

TEST(SectionArea, OfATorusIsThatOfTwoCircles)
{
    TestDocument test;
    auto const* const part = test.add(torus(40, 10, 400, 200), "torus");
    double const circle = std::numbers::pi * 100;
    EXPECT_NEAR(*areaOf(*part, {0, 0, 0}, {1, 0.001, 0}), 2 * circle, 0.002 * circle);
    double const ring = std::numbers::pi * (50 * 50 - 30 * 30);
    EXPECT_NEAR(*areaOf(*part, {0, 0, 0}, {0, 0, 1}), ring, 0.001 * ring);
}

TEST(SectionArea, IsUnknownWhereThePartIsOpen)
{
    TestDocument test;
    auto const* const tray = test.add(openBox(30, 20, 10), "tray");
    EXPECT_FALSE(areaOf(*tray, {10, 10, 5}, {1, 0, 0}));
    bool wasAsked = false;
    auto const* const torusPart = test.add(torus(40, 10, 400, 200), "torus");
    MeshKernel const& kernel = *torusPart->meshProperty->getMesh();
    EXPECT_FALSE(sectionArea(*kernel.readMesh(), kernel.getMatrix(), {}, {0, 0, 1},
                             [&] { return wasAsked = true; }));
    EXPECT_TRUE(wasAsked);
}
