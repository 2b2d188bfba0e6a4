// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PolygonProperty.h"
#include "tools/TeethGenerator.h"

#include <gtest/gtest.h>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;

/// A rectangle of 40 by 20 mm and a generator with three teeth for each edge.
class TeethOnARectangle : public testing::Test
{
protected:
    TeethOnARectangle()
    {
        polygon.setKeyPoints({{0, 0, 0}, {40, 0, 0}, {40, 20, 0}, {0, 20, 0}});
        polygon.setEdgeRecords(std::vector<TeethEdge>(4));
        polygon.setExtrudeVector({0, 0, 30});
        TeethParas paras;
        paras.teethWidth = 4;
        paras.teethHeight = 3;
        paras.teethCount = 3;
        paras.flipTeeth = false;
        teeth.setParas(paras);
    }

    TeethEdge const& edge(int i) const { return polygon.getEdgeRecords()[std::size_t(i)]; }
    void change(auto&& what)
    {
        TeethParas paras = teeth.paras();
        what(paras);
        teeth.setParas(paras);
    }

    enum class State
    {
        None,
        Trial,
        Applied,
        ReEdit
    };
    State stateOf(int i) const
    {
        TeethEdge const& e = edge(i);
        if (!e.hasTeeth)
            return State::None;
        if (!e.editing)
            return State::Applied;
        return e.applied ? State::ReEdit : State::Trial;
    }

    PolygonProperty polygon;
    TeethGenerator teeth;
};

}  // namespace

TEST(TeethGenerator, StartsWithNothingButFlippedTeeth)
{
    TeethGenerator const teeth;
    TeethParas expected{0, 0, 0, 0, 0, 0, 0, 0, 0, false, 0, false, true};
    EXPECT_EQ(teeth.paras(), expected);
    EXPECT_TRUE(teeth.freshEdge().flip);
    EXPECT_EQ(teeth.freshEdge().teethCount, 4);
}

TEST_F(TeethOnARectangle, GoThroughTheirStates)
{
    EXPECT_FALSE(teeth.beginEdge(polygon, 1));
    EXPECT_EQ(teeth.generate(polygon), TeethFault::None);
    EXPECT_EQ(stateOf(1), State::Trial);
    EXPECT_EQ(edge(1).basePoints.size(), 3u);
    EXPECT_EQ(edge(1).teethPoints.size(), 7u);

    teeth.confirm(polygon);
    EXPECT_EQ(stateOf(1), State::Applied);
    EXPECT_TRUE(edge(1).basePoints.empty());
    EXPECT_TRUE(edge(1).handlePoints.empty());
    EXPECT_TRUE(edge(1).teethPoints.empty());
    EXPECT_EQ(edge(1).appliedPoints.size(), 7u);

    EXPECT_FALSE(teeth.beginEdge(polygon, 2));
    EXPECT_EQ(stateOf(1), State::Applied);
    EXPECT_EQ(stateOf(2), State::Trial);
    EXPECT_TRUE(teeth.beginEdge(polygon, 1));
    EXPECT_EQ(stateOf(1), State::ReEdit);
    EXPECT_EQ(stateOf(2), State::None) << "was never confirmed";
    polygon.clearEdit();
    EXPECT_EQ(stateOf(1), State::Applied);
}

TEST_F(TeethOnARectangle, ThatAreConfirmedBringTheirParametersBack)
{
    teeth.beginEdge(polygon, 0);
    change([](TeethParas& p) { p = {2, 6, 4, 5, 3, 2, 7, 8, 1, true, 1.5f, false, true}; });
    ASSERT_EQ(teeth.generate(polygon), TeethFault::None);
    teeth.confirm(polygon);
    TeethParas const stored = teeth.paras();
    change([](TeethParas& p) { p = {0, 1, 1, 1, 1, 1, 1, 1, 0, false, 0, false, false}; });
    EXPECT_TRUE(teeth.beginEdge(polygon, 0));
    EXPECT_EQ(teeth.paras(), stored);
}

TEST_F(TeethOnARectangle, OnAllEdgesFailTogether)
{
    change([](TeethParas& p) {
        p.applyAllEdges = true;
        p.teethCount = 6;
    });
    EXPECT_EQ(teeth.generate(polygon), TeethFault::ToothTooWide) << "20 mm are too short for six";
    EXPECT_FALSE(teeth.paras().applyAllEdges);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(stateOf(i), State::None);
        EXPECT_TRUE(edge(i).basePoints.empty());
    }
    change([](TeethParas& p) {
        p.applyAllEdges = true;
        p.teethCount = 5;
    });
    EXPECT_EQ(teeth.generate(polygon), TeethFault::None);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(edge(i).basePoints.size(), 5u);
}

TEST_F(TeethOnARectangle, ConfirmedOnesFallBackAfterAFault)
{
    teeth.beginEdge(polygon, 1);
    teeth.generate(polygon);
    teeth.confirm(polygon);
    teeth.beginEdge(polygon, 1);
    change([](TeethParas& p) { p.teethCount = 6; });
    EXPECT_EQ(teeth.generate(polygon), TeethFault::ToothTooWide);
    EXPECT_EQ(stateOf(1), State::Applied);
    EXPECT_EQ(edge(1).appliedPoints.size(), 7u);
    change([](TeethParas& p) { p.teethCount = 2; });
    EXPECT_EQ(teeth.generate(polygon), TeethFault::None);
    EXPECT_EQ(stateOf(1), State::Applied) << "a new click is needed";
}

TEST_F(TeethOnARectangle, AClickedEdgeIsGivenUpEvenIfItWasConfirmed)
{
    teeth.beginEdge(polygon, 1);
    teeth.generate(polygon);
    teeth.confirm(polygon);
    TeethGenerator::giveUpEdge(polygon, 1);
    EXPECT_EQ(stateOf(1), State::None);
}

TEST_F(TeethOnARectangle, StandOnTheOtherSideWhenFlipped)
{
    teeth.beginEdge(polygon, 0);
    teeth.generate(polygon);
    EXPECT_EQ(edge(0).teethPoints[0], Point(2, 3, 0)) << "inside";
    change([](TeethParas& p) { p.flipTeeth = true; });
    teeth.generate(polygon);
    EXPECT_EQ(edge(0).teethPoints[0], Point(2, -3, 0));
}

TEST_F(TeethOnARectangle, SlideOneByOneUntilTheyAreSpreadAnew)
{
    teeth.beginEdge(polygon, 0);
    change([](TeethParas& p) { p.teethMethod = 1, p.teethDistance = 15; });
    ASSERT_EQ(teeth.generate(polygon), TeethFault::None);
    polygon.getEdgeRecords()[0].teethMethod = 1;
    ASSERT_EQ(edge(0).basePoints.size(), 3u);
    EXPECT_TRUE(teeth.slide(polygon, 0, 1, {3, 9, 0}));
    EXPECT_EQ(edge(0).basePoints[1], Point(20, 0, 0));
    EXPECT_EQ(edge(0).handlePoints[1], Point(21, 1.5f, 0));
    EXPECT_EQ(edge(0).teethMethod, 0);
    EXPECT_FALSE(teeth.slide(polygon, 0, 1, {8, 0, 0}));
    EXPECT_EQ(edge(0).basePoints[1], Point(20, 0, 0));
    teeth.generate(polygon);
    EXPECT_EQ(edge(0).basePoints[1], Point(17, 0, 0));
}

TEST_F(TeethOnARectangle, AreReshapedTogetherByOneHandle)
{
    change([](TeethParas& p) { p.applyAllEdges = true; });
    ASSERT_EQ(teeth.generate(polygon), TeethFault::None);
    std::vector<Point> const centres = edge(1).basePoints;
    teeth.reshape(polygon, 0, 1, {-0.25f, 1, 70});
    EXPECT_FLOAT_EQ(teeth.paras().teethWidth, 3);
    EXPECT_FLOAT_EQ(teeth.paras().teethHeight, 5);
    EXPECT_EQ(edge(1).basePoints, centres);
    EXPECT_NEAR(edge(1).teethPoints[1].X(), 35, 1e-4) << "5 mm high on the next edge too";
}
