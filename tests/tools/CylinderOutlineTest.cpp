// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/OutlineScene.h"
#include "tools/CylinderOutline.h"
#include "tools/CylinderProperty.h"

#include <gtest/gtest.h>

namespace {

using Freecut::FlatRing;
using Freecut::Ring;
using Point = UPoint3<float>;

/// A cylinder of radius 5 around (3, 4), seen from above.
class CylinderScene
{
public:
    CylinderScene() : outline(record)
    {
        record.setKeyPoints({{3, 4, 20}});
        record.setSketchDepth(20);
        record.setExtrudeVector({0, 0, 30});
        record.setRadius(5);
    }

    void setNotch(float width, float length, float angle)
    {
        record.setUseNotch(true);
        record.setNotchWidth(width);
        record.setNotchLength(length);
        record.setNotchAngle(angle);
    }

    FlatRing ring()
    {
        outline.update(camera, false, false);
        FlatRing flat = seen(outline.outlines().baseRing(), camera);
        for (auto& p : flat)
            p = {p.X() - 3, p.Y() - 4};
        return flat;
    }

    GLCamera camera = topCamera();
    Freecut::CylinderProperty record;
    Freecut::CylinderOutline outline;
};

void expectNear(UPoint2<float> const& actual, double x, double y)
{
    EXPECT_NEAR(actual.X(), x, 2e-5);
    EXPECT_NEAR(actual.Y(), y, 2e-5);
}

}  // namespace

TEST(CylinderOutline, SectionsFollowTheTolerance)
{
    double const turn = 6.283185307179586;
    EXPECT_EQ(Freecut::arcSections(turn, 5, 0.025f), 32);
    EXPECT_EQ(Freecut::arcSections(turn, 5, 0.1f), 16);
    EXPECT_EQ(Freecut::arcSections(turn, 50, 0.025f), 100);
    EXPECT_EQ(Freecut::arcSections(turn, 2, 0.025f), 20);
    EXPECT_EQ(Freecut::arcSections(turn, 1, 0.025f), 15);
    EXPECT_EQ(Freecut::arcSections(turn / 2, 5, 0.025f), 16) << "half a circle";
}

TEST(CylinderOutline, SectionsAreEightAtLeastAndTwoHundredAtMost)
{
    double const turn = 6.283185307179586;
    EXPECT_EQ(Freecut::arcSections(turn, 5, 1), 8);
    EXPECT_EQ(Freecut::arcSections(turn, 5, 5), 8) << "the radius";
    EXPECT_EQ(Freecut::arcSections(turn, 5, 9), 8) << "more than the radius";
    EXPECT_EQ(Freecut::arcSections(turn, 5, 1000), 8) << "more than the diameter";
    EXPECT_EQ(Freecut::arcSections(turn, 0, 0.025f), 8) << "no size yet";
    EXPECT_EQ(Freecut::arcSections(turn, 5, 0.001f), 158);
    EXPECT_EQ(Freecut::arcSections(turn, 5, 0.0001f), 200);
    EXPECT_EQ(Freecut::arcSections(turn, 5, 0), 200);
}

TEST(CylinderOutline, StartsAtTheTopAndTurnsAnticlockwise)
{
    CylinderScene scene;
    FlatRing const ring = scene.ring();
    ASSERT_EQ(ring.size(), 32u);
    for (std::size_t k = 0; k < 32; ++k) {
        double const angle = 2 * M_PI * double(k) / 32;
        expectNear(ring[k], -5 * std::sin(angle), 5 * std::cos(angle));
    }
}

TEST(CylinderOutline, KeepsItsShapeInEveryView)
{
    CylinderScene scene;
    FlatRing const flat = scene.ring();
    scene.camera = freeCamera();
    Point const center{13, -15, 9};
    scene.record.setKeyPoints({center});
    scene.outline.update(scene.camera, false, false);
    Ring const& ring = scene.outline.outlines().baseRing();
    ASSERT_EQ(ring.size(), flat.size());
    Point middle = center;
    scene.camera.WCSToViewCSpoint(middle);
    for (std::size_t k = 0; k < ring.size(); ++k) {
        Point eye = ring[k];
        scene.camera.WCSToViewCSpoint(eye);
        EXPECT_NEAR(eye.X() - middle.X(), flat[k].X(), 1e-4);
        EXPECT_NEAR(eye.Y() - middle.Y(), flat[k].Y(), 1e-4);
        EXPECT_NEAR(eye.Z(), middle.Z(), 1e-4);
    }
}

TEST(CylinderOutline, ANotchIsARectangularKey)
{
    CylinderScene scene;
    scene.setNotch(2, 3, 0);
    FlatRing const ring = scene.ring();
    double const half = std::asin(0.2);
    int const n = Freecut::arcSections(2 * M_PI - 2 * half, 5, 0.025f);
    EXPECT_EQ(n, 30);
    ASSERT_EQ(ring.size(), std::size_t(n) + 3);
    double const rim = std::sqrt(24.0);
    expectNear(ring[0], -1, rim);
    expectNear(ring[std::size_t(n)], 1, rim);
    expectNear(ring[std::size_t(n) + 1], 1, rim + 3);
    expectNear(ring[std::size_t(n) + 2], -1, rim + 3);
    EXPECT_GT(signedArea(ring), 0) << "anticlockwise";
    ASSERT_EQ(scene.record.getKeyPoints().size(), 2u);
    EXPECT_EQ(scene.record.getKeyPoints()[0], Point(3, 4, 20));
    EXPECT_EQ(scene.record.getKeyPoints()[1],
              scene.outline.outlines().baseRing()[std::size_t(n) + 1]);
}

TEST(CylinderOutline, TheNotchTurnsClockwiseWithItsAngle)
{
    for (float const angle : {90.0f, -30.0f, 360.0f, 200.0f}) {
        CylinderScene scene;
        scene.setNotch(2, 3, angle);
        FlatRing const ring = scene.ring();
        UPoint2<float> const& q1 = ring[ring.size() - 2];
        UPoint2<float> const& q2 = ring.back();
        double const out = std::sqrt(24.0) + 3;
        double const a = angle * M_PI / 180;
        expectNear({(q1.X() + q2.X()) / 2, (q1.Y() + q2.Y()) / 2}, out * std::sin(a),
                   out * std::cos(a));
    }
}

TEST(CylinderOutline, ANotchWiderThanTheCircleIsCenteredOnHalfACircle)
{
    CylinderScene scene;
    scene.setNotch(14, 3, 0);
    FlatRing const ring = scene.ring();
    std::size_t const n = 16;
    EXPECT_EQ(Freecut::arcSections(M_PI, 5, 0.025f), int(n));
    ASSERT_EQ(ring.size(), n + 5);
    expectNear(ring[0], -5, 0);
    expectNear(ring[n], 5, 0);
    expectNear(ring[n + 1], 7, 0);
    expectNear(ring[n + 2], 7, 3);
    expectNear(ring[n + 3], -7, 3);
    expectNear(ring[n + 4], -7, 0);
    EXPECT_NEAR(signedArea(ring), 14 * 3 + M_PI * 25 / 2, 0.3);
}

TEST(CylinderOutline, ANotchAsWideAsTheCircleNeedsNoOverhang)
{
    CylinderScene scene;
    scene.setNotch(10, 3, 0);
    EXPECT_EQ(scene.ring().size(), 17u + 2);
}

TEST(CylinderOutline, ANotchWithoutLengthLeavesASideWithoutLength)
{
    CylinderScene scene;
    scene.setNotch(2, 0, 0);
    Ring const ring = (scene.ring(), scene.outline.outlines().baseRing());
    ASSERT_GE(ring.size(), 3u);
    EXPECT_EQ(ring[ring.size() - 2], ring[ring.size() - 3]);
}

TEST(CylinderOutline, WithoutANotchTheHandleStays)
{
    CylinderScene scene;
    scene.record.setKeyPoints({{3, 4, 20}, {1, 2, 3}});
    scene.ring();
    EXPECT_EQ(scene.record.getKeyPoints()[1], Point(1, 2, 3));
}

TEST(CylinderOutline, WithoutKeyPointsThereIsNoOutline)
{
    CylinderScene scene;
    scene.ring();
    EXPECT_FALSE(scene.outline.outlines().outlineBuffer.empty());
    scene.record.setKeyPoints({});
    scene.outline.update(scene.camera, false, false);
    EXPECT_TRUE(scene.outline.outlines().solidLoops.empty());
    EXPECT_TRUE(scene.outline.outlines().topLoops.empty());
    EXPECT_TRUE(scene.outline.outlines().outlineBuffer.empty());
}
