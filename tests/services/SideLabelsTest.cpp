// SPDX-License-Identifier: GPL-3.0-or-later
// What lies on which side where operands cross themselves, touch themselves in a point and coincide,
// told by the curves alone. Where they contradict each other, all of both solids goes the slow way.
#include "host/services/boolean/SeparateFans.h"
#include "host/services/boolean/ToolPreparation.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/OperandContacts.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

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

bool doSidesAgree(Soup const& part, Soup const& tool)
{
    return OperandContacts(part, tool).doSidesAgree();
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

/// A box of 8 mm whose upper side has more corners, each anywhere in its plane.
Soup boxWithMoreCorners(std::mt19937& random, int corners)
{
    Soup soup = box(8, 8, 8);
    soup.joinPoints();
    auto const isUp = [&](MeshArrays::Corners const& t) {
        return std::all_of(t.begin(), t.end(), [&](auto c) { return soup.points[c].Z() == 8; });
    };
    for (int i = 0; i < corners; ++i) {
        std::vector<std::size_t> upper;
        for (std::size_t t = 0; t < soup.triangles.size(); ++t)
            if (isUp(soup.triangles[t]))
                upper.push_back(t);
        std::size_t const chosen = upper[random() % upper.size()];
        auto const t = soup.triangles[chosen];
        auto const corner =
            soup.add({float(int(random() % 13)) - 2, float(int(random() % 13)) - 2, 8});
        soup.triangles[chosen] = {t[0], t[1], corner};
        soup.add(t[1], t[2], corner);
        soup.add(t[2], t[0], corner);
    }
    return soup;
}

/// The same without triangles that have no area: others are folded onto their neighbours, and their
/// edges run across third ones. It is solid where the box is.
Soup boxWithACrumpledSide(std::mt19937& random, int corners)
{
    StageProgress progress(nobody);
    for (;;) {
        Soup soup = boxWithMoreCorners(random, corners);
        if (!hasFlatTriangle(meshOf(soup), progress))
            return soup;
    }
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

// Neither neighbour of such an edge leaves the plane, so that no other contact divides what it runs
// across: rounded teeth had such caps, and all of both solids went the slow way.
TEST(SideLabels, AgreeWhereTheEdgeOfAFoldRunsAcrossOtherTrianglesOfItsPlane)
{
    std::mt19937 random(4);
    for (int i = 0; i < 40 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Soup const crumpled = boxWithACrumpledSide(random, 1 + i % 5);
        float const x = float(int(random() % 9)) - 2, y = float(int(random() % 9)) - 2;
        // Through the side, on it, and under it.
        float const height = i % 3 == 0 ? 6.0f : 3.0f;
        Soup const other = box(5, 4, height, {x, y, i % 3 == 1 ? 8.0f : 5.0f});
        EXPECT_TRUE(doSidesAgree(other, crumpled)) << "tool";
        EXPECT_TRUE(doSidesAgree(crumpled, other)) << "part";
        EXPECT_TRUE(doSidesAgree(crumpled, boxWithACrumpledSide(random, 2))) << "both";
        for (bool const isPart : {false, true}) {
            auto const [within, outside] = isPart ? split(crumpled, other) : split(other, crumpled);
            Soup const smooth = box(8, 8, 8);
            auto const [expectedWithin, expectedOutside] =
                isPart ? split(smooth, other) : split(other, smooth);
            EXPECT_NEAR(volumeOf(within), volumeOf(expectedWithin), 1e-3);
            EXPECT_NEAR(volumeOf(outside), volumeOf(expectedOutside), 1e-3);
        }
    }
}

/// A box with fins of no thickness in the plane of one of its sides, all on one edge.
Soup boxWithFins(std::initializer_list<UPoint3<float>> tips)
{
    Soup soup = box(4, 4, 4);
    soup.joinPoints();
    auto const find = [&](UPoint3<float> const& p) {
        return std::uint32_t(std::find(soup.points.begin(), soup.points.end(), p) -
                             soup.points.begin());
    };
    auto const low = find({4, 4, 0}), high = find({4, 4, 4});
    for (auto const& p : tips) {
        auto const tip = soup.add(p);
        soup.add(low, high, tip);
        soup.add(high, low, tip);
    }
    return soup;
}

// Both sides of a fin are on the same three corners, and fins may lie on each other.
TEST(SideLabels, AgreeWhereTheToolHasFinsOfNoThickness)
{
    Soup const part = box(6, 6, 3, {2, 2, 0});
    for (Soup const& tool : {boxWithFins({{9, 4, 2}}), boxWithFins({{9, 4, 2}, {7, 4, 1}}),
                             boxWithFins({{9, 4, 2}, {7, 4, 1}, {5, 4, 3}})}) {
        EXPECT_TRUE(doSidesAgree(part, tool));
        auto const [within, outside] = split(part, tool);
        EXPECT_NEAR(volumeOf(within), 2 * 2 * 3, 1e-5);
        EXPECT_NEAR(volumeOf(outside), volumeOf(part) - 2 * 2 * 3, 1e-5);
    }
}

// Sides of several shells lie beside each other and on each other in one plane, the part's too.
TEST(SideLabels, AgreeWhereShellsOfTheToolHaveSidesInOnePlane)
{
    std::mt19937 random(3);
    auto const whole = [&](int least, int most) {
        return float(least + int(random() % unsigned(most - least + 1)));
    };
    for (int i = 0; i < 100 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Soup tool;
        for (int shell = 0; shell < 3; ++shell)
            tool.append(box(whole(1, 3), whole(1, 3), whole(1, 3), {whole(0, 2), whole(0, 2), 0}));
        Soup const part = box(3, 3, 2, {whole(0, 1), whole(0, 1), whole(-1, 1)});
        EXPECT_TRUE(doSidesAgree(part, tool));
        EXPECT_TRUE(doSidesAgree(tool, part));
    }
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
