// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/SectionContour.h"
#include "tests/connectors/ConnectorScene.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// The contours of a flat mesh.
std::vector<SectionContour> contoursOf(Soup const& soup)
{
    auto const kernel = kernelOf(soup);
    return extractSectionContours(kernel.get());
}

Soup flat(std::vector<UPoint2<float>> const& points,
          std::vector<std::array<std::uint32_t, 3>> const& triangles)
{
    Soup soup;
    for (UPoint2<float> const& p : points)
        soup.add({p.X(), p.Y(), 0});
    soup.triangles = triangles;
    return soup;
}

}  // namespace

TEST(SectionContours, AWalkRunsAgainstTheEdgesWithItsFirstPointDoubled)
{
    auto const contours =
        contoursOf(flat({{0, 0}, {1, 0}, {1, 1}, {0, 1}}, {{0, 1, 2}, {0, 2, 3}}));
    ASSERT_EQ(contours.size(), 1u);
    // It begins with the first vertex of the first border edge, away from the second one.
    EXPECT_EQ(contours[0], (SectionContour{{0, 0, 0}, {0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}}));
}

TEST(SectionContours, ALoneTriangleIsAContour)
{
    auto const contours = contoursOf(flat({{0, 0}, {1, 0}, {0, 1}}, {{0, 1, 2}}));
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_EQ(contours[0].size(), 4u);
}

TEST(SectionContours, AFaceWithoutBorderHasNone)
{
    Soup tetrahedron;
    for (UPoint3<float> const& p : {UPoint3<float>(0, 0, 0), {1, 0, 0}, {0, 1, 0}, {0, 0, 1}})
        tetrahedron.add(p);
    tetrahedron.triangles = {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
    EXPECT_TRUE(contoursOf(tetrahedron).empty());
    EXPECT_TRUE(contoursOf({}).empty());
}

TEST(SectionContours, OuterContoursRunClockwiseAndThoseOfHolesAnticlockwise)
{
    auto const section = sectionOf({rectangle(-20, -10, 20, 10), rectangle(-5, -5, 5, 5, true)});
    ASSERT_EQ(section->contours.size(), 2u);
    std::vector<double> areas;
    for (SectionContour const& contour : section->contours) {
        EXPECT_EQ(contour[0], contour[1]);
        areas.push_back(signedArea(contour));
    }
    std::sort(areas.begin(), areas.end());
    EXPECT_NEAR(areas[0], -800, 1e-2);
    EXPECT_NEAR(areas[1], 100, 1e-2);
}

TEST(SectionContours, FacesThatTouchInAPointHaveContoursOfTheirOwn)
{
    auto const contours =
        contoursOf(flat({{0, 0}, {1, 0}, {0, 1}, {-1, 0}, {0, -1}}, {{0, 1, 2}, {0, 3, 4}}));
    ASSERT_EQ(contours.size(), 2u);
    EXPECT_EQ(contours[0].size(), 4u);
    EXPECT_EQ(contours[1].size(), 4u);
}

TEST(SectionContours, TrianglesAreNumberedAndLinkedAfterwards)
{
    auto const section = sectionOf({rectangle(-20, -10, 20, 10)});
    auto const mesh = section->cap.readMesh();
    for (std::size_t t = 0; t < mesh->triangles.size(); ++t)
        EXPECT_EQ(mesh->triangles[t]->cID(), t);
    auto const links = [&](UTriangle<float> const* t) {
        int count = 0;
        for (int e = 0; e < 3; ++e)
            count += t->cFFp(e) != nullptr;
        return count;
    };
    EXPECT_TRUE(std::all_of(mesh->triangles.begin(), mesh->triangles.end(),
                            [&](auto const* t) { return links(t) > 0; }));
}

TEST(SectionContours, ADegenerateTriangleDoesNotBreakTheWalk)
{
    // The middle triangle has no area.
    auto const contours = contoursOf(flat({{0, 0}, {2, 0}, {1, 0}, {1, 1}, {1, -1}},
                                          {{0, 2, 3}, {2, 1, 3}, {0, 1, 2}, {0, 4, 1}}));
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_NEAR(std::abs(signedArea(contours[0])), 2, 1e-6);
}
