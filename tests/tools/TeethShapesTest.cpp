// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/TeethTables.h"
#include "tools/PuzzleTab.h"
#include "tools/TeethLayout.h"
#include "tools/TeethShapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;
using Vector = UVector3<float>;

/// The edge of the tables.
EdgeFrame tableEdge(bool flip)
{
    return {{1, 2, 5}, {19, 26, 5}, {0, 0, 40}, flip};
}

/// An edge along x whose lengths are exact.
EdgeFrame plainEdge(float length, bool flip = false)
{
    return {{0, 0, 0}, {length, 0, 0}, {0, 0, 10}, flip};
}

TeethParas byCount(int style, int count)
{
    TeethParas paras;
    paras.teethStyle = style;
    paras.teethWidth = 4;
    paras.teethHeight = 2;
    paras.upperWidth = 4;
    paras.lowerWidth = 2;
    paras.doveHeight = 2;
    paras.teethCount = count;
    paras.flipTeeth = false;
    return paras;
}

TeethRow rowOn(EdgeFrame const& edge, TeethParas const& paras)
{
    TeethLayout layout;
    EXPECT_EQ(layOutTeeth(paras, edge.length, layout), TeethFault::None);
    return rowOfTeeth(paras, edge, teethCentres(edge, layout));
}

bool isNear(Point const& p, Point const& q)
{
    return (p - q).GetLength() < 2e-5f;
}

/// Without points that repeat an end or the point before but for rounding.
std::vector<Point> withoutRepeats(std::vector<Point> const& points, EdgeFrame const& edge)
{
    std::vector<Point> kept;
    for (Point const& p : points)
        if (!isNear(p, edge.a) && !isNear(p, edge.b) && (kept.empty() || !isNear(p, kept.back())))
            kept.push_back(p);
    return kept;
}

void expectSamePoints(std::vector<Point> const& found, std::vector<Point> const& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_TRUE(isNear(found[i], expected[i]))
            << i << ": " << found[i].X() << ", " << found[i].Y() << " instead of "
            << expected[i].X() << ", " << expected[i].Y();
}

}  // namespace

class TeethTables : public testing::TestWithParam<TeethTable>
{
};

INSTANTIATE_TEST_SUITE_P(All, TeethTables, testing::ValuesIn(teethTables));

TEST_P(TeethTables, AgreeWithWhatWasWorkedOutElsewhere)
{
    EdgeFrame const edge = tableEdge(GetParam().paras.flipTeeth);
    TeethRow const row = rowOn(edge, GetParam().paras);
    expectSamePoints(withoutRepeats(row.points, edge), GetParam().outline);
    expectSamePoints(row.handles, GetParam().handles);
}

TEST(TeethShapes, OneToothByCountStandsAtTheStartWhateverItsWidth)
{
    TeethParas paras = byCount(TEETH_JAGGED, 1);
    paras.teethWidth = 500;
    TeethLayout layout;
    ASSERT_EQ(layOutTeeth(paras, 10, layout), TeethFault::None);
    EXPECT_EQ(layout.first, 250);
    EXPECT_EQ(teethCentres(plainEdge(10), layout), std::vector<Point>{Point(250, 0, 0)});
}

TEST(TeethShapes, AnEdgeTooShortForAToothByDistanceHasNone)
{
    TeethParas paras = byCount(TEETH_JAGGED, 0);
    paras.teethMethod = 1;
    paras.teethDistance = 4;
    TeethLayout layout;
    ASSERT_EQ(layOutTeeth(paras, 3.9f, layout), TeethFault::None);
    EXPECT_LE(layout.count, 0);
    EXPECT_TRUE(rowOn(plainEdge(3.9f), paras).points.empty());
}

TEST(TeethShapes, TouchingTeethShareTheirPoint)
{
    // Five teeth of 4 mm on 20 mm.
    TeethRow const row = rowOn(plainEdge(20), byCount(TEETH_JAGGED, 5));
    std::vector<Point> expected;
    for (int i = 0; i < 5; ++i) {
        expected.push_back({4.0f * i + 2, 2, 0});
        if (i < 4)
            expected.push_back({4.0f * i + 4, 0, 0});
    }
    EXPECT_EQ(row.points, expected) << "and neither end of the edge is repeated";
}

TEST(TeethShapes, TheLastToothByCountEndsAtTheEndAndTheFirstAtTheOffset)
{
    TeethParas paras = byCount(TEETH_JAGGED, 3);
    paras.useOffset = true;
    paras.teethOffset = 6;
    TeethRow const row = rowOn(plainEdge(30), paras);
    EXPECT_EQ(row.points.front(), Point(6, 0, 0));
    EXPECT_EQ(row.points.back(), Point(28, 2, 0)) << "its foot is the end of the edge";
}

TEST(TeethShapes, APuzzlesFootIsComparedWithTheStartAlone)
{
    // The first foot lies a quarter of the height inside the tab.
    EdgeFrame const edge = plainEdge(20);
    PuzzleTab const tab(edge, 4, 2);
    std::vector<Point> on, beside;
    tab.appendOutline(on, {1.5f, 0, 0});
    tab.appendOutline(beside, {1.75f, 0, 0});
    EXPECT_EQ(on.size() + 1, beside.size());
}

TEST(TeethShapes, PuzzleStepsRiseAboveHalfAMillimetreAndFallWithSize)
{
    EXPECT_EQ(PuzzleTab::stepsOfHalfCircle(0.0f), 8);
    EXPECT_EQ(PuzzleTab::stepsOfHalfCircle(0.25f), 8);
    EXPECT_EQ(PuzzleTab::stepsOfHalfCircle(0.5f), 8);
    EXPECT_EQ(PuzzleTab::stepsOfHalfCircle(0.5001f), 50);
    EXPECT_EQ(PuzzleTab::stepsOfHalfCircle(0.55f), 8) << "pi / acos(0.909) is 7.3";
    // acos(0.98) = 0.2003: 15.68.
    EXPECT_EQ(PuzzleTab::stepsOfHalfCircle(0.5f / 0.98f), 16);
    EXPECT_EQ(PuzzleTab::stepsOfHalfCircle(100), 8);
}

TEST(TeethShapes, APuzzleIsAsWideAtTheHeadAndTheMouthAsSaid)
{
    float const width = 10, height = 6;
    EdgeFrame const edge = plainEdge(100);
    std::vector<Point> points;
    PuzzleTab(edge, width, height).appendOutline(points, {50, 0, 0});
    auto const widthAt = [&](float y) {
        float low = 1e9f, high = -1e9f;
        for (Point const& p : points)
            if (std::abs(p.Y() - y) < 1e-4f) {
                low = std::min(low, p.X());
                high = std::max(high, p.X());
            }
        return high - low;
    };
    EXPECT_NEAR(widthAt(0), width - height / 2, 1e-4);
    EXPECT_NEAR(widthAt(height / 4), width - height, 1e-4);
    EXPECT_NEAR(widthAt(height * 3 / 4), width, 1e-4);
    EXPECT_NEAR(widthAt(height), width - height / 2, 1e-4);
}

TEST(TeethFaults, AreFoundInTheirOrder)
{
    TeethLayout layout;
    TeethParas paras = byCount(TEETH_PUZZLE, 3);
    paras.teethHeight = 4.001f;
    EXPECT_EQ(layOutTeeth(paras, 100, layout), TeethFault::HeightAboveWidth);
    paras.teethHeight = 4;
    EXPECT_EQ(layOutTeeth(paras, 100, layout), TeethFault::None);
    paras.teethStyle = TEETH_JAGGED;
    paras.teethHeight = 40;
    EXPECT_EQ(layOutTeeth(paras, 100, layout), TeethFault::None) << "other teeth may be high";

    paras.teethOffset = 100;
    EXPECT_EQ(layOutTeeth(paras, 100, layout), TeethFault::None) << "the offset is off";
    paras.useOffset = true;
    EXPECT_EQ(layOutTeeth(paras, 100, layout), TeethFault::OffsetTooLarge);
    paras.teethOffset = 99;
    EXPECT_EQ(layOutTeeth(paras, 100, layout), TeethFault::ToothTooWide);
    paras.useOffset = false;

    EXPECT_EQ(layOutTeeth(paras, 12, layout), TeethFault::None) << "they touch";
    EXPECT_EQ(layOutTeeth(paras, 11.99f, layout), TeethFault::ToothTooWide);
    paras.teethStyle = TEETH_DOVETAIL;
    EXPECT_EQ(layOutTeeth(paras, 11.99f, layout), TeethFault::DovetailTooWide);
    std::swap(paras.upperWidth, paras.lowerWidth);
    EXPECT_EQ(layOutTeeth(paras, 11.99f, layout), TeethFault::DovetailTooWide);
    paras.teethMethod = 1;
    paras.teethDistance = 3.9f;
    EXPECT_EQ(layOutTeeth(paras, 100, layout), TeethFault::DovetailTooWide);
}

TEST(TeethFaults, MoreTeethThanACountCanAskForAreRefused)
{
    TeethParas paras = byCount(TEETH_JAGGED, 0);
    paras.teethMethod = 1;
    paras.teethWidth = 0.001f;
    paras.teethDistance = 0.001f;
    TeethLayout layout;
    EXPECT_EQ(layOutTeeth(paras, 1e7f, layout), TeethFault::TooMany);
    EXPECT_EQ(layOutTeeth(paras, 9, layout), TeethFault::None);
    paras.teethDistance = 0;
    paras.teethWidth = 0;
    EXPECT_EQ(layOutTeeth(paras, 0, layout), TeethFault::TooMany) << "not a number of teeth";
}

namespace {

struct RandomRow
{
    TeethParas paras;
    Point a, b;
    Vector normal;
};

RandomRow randomRow(std::mt19937& random)
{
    auto const number = [&](float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random);
    };
    RandomRow row;
    // An edge across a normal of any direction.
    row.normal = Vector(number(-1, 1), number(-1, 1), number(0.1f, 1)) * number(1, 100);
    Vector along = row.normal * Vector(number(-1, 1), number(-1, 1), number(-1, 1));
    along = along.Normalize() * number(1, 200);
    row.a = {number(-50, 50), number(-50, 50), number(-50, 50)};
    row.b = row.a + along;
    row.paras.teethStyle = int(random() % 3);
    row.paras.teethWidth = number(0.05f, 20);
    row.paras.teethHeight = number(0.05f, 20);
    row.paras.upperWidth = number(0.05f, 20);
    row.paras.lowerWidth = number(0.05f, 20);
    row.paras.doveHeight = number(0.05f, 20);
    row.paras.teethCount = 1 + int(random() % 12);
    row.paras.teethDistance = number(0.05f, 40);
    row.paras.teethMethod = int(random() % 2);
    row.paras.useOffset = random() % 2;
    row.paras.teethOffset = number(0, 60);
    row.paras.flipTeeth = random() % 2;
    return row;
}

}  // namespace

TEST(TeethShapes, OfTenThousandParametersKeepTheirInvariants)
{
    std::mt19937 random(20240817);
    int fitting = 0;
    for (int i = 0; i < 10000; ++i) {
        RandomRow const r = randomRow(random);
        EdgeFrame const edge(r.a, r.b, r.normal, r.paras.flipTeeth);
        TeethLayout layout;
        if (layOutTeeth(r.paras, edge.length, layout) != TeethFault::None)
            continue;
        std::vector<Point> const centres = teethCentres(edge, layout);
        TeethRow const row = rowOfTeeth(r.paras, edge, centres);
        bool const isSingle = r.paras.isByCount() && layout.count == 1;
        float const tolerance = 1e-3f;
        float const width = r.paras.toothWidth();
        float const offset = r.paras.useOffset ? r.paras.teethOffset : 0;
        fitting += !centres.empty();

        ASSERT_EQ(row.handles.size(), centres.size()) << i;
        for (std::size_t k = 1; k < centres.size(); ++k)
            ASSERT_NEAR((centres[k] - centres[k - 1]).GetLength(), layout.spacing, tolerance) << i;
        ASSERT_GE(layout.count < 2 ? width : layout.spacing, width) << i;
        float highest = 0;
        for (Point const& p : row.points) {
            float const x = (p - edge.a) | edge.dir, y = (p - edge.a) | edge.perp;
            // A single tooth by count may be wider than its edge, by design.
            ASSERT_GE(x, offset - tolerance) << i;
            ASSERT_LE(x,
                      (isSingle ? std::max(edge.length, offset + width) : edge.length) + tolerance)
                << i;
            ASSERT_GE(y, -tolerance) << i;
            ASSERT_NEAR((p - edge.a) | Vector(edge.normal).Normalize(), 0, tolerance) << i;
            highest = std::max(highest, y);
        }
        if (!centres.empty()) {
            float const height =
                r.paras.teethStyle == TEETH_DOVETAIL ? r.paras.doveHeight : r.paras.teethHeight;
            ASSERT_NEAR(highest, height, tolerance) << i;
        }
        for (std::size_t k = 1; k < row.points.size(); ++k)
            ASSERT_NE(row.points[k], row.points[k - 1]) << i;
        ASSERT_TRUE(row.points.empty() || row.points.front() != edge.a) << i;

        // Flipped, the row is its own mirror image.
        TeethParas mirrored = r.paras;
        mirrored.flipTeeth = !mirrored.flipTeeth;
        TeethRow const mirror =
            rowOfTeeth(mirrored, {r.a, r.b, r.normal, mirrored.flipTeeth}, centres);
        ASSERT_EQ(mirror.points.size(), row.points.size()) << i;
        for (std::size_t k = 0; k < row.points.size(); ++k) {
            Vector const p = row.points[k] - edge.a, q = mirror.points[k] - edge.a;
            ASSERT_NEAR(p | edge.dir, q | edge.dir, tolerance) << i;
            ASSERT_NEAR(p | edge.perp, -(q | edge.perp), tolerance) << i;
        }
    }
    EXPECT_GT(fitting, 2000);
}
