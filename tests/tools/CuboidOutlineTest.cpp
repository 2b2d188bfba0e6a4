// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/OutlineScene.h"
#include "tools/CuboidOutline.h"
#include "tools/CuboidProperty.h"

#include <gtest/gtest.h>

namespace {

using Freecut::FlatRing;
using Freecut::Ring;
using Freecut::ToolOutlines;
using Point = UPoint3<float>;

/// 8 along x and 6 along y around (10, 20), seen from above.
class CuboidScene
{
public:
    CuboidScene() : outline(record)
    {
        record.setKeyPoints({{10, 20, 5}});
        record.setSketchDepth(5);
        record.setExtrudeVector({0, 0, 30});
        record.setCuboidLength(8);
        record.setCuboidWidth(6);
    }

    /// Of now: the next update makes its rings anew.
    ToolOutlines const& update(bool viewChanged = false)
    {
        outline.update(camera, viewChanged, false);
        return outline.outlines();
    }

    GLCamera camera = topCamera();
    Freecut::CuboidProperty record;
    Freecut::CuboidOutline outline;
};

}  // namespace

TEST(CuboidOutline, StandsAroundItsCentre)
{
    CuboidScene scene;
    EXPECT_EQ(scene.update().baseRing(), (Ring{{14, 23, 5}, {6, 23, 5}, {6, 17, 5}, {14, 17, 5}}));
    EXPECT_EQ(scene.record.getKeyPoints(),
              (Ring{{10, 20, 5}, {14, 20, 5}, {14, 23, 5}, {10, 23, 5}}));
    EXPECT_TRUE(scene.update().roundedRing().empty());
    ToolOutlines const& outlines = scene.update();
    EXPECT_EQ(outlines.topRing(), outlines.baseRing());
    EXPECT_EQ(outlines.bottomRing(), outlines.baseRing()) << "moved down by a build alone";
}

TEST(CuboidOutline, TurnsAnticlockwiseByItsAngle)
{
    CuboidScene scene;
    scene.record.setCuboidAngle(30 * 3.1415927f / 180);
    Ring const ring = scene.update().baseRing();
    double const c = std::cos(M_PI / 6), s = std::sin(M_PI / 6);
    for (auto const& [i, x, y] : {std::tuple(0, 4, 3), {1, -4, 3}, {2, -4, -3}, {3, 4, -3}}) {
        EXPECT_NEAR(ring[std::size_t(i)].X(), 10 + x * c - y * s, 1e-5);
        EXPECT_NEAR(ring[std::size_t(i)].Y(), 20 + x * s + y * c, 1e-5);
    }
}

TEST(CuboidOutline, RoundedCornersComeFirstInTheBuffer)
{
    CuboidScene scene;
    scene.record.setRoundCorners(true);
    scene.record.setCornerRadius(1);
    ToolOutlines const& outlines = scene.update();
    ASSERT_EQ(outlines.roundedRing().size(), 4u * 47);
    EXPECT_EQ(outlines.topRing(), outlines.roundedRing());
    std::vector<float> const& buffer = outlines.outlineBuffer;
    ASSERT_EQ(buffer.size(), 3u * (4 * 47 + 4));
    EXPECT_EQ(buffer[0], outlines.roundedRing()[0].X());
    EXPECT_EQ((std::vector<float>(buffer.end() - 12, buffer.end())),
              (std::vector<float>{14, 23, 5, 6, 23, 5, 6, 17, 5, 14, 17, 5}));
}

TEST(CuboidOutline, ARadiusBelowAThousandthIsNoRounding)
{
    CuboidScene scene;
    scene.record.setRoundCorners(true);
    scene.record.setCornerRadius(0.0009f);
    ToolOutlines const& outlines = scene.update();
    EXPECT_TRUE(outlines.roundedRing().empty());
    EXPECT_EQ(outlines.topRing(), outlines.baseRing());
    EXPECT_TRUE(scene.outline.outerOutline().empty()) << "the flag alone decides";
    scene.record.setCornerRadius(0.001f);
    scene.update();
    EXPECT_EQ(outlines.roundedRing(), outlines.baseRing());
    scene.record.setRoundCorners(false);
    scene.record.setCornerRadius(1);
    EXPECT_TRUE(scene.update().roundedRing().empty());
}

TEST(CuboidOutline, ARadiusLargerThanASideKeepsTheSharpCorners)
{
    CuboidScene scene;
    scene.record.setRoundCorners(true);
    scene.record.setCornerRadius(7);
    ToolOutlines const& outlines = scene.update();
    EXPECT_EQ(outlines.roundedRing(), outlines.baseRing());
}

TEST(CuboidOutline, FollowsTheScreenOnceTheViewWasTurned)
{
    CuboidScene scene;
    FlatRing const before = seen(scene.update().baseRing(), scene.camera);
    std::vector<Point> eye = scene.record.getKeyPoints();
    for (Point& p : eye)
        scene.camera.WCSToViewCSpoint(p);
    scene.record.setEyeKeyPoints(eye);
    scene.camera = freeCamera();
    FlatRing const after = seen(scene.update(true).baseRing(), scene.camera);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(after[i].X(), before[i].X(), 1e-4);
        EXPECT_NEAR(after[i].Y(), before[i].Y(), 1e-4);
    }
    // Without a turn the world points rule.
    std::vector<Point> const world = scene.record.getKeyPoints();
    scene.camera = topCamera();
    scene.update();
    EXPECT_EQ(scene.record.getKeyPoints()[0], world[0]);
}

TEST(CuboidOutline, ABuildMovesTheBottomDownEachTime)
{
    CuboidScene scene;
    scene.update();
    scene.outline.buildSolidBuffers(true);
    EXPECT_EQ(scene.outline.outlines().bottomRing()[0], Point(14, 23, -25));
    scene.outline.buildSolidBuffers(true);
    EXPECT_EQ(scene.outline.outlines().bottomRing()[0], Point(14, 23, -55));
    EXPECT_EQ(scene.outline.outlines().topRing()[0], Point(14, 23, 5));
    EXPECT_EQ(scene.update().bottomRing()[0], Point(14, 23, 5));
    scene.record.setPreviewing(true);
    EXPECT_EQ(scene.update().bottomRing()[0], Point(14, 23, -25)) << "built by the update itself";
}
