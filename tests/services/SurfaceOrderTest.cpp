// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SurfaceOrder.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "platform/services/Intersect.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/SurfaceEdges.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>

namespace {

constexpr float much = std::numeric_limits<float>::max();
TriangleTree::Box const everywhere{{-much, -much, -much, 0}, {much, much, much, 0}};
std::function<void(int)> const nobody;

/// Boxes of 20 in a row, with one wall between two neighbours, facing either way.
Soup rowOfBoxes(int count, bool isForward)
{
    Soup soup;
    for (int i = 0; i < count; ++i)
        soup.append(box(20, 20, 20, {20 * float(i), 0, 0}));
    soup.joinPoints();
    for (int i = 1; i < count; ++i) {
        float const x = 20 * float(i);
        std::erase_if(soup.triangles, [&](auto const& t) {
            auto const& a = soup.points[t[0]];
            auto const u = soup.points[t[1]] - a, v = soup.points[t[2]] - a;
            bool const isInWall = std::all_of(
                t.begin(), t.end(), [&](std::uint32_t p) { return soup.points[p].X() == x; });
            return isInWall && ((u * v).X() > 0) != isForward;
        });
    }
    return soup;
}

std::set<std::uint32_t> numbersOf(std::vector<std::uint32_t> const& walls)
{
    std::set<std::uint32_t> numbers(walls.begin(), walls.end());
    numbers.erase(0);
    return numbers;
}

std::vector<std::uint32_t> wallsOf(Soup const& soup, TriangleTree::Box const& where = everywhere)
{
    StageProgress progress(nobody);
    return findSurfaceOrder({soup.points, soup.triangles}, where, progress).surplus;
}

Soup without(Soup soup, std::vector<std::uint32_t> const& walls)
{
    Soup left;
    left.points = soup.points;
    for (std::size_t t = 0; t < walls.size(); ++t)
        if (walls[t] == 0)
            left.triangles.push_back(soup.triangles[t]);
    return left;
}

/// Each triangle divided into four at the middles of its edges.
Soup quartered(Soup const& soup)
{
    Soup fine;
    for (auto const& t : soup.triangles) {
        UPoint3<float> const corners[] = {soup.points[t[0]], soup.points[t[1]], soup.points[t[2]]};
        std::uint32_t const first = std::uint32_t(fine.points.size());
        for (int k = 0; k < 3; ++k)
            fine.add(corners[k]);
        for (int k = 0; k < 3; ++k)
            fine.add(corners[k] + (corners[(k + 1) % 3] - corners[k]) * 0.5f);
        for (std::uint32_t k = 0; k < 3; ++k)
            fine.add(first + k, first + 3 + k, first + 3 + (k + 2) % 3);
        fine.add(first + 3, first + 4, first + 5);
    }
    fine.joinPoints();
    return fine;
}

}  // namespace

TEST(SurfaceOrder, WallsOfARowOfBoxesAreThoseBetweenThem)
{
    for (bool const isForward : {false, true})
        for (int const count : {2, 3, 5}) {
            Soup const row = rowOfBoxes(count, isForward);
            auto const walls = wallsOf(row);
            EXPECT_EQ(numbersOf(walls).size(), std::size_t(count) - 1);
            EXPECT_EQ(std::count_if(walls.begin(), walls.end(), [](auto w) { return w != 0; }),
                      2 * (count - 1));
            Soup const solid = without(row, walls);
            EXPECT_EQ(closedSolidFaults(solid), "");
            EXPECT_NEAR(volumeOf(solid), 8000 * count, 0.01);
        }
}

TEST(SurfaceOrder, WallsAreLeftOutOnlyWhereTheyAreLookedFor)
{
    Soup const row = rowOfBoxes(4, true);
    TriangleTree::Box const aroundTheSecond{{35, 5, 5, 0}, {45, 10, 10, 0}};
    auto const walls = wallsOf(row, aroundTheSecond);
    ASSERT_EQ(numbersOf(walls).size(), 1u);
    for (std::size_t t = 0; t < walls.size(); ++t)
        for (std::uint32_t const p : row.triangles[t])
            EXPECT_TRUE(walls[t] == 0 || row.points[p].X() == 40);
}

TEST(SurfaceOrder, SurplusAreTrianglesThatLieThereTwiceAndSheetsThatHangOnASurface)
{
    Soup doubled = sphere(10, 12, 16);
    doubled.joinPoints();
    for (std::size_t const t : {3u, 40u, 41u, 100u})
        doubled.triangles.push_back(doubled.triangles[t]);
    EXPECT_EQ(closedSolidFaults(without(doubled, wallsOf(doubled))), "");
    Soup flap = box(20, 20, 20);
    flap.joinPoints();
    flap.points.push_back({30, 30, 30});
    auto const [a, b] = std::pair(flap.triangles[0][0], flap.triangles[0][1]);
    flap.add(a, b, std::uint32_t(flap.points.size() - 1));
    auto const walls = wallsOf(flap);
    EXPECT_EQ(numbersOf(walls).size(), 1u);
    EXPECT_EQ(walls.back(), 1u);
}

TEST(SurfaceOrder, IsNoneOfSolidsAndNoneThatAnOpenPartNeeds)
{
    Soup open = box(20, 20, 20);
    open.triangles.pop_back();
    Soup atAnEdge = box(10, 10, 10);
    atAnEdge.append(box(10, 10, 10, {10, 10, 0}));
    StageProgress progress(nobody);
    for (Soup const& soup : {sphere(10, 12, 16), open, atAnEdge, torus(15, 6, 30, 16)})
        EXPECT_TRUE(findSurfaceOrder({soup.points, soup.triangles}, everywhere, progress).isNone());
}

/// A tool that meets a wall in its middle only is told by rays, one that meets its border by that.
TEST(SurfaceOrder, WallsDoNotKeepAPartFromBeingCombinedAndAreTold)
{
    // Whichever way the wall faces: rays run along x.
    auto const turned = [](Soup soup, int axis) {
        for (auto& p : soup.points)
            p = axis == 0   ? p
                : axis == 1 ? UPoint3<float>(p[2], p[0], p[1])
                            : UPoint3<float>(p[1], p[2], p[0]);
        return soup;
    };
    for (int which = 0; which < 18; ++which) {
        bool const isForward = which % 2 == 0;
        int const axis = which / 2 % 3;
        Soup const tools[] = {box(10, 4, 4, {15, 8.1f, 8.2f}), box(10, 4, 8, {15.3f, 8.1f, 15}),
                              box(4, 4, 40, {18.3f, 8.1f, -10})};
        SCOPED_TRACE(which);
        Soup const tool = turned(tools[which / 6], axis);
        Soup const part = turned(rowOfBoxes(2, isForward), axis);
        std::vector<std::string> lines;
        Base::ConsoleSingleton::Instance().setListener(
            [&](std::string const& line) { lines.push_back(line); });
        auto const [within, outside] = split(part, tool);
        Base::ConsoleSingleton::Instance().setListener({});
        EXPECT_EQ(closedSolidFaults(within), "");
        EXPECT_EQ(closedSolidFaults(outside), "");
        EXPECT_NEAR(volumeOf(within) + volumeOf(outside), 16000, 0.01);
        EXPECT_GT(volumeOf(within), 60);
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_NE(lines[0].find("20"), std::string::npos) << lines[0];
    }
}

TEST(SurfaceOrder, TurnsTrianglesBackAlsoSideBySideAndBesideOpenings)
{
    Soup const solid = sphere(10, 12, 16);
    StageProgress progress(nobody);
    for (bool const isOpen : {false, true}) {
        Soup turned = solid;
        for (std::size_t const t : {20u, 21u, 50u, 90u, 120u})
            std::swap(turned.triangles[t][0], turned.triangles[t][1]);
        if (isOpen)
            turned.triangles.erase(turned.triangles.begin() + 51);
        auto const order =
            findSurfaceOrder({turned.points, turned.triangles}, everywhere, progress);
        EXPECT_TRUE(numbersOf(order.surplus).empty());
        for (std::size_t t = 0; t < turned.triangles.size(); ++t) {
            if (order.isTurned[t])
                std::swap(turned.triangles[t][0], turned.triangles[t][1]);
            EXPECT_EQ(turned.triangles[t], solid.triangles[t + (isOpen && t > 50 ? 1 : 0)]) << t;
        }
    }
}

TEST(SurfaceOrder, PartsOfTurnedTrianglesAreCombined)
{
    Soup turned = sphere(10, 12, 16);
    int count = 0;
    for (auto& t : turned.triangles) {
        auto const [low, high] = std::minmax(
            {turned.points[t[0]].X(), turned.points[t[1]].X(), turned.points[t[2]].X()});
        if (low < 1 && high > 1 && ++count % 4 == 0)
            std::swap(t[0], t[1]);
    }
    ASSERT_GT(count, 16);
    auto const [within, outside] = split(turned, box(40, 40, 20, {1, -20.5f, -10.2f}));
    EXPECT_EQ(closedSolidFaults(within), "");
    EXPECT_EQ(closedSolidFaults(outside), "");
    EXPECT_NEAR(volumeOf(within) + volumeOf(outside), volumeOf(sphere(10, 12, 16)), 0.01);
}

TEST(SurfaceOrder, WallsStayWhereTheToolDoesNotReach)
{
    Soup const part = rowOfBoxes(3, true);
    Soup const outside = split(part, box(10, 4, 8, {15.3f, 8.1f, 15})).second;
    // The second wall has four edges of three triangles.
    auto const edges = judge::edgesOf(outside);
    EXPECT_EQ(edges.crowdedUnpaired, 4u);
    EXPECT_EQ(edges.borders, 0u);
}

// Lines along x from the tool do not meet the wall, and the part is too large for its results to be
// held against it.
TEST(SurfaceOrder, AWallThatTheToolPassesInItsMiddleIsLeftOut)
{
    constexpr int divisions = 5;
    Soup const tool = quartered(box(2, 2.2f, 6, {9, 9, 7}));
    for (bool const isForward : {false, true}) {
        Soup part = box(20, 20, 20), wall;
        for (auto const& [x, y] : {std::pair(0.0f, 0.0f), {20, 0}, {20, 20}, {0, 20}})
            wall.add(UPoint3<float>(x, y, 10));
        wall.add(0, isForward ? 1 : 2, isForward ? 2 : 1);
        wall.add(0, isForward ? 2 : 3, isForward ? 3 : 2);
        for (int i = 0; i < divisions; ++i) {
            part = quartered(part);
            wall = quartered(wall);
        }
        part.append(wall);
        part.joinPoints();
        ASSERT_GT(part.triangles.size(), 10'000u);
        Soup const rest = combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
        EXPECT_EQ(closedSolidFaults(rest), "");
        EXPECT_NEAR(volumeOf(rest), 8000 - 26.4, 0.01);
    }
}

// The same with a sheet that ends within the solid, which nothing says what to do about.
TEST(SurfaceOrder, ASheetThatTheToolPassesInItsMiddleIsRefused)
{
    Soup const tool = quartered(box(2, 2.2f, 6, {9, 9, 7}));
    for (bool const isForward : {false, true}) {
        Soup part = box(20, 20, 20);
        for (int i = 0; i < 5; ++i)
            part = quartered(part);
        auto const first = std::uint32_t(part.points.size());
        for (auto const& [x, y] : {std::pair(5.0f, 5.0f), {15, 5}, {15, 15}, {5, 15}})
            part.add(UPoint3<float>(x, y, 10));
        for (std::uint32_t const k : {1u, 2u})
            part.add(first, first + (isForward ? k : k + 1), first + (isForward ? k + 1 : k));
        try {
            combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
            ADD_FAILURE() << "combined";
        } catch (Mell::Exception const& refusal) {
            EXPECT_NE(std::string(refusal.what()).find("The part is open near ("),
                      std::string::npos)
                << refusal.what();
        }
    }
}
