// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ArrangedSolids.h"
#include "host/services/exact/CorefinedSolids.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

/// Two independent exact ways to the same solids.
void expectSame(SolidPair const& pair, std::string const& run)
{
    SCOPED_TRACE(pair.name + ", run " + run);
    MeshArrays const a{pair.a.points, pair.a.triangles}, b{pair.b.points, pair.b.triangles};
    std::function<void(int)> const unasked;
    StageProgress progress(unasked);
    Exact::WantedSolids const all{true, true, true};
    auto const arranged = Exact::combineArranged(a, b, all, progress);
    auto const corefined = Exact::combineCorefined(a, b, all, progress);
    ASSERT_EQ(arranged.fault, Exact::CombinationFault::none);
    ASSERT_EQ(corefined.fault, Exact::CombinationFault::none);
    double const volume = volumeOf(pair.a) + volumeOf(pair.b);
    double const area = areaOf(pair.a) + areaOf(pair.b);
    for (auto const solid : {&Exact::CombinedSolids::united, &Exact::CombinedSolids::common,
                             &Exact::CombinedSolids::difference}) {
        Soup const one{(arranged.*solid)->points, (arranged.*solid)->triangles};
        Soup const other{(corefined.*solid)->points, (corefined.*solid)->triangles};
        EXPECT_EQ(closedSolidFaults(one), "");
        EXPECT_NEAR(volumeOf(one), volumeOf(other), 1e-6 * volume);
        EXPECT_NEAR(areaOf(one), areaOf(other), 1e-5 * area);
    }
}

}  // namespace

TEST(ArrangedSolids, AgreeWithCorefinedOnesInGeneralPosition)
{
    std::mt19937 random(77);
    for (int run = 0; run < rounds(150); ++run)
        expectSame(randomPair(random), std::to_string(run));
}

TEST(ArrangedSolids, AgreeWithCorefinedOnesOnAGrid)
{
    std::mt19937 random(78);
    for (int run = 0; run < rounds(500); ++run)
        expectSame(randomGridPair(random, false), std::to_string(run));
}
