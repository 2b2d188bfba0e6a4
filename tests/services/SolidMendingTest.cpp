// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SolidMending.h"
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

/// A box, and above it a pyramid whose tip reaches through the top by some units of the last place.
Soup boxUnderATip(int units)
{
    float height = 40;
    for (int i = 0; i < std::abs(units); ++i)
        height = std::nextafter(height, units > 0 ? 0.0f : 100.0f);
    Soup soup = box(20, 30, 40);
    Soup pyramid;
    pyramid.points = {{5, 5, 50}, {15, 5, 50}, {15, 15, 50}, {5, 15, 50}, {10.5f, 9, height}};
    pyramid.add(0, 1, 2);
    pyramid.add(0, 2, 3);
    for (std::uint32_t k = 0; k < 4; ++k)
        pyramid.add((k + 1) % 4, k, 4);
    soup.append(pyramid);
    return soup;
}

}  // namespace

TEST(SolidMending, PullsBackWhatRoundingHasPushedThrough)
{
    MeshArrays const operand = arraysOf(boxUnderATip(-1000));
    MeshArrays first = arraysOf(boxUnderATip(2)), second = first;
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
        MeshArrays const operand = arraysOf(boxUnderATip(units));
        MeshArrays solid = operand;
        EXPECT_TRUE(
            mendSolids(std::array{&std::as_const(operand)}, std::array{&solid}, progress).empty());
        EXPECT_EQ(solid.points, operand.points);
        EXPECT_EQ(solid.triangles, operand.triangles);
    }
}
