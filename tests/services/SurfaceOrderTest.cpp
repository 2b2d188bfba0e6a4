// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SurfaceOrder.h"
#include "platform/jobs/ConsoleSingleton.h"
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

// One doubled triangle beside a turned one: neither alone makes up for the edge between them.
TEST(SurfaceOrder, DoublesAndTurnedTrianglesSideBySideComeRightTogether)
{
    Soup const solid = sphere(10, 12, 16);
    StageProgress progress(nobody);
    for (std::size_t const doubled : {20u, 21u, 60u, 61u, 100u}) {
        auto const shares = [&](std::size_t t) {
            std::size_t common = 0;
            for (std::uint32_t const p : solid.triangles[t])
                for (std::uint32_t const q : solid.triangles[doubled])
                    common += p == q;
            return common == 2;
        };
        Soup broken = solid;
        std::size_t turned = 0;
        for (std::size_t t = 0; t < solid.triangles.size(); ++t)
            if (shares(t) && ++turned <= 2)
                std::swap(broken.triangles[t][0], broken.triangles[t][1]);
        ASSERT_GE(turned, 2u);
        broken.triangles.push_back(broken.triangles[doubled]);
        auto const order =
            findSurfaceOrder({broken.points, broken.triangles}, everywhere, progress);
        for (std::size_t t = 0; t < broken.triangles.size(); ++t)
            if (order.isTurned[t])
                std::swap(broken.triangles[t][0], broken.triangles[t][1]);
        EXPECT_EQ(closedSolidFaults(without(broken, order.surplus)), "") << doubled;
    }
}

TEST(SurfaceOrder, SheetsThatHangOnSheetsGoWithThem)
{
    // Of three triangles that hang on one edge of a box two lie on each other, facing apart.
    Soup part = box(20, 20, 20);
    part.joinPoints();
    auto const [a, b] = std::pair(part.triangles[0][0], part.triangles[0][1]);
    std::uint32_t const c = part.add({30, 30, 30}), d = part.add({30, 31, 50});
    part.add(a, b, c);
    part.add(c, b, d);
    part.add(c, b, d);
    std::swap(part.triangles.back()[0], part.triangles.back()[1]);
    StageProgress progress(nobody);
    auto const order = findSurfaceOrder({part.points, part.triangles}, everywhere, progress);
    Soup left = without(part, order.surplus);
    for (std::size_t t = 0; t < 12; ++t)
        EXPECT_EQ(order.surplus[t], 0u);
    EXPECT_EQ(closedSolidFaults(left), "");
}

// On an edge of a box hang a fin and two sheets, all the same way round. The sheets lead to another
// box, where each makes up for a fin, so that none of these can go. Without the first fin, or with
// that turned, its edge would be better and still not right.
TEST(SurfaceOrder, TakesBackWhatDoesNotComeRightInTheEnd)
{
    Soup const boxes = [] {
        Soup soup = box(20, 20, 20);
        soup.append(box(20, 20, 20, {40, 0, 0}));
        return soup;
    }();
    Soup part = boxes;
    std::uint32_t const a = part.add({20, 0, 0}), b = part.add({20, 20, 0});
    for (float const z : {0.0f, 20.0f}) {
        std::uint32_t const p = part.add({40, 0, z}), q = part.add({40, 20, z});
        part.add(a, b, q);
        part.add(a, q, p);
        part.add(p, q, part.add({30, 10, z + 30}));
    }
    auto const withFin = [](Soup soup) {
        soup.add(soup.add({20, 0, 0}), soup.add({20, 20, 0}), soup.add({25, 10, -20}));
        return soup;
    };
    StageProgress progress(nobody);
    auto const orderOf = [&](Soup const& soup) {
        return findSurfaceOrder({soup.points, soup.triangles}, everywhere, progress);
    };
    EXPECT_TRUE(orderOf(part).isNone());
    EXPECT_TRUE(orderOf(withFin(part)).isNone());
    // Where no sheet is, the fin goes.
    EXPECT_EQ(orderOf(withFin(boxes)).surplus.back(), 1u);
}

TEST(SurfaceOrder, AToolOutOfOrderIsPutInOrderToo)
{
    Soup const part = box(30, 30, 30, {-15, -15, -40});
    Soup const solid = sphere(10, 12, 16, {0, 0, -10});
    double const all = volumeOf(combined(part, solid, Intersect::BOOLEAN_UNION));
    Soup tool = solid;
    // Where the part's upper side passes.
    int count = 0;
    for (std::size_t t = 0; t < solid.triangles.size(); ++t) {
        auto const [low, high] = std::minmax({solid.points[solid.triangles[t][0]].Z(),
                                              solid.points[solid.triangles[t][1]].Z(),
                                              solid.points[solid.triangles[t][2]].Z()});
        if (low > -10 || high < -10)
            continue;
        ++count;
        if (count % 5 == 1)
            tool.triangles.push_back(solid.triangles[t]);
        else if (count % 5 == 3)
            std::swap(tool.triangles[t][0], tool.triangles[t][1]);
    }
    ASSERT_GT(count, 16);
    std::vector<std::string> lines;
    Base::ConsoleSingleton::Instance().setListener(
        [&](std::string const& line) { lines.push_back(line); });
    for (auto const type :
         {Intersect::BOOLEAN_UNION, Intersect::BOOLEAN_SUBTRACT, Intersect::BOOLEAN_INTERSECT}) {
        Soup const result = combined(part, tool, type);
        EXPECT_EQ(closedSolidFaults(result), "") << type;
        EXPECT_NEAR(volumeOf(result), volumeOf(combined(part, solid, type)), 1e-2) << type;
    }
    Base::ConsoleSingleton::Instance().setListener({});
    EXPECT_GT(all, 27000);
    ASSERT_FALSE(lines.empty());
    EXPECT_NE(lines[0].find("in the tool"), std::string::npos) << lines[0];
}
