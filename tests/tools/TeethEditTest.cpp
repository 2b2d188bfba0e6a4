// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PolygonProperty.h"

#include <gtest/gtest.h>

namespace {

Freecut::TeethEdge edgeUnderEdit(bool isApplied)
{
    Freecut::TeethEdge edge;
    edge.hasTeeth = edge.editing = true;
    edge.applied = isApplied;
    edge.basePoints = edge.handlePoints = edge.teethPoints = edge.appliedPoints = {{1, 2, 3}};
    return edge;
}

}  // namespace

TEST(TeethEdit, OnlyConfirmedTeethOutliveIt)
{
    Freecut::PolygonProperty record;
    record.setEdgeRecords({edgeUnderEdit(true), edgeUnderEdit(false)});
    record.clearEdit();
    Freecut::TeethEdge const& confirmed = record.getEdgeRecords()[0];
    Freecut::TeethEdge const& tried = record.getEdgeRecords()[1];
    EXPECT_TRUE(confirmed.hasTeeth && confirmed.applied);
    EXPECT_FALSE(tried.hasTeeth || tried.applied);
    for (Freecut::TeethEdge const& edge : record.getEdgeRecords()) {
        EXPECT_FALSE(edge.editing);
        EXPECT_TRUE(edge.basePoints.empty() && edge.handlePoints.empty());
        EXPECT_EQ(edge.teethPoints.size(), 1u);
        EXPECT_EQ(edge.appliedPoints.size(), 1u);
    }
}

TEST(TeethEdit, AnEdgeWithoutTeethIsLeftAsItIs)
{
    Freecut::PolygonProperty record;
    Freecut::TeethEdge plain;
    plain.basePoints = {{1, 2, 3}};
    record.setEdgeRecords({plain});
    record.clearEdit();
    EXPECT_EQ(record.getEdgeRecords()[0].basePoints.size(), 1u);
}
