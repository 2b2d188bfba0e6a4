// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinPlacement.h"
#include "tests/connectors/CutterRun.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

constexpr float side = 40;
Soup const block = prism({rectangle(-20, -20, 20, 20)}, -20, 20);

PinHoleParas paras(bool isPin, float faceclearance, bool isSidedis = false)
{
    PinHoleParas p;
    p.isPin = isPin;
    p.isSidedis = isSidedis;
    p.faceclearance = faceclearance;
    p.topclearance = 0.3f;
    p.sideclearance = 0.15f;
    p.spacing = 9;
    return p;
}

Pieces cutPins(PinHoleParas const& p, Soup const& soup = block)
{
    auto const plane = planeAt({0, 0, 0});
    return cutWith<PinHoleCutter>(p, soup, *plane);
}

std::vector<UPoint3<float>> positionsOn(PinHoleParas const& p, std::vector<Ring> const& rings)
{
    auto const section = sectionOf(rings);
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    return PinPlacement(p, frame).computePositions(section->contours, &section->cap);
}

std::vector<UPoint3<float>> positionsOnBlock(PinHoleParas const& p)
{
    return positionsOn(p, {rectangle(-20, -20, 20, 20)});
}

double cylinderVolume(double radius, double height, int facets)
{
    return height * 0.5 * facets * radius * radius * std::sin(2 * std::numbers::pi / facets);
}

void expectClosed(Pieces const& pieces)
{
    EXPECT_EQ(closedSolidFaults(pieces.lower), "");
    EXPECT_EQ(closedSolidFaults(pieces.upper), "");
}

void expectNear(std::vector<float> const& actual, std::vector<float> const& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 2e-3f) << i;
}

/// Distances from a centre of the points of a mesh at a height near that centre.
void expectRadius(Soup const& soup, UPoint3<float> const& centre, float z, float radius)
{
    int found = 0;
    for (auto const& p : soup.points) {
        double const r = std::hypot(p.X() - centre.X(), p.Y() - centre.Y());
        if (std::abs(p.Z() - z) > 1e-3f || r > radius + 0.5 || r < radius - 0.5)
            continue;
        EXPECT_NEAR(r, radius, 2e-3);
        ++found;
    }
    EXPECT_GE(found, 60);
}

/// A block that is lower where x is above 0.
Soup stepped(float height)
{
    // Drawn as a front view and set upright: (x, y, z) becomes (x, -z, y).
    float const values[16] = {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1};
    Ring const view{{-20, -20}, {20, -20}, {20, height}, {0, height}, {0, 20}, {-20, 20}};
    return moved(prism({view}, -20, 20), UMatrix4<float>(values));
}

float topBeyondStep(Soup const& soup)
{
    float top = -100;
    for (auto const& p : soup.points)
        if (p.X() > 0.5f)
            top = std::max(top, p.Z());
    return top;
}

}  // namespace

TEST(PinHoleCutter, PinsAndHolesKeepTheClearances)
{
    for (float const gap : {0.0f, 0.2f}) {
        SCOPED_TRACE(gap);
        PinHoleParas const p = paras(true, gap);
        Pieces const pieces = cutPins(p);
        expectClosed(pieces);
        auto const positions = positionsOnBlock(p);
        ASSERT_GE(positions.size(), 4u);
        for (auto const& at : positions) {
            expectNear(crossingsAlongZ(pieces.lower, at.X() + 0.1f, at.Y() + 0.2f), {-20, 5});
            expectNear(crossingsAlongZ(pieces.upper, at.X() + 0.1f, at.Y() + 0.2f), {5.3f, 20});
            expectRadius(pieces.lower, at, 5, 2);
            expectRadius(pieces.upper, at, 5.3f, 2.15f);
        }
        expectNear(crossingsAlongZ(pieces.lower, 19.5f, 19.4f), {-20, 0});
        expectNear(crossingsAlongZ(pieces.upper, 19.5f, 19.4f), {gap, 20});
        double const n = double(positions.size());
        EXPECT_NEAR(volumeOf(pieces.lower), side * side * 20 + n * cylinderVolume(2, 5, 63), 0.4);
        EXPECT_NEAR(volumeOf(pieces.upper),
                    side * side * (20 - gap) - n * cylinderVolume(2.15, 5.3 - gap, 63), 0.5);
        EXPECT_EQ(commonVolume(pieces.lower, pieces.upper), 0);
    }
}

TEST(PinHoleCutter, WithoutPinsBothHalvesGetHoles)
{
    PinHoleParas const p = paras(false, 0.2f);
    Pieces const pieces = cutPins(p);
    expectClosed(pieces);
    auto const positions = positionsOnBlock(p);
    EXPECT_GE(positions.size(), 3u);
    for (auto const& at : positions) {
        expectNear(crossingsAlongZ(pieces.lower, at.X() + 0.1f, at.Y() + 0.2f), {-20, -5.3f});
        expectNear(crossingsAlongZ(pieces.upper, at.X() + 0.1f, at.Y() + 0.2f), {5.3f, 20});
    }
    double const n = double(positions.size());
    EXPECT_NEAR(volumeOf(pieces.lower), side * side * 20 - n * cylinderVolume(2.15, 5.3, 32), 0.5);
}

TEST(PinHoleCutter, BesideContoursPinsStandOnARing)
{
    PinHoleParas const p = paras(true, 0.2f, true);
    Pieces const pieces = cutPins(p);
    expectClosed(pieces);
    auto const positions = positionsOnBlock(p);
    EXPECT_GE(positions.size(), 12u);
    for (auto const& at : positions)
        expectNear(crossingsAlongZ(pieces.lower, at.X() + 0.1f, at.Y() + 0.2f), {-20, 5});
    EXPECT_EQ(commonVolume(pieces.lower, pieces.upper), 0);
}

TEST(PinHoleCutter, CommonSectionsGetPinsThatFit)
{
    for (auto const& [name, rings] : commonSections()) {
        SCOPED_TRACE(name);
        PinHoleParas const p = paras(true, 0.1f);
        Soup const part = prism(rings, -15, 15);
        Pieces const pieces = cutPins(p, part);
        expectClosed(pieces);
        double const area = volumeOf(part) / 30;
        double const n = double(positionsOn(p, rings).size());
        EXPECT_GE(n, 3);
        double const expected = 15 * area + n * cylinderVolume(2, 5, 63);
        EXPECT_NEAR(volumeOf(pieces.lower), expected, 1e-5 * expected);
        EXPECT_EQ(commonVolume(pieces.lower, pieces.upper), 0);
    }
}

TEST(PinHoleCutter, APinIsTrimmedToThePart)
{
    // Half of the part ends 2 mm above the plane, less than a pin is high.
    Pieces const pieces = cutPins(paras(true, 0.2f), stepped(2));
    expectClosed(pieces);
    EXPECT_NEAR(topBeyondStep(pieces.lower), 2, 1e-4f);
    EXPECT_EQ(commonVolume(pieces.lower, pieces.upper), 0);
}

TEST(PinHoleCutter, WhereTheUpperHalfHasNoMaterialThePinEndsWithThePart)
{
    // Half of the part ends within the gap between the faces.
    Pieces const pieces = cutPins(paras(true, 0.2f), stepped(0.1f));
    expectClosed(pieces);
    EXPECT_NEAR(topBeyondStep(pieces.lower), 0.1f, 1e-4f);
    for (auto const& p : pieces.upper.points)
        EXPECT_LE(p.X(), 1e-4f);
    EXPECT_EQ(commonVolume(pieces.lower, pieces.upper), 0);
}

TEST(PinHoleCutter, WithBoundaryOnlyWhatTheRectangleCoversIsCut)
{
    // Two posts on a base; the plane covers one of them.
    Soup const posts = fromFrontView({"#.#", "#.#", "###"});
    TestDocument test;
    auto* const part = test.add(posts, "posts");
    auto const plane = planeAt({5, 5, 22}, {1, 0, 0}, {0, 1, 0}, 8);
    for (bool const checkBoundary : {true, false}) {
        PinHoleCutter cutter(paras(true, 0), checkBoundary, {part}, plane.get());
        cutter.execute({});
        auto const& pieces = cutter.getResult().at(part);
        ASSERT_EQ(pieces.size(), 2u);
        EXPECT_EQ(componentsOf(soupOf(*pieces[1])), checkBoundary ? 1u : 2u);
    }
}
