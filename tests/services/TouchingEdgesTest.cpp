// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/TouchingEdges.h"
#include "tests/support/Crossings.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/OneOperand.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

std::function<void(int)> const nobody;

/// A soup of which every triangle is there some times, one after the other, taken apart at all edges.
Soup takenApart(Soup const& soup, int times)
{
    OperandSoup const operand = operandOf(soup);
    std::vector<PieceTriangle> piece;
    for (std::uint32_t t = 0; t < soup.triangles.size(); ++t)
        for (int i = 0; i < times; ++i)
            piece.push_back({soup.triangles[t], t, false});
    Soup result;
    result.points = soup.points;
    StageProgress progress(nobody);
    TouchingEdges(operand, piece, result.points, TouchingEdges::Which::all)
        .separate(std::vector<bool>(soup.points.size(), true), progress);
    for (PieceTriangle const& t : piece)
        result.triangles.push_back(t.corners);
    return result;
}

/// A box with a layer of solid within it that has one of its edges.
Soup boxAndWedgeAtItsEdge()
{
    Soup soup = box(4, 4, 4);
    soup.joinPoints();
    Soup wedge;
    wedge.add({0, 0, 0});
    wedge.add({0, 0, 4});
    wedge.add({2, 1, 2});
    wedge.add({1, 2, 2});
    wedge.add(0, 2, 1);
    wedge.add(0, 1, 3);
    wedge.add(0, 3, 2);
    wedge.add(1, 2, 3);
    if (volumeOf(wedge) < 0)
        wedge.flip();
    soup.append(wedge);
    soup.joinPoints();
    return soup;
}

void expectSurfaceThatMeetsItselfNowhere(Soup const& soup, Soup const& before, int times)
{
    EXPECT_EQ(manifoldFaults(soup), "");
    EXPECT_EQ(judge::crossingsOf(soup).total(), 0u);
    double const volume = times * volumeOf(before);
    EXPECT_NEAR(volumeOf(soup), volume, 1e-6 * volume);
}

}  // namespace

// Led inward, the side of the box would pass through the layer.
TEST(TouchingEdges, ALayerWithinAnotherIsLedInwardAndTheOuterOneStays)
{
    Soup const soup = boxAndWedgeAtItsEdge();
    ASSERT_NE(manifoldFaults(soup), "");
    expectSurfaceThatMeetsItselfNowhere(takenApart(soup, 1), soup, 1);
}

// Nothing but their order tells at first which of two triangles in one place is the outer one. Edges
// at which a side turns inward have their solid all around.
TEST(TouchingEdges, LayersThatCoincideComeToLieWithinEachOther)
{
    for (Soup solid : {box(1, 2, 3, {1, 1, 1}), fromFrontView({"##", "# "}), tube(3, 1, 2, 5)}) {
        solid.joinPoints();
        ASSERT_EQ(manifoldFaults(solid), "");
        expectSurfaceThatMeetsItselfNowhere(takenApart(solid, 2), solid, 2);
    }
}
