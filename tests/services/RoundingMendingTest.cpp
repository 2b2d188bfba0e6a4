// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/RoundingMending.h"
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/services/BoxUnderATip.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/OneOperand.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Point = UPoint3<float>;
using Pieces = std::vector<std::vector<PieceTriangle>>;

std::function<void(int)> const nobody;

/// All triangles of a soup.
std::vector<PieceTriangle> wholeOf(Soup const& soup)
{
    std::vector<PieceTriangle> piece;
    for (std::uint32_t t = 0; t < soup.triangles.size(); ++t)
        piece.push_back({soup.triangles[t], t, false});
    return piece;
}

Soup soupOf(std::vector<PieceTriangle> const& piece, std::vector<Point> const& places)
{
    Soup soup;
    soup.points = places;
    for (PieceTriangle const& t : piece)
        soup.triangles.push_back(t.corners);
    return soup;
}

std::size_t crossingsOf(MeshKernel& kernel)
{
    Repair::EvaluateErrors errors(&kernel);
    errors.evaluate(Repair::EvaluateErrors::ERROR_INTERSECTIONS, true, true, {});
    return errors.counts().selfIntersections;
}

std::size_t crossingsOf(Soup const& soup)
{
    return crossingsOf(*kernelOf(soup));
}

float unitsBelow(float value, int units)
{
    for (int i = 0; i < units; ++i)
        value = std::nextafter(value, 0.0f);
    return value;
}

}  // namespace

TEST(RoundingMending, ATipThatRoundingHasPushedThroughAWallIsPulledBack)
{
    for (int const units : {1, 2, 5}) {
        Soup const right = boxUnderATip(40.5f);
        Soup const pushed = boxUnderATip(unitsBelow(40, units));
        ASSERT_EQ(crossingsOf(right), 0u);
        ASSERT_GT(crossingsOf(pushed), 0u);
        OperandSoup const operand = operandOf(right);
        Pieces pieces{wholeOf(pushed)};
        std::vector<Point> places = pushed.points;
        std::vector<bool> isFree(places.size(), false);
        isFree.back() = true;
        StageProgress progress(nobody);
        EXPECT_TRUE(RoundingMending(operand, pieces, places, isFree).run(progress).empty());
        Soup const mended = soupOf(pieces[0], places);
        EXPECT_EQ(crossingsOf(mended), 0u);
        EXPECT_EQ(closedSolidFaults(mended), "");
        // No farther than it takes, and nothing else.
        EXPECT_LT((places.back() - pushed.points.back()).GetLength(), 1e-4f);
        for (std::size_t i = 0; i + 1 < places.size(); ++i)
            EXPECT_EQ(places[i], pushed.points[i]);
    }
}

TEST(RoundingMending, WhatIsMoreThanRoundingIsNamedAndStaysAsItIs)
{
    Soup const pushed = boxUnderATip(39);
    OperandSoup const operands[] = {operandOf(boxUnderATip(40.5f)), operandOf(pushed)};
    StageProgress progress(nobody);
    // A tip that stands in the box by a millimetre is more than rounding does.
    for (bool const didOperandCross : {false, true})
        for (bool const isTipFree : {false, true}) {
            Pieces pieces{wholeOf(pushed)};
            std::vector<Point> places = pushed.points;
            std::vector<bool> isFree(places.size(), false);
            isFree.back() = isTipFree;
            auto const left =
                RoundingMending(operands[didOperandCross], pieces, places, isFree).run(progress);
            // A crossing that the operand had before is not told.
            EXPECT_EQ(left.empty(), !isTipFree || didOperandCross);
            EXPECT_EQ(places, pushed.points);
            EXPECT_EQ(soupOf(pieces[0], places).triangles, pushed.triangles);
        }
}

TEST(RoundingMending, PiecesThatShareAPointKeepSharingIt)
{
    Soup const right = boxUnderATip(40.5f);
    Soup const pushed = boxUnderATip(unitsBelow(40, 2));
    OperandSoup const operand = operandOf(right);
    Pieces pieces{wholeOf(pushed), wholeOf(pushed)};
    std::vector<Point> places = pushed.points;
    std::vector<bool> isFree(places.size(), false);
    isFree.back() = true;
    StageProgress progress(nobody);
    EXPECT_TRUE(RoundingMending(operand, pieces, places, isFree).run(progress).empty());
    EXPECT_EQ(soupOf(pieces[0], places).triangles, soupOf(pieces[1], places).triangles);
}

/// A stop leaves what was there, closed, and tells all of it.
TEST(RoundingMending, WhatTheWorkDoesNotReachIsNamed)
{
    Soup const right = boxUnderATip(40.5f);
    Soup const pushed = boxUnderATip(unitsBelow(40, 2));
    OperandSoup const operand = operandOf(right);
    StageProgress progress(nobody);
    std::vector<bool> isFree(pushed.points.size(), false);
    isFree.back() = true;
    bool wasMended = false;
    for (std::size_t work = 0; work < 4000; work += work < 200 ? 1 : 97) {
        Pieces pieces{wholeOf(pushed)};
        std::vector<Point> places = pushed.points;
        auto const left = RoundingMending(operand, pieces, places, isFree, {work, 0}).run(progress);
        Soup const result = soupOf(pieces[0], places);
        EXPECT_EQ(closedSolidFaults(result), "") << work;
        EXPECT_EQ(left.size(), crossingsOf(result)) << work;
        EXPECT_EQ(left.empty(), work > 0);
        wasMended |= left.empty();
    }
    EXPECT_TRUE(wasMended);
}

/// Slabs that stand askew have boxes that hold everything: they must not use up what the few places
/// need where something crosses.
TEST(RoundingMending, LongTrianglesAllAroundDoNotUseUpTheWork)
{
    Soup right, pushed;
    std::vector<std::size_t> tips;
    for (int i = 0; i < 4; ++i)
        for (Soup* const soup : {&right, &pushed}) {
            Soup one = boxUnderATip(soup == &right ? 40.5f : unitsBelow(40, 2));
            for (Point& p : one.points)
                p += UVector3<float>(25 * float(i), 0, 0);
            soup->append(one);
            if (soup == &pushed)
                tips.push_back(pushed.points.size() - 1);
        }
    for (int i = 0; i < 400; ++i) {
        Soup slab = box(160, 0.005f, 100, {-40, 0, -40});
        for (Point& p : slab.points)
            p += UVector3<float>(0, 31 + 0.01f * float(i) + 0.3f * (p.X() + p.Z()), 0);
        right.append(slab);
        pushed.append(slab);
    }
    OperandSoup const operand = operandOf(right);
    Pieces pieces{wholeOf(pushed)};
    std::vector<Point> places = pushed.points;
    std::vector<bool> isFree(places.size(), false);
    for (std::size_t const tip : tips)
        isFree[tip] = true;
    StageProgress progress(nobody);
    RoundingMending mending(operand, pieces, places, isFree, {200'000, 0});
    EXPECT_TRUE(mending.run(progress).empty());
}

TEST(RoundingMending, NeedlesBetweenPointsInAlmostOnePlaceLeaveNoCrossing)
{
    // A body is trimmed to a round part and joined to it again: the trimmed surface lies on the
    // part's as far as rounding tells, and needles between the two come to lie on the wrong sides.
    Soup const part = subdivided(sphere(30, 24, 40, {1.1f, 2.3f, 3.7f}));
    for (int i = 0; i < 40; ++i) {
        float const t = 0.157f * float(i), r = 20 + 0.21f * float(i);
        Soup bodies = cylinder(2.03f, 15, 31);
        for (Point& p : bodies.points)
            p = {p.X() + r * std::cos(t), p.Y() + r * std::sin(t), p.Z() - 7.3f};
        auto const whole = kernelOf(part), pins = kernelOf(bodies);
        auto const lower = kernelOf(part);
        MeshKernel clipped, cut, joined;
        std::vector<MeshKernel*> out{&clipped};
        Intersect::boolean(whole.get(), pins.get(), out, Intersect::BOOLEAN_INTERSECT, {}, 1);
        auto const slab = kernelOf(box(100, 100, 100, {-50, -50, 1.7f}));
        out = {&cut};
        Intersect::boolean(whole.get(), slab.get(), out, Intersect::BOOLEAN_SUBTRACT, {}, 1);
        out = {&joined};
        Intersect::boolean(&cut, &clipped, out, Intersect::BOOLEAN_UNION, {}, 1);
        EXPECT_EQ(crossingsOf(joined), 0u) << i;
        EXPECT_EQ(closedSolidFaults(joined), "") << i;
    }
}
