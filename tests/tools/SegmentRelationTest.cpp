// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SegmentRelation.h"

#include <gtest/gtest.h>

namespace {

using Point = UPoint2<float>;

struct Relation
{
    int code;
    Point p1{-1, -1};
    Point p2{-1, -1};
};

Relation relate(Point a, Point b, Point c, Point d)
{
    Relation relation;
    relation.code = Freecut::segmentRelation(a, b, c, d, relation.p1, relation.p2);
    return relation;
}

struct TouchCase
{
    char const* name;
    Point a, b, c, d;
    int code;
    Point p1, p2;
};

Point const none(-1, -1);

// Each row touches as its name tells; the codes are sums over the touching ends.
TouchCase const touchCases[] = {
    {"c on ab", {0, 0}, {10, 0}, {4, 0}, {4, 5}, -1, {4, 0}, none},
    {"d on ab", {0, 0}, {10, 0}, {4, 5}, {4, 0}, -3, {4, 0}, none},
    {"a on cd", {4, 0}, {4, 5}, {0, 0}, {10, 0}, -5, {4, 0}, none},
    {"b on cd", {4, 5}, {4, 0}, {0, 0}, {10, 0}, -9, {4, 0}, none},
    {"c and d on ab", {0, 0}, {10, 0}, {3, 0}, {7, 0}, -4, {3, 0}, {7, 0}},
    {"a and b on cd", {3, 0}, {7, 0}, {0, 0}, {10, 0}, -14, {3, 0}, {7, 0}},
    {"c on ab, a on cd", {0, 0}, {10, 0}, {4, 0}, {-5, 0}, -6, {4, 0}, {0, 0}},
    {"c on ab, b on cd", {0, 0}, {10, 0}, {4, 0}, {15, 0}, -10, {4, 0}, {10, 0}},
    {"d on ab, a on cd", {0, 0}, {10, 0}, {-5, 0}, {4, 0}, -8, {4, 0}, {0, 0}},
    {"d on ab, b on cd", {0, 0}, {10, 0}, {15, 0}, {4, 0}, -12, {4, 0}, {10, 0}},
};

}  // namespace

TEST(SegmentRelation, EachTouchHasItsCodeAndPoints)
{
    for (TouchCase const& row : touchCases) {
        Relation const relation = relate(row.a, row.b, row.c, row.d);
        EXPECT_EQ(relation.code, row.code) << row.name;
        EXPECT_EQ(relation.p1, row.p1) << row.name;
        EXPECT_EQ(relation.p2, row.p2) << row.name;
    }
}

TEST(SegmentRelation, AProperCrossingIsOneWithItsPoint)
{
    Relation const relation = relate({0, 0}, {10, 10}, {0, 10}, {10, 0});
    EXPECT_EQ(relation.code, 1);
    EXPECT_EQ(relation.p1, Point(5, 5));
    // In double, rounded once.
    EXPECT_EQ(relate({0, 0}, {3, 1}, {1, 0}, {1, 1}).p1, Point(1, float(1.0 / 3.0)));
}

TEST(SegmentRelation, ACommonEndIsNoRelation)
{
    for (auto const& [c, d] : {std::pair<Point, Point>({0, 0}, {5, 5}),
                               {{5, 5}, {0, 0}},
                               {{10, 0}, {5, 5}},
                               {{5, 5}, {10, 0}},
                               {{0, 0}, {5, 0}}})
        EXPECT_EQ(relate({0, 0}, {10, 0}, c, d).code, 0);
}

TEST(SegmentRelation, WhatIsApartIsNoRelation)
{
    EXPECT_EQ(relate({0, 0}, {10, 0}, {0, 1}, {10, 1}).code, 0) << "parallel";
    EXPECT_EQ(relate({0, 0}, {10, 0}, {11, 0}, {15, 0}).code, 0) << "in one line";
    EXPECT_EQ(relate({0, 0}, {10, 0}, {12, -5}, {12, 5}).code, 0) << "crossing the prolongation";
}

TEST(SegmentRelation, ACrossingThatRoundsToAnEndIsNone)
{
    // The crossing is a hair beside c, nearer than its coordinates can tell.
    Point const a(16000000, -1000), b(16000001, 7000000);
    Point const c(16000000, 0), d(16000999, 0);
    EXPECT_EQ(relate(a, b, c, d).p1, c);
    EXPECT_EQ(relate(a, b, c, d).code, 0);
}

TEST(SegmentRelation, ProductsUpToTheToleranceCountAsZero)
{
    // The vector product of a unit segment is the height itself.
    EXPECT_EQ(relate({0, 0}, {1, 0}, {0.5f, 0.0009f}, {0.5f, 3}).code, -1);
    EXPECT_EQ(relate({0, 0}, {1, 0}, {0.5f, 0.0011f}, {0.5f, 3}).code, 0);
    EXPECT_EQ(relate({0, 0}, {1, 0}, {1.0009f, 0}, {1.0009f, 3}).code, -1) << "just beyond the end";
    EXPECT_EQ(relate({0, 0}, {1, 0}, {1.0011f, 0}, {1.0011f, 3}).code, 0);
}

TEST(SegmentRelation, APointLiesBetweenWhereItSeesARightAngle)
{
    EXPECT_TRUE(Freecut::liesBetween({5, 5}, {0, 0}, {10, 0})) << "a right angle";
    EXPECT_TRUE(Freecut::liesBetween({5, 4}, {0, 0}, {10, 0}));
    EXPECT_FALSE(Freecut::liesBetween({5, 6}, {0, 0}, {10, 0}));
    EXPECT_TRUE(Freecut::liesBetween({0, 0}, {0, 0}, {10, 0})) << "an end";
    EXPECT_FALSE(Freecut::liesBetween({-1, 0}, {0, 0}, {10, 0}));
}
