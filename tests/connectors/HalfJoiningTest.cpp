// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/HalfJoining.h"
#include "tests/connectors/ConnectorScene.h"
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
