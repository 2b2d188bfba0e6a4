// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/BooleanRuns.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

/// The faults of all operations on a pair, an exception included.
std::string faultsOf(SolidPair const& pair, std::size_t samples, std::mt19937& random)
{
    try {
        return faultsOfPieces(pair.a, pair.b, booleansOf(pair.a, pair.b), samples, random);
    } catch (Mell::Exception const& failure) {
        return std::string("thrown: ") + failure.what();
    }
}

/// Runs of their own seed each, so that a failure can be repeated alone.
template <typename MakePair>
void expectNoFaults(unsigned firstSeed, int runs, MakePair const& makePair)
{
    unsigned failures = 0;
    for (unsigned seed = firstSeed; seed < firstSeed + unsigned(rounds(runs)); ++seed) {
        std::mt19937 random(seed);
        SolidPair const pair = makePair(random);
        std::string const faults = faultsOf(pair, 20, random);
        EXPECT_EQ(faults, "") << pair.name << ", seed " << seed;
        if (!faults.empty() && ++failures == 10)
            FAIL() << "no more than ten failures are shown";
    }
}

/// Two solids of a grid, turned and moved together: what coincided is a little apart or across now.
SolidPair nearlyCoinciding(std::mt19937& random)
{
    SolidPair pair = randomGridPair(random, false);
    UMatrix4<float> const motion = randomMotion(random, 2);
    return {pair.name + ", turned", moved(pair.a, motion), moved(pair.b, motion)};
}

}  // namespace

TEST(BooleanRandom, SolidsInGeneralPosition)
{
    expectNoFaults(1, 1500, randomPair);
}

TEST(BooleanRandom, SolidsOnAGrid)
{
    expectNoFaults(100001, 3000, [](auto& random) { return randomGridPair(random, false); });
}

TEST(BooleanRandom, SolidsOnAGridThatTouchThemselves)
{
    expectNoFaults(200001, 1500, [](auto& random) { return randomGridPair(random, true); });
}

TEST(BooleanRandom, SolidsOfAGridTurnedTogether)
{
    expectNoFaults(300001, 1500, nearlyCoinciding);
}

TEST(BooleanRandom, SolidsFarFromTheOrigin)
{
    // Coordinates of some thousands leave five decimals: every new point moves noticeably.
    expectNoFaults(400001, 300, [](std::mt19937& random) {
        SolidPair pair = randomPair(random);
        for (Soup* const soup : {&pair.a, &pair.b})
            for (auto& p : soup->points)
                p += UVector3<float>(300, -200, 100);
        pair.name += ", far away";
        return pair;
    });
}

TEST(BooleanRandom, ResultsOfOperationsAreOperandsAgain)
{
    // A chain on one part, as a user makes it: each result is the next operand.
    for (unsigned seed = 500001; seed < 500001 + unsigned(rounds(30)); ++seed) {
        std::mt19937 random(seed);
        Soup part = sphere(8, 10, 14);
        for (int step = 0; step < 6; ++step) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
            Soup const tool = randomPair(random).b;
            ASSERT_EQ(faultsOf({"chain", part, tool}, 10, random), "");
            part = combined(part, tool,
                            step % 2 ? Intersect::BOOLEAN_UNION : Intersect::BOOLEAN_SUBTRACT);
        }
        EXPECT_EQ(closedSolidFaults(part), "");
    }
}

TEST(BooleanRandom, OrderOfTrianglesAndPointsDoesNotMatter)
{
    for (unsigned seed = 600001; seed < 600001 + unsigned(rounds(100)); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        SolidPair const pair = seed % 2 ? randomPair(random) : randomGridPair(random, true);
        Soup const first = combined(pair.a, pair.b, Intersect::BOOLEAN_SUBTRACT);
        Soup const second = combined(shuffled(pair.a, seed), shuffled(pair.b, seed + 1),
                                     Intersect::BOOLEAN_SUBTRACT);
        double const scale = volumeOf(pair.a) + volumeOf(pair.b);
        EXPECT_NEAR(volumeOf(first), volumeOf(second), 1e-6 * scale);
        EXPECT_NEAR(areaOf(first), areaOf(second), 1e-5 * (areaOf(pair.a) + areaOf(pair.b)));
    }
}
