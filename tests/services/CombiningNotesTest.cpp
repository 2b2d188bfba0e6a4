// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/CombiningNotes.h"
#include "tests/support/CrossingPair.h"
#include "tests/support/Crossings.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using judge::crossingsOf;

/// Whether a point is one of a solid's.
bool hasPoint(Soup const& soup, UPoint3<float> const& point)
{
    return std::find(soup.points.begin(), soup.points.end(), point) != soup.points.end();
}

}  // namespace

TEST(CombiningNotes, TellWhereRoundingLeavesAPieceCrossingItself)
{
    SolidPair const pair = pairLeftCrossing();
    auto const a = kernelOf(pair.a), b = kernelOf(pair.b);
    MeshKernel difference, inside, outside;
    CombiningNotes const notes =
        combineWithNotes(*a, *b, difference, Intersect::BOOLEAN_SUBTRACT, {});
    CombiningNotes const notesOfSplit = splitWithNotes(*a, *b, inside, outside, {});
    ASSERT_GT(crossingsOf(soupOf(difference)).pairs, 0u) << "take a pair that is left crossing";
    ASSERT_GT(crossingsOf(soupOf(outside)).pairs, 0u);
    EXPECT_EQ(notes.crossing.size(), crossingsOf(soupOf(difference)).pairs);
    EXPECT_EQ(notesOfSplit.crossing.size(), crossingsOf(soupOf(outside)).pairs);
    for (UPoint3<float> const& place : notes.crossing)
        EXPECT_TRUE(hasPoint(soupOf(difference), place));
}

TEST(CombiningNotes, SayNothingOfSoundPieces)
{
    auto const a = kernelOf(box(2, 2, 2)), b = kernelOf(box(2, 2, 2, {1, 1, 1}));
    for (auto const type :
         {Intersect::BOOLEAN_UNION, Intersect::BOOLEAN_INTERSECT, Intersect::BOOLEAN_SUBTRACT}) {
        MeshKernel piece;
        EXPECT_TRUE(combineWithNotes(*a, *b, piece, type, {}).crossing.empty());
        EXPECT_EQ(crossingsOf(soupOf(piece)).pairs, 0u);
    }
}
