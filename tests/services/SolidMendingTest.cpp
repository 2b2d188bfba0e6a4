// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SolidMending.h"
#include "tests/services/BoxUnderATip.h"
#include "tests/support/Crossings.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using Point = UPoint3<float>;

std::function<void(int)> const nobody;

MeshArrays arraysOf(Soup const& soup)
{
    return {soup.points, soup.triangles};
}

Soup soupFrom(MeshArrays const& arrays)
{
    return {arrays.points, arrays.triangles};
}

/// The tip reaches through the top by so many units of the last place.
Soup boxUnderATipThrough(int units)
{
    float height = 40;
    for (int i = 0; i < std::abs(units); ++i)
        height = std::nextafter(height, units > 0 ? 0.0f : 100.0f);
    return boxUnderATip(height);
}

}  // namespace

TEST(SolidMending, PullsBackWhatRoundingHasPushedThrough)
{
    MeshArrays const operand = arraysOf(boxUnderATipThrough(-1000));
    MeshArrays first = arraysOf(boxUnderATipThrough(2)), second = first;
    ASSERT_GT(judge::crossingsOf(soupFrom(first)).total(), 0u);
    StageProgress progress(nobody);
    auto const left =
        mendSolids(std::array{&std::as_const(operand)}, std::array{&first, &second}, progress);
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(judge::crossingsOf(soupFrom(first)).total(), 0u);
    EXPECT_EQ(closedSolidFaults(soupFrom(first)), "");
    EXPECT_EQ(first.points, second.points);
    EXPECT_EQ(first.triangles, second.triangles);
}

TEST(SolidMending, LeavesWhatAnOperandHasAndWhatNothingCrosses)
{
    StageProgress progress(nobody);
    for (int const units : {2, -2}) {
        MeshArrays const operand = arraysOf(boxUnderATipThrough(units));
        MeshArrays solid = operand;
        EXPECT_TRUE(
            mendSolids(std::array{&std::as_const(operand)}, std::array{&solid}, progress).empty());
        EXPECT_EQ(solid.points, operand.points);
        EXPECT_EQ(solid.triangles, operand.triangles);
    }
}
