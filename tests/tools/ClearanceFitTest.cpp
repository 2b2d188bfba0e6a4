// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tools/OutlineScene.h"
#include "tools/ClearanceFit.h"
#include "tools/CuboidOutline.h"
#include "tools/CuboidProperty.h"
#include "tools/PolygonOutline.h"
#include "tools/PolygonProperty.h"
#include "tools/TeethGenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Freecut;

enum Direction
{
    inside,
    outside,
    bothSides
};

// Offsets are taken on a grid of a thousandth, and outlines before them are truncated to it.
constexpr double grid = 0.003;

/// A block of 30 x 20 mm with teeth along its upper edge, every 3 or 4 mm.
class ToothedBlock
{
public:
    ToothedBlock() : m_outline(m_record)
    {
        m_record.setKeyPoints({{0, -20, 0}, {30, -20, 0}, {30, 0, 0}, {0, 0, 0}});
        m_record.setExtrudeVector({0, 0, 30});
        m_record.getEdgeRecords().resize(4);
        paras.teethMethod = 1;
        paras.teethDistance = 3;
        paras.flipTeeth = true;
    }

    static ToothedBlock jagged(float width, float height)
    {
        ToothedBlock block;
        block.paras.teethStyle = 0;
        block.paras.teethWidth = width;
        block.paras.teethHeight = height;
        return block;
    }
    static ToothedBlock dovetail(float upper, float lower, float height)
    {
        ToothedBlock block;
        block.paras.teethStyle = 1;
        block.paras.upperWidth = upper;
        block.paras.lowerWidth = lower;
        block.paras.doveHeight = height;
        return block;
    }
    static ToothedBlock puzzle(float width, float height)
    {
        ToothedBlock block = jagged(width, height);
        block.paras.teethStyle = 2;
        return block;
    }
    ToothedBlock(ToothedBlock const& other)
        : paras(other.paras), m_record(other.m_record), m_outline(m_record)
    {}

    ClearanceFit fit(Direction direction, float clearance, float rounding = 0)
    {
        TeethEdge& edge = m_record.getEdgeRecords()[2];
        edge.hasTeeth = edge.editing = true;
        TeethGenerator generator;
        generator.setParas(paras);
        EXPECT_EQ(generator.generate(m_record), TeethFault::None);
        generator.confirm(m_record);
        m_record.setRoundCorners(rounding > 0);
        m_record.setCornerRadius(rounding);
        m_record.setClearanceEnabled(clearance > 0);
        m_record.setClearance(clearance);
        m_record.setClearanceDirection(direction);
        m_outline.update(topCamera(), false, false);
        return fitOf(FitRequest::of(m_outline), {});
    }
    VolumeOutline const& outline() const { return m_outline; }

    TeethParas paras;

private:
    PolygonProperty m_record;
    PolygonOutline m_outline;
};

void expectWhole(ClearanceFit const& fit)
{
    EXPECT_FALSE(fit.closesNeck);
    EXPECT_FALSE(fit.losesTooth);
    EXPECT_FALSE(fit.closesGap);
}

}  // namespace

TEST(ClearanceFit, WithoutAClearanceThereIsNothingToTell)
{
    EXPECT_EQ(ToothedBlock::jagged(2, 1).fit(outside, 0), ClearanceFit());
}

TEST(ClearanceFit, PiecesAreTheClearanceApartOnOneSideAndTwiceThatOnBoth)
{
    for (ToothedBlock block : {ToothedBlock::jagged(2, 1), ToothedBlock::dovetail(2, 1, 1),
                               ToothedBlock::puzzle(2, 1)}) {
        EXPECT_NEAR(*block.fit(inside, 0.2f).pieceGap, 0.2, grid);
        EXPECT_NEAR(*block.fit(outside, 0.2f).pieceGap, 0.2, grid);
        EXPECT_NEAR(*block.fit(bothSides, 0.2f).pieceGap, 0.4, grid);
    }
}

// A square of 20 mm around one of 10 mm that comes within 1 mm of one of its sides.
TEST(ClearanceFit, TheGapOfThePiecesIsFoundAtWhicheverSideItIs)
{
    Ring outer{{-10, -10, 0}, {10, -10, 0}, {10, 10, 0}, {-10, 10, 0}};
    Ring inner{{-5, -9, 0}, {5, -9, 0}, {5, 1, 0}, {-5, 1, 0}};
    for (std::size_t ofOuter = 0; ofOuter < 4; ++ofOuter) {
        for (std::size_t ofInner = 0; ofInner < 4; ++ofInner) {
            FitRequest request;
            request.nominal = {inner};
            request.solids.extrudeVector = {0, 0, 30};
            request.solids.hasClearance = true;
            request.gap = 1;
            // Which of the two is the inner solid makes no difference to the distance.
            for (bool const isSwapped : {false, true}) {
                request.solids.inner = {isSwapped ? outer : inner};
                request.solids.outer = {isSwapped ? inner : outer};
                EXPECT_NEAR(fitOf(request, {}).pieceGap.value_or(0), 1, 1e-6)
                    << ofOuter << " " << ofInner << " " << isSwapped;
            }
            std::rotate(inner.begin(), inner.begin() + 1, inner.end());
        }
        std::rotate(outer.begin(), outer.begin() + 1, outer.end());
    }
}

// Feet are 3 - 2 = 1 mm apart and flanks rise at 45 degrees. Flank and edge move by c; where they
// meet is c tan(45 / 2 degrees) nearer to the neighbour.
TEST(ClearanceFit, JaggedTeethAreNearestAtTheirFeet)
{
    ToothedBlock block = ToothedBlock::jagged(2, 1);
    double const nearer = 0.2 * std::tan(M_PI / 8);
    EXPECT_NEAR(*block.fit(inside, 0.2f).toothGap, 1, grid);
    EXPECT_NEAR(*block.fit(outside, 0.2f).toothGap, 1 - 2 * nearer, grid);
    EXPECT_NEAR(*block.fit(bothSides, 0.2f).toothGap, 1 - 2 * nearer, grid);
    expectWhole(block.fit(bothSides, 0.2f));
}

// Heads of 2 mm every 3 mm; their corners get round ones of the clearance.
TEST(ClearanceFit, DovetailsAreNearestAtTheirHeads)
{
    ToothedBlock block = ToothedBlock::dovetail(2, 1, 1);
    EXPECT_NEAR(*block.fit(inside, 0.2f).toothGap, 1, grid);
    EXPECT_NEAR(*block.fit(outside, 0.2f).toothGap, 0.6, grid);
    EXPECT_NEAR(*block.fit(bothSides, 0.35f).toothGap, 0.3, grid);
    expectWhole(block.fit(bothSides, 0.35f));
}

TEST(ClearanceFit, PuzzleTabsAreNearestAtTheMiddleOfTheirHeads)
{
    ToothedBlock block = ToothedBlock::puzzle(2, 1);
    EXPECT_NEAR(*block.fit(inside, 0.1f).toothGap, 1, grid);
    EXPECT_NEAR(*block.fit(outside, 0.1f).toothGap, 0.8, grid);
    EXPECT_NEAR(*block.fit(bothSides, 0.2f).toothGap, 0.6, grid);
    expectWhole(block.fit(bothSides, 0.2f));
}

// Into the block teeth are notches: what lies between them narrows where the outline moves inward.
TEST(ClearanceFit, TeethOnTheOtherSideComeNearerInward)
{
    ToothedBlock block = ToothedBlock::dovetail(2, 1, 1);
    block.paras.flipTeeth = false;
    EXPECT_NEAR(*block.fit(outside, 0.2f).toothGap, 1, grid);
    EXPECT_NEAR(*block.fit(inside, 0.2f).toothGap, 0.6, grid);
    expectWhole(block.fit(inside, 0.2f));
    EXPECT_TRUE(block.fit(inside, 0.55f).closesGap);
}

TEST(ClearanceFit, FeetThatMeetCloseNothing)
{
    ToothedBlock touching = ToothedBlock::jagged(3, 1.5f);
    EXPECT_EQ(*touching.fit(outside, 0.2f).toothGap, 0);
    expectWhole(touching.fit(outside, 0.2f));
    ToothedBlock near = ToothedBlock::jagged(2.9f, 1.45f);
    EXPECT_EQ(*near.fit(outside, 0.2f).toothGap, 0);
    expectWhole(near.fit(outside, 0.2f));
}

TEST(ClearanceFit, HeadsThatMeetCloseTheRoomBetweenThem)
{
    // 1 mm apart, moved by more than half of it.
    EXPECT_FALSE(ToothedBlock::dovetail(2, 1, 1).fit(outside, 0.49f).closesGap);
    EXPECT_TRUE(ToothedBlock::dovetail(2, 1, 1).fit(outside, 0.51f).closesGap);
    EXPECT_FALSE(ToothedBlock::puzzle(2, 1).fit(outside, 0.49f).closesGap);
    EXPECT_TRUE(ToothedBlock::puzzle(2, 1).fit(outside, 0.51f).closesGap);
    // So wide a clearance that no trace of the room is left.
    EXPECT_TRUE(ToothedBlock::dovetail(2, 1, 1).fit(outside, 0.9f).closesGap);
}

// The neck of a dovetail is its foot, 1 mm; the head above it is 2 mm wide and 1 mm high.
TEST(ClearanceFit, ADovetailLosesItsNeckBeforeItsHead)
{
    expectWhole(ToothedBlock::dovetail(2, 1, 1).fit(inside, 0.45f));
    ClearanceFit const closed = ToothedBlock::dovetail(2, 1, 1).fit(inside, 0.52f);
    EXPECT_TRUE(closed.closesNeck);
    EXPECT_FALSE(closed.losesTooth);
    ClearanceFit const lost = ToothedBlock::dovetail(2, 1, 1).fit(inside, 0.8f);
    EXPECT_FALSE(lost.closesNeck);
    EXPECT_TRUE(lost.losesTooth);
}

// A neck of 2.2 - 2 = 0.2 mm below a head of 2.2 x 1 mm.
TEST(ClearanceFit, APuzzleTabLosesItsNeck)
{
    ToothedBlock block = ToothedBlock::puzzle(2.2f, 2);
    expectWhole(block.fit(inside, 0.08f));
    EXPECT_TRUE(block.fit(inside, 0.12f).closesNeck);
    EXPECT_TRUE(block.fit(bothSides, 0.12f).closesNeck);
    EXPECT_FALSE(block.fit(outside, 0.12f).closesNeck);
}

// Moved inward, flanks at 45 degrees lose the clearance at their tip and nothing at their feet.
TEST(ClearanceFit, AJaggedToothIsLostWithTheLengthOfItsFlanks)
{
    ToothedBlock block = ToothedBlock::jagged(0.4f, 0.2f);
    // Away from the corner, whose other edge comes nearer as well.
    block.paras.useOffset = true;
    block.paras.teethOffset = 2;
    float const flank = 0.2f * std::sqrt(2.0f);
    EXPECT_FALSE(block.fit(inside, flank - 0.03f).losesTooth);
    EXPECT_TRUE(block.fit(inside, flank + 0.01f).losesTooth);
}

TEST(ClearanceFit, OfRoundedCornersTheGapIsMeasuredAsItCameOut)
{
    for (float const rounding : {0.1f, 0.3f}) {
        ToothedBlock block = ToothedBlock::dovetail(2, 1.2f, 1);
        ClearanceFit const fit = block.fit(bothSides, 0.15f, rounding);
        GLCamera const camera = topCamera();
        ToolOutlines const& outlines = block.outline().outlines();
        ASSERT_EQ(outlines.innerLoops.size(), 1u);
        ASSERT_EQ(outlines.outerLoops.size(), 1u);
        double const expected = distancesBetween(seen(outlines.innerLoops[0], camera),
                                                 seen(outlines.outerLoops[0], camera))
                                    .least;
        EXPECT_NEAR(*fit.pieceGap, expected, 1e-5);
        expectWhole(fit);
    }
}

TEST(ClearanceFit, OfAToolWithoutTeethTellsOfItsNecksAndBays)
{
    // Two squares of 10 mm joined by a bridge 1 mm wide: a neck from within, and none from outside.
    PolygonProperty record;
    record.setKeyPoints({{0, 0, 0},
                         {10, 0, 0},
                         {10, 4, 0},
                         {20, 4, 0},
                         {20, 0, 0},
                         {30, 0, 0},
                         {30, 10, 0},
                         {20, 10, 0},
                         {20, 5, 0},
                         {10, 5, 0},
                         {10, 10, 0},
                         {0, 10, 0}});
    record.getEdgeRecords().resize(12);
    record.setExtrudeVector({0, 0, 30});
    record.setClearanceEnabled(true);
    PolygonOutline outline(record);
    auto const fit = [&](Direction direction, float clearance) {
        record.setClearance(clearance);
        record.setClearanceDirection(direction);
        outline.update(topCamera(), false, false);
        return fitOf(FitRequest::of(outline), {});
    };
    expectWhole(fit(bothSides, 0.4f));
    EXPECT_TRUE(fit(inside, 0.6f).closesNeck);
    EXPECT_FALSE(fit(outside, 0.6f).closesNeck);
    EXPECT_FALSE(fit(outside, 0.6f).toothGap);
    // The bays above and below the bridge are 10 mm wide and open.
    expectWhole(fit(outside, 1.0f));
}

TEST(ClearanceFit, ARingHasItsGapAlone)
{
    CuboidProperty record;
    record.setKeyPoints({{0, 0, 0}, {}, {}, {}});
    record.setExtrudeVector({0, 0, 10});
    record.setCuboidWidth(10);
    record.setCuboidLength(20);
    record.setClearanceEnabled(true);
    record.setClearance(0.25f);
    record.setClearanceDirection(bothSides);
    CuboidOutline outline(record);
    outline.update(topCamera(), false, false);
    ClearanceFit const fit = fitOf(FitRequest::of(outline), {});
    EXPECT_NEAR(*fit.pieceGap, 0.5, grid);
    EXPECT_FALSE(fit.toothGap);
    expectWhole(fit);
}

TEST(ClearanceFit, AGapIsToldAsItWasAskedForWhereTheGridAloneKeepsItAway)
{
    EXPECT_EQ(toldGap(0.148, 0.15), 0.15);
    EXPECT_EQ(toldGap(0.1525, 0.15), 0.15);
    EXPECT_EQ(toldGap(0.146, 0.15), 0.146) << "teeth are nearer than that";
    EXPECT_EQ(toldGap(0.001, 0.002), 0.001) << "as wide as the grid, which says nothing";
    ToothedBlock block = ToothedBlock::jagged(1, 0.5f);
    EXPECT_FLOAT_EQ(float(block.fit(inside, 0.15f).askedGap), 0.15f);
    EXPECT_FLOAT_EQ(float(block.fit(bothSides, 0.15f).askedGap), 0.3f);
}
