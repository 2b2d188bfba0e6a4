// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/PlaneMesh.h"
#include "platform/mesh/UMesh.h"

#include <gtest/gtest.h>

#include <cmath>

using PlaneMesh::Reach;

namespace {

UBox3<float> const box({0, 0, 0}, {3, 4, 12});  // its diagonal is 13

void expectPoint(UPoint3<float> const& actual, UPoint3<float> const& expected)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-5f) << "component " << i;
}

}  // namespace

TEST(PlaneMesh, CornersLieTheDiagonalAwayFromTheCentre)
{
    auto const corners = PlaneMesh::span(box, {1, 1, 1}, {2, 1, 1}, {1, 3, 1}, Reach::Diagonal);
    expectPoint(corners[0], {14, 1, 1});
    expectPoint(corners[1], {1, 14, 1});
    expectPoint(corners[2], {-12, 1, 1});
    expectPoint(corners[3], {1, -12, 1});
}

TEST(PlaneMesh, ACentreFarFromThePartsEnlargesThePlane)
{
    auto const corners =
        PlaneMesh::span(box, {0, 0, 112}, {1, 0, 112}, {0, 1, 112}, Reach::Diagonal);
    float const diagonal = std::sqrt(9.0f + 16 + 112 * 112);
    expectPoint(corners[0], {diagonal, 0, 112});
}

TEST(PlaneMesh, ZeroComponentsAreSkippedWhenThePlaneIsStretched)
{
    auto const corners =
        PlaneMesh::span(box, {1, 1, 1}, {2, 1, 1}, {1, 3, 1}, Reach::DiagonalAlongAxes);
    expectPoint(corners[0], {14, 1, 1});
    expectPoint(corners[1], {1, 14, 1});
}

TEST(PlaneMesh, TheSmallestComponentStretchesThePlane)
{
    // d1 = (0.6, 0.8, 0), d2 = (0, 0, 1): the smallest component is 0.6.
    auto const corners =
        PlaneMesh::span(box, {0, 0, 0}, {3, 4, 0}, {0, 0, 5}, Reach::DiagonalAlongAxes);
    expectPoint(corners[0], {13.0f, 13.0f / 0.6f * 0.8f, 0});
    expectPoint(corners[1], {0, 0, 13.0f / 0.6f});
}

TEST(PlaneMesh, WhereTheStretchDoesNotReachAcrossThePartsItIsWhatItTakes)
{
    // A rectangle of 10 by 100, turned by 45 degrees: its corners lie nearly on one line. And one
    // that stands on its corner, over a flat part seen from the part's own corner.
    auto const coversBox = [](UBox3<float> const& part, UPoint3<float> const& centre,
                              PlaneMesh::Corners const& corners) {
        for (int corner = 0; corner < 4; ++corner) {
            UPoint3<float> const p(corner & 1 ? part.MaxX() : part.MinX(),
                                   corner & 2 ? part.MaxY() : part.MinY(), centre.Z());
            for (std::size_t i = 0; i < 4; ++i) {
                UVector3<float> const side = corners[(i + 1) % 4] - corners[i];
                UVector3<float> const inward = centre - corners[i], toPoint = p - corners[i];
                float const which = (side * inward).Z();
                if ((side * toPoint).Z() * which < 0)
                    return false;
            }
        }
        return true;
    };
    UBox3<float> const part({0, 0, -10}, {200, 30, 10});
    float const c = std::sqrt(0.5f);
    auto const corner = [&](float x, float y) {
        return UPoint3<float>(100 + c * (x - y), 15 + c * (x + y), 0);
    };
    auto const narrow = PlaneMesh::span(part, {100, 15, 0}, corner(-50, -5), corner(50, -5),
                                        Reach::DiagonalAlongAxes);
    EXPECT_TRUE(coversBox(part, {100, 15, 0}, narrow));
    UBox3<float> const flat({0, 0, 0}, {100, 100, 0.01f});
    auto const diamond =
        PlaneMesh::span(flat, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, Reach::DiagonalAlongAxes);
    EXPECT_TRUE(coversBox(flat, {0, 0, 0}, diamond));
    EXPECT_NEAR(diamond[0].X(), 200, 0.1f);
}

TEST(PlaneMesh, ATinyComponentDoesNotStretchThePlaneBeyondWhatFloatsCanTell)
{
    // 13 / 0.001 would do, but 13 / 0.0001 lies where floats are 0.0078 apart.
    auto const prescribed =
        PlaneMesh::span(box, {0, 0, 0}, {1, 0, 0.001f}, {0, 1, 0}, Reach::DiagonalAlongAxes);
    EXPECT_NEAR(prescribed[0].X(), 13000, 1);
    auto const shortened =
        PlaneMesh::span(box, {0, 0, 0}, {1, 0, 0.0001f}, {0, 1, 0}, Reach::DiagonalAlongAxes);
    // The sides run along (1, -1) and (1, 1), half as long as the diagonal is; seen along them the
    // box reaches (3 + 4) / sqrt(2).
    float const stretch = 4 * 7.0f;
    EXPECT_NEAR(shortened[0].X(), stretch, 0.01f);
    EXPECT_NEAR(shortened[1].Y(), stretch, 0.01f);
    EXPECT_NEAR(shortened[2].Z(), -stretch * 0.0001f, 1e-5f);
}

TEST(PlaneMesh, ANullBoxCountsAsTheOrigin)
{
    auto const corners =
        PlaneMesh::span(UBox3<float>(), {3, 4, 0}, {4, 4, 0}, {3, 5, 0}, Reach::Diagonal);
    expectPoint(corners[0], {8, 4, 0});
}

TEST(PlaneMesh, HasFourVerticesAndTwoTrianglesWithTheSameNormal)
{
    UMesh<float> mesh;
    PlaneMesh::fill(&mesh, {UPoint3<float>(1, 0, 5), {0, 1, 5}, {-1, 0, 5}, {0, -1, 5}});
    ASSERT_EQ(mesh.vertices.size(), 4u);
    ASSERT_EQ(mesh.triangles.size(), 2u);
    int const expected[2][3] = {{0, 1, 2}, {2, 3, 0}};
    for (std::size_t t = 0; t < 2; ++t) {
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(mesh.triangles[t]->V(i), mesh.vertices[std::size_t(expected[t][i])]);
        EXPECT_EQ(mesh.triangles[t]->N(), UVector3<float>(0, 0, 1));
    }
}
