// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/OutlineScene.h"
#include "tools/CuboidOutline.h"
#include "tools/CuboidProperty.h"
#include "tools/CylinderOutline.h"
#include "tools/CylinderProperty.h"
#include "tools/OutlineOffset.h"
#include "tools/PolygonOutline.h"
#include "tools/PolygonProperty.h"

#include <gtest/gtest.h>

namespace {

using Freecut::FlatRing;
using Freecut::Loops;
using Freecut::Ring;
using Freecut::ToolOutlines;

/// A tool with its record, seen from a camera.
template <typename Record, typename Outline>
struct Scene
{
    Scene() : outline(record)
    {
        record.setExtrudeVector({0, 0, 30});
        record.setClearanceEnabled(true);
    }

    ToolOutlines const& update(int direction, float clearance)
    {
        record.setClearanceDirection(direction);
        record.setClearance(clearance);
        outline.update(camera, false, false);
        return outline.outlines();
    }

    GLCamera camera = topCamera();
    Record record;
    Outline outline;
};

struct CuboidScene : Scene<Freecut::CuboidProperty, Freecut::CuboidOutline>
{
    CuboidScene()
    {
        record.setKeyPoints({{10, 20, 0}});
        record.setCuboidLength(8);
        record.setCuboidWidth(6);
    }
};

struct CylinderScene : Scene<Freecut::CylinderProperty, Freecut::CylinderOutline>
{
    CylinderScene()
    {
        record.setKeyPoints({{10, 20, 0}});
        record.setRadius(5);
    }
};

struct PolygonScene : Scene<Freecut::PolygonProperty, Freecut::PolygonOutline>
{
    explicit PolygonScene(Ring points) { record.setKeyPoints(std::move(points)); }
};

/// The largest deviation of the distance between two outlines from the clearance, both ways.
double deviation(FlatRing const& moved, FlatRing const& from, double clearance)
{
    DistanceRange const there = distancesBetween(moved, from);
    return std::max(std::abs(there.least - clearance), std::abs(there.most - clearance));
}

}  // namespace

TEST(ClearanceOutline, TheDirectionTellsWhichOutlinesThereAre)
{
    CuboidScene cuboid;
    CylinderScene cylinder;
    for (int const direction : {0, 1, 2}) {
        bool const inward = direction != 1, outward = direction != 0;
        for (ToolOutlines const* const outlines :
             {&cuboid.update(direction, 0.5f), &cylinder.update(direction, 0.5f)}) {
            EXPECT_EQ(!outlines->innerRing().empty(), inward) << direction;
            EXPECT_EQ(!outlines->innerBuffer.empty(), inward) << direction;
            EXPECT_EQ(!outlines->outerRing().empty(), outward) << direction;
            EXPECT_EQ(!outlines->outerBuffer.empty(), outward) << direction;
            EXPECT_EQ(outlines->topRing(), inward ? outlines->innerRing() : outlines->baseRing());
        }
    }
}

TEST(ClearanceOutline, BelowAThousandthItIsOff)
{
    CuboidScene scene;
    EXPECT_TRUE(scene.update(2, 0.0009f).innerRing().empty());
    EXPECT_TRUE(scene.update(2, 0.0009f).outerRing().empty());
    auto const topRing = scene.update(2, 0.0009f).topRing();
    EXPECT_EQ(topRing, scene.update(2, 0).baseRing());
    EXPECT_FALSE(scene.update(2, 0.001f).outerRing().empty());
    scene.record.setClearanceEnabled(false);
    EXPECT_TRUE(scene.update(2, 1).outerRing().empty());
}

TEST(ClearanceOutline, StaysAtItsDistanceEverywhere)
{
    for (bool const isRounded : {false, true}) {
        CuboidScene scene;
        scene.record.setCuboidAngle(0.4f);
        scene.record.setRoundCorners(isRounded);
        scene.record.setCornerRadius(1);
        scene.camera = freeCamera();
        ToolOutlines const& outlines = scene.update(2, 0.3f);
        FlatRing const nominal =
            seen(isRounded ? outlines.roundedRing() : outlines.baseRing(), scene.camera);
        // Corners that are rounded once more are a little farther apart: see below.
        double const tolerance = isRounded ? 0.01 : 0.002;
        EXPECT_LT(deviation(seen(outlines.innerRing(), scene.camera), nominal, 0.3), tolerance);
        EXPECT_LT(deviation(seen(outlines.outerRing(), scene.camera), nominal, 0.3), tolerance);
    }
    CylinderScene scene;
    ToolOutlines const& outlines = scene.update(2, 0.3f);
    FlatRing const circle = seen(outlines.baseRing(), scene.camera);
    EXPECT_LT(deviation(seen(outlines.innerRing(), scene.camera), circle, 0.3), 0.002);
    EXPECT_LT(deviation(seen(outlines.outerRing(), scene.camera), circle, 0.3), 0.002);
}

TEST(ClearanceOutline, OfANotchedCylinderStaysAtItsDistance)
{
    CylinderScene scene;
    scene.record.setUseNotch(true);
    scene.record.setNotchWidth(2);
    scene.record.setNotchLength(3);
    scene.record.setNotchAngle(70);
    ToolOutlines const& outlines = scene.update(2, 0.25f);
    FlatRing const nominal = seen(outlines.baseRing(), scene.camera);
    EXPECT_LT(deviation(seen(outlines.innerRing(), scene.camera), nominal, 0.25), 0.002);
    EXPECT_LT(deviation(seen(outlines.outerRing(), scene.camera), nominal, 0.25), 0.002);
}

TEST(ClearanceOutline, AreasAreThoseOfTheMovedShape)
{
    CuboidScene scene;
    ToolOutlines const& outlines = scene.update(2, 0.5f);
    EXPECT_NEAR(signedArea(seen(outlines.innerRing(), scene.camera)), 7 * 5, 0.02);
    EXPECT_NEAR(signedArea(seen(outlines.outerRing(), scene.camera)),
                8 * 6 + 2 * (8 + 6) * 0.5 + M_PI * 0.25, 0.02);
}

TEST(ClearanceOutline, TheDistanceIsTruncatedToThousandths)
{
    // In double 0.35f is 0.34999999 and so comes out as 349 thousandths.
    CuboidScene scene;
    ToolOutlines const& outlines = scene.update(0, 0.35f);
    FlatRing const inner = seen(outlines.innerRing(), scene.camera);
    float left = 100;
    for (auto const& p : inner)
        left = std::min(left, p.X());
    EXPECT_FLOAT_EQ(left, 6.349f);
}

TEST(ClearanceOutline, WhatIsSwallowedLeavesNoInnerOutline)
{
    CuboidScene scene;
    ToolOutlines const& outlines = scene.update(2, 3);
    EXPECT_TRUE(outlines.innerRing().empty());
    EXPECT_TRUE(outlines.topRing().empty());
    EXPECT_FALSE(outlines.outerRing().empty());
    scene.outline.buildSolidBuffers(true);
    EXPECT_TRUE(outlines.previewBuffer.empty());
    scene.outline.buildSolidBuffers(false);
    EXPECT_TRUE(outlines.previewBuffer.empty());
}

TEST(ClearanceOutline, TheCornersOfAMovedOutlineAreRoundedOnceMore)
{
    CuboidScene scene;
    scene.record.setRoundCorners(true);
    scene.record.setCornerRadius(1);
    ToolOutlines const& outlines = scene.update(1, 0.5f);
    Ring once =
        Freecut::OutlineOffset({outlines.roundedRing()}, {scene.camera, 0}).moved(0.5)->front();
    EXPECT_GT(outlines.outerRing().size(), once.size());
    EXPECT_LT(signedArea(seen(outlines.outerRing(), scene.camera)),
              signedArea(seen(once, scene.camera)));
}

TEST(ClearanceOutline, OfAPolygonThatFallsApartAllPathsAreKept)
{
    // A bar between two blocks is swallowed, which leaves two paths.
    Ring const dumbbell{{0, 0, 0},   {10, 0, 0},  {10, 4, 0}, {20, 4, 0}, {20, 0, 0},  {30, 0, 0},
                        {30, 10, 0}, {20, 10, 0}, {20, 6, 0}, {10, 6, 0}, {10, 10, 0}, {0, 10, 0}};
    PolygonScene polygon(dumbbell);
    ToolOutlines const& outlines = polygon.update(0, 1.5f);
    EXPECT_EQ(outlines.innerLoops.size(), 2u);
    EXPECT_TRUE(outlines.topLoops.empty()) << "a polygon's caps come with its solid";
    polygon.outline.buildSolidBuffers(true);
    EXPECT_EQ(outlines.topLoops, outlines.innerLoops);
}

TEST(ClearanceOutline, TwoLobesThatGrowTogetherMakeOne)
{
    // A slit of 1 mm between two towers: moved outward by 1.5 mm on each side it is gone.
    PolygonScene towers({{0, 0, 0},
                         {10, 0, 0},
                         {10, 10, 0},
                         {5.5f, 10, 0},
                         {5.5f, 1, 0},
                         {4.5f, 1, 0},
                         {4.5f, 10, 0},
                         {0, 10, 0}});
    ToolOutlines const& outlines = towers.update(1, 1.5f);
    ASSERT_EQ(outlines.outerLoops.size(), 1u);
    // A square of 13 mm with round corners, and a dent of 0.03 mm2 where the slit was.
    double const expected = 13 * 13 - (4 - M_PI) * 1.5 * 1.5 - 0.03;
    EXPECT_NEAR(std::abs(signedArea(seen(outlines.outerLoops[0], towers.camera))), expected, 0.1);
}

TEST(ClearanceOutline, AWideOffsetOfAHookEnclosesAHole)
{
    Ring const hook{{0, 0, 0},  {30, 0, 0}, {30, 30, 0}, {16, 30, 0}, {16, 28, 0}, {28, 28, 0},
                    {28, 2, 0}, {2, 2, 0},  {2, 28, 0},  {14, 28, 0}, {14, 30, 0}, {0, 30, 0}};
    PolygonScene polygon(hook);
    EXPECT_EQ(polygon.update(1, 1.5f).outerLoops.size(), 2u);
}

TEST(ClearanceOutline, IsTakenFromTheRoundedOutline)
{
    CuboidScene sharp, round;
    round.record.setRoundCorners(true);
    round.record.setCornerRadius(2);
    EXPECT_LT(signedArea(seen(round.update(1, 0.5f).outerRing(), round.camera)),
              signedArea(seen(sharp.update(1, 0.5f).outerRing(), sharp.camera)) - 3);
}

TEST(ClearanceOutline, OfManyCornersNearEachOtherIsTheHullOfTheirDisks)
{
    // 800 spikes of half a millimetre, a hundredth apart, are merged into a bar of 8 mm.
    Ring comb{{8, -10, 0}, {0, -10, 0}};
    for (int i = 0; i < 800; ++i)
        comb.push_back({0.01f * float(i), i % 2 ? 0.0f : 0.5f, 0});
    std::reverse(comb.begin(), comb.end());
    PolygonScene scene(comb);
    ToolOutlines const& outlines = scene.update(1, 2);
    EXPECT_EQ(outlines.problem, "");
    ASSERT_EQ(outlines.outerLoops.size(), 1u);
    double const area = std::abs(signedArea(seen(outlines.outerLoops[0], scene.camera)));
    EXPECT_NEAR(area, 8 * 10.5 + 2 * (8 + 10.5) * 2 + M_PI * 4, 0.1);
}

TEST(ClearanceOutline, BeyondTheEndOfTheWorldIsRefused)
{
    PolygonScene scene({{0, 0, 0}, {3e11f, 0, 0}, {0, 3e11f, 0}});
    for (int const direction : {0, 1, 2}) {
        ToolOutlines const& outlines = scene.update(direction, 2);
        EXPECT_NE(outlines.problem.find("choose a smaller clearance"), std::string::npos);
        EXPECT_TRUE(outlines.solidLoops.empty());
        EXPECT_TRUE(outlines.innerLoops.empty());
        EXPECT_TRUE(outlines.outerLoops.empty());
        EXPECT_FALSE(outlines.outlineBuffer.empty()) << "still drawn";
        EXPECT_TRUE(scene.outline.outerOutline().empty());
    }
    EXPECT_EQ(scene.update(2, 0.0005f).problem, "") << "off";
}
