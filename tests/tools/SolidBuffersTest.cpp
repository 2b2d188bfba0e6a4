// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Validator.h"
#include "tests/tools/OutlineScene.h"
#include "tools/CuboidOutline.h"
#include "tools/CuboidProperty.h"
#include "tools/CylinderOutline.h"
#include "tools/CylinderProperty.h"
#include "tools/PolygonOutline.h"
#include "tools/PolygonProperty.h"
#include "tools/PrismMesh.h"

#include <gtest/gtest.h>

namespace {

using Freecut::Ring;
using Freecut::ToolOutlines;
using Point = UPoint3<float>;

/// The three tools, each with round or clear outlines, in a view along no axis.
struct ToolScene
{
    ToolScene() : cuboid(cuboidRecord), cylinder(cylinderRecord), polygon(polygonRecord)
    {
        cuboidRecord.setCuboidLength(8);
        cuboidRecord.setCuboidWidth(6);
        cuboidRecord.setRoundCorners(true);
        cuboidRecord.setCornerRadius(1);
        cylinderRecord.setRadius(5);
        cylinderRecord.setUseNotch(true);
        for (Freecut::VolumeProperty* const record :
             {static_cast<Freecut::VolumeProperty*>(&cuboidRecord),
              static_cast<Freecut::VolumeProperty*>(&cylinderRecord),
              static_cast<Freecut::VolumeProperty*>(&polygonRecord)}) {
            record->setExtrudeVector(camera.get_direction() * 20.0f);
            record->setKeyPoints({camera.get_ref()});
        }
        // Two lobes, one of which falls away.
        Ring points{{0, 0, 0}, {10, 12, 0}, {10, 0, 0}, {4, 3, 0}, {0, 10, 0}};
        for (Point& p : points)
            camera.ViewCSToWCSpoint(p);
        polygonRecord.setKeyPoints(points);
    }

    std::vector<Freecut::VolumeOutline*> outlines() { return {&cuboid, &cylinder, &polygon}; }

    GLCamera camera = freeCamera();
    Freecut::CuboidProperty cuboidRecord;
    Freecut::CylinderProperty cylinderRecord;
    Freecut::PolygonProperty polygonRecord;
    Freecut::CuboidOutline cuboid;
    Freecut::CylinderOutline cylinder;
    Freecut::PolygonOutline polygon;
};

Ring pointsOf(std::vector<float> const& buffer)
{
    Ring points;
    for (std::size_t i = 0; i + 2 < buffer.size(); i += 3)
        points.push_back({buffer[i], buffer[i + 1], buffer[i + 2]});
    return points;
}

/// The solid that the tool's mesh describes.
Soup cutSolid(Freecut::VolumeOutline const& outline)
{
    auto* const mesh = new UMesh<float>;
    Freecut::Loops const& top = outline.outlines().topLoops;
    UVector3<float> const extrudeVector = outline.record().getExtrudeVector();
    Freecut::fillWithPrisms(*mesh, top, Freecut::translated(top, -extrudeVector), extrudeVector);
    return soupOf(MeshKernel(mesh));
}

void addFan(Soup& soup, Ring const& points, std::size_t first, std::size_t count, bool isTurned)
{
    for (std::size_t k = 1; k + 1 < count; ++k) {
        std::uint32_t const a = soup.add(points[first]);
        std::uint32_t const b = soup.add(points[first + k]);
        std::uint32_t const c = soup.add(points[first + k + 1]);
        isTurned ? soup.add(a, c, b) : soup.add(a, b, c);
    }
}

/// What is drawn from points alone: the faces that look down are turned here, as nothing tells a
/// viewer where they look.
Soup drawnFromPoints(Freecut::VolumeOutline const& outline, bool isCuboid)
{
    ToolOutlines const& outlines = outline.outlines();
    Ring const points = pointsOf(outlines.previewBuffer);
    std::size_t n = 0;
    for (Ring const& ring : outlines.topLoops)
        n += ring.size();
    Soup soup;
    std::size_t at = 0;
    if (isCuboid) {
        addFan(soup, points, 0, n, false);
        addFan(soup, points, n, n, true);
        at = 2 * n;
    }
    for (std::size_t i = 0; i < n; ++i, at += 4)
        addFan(soup, points, at, 4, false);
    for (bool isBottom = true; at + 2 < points.size(); at += 3, isBottom = !isBottom)
        addFan(soup, points, at, 3, isBottom);
    return soup;
}

/// What is drawn as triangles.
Soup drawnTriangles(Freecut::VolumeOutline const& outline)
{
    Ring const points = pointsOf(outline.outlines().previewBuffer);
    Soup soup;
    for (std::size_t at = 0; at + 2 < points.size(); at += 3)
        addFan(soup, points, at, 3, false);
    return soup;
}

void expectSameSolid(Soup drawn, Soup const& solid)
{
    EXPECT_NEAR(volumeOf(drawn), volumeOf(solid), volumeOf(solid) * 1e-5);
    // Moved outlines have teeth of 0.001 mm, where fans overlap.
    EXPECT_NEAR(areaOf(drawn), areaOf(solid), areaOf(solid) * 5e-4);
    auto const vector = vectorAreaOf(drawn);
    EXPECT_NEAR(vector.GetLength(), 0, areaOf(solid) * 1e-5) << "closed";
}

}  // namespace

TEST(SolidBuffers, WithoutKeyPointsThereIsNoSolid)
{
    for (bool const isOpenGL33 : {false, true}) {
        ToolScene scene;
        for (Freecut::VolumeProperty* const record :
             {static_cast<Freecut::VolumeProperty*>(&scene.cuboidRecord),
              static_cast<Freecut::VolumeProperty*>(&scene.cylinderRecord),
              static_cast<Freecut::VolumeProperty*>(&scene.polygonRecord)})
            record->setKeyPoints({});
        for (Freecut::VolumeOutline* const outline : scene.outlines()) {
            outline->update(scene.camera, false, isOpenGL33);
            outline->buildSolidBuffers(isOpenGL33);
            EXPECT_TRUE(outline->outlines().previewBuffer.empty());
            EXPECT_TRUE(cutSolid(*outline).points.empty());
            EXPECT_TRUE(outline->outerOutline().empty());
        }
    }
}

TEST(SolidBuffers, BothPathsDrawTheSolidThatCuts)
{
    ToolScene scene;
    for (bool const hasClearance : {false, true})
        for (Freecut::VolumeOutline* const outline : scene.outlines()) {
            bool const isCuboid = outline == &scene.cuboid;
            for (Freecut::VolumeProperty* const record :
                 {static_cast<Freecut::VolumeProperty*>(&scene.cuboidRecord),
                  static_cast<Freecut::VolumeProperty*>(&scene.cylinderRecord),
                  static_cast<Freecut::VolumeProperty*>(&scene.polygonRecord)}) {
                record->setClearanceEnabled(hasClearance);
                record->setClearance(0.2f);
            }
            outline->update(scene.camera, false, true);
            outline->buildSolidBuffers(true);
            Soup const solid = cutSolid(*outline);
            EXPECT_GT(volumeOf(solid), 100);
            expectSameSolid(drawnFromPoints(*outline, isCuboid), solid);
            EXPECT_TRUE(outline->outlines().normalBuffer.empty());
            outline->update(scene.camera, false, false);
            outline->buildSolidBuffers(false);
            expectSameSolid(drawnTriangles(*outline), solid);
        }
}

TEST(SolidBuffers, EachCornerOfATriangleHasItsUnitNormal)
{
    ToolScene scene;
    for (Freecut::VolumeOutline* const outline : scene.outlines()) {
        outline->update(scene.camera, false, false);
        outline->buildSolidBuffers(false);
        Ring const points = pointsOf(outline->outlines().previewBuffer);
        Ring const normals = pointsOf(outline->outlines().normalBuffer);
        ASSERT_EQ(normals.size(), points.size());
        ASSERT_EQ(points.size() % 3, 0u);
        for (std::size_t i = 0; i < points.size(); i += 3) {
            UVector3<float> const expected =
                ((points[i + 1] - points[i]) * (points[i + 2] - points[i])).Normalize();
            for (std::size_t k = 0; k < 3; ++k)
                EXPECT_NEAR((normals[i + k] - Point(expected)).GetLength(), 0, 1e-6);
        }
    }
}

TEST(SolidBuffers, ACuboidIsDrawnCapsFirst)
{
    ToolScene scene;
    scene.cuboidRecord.setRoundCorners(false);
    scene.cuboid.update(scene.camera, false, true);
    scene.cuboid.buildSolidBuffers(true);
    ToolOutlines const& outlines = scene.cuboid.outlines();
    Ring const points = pointsOf(outlines.previewBuffer);
    ASSERT_EQ(points.size(), 6u * 4);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(points[i], outlines.topRing()[i]);
        EXPECT_EQ(points[4 + i], outlines.bottomRing()[i]);
        EXPECT_EQ(points[8 + 4 * i], outlines.topRing()[i]);
        EXPECT_EQ(points[9 + 4 * i], outlines.bottomRing()[i]);
        EXPECT_EQ(points[10 + 4 * i], outlines.bottomRing()[(i + 1) % 4]);
        EXPECT_EQ(points[11 + 4 * i], outlines.topRing()[(i + 1) % 4]);
    }
}

TEST(SolidBuffers, AsTrianglesACuboidsCapsAreFansAroundItsCentre)
{
    ToolScene scene;
    scene.cuboidRecord.setRoundCorners(false);
    scene.cuboid.update(scene.camera, false, false);
    scene.cuboid.buildSolidBuffers(false);
    Ring const points = pointsOf(scene.cuboid.outlines().previewBuffer);
    ASSERT_EQ(points.size(), 3u * (4 + 4 + 8));
    Point const center = scene.cuboidRecord.getKeyPoints()[0];
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(points[3 * i], center);
        EXPECT_EQ(points[12 + 3 * i], center - scene.cuboidRecord.getExtrudeVector());
    }
}

TEST(SolidBuffers, OthersAreDrawnSidesFirst)
{
    ToolScene scene;
    scene.cylinderRecord.setUseNotch(false);
    scene.cylinder.update(scene.camera, false, true);
    scene.cylinder.buildSolidBuffers(true);
    ToolOutlines const& outlines = scene.cylinder.outlines();
    std::size_t const n = outlines.topRing().size();
    Ring const points = pointsOf(outlines.previewBuffer);
    ASSERT_EQ(points.size(), 4 * n + 2 * 3 * (n - 2));
    EXPECT_EQ(points[0], outlines.topRing()[0]);
    EXPECT_EQ(points[1], outlines.bottomRing()[0]);
    // Each triangle of the bottom is followed by its image at the top.
    UVector3<float> const extrudeVector = scene.cylinderRecord.getExtrudeVector();
    for (std::size_t at = 4 * n; at < points.size(); at += 6)
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_EQ(points[at + 3 + k], points[at + k] + extrudeVector);
}
