// SPDX-License-Identifier: GPL-3.0-or-later
// What lies on which side where operands cross themselves, touch themselves in a point and coincide,
// told by the curves alone. Where they contradict each other, all of both solids goes the slow way.
#include "host/services/boolean/ContactFinder.h"
#include "host/services/boolean/SelfContacts.h"
#include "host/services/boolean/SeparateFans.h"
#include "host/services/boolean/SoupBoolean.h"
#include "host/services/boolean/ToolPreparation.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>

namespace {

std::function<void(int)> const nobody;

MeshArrays meshOf(Soup const& soup)
{
    return {soup.points, soup.triangles};
}

Soup together(std::initializer_list<Soup> shells)
{
    Soup soup;
    for (Soup const& shell : shells)
        soup.append(shell);
    return soup;
}

/// Whether the curves of two solids and of the second with itself agree with each other and with
/// winding numbers.
bool doSidesAgree(Soup const& part, Soup const& tool)
{
    StageProgress progress(nobody);
    MeshArrays const first = meshOf(part), second = meshOf(tool);
    OperandSoup soup;
    soup.mesh = meshOf(together({part, tool}));
    soup.firstPointOfSecond = std::uint32_t(first.points.size());
    soup.firstTriangleOfSecond = std::uint32_t(first.triangles.size());
    ToolTree const firstTree(first, progress), secondTree(second, progress);
    TriangleTree::Box bounds;
    for (auto const& p : soup.mesh.points)
        bounds.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
    ToolGrid const grid(secondTree, bounds, 1 << 12, progress);
    auto contacts = findContacts(soup, grid, 1'000'000, progress).value();
    std::vector<std::uint32_t> all(second.triangles.size());
    std::iota(all.begin(), all.end(), 0u);
    for (TrianglePair pair : findSelfContacts(secondTree, all, progress)) {
        pair.first += soup.firstTriangleOfSecond;
        pair.second += soup.firstTriangleOfSecond;
        contacts.push_back(pair);
    }
    WindingSources sources;
    sources.isSecondSimple = false;
    sources.ofFirst = [&](std::span<RayOrigin const> points) {
        WindingSources::Numbers numbers;
        for (RayOrigin const& point : points)
            numbers.push_back(firstTree.windingAt(point));
        return numbers;
    };
    sources.ofSecond = [&](RayOrigin const& point) { return secondTree.windingAt(point); };
    return SoupBoolean(soup).resolve(std::move(contacts), sources, progress);
}

/// A shell with triangles that are folded onto others in the plane z = 2.
Soup foldedShell()
{
    Soup soup;
    for (auto const& p : std::initializer_list<UPoint3<float>>{
             {2, 2, 2}, {-1, -1, 2}, {5, 2, 2}, {2, 3, 2}, {2, 3, 6}, {5, 3, 2}})
        soup.add(p);
    for (auto const& t : {MeshArrays::Corners{0, 1, 4},
                          {0, 4, 3},
                          {1, 2, 5},
                          {1, 5, 4},
                          {2, 0, 3},
                          {2, 3, 5},
                          {0, 2, 1},
                          {3, 4, 5}})
        soup.add(t[0], t[1], t[2]);
    return soup;
}

/// A prism whose lower cap has a corner beyond the edge of the triangle beside it, so that a thin
/// triangle is folded onto the cap.
Soup capWithAFold()
{
    Soup soup = box(4, 4, 4);
    soup.joinPoints();
    // A point on the cap's diagonal goes beyond a side of one of the two triangles.
    std::size_t const cap = std::size_t(std::find_if(soup.triangles.begin(), soup.triangles.end(),
                                                     [&](auto const& t) {
                                                         return soup.points[t[0]].Z() == 0 &&
                                                                soup.points[t[1]].Z() == 0 &&
                                                                soup.points[t[2]].Z() == 0;
                                                     }) -
                                        soup.triangles.begin());
    auto const t = soup.triangles[cap];
    auto const& a = soup.points[t[0]];
    auto const& b = soup.points[t[1]];
    auto const& c = soup.points[t[2]];
    // Beyond the edge from a to b.
    auto const beyond = soup.add(a + (b - a) * 0.5f - (c - a) * 0.1f);
    soup.triangles[cap] = {t[0], t[1], beyond};
    soup.add(t[1], t[2], beyond);
    soup.add(t[2], t[0], beyond);
    return soup;
}

/// A box with a tetrahedron in it that has a corner of the box for its tip.
Soup boxAroundATetrahedron()
{
    Soup tetrahedron;
    for (auto const& p :
         std::initializer_list<UPoint3<float>>{{0, 0, 4}, {3, 1, 1}, {1, 3, 1}, {3, 3, 3}})
        tetrahedron.add(p);
    for (auto const& t : {MeshArrays::Corners{0, 1, 2}, {0, 3, 1}, {0, 2, 3}, {1, 3, 2}})
        tetrahedron.add(t[0], t[1], t[2]);
    if (volumeOf(tetrahedron) < 0)
        tetrahedron.flip();
    Soup soup = together({box(4, 4, 4), tetrahedron});
    soup.joinPoints();
    return soup;
}

}  // namespace

// The tool's lower side lies on the upper side of one box of the part, where the other box comes
// through it: no curve divides the part there.
TEST(SideLabels, AgreeWhereTheToolLiesOnAPartThatCrossesItself)
{
    Soup const part = together({box(4, 4, 2), box(2, 2, 4, {1, 1, 1})});
    Soup const tool = box(1.5f, 1.5f, 1, {0.5f, 0.5f, 2});
    EXPECT_TRUE(doSidesAgree(part, tool));
    auto const [within, outside] = split(part, tool);
    EXPECT_NEAR(volumeOf(within), 1, 1e-6);
    EXPECT_NEAR(volumeOf(outside), volumeOf(part) - 1, 1e-5);
}

TEST(SideLabels, AgreeForAPartAndItsCopyThatCrossThemselves)
{
    Soup const part = together({box(4, 4, 2), box(2, 2, 4, {1, 1, 1}), box(1, 5, 1, {3, -1, 1})});
    EXPECT_TRUE(doSidesAgree(part, part));
}

// Caps of tools with a thousand corners had such triangles: all of the part went the slow way.
TEST(SideLabels, AgreeWhereATriangleIsFoldedOntoItsNeighbour)
{
    EXPECT_TRUE(doSidesAgree(box(3, 1, 4, {1, 1, 1}), capWithAFold()));
    EXPECT_TRUE(doSidesAgree(box(3, 2, 1, {1, 1, 1}), foldedShell()));
    EXPECT_TRUE(doSidesAgree(box(3, 2, 3, {1, 1, 0}), foldedShell()));
}

// What is around the common vertex lies outside the box and inside it.
TEST(SideLabels, AgreeWhereShellsShareAVertex)
{
    Soup const tool = boxAroundATetrahedron();
    ASSERT_EQ(tool.points.size(), 11u);
    StageProgress progress(nobody);
    PreparedTool const prepared = prepareTool(*kernelOf(tool), progress);
    EXPECT_FALSE(prepared.isSimple);
    EXPECT_EQ(prepared.mesh.points.size(), 12u);
    Soup separate;
    separate.points = prepared.mesh.points;
    separate.triangles = prepared.mesh.triangles;
    EXPECT_TRUE(doSidesAgree(box(6, 6, 2, {-1, -1, 2}), separate));
}

TEST(SeparateFans, GivesEachFanItsVertex)
{
    StageProgress progress(nobody);
    Soup touching = together({box(1, 1, 1), box(1, 1, 1, {1, 1, 1}), box(1, 1, 1, {-1, 1, 0})});
    touching.joinPoints();
    MeshArrays mesh = meshOf(touching);
    // One vertex is between two boxes, and an edge with its ends between two others.
    EXPECT_EQ(mesh.points.size(), 24 - 1 - 2u);
    EXPECT_TRUE(separateFans(mesh, progress));
    EXPECT_EQ(mesh.points.size(), 22u);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(mesh.point(t, k), touching.points[touching.triangles[t][std::size_t(k)]]);
    EXPECT_FALSE(separateFans(mesh, progress));
}
