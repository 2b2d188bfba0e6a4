// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Crossings.h"
#include "tests/support/ExactSide.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace judge;

namespace {

Soup pairOf(std::array<UPoint3<float>, 3> const& a, std::array<UPoint3<float>, 3> const& b)
{
    Soup soup;
    for (auto const* const t : {&a, &b}) {
        std::uint32_t const first = soup.add((*t)[0]);
        soup.add((*t)[1]);
        soup.add((*t)[2]);
        soup.add(first, first + 1, first + 2);
    }
    return soup;
}

/// Whether an edge of one triangle of the pair goes through the inside of the other: what crossing
/// means where nothing coincides.
bool doesAnEdgePierce(Soup const& pair)
{
    auto const& p = pair.points;
    for (auto const& [edges, face] : {std::pair(0, 3), std::pair(3, 0)})
        for (int i = 0; i < 3; ++i) {
            auto const& from = p[std::size_t(edges + i)];
            auto const& to = p[std::size_t(edges + (i + 1) % 3)];
            auto const& a = p[std::size_t(face)];
            auto const& b = p[std::size_t(face + 1)];
            auto const& c = p[std::size_t(face + 2)];
            if (sideOf(a, b, c, from) * sideOf(a, b, c, to) < 0 &&
                sideOf(from, to, a, b) == sideOf(from, to, b, c) &&
                sideOf(from, to, b, c) == sideOf(from, to, c, a))
                return true;
        }
    return false;
}

}  // namespace

TEST(ExactSide, IsPositiveWhereTheTriangleIsSeenAnticlockwise)
{
    UPoint3<float> const a(0, 0, 0), b(1, 0, 0), c(0, 1, 0);
    EXPECT_EQ(sideOf(a, b, c, {0, 0, 1}), 1);
    EXPECT_EQ(sideOf(a, b, c, {0, 0, -1}), -1);
    EXPECT_EQ(sideOf(a, b, c, {5, 7, 0}), 0);
    EXPECT_EQ(turnOf(a, b, c, 2), 1);
    EXPECT_EQ(turnOf(a, c, b, 2), -1);
}

TEST(ExactSide, TellsTheLastBitOfAFloat)
{
    // A plane through large coordinates: doubles cannot tell these two apart.
    UPoint3<float> const a(16777216, 1, 3), b(1, 16777216, 3), c(3, 5, 16777215);
    UPoint3<float> inside = c;
    EXPECT_EQ(sideOf(a, b, c, inside), 0);
    inside.Z() = std::nextafter(c.Z(), 0.0f);
    UPoint3<float> outside = c;
    outside.Z() = std::nextafter(c.Z(), 1e9f);
    EXPECT_EQ(sideOf(a, b, c, inside), -sideOf(a, b, c, outside));
    EXPECT_NE(sideOf(a, b, c, inside), 0);
}

TEST(Crossings, AreNoneInClosedMeshes)
{
    for (auto const& [name, soup] : closedMeshes())
        EXPECT_EQ(crossingsOf(soup).total(), 0u) << name;
}

TEST(Crossings, AgreeWithPiercingEdgesWhereNothingCoincides)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<float> place(-1, 1);
    int crossing = 0;
    for (int i = 0; i < 2000; ++i) {
        std::array<UPoint3<float>, 3> a, b;
        for (auto* const t : {&a, &b})
            for (auto& p : *t)
                p = {place(random), place(random), place(random)};
        Soup const pair = pairOf(a, b);
        bool const isCrossing = doesAnEdgePierce(pair);
        crossing += isCrossing;
        EXPECT_EQ(crossingsOf(pair).pairs, std::size_t(isCrossing)) << i;
    }
    // Both answers came often enough for the comparison to mean something.
    EXPECT_GT(crossing, 200);
    EXPECT_LT(crossing, 1800);
}

TEST(Crossings, DoNotDependOnTheOrderOfCorners)
{
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        // Whole coordinates: everything coincides sooner or later.
        std::array<UPoint3<float>, 3> a, b;
        for (auto* const t : {&a, &b})
            for (auto& p : *t)
                p = {float(random() % 4), float(random() % 4), float(random() % 4)};
        std::size_t const expected = crossingsOf(pairOf(a, b)).total();
        std::rotate(a.begin(), a.begin() + 1, a.end());
        EXPECT_EQ(crossingsOf(pairOf(a, b)).total(), expected) << i;
        std::swap(b[0], b[1]);
        EXPECT_EQ(crossingsOf(pairOf(b, a)).total(), expected) << i;
    }
}

TEST(Crossings, ThatGoFromEdgeToEdgeAreSeen)
{
    // The stretch in common ends on edges of both: no edge goes through the inside of the other.
    Soup const pair =
        pairOf({{{-1, -1, 0}, {1, -1, 0}, {0, 1, 0}}}, {{{-1, -1, -1}, {1, -1, 1}, {0, 1, 0}}});
    EXPECT_FALSE(doesAnEdgePierce(pair));
    EXPECT_EQ(crossingsOf(pair).pairs, 1u);
}

TEST(Crossings, ContactsAreNone)
{
    std::array<UPoint3<float>, 3> const floor{{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}};
    // A corner, an edge on the inside, a common edge, a common corner, side by side in the plane.
    for (auto const& other : {std::array<UPoint3<float>, 3>{{{1, 1, 0}, {2, 1, 3}, {1, 2, 3}}},
                              {{{1, 1, 0}, {2, 1, 0}, {1, 2, 3}}},
                              {{{0, 0, 0}, {4, 0, 0}, {1, 1, 3}}},
                              {{{0, 0, 0}, {-4, 0, 1}, {0, -4, 1}}},
                              {{{4, 0, 0}, {0, 4, 0}, {4, 4, 0}}}})
        EXPECT_EQ(crossingsOf(pairOf(floor, other)).total(), 0u);
}

TEST(Crossings, InOnePlaneAreOverlaps)
{
    std::array<UPoint3<float>, 3> const floor{{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}};
    for (auto const& other : {floor,
                              {{{1, 1, 0}, {2, 1, 0}, {1, 2, 0}}},
                              {{{0, 0, 0}, {4, 0, 0}, {3, 3, 0}}},
                              {{{-1, 1, 0}, {5, 1, 0}, {5, 2, 0}}}}) {
        Crossings const found = crossingsOf(pairOf(floor, other));
        EXPECT_EQ(found.overlaps, 1u);
        EXPECT_EQ(found.pairs, 0u);
    }
}

TEST(Crossings, OfTwoBoxesAreSeen)
{
    EXPECT_GT(crossingsOf(crossingBoxes()).pairs, 0u);
}
