// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PlaneGrid.h"
#include "display/PlaneViewProvider.h"
#include "tests/support/ToolProbe.h"
#include "tools/PlaneGraphicObject.h"

#include <gtest/gtest.h>

namespace {

using Point = UPoint3<float>;

Freecut::PlaneProperty rectangle(float width, float height)
{
    Freecut::PlaneProperty plane;
    plane.setCorners({0, 0, 0}, {width, 0, 0}, {width, height, 0}, true);
    plane.updateKeyPoints();
    return plane;
}

Point vertex(std::vector<float> const& grid, int index)
{
    return {grid[3 * index], grid[3 * index + 1], grid[3 * index + 2]};
}

/// The provider of a plane object in a document whose view is never shown.
struct PlaneInView : ViewedDocument
{
    PlaneInView()
    {
        Freecut::GraphicViewProvider::init();
        Freecut::PlaneViewProvider::init();
        document->addObject(plane, "plane", true);
        provider = static_cast<Freecut::PlaneViewProvider*>(plane->getViewProvider());
    }
    void resize(float width, float height)
    {
        plane->getProperty().setCorners({0, 0, 0}, {width, 0, 0}, {width, height, 0}, true);
        provider->updateGeometry();
    }
    Freecut::PlaneGraphicObject* plane = new Freecut::PlaneGraphicObject;
    Freecut::PlaneViewProvider* provider = nullptr;
};

}  // namespace

TEST(PlaneGrid, DividesSidesByTheirLength)
{
    struct Row
    {
        float length, before, count, tick;
    };
    for (Row const& row :
         {Row{0, 7, 2, 0}, Row{5, 7, 2, 0.5f}, Row{20, 7, 2, 2}, Row{21, 7, 7, 2}, Row{25, 3, 3, 2},
          Row{30, 5, 5, 2}, Row{31, 9, 2, 2}, Row{40, 9, 3, 2}, Row{45, 9, 3, 2}, Row{60, 9, 5, 2},
          Row{100, 9, 8, 2}, Row{1000, 9, 83, 2}}) {
        float count = row.before;
        EXPECT_EQ(Freecut::divideSide(row.length, count), row.tick) << row.length;
        EXPECT_EQ(count, row.count) << row.length;
    }
}

TEST(PlaneGrid, ASideOfAtMostTwentyAlwaysHasTwoCells)
{
    PlaneInView test;
    for (float const side : {100.f, 20.f, 0.5f}) {
        test.resize(side, side);
        EXPECT_EQ(test.provider->getGridRows(), side == 100 ? 8 : 2);
        EXPECT_EQ(test.provider->getGridColumns(), side == 100 ? 8 : 2);
    }
}

TEST(PlaneGrid, APlaneThatShrinksToTwentyFiveKeepsTheCountOfForty)
{
    PlaneInView test;
    test.resize(40, 100);
    test.resize(25, 30);
    EXPECT_EQ(test.provider->getGridRows(), 3);
    EXPECT_EQ(test.provider->getGridColumns(), 8);
}

TEST(PlaneGrid, TicksAreQuadsAroundTheMidpointsOfOppositeSides)
{
    std::vector<float> const grid = Freecut::planeGrid(rectangle(40, 10), 3, 2, 2, 1);
    ASSERT_EQ(grid.size(), 3u * 4 * (2 + 6));
    std::vector<Point> const expected = {{19, 0, 0},   {21, 0, 0},   {21, 10, 0},   {19, 10, 0},
                                         {0, 4.5f, 0}, {0, 5.5f, 0}, {40, 5.5f, 0}, {40, 4.5f, 0}};
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(vertex(grid, i), expected[i]) << i;
}

TEST(PlaneGrid, CellsCoverThePlaneRowByRow)
{
    std::vector<float> const grid = Freecut::planeGrid(rectangle(40, 30), 4, 3, 2, 2);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 3; ++column) {
            int const first = 8 + 4 * (3 * row + column);
            float const x = 10 * row, y = 10 * column;
            EXPECT_EQ(vertex(grid, first), Point(x, y, 0));
            EXPECT_EQ(vertex(grid, first + 1), Point(x + 10, y, 0));
            EXPECT_EQ(vertex(grid, first + 2), Point(x + 10, y + 10, 0));
            EXPECT_EQ(vertex(grid, first + 3), Point(x, y + 10, 0));
        }
    EXPECT_EQ(grid.size(), 3u * 4 * (2 + 12));
}

TEST(PlaneViewProvider, DerivesTheKeyPointsAlsoInAViewThatWasNeverShown)
{
    PlaneInView test;
    test.resize(40, 20);
    std::vector<Point> const expected = {{20, 10, 0}, {0, 0, 0},   {40, 0, 0},
                                         {40, 20, 0}, {0, 20, 0},  {20, 0, 0},
                                         {0, 10, 0},  {20, 20, 0}, {40, 10, 0}};
    EXPECT_EQ(test.plane->getProperty().getKeyPoints(), expected);
}

TEST(PlaneViewProvider, HasAHandleOnEachKeyPoint)
{
    PlaneInView test;
    test.resize(40, 20);
    test.provider->buildMarkers();
    std::vector<float> const& quads = test.provider->getMarkerVertices();
    std::vector<Point> const& keyPoints = test.plane->getProperty().getKeyPoints();
    ASSERT_EQ(quads.size(), keyPoints.size() * 12);
    for (std::size_t i = 0; i < keyPoints.size(); ++i) {
        Point const a = vertex(quads, int(4 * i)), c = vertex(quads, int(4 * i + 2));
        EXPECT_LT(((a + c) * 0.5f - keyPoints[i]).GetLength(), 1e-4f);
    }
}

TEST(PlaneViewProvider, IsEnteredBelowTheProviderOfAllTools)
{
    PlaneInView test;
    EXPECT_TRUE(
        test.provider->getTypeId().isDerivedFrom(Freecut::GraphicViewProvider::getClassTypeId()));
    EXPECT_EQ(test.provider->getClassName(), "Freecut::PlaneViewProvider");
    EXPECT_EQ(test.provider->reserved1(), nullptr);
    EXPECT_EQ(test.provider->reserved2(), nullptr);
}
