// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/OutlineScene.h"
#include "tools/PolygonOutline.h"
#include "tools/PolygonProperty.h"

#include <gtest/gtest.h>

namespace {

using Freecut::FlatRing;
using Freecut::Loops;
using Freecut::Ring;
using Freecut::TeethEdge;
using Freecut::ToolOutlines;
using Point = UPoint3<float>;

Ring const square{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
Ring const figureEight{{0, 0, 0}, {10, 10, 0}, {10, 0, 0}, {0, 10, 0}};

class PolygonScene
{
public:
    explicit PolygonScene(Ring points) : outline(record)
    {
        record.setKeyPoints(std::move(points));
        record.setExtrudeVector({0, 0, 30});
    }

    ToolOutlines const& update(bool viewChanged = false)
    {
        outline.update(camera, viewChanged, false);
        return outline.outlines();
    }

    GLCamera camera = topCamera();
    Freecut::PolygonProperty record;
    Freecut::PolygonOutline outline;
};

TeethEdge toothedEdge(bool hasTeeth, bool editing, bool applied)
{
    TeethEdge edge;
    edge.hasTeeth = hasTeeth;
    edge.editing = editing;
    edge.applied = applied;
    edge.teethPoints = {{4, 0, 0}, {5, 1, 0}, {6, 0, 0}};
    edge.appliedPoints = {{3, 0, 0}, {5, 2, 0}, {7, 0, 0}};
    return edge;
}

}  // namespace

TEST(PolygonOutline, IsItsPointsClosedByTheFirstOne)
{
    PolygonScene scene(square);
    ToolOutlines const& outlines = scene.update();
    Ring closed = square;
    closed.push_back(square[0]);
    EXPECT_EQ(outlines.solidLoops, Loops{closed});
    EXPECT_TRUE(outlines.residualLoops.empty());
    EXPECT_EQ(outlines.outlineBuffer.size(), 3u * 4) << "drawn without the repeat";
    EXPECT_TRUE(outlines.topLoops.empty());
}

TEST(PolygonOutline, TurnsAnticlockwiseAboutItsDirection)
{
    PolygonScene scene(Ring(square.rbegin(), square.rend()));
    EXPECT_GT(signedArea(seen(scene.update().solidLoops[0], scene.camera)), 0);
    scene.record.setExtrudeVector({0, 0, -30});
    EXPECT_LT(signedArea(seen(scene.update().solidLoops[0], scene.camera)), 0);
}

TEST(PolygonOutline, CoordinatesAreTruncatedToThousandths)
{
    PolygonScene scene({{0.0004f, -0.0009f, 0}, {10.0007f, 0, 0}, {5, 7.1239f, 0}});
    Ring const loop = scene.update().solidLoops[0];
    EXPECT_EQ(loop[0], Point(0, 0, 0));
    EXPECT_EQ(loop[1], Point(10, 0, 0));
    EXPECT_FLOAT_EQ(loop[2].Y(), 7.123f);
}

TEST(PolygonOutline, WhatFallsAwayIsDrawnFirst)
{
    PolygonScene scene(figureEight);
    ToolOutlines const& outlines = scene.update();
    ASSERT_EQ(outlines.solidLoops.size(), 1u);
    ASSERT_EQ(outlines.residualLoops.size(), 1u);
    ASSERT_EQ(outlines.outlineBuffer.size(), 3u * (3 + 3));
    EXPECT_EQ(outlines.outlineBuffer[0], outlines.residualLoops[0][0].X());
    EXPECT_EQ(outlines.outlineBuffer[9], outlines.solidLoops[0][0].X());
}

TEST(PolygonOutline, RoundedLoopsStandBetweenResidualAndNominalOnes)
{
    PolygonScene scene(figureEight);
    scene.record.setRoundCorners(true);
    scene.record.setCornerRadius(0.5f);
    ToolOutlines const& outlines = scene.update();
    ASSERT_EQ(outlines.roundedLoops.size(), 1u);
    std::size_t const rounded = outlines.roundedLoops[0].size();
    EXPECT_GT(rounded, 3u * 3);
    ASSERT_EQ(outlines.outlineBuffer.size(), 3 * (3 + rounded + 3));
    EXPECT_EQ(outlines.outlineBuffer[9], outlines.roundedLoops[0][0].X());
    scene.outline.buildSolidBuffers(false);
    EXPECT_EQ(outlines.topLoops, outlines.roundedLoops);
}

TEST(PolygonOutline, TeethUnderEditRuleOverAppliedOnes)
{
    PolygonScene scene(square);
    auto const pointsWith = [&](bool hasTeeth, bool editing, bool applied) {
        scene.record.setEdgeRecords({toothedEdge(hasTeeth, editing, applied), {}, {}, {}});
        Ring const loop = scene.update().solidLoops[0];
        return std::pair(loop.size() - 1, loop[1].X());
    };
    EXPECT_EQ(pointsWith(true, true, true), std::pair(std::size_t(7), 4.0f));
    EXPECT_EQ(pointsWith(true, true, false), std::pair(std::size_t(7), 4.0f));
    EXPECT_EQ(pointsWith(true, false, true), std::pair(std::size_t(7), 3.0f));
    EXPECT_EQ(pointsWith(true, false, false), std::pair(std::size_t(4), 10.0f));
    EXPECT_EQ(pointsWith(false, false, true), std::pair(std::size_t(4), 10.0f));
}

TEST(PolygonOutline, EachEdgeUnderEditIsALoopFromEndToEnd)
{
    PolygonScene scene(square);
    TeethEdge last = toothedEdge(true, true, false);
    last.teethPoints = {{0, 5, 0}};
    scene.record.setEdgeRecords(
        {toothedEdge(true, true, false), toothedEdge(true, false, true), {}, last});
    ToolOutlines const& outlines = scene.update();
    EXPECT_EQ(outlines.teethLoops, (Loops{{{0, 0, 0}, {4, 0, 0}, {5, 1, 0}, {6, 0, 0}, {10, 0, 0}},
                                          {{0, 10, 0}, {0, 5, 0}, {0, 0, 0}}}));
    EXPECT_EQ(outlines.teethBuffer.size(), 3u * 8);
}

TEST(PolygonOutline, CrossingTeethAreResolvedWithTheOutline)
{
    PolygonScene scene(square);
    TeethEdge first = toothedEdge(true, true, false), second = first;
    first.teethPoints = {{6, 0, 0}, {8, 5, 0}, {9.5f, 0, 0}};
    second.teethPoints = {{10, 1, 0}, {5, 2, 0}, {10, 4, 0}};
    scene.record.setEdgeRecords({first, second, {}, {}});
    EXPECT_FALSE(scene.update().residualLoops.empty());
}

TEST(PolygonOutline, TeethFollowTheScreenOnceTheViewWasTurned)
{
    PolygonScene scene(square);
    TeethEdge edge = toothedEdge(true, true, true);
    edge.basePoints = {{5, 0, 0}};
    edge.handlePoints = {{5, 2, 0}};
    scene.record.setEdgeRecords({edge, {}, {}, {}});
    // What a view would keep: eye space is the world here.
    scene.record.setEyeKeyPoints(square);
    scene.record.setEyeBasePoints({edge.basePoints, {}, {}, {}});
    scene.record.setEyeHandlePoints({edge.handlePoints, {}, {}, {}});
    scene.record.setEyeTeethPoints({edge.teethPoints, {}, {}, {}});
    scene.record.setEyeAppliedPoints({edge.appliedPoints, {}, {}, {}});
    scene.camera = freeCamera();
    scene.record.setExtrudeVector(scene.camera.get_direction() * 30.0f);
    scene.update(true);
    TeethEdge const& moved = scene.record.getEdgeRecords()[0];
    auto const expectAt = [&](Ring const& world, Ring const& eye) {
        FlatRing const flat = seen(world, scene.camera);
        for (std::size_t i = 0; i < eye.size(); ++i) {
            EXPECT_NEAR(flat[i].X(), eye[i].X(), 1e-4);
            EXPECT_NEAR(flat[i].Y(), eye[i].Y(), 1e-4);
        }
    };
    expectAt(scene.record.getKeyPoints(), square);
    expectAt(moved.basePoints, edge.basePoints);
    expectAt(moved.handlePoints, edge.handlePoints);
    expectAt(moved.teethPoints, edge.teethPoints);
    expectAt(moved.appliedPoints, edge.appliedPoints);
}

TEST(PolygonOutline, ABuildOfLoopsDoesNotMoveTheBottomTwice)
{
    PolygonScene scene(square);
    scene.update();
    scene.outline.buildSolidBuffers(true);
    scene.outline.buildSolidBuffers(true);
    EXPECT_EQ(scene.outline.outlines().topLoops, Loops{square});
    EXPECT_EQ(scene.outline.outlines().bottomLoops[0][2], Point(10, 10, -30));
}

TEST(PolygonOutline, TwoPointsAreALineThereAndBack)
{
    PolygonScene scene({{0, 0, 0}, {10, 0, 0}});
    ToolOutlines const& outlines = scene.update();
    EXPECT_EQ(outlines.outlineBuffer.size(), 3u * 2);
    EXPECT_TRUE(PolygonScene({{1, 2, 3}}).update().outlineBuffer.empty());
}

TEST(PolygonOutline, CrossingItselfTooOftenItIsOnlyDrawn)
{
    Ring drawn;
    for (UPoint2<float> const& p : crossHatch(1002, 0.1f))
        drawn.push_back({p.X(), p.Y(), 0});
    PolygonScene scene(drawn);
    scene.record.setRoundCorners(true);
    scene.record.setClearanceEnabled(true);
    ToolOutlines const& outlines = scene.update();
    EXPECT_EQ(outlines.problem,
              "The outline crosses itself too often. Draw it with fewer crossings.");
    EXPECT_EQ(outlines.outlineBuffer.size(), 3 * drawn.size());
    EXPECT_EQ(outlines.residualLoops.size(), 1u);
    for (Loops const* const loops :
         {&outlines.solidLoops, &outlines.roundedLoops, &outlines.innerLoops, &outlines.outerLoops})
        EXPECT_TRUE(loops->empty());
    scene.outline.buildSolidBuffers(true);
    EXPECT_TRUE(outlines.previewBuffer.empty());
    EXPECT_TRUE(scene.outline.outerOutline().empty());
    scene.record.setKeyPoints(square);
    EXPECT_EQ(scene.update().problem, "");
    EXPECT_EQ(outlines.solidLoops.size(), 1u);
}
