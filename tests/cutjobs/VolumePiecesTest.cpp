// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/VolumePieces.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"

#include <gtest/gtest.h>

namespace {

using Kind = CutRemark::Kind;

/// What is told of a box of which the tool leaves these pieces; an empty soup is none.
std::optional<CutRemark> remarkOn(Soup const& first, Soup const& second)
{
    TestDocument test;
    auto* const part = test.add(box(4, 4, 4), "part");
    VolumePieces pieces;
    if (!first.triangles.empty())
        pieces.first = kernelOf(first);
    if (!second.triangles.empty())
        pieces.second = kernelOf(second);
    return pieces.remark(part, *kernelOf(box(4, 4, 4)));
}

bool says(std::optional<CutRemark> const& remark, Kind kind, char const* words)
{
    return remark && remark->kind == kind && remark->text.find(words) != std::string::npos;
}

}  // namespace

TEST(VolumePieces, OfTwoThereIsNothingToTell)
{
    EXPECT_FALSE(remarkOn(box(1, 4, 4), box(3, 4, 4)));
}

TEST(VolumePieces, AWholePartIsToldFromOneOfWhichTheGapHasTakenAPiece)
{
    EXPECT_TRUE(says(remarkOn(box(4, 4, 4), {}), Kind::NothingCut, "lies within the tool"));
    EXPECT_TRUE(says(remarkOn({}, box(4, 4, 4)), Kind::NothingCut, "misses the part"));
    EXPECT_TRUE(says(remarkOn(box(3, 4, 4), {}), Kind::GapTakesPiece, "outside the tool"));
    EXPECT_TRUE(says(remarkOn({}, box(3, 4, 4)), Kind::GapTakesPiece, "lies within the tool"));
    EXPECT_TRUE(says(remarkOn({}, {}), Kind::GapTakesPiece, "whole part"));
}

TEST(VolumePieces, TrianglesWithoutAreaMakeNoDifference)
{
    Soup piece = box(4, 4, 4);
    piece.triangles.push_back({0, 0, 1});
    EXPECT_TRUE(says(remarkOn({}, piece), Kind::NothingCut, "misses the part"));
}
