// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/BooleanJudge.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

namespace {

/// Two boxes of which one stands on the other, and the true pieces.
struct StandingBoxes
{
    Soup a = box(4, 4, 4);
    Soup b = box(4, 4, 4, {0, 0, 4});
    BooleanPieces pieces{box(4, 4, 8), {}, a, {}, a};

    std::string faults() const
    {
        std::mt19937 random(5);
        return faultsOfPieces(a, b, pieces, 50, random);
    }
};

}  // namespace

TEST(BooleanJudge, FindsNoFaultWithTruePieces)
{
    EXPECT_EQ(StandingBoxes().faults(), "");
}

TEST(BooleanJudge, SeesAWallInside)
{
    StandingBoxes boxes;
    boxes.pieces.united = boxes.a;
    boxes.pieces.united.append(boxes.b);
    boxes.pieces.united.joinPoints();
    EXPECT_NE(boxes.faults(), "");
}

TEST(BooleanJudge, SeesAFilm)
{
    StandingBoxes boxes;
    boxes.pieces.common.points = {{0, 0, 4}, {4, 0, 4}, {0, 4, 4}};
    boxes.pieces.common.triangles = {{0, 1, 2}, {0, 2, 1}};
    EXPECT_NE(boxes.faults(), "");
}

TEST(BooleanJudge, AllowanceForRoundingHidesNoDeeperCrossing)
{
    std::mt19937 random(6);
    auto const faultsWith = [&](float depth, double unitsAllowed) {
        StandingBoxes boxes;
        boxes.pieces.united = boxes.a;
        boxes.pieces.united.append(box(2, 2, 4, {1, 1, 4 - depth}));
        return faultsOfPieces(boxes.a, boxes.b, boxes.pieces, 0, random, unitsAllowed);
    };
    float const unit = 0x1p-21f;  // Of coordinates from 4 to 8, up to which the upper box goes.
    EXPECT_NE(faultsWith(unit, 0).find("that cross"), std::string::npos);
    EXPECT_EQ(faultsWith(unit, 1).find("that cross"), std::string::npos);
    EXPECT_NE(faultsWith(4 * unit, 1).find("that cross"), std::string::npos);
}

TEST(BooleanJudge, SeesAnOpenPieceAndAWrongPiece)
{
    StandingBoxes open;
    open.pieces.difference = openBox(4, 4, 4);
    EXPECT_NE(open.faults(), "");
    StandingBoxes wrong;
    wrong.pieces.outside = wrong.b;
    EXPECT_NE(wrong.faults(), "");
}

TEST(BooleanJudge, CountsWindings)
{
    EXPECT_EQ(windingNumberAt(crossingBoxes(), {15, 15, 15}), 2);
    EXPECT_EQ(windingNumberAt(crossingBoxes(), {1, 1, 1}), 1);
    EXPECT_EQ(windingNumberAt(crossingBoxes(), {-1, 1, 1}), 0);
    EXPECT_EQ(windingNumberAt(nestedBoxes(), {6, 6, 5}), 0);
    EXPECT_DOUBLE_EQ(distanceFrom(box(2, 2, 2), {1, 1, 5}), 3);
    EXPECT_DOUBLE_EQ(distanceFrom(box(2, 2, 2), {5, 6, 1}), 5);
}
