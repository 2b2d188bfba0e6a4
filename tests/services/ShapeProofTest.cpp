// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/ShapeProof.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

namespace {

MeshArrays arraysOf(Soup const& soup)
{
    std::function<void(int)> const nobody;
    StageProgress progress(nobody);
    return copyArrays(*kernelOf(soup), Frame::World, progress);
}

ShapeProof::Verdict verdictOn(Soup const& before, Soup const& after)
{
    std::function<void(int)> const nobody;
    StageProgress progress(nobody);
    MeshArrays const was = arraysOf(before);
    TopologyReport const topology = checkTopology(was, progress);
    TriangleTree const tree(was, topology, progress);
    WindingField const field(was, tree, progress);
    return ShapeProof(was, field).prove(arraysOf(after), progress);
}

bool isKept(Soup const& before, Soup const& after)
{
    return verdictOn(before, after).isKept;
}

Soup together(Soup a, Soup const& b)
{
    a.append(b);
    return a;
}

Soup turned(Soup soup)
{
    soup.flip();
    return soup;
}

/// A box with one of its sides divided at its middle, which is moved by so much.
Soup boxWithPoint(float out)
{
    Soup soup = box(10, 10, 10);
    auto const t = soup.triangles.front();
    auto const &a = soup.points[t[0]], &b = soup.points[t[1]], &c = soup.points[t[2]];
    UPoint3<float> middle((a.X() + b.X() + c.X()) / 3, (a.Y() + b.Y() + c.Y()) / 3,
                          (a.Z() + b.Z() + c.Z()) / 3);
    for (int axis = 0; axis < 3; ++axis)
        if (a[axis] == b[axis] && b[axis] == c[axis])
            middle[axis] += a[axis] > 5 ? out : -out;
    std::uint32_t const m = soup.add(middle);
    soup.triangles.front() = {t[0], t[1], m};
    soup.add(t[1], t[2], m);
    soup.add(t[2], t[0], m);
    return soup;
}

}  // namespace

TEST(ShapeProof, HoldsForTheSameMeshInAnotherOrder)
{
    for (auto const& [name, soup] : closedMeshes())
        EXPECT_TRUE(isKept(soup, shuffled(soup, 5))) << name;
}

TEST(ShapeProof, HoldsForAFaceThatIsDividedInItsPlane)
{
    EXPECT_TRUE(isKept(box(10, 10, 10), boxWithPoint(0)));
    EXPECT_TRUE(isKept(boxWithPoint(0), box(10, 10, 10)));
}

TEST(ShapeProof, FailsWhereAFaceIsMoved)
{
    for (float const out : {0.05f, -0.05f, -3.0f}) {
        EXPECT_FALSE(isKept(box(10, 10, 10), boxWithPoint(out))) << out;
        EXPECT_FALSE(isKept(boxWithPoint(out), box(10, 10, 10))) << out;
    }
}

TEST(ShapeProof, FailsWhereAShellIsLostOrComes)
{
    Soup const ball = sphere(3, 10, 16, {5, 5, 5});
    Soup const beside = together(box(10, 10, 10), sphere(3, 10, 16, {20, 5, 5}));
    EXPECT_FALSE(isKept(beside, box(10, 10, 10)));
    EXPECT_FALSE(isKept(box(10, 10, 10), beside));
    // A cavity.
    EXPECT_FALSE(isKept(together(box(10, 10, 10), turned(ball)), box(10, 10, 10)));
    EXPECT_FALSE(isKept(box(10, 10, 10), together(box(10, 10, 10), turned(ball))));
}

TEST(ShapeProof, HoldsWhereWhatCountsTwiceIsLeftOut)
{
    Soup const ball = sphere(3, 10, 16, {5, 5, 5});
    EXPECT_TRUE(isKept(together(box(10, 10, 10), ball), box(10, 10, 10)));
}

// Two equal boxes and one that is inside out wind 2 - 1 times where all overlap. Without one of the
// two that is no solid any more; the overlap is a sliver, or lies within and is small.
TEST(ShapeProof, FailsWhereALayerGoesThatMadeUpForOneBelowZero)
{
    Soup const block = box(10, 10, 10);
    for (Soup const& inverted :
         {turned(box(4, 4, 4, {9.99f, 3, 3})), turned(box(9, 9, 9, {9.99f, 9.95f, 9.9f})),
          turned(box(0.05f, 0.05f, 0.05f, {3.1f, 4.2f, 5.3f}))}) {
        Soup const once = together(block, inverted), twice = together(once, block);
        EXPECT_FALSE(isKept(twice, once));
        EXPECT_FALSE(isKept(once, twice));
    }
    Soup const cavity = turned(box(4, 4, 4, {3, 3, 3}));
    EXPECT_TRUE(isKept(together(block, block), block));
    EXPECT_FALSE(isKept(together(together(block, block), cavity), together(block, cavity)));
}

TEST(ShapeProof, FailsWhereAShellInSolidIsTurnedToACavity)
{
    Soup const ball = sphere(3, 10, 16, {5, 5, 5});
    EXPECT_FALSE(isKept(together(box(10, 10, 10), ball), together(box(10, 10, 10), turned(ball))));
}

TEST(ShapeProof, HoldsWhereASolidIsTurnedOutside)
{
    EXPECT_TRUE(isKept(turned(nestedBoxes()), nestedBoxes()));
    EXPECT_TRUE(isKept(turned(sphere(3, 10, 16)), sphere(3, 10, 16)));
    EXPECT_FALSE(isKept(sphere(3, 10, 16), turned(sphere(3, 10, 16))));
}

// A box within one that is inside out winds -1 + 1 times. Turned, it would wind -2 times: not solid
// before and after, but further from being mended.
TEST(ShapeProof, FailsWhereAPlaceWindsFurtherBelowZero)
{
    Soup const outer = turned(box(10, 10, 10)), inner = box(2, 2, 2, {4, 4, 4});
    EXPECT_FALSE(isKept(together(outer, inner), together(outer, turned(inner))));
    EXPECT_FALSE(isKept(outer, together(outer, turned(inner))));
    EXPECT_TRUE(isKept(together(outer, inner), turned(together(outer, inner))));
}

TEST(ShapeProof, HoldsWhereSingleTrianglesAreTurnedBack)
{
    Soup flawed = sphere(3, 10, 16);
    for (std::size_t t = 0; t < flawed.triangles.size(); t += 9)
        std::swap(flawed.triangles[t][1], flawed.triangles[t][2]);
    EXPECT_TRUE(isKept(flawed, sphere(3, 10, 16)));
    EXPECT_FALSE(isKept(flawed, turned(sphere(3, 10, 16))));
}

TEST(ShapeProof, HoldsWhereAHoleIsClosedAndFailsWhereOneIsMade)
{
    Soup open = sphere(10, 20, 30);
    auto const lid = open.triangles[200];
    open.triangles.erase(open.triangles.begin() + 200);
    EXPECT_TRUE(isKept(open, sphere(10, 20, 30)));
    EXPECT_FALSE(isKept(sphere(10, 20, 30), open));
    // The lid the wrong way round closes nothing.
    Soup wrong = open;
    wrong.add(lid[0], lid[2], lid[1]);
    EXPECT_FALSE(isKept(open, wrong));
}

TEST(ShapeProof, FailsWhereTheBoxLosesSolidHoweverThin)
{
    Soup const needle = together(box(10, 10, 10), box(5, 0.001f, 0.001f, {12, 5, 5}));
    EXPECT_FALSE(isKept(needle, box(10, 10, 10)));
}

TEST(ShapeProof, HoldsWhereAFilmThatSticksOutIsTakenAway)
{
    Soup fin = box(10, 10, 10);
    std::uint32_t const tip = fin.add({15, 15, 15});
    fin.add(fin.triangles[0][0], fin.triangles[0][1], tip);
    fin.add(fin.triangles[0][1], fin.triangles[0][0], tip);
    EXPECT_TRUE(isKept(fin, box(10, 10, 10)));
}

TEST(ShapeProof, TellsWhereItFails)
{
    auto const verdict = verdictOn(box(10, 10, 10), boxWithPoint(-3));
    ASSERT_FALSE(verdict.places.empty());
    for (auto const& place : verdict.places)
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_TRUE(place[axis] >= -6 && place[axis] <= 16);
}
