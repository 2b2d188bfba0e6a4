// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ToolProbe.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

namespace {

using Point = UPoint3<float>;
using Points = std::vector<Point>;

void expectNear(UVector3<float> const& actual, UVector3<float> const& expected, float tolerance)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

}  // namespace

TEST(VolumeRecord, StartsAsTold)
{
    Freecut::VolumeProperty const record;
    EXPECT_TRUE(record.getKeyPoints().empty());
    EXPECT_TRUE(record.getEyePoints().empty());
    EXPECT_EQ(record.getExtrudeVector(), UVector3<float>());
    EXPECT_EQ(record.getSketchDepth(), 0);
    EXPECT_EQ(record.getFillAlpha(), 0u);
    EXPECT_FALSE(record.getShowCoordinate());
    EXPECT_FALSE(record.getClearanceEnabled());
    EXPECT_EQ(record.getClearance(), 0);
    EXPECT_EQ(record.getClearanceDirection(), 0);
    EXPECT_EQ(record.getCutTillValue(), 0);
    EXPECT_FALSE(record.getCutTillEnabled());
    EXPECT_FALSE(record.getPreviewOn());
    EXPECT_EQ(record.getViewIndex(), -1);
    EXPECT_EQ(record.getLastEye(), Point());
}

TEST(VolumeRecord, ATeethEdgeStartsAsTold)
{
    Freecut::TeethEdge const edge;
    EXPECT_FALSE(edge.hasTeeth || edge.applied || edge.editing || edge.useOffset);
    EXPECT_TRUE(edge.flip);
    EXPECT_EQ(edge.teethStyle, 0);
    EXPECT_EQ(edge.teethWidth, 2.0f);
    EXPECT_EQ(edge.teethHeight, 1.0f);
    EXPECT_EQ(edge.upperWidth, 2.0f);
    EXPECT_EQ(edge.lowerWidth, 1.0f);
    EXPECT_EQ(edge.doveHeight, 1.0f);
    EXPECT_EQ(edge.teethCount, 4);
    EXPECT_EQ(edge.teethDistance, 3.0f);
    EXPECT_EQ(edge.teethMethod, 0);
    EXPECT_EQ(edge.teethOffset, 0.0f);
    EXPECT_TRUE(edge.basePoints.empty() && edge.handlePoints.empty() && edge.teethPoints.empty() &&
                edge.appliedPoints.empty());
}

TEST(VolumeRecord, CommonParametersAreStoredAndNothingFollows)
{
    ViewedDocument test;
    test.add(box(10, 20, 30), "part");
    CountingProvider::enter("Freecut::PolygonViewProvider");
    auto* const tool = new Freecut::PolygonGraphicObject;
    test.document->addObject(tool, "tool", true);
    CountingProvider::updates = 0;
    auto& record = tool->getProperty();
    record.setCommonParameters(true, 2, 0.5f, true, 7, 178, true, 3);
    EXPECT_TRUE(record.getClearanceEnabled());
    EXPECT_EQ(record.getClearanceDirection(), 2);
    EXPECT_EQ(record.getClearance(), 0.5f);
    EXPECT_TRUE(record.getCutTillEnabled());
    EXPECT_EQ(record.getCutTillValue(), 7);
    EXPECT_EQ(record.getFillAlpha(), 178u);
    EXPECT_TRUE(record.getShowCoordinate());
    EXPECT_EQ(record.getViewIndex(), 3);
    EXPECT_EQ(record.getExtrudeVector(), UVector3<float>());
    EXPECT_EQ(CountingProvider::updates, 0);
}

TEST(VolumeRecord, TheToolRunsThroughAllPartsWithRoomToSpare)
{
    ViewedDocument test;
    test.add(box(10, 20, 30), "part");
    test.add(box(1, 1, 10, {0, 0, 90}), "upper");
    test.view.OnViewType(2);
    Freecut::VolumeProperty record;
    record.updateDepth();
    EXPECT_NEAR(record.getSketchDepth(), test.eyeImage({0, 0, 101}).Z(), 1e-3);
    expectNear(record.getExtrudeVector(), {0, 0, 102}, 1e-3f);
    test.view.OnViewType(3);
    record.updateDepth();
    expectNear(record.getExtrudeVector(), {0, 0, -102}, 1e-3f);
}

TEST(VolumeRecord, AFreeViewGivesATiltedTool)
{
    ViewedDocument test;
    test.add(box(10, 10, 10), "part");
    test.view.OnViewType(6);
    Freecut::VolumeProperty record;
    record.updateDepth();
    UVector3<float> direction = record.getExtrudeVector();
    // The box's diagonals lie along an isometric view.
    EXPECT_NEAR(direction.GetLength(), 10 * std::sqrt(3.0) * 1.02, 1e-2);
    expectNear(direction.Normalize(), test.view.getViewDirection(), 1e-5f);
}

TEST(VolumeRecord, CutTillEndsTheToolAtAWorldCoordinate)
{
    ViewedDocument test;
    test.add(box(10, 20, 30), "part");
    for (int const type : {0, 1, 2, 3, 4, 5}) {
        test.view.OnViewType(type);
        int const axis = type < 2 ? 1 : type < 4 ? 2 : 0;
        // Inside the part, at its lower end, and beyond both ends.
        for (float const till : {4.0f, 0.0f, -50.0f, 80.0f}) {
            Freecut::VolumeProperty record;
            record.setCommonParameters(false, 0, 0, true, till, 178, false, type);
            record.updateDepth();
            Point top(0, 0, record.getSketchDepth());
            test.view.getWCSPointFromEyePoint(top);
            UVector3<float> expected;
            expected[axis] = top[axis] - till;
            expectNear(record.getExtrudeVector(), expected, 1e-4f);
        }
    }
}

TEST(VolumeRecord, CutTillChangesOneCoordinateInATiltedViewToo)
{
    ViewedDocument test;
    test.add(box(10, 20, 30), "part");
    test.view.OnViewType(6);
    Freecut::VolumeProperty record;
    record.setCommonParameters(false, 0, 0, true, 4, 178, false, 2);
    record.updateDepth();
    EXPECT_EQ(record.getExtrudeVector().X(), 0);
    EXPECT_EQ(record.getExtrudeVector().Y(), 0);
    EXPECT_NE(record.getExtrudeVector().Z(), 0);
}

TEST(VolumeRecord, CutTillCountsInStandardViewsOnly)
{
    ViewedDocument test;
    test.add(box(10, 20, 30), "part");
    test.view.OnViewType(2);
    Freecut::VolumeProperty plain;
    plain.updateDepth();
    for (int const index : {-1, 6}) {
        Freecut::VolumeProperty record;
        record.setCommonParameters(false, 0, 0, true, 4, 178, false, index);
        record.updateDepth();
        EXPECT_EQ(record.getExtrudeVector(), plain.getExtrudeVector()) << index;
    }
}

TEST(VolumeRecord, WithoutPartsTheDepthIsThatOfTheOrigin)
{
    ViewedDocument test;
    test.view.OnViewType(0);
    Freecut::VolumeProperty record;
    record.setSketchDepth(7);
    record.updateDepth();
    EXPECT_EQ(record.getSketchDepth(), test.eyeImage({0, 0, 0}).Z());
    expectNear(record.getExtrudeVector(), {0, 0, 0}, 1e-6f);
}

TEST(VolumeRecord, WithoutAViewNothingFollows)
{
    Freecut::VolumeProperty record;
    record.setSketchDepth(3);
    record.updateDepth();
    record.rememberView();
    TestDocument test;
    test.add(box(10, 20, 30), "part");
    record.updateDepth();
    record.rememberView();
    EXPECT_EQ(record.getSketchDepth(), 3);
    EXPECT_EQ(record.getLastUp(), UVector3<float>());
}

TEST(VolumeRecord, RemembersTheViewAndKeepsACameraApart)
{
    ViewedDocument test;
    test.view.OnViewType(0);
    Freecut::VolumeProperty record;
    record.rememberView();
    Point const ref = test.view.getViewRefPoint();
    EXPECT_EQ(record.getLastRef(), ref);
    EXPECT_EQ(record.getLastEye(), ref + test.view.getViewDirection());
    EXPECT_EQ(record.getLastUp(), test.view.getViewUpDirection());
    record.saveCamera({1, 2, 3}, {4, 5, 6}, {0, 0, 1});
    Point eye, reference;
    UVector3<float> up;
    record.loadCamera(eye, reference, up);
    EXPECT_EQ(eye, Point(1, 2, 3));
    EXPECT_EQ(reference, Point(4, 5, 6));
    EXPECT_EQ(up, UVector3<float>(0, 0, 1));
    EXPECT_EQ(record.getSavedEye(), eye);
    EXPECT_EQ(record.getSavedRef(), reference);
    EXPECT_EQ(record.getSavedUp(), up);
    record.setPreviewing(true);
    EXPECT_TRUE(record.getPreviewOn());
}

TEST(VolumeRecord, EyePointsAreTheImagesOfTheKeyPoints)
{
    ViewedDocument test;
    test.view.OnViewType(6);
    Points const world{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
    Points images;
    for (Point const& point : world)
        images.push_back(test.eyeImage(point));
    Freecut::PolygonGraphicObject polygon;
    Freecut::CuboidGraphicObject cuboid;
    for (Freecut::VolumeProperty* const record :
         {static_cast<Freecut::VolumeProperty*>(&polygon.getProperty()),
          static_cast<Freecut::VolumeProperty*>(&cuboid.getProperty())}) {
        record->setKeyPoints(world);
        record->storeEyePoints();
        record->storeEyePoints();
        EXPECT_EQ(record->getEyePoints(), images);
    }
    EXPECT_EQ(polygon.getPoints(), world);
}

TEST(VolumeRecord, ACylinderKeepsCentreAndHandle)
{
    ViewedDocument test;
    test.view.OnViewType(6);
    Freecut::CylinderGraphicObject tool;
    Freecut::CylinderProperty& record = tool.getProperty();
    record.storeEyePoints();
    EXPECT_EQ(record.getEyePoints(), Points(2)) << "no key points yet";
    record.setKeyPoints({{1, 2, 3}});
    record.storeEyePoints();
    EXPECT_EQ(record.getEyePoints(), (Points{test.eyeImage({1, 2, 3}), {}}));
    record.setKeyPoints({{1, 2, 3}, {4, 5, 6}});
    record.storeEyePoints();
    EXPECT_EQ(record.getEyePoints(), (Points{test.eyeImage({1, 2, 3}), test.eyeImage({4, 5, 6})}));
    EXPECT_TRUE(record.getEyeKeyPoints().empty());
}

TEST(VolumeRecord, WithoutItsOwnToolARecordKeepsNoEyePoints)
{
    ViewedDocument test;
    Freecut::PolygonProperty polygon;
    Freecut::CuboidProperty cuboid;
    Freecut::CylinderProperty cylinder;
    Base::GraphicObject other;
    for (Base::DocumentObject* const container :
         {static_cast<Base::GraphicObject*>(nullptr), &other})
        for (Freecut::VolumeProperty* const record :
             std::vector<Freecut::VolumeProperty*>{&polygon, &cuboid, &cylinder}) {
            record->setContainer(container);
            record->setKeyPoints({{1, 2, 3}, {4, 5, 6}});
            record->storeEyePoints();
            EXPECT_TRUE(record->getEyeKeyPoints().empty());
        }
    polygon.setEdgeRecords({Freecut::TeethEdge()});
    polygon.storeEyeTeeth();
    EXPECT_TRUE(polygon.getEyeBasePoints().empty());
    EXPECT_EQ(cylinder.getEyePoints(), Points(2));
}

TEST(VolumeRecord, TeethAreTakenOverEdgeByEdge)
{
    ViewedDocument test;
    test.view.OnViewType(6);
    Freecut::PolygonGraphicObject tool;
    Freecut::TeethEdge plain, toothed;
    toothed.basePoints = {{1, 0, 0}};
    toothed.handlePoints = {{2, 0, 0}};
    toothed.teethPoints = {{3, 0, 0}, {4, 0, 0}};
    toothed.appliedPoints = {{5, 0, 0}};
    Freecut::PolygonProperty& record = tool.getProperty();
    record.setEdgeRecords({plain, toothed});
    record.storeEyeTeeth();
    record.storeEyeTeeth();
    auto const image = [&](float x) { return test.eyeImage({x, 0, 0}); };
    using Lists = Freecut::PolygonProperty::PointLists;
    EXPECT_EQ(record.getEyeBasePoints(), (Lists{{}, {image(1)}}));
    EXPECT_EQ(record.getEyeHandlePoints(), (Lists{{}, {image(2)}}));
    EXPECT_EQ(record.getEyeTeethPoints(), (Lists{{}, {image(3), image(4)}}));
    EXPECT_EQ(record.getEyeAppliedPoints(), (Lists{{}, {image(5)}}));
}
