// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/GLView.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

// What a view knows without ever having been shown.
namespace {

using Point = UPoint3<float>;
using Projection = GLCamera::Projection;

double distance(Point const& a, Point const& b)
{
    return std::hypot(double(a.X()) - b.X(), double(a.Y()) - b.Y(), double(a.Z()) - b.Z());
}

/// Cameras at random places, turned at random, of all scales and both projections.
class AnyCamera : public testing::Test
{
protected:
    AnyCamera() { view.resize(800, 600); }

    double number(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(random);
    }
    Point point(double reach)
    {
        return {float(number(-reach, reach)), float(number(-reach, reach)),
                float(number(-reach, reach))};
    }
    /// A camera whose reference point is near the origin, as parts are.
    void change(Projection projection)
    {
        camera.setProjection(projection);
        Point const ref = point(100);
        Point const eye = point(1000);
        Point const up = point(1);
        camera.set_eye(eye.X(), eye.Y(), eye.Z());
        camera.set_ref(ref.X(), ref.Y(), ref.Z(), false);
        camera.set_vecUp(up.X(), up.Y(), up.Z());
        camera.set_view_height(std::pow(10, number(-2, 4)));
    }

    std::mt19937 random{7};
    Base::GLView view;
    GLCamera& camera = *view.getCamera();
};

}  // namespace

TEST_F(AnyCamera, WorldAndEyeSpaceInvertEachOther)
{
    for (int i = 0; i < 1000; ++i) {
        change(i % 2 ? Projection::Parallel : Projection::Perspective);
        Point const world = point(100);
        Point moved = world;
        view.getEyePointFromWCSPoint(moved);
        view.getWCSPointFromEyePoint(moved);
        EXPECT_LT(distance(moved, world), 4e-5);
    }
}

TEST_F(AnyCamera, EyeSpaceIsARigidImage)
{
    for (int i = 0; i < 1000; ++i) {
        change(i % 2 ? Projection::Parallel : Projection::Perspective);
        Point a = point(100), b = point(100);
        double const before = distance(a, b);
        view.getEyePointFromWCSPoint(a);
        view.getEyePointFromWCSPoint(b);
        EXPECT_NEAR(distance(a, b), before, 1e-4);
    }
}

TEST_F(AnyCamera, AWidgetPositionComesBackFromTheWorld)
{
    for (int i = 0; i < 1000; ++i) {
        change(i % 2 ? Projection::Parallel : Projection::Perspective);
        // Float coordinates of a hundred millimetres cannot tell pixels of a nanometre apart.
        camera.set_view_height(std::pow(10, number(-1, 4)));
        int const x = int(number(0, 800)), y = int(number(0, 600));
        Point world = view.getEyePointOnScreen({float(x), float(y)});
        view.getWCSPointFromEyePoint(world);
        int backX = -1, backY = -1;
        view.getWidgetcoordFromWCS(world, backX, backY);
        EXPECT_EQ(backX, x);
        EXPECT_EQ(backY, y);
    }
}

TEST_F(AnyCamera, AParallelViewShowsAllDepthsOfAnEyePointInOnePlace)
{
    for (int i = 0; i < 200; ++i) {
        change(Projection::Parallel);
        camera.set_view_height(number(10, 1000));
        Point world = view.getEyePointOnScreen({300, 200});
        world.Z() = float(number(-500, 500));
        view.getWCSPointFromEyePoint(world);
        int x = 0, y = 0;
        view.getWidgetcoordFromWCS(world, x, y);
        EXPECT_EQ(x, 300);
        EXPECT_EQ(y, 200);
    }
}

TEST_F(AnyCamera, TheMatricesAgreeWithTheConversions)
{
    for (int i = 0; i < 1000; ++i) {
        change(i % 2 ? Projection::Parallel : Projection::Perspective);
        camera.set_view_height(number(100, 1000));
        camera.set_depth_range(-2000, 2000);
        Point const world = point(50);
        QVector3D const clip = camera.getProjectionMatrix() * camera.getModelViewMatrix() *
                               QVector3D(world.X(), world.Y(), world.Z());
        Point eye = world;
        view.getEyePointFromWCSPoint(eye);
        double const eyeDistance = distance(camera.get_eye(), camera.get_ref());
        if (camera.projection() == Projection::Perspective && eye.Z() > eyeDistance * 0.9)
            continue;
        int x = 0, y = 0;
        view.getWidgetcoordFromWCS(world, x, y);
        EXPECT_NEAR((clip.x() + 1) * 400, x, 0.6);
        EXPECT_NEAR((1 - clip.y()) * 300, y, 0.6);
    }
}

TEST_F(AnyCamera, NearerPointsHaveTheLesserDepth)
{
    for (Projection const projection : {Projection::Parallel, Projection::Perspective}) {
        change(projection);
        camera.set_view_height(200);
        camera.set_depth_range(-100, 100);
        float last = 2;
        for (float z = -90; z <= 90; z += 30) {
            Point world(3, 4, z);
            view.getWCSPointFromEyePoint(world);
            float const depth = (camera.getProjectionMatrix() * camera.getModelViewMatrix() *
                                 QVector3D(world.X(), world.Y(), world.Z()))
                                    .z();
            EXPECT_LT(depth, last);
            EXPECT_GE(depth, -1);
            EXPECT_LE(depth, 1);
            last = depth;
        }
    }
}

TEST_F(AnyCamera, ARayOfSightGoesThroughAllThatIsSeenThere)
{
    for (int i = 0; i < 500; ++i) {
        change(i % 2 ? Projection::Parallel : Projection::Perspective);
        camera.set_view_height(number(10, 1000));
        UPoint3<double> origin;
        UVector3<double> direction;
        camera.sightRay(250, 410, origin, direction);
        double const reach = number(0, 1000);
        UPoint2<double> const seen =
            camera.widgetPosition(camera.toEye(origin + direction * reach));
        if (reach > 1e-3) {
            EXPECT_NEAR(seen.X(), 250, 1e-3);
            EXPECT_NEAR(seen.Y(), 410, 1e-3);
        }
        EXPECT_NEAR(direction.GetLength(), 1, 1e-12);
    }
}

TEST_F(AnyCamera, ANewPivotDoesNotChangeThePicture)
{
    for (int i = 0; i < 500; ++i) {
        change(i % 2 ? Projection::Parallel : Projection::Perspective);
        camera.set_view_height(number(300, 1000));
        Point const near(camera.get_ref() + UVector3<float>(20, -30, 10));
        UPoint3<double> const seen(near.X() + 5.0, near.Y() - 7.0, near.Z() + 3.0);
        UPoint2<double> const before = camera.widgetPosition(camera.toEye(seen));
        UVector3<float> const direction = camera.get_direction();
        camera.set_pivot(near);
        EXPECT_EQ(camera.get_ref(), near);
        UPoint2<double> const within = camera.widgetPosition(camera.toEye(seen));
        camera.recentre();
        UPoint2<double> const after = camera.widgetPosition(camera.toEye(seen));
        EXPECT_NEAR(within.X(), before.X(), 1e-6);
        EXPECT_NEAR(within.Y(), before.Y(), 1e-6);
        EXPECT_NEAR(after.X(), before.X(), 1e-6);
        EXPECT_NEAR(after.Y(), before.Y(), 1e-6);
        EXPECT_EQ(camera.get_direction(), direction);
    }
}

TEST_F(AnyCamera, APivotStaysInItsPlaceWhileTheViewTurns)
{
    for (int i = 0; i < 200; ++i) {
        change(Projection::Parallel);
        camera.set_view_height(number(10, 1000));
        Point const pivot = point(100);
        camera.set_pivot(pivot);
        UPoint3<double> const world(pivot.X(), pivot.Y(), pivot.Z());
        UPoint2<double> const before = camera.widgetPosition(camera.toEye(world));
        camera.turn({0, 0, 1}, number(-3, 3));
        camera.turn({1, 1, 0}, number(-3, 3));
        UPoint2<double> const after = camera.widgetPosition(camera.toEye(world));
        EXPECT_NEAR(after.X(), before.X(), 1e-6);
        EXPECT_NEAR(after.Y(), before.Y(), 1e-6);
        EXPECT_EQ(camera.get_ref(), pivot);
    }
}

TEST_F(AnyCamera, EyeReferencePointAndUpCanBeKeptAndPutBack)
{
    for (int i = 0; i < 200; ++i) {
        change(i % 2 ? Projection::Parallel : Projection::Perspective);
        Point const ref = view.getViewRefPoint();
        Point const eye = ref + view.getViewDirection();
        UVector3<float> const up = view.getViewUpDirection();
        double width = 0, height = 0, widthAfter = 0, heightAfter = 0;
        camera.get_view_rect(width, height);
        camera.turn({1, 2, 3}, 1);
        camera.pan(50, 60);
        camera.set_eye(eye.X(), eye.Y(), eye.Z());
        camera.set_ref(ref.X(), ref.Y(), ref.Z(), false);
        camera.set_vecUp(up.X(), up.Y(), up.Z());
        camera.get_view_rect(widthAfter, heightAfter);
        EXPECT_EQ(view.getViewRefPoint(), ref);
        EXPECT_LT((view.getViewDirection() - (eye - ref)).GetLength(), 1e-4);
        EXPECT_LT((view.getViewUpDirection() - up).GetLength(), 1e-4);
        EXPECT_EQ(heightAfter, height);
        EXPECT_EQ(widthAfter, width);
    }
}

TEST(Camera, AZoomKeepsReferencePointAndDirection)
{
    for (Projection const projection : {Projection::Parallel, Projection::Perspective}) {
        Base::GLView view;
        view.setProjection(projection);
        view.OnViewType(6);
        Point const ref = view.getViewRefPoint();
        UVector3<float> const direction = view.getViewDirection();
        double width = 0, height = 0;
        view.getCamera()->zoom(0.9);
        view.getCamera()->get_view_rect(width, height);
        EXPECT_EQ(view.getViewRefPoint(), ref);
        EXPECT_EQ(view.getViewDirection(), direction);
        EXPECT_DOUBLE_EQ(height, 180);
    }
}

TEST(Camera, ARollKeepsTheDirection)
{
    Base::GLView view;
    view.OnViewType(6);
    UVector3<float> const direction = view.getViewDirection();
    UVector3<float> const up = view.getViewUpDirection();
    view.getCamera()->roll(0.5);
    EXPECT_EQ(view.getViewDirection(), direction);
    EXPECT_NEAR(view.getViewUpDirection() | up, std::cos(0.5), 1e-6);
}

TEST(Camera, ThePixelsAreSquare)
{
    Base::GLView view;
    view.resize(1000, 250);
    double width = 0, height = 0;
    int screenWidth = 0, screenHeight = 0;
    view.getCamera()->get_view_rect(width, height);
    view.getCamera()->get_screen(screenWidth, screenHeight);
    EXPECT_EQ(screenWidth, 1000);
    EXPECT_EQ(screenHeight, 250);
    EXPECT_DOUBLE_EQ(width, height * 4);
}

TEST(StandardViews, LookAlongTheAxesInPairs)
{
    Base::GLView view;
    for (int type = 0; type < 6; ++type) {
        view.OnViewType(type);
        UVector3<float> const direction = view.getViewDirection();
        int const axis = type < 2 ? 1 : type < 4 ? 2 : 0;
        EXPECT_EQ(std::abs(direction[axis]), 1) << type;
        EXPECT_EQ(direction.GetLength(), 1) << type;
        EXPECT_EQ(view.viewIndex(), type);
    }
    view.OnViewType(6);
    EXPECT_EQ(view.viewIndex(), 6);
    UVector3<float> const direction = view.getViewDirection();
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(std::abs(direction[axis]), std::sqrt(1.0 / 3), 1e-6);
}

TEST(StandardViews, OpposeEachOther)
{
    Base::GLView view;
    for (int type = 0; type < 6; type += 2) {
        view.OnViewType(type);
        UVector3<float> const first = view.getViewDirection();
        view.OnViewType(type + 1);
        EXPECT_EQ(view.getViewDirection(), -first);
    }
}

TEST(StandardViews, EndWithTheLeastTurn)
{
    Base::GLView view;
    view.OnViewType(2);
    view.getCamera()->turn({0, 0, 1}, 0.01);
    EXPECT_EQ(view.viewIndex(), -1);
    view.OnViewType(2);
    EXPECT_EQ(view.viewIndex(), 2);
    view.getCamera()->turn({1, 0, 0}, 0.01);
    EXPECT_EQ(view.viewIndex(), -1);
}

TEST(StandardViews, KeepScaleAndReferencePoint)
{
    Base::GLView view;
    view.getCamera()->set_ref(1, 2, 3, true);
    view.getCamera()->zoom(0.5);
    view.OnViewType(4);
    double width = 0, height = 0;
    view.getCamera()->get_view_rect(width, height);
    EXPECT_EQ(view.getViewRefPoint(), Point(1, 2, 3));
    EXPECT_DOUBLE_EQ(height, 100);
    view.OnViewType(7);
    view.OnViewType(-1);
    EXPECT_EQ(view.viewIndex(), 4);
}

TEST(StandardViews, TheTopViewHasXToTheRightAndYUp)
{
    Base::GLView view;
    view.OnViewType(2);
    Point point(1, 2, 3);
    view.getEyePointFromWCSPoint(point);
    EXPECT_EQ(point, Point(1, 2, 3));
}
