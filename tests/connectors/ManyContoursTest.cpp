// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/connectors/CutterRun.h"
#include "tests/support/Gyroid.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

namespace {

/// A plate with square holes of 3 mm in rows and columns 7 mm apart.
std::vector<Ring> grille(int count)
{
    constexpr float step = 7;
    float const half = step * float(count) / 2;
    std::vector<Ring> rings{rectangle(-half, -half, half, half)};
    for (int i = 0; i < count; ++i)
        for (int j = 0; j < count; ++j) {
            float const x = (float(i) + 0.5f) * step - half, y = (float(j) + 0.5f) * step - half;
            rings.push_back(rectangle(x - 1.5f, y - 1.5f, x + 1.5f, y + 1.5f, true));
        }
    return rings;
}

PinHoleParas smallPins(bool isPin, bool isSidedis = false)
{
    PinHoleParas paras;
    paras.radius = 0.8f;
    paras.height = 2;
    paras.sidedistance = 1;
    paras.spacing = 12;
    paras.sideclearance = 0.1f;
    paras.topclearance = 0.3f;
    paras.faceclearance = 0.05f;
    paras.isPin = isPin;
    paras.isSidedis = isSidedis;
    return paras;
}

LapJointParas smallJoint(int basedOn)
{
    LapJointParas paras;
    paras.notchDepth = 1.5f;
    paras.sideDistance = 0.5f;
    paras.notchClearance = 0.1f;
    paras.frontClearance = 0.05f;
    paras.backClearance = 0.2f;
    paras.basedOn = basedOn;
    return paras;
}

/// Cuts a part with each kind of connector; all but the joint of inner contours must find room.
void expectAllKindsFit(Soup const& part, Freecut::PlaneGraphicObject& plane, bool hasHoles)
{
    double const below = volumeBelow(part, plane);
    UVector3<float> const gap = frameOf(plane).normal() * 0.05f;
    for (bool const isSidedis : {false, true})
        for (bool const isPin : {true, false}) {
            SCOPED_TRACE(testing::Message() << "pins " << isPin << " beside " << isSidedis);
            Pieces const pieces = cutWith<PinHoleCutter>(smallPins(isPin, isSidedis), part, plane);
            expectFitAtPoints(part, pieces, gap);
            EXPECT_GT(std::abs(volumeOf(pieces.lower) - below), 3);
        }
    for (int const basedOn : {0, 1, 2}) {
        SCOPED_TRACE(testing::Message() << "joint " << basedOn);
        Pieces const pieces = cutWith<LapJointCutter>(smallJoint(basedOn), part, plane);
        expectFitAtPoints(part, pieces, gap);
        if (hasHoles || basedOn != 1) {
            EXPECT_GT(volumeOf(pieces.lower) - below, 3);
        }
    }
}

}  // namespace

TEST(ManyContours, AGrilleOfFourHundredHoles)
{
    int const count = fineness(20);
    auto const rings = grille(count);
    EXPECT_EQ(sectionOf(rings)->contours.size(), std::size_t(count * count + 1));
    expectAllKindsFit(prism(rings, -5, 5), *planeAt({0, 0, 0}), true);
}

TEST(ManyContours, AGyroid)
{
    Soup const part = gyroidBlock(3, 10);
    ASSERT_EQ(closedSolidFaults(part), "");
    ASSERT_LT(eulerNumberOf(part), -20);
    auto const plane = planeAt({15, 15, 16.3f}, {1, 0, 0.1f}, {0, 1, 0});
    EXPECT_GE(sectionOf(part, *plane)->contours.size(), 5u);
    double const below = volumeBelow(part, *plane);
    UVector3<float> const gap = frameOf(*plane).normal() * 0.05f;
    for (bool const isPin : {true, false}) {
        PinHoleParas pins = smallPins(isPin);
        pins.radius = 0.5f;
        Pieces const pieces = cutWith<PinHoleCutter>(pins, part, *plane);
        expectFitAtPoints(part, pieces, gap);
        // At least one pin of half a millimetre's radius and two millimetres' height.
        EXPECT_GT(std::abs(volumeOf(pieces.lower) - below), 1.5);
    }
    for (int const basedOn : {0, 1, 2}) {
        Pieces const pieces = cutWith<LapJointCutter>(smallJoint(basedOn), part, *plane);
        expectFitAtPoints(part, pieces, gap);
        if (basedOn != 1) {
            EXPECT_GT(volumeOf(pieces.lower) - below, 3);
        }
    }
}

TEST(ManyContours, ATubeWithWallsOfManyPoints)
{
    Soup const part = prism({circle(20, fineness(600)), circle(12, fineness(400), true)}, -8, 8);
    expectAllKindsFit(part, *planeAt({0, 0, 0}), true);
}

TEST(ManyContours, TwoSeparateLimbs)
{
    Soup const part = fromFrontView({"#..#", "#..#", "####"});
    auto const plane = planeAt({20, 5, 21});
    EXPECT_EQ(sectionOf(part, *plane)->contours.size(), 2u);
    expectAllKindsFit(part, *plane, false);
}

TEST(ManyContours, AContourOfTwentyThousandPoints)
{
    int const points = fineness(20000);
    Soup const part = prism({circle(60, points)}, -5, 5);
    auto const plane = planeAt({0, 0, 0.5f});
    ASSERT_GE(sectionOf(part, *plane)->contours.at(0).size(), std::size_t(points));
    UVector3<float> const gap(0, 0, 0.05f);
    double const below = volumeBelow(part, *plane);
    Pieces const pinned = cutWith<PinHoleCutter>(smallPins(true), part, *plane);
    expectFitAtPoints(part, pinned, gap);
    EXPECT_GT(volumeOf(pinned.lower) - below, 3);
    Pieces const joined = cutWith<LapJointCutter>(smallJoint(2), part, *plane);
    expectFitAtPoints(part, joined, gap);
    EXPECT_GT(volumeOf(joined.lower) - below, 3);
}

TEST(ManyContours, ASectionThatFillsTheRectangleIsCut)
{
    // The plane ends exactly where the part does, or touches one of its sides.
    Soup const part = prism({rectangle(-20, -20, 20, 20)}, -10, 10);
    for (float const x : {0.0f, 10.0f}) {
        auto const plane = planeAt({x, 0, 0}, {1, 0, 0}, {0, 1, 0}, 20 + x);
        for (bool const isPin : {true, false}) {
            Pieces const pieces = cutWith<PinHoleCutter>(smallPins(isPin), part, *plane, true);
            expectFit(part, pieces, {0, 0, 0.05f});
            EXPECT_GT(std::abs(volumeOf(pieces.lower) - 16000), 3);
        }
        Pieces const pieces = cutWith<LapJointCutter>(smallJoint(2), part, *plane, true);
        expectFit(part, pieces, {0, 0, 0.05f});
        EXPECT_NEAR(volumeOf(pieces.lower), 16000 + 39 * 39 * 1.5, 0.5);
    }
}
