// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PlanePlacement.h"
#include "tools/SceneBox.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Vector = UVector3<float>;

struct SupportedPart : Mesh::DocumentObject
{
    std::string getClassName() const override { return "Support::DocumentObject"; }
};

struct OtherObject : Mesh::DocumentObject
{
    std::string getClassName() const override { return "Other::DocumentObject"; }
};

}  // namespace

TEST(PlanePlacement, ThePerpendicularFollowsTheFirstComponentThatCounts)
{
    EXPECT_EQ(Freecut::perpendicularTo({1, 0, 0}), Vector(0, 0, 1));
    EXPECT_EQ(Freecut::perpendicularTo({0, 1, 0}), Vector(0, 0, 1));
    EXPECT_EQ(Freecut::perpendicularTo({0, 0, 1}), Vector(0, 1, 0));
    EXPECT_EQ(Freecut::perpendicularTo({0, 0, -1}), Vector(0, 1, 0));
    EXPECT_EQ(Freecut::perpendicularTo({0.6f, 0, 0.8f}).Y(), 0.0f);
    EXPECT_NEAR(Freecut::perpendicularTo({0.6f, 0, 0.8f}).X(), -0.8f, 1e-6f);
    EXPECT_NEAR(Freecut::perpendicularTo({0.6f, 0, 0.8f}).Z(), 0.6f, 1e-6f);
    EXPECT_EQ(Freecut::perpendicularTo({0, 0.6f, 0.8f}).X(), 0.0f);
}

TEST(PlanePlacement, ComponentsUpToTheLeastDoNotCount)
{
    EXPECT_EQ(Freecut::perpendicularTo({0.0001f, 0, 1}), Vector(0, 1, 0));
    EXPECT_EQ(Freecut::perpendicularTo({0.0001f, 1, 0}), Vector(0, 0, 1));
    EXPECT_EQ(Freecut::perpendicularTo({0.00011f, 0, 1}).Y(), 0.0f);
    EXPECT_EQ(Freecut::perpendicularTo({0, 0.0001f, 1}).X(), 0.0f);
    EXPECT_GT(Freecut::perpendicularTo({0, 0.0001f, 1}).Y(), 0.99f);
}

TEST(PlanePlacement, TangentAxesAreAFrameThatFacesAlongTheNormal)
{
    std::mt19937 random(5);
    std::normal_distribution<float> component;
    for (int i = 0; i < 1000; ++i) {
        Vector normal(component(random), component(random), component(random));
        normal.Normalize();
        Freecut::PlaneAxes const axes = Freecut::tangentAxes(normal);
        EXPECT_NEAR(axes.first.GetLength(), 1, 1e-5);
        EXPECT_NEAR(axes.second.GetLength(), 1, 1e-5);
        EXPECT_NEAR(axes.first | normal, 0, 1e-5);
        EXPECT_NEAR(axes.second | normal, 0, 1e-5);
        EXPECT_NEAR((axes.first * axes.second) | normal, 1, 1e-5);
    }
}

TEST(PlanePlacement, APlaneHasItsWidthAlongTheSecondAxis)
{
    Freecut::PlaneProperty record;
    Freecut::placePlane(record, {10, 20, 30}, {{1, 0, 0}, {0, 1, 0}}, {.width = 4, .height = 6});
    EXPECT_EQ(record.getCorners(),
              (std::vector<UPoint3<float>>{{7, 18, 30}, {13, 18, 30}, {13, 22, 30}}));
    EXPECT_EQ(record.getKeyPoints()[0], UPoint3<float>(10, 20, 30));
    EXPECT_EQ(record.getKeyPoints()[4], UPoint3<float>(7, 22, 30));
}

TEST(PlanePlacement, APlacedPlaneSaysNothingOfIt)
{
    // Who places a plane fills the fields that follow it himself.
    struct Listener : sigslot::has_slots<sigslot::single_threaded>
    {
        void changed() { ++count; }
        int count = 0;
    } listener;
    Freecut::PlaneGraphicObject plane;
    plane.signalChanged.connect(&listener, &Listener::changed);
    Freecut::placePlane(plane.getProperty(), {}, {{1, 0, 0}, {0, 1, 0}}, {.width = 4, .height = 6});
    EXPECT_EQ(listener.count, 0);
    plane.getProperty().setCorners({}, {1, 0, 0}, {1, 1, 0}, false);
    EXPECT_EQ(listener.count, 1);
}

TEST(PlanePlacement, ATangentPlaneLiesAboutItsCentre)
{
    auto const plane = Freecut::makeTangentPlane({1, 2, 3}, {0, 0, 1}, {.width = 2, .height = 4});
    EXPECT_EQ(plane->getProperty().getCorners(),
              (std::vector<UPoint3<float>>{{2, 0, 3}, {2, 4, 3}, {0, 4, 3}}));
    EXPECT_EQ(plane->getProperty().getKeyPoints()[0], UPoint3<float>(1, 2, 3));
    EXPECT_EQ(plane->getDocument(), nullptr);
}

TEST(SceneBox, HoldsAllPartsWithOrWithoutSupportsAndNothingElse)
{
    TestDocument test;
    EXPECT_TRUE(Freecut::boxOfAllParts(*test.document).Isnullptr());
    test.add(box(1, 2, 3), "part")->setVisible(false);
    auto const add = [&](Mesh::DocumentObject* object, float offset) {
        object->meshProperty->setMesh(kernelOf(box(1, 1, 1, {offset, 0, 0})).release(), true);
        test.document->addObject(object, "other", true);
    };
    add(new SupportedPart, 9);
    add(new OtherObject, 99);
    test.document->addObject(new Freecut::PlaneGraphicObject, "plane", true);
    auto* const empty = new Mesh::DocumentObject;
    empty->meshProperty->setMesh(nullptr, true);
    test.document->addObject(empty, "empty", true);
    EXPECT_EQ(Freecut::boxOfAllParts(*test.document), UBox3<float>({0, 0, 0}, {10, 2, 3}));
}

TEST(SceneBox, TheSuitableSizeIsItsDiagonalAndNeverNothing)
{
    EXPECT_EQ(Freecut::suitableSize({{0, 0, 0}, {2, 3, 6}}), 7.0f);
    EXPECT_EQ(Freecut::suitableSize({{1, 1, 1}, {1, 1, 1}}), 0.001f);
    EXPECT_EQ(Freecut::suitableSize({}), 0.001f);
    EXPECT_EQ(Freecut::suitableSize({{0, 0, 0}, {0.0005f, 0, 0}}), 0.001f);
}
