// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/Corefinement.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MadeModels.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

/// Compares all results with those of the exact combination. Returns false where that one has none.
bool compare(Soup const& a, Soup const& b, std::string const& name)
{
    SCOPED_TRACE(name);
    std::function<void(int)> const unasked;
    StageProgress progress(unasked);
    auto const exact = Exact::combine({a.points, a.triangles}, {b.points, b.triangles},
                                      {true, true, true}, progress);
    if (exact.fault != Exact::CombinationFault::none)
        return false;
    double const volume = volumeOf(a) + volumeOf(b), area = areaOf(a) + areaOf(b);
    auto const expectSame = [&](Soup const& ours, MeshArrays const& other) {
        Soup const theirs{other.points, other.triangles};
        EXPECT_NEAR(volumeOf(ours), volumeOf(theirs), 1e-6 * volume);
        EXPECT_NEAR(areaOf(ours), areaOf(theirs), 1e-5 * area);
    };
    expectSame(combined(a, b, Intersect::BOOLEAN_UNION), *exact.united);
    expectSame(combined(a, b, Intersect::BOOLEAN_INTERSECT), *exact.common);
    expectSame(combined(a, b, Intersect::BOOLEAN_SUBTRACT), *exact.difference);
    return true;
}

template <typename MakePair>
void compareAll(unsigned firstSeed, int runs, MakePair const& makePair)
{
    int compared = 0;
    for (int i = 0; i < runs; ++i) {
        std::mt19937 random(firstSeed + unsigned(i));
        SolidPair const pair = makePair(random);
        compared += compare(pair.a, pair.b,
                            pair.name + ", seed " + std::to_string(firstSeed + unsigned(i)));
    }
    EXPECT_GT(compared, runs / 2);
}

}  // namespace

TEST(BooleanComparison, GivesWhatExactCorefinementGives)
{
    compareAll(1, rounds(400), randomPair);
}

TEST(BooleanComparison, GivesWhatExactCorefinementGivesOnAGrid)
{
    compareAll(1001, rounds(1000),
               [](std::mt19937& random) { return randomGridPair(random, true); });
}

TEST(BooleanComparison, GivesWhatExactCorefinementGivesOnModels)
{
    auto const models = soundModels(30000);
    std::mt19937 random(5);
    for (auto const& [name, part] : models) {
        Soup tool;
        for (int i = 0; i < 4; ++i) {
            Soup pin = moved(cylinder(2, 30, 63), randomMotion(random, 0));
            auto const place = part.points[random() % part.points.size()] - UPoint3<float>(0, 0, 0);
            for (auto& p : pin.points)
                p += place;
            tool = pin;
            EXPECT_TRUE(compare(part, tool, name)) << name;
        }
    }
}
