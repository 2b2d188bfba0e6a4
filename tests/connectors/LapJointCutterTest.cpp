// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/connectors/CutterRun.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

enum BasedOn
{
    outer,
    inner,
    all,
};

LapJointParas parasFor(int basedOn, float frontClearance = 0.2f, float backClearance = 0.3f)
{
    LapJointParas paras;
    paras.basedOn = basedOn;
    paras.notchClearance = 0.25f;
    paras.frontClearance = frontClearance;
    paras.backClearance = backClearance;
    return paras;
}

Soup const bar = prism({rectangle(-30, -10, 30, 10)}, -20, 20);
std::vector<Ring> const tubeRings{rectangle(-15, -15, 15, 15), rectangle(-7, -7, 7, 7, true)};
Soup const tubePart = prism(tubeRings, -20, 20);

Pieces cutJoint(LapJointParas const& paras, Soup const& soup)
{
    auto const plane = planeAt({0, 0, 0});
    return cutWith<LapJointCutter>(paras, soup, *plane);
}

void expectClosed(Pieces const& pieces)
{
    EXPECT_EQ(closedSolidFaults(pieces.lower), "");
    EXPECT_EQ(closedSolidFaults(pieces.upper), "");
}

void expectNear(std::vector<float> const& actual, std::vector<float> const& expected,
                float tolerance = 2e-3f)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << i;
}

}  // namespace

TEST(LapJointCutter, TongueAndNotchKeepTheClearancesOnEverySide)
{
    Pieces const pieces = cutJoint(parasFor(all), bar);
    expectClosed(pieces);
    // Faces, tip and bottom of the notch.
    expectNear(crossingsAlongZ(pieces.lower, 0.1f, 0.2f), {-20, 3});
    expectNear(crossingsAlongZ(pieces.upper, 0.1f, 0.2f), {3.3f, 20});
    expectNear(crossingsAlongZ(pieces.lower, 29.3f, 0.2f), {-20, 0});
    expectNear(crossingsAlongZ(pieces.upper, 29.3f, 0.2f), {0.2f, 20});
    // The sides of both, 2 mm from the contour and 0.25 mm apart.
    expectNear(crossingsAlongX(pieces.lower, 0.1f, 1.5f), {-28, 28});
    expectNear(crossingsAlongX(pieces.upper, 0.1f, 1.5f), {-30, -28.25f, 28.25f, 30});
    expectNear(crossingsAlongY(pieces.lower, 0.1f, 1.5f), {-8, 8});
    expectNear(crossingsAlongY(pieces.upper, 0.1f, 1.5f), {-10, -8.25f, 8.25f, 10});
    EXPECT_NEAR(volumeOf(pieces.lower), 60 * 20 * 20 + 56 * 16 * 3, 0.3);
    EXPECT_NEAR(volumeOf(pieces.upper), 60 * 20 * 19.8 - 56.5 * 16.5 * 3.1, 0.5);
    EXPECT_EQ(commonVolume(pieces.lower, pieces.upper), 0);
}

TEST(LapJointCutter, OnATubeTheJointFollowsTheChosenContours)
{
    struct Row
    {
        int basedOn;
        std::vector<float> tongue;
        std::vector<float> notch;
    };
    for (Row const& row :
         {Row{all, {-13, -9, 9, 13}, {-15, -13.25f, -8.75f, -7, 7, 8.75f, 13.25f, 15}},
          // The disc is trimmed to the material.
          Row{outer, {-13, -7, 7, 13}, {-15, -13.25f, 13.25f, 15}},
          // What lies around the hole reaches to the outer surface.
          Row{inner, {-15, -9, 9, 15}, {-8.749f, -7, 7, 8.749f}}}) {
        SCOPED_TRACE(row.basedOn);
        Pieces const pieces = cutJoint(parasFor(row.basedOn), tubePart);
        expectClosed(pieces);
        expectNear(crossingsAlongX(pieces.lower, 0.1f, 1.5f), row.tongue);
        expectNear(crossingsAlongX(pieces.upper, 0.1f, 1.5f), row.notch);
        EXPECT_EQ(commonVolume(pieces.lower, pieces.upper), 0);
    }
}

TEST(LapJointCutter, InnerContoursOfASolidBarGivePlainHalves)
{
    Pieces const pieces = cutJoint(parasFor(inner), bar);
    EXPECT_NEAR(volumeOf(pieces.lower), 60 * 20 * 20, 1e-2);
    EXPECT_NEAR(volumeOf(pieces.upper), 60 * 20 * 19.8, 1e-1);
}

TEST(LapJointCutter, ASectionTooNarrowForAJointStillGetsTheGap)
{
    LapJointParas paras = parasFor(all);
    paras.sideDistance = 10;
    Pieces const pieces = cutJoint(paras, bar);
    EXPECT_NEAR(volumeOf(pieces.lower), 60 * 20 * 20, 1e-2);
    EXPECT_NEAR(volumeOf(pieces.upper), 60 * 20 * 19.8, 1e-1);
}

TEST(LapJointCutter, WithoutFrontClearanceTheFacesMeet)
{
    Pieces const pieces = cutJoint(parasFor(all, 0, 0.3f), bar);
    expectClosed(pieces);
    expectNear(crossingsAlongZ(pieces.upper, 29.3f, 0.2f), {0, 20}, 1e-6f);
    EXPECT_EQ(commonVolume(pieces.lower, pieces.upper), 0);
}

TEST(LapJointCutter, WithoutBackClearanceTheTipTouchesTheBottom)
{
    Pieces const pieces = cutJoint(parasFor(all, 0.2f, 0), bar);
    expectClosed(pieces);
    expectNear(crossingsAlongZ(pieces.lower, 0.1f, 0.2f), {-20, 3});
    expectNear(crossingsAlongZ(pieces.upper, 0.1f, 0.2f), {3, 20});
}

TEST(LapJointCutter, AFrontClearanceAsLargeAsTheDepthLeavesANotchOfTheBackClearance)
{
    Pieces const pieces = cutJoint(parasFor(all, 3, 0.3f), bar);
    expectClosed(pieces);
    expectNear(crossingsAlongZ(pieces.upper, 29.3f, 0.2f), {3, 20});
    expectNear(crossingsAlongZ(pieces.upper, 0.1f, 0.2f), {3.3f, 20});
}

TEST(LapJointCutter, ANotchClearanceAsLargeAsTheSideDistanceOpensTheNotchToTheSide)
{
    LapJointParas paras = parasFor(all);
    paras.notchClearance = paras.sideDistance;
    Pieces const pieces = cutJoint(paras, bar);
    expectClosed(pieces);
    EXPECT_TRUE(crossingsAlongX(pieces.upper, 0.1f, 1.5f).empty());
    expectNear(crossingsAlongZ(pieces.upper, 29.3f, 0.2f), {3.3f, 20});
}

TEST(LapJointCutter, ObliqueAndFarFromTheOriginTheClearancesAreTheSame)
{
    // The bar turned about Y and moved; the plane goes with it.
    float const c = float(std::cos(0.4)), s = float(std::sin(0.4));
    float const values[16] = {c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 500, -300, 200, 1};
    UMatrix4<float> const there(values);
    auto const plane = planeAt({500, -300, 200}, {c, 0, -s}, {0, 1, 0});
    Pieces const pieces = cutWith<LapJointCutter>(parasFor(all), moved(bar, there), *plane);
    expectClosed(pieces);
    float const turnBack[16] = {c, 0, s, 0, 0, 1, 0, 0, -s, 0, c, 0, 0, 0, 0, 1};
    float const moveBack[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -500, 300, -200, 1};
    UMatrix4<float> const back = UMatrix4<float>(turnBack) * UMatrix4<float>(moveBack);
    Soup const lower = moved(pieces.lower, back), upper = moved(pieces.upper, back);
    expectNear(crossingsAlongZ(lower, 0.1f, 0.2f), {-20, 3});
    expectNear(crossingsAlongZ(upper, 0.1f, 0.2f), {3.3f, 20});
    expectNear(crossingsAlongX(lower, 0.1f, 1.5f), {-28, 28});
    expectNear(crossingsAlongX(upper, 0.1f, 1.5f), {-30, -28.25f, 28.25f, 30});
}

TEST(LapJointCutter, ATwoPartSectionGetsTwoTongues)
{
    Soup const fork = [] {
        Soup soup = prism({rectangle(-30, -10, -5, 10)}, -20, 20);
        soup.append(prism({rectangle(5, -10, 30, 10)}, -20, 20));
        return soup;
    }();
    Pieces const pieces = cutJoint(parasFor(all), fork);
    expectClosed(pieces);
    expectNear(crossingsAlongX(pieces.lower, 0.1f, 1.5f), {-28, -7, 7, 28});
}
