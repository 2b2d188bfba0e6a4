// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/drawings/PathChecks.h"

#include <gtest/gtest.h>

namespace {

using namespace Drawings;

/// Pairs of code and value as lines of a file.
QByteArray pairs(std::initializer_list<char const*> values)
{
    QByteArray text;
    for (char const* const value : values)
        text += QByteArray(value) + '\n';
    return text;
}

QByteArray drawing(QByteArray const& entities, char const* unit = nullptr)
{
    QByteArray text;
    if (unit)
        text += pairs({"0", "SECTION", "2", "HEADER", "9", "$INSUNITS", "70", unit, "0", "ENDSEC"});
    return text + pairs({"0", "SECTION", "2", "ENTITIES"}) + entities +
           pairs({"0", "ENDSEC", "0", "EOF"});
}

QByteArray line(char const* x1, char const* y1, char const* x2, char const* y2)
{
    return pairs({"0", "LINE", "8", "0", "10", x1, "20", y1, "11", x2, "21", y2});
}

QByteArray const circle = pairs({"0", "CIRCLE", "8", "0", "10", "10", "20", "20", "40", "30"});
/// A slot: two sides and two half circles, as one polyline.
QByteArray const slot = pairs({"0",  "LWPOLYLINE", "8",  "0",  "90", "4",  "70", "1", "10", "0",
                               "20", "0",          "10", "20", "20", "0",  "42", "1", "10", "20",
                               "20", "10",         "10", "0",  "20", "10", "42", "1"});
QByteArray const spline =
    pairs({"0",  "SPLINE", "8",  "0",   "70", "8",  "71", "3",  "72", "8",  "73", "4", "74", "0",
           "40", "0",      "40", "0",   "40", "0",  "40", "0",  "40", "1",  "40", "1", "40", "1",
           "40", "1",      "10", "10",  "20", "50", "30", "0",  "10", "10", "20", "0", "30", "0",
           "10", "90",     "20", "100", "30", "0",  "10", "90", "20", "50", "30", "0"});

}  // namespace

TEST(DxfDrawing, UnitsComeFromTheHeaderOrFromTheUser)
{
    struct Row
    {
        char const* code;
        Unit unit;
        double radius;
    };
    for (Row const& row : {Row{nullptr, {}, 30},
                           {"0", {}, 30},
                           {"1", {}, 30 * 25.4},
                           {"2", {}, 30 * 304.8},
                           {"4", {}, 30},
                           {"5", {}, 300},
                           {"6", {}, 30000},
                           {"13", {}, 0.03},
                           {"1", 1.0, 30},
                           {"17", unitOfName("cm"), 300}}) {
        auto const paths = dxfPaths(drawing(circle, row.code), row.unit);
        ASSERT_EQ(paths.size(), 1u);
        EXPECT_NEAR(extentOf(paths[0]).width(), 2 * row.radius, 0.011) << row.code;
    }
}

TEST(DxfDrawing, CirclesArcsAndEllipsesAreFollowedWithinAHundredthOfAMillimetre)
{
    expectCircle(dxfPaths(drawing(circle), {}).at(0), {10, 20}, 30);
    // Two arcs, which meet.
    QByteArray const arcs =
        pairs(
            {"0", "ARC", "8", "0", "10", "10", "20", "20", "40", "30", "50", "350", "51", "100"}) +
        pairs({"0", "ARC", "8", "0", "10", "10", "20", "20", "40", "30", "50", "100", "51", "350"});
    auto const joined = dxfPaths(drawing(arcs), {});
    ASSERT_EQ(joined.size(), 1u);
    EXPECT_TRUE(joined[0].isClosed);
    expectCircle(joined[0], {10, 20}, 30);
    auto const ellipse =
        dxfPaths(drawing(pairs({"0", "ELLIPSE", "8", "0", "10", "0", "20", "0", "11", "0", "21",
                                "40", "40", "0.5", "41", "0", "42", "6.283185307179586"})),
                 {});
    ASSERT_EQ(ellipse.size(), 1u);
    EXPECT_TRUE(ellipse[0].isClosed);
    for (int i = 0; i < 1000; ++i)
        EXPECT_LT(distanceFrom(ellipse[0], {20 * std::cos(i / 159.0), 40 * std::sin(i / 159.0)}),
                  0.01);
}

TEST(DxfDrawing, ABulgeIsAnArc)
{
    auto const paths = dxfPaths(drawing(slot), {});
    ASSERT_EQ(paths.size(), 1u);
    EXPECT_TRUE(paths[0].isClosed);
    Extent const extent = extentOf(paths[0]);
    EXPECT_NEAR(extent.lowX, -5, 0.01);
    EXPECT_NEAR(extent.highX, 25, 0.01);
    EXPECT_NEAR(extent.height(), 10, 1e-6);
    for (int i = -90; i <= 90; ++i)
        EXPECT_LT(distanceFrom(paths[0], {20 + 5 * std::cos(i * M_PI / 180),
                                          5 + 5 * std::sin(i * M_PI / 180)}),
                  0.01);
}

TEST(DxfDrawing, ASplineIsFollowedWithinAHundredthOfAMillimetre)
{
    auto const paths = dxfPaths(drawing(spline), {});
    ASSERT_EQ(paths.size(), 1u);
    for (int i = 0; i <= 1000; ++i) {
        double const t = i / 1000.0, s = 1 - t;
        EXPECT_LT(distanceFrom(paths[0],
                               {10 * s * s * s + 30 * s * s * t + 270 * s * t * t + 90 * t * t * t,
                                50 * s * s * s + 300 * s * t * t + 50 * t * t * t}),
                  0.01);
    }
}

TEST(DxfDrawing, LooseLinesAreOnePath)
{
    // In no order, and some the other way round; a small one beside them.
    auto const paths =
        dxfPaths(drawing(line("0", "0", "10", "0") + line("10", "10", "0", "10.004") +
                         line("10.003", "0", "10", "10") + line("50", "50", "51", "50") +
                         line("0", "0", "0", "10")),
                 {});
    ASSERT_EQ(paths.size(), 2u);
    EXPECT_TRUE(paths[0].isClosed);
    EXPECT_EQ(paths[0].points.size(), 4u);
    EXPECT_FALSE(paths[1].isClosed);
    EXPECT_EQ(&chosenPath(paths, {}), &paths[0]);
    // A gap of 0.1 mm is open.
    auto const open =
        drawing(line("0", "0", "10", "0") + line("10", "0", "5", "8") + line("5.1", "8", "0", "0"));
    EXPECT_NE(refusalOf(open, dxfPaths).find("Path 1 is open: it begins at"), std::string::npos)
        << refusalOf(open, dxfPaths);
}

TEST(DxfDrawing, APolylineSeenFromBehindIsMirrored)
{
    auto const paths = dxfPaths(drawing(slot + pairs({"210", "0", "220", "0", "230", "-1"})), {});
    ASSERT_EQ(paths.size(), 1u);
    EXPECT_NEAR(extentOf(paths[0]).lowX, -25, 0.01);
    EXPECT_NEAR(extentOf(paths[0]).highX, 5, 0.01);
}

TEST(DxfDrawing, WhatCannotBeReadIsRefusedWithASentence)
{
    struct Row
    {
        QByteArray text;
        char const* why;
    };
    for (Row const& row :
         {Row{"", "The drawing has no path."},
          {"Hello\nworld\n", "It is damaged."},
          {drawing(circle, "17"), "Its unit of number 17 is not known."},
          {drawing(pairs({"0", "INSERT", "8", "0", "2", "part", "10", "0", "20", "0"}) + circle),
           "It has inserted blocks"},
          {drawing(circle + pairs({"210", "1", "220", "0", "230", "0"})), "Lay them flat."},
          {drawing(pairs({"0", "LWPOLYLINE", "90", "2000000000"})), "It is damaged."}})
        EXPECT_NE(refusalOf(row.text, dxfPaths).find(row.why), std::string::npos)
            << row.why << "\n  but: " << refusalOf(row.text, dxfPaths);
}

TEST(DxfDrawing, SmallChangesGivePathsOrASentence)
{
    expectNoHarm({drawing(slot + circle, "4"), drawing(spline + line("0", "0", "10", "0"), "1"),
                  drawing(pairs({"0",  "POLYLINE", "8",  "0", "66", "1",     "70", "1",
                                 "0",  "VERTEX",   "10", "0", "20", "0",     "0",  "VERTEX",
                                 "10", "9",        "20", "0", "42", "0.5",   "0",  "VERTEX",
                                 "10", "5",        "20", "8", "0",  "SEQEND"}))},
                 dxfPaths);
}
