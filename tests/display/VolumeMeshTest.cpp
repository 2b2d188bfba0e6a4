// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/VolumeViewProvider.h"
#include "tests/display/DrawnTool.h"
#include "tests/support/Validator.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/VolumeOutline.h"

#include <gtest/gtest.h>

namespace {

using Freecut::CuboidGraphicObject;
using Freecut::CylinderGraphicObject;
using Freecut::PolygonGraphicObject;

/// A cube of 20 mm, through which tools are 20.4 mm deep.
class CubeScene : public DrawnDocument
{
public:
    CubeScene() { add(box(20, 20, 20), "part"); }

    CuboidGraphicObject* cuboid(bool hasClearance, int direction, float clearance,
                                bool roundCorners = false, float radius = 1)
    {
        auto* const tool = draw<CuboidGraphicObject>({{10, 10}});
        tool->getProperty().setCuboidParameters(hasClearance, direction, clearance, false, 0, 178,
                                                roundCorners, radius, false, 2, 6, 8, 0);
        return tool;
    }

    CylinderGraphicObject* cylinder(bool hasClearance, int direction, float tolerance = 0.025f)
    {
        auto* const tool = draw<CylinderGraphicObject>({{10, 10}});
        tool->getProperty().setShapeParameters(hasClearance, direction, 0.5f, false, 0, 178, false,
                                               2, 5, false, 2, 2, 0, tolerance);
        return tool;
    }

    PolygonGraphicObject* polygon(std::vector<UPoint2<float>> const& points, bool hasClearance,
                                  int direction, float clearance = 0.5f, bool roundCorners = false,
                                  float radius = 1)
    {
        auto* const tool = draw<PolygonGraphicObject>(points);
        tool->getProperty().setShapeParameters(hasClearance, direction, clearance, false, 0, 178,
                                               roundCorners, radius, false, 2);
        return tool;
    }
};

std::vector<UPoint2<float>> const triangle{{2, 2}, {14, 2}, {2, 12}};
constexpr double depth = 20.4;

/// Walls where two points of an outline coincide have no area; they are left out here.
Soup withoutFlatTriangles(Soup soup)
{
    soup.joinPoints();
    std::erase_if(soup.triangles,
                  [](auto const& t) { return t[0] == t[1] || t[1] == t[2] || t[2] == t[0]; });
    return soup;
}

std::vector<double> volumesOf(std::vector<UMesh<float>*> const& meshes)
{
    std::vector<double> volumes;
    for (UMesh<float>* const mesh : meshes) {
        Soup const soup = withoutFlatTriangles(soupOf(mesh));
        EXPECT_EQ(borderEdgesOf(soup), 0u);
        volumes.push_back(volumeOf(soup));
    }
    return volumes;
}

}  // namespace

TEST(VolumeMesh, ACuboidHasEightVerticesAndTwelveTriangles)
{
    CubeScene scene;
    Soup const soup = soupOf(scene.cuboid(false, 0, 0)->createMesh());
    EXPECT_EQ(soup.points.size(), 8u);
    EXPECT_EQ(soup.triangles.size(), 12u);
    EXPECT_EQ(closedSolidFaults(soup), "");
    EXPECT_NEAR(volumeOf(soup), 6 * 8 * depth, 0.01);
}

TEST(VolumeMesh, ACylinderHasEightToTwoHundredSections)
{
    for (auto const& [tolerance, sections] :
         {std::pair(1000.0f, 8u), {0.025f, 32u}, {1e-5f, 200u}}) {
        CubeScene scene;
        Soup const soup = soupOf(scene.cylinder(false, 0, tolerance)->createMesh());
        EXPECT_EQ(soup.points.size(), 2 * sections);
        EXPECT_EQ(closedSolidFaults(soup), "");
        double const area = sections * 12.5 * std::sin(2 * M_PI / sections);
        EXPECT_NEAR(volumeOf(soup), area * depth, 0.05);
    }
}

TEST(VolumeMesh, APolygonIsItsPrism)
{
    CubeScene scene;
    Soup const soup = soupOf(scene.polygon(triangle, false, 0)->createMesh());
    EXPECT_EQ(soup.points.size(), 6u);
    EXPECT_EQ(soup.triangles.size(), 8u);
    EXPECT_EQ(closedSolidFaults(soup), "");
    EXPECT_NEAR(volumeOf(soup), 60 * depth, 0.1);
}

TEST(VolumeMesh, ASelfCrossingPolygonHasAShellForEachSolidLoop)
{
    CubeScene scene;
    // Two crossings: the outer lobes are solid, the middle one falls away.
    auto* const tool = scene.polygon(
        {{0, 0}, {6, 8}, {12, 0}, {18, 8}, {18, 4}, {12, 8}, {6, 4}, {0, 4}}, false, 0);
    Soup const soup = soupOf(tool->createMesh());
    auto* const provider = static_cast<Freecut::VolumeViewProvider*>(tool->getViewProvider());
    auto const& outlines = provider->getOutline()->outlines();
    EXPECT_GE(outlines.solidLoops.size(), 2u);
    EXPECT_GE(outlines.residualLoops.size(), 1u);
    EXPECT_EQ(componentsOf(soup), outlines.solidLoops.size());
    EXPECT_EQ(closedSolidFaults(soup), "");
}

TEST(VolumeMesh, TheDirectionTellsWhichSolidsThereAre)
{
    double const nominal = 48 * depth, inner = 7 * 5 * depth;
    double const outer = (48 + 28 * 0.5 + M_PI * 0.25) * depth;
    std::vector<std::pair<double, double>> const expected{
        {inner, nominal}, {nominal, outer}, {inner, outer}};
    for (int const direction : {0, 1, 2}) {
        CubeScene scene;
        auto const volumes = volumesOf(scene.cuboid(true, direction, 0.5f)->createInandOutMesh());
        ASSERT_EQ(volumes.size(), 2u);
        EXPECT_NEAR(volumes[0], expected[std::size_t(direction)].first, 1) << direction;
        EXPECT_NEAR(volumes[1], expected[std::size_t(direction)].second, 1) << direction;
    }
}

TEST(VolumeMesh, OfAPolygonTheRepeatOfTheFirstPointIsLeftOut)
{
    CubeScene scene;
    auto const meshes = scene.polygon(triangle, true, 0)->createInandOutMesh();
    ASSERT_EQ(meshes.size(), 2u);
    EXPECT_EQ(meshes[1]->vertexCount, 6u);
    auto const volumes = volumesOf(meshes);
    EXPECT_LT(volumes[0], volumes[1]);
    EXPECT_NEAR(volumes[1], 60 * depth, 0.1);
}

TEST(VolumeMesh, OutsideIsWiderByTheClearanceOnEverySide)
{
    CubeScene scene;
    auto const meshes = scene.cylinder(true, 1)->createInandOutMesh();
    ASSERT_EQ(meshes.size(), 2u);
    for (int const which : {0, 1}) {
        Soup const soup = soupOf(meshes[std::size_t(which)]);
        for (auto const& p : soup.points)
            EXPECT_NEAR(std::hypot(p.X() - 10, p.Y() - 10), which ? 5.5 : 5, which ? 0.003 : 1e-4);
    }
}

TEST(VolumeMesh, WhatIsSwallowedLeavesTheOuterSolidAlone)
{
    CubeScene scene;
    EXPECT_EQ(volumesOf(scene.cuboid(true, 2, 3.5f)->createInandOutMesh()).size(), 1u);
    EXPECT_EQ(volumesOf(scene.polygon(triangle, true, 0, 5)->createInandOutMesh()).size(), 1u);
}

TEST(VolumeMesh, OfACuboidOrACylinderWithoutPointsHasNoVertices)
{
    CubeScene scene;
    auto* const cuboid = scene.draw<CuboidGraphicObject>({});
    cuboid->getProperty().setCuboidParameters(true, 2, 0.5f, false, 0, 178, true, 1, false, 2, 6, 8,
                                              0);
    auto* const cylinder = scene.draw<CylinderGraphicObject>({});
    cylinder->getProperty().setShapeParameters(true, 2, 0.5f, false, 0, 178, false, 2, 5, true, 2,
                                               2, 0, 0.025f);
    for (auto const& meshes : {cuboid->createInandOutMesh(), cylinder->createInandOutMesh()}) {
        EXPECT_EQ(meshes.size(), 1u);
        for (UMesh<float>* const mesh : meshes) {
            EXPECT_TRUE(soupOf(mesh).points.empty());
        }
    }
    EXPECT_TRUE(soupOf(cuboid->createMesh()).points.empty());
    EXPECT_TRUE(soupOf(cylinder->createMesh()).points.empty());
}

TEST(VolumeMesh, RoundingTooFineToCountLeavesTheOuterSolidWithoutVertices)
{
    for (bool const isCuboid : {true, false}) {
        CubeScene scene;
        auto const meshes =
            isCuboid ? scene.cuboid(true, 0, 0.5f, true, 0.0005f)->createInandOutMesh()
                     : scene.polygon(triangle, true, 0, 0.5f, true, 0.0005f)->createInandOutMesh();
        ASSERT_EQ(meshes.size(), 2u);
        EXPECT_FALSE(meshes[0]->vertices.empty());
        EXPECT_TRUE(meshes[1]->vertices.empty());
        for (UMesh<float>* const mesh : meshes)
            delete mesh;
    }
}

TEST(VolumeMesh, RoundedSolidsAreClosed)
{
    for (int const direction : {0, 1, 2}) {
        CubeScene scene;
        EXPECT_EQ(volumesOf(scene.cuboid(true, direction, 0.3f, true)->createInandOutMesh()).size(),
                  2u);
        EXPECT_EQ(
            volumesOf(scene.polygon(triangle, true, direction, 0.3f, true)->createInandOutMesh())
                .size(),
            2u);
        EXPECT_NEAR(volumesOf({scene.cuboid(false, 0, 0, true, 2)->createMesh()})[0],
                    (48 - 4 * (4 - M_PI)) * depth, 0.2);
    }
}

TEST(VolumeMesh, InAPreviewTheSolidsAreNotMovedAgain)
{
    CubeScene scene;
    auto* const tool = scene.cuboid(true, 2, 0.5f);
    tool->getProperty().setPreviewing(true);
    tool->getViewProvider()->updateGeometry();
    for (int call = 0; call < 2; ++call)
        EXPECT_NEAR(volumesOf(tool->createInandOutMesh())[0], 35 * depth, 1);
    tool->getProperty().setPreviewing(false);
    tool->getViewProvider()->updateGeometry();
    EXPECT_NEAR(volumesOf(tool->createInandOutMesh())[0], 35 * depth, 1);
    // Without an update in between the bottom is moved down once more.
    EXPECT_NEAR(volumesOf(tool->createInandOutMesh())[0], 2 * 35 * depth, 2);
}

TEST(VolumeMesh, WithoutAViewThereIsNoMesh)
{
    TestDocument test;
    auto* const inDocument = new CuboidGraphicObject;
    test.document->addObject(inDocument, "tool", true);
    PolygonGraphicObject polygon;
    CylinderGraphicObject cylinder;
    EXPECT_EQ(inDocument->createMesh(), nullptr);
    EXPECT_EQ(polygon.createMesh(), nullptr);
    EXPECT_EQ(cylinder.createMesh(), nullptr);
    EXPECT_TRUE(inDocument->createInandOutMesh().empty());
    EXPECT_TRUE(polygon.createInandOutMesh().empty());
    EXPECT_TRUE(cylinder.createInandOutMesh().empty());
}

TEST(VolumeMesh, ToolsRunAlongTheViewInEveryStandardView)
{
    for (int const type : {0, 1, 2, 3, 4, 5, 6}) {
        DrawnDocument scene(type);
        scene.add(box(20, 20, 20, {-10, -10, -10}), "part");
        auto* const tool = scene.draw<PolygonGraphicObject>({{-3, -2}, {-3, 5}, {4, -2}});
        tool->getProperty().setShapeParameters(true, 2, 0.25f, false, 0, 178, true, 0.5f, false,
                                               type);
        for (double const volume : volumesOf(tool->createInandOutMesh()))
            EXPECT_GT(volume, 10) << "view " << type;
    }
}

TEST(VolumeMesh, OfAnOutlineThatCrossesItselfTooOftenThereIsNone)
{
    std::vector<UPoint2<float>> points;
    for (int i = 1; i <= 2004; ++i) {
        float const at = float(i <= 1002 ? i : 2005 - i) * 0.01f, far = 10.03f;
        bool const isBack = i % 2 == 0;
        UPoint2<float> const from(i <= 1002 ? (isBack ? far : 0) : at,
                                  i <= 1002 ? at : (isBack ? far : 0));
        UPoint2<float> const to(i <= 1002 ? far - from.X() : at, i <= 1002 ? at : far - from.Y());
        points.push_back(from);
        points.push_back(to);
    }
    CubeScene scene;
    PolygonGraphicObject* const tool = scene.polygon(points, true, 2);
    EXPECT_TRUE(tool->createInandOutMesh().empty());
    std::unique_ptr<UMesh<float>> const mesh(tool->createMesh());
    ASSERT_TRUE(mesh);
    EXPECT_TRUE(mesh->vertices.empty());
}
