// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/FreecutSelection.h"
#include "tests/selection/SelectionScene.h"

#include <gtest/gtest.h>

namespace {

using Point = UPoint3<float>;

/// What another host may call a part that carries supports.
class SupportedPart : public Mesh::DocumentObject
{
public:
    std::string getClassName() const override { return "Support::DocumentObject"; }
};

}  // namespace

TEST(FreecutSelection, MeasuresPartsWithSupportsAndWithout)
{
    SelectionScene scene;
    scene.add(box(2, 3, 6), "part");
    Freecut::FreecutSelection const selection;
    EXPECT_FLOAT_EQ(selection.calculateSuitableSize(), 7.0f);

    auto* const supported = new SupportedPart;
    supported->meshProperty->setMesh(kernelOf(box(1, 1, 1, {10, 0, 0})).release(), true);
    scene.document->addObject(supported, "supported", true);
    EXPECT_EQ(selection.getObjectsBox().MaxX(), 11);
}

TEST(FreecutSelection, TheSuitableSizeIsNeverBelowAThousandth)
{
    SelectionScene scene;
    Freecut::FreecutSelection const selection;
    EXPECT_TRUE(selection.getObjectsBox().Isnullptr());
    EXPECT_EQ(selection.calculateSuitableSize(), 0.001f);
}

TEST(FreecutSelection, ListsTheCornersOfTheBoxXRunningFastest)
{
    SelectionScene scene;
    scene.add(box(1, 2, 3), "part");
    std::vector<Point> const expected = {{0, 0, 0}, {1, 0, 0}, {0, 2, 0}, {1, 2, 0},
                                         {0, 0, 3}, {1, 0, 3}, {0, 2, 3}, {1, 2, 3}};
    EXPECT_EQ(Freecut::FreecutSelection().getAllObjectsBoudingBoxEightPoints(), expected);
}

TEST(FreecutSelection, TheTypesStandBelowEachOther)
{
    SelectionScene scene;
    auto const parentOf = [](char const* name) {
        return Base::Type::fromName(name).getParent().getName();
    };
    EXPECT_EQ(parentOf("Freecut::FreecutSelection"), "Mesh::PointPickerMesh");
    EXPECT_EQ(parentOf("Freecut::VolumeSelection"), "Freecut::FreecutSelection");
    EXPECT_TRUE(scene.view.startSelection("Freecut::VolumeSelection"));
    EXPECT_EQ(scene.view.getInteractModeName(), "Freecut::VolumeSelection");
}
