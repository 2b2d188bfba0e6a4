// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/HalfJoining.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/CrossingPair.h"
#include "tests/support/Crossings.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <set>

namespace {

/// The heights of a hollow's vertices after its floor has been sunk; at first they are 0 and 5.
std::set<float> heightsOfHollow(float gap)
{
    auto const hollow = kernelOf(prism({rectangle(-3, -3, 3, 3)}, 0, 5));
    sinkFloor(*hollow, frameOf(*planeAt({0, 0, 0})), gap);
    std::set<float> heights;
    for (auto const* const vertex : hollow->readMesh()->vertices)
        heights.insert(vertex->cP().Z());
    return heights;
}

}  // namespace

TEST(SunkFloor, LiesByTheOverlapBelowTheFaceAndTheTopStays)
{
    EXPECT_EQ(heightsOfHollow(0), (std::set<float>{-connectorOverlapMm, 5}));
    EXPECT_EQ(heightsOfHollow(connectorOverlapMm / 2), (std::set<float>{-connectorOverlapMm, 5}));
}

TEST(SunkFloor, StaysWhereTheGapIsWideEnough)
{
    EXPECT_EQ(heightsOfHollow(connectorOverlapMm), (std::set<float>{0, 5}));
    EXPECT_EQ(heightsOfHollow(1), (std::set<float>{0, 5}));
}

TEST(HalfJoining, TellsWhereRoundingLeavesAHalfCrossingItself)
{
    SolidPair const pair = pairLeftCrossing();
    auto const source = kernelOf(pair.a), hollow = kernelOf(pair.b);
    Soup square;
    square.points = {{-50, -50, 100}, {50, -50, 100}, {50, 50, 100}, {-50, 50, 100}};
    square.triangles = {{0, 1, 2}, {0, 2, 3}};
    auto const plane = kernelOf(square);
    PartOfRun part{};
    part.source = source.get();
    part.lowerPlane = part.upperPlane = plane.get();
    part.plain.lower = kernelOf(pair.a);
    part.plain.upper = kernelOf(box(1, 1, 1, {20, 0, 0}));
    ShellSurvey shells(nullptr, {});
    Halves const joined = takeOutOfBoth(part, *hollow, shells, {});
    std::size_t const pairs = judge::crossingsOf(soupOf(*joined.lower)).pairs;
    ASSERT_GT(pairs, 0u) << "take a pair that is left crossing";
    EXPECT_EQ(joined.notes.crossing.size(), pairs);
}
