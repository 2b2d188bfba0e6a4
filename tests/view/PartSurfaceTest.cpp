// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartSurface.h"
#include "host/view/Transforms.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace {

MeshArrays arraysOf(Soup const& soup)
{
    return {soup.points, soup.triangles};
}

/// As the shaders do it.
UVector3<double> unfolded(PartSurface::Vertex const& vertex)
{
    double const x = vertex.facet[0] / 32767.0, y = vertex.facet[1] / 32767.0;
    UVector3<double> n(x, y, 1 - std::abs(x) - std::abs(y));
    if (n.Z() < 0) {
        n.X() = (1 - std::abs(y)) * (x < 0 ? -1 : 1);
        n.Y() = (1 - std::abs(x)) * (y < 0 ? -1 : 1);
    }
    return n.Normalize();
}

std::size_t bytesOf(PartSurface const& surface)
{
    return surface.vertices.size() * sizeof(PartSurface::Vertex) +
           surface.indices.size() * sizeof(std::uint32_t);
}

}  // namespace

TEST(PartSurface, HasTheSameTrianglesTheSameWayRound)
{
    for (NamedSoup const& named : closedMeshes()) {
        PartSurface const surface(arraysOf(named.soup));
        ASSERT_EQ(surface.indices.size(), named.soup.triangles.size() * 3) << named.name;
        for (std::size_t t = 0; t < named.soup.triangles.size(); ++t) {
            auto const corner = [&](int k) {
                return surface.vertices[surface.indices[t * 3 + k]].position;
            };
            auto const original = [&](int k) {
                return named.soup.points[named.soup.triangles[t][k]];
            };
            bool isSame = false;
            for (int turn = 0; turn < 3; ++turn)
                isSame = isSame ||
                         (corner(turn) == original(0) && corner((turn + 1) % 3) == original(1) &&
                          corner((turn + 2) % 3) == original(2));
            ASSERT_TRUE(isSame) << named.name << " " << t;
        }
    }
}

TEST(PartSurface, EachTriangleHasItsNormalInALastCornerOfItsOwn)
{
    for (NamedSoup const& named : closedMeshes()) {
        PartSurface const surface(arraysOf(named.soup));
        std::set<std::uint32_t> lastCorners;
        for (std::size_t t = 0; t < named.soup.triangles.size(); ++t) {
            auto const p = [&](int k) {
                UPoint3<float> const q = surface.vertices[surface.indices[t * 3 + k]].position;
                return UPoint3<double>(q.X(), q.Y(), q.Z());
            };
            UVector3<double> normal = (p(1) - p(0)) * (p(2) - p(0));
            normal.Normalize();
            std::uint32_t const last = surface.indices[t * 3 + 2];
            EXPECT_TRUE(lastCorners.insert(last).second) << named.name;
            EXPECT_LT((unfolded(surface.vertices[last]) - normal).GetLength(), 1e-4) << named.name;
        }
    }
}

TEST(PartSurface, TakesFortyBytesPerTriangleOfAClosedMeshAtMost)
{
    for (NamedSoup const& named : closedMeshes())
        EXPECT_LE(bytesOf(PartSurface(arraysOf(named.soup))), 40 * named.soup.triangles.size())
            << named.name;
    Soup const large = sphere(1, 100, 100);
    EXPECT_NEAR(double(bytesOf(PartSurface(arraysOf(large)))) / double(large.triangles.size()), 28,
                0.5);
}

TEST(PartSurface, AnEmptyMeshAndATriangleOfNoAreaAreNoHarm)
{
    EXPECT_TRUE(PartSurface(MeshArrays()).indices.empty());
    Soup flat;
    flat.points = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    flat.triangles = {{0, 1, 2}, {1, 1, 1}};
    EXPECT_EQ(PartSurface(arraysOf(flat)).indices.size(), 6u);
}

TEST(PlacedBack, PointsOnTheRayKeepTheirDistances)
{
    UMatrix4<float> matrix;
    float const values[3][4] = {{0.5f, -2, 0, 7}, {1, 3, 0.25f, -4}, {0, 1, -2, 9}};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            matrix(row, column) = values[row][column];
    PickTree::Ray const ray{{1, 2, 3}, {0.25, 0.5, -0.75}, true};
    PickTree::Ray const local = placedBack(ray, matrix);
    EXPECT_TRUE(local.onlyFront);
    for (double const distance : {0.0, 1.0, 17.0}) {
        UPoint3<double> const p = local.origin + local.direction * distance;
        UPoint3<float> const world =
            matrix * UPoint3<float>(float(p.X()), float(p.Y()), float(p.Z()));
        UPoint3<double> const expected = ray.origin + ray.direction * distance;
        EXPECT_NEAR(world.X(), expected.X(), 1e-5);
        EXPECT_NEAR(world.Y(), expected.Y(), 1e-5);
        EXPECT_NEAR(world.Z(), expected.Z(), 1e-5);
    }
}

TEST(PartSurface, IsSolidIfItIsClosedAndFacesOutwardEverywhere)
{
    auto const isSolid = [](Soup const& soup) { return PartSurface(arraysOf(soup)).isSolid; };
    EXPECT_TRUE(isSolid(box(4, 3, 2, {100, 0, 0})));
    EXPECT_TRUE(isSolid(torus(20, 8, 30, 20)));
    EXPECT_TRUE(isSolid(crossingBoxes()));
    EXPECT_FALSE(isSolid(openBox(4, 3, 2)));
    Soup inside = box(4, 3, 2);
    inside.flip();
    EXPECT_FALSE(isSolid(inside));
    // One of two, small enough not to change the volume's sign.
    inside.append(box(40, 30, 20, {50, 0, 0}));
    EXPECT_FALSE(isSolid(inside));
    Soup turned = box(4, 3, 2);
    std::swap(turned.triangles[0][0], turned.triangles[0][1]);
    EXPECT_FALSE(isSolid(turned));
}
