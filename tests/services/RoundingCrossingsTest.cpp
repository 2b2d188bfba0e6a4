// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/ExactSigns.h"
#include "host/services/TrianglePair.h"
#include "host/services/boolean/RoundingCrossings.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/OneOperand.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using Pairs = std::vector<RoundingCrossings::Pair>;

std::function<void(int)> const nobody;

/// What a search through all pairs finds, if one of both has a point that was moved.
Pairs allPairs(Soup const& soup, std::vector<bool> const& isMoved)
{
    MeshArrays mesh;
    mesh.points = soup.points;
    mesh.triangles = soup.triangles;
    auto const isNew = [&](std::size_t t) {
        auto const& c = soup.triangles[t];
        return isMoved[c[0]] || isMoved[c[1]] || isMoved[c[2]];
    };
    auto const isFlat = [&](std::size_t t) {
        return ExactSigns::areCollinear(mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2));
    };
    Pairs pairs;
    for (std::size_t t = 0; t < soup.triangles.size(); ++t)
        for (std::size_t u = t + 1; u < soup.triangles.size(); ++u)
            if ((isNew(t) || isNew(u)) && !isFlat(t) && !isFlat(u) && doTrianglesMeet(mesh, t, u))
                pairs.push_back({t, u});
    return pairs;
}

Soup randomSoup(std::mt19937& random)
{
    Soup const shapes[] = {sphere(5, 7, 10), torus(4, 1.5f, 12, 7), cylinder(3, 9, 40),
                           cylinder(0.05f, 14, 9), tube(5, 3, 6, 10)};
    Soup soup = moved(shapes[random() % std::size(shapes)], randomMotion(random, 1));
    // Shells beside each other, which a moved point may reach.
    if (random() % 2 == 0)
        soup.append(moved(shapes[random() % std::size(shapes)], randomMotion(random, 1)));
    return soup;
}

}  // namespace

/// Vertices whose triangles are spread out spare most of the search: none of what they spare may
/// cross, whether points were moved by a little or through half of the solid.
TEST(RoundingCrossings, AreThoseThatASearchThroughAllPairsFinds)
{
    std::mt19937 random(16);
    std::size_t found = 0, without = 0;
    int const count = rounds(400);
    for (int round = 0; round < count; ++round) {
        Soup const right = randomSoup(random);
        Soup pushed = right;
        std::vector<bool> isMoved(pushed.points.size(), false);
        float const reach = std::pow(10.0f, -6 + float(random() % 7));
        for (std::size_t moves = 1 + random() % 12; moves > 0; --moves) {
            std::size_t const point = random() % pushed.points.size();
            for (int k = 0; k < 3; ++k)
                pushed.points[point][k] += reach * (float(random() % 2001) / 1000 - 1);
            isMoved[point] = !(pushed.points[point] == right.points[point]);
        }
        std::vector<PieceTriangle> piece;
        for (std::uint32_t t = 0; t < pushed.triangles.size(); ++t)
            piece.push_back({pushed.triangles[t], t, false});
        OperandSoup operand = operandOf(right);
        // What two shells have in common from the first is no crossing by rounding.
        Pairs expected = allPairs(pushed, isMoved);
        std::erase_if(expected, [&](RoundingCrossings::Pair const& pair) {
            return RoundingCrossings::isDeep(operand.mesh, pair[0], pair[1]);
        });
        if (expected.size() >= RoundingCrossings::mostPairs)
            continue;
        StageProgress progress(nobody);
        Pairs const pairs =
            RoundingCrossings(operand, isMoved).find(piece, pushed.points, progress);
        ASSERT_EQ(pairs, expected) << round;
        found += pairs.size();
        without += pairs.empty();
    }
    EXPECT_GT(found, std::size_t(count / 4));
    EXPECT_GT(without, std::size_t(count / 20));
}

/// Once points are moved to mend what was found, only their surroundings are searched again.
TEST(RoundingCrossings, AmongSomePointsAreThoseOfAllThatTouchThem)
{
    std::mt19937 random(61);
    std::size_t inside = 0, outside = 0;
    int const count = rounds(400);
    for (int round = 0; round < count; ++round) {
        Soup const right = randomSoup(random);
        Soup pushed = right;
        for (std::size_t moves = 1 + random() % 12; moves > 0; --moves)
            for (int k = 0; k < 3; ++k)
                pushed.points[random() % pushed.points.size()][k] += float(random() % 2001) / 1000;
        std::vector<PieceTriangle> piece;
        for (std::uint32_t t = 0; t < pushed.triangles.size(); ++t)
            piece.push_back({pushed.triangles[t], t, false});
        std::vector<bool> const isFree(pushed.points.size(), true);
        std::vector<bool> among(pushed.points.size());
        for (std::size_t point = 0; point < among.size(); ++point)
            among[point] = random() % 16 == 0;
        auto const isAmong = [&](std::size_t t) {
            auto const& c = pushed.triangles[t];
            return among[c[0]] || among[c[1]] || among[c[2]];
        };
        auto const isNew = [&](std::size_t t) {
            for (std::size_t k = 0; k < 3; ++k)
                if (!(pushed.points[pushed.triangles[t][k]] == right.points[right.triangles[t][k]]))
                    return true;
            return false;
        };
        OperandSoup operand = operandOf(right);
        StageProgress progress(nobody);
        RoundingCrossings const crossings(operand, isFree);
        Pairs expected = crossings.find(piece, pushed.points, progress);
        if (expected.size() >= RoundingCrossings::mostPairs)
            continue;
        std::size_t const all = expected.size();
        std::erase_if(expected, [&](RoundingCrossings::Pair const& pair) {
            return !std::any_of(pair.begin(), pair.end(),
                                [&](std::size_t t) { return isAmong(t) && isNew(t); });
        });
        ASSERT_EQ(crossings.find(piece, pushed.points, progress, among), expected) << round;
        inside += expected.size();
        outside += all - expected.size();
    }
    EXPECT_GT(inside, std::size_t(count / 4));
    EXPECT_GT(outside, std::size_t(count / 4));
}
