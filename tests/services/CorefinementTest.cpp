// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/Corefinement.h"
#include "platform/jobs/Exceptions.h"
#include "tests/support/BooleanJudge.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

using Exact::CombinationFault;
using Exact::CombinedSolids;

MeshArrays arraysOf(Soup const& soup)
{
    return {soup.points, soup.triangles};
}

Soup soupOf(MeshArrays const& arrays)
{
    return {arrays.points, arrays.triangles};
}

CombinedSolids combineAll(Soup const& a, Soup const& b, std::function<void(int)> const& asked = {})
{
    StageProgress progress(asked);
    return Exact::combine(arraysOf(a), arraysOf(b), {true, true, true}, progress);
}

BooleanPieces piecesOf(CombinedSolids const& solids)
{
    return {soupOf(solids.united.value()), soupOf(solids.common.value()),
            soupOf(solids.difference.value()), soupOf(solids.common.value()),
            soupOf(solids.difference.value())};
}

/// Two boxes that cross, in one mesh, far from where a tool around the origin meets it.
Soup barWithCrossingEnds()
{
    Soup soup = box(60, 10, 10, {-10, -5, -5});
    soup.append(box(10, 10, 10, {45.5f, -3.25f, -2.125f}));
    return soup;
}

/// Every layer of the first counts by itself; the second is solid where it winds at all.
void expectLayers(Soup const& a, Soup const& b)
{
    CombinedSolids const solids = combineAll(a, b);
    ASSERT_EQ(solids.fault, CombinationFault::none);
    Soup const difference = soupOf(*solids.difference), common = soupOf(*solids.common);
    Soup const united = soupOf(*solids.united);
    for (Soup const* const result : {&difference, &common, &united})
        EXPECT_EQ(closedSolidFaults(*result), "");
    std::mt19937 random(4);
    for (int i = 0; i < rounds(500); ++i) {
        auto const coordinate = [&] { return double(random()) / 4294967296.0 * 45 - 10; };
        double const x = coordinate(), y = coordinate(), z = coordinate();
        if (distanceFrom(a, {x, y, z}) < 1e-2 || distanceFrom(b, {x, y, z}) < 1e-2)
            continue;
        int const layers = windingNumberAt(a, {x, y, z});
        bool const isInB = windingNumberAt(b, {x, y, z}) > 0;
        EXPECT_EQ(windingNumberAt(difference, {x, y, z}), isInB ? 0 : layers);
        EXPECT_EQ(windingNumberAt(common, {x, y, z}), isInB ? layers : 0);
        EXPECT_EQ(windingNumberAt(united, {x, y, z}), isInB ? 1 : layers);
    }
}

}  // namespace

TEST(Corefinement, RandomSolidsInGeneralPosition)
{
    std::mt19937 random(2024);
    for (int run = 0; run < rounds(300); ++run) {
        auto const [name, a, b] = randomPair(random);
        SCOPED_TRACE(name + ", run " + std::to_string(run));
        CombinedSolids const solids = combineAll(a, b);
        ASSERT_EQ(solids.fault, CombinationFault::none);
        EXPECT_EQ(faultsOfPieces(a, b, piecesOf(solids), 20, random), "");
    }
}

TEST(Corefinement, RandomSolidsOnAGrid)
{
    std::mt19937 random(7);
    for (int run = 0; run < rounds(1000); ++run) {
        auto const [name, a, b] = randomGridPair(random, false);
        SCOPED_TRACE(name + ", run " + std::to_string(run));
        CombinedSolids const solids = combineAll(a, b);
        ASSERT_EQ(solids.fault, CombinationFault::none);
        EXPECT_EQ(faultsOfPieces(a, b, piecesOf(solids), 20, random), "");
    }
}

TEST(Corefinement, SolidsThatTouchThemselvesAwayFromTheTool)
{
    Soup const tool = box(4, 4, 4, {-1, -1, -1});
    std::mt19937 random(3);
    CombinedSolids const solids = combineAll(boxesSharingAnEdge(), tool);
    ASSERT_EQ(solids.fault, CombinationFault::none);
    EXPECT_EQ(faultsOfPieces(boxesSharingAnEdge(), tool, piecesOf(solids), 50, random), "");
    // The vertices of the common edge are still joined.
    EXPECT_EQ(componentsOf(soupOf(*solids.difference)), 1u);
}

TEST(Corefinement, UnionAlongAnEdgeHasFourTrianglesThere)
{
    Soup const a = box(10, 10, 10), b = box(10, 10, 10, {10, 10, 0});
    CombinedSolids const solids = combineAll(a, b);
    ASSERT_EQ(solids.fault, CombinationFault::none);
    Soup const united = soupOf(*solids.united);
    EXPECT_EQ(closedSolidFaults(united), "");
    EXPECT_EQ(componentsOf(united), 1u);
    EXPECT_DOUBLE_EQ(volumeOf(united), 2000);
}

TEST(Corefinement, OnlyWantedResultsAreMade)
{
    std::function<void(int)> const unasked;
    StageProgress progress(unasked);
    MeshArrays const a = arraysOf(box(2, 2, 2)), b = arraysOf(box(2, 2, 2, {1, 1, 1}));
    CombinedSolids const solids = Exact::combine(a, b, {.common = true}, progress);
    EXPECT_FALSE(solids.united.has_value());
    ASSERT_TRUE(solids.common.has_value());
    EXPECT_FALSE(solids.difference.has_value());
    EXPECT_DOUBLE_EQ(volumeOf(soupOf(*solids.common)), 1);
}

TEST(Corefinement, EmptyOperandsAndResultsAreNoFault)
{
    CombinedSolids const apart = combineAll(box(1, 1, 1), box(1, 1, 1, {5, 5, 5}));
    ASSERT_EQ(apart.fault, CombinationFault::none);
    EXPECT_TRUE(apart.common->triangles.empty());
    EXPECT_TRUE(apart.common->points.empty());
    CombinedSolids const nothing = combineAll({}, box(1, 1, 1));
    ASSERT_EQ(nothing.fault, CombinationFault::none);
    EXPECT_EQ(nothing.united->triangles.size(), 12u);
    EXPECT_TRUE(nothing.difference->triangles.empty());
}

TEST(Corefinement, OpenOperandsAreRefused)
{
    EXPECT_EQ(combineAll(openBox(2, 2, 2), box(1, 1, 1)).fault, CombinationFault::operandNotClosed);
    EXPECT_EQ(combineAll(box(1, 1, 1), openBox(2, 2, 2)).fault, CombinationFault::operandNotClosed);
    Soup broken = box(1, 1, 1);
    broken.points[0].X() = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(combineAll(broken, box(2, 2, 2)).fault, CombinationFault::operandNotClosed);
    Soup turned = box(1, 1, 1);
    std::swap(turned.triangles[0][0], turned.triangles[0][1]);
    EXPECT_EQ(combineAll(turned, box(2, 2, 2)).fault, CombinationFault::operandNotClosed);
}

TEST(Corefinement, SolidsThatTouchThemselvesWhereTheyMeet)
{
    for (unsigned seed = 1; seed <= unsigned(rounds(500)); ++seed) {
        std::mt19937 random(seed);
        auto const [name, a, b] = randomGridPair(random, true);
        SCOPED_TRACE(name + ", seed " + std::to_string(seed));
        CombinedSolids const solids = combineAll(a, b);
        ASSERT_EQ(solids.fault, CombinationFault::none);
        EXPECT_EQ(faultsOfPieces(a, b, piecesOf(solids), 20, random), "");
    }
}

TEST(Corefinement, LayersOfAPartThatCrossesItselfWhereTheToolMeetsItAreKept)
{
    Soup const plate = box(40, 40, 2, {-5, -5, 11});
    expectLayers(crossingBoxes(), plate);
    expectLayers(plate, crossingBoxes());
    expectLayers(crossingBoxes(), sphere(9, 9, 12, {14, 13, 12}));
    expectLayers(sphere(9, 9, 12, {14, 13, 12}), crossingBoxes());
    // A face of the tool runs in one of the part, across the crossing.
    expectLayers(crossingBoxes(), box(40, 40, 10, {-5, -5, 20}));
    Soup moved = crossingBoxes();
    for (auto& p : moved.points)
        p += UVector3<float>(4.3f, -6.1f, 2.7f);
    expectLayers(crossingBoxes(), moved);
}

TEST(Corefinement, LayersOfAPartThatCrossesItselfElsewhereAreKept)
{
    Soup const part = barWithCrossingEnds();
    Soup const tool = box(4, 20, 20, {-2, -10, -10});
    CombinedSolids const solids = combineAll(part, tool);
    ASSERT_EQ(solids.fault, CombinationFault::none);
    Soup const difference = soupOf(*solids.difference);
    EXPECT_EQ(closedSolidFaults(difference), "");
    EXPECT_EQ(windingNumberAt(difference, {47, 0, 0}), 2);
    EXPECT_EQ(windingNumberAt(difference, {10, 0, 0}), 1);
    EXPECT_EQ(windingNumberAt(difference, {0, 0, 0}), 0);
    EXPECT_NEAR(volumeOf(difference), 6000 + 1000 - 400, 1e-3);
}

TEST(Corefinement, ShellWithinAShellOfTheSameDirectionIsNoWallOfATool)
{
    Soup tool = box(10, 10, 10);
    tool.append(box(4, 4, 4, {3, 3, 3}));
    CombinedSolids const solids = combineAll(box(20, 20, 20, {-5, -5, -5}), tool);
    ASSERT_EQ(solids.fault, CombinationFault::none);
    EXPECT_NEAR(volumeOf(soupOf(*solids.common)), 1000, 1e-9);
    EXPECT_NEAR(areaOf(soupOf(*solids.common)), 600, 1e-9);
}

TEST(Corefinement, SameInputGivesTheSameBytes)
{
    std::mt19937 random(11);
    for (int run = 0; run < rounds(40); ++run) {
        auto const [name, a, b] = run % 2 ? randomPair(random) : randomGridPair(random, false);
        SCOPED_TRACE(name);
        MeshArrays const first = *combineAll(a, b).united;
        std::vector<std::vector<char>> elsewhere;
        for (std::size_t i = 0; i < 50; ++i)
            elsewhere.emplace_back(random() % 5000);
        MeshArrays const second = *combineAll(a, b).united;
        EXPECT_EQ(first.triangles, second.triangles);
        ASSERT_EQ(first.points.size(), second.points.size());
        EXPECT_EQ(std::memcmp(first.points.data(), second.points.data(), first.points.size() * 12),
                  0);
    }
}

TEST(Corefinement, CancelLeavesAtAnyPercentage)
{
    Soup const a = sphere(10, 40, 40), b = sphere(10, 40, 40, {5, 1, 2});
    for (int limit = 0; limit <= 100; limit += 5)
        EXPECT_THROW(combineAll(a, b,
                                [limit](int percent) {
                                    if (percent >= limit)
                                        throw Mell::AbortException("Aborting...");
                                }),
                     Mell::AbortException)
            << limit;
}
