// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ToolProbe.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

namespace {

/// A tool in a viewed document with one part, seen from above.
template <typename Tool>
class ToolInView : public ViewedDocument
{
public:
    ToolInView()
    {
        CountingProvider::enter(tool->getViewProviderName().c_str());
        add(box(10, 20, 30), "part");
        view.OnViewType(2);
        document->addObject(tool, "tool", true);
        CountingProvider::updates = 0;
    }

    Tool* tool = new Tool;
};

void expectCommon(Freecut::VolumeProperty const& record)
{
    EXPECT_TRUE(record.getClearanceEnabled());
    EXPECT_EQ(record.getClearanceDirection(), 1);
    EXPECT_EQ(record.getClearance(), 0.25f);
    EXPECT_FALSE(record.getCutTillEnabled());
    EXPECT_EQ(record.getCutTillValue(), 4);
    EXPECT_EQ(record.getFillAlpha(), 178u);
    EXPECT_TRUE(record.getShowCoordinate());
    EXPECT_EQ(record.getViewIndex(), 2);
}

void expectFollowed(Freecut::VolumeProperty const& record)
{
    EXPECT_NEAR(record.getExtrudeVector().Z(), 30.6, 1e-3);
    EXPECT_EQ(CountingProvider::updates, 1);
}

}  // namespace

TEST(ShapeParameters, OfAPolygonAreStoredAndFollowed)
{
    ToolInView<Freecut::PolygonGraphicObject> test;
    Freecut::PolygonProperty& record = test.tool->getProperty();
    EXPECT_FALSE(record.getRoundCorners());
    EXPECT_EQ(record.getCornerRadius(), 0);
    record.setShapeParameters(true, 1, 0.25f, false, 4, 178, true, 1.5f, true, 2);
    expectCommon(record);
    EXPECT_TRUE(record.getRoundCorners());
    EXPECT_EQ(record.getCornerRadius(), 1.5f);
    expectFollowed(record);
}

TEST(ShapeParameters, OfACylinderAreStoredAndFollowed)
{
    ToolInView<Freecut::CylinderGraphicObject> test;
    Freecut::CylinderProperty& record = test.tool->getProperty();
    EXPECT_EQ(record.getRadius(), 0);
    EXPECT_FALSE(record.getUseNotch());
    record.setShapeParameters(true, 1, 0.25f, false, 4, 178, true, 2, 5, true, 6, 7, 8, 0.5f);
    expectCommon(record);
    EXPECT_EQ(record.getRadius(), 5);
    EXPECT_TRUE(record.getUseNotch());
    EXPECT_EQ(record.getNotchWidth(), 6);
    EXPECT_EQ(record.getNotchLength(), 7);
    EXPECT_EQ(record.getNotchAngle(), 8);
    EXPECT_EQ(record.getCircleTolerance(), 0.5f);
    expectFollowed(record);
}

TEST(ShapeParameters, OfACuboidAreStoredAndFollowed)
{
    ToolInView<Freecut::CuboidGraphicObject> test;
    Freecut::CuboidProperty& record = test.tool->getProperty();
    EXPECT_EQ(record.getCuboidLength(), 0);
    record.setCuboidParameters(true, 1, 0.25f, false, 4, 178, true, 1.5f, true, 2, 5, 6, 0.5f);
    expectCommon(record);
    EXPECT_TRUE(record.getRoundCorners());
    EXPECT_EQ(record.getCornerRadius(), 1.5f);
    EXPECT_EQ(record.getCuboidWidth(), 5);
    EXPECT_EQ(record.getCuboidLength(), 6);
    EXPECT_EQ(record.getCuboidAngle(), 0.5f);
    expectFollowed(record);
}

TEST(ShapeParameters, WithoutAToolOfTheirKindOnlyTheDepthFollows)
{
    ToolInView<Freecut::PolygonGraphicObject> test;
    Freecut::CuboidProperty alone;
    alone.setCuboidParameters(true, 1, 0.25f, false, 4, 178, true, 1.5f, true, 2, 5, 6, 0.5f);
    Freecut::CuboidProperty foreign;
    foreign.setContainer(test.tool);
    foreign.setCuboidParameters(true, 1, 0.25f, false, 4, 178, true, 1.5f, true, 2, 5, 6, 0.5f);
    Freecut::CuboidGraphicObject outside;
    outside.getProperty().setCuboidParameters(true, 1, 0.25f, false, 4, 178, true, 1.5f, true, 2, 5,
                                              6, 0.5f);
    for (Freecut::CuboidProperty const* const record : {&alone, &foreign, &outside.getProperty()})
        EXPECT_NEAR(record->getExtrudeVector().Z(), 30.6, 1e-3);
    EXPECT_EQ(CountingProvider::updates, 0);
}
