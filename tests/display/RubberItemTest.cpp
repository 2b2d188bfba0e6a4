// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/RubberLine.h"
#include "display/RubberRect.h"
#include "tests/display/ScreenPlaces.h"
#include "tests/support/ToolProbe.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using Point = UPoint3<float>;
using Freecut::RubberLine;
using Freecut::RubberRect;

Point vertex(RubberRect const& rect, int index)
{
    std::vector<float> const& data = rect.getVertexData();
    return {data[3 * index], data[3 * index + 1], data[3 * index + 2]};
}

}  // namespace

TEST(RubberItems, AreRedWithoutAlphaAndDoNotWorkAtFirst)
{
    struct OpenLine : RubberLine
    {
        using RubberLine::color;
    };
    OpenLine line;
    EXPECT_EQ(line.color, (std::array<float, 4>{255, 0, 0, 0}));
    EXPECT_FALSE(line.isWorking());
    line.setWorking(true);
    EXPECT_TRUE(line.isWorking());
}

TEST(RubberItems, AreMadeByNameByNobody)
{
    EXPECT_EQ(RubberLine::create(), nullptr);
    EXPECT_EQ(RubberRect::create(), nullptr);
    EXPECT_EQ(Freecut::GLGraphicsItem::create(), nullptr);
    RubberLine line;
    RubberRect rect;
    EXPECT_EQ(line.getClassName(), "Freecut::GLGraphicsItem");
    EXPECT_EQ(rect.getClassName(), "Freecut::RubberRect");
    EXPECT_EQ(line.getTypeId(), Base::Type::badType());
    EXPECT_EQ(rect.getTypeId(), Base::Type::badType());
}

TEST(RubberLine, HasThePointsInOrder)
{
    RubberLine line;
    line.updateVBO();
    EXPECT_TRUE(line.getVertexData().empty());
    line.setParameter({{1, 2, 3}, {4, 5, 6}});
    line.updateVBO();
    EXPECT_EQ(line.getVertexData(), (std::vector<float>{1, 2, 3, 4, 5, 6}));
    line.setParameter({});
    line.updateVBO();
    EXPECT_TRUE(line.getVertexData().empty());
}

TEST(RubberRect, StartsInTheOrigin)
{
    EXPECT_EQ(RubberRect().getParameter(), Point(0, 0, 0));
}

TEST(RubberRect, FacesTheViewerWithTwelvePixelsAtAnyZoom)
{
    ViewedDocument test;
    RubberRect rect(&test.view);
    Point const center(3, -2, 5);
    rect.setParameter(center);
    for (int const standardView : {0, 2, 4, 6})
        for (double const zoom : {1.0, 0.1, 20.0}) {
            test.view.OnViewType(standardView);
            test.view.getCamera()->zoom(zoom);
            rect.updateVBO();
            ASSERT_EQ(rect.getVertexData().size(), 12u);
            double const expected[4][2] = {{-6, -6}, {-6, 6}, {6, 6}, {6, -6}};
            for (int i = 0; i < 4; ++i) {
                UPoint2<double> const place = screenOffset(test.view, center, vertex(rect, i));
                EXPECT_NEAR(place.X(), expected[i][0], 0.01);
                EXPECT_NEAR(place.Y(), expected[i][1], 0.01);
            }
        }
}

TEST(RubberRect, WithoutAContextAWorkingItemOnlyDerivesItsVertices)
{
    ViewedDocument test;
    RubberRect rect(&test.view);
    rect.initGL();
    rect.paintGL();
    EXPECT_TRUE(rect.getVertexData().empty());
    rect.setWorking(true);
    rect.paintGL();
    EXPECT_EQ(rect.getVertexData().size(), 12u);
}
