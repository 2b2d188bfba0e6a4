// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/FaceChoice.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Links = std::vector<FaceLink>;
using Choice = std::vector<bool>;

}  // namespace

TEST(FaceChoice, FaceBetweenTwoPiecesIsCut)
{
    EXPECT_EQ(chooseFaces(2, {{0, 1}}), Choice({true}));
}

TEST(FaceChoice, AllFacesBetweenTheSameTwoPiecesAreCut)
{
    EXPECT_EQ(chooseFaces(2, {{0, 1}, {0, 1}, {0, 1}}), Choice({true, true, true}));
}

TEST(FaceChoice, FaceWithOnePieceOnBothSidesIsNotCut)
{
    EXPECT_EQ(chooseFaces(1, {{0, 0}}), Choice({false}));
}

TEST(FaceChoice, OpenRingDoesNotKeepALimbFromBeingCut)
{
    // The limb is piece 1, above the ring; or below it.
    EXPECT_EQ(chooseFaces(2, {{0, 0}, {0, 1}}), Choice({false, true}));
    EXPECT_EQ(chooseFaces(2, {{1, 0}, {0, 0}}), Choice({true, false}));
}

TEST(FaceChoice, RingThatWindsUpwardsIsNotCut)
{
    EXPECT_EQ(chooseFaces(2, {{0, 1}, {1, 0}}), Choice({false, false}));
    // A limb below it comes off all the same.
    EXPECT_EQ(chooseFaces(3, {{0, 1}, {1, 0}, {2, 1}}), Choice({false, false, true}));
}

TEST(FaceChoice, WayThatCutsMoreFacesIsTaken)
{
    // Piece 0 carries one limb above and two below, then the other way round.
    EXPECT_EQ(chooseFaces(4, {{0, 1}, {2, 0}, {3, 0}}), Choice({false, true, true}));
    EXPECT_EQ(chooseFaces(4, {{0, 1}, {0, 2}, {3, 0}}), Choice({true, true, false}));
}

TEST(FaceChoice, UpperPiecesComeOffWhereBothWaysCutAsMany)
{
    EXPECT_EQ(chooseFaces(3, {{0, 1}, {2, 0}}), Choice({true, false}));
    EXPECT_EQ(chooseFaces(3, {{2, 0}, {0, 1}}), Choice({false, true}));
}

TEST(FaceChoice, BodiesAreDecidedUponEachByItself)
{
    Links const links = {{0, 1}, {2, 0}, {3, 0}, {4, 5}, {6, 4}};
    EXPECT_EQ(chooseFaces(7, links), Choice({false, true, true, true, false}));
}

TEST(FaceChoice, NoPieceIsLeftWithFacesBothAboveAndBelow)
{
    std::mt19937 random(4);
    for (int run = 0; run < 2000; ++run) {
        std::size_t const pieces = 1 + random() % 9;
        Links links;
        for (std::size_t i = 0; i < 1 + random() % 12; ++i)
            links.push_back({std::uint32_t(random() % pieces), std::uint32_t(random() % pieces)});
        Choice const isCut = chooseFaces(pieces, links);
        ASSERT_EQ(isCut.size(), links.size());
        // Faces that are not cut make one piece of two; there are few enough to join by repetition.
        std::vector<std::uint32_t> name(pieces);
        for (std::uint32_t p = 0; p < pieces; ++p)
            name[p] = p;
        for (std::size_t pass = 0; pass < pieces; ++pass)
            for (std::size_t i = 0; i < links.size(); ++i)
                if (!isCut[i])
                    name[links[i].below] = name[links[i].above] =
                        std::min(name[links[i].below], name[links[i].above]);
        for (std::size_t i = 0; i < links.size(); ++i)
            for (std::size_t k = 0; k < links.size(); ++k)
                if (isCut[i] && isCut[k]) {
                    ASSERT_NE(name[links[i].below], name[links[k].above]) << run;
                }
    }
}
