// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/LapJointParas.h"
#include "connectors/LapJointSolid.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

ClipperLib::Path path(Ring const& ring)
{
    ClipperLib::Path result;
    for (UPoint2<float> const& p : ring)
        result.push_back({ClipperLib::cInt(p.X() * 1000), ClipperLib::cInt(p.Y() * 1000)});
    return result;
}

struct Solid
{
    Solid(std::vector<Ring> const& rings, bool tongue, LapJointParas const& paras = {},
          UPoint3<float> const& centre = {0, 0, 0})
    {
        std::vector<ClipperLib::Path> paths;
        for (Ring const& ring : rings)
            paths.push_back(path(ring));
        mesh = notchMesh(POLYGON::Polygons(paths), paras, frameOf(*planeAt(centre)), tongue);
    }

    Soup soup() { return soupOf(MeshKernel(mesh.release())); }
    std::unique_ptr<UMesh<float>> mesh;
};

LapJointParas paras(float notchDepth, float backClearance)
{
    LapJointParas p;
    p.notchDepth = notchDepth;
    p.backClearance = backClearance;
    return p;
}

}  // namespace

TEST(LapJointSolid, TongueAndNotchStandAtTheirHeights)
{
    for (auto const& [depth, back] : {std::pair{3.0f, 0.2f}, {3.0f, 0.0f}, {5.5f, 1.0f}}) {
        UPoint3<float> const centre(0, 0, 10);
        Solid tongue({rectangle(0, 0, 10, 5)}, true, paras(depth, back), centre);
        Solid notch({rectangle(0, 0, 10, 5)}, false, paras(depth, back), centre);
        for (std::size_t i = 0; i < tongue.mesh->vertices.size(); i += 2) {
            EXPECT_EQ(tongue.mesh->vertices[i]->cP().Z(), 10 - 0.01f);
            EXPECT_EQ(tongue.mesh->vertices[i + 1]->cP().Z(), 10 + depth);
            EXPECT_EQ(notch.mesh->vertices[i]->cP().Z(), 10);
            EXPECT_EQ(notch.mesh->vertices[i + 1]->cP().Z(), 10 + (depth + back));
        }
    }
}

TEST(LapJointSolid, VerticesGoInPairsAndWallsComeFirst)
{
    Solid const solid({rectangle(0, 0, 10, 5)}, false);
    UMesh<float> const& mesh = *solid.mesh;
    ASSERT_EQ(mesh.vertices.size(), 8u);
    ASSERT_EQ(mesh.triangles.size(), 8u + 4u);
    EXPECT_EQ(mesh.vertexCount, 8u);
    EXPECT_EQ(mesh.triangleCount, 12u);
    for (std::size_t i = 0; i < 8; ++i)
        EXPECT_EQ(mesh.vertices[i]->cID(), i);
    auto const expectCorners = [&](std::size_t t, std::array<std::size_t, 3> const& corners) {
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(mesh.triangles[t]->cV(k), mesh.vertices[corners[std::size_t(k)]]) << t;
    };
    // (top[0], floor[0], top[1]) and (floor[1], top[1], floor[0]).
    expectCorners(0, {1, 0, 3});
    expectCorners(1, {2, 3, 0});
    expectCorners(6, {7, 6, 1});
    expectCorners(7, {0, 1, 6});
    for (std::size_t t = 0; t < 8; ++t)
        EXPECT_EQ(mesh.triangles[t]->cID(), t);
    for (std::size_t t = 8; t < 12; ++t)
        EXPECT_EQ(mesh.triangles[t]->cID(), 0u);
}

TEST(LapJointSolid, OfARingHasWallsThatFaceTheHole)
{
    Soup const soup =
        Solid({rectangle(0, 0, 20, 20), rectangle(5, 5, 15, 15, true)}, false, paras(3, 1)).soup();
    EXPECT_EQ(closedSolidFaults(soup), "");
    EXPECT_NEAR(volumeOf(soup), (400 - 100) * 4, 1e-2);
    EXPECT_EQ(eulerNumberOf(soup), 0);
}

TEST(LapJointSolid, OfTwoOutlinesHasTwoClosedPrisms)
{
    Soup const soup =
        Solid({rectangle(0, 0, 10, 10), rectangle(20, 0, 25, 10)}, true, paras(3, 1)).soup();
    EXPECT_EQ(closedSolidFaults(soup), "");
    EXPECT_EQ(componentsOf(soup), 2u);
    EXPECT_NEAR(volumeOf(soup), 150 * 3.01, 1e-2);
}

TEST(LapJointSolid, OfAnEmptyOutlineIsNone)
{
    EXPECT_EQ(Solid({}, true).mesh, nullptr);
}
