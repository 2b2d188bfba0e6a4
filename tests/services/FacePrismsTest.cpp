// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FacePrisms.h"
#include "tests/services/CutFamilies.h"
#include "tests/support/Crossings.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"
#include "tests/support/WindingField.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace {

using Point = UPoint3<float>;

constexpr double margin = 1e-3;

/// Where a test takes place: the plane is z = 0 there.
struct Place
{
    char const* name;
    UMatrix4<float> matrix;

    Soup put(Soup const& soup) const { return moved(soup, matrix); }
    std::unique_ptr<MeshKernel> plane() const
    {
        UVector3<float> const normal = (matrix * Point(0, 0, 1)) - (matrix * Point(0, 0, 0));
        return planeMesh(matrix * Point(0, 0, 0), normal, 500);
    }
};

std::vector<Place> places()
{
    float const c = std::cos(0.4f), s = std::sin(0.4f), d = std::cos(0.9f), e = std::sin(0.9f);
    float const same[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    float const lying[16] = {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 7, -3, 2, 1};
    float const aslant[16] = {c, s * d, s * e, 0, -s, c * d, c * e, 0, 0, -e, d, 0, 31, -17, 5, 1};
    return {{"along two axes", UMatrix4<float>(same)},
            {"along two others", UMatrix4<float>(lying)},
            {"aslant", UMatrix4<float>(aslant)}};
}

/// A part that the plane z = 0 cuts, in two halves.
struct CutPart
{
    CutPart(Soup const& soup, Place const& place)
        : plane(place.plane()), kernel(kernelOf(place.put(soup)))
    {
        MeshKernel section;
        Intersect::cutByPlane(kernel.get(), plane.get(), &upper, &lower, &section, {}, true);
    }

    std::unique_ptr<MeshKernel> plane;
    std::unique_ptr<MeshKernel> kernel;
    MeshKernel upper;
    MeshKernel lower;
};

/// A prism over an outline, from below the plane to above it.
Soup column(float radius, int facets, float low, float high, float x = 0, float y = 0)
{
    Soup soup = cylinder(radius, high - low, facets);
    for (Point& p : soup.points)
        p += UVector3<float>(x, y, low);
    return soup;
}

Soup columnsInARow()
{
    Soup soup;
    for (int i = -3; i <= 3; ++i)
        soup.append(column(1, 7 + i, -0.5f, 2, float(i) * 5, float(i)));
    return soup;
}

std::size_t shellsOf(MeshKernel const& kernel)
{
    return componentsOf(soupOf(kernel));
}

/// Points at which a result is not solid where it should be, or is where it should not be.
int wrongPoints(MeshKernel const& result, Soup const& half, Soup const& prisms, bool isRaised)
{
    judge::WindingField const is(soupOf(result)), of(half), with(prisms);
    UBox3<float> const bounds = with.bounds();
    std::mt19937 random(5);
    auto const between = [&](float low, float high) {
        return std::uniform_real_distribution<double>(low - 1, high + 1)(random);
    };
    int told = 0, wrong = 0;
    while (told < 2000) {
        UPoint3<double> const p(between(bounds.MinX(), bounds.MaxX()),
                                between(bounds.MinY(), bounds.MaxY()),
                                between(bounds.MinZ(), bounds.MaxZ()));
        if (is.isWithin(margin, p) || of.isWithin(margin, p) || with.isWithin(margin, p))
            continue;
        auto const a = is.windingAt(p), b = of.windingAt(p), c = with.windingAt(p);
        if (!a || !b || !c)
            continue;
        ++told;
        wrong += *a != int(isRaised ? *b > 0 || *c > 0 : *b > 0 && *c <= 0);
    }
    return wrong;
}

void expectSound(MeshKernel const& result, Soup const& half, Soup const& prisms, bool isRaised)
{
    EXPECT_EQ(closedSolidFaults(result), "");
    // What a face joins stays joined, and prisms join nothing to it but themselves.
    EXPECT_EQ(shellsOf(result), componentsOf(half));
    EXPECT_EQ(judge::crossingsOf(soupOf(result)).total(), 0u);
    EXPECT_EQ(wrongPoints(result, half, prisms, isRaised), 0);
}

/// Expects that the half is refused and left as it was.
void expectRefused(CutPart& part, Soup const& prisms)
{
    Soup const before = soupOf(part.lower);
    for (auto const type : {Intersect::BOOLEAN_UNION, Intersect::BOOLEAN_SUBTRACT})
        EXPECT_FALSE(combineAtFace(part.lower, *part.plane, *kernelOf(prisms), type, {}));
    Soup const after = soupOf(part.lower);
    EXPECT_EQ(before.points, after.points);
    EXPECT_EQ(before.triangles, after.triangles);
}

Place const level = places()[0];
Soup const block = box(50, 30, 20, {-25, -15, -10});
Soup const wideTube = [] {
    Soup soup = tube(20, 8, 20, 64);
    for (Point& p : soup.points)
        p += UVector3<float>(0, 0, -10);
    return soup;
}();

}  // namespace

TEST(PrismSplit, KeepsWhatMeetsNoSurface)
{
    for (Place const& place : places()) {
        SCOPED_TRACE(place.name);
        CutPart const part(block, place);
        Soup prisms = column(2, 20, -1, 3, 3, 4);
        prisms.append(column(2, 20, -1, 3, 24, 0));
        auto const split = splitPrisms(*part.kernel, *part.plane, *kernelOf(place.put(prisms)), {});
        EXPECT_EQ(shellsOf(*split.free), 1u);
        EXPECT_EQ(shellsOf(*split.other), 1u);
        EXPECT_EQ(soupOf(*split.free).triangles.size(), soupOf(*split.other).triangles.size());
    }
}

TEST(PrismSplit, SeesSurfacesThatDoNotCrossWalls)
{
    auto const isFree = [](Soup const& part, Soup const& prism) {
        auto const split = splitPrisms(*kernelOf(part), *level.plane(), *kernelOf(prism), {});
        return shellsOf(*split.free) == 1;
    };
    EXPECT_TRUE(isFree(block, column(2, 20, -1, 3)));
    // A hollow within the prism, one that holds it, and a wall less than a thousandth away.
    Soup hollow = box(0.1f, 0.1f, 0.1f, {0.3f, 0.2f, 1});
    hollow.flip();
    hollow.append(block);
    EXPECT_FALSE(isFree(hollow, column(2, 20, -1, 3)));
    Soup deep = box(0.1f, 0.1f, 0.1f, {0.3f, 0.2f, 5});
    deep.flip();
    deep.append(block);
    EXPECT_TRUE(isFree(deep, column(2, 20, -1, 3)));
    EXPECT_FALSE(isFree(block, box(2, 2, 4, {22.9995f, 0, -1})));
    EXPECT_TRUE(isFree(block, box(2, 2, 4, {22.9985f, 0, -1})));
    EXPECT_FALSE(isFree(block, column(2, 20, -1, 9.9995f)));
    EXPECT_TRUE(isFree(block, column(2, 20, -1, 9.9985f)));
}

TEST(PrismSplit, ReadsThePartThroughItsMatrix)
{
    CutPart const part(block, level);
    auto const source = kernelOf(block);
    float const aside[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 24, 0, 0, 1};
    auto const prism = kernelOf(column(2, 20, -1, 3));
    EXPECT_EQ(shellsOf(*splitPrisms(*source, *part.plane, *prism, {}).free), 1u);
    source->getMatrix() = UMatrix4<float>(aside);
    EXPECT_EQ(shellsOf(*splitPrisms(*source, *part.plane, *prism, {}).free), 0u);
}

TEST(PrismSplit, TakesNothingButUprightPrismsForFree)
{
    Soup ball = sphere(2, 12, 12);
    Soup leaning = column(2, 20, -1, 3);
    for (Point& p : leaning.points)
        p += UVector3<float>(p.Z() * 0.01f, 0, 0);
    for (Soup const& soup : {ball, leaning})
        EXPECT_EQ(
            shellsOf(*splitPrisms(*kernelOf(block), *level.plane(), *kernelOf(soup), {}).free), 0u);
}

TEST(FacePrisms, StandOnAFaceOrAreSunkIntoIt)
{
    for (Place const& place : places()) {
        SCOPED_TRACE(place.name);
        Soup const prisms = place.put(columnsInARow());
        CutPart raised(block, place);
        Soup const lower = soupOf(raised.lower);
        ASSERT_TRUE(combineAtFace(raised.lower, *raised.plane, *kernelOf(prisms),
                                  Intersect::BOOLEAN_UNION, {}));
        expectSound(raised.lower, lower, prisms, true);
        CutPart sunk(block, place);
        for (MeshKernel* const half : {&sunk.lower, &sunk.upper}) {
            Soup const plain = soupOf(*half);
            ASSERT_TRUE(combineAtFace(*half, *sunk.plane, *kernelOf(prisms),
                                      Intersect::BOOLEAN_SUBTRACT, {}));
            expectSound(*half, plain, prisms, false);
        }
    }
}

TEST(FacePrisms, MayHaveHolesAndStandOnAFaceWithHoles)
{
    for (Place const& place : places()) {
        SCOPED_TRACE(place.name);
        Soup ring = tube(16, 12, 5, 90);
        for (Point& p : ring.points)
            p += UVector3<float>(0, 0, -1);
        ring = place.put(ring);
        CutPart part(wideTube, place);
        Soup const lower = soupOf(part.lower), upper = soupOf(part.upper);
        ASSERT_TRUE(
            combineAtFace(part.lower, *part.plane, *kernelOf(ring), Intersect::BOOLEAN_UNION, {}));
        expectSound(part.lower, lower, ring, true);
        EXPECT_EQ(eulerNumberOf(soupOf(part.lower)), 0);
        ASSERT_TRUE(combineAtFace(part.upper, *part.plane, *kernelOf(ring),
                                  Intersect::BOOLEAN_SUBTRACT, {}));
        expectSound(part.upper, upper, ring, false);
    }
}

TEST(FacePrisms, LeaveTrianglesAloneThatTheyDoNotReach)
{
    CutPart part(wideTube, level);
    std::size_t const plain = part.lower.readMesh()->triangles.size();
    auto const* const first = part.lower.readMesh()->triangles.front();
    ASSERT_TRUE(combineAtFace(part.lower, *part.plane, *kernelOf(column(0.5f, 6, -1, 2, 14, 0)),
                              Intersect::BOOLEAN_UNION, {}));
    EXPECT_EQ(part.lower.readMesh()->triangles.front(), first);
    // Twelve triangles of the walls, six of the tip, and 6 + 2 more in the face.
    EXPECT_EQ(part.lower.readMesh()->triangles.size(), plain + 12 + 6 + 6 + 2);
}

TEST(FacePrisms, AreRefusedWhereTheyLeaveTheFaceOrMeetEachOther)
{
    CutPart part(wideTube, level);
    expectRefused(part, column(2, 20, -1, 3, 20, 0));
    expectRefused(part, column(2, 20, -1, 3, 0, 0));
    expectRefused(part, column(2, 20, -1, 3, 60, 0));
    expectRefused(part, column(18, 40, -1, 3, 0, 0));
    Soup pair = column(2, 20, -1, 3, 14, 0);
    pair.append(column(2, 20, -1, 3, 14, 3));
    expectRefused(part, pair);
    Soup nested = column(2, 20, -1, 3, 14, 0);
    nested.append(column(1, 20, -1, 3, 14, 0));
    expectRefused(part, nested);
}

TEST(FacePrisms, AreRefusedWhereTheyAreOpenOrDoNotPassThePlane)
{
    CutPart part(wideTube, level);
    Soup const whole = column(2, 20, -1, 3, 14, 0);
    // Without its ends.
    Soup lidless = whole;
    std::erase_if(lidless.triangles, [&](auto const& t) {
        return whole.points[t[0]].Z() == whole.points[t[1]].Z() &&
               whole.points[t[1]].Z() == whole.points[t[2]].Z();
    });
    expectRefused(part, lidless);
    expectRefused(part, column(2, 20, 1, 3, 14, 0));
    expectRefused(part, column(2, 20, -3, -1, 14, 0));
    Soup turned = whole;
    turned.flip();
    expectRefused(part, turned);
}

TEST(FacePrisms, AreRefusedOnAFaceThatLiesThereTwice)
{
    Soup twice = block;
    twice.append(box(40, 20, 16, {-20, -10, -8}));
    CutPart part(twice, level);
    expectRefused(part, column(2, 20, -1, 3));
}

TEST(FacePrisms, AreRefusedWhereRoundingCouldTurnThemOver)
{
    // A few units wide: along two axes nothing is rounded.
    Soup const thin = box(2, 4e-6f, 3, {3, 4, -1});
    CutPart exact(block, level);
    EXPECT_TRUE(
        combineAtFace(exact.lower, *exact.plane, *kernelOf(thin), Intersect::BOOLEAN_UNION, {}));
    EXPECT_EQ(closedSolidFaults(exact.lower), "");
    Place const aslant = places()[2];
    CutPart rounded(block, aslant);
    expectRefused(rounded, aslant.put(thin));
}

TEST(FacePrisms, LeaveTheHalfAsItWasWhenTheyAreCancelled)
{
    CutPart part(wideTube, level);
    Soup const before = soupOf(part.lower);
    auto const prisms = kernelOf(column(1, 20, -1, 3, 14, 0));
    auto const cancel = [](int) { throw Mell::AbortException("Aborting..."); };
    EXPECT_THROW(combineAtFace(part.lower, *part.plane, *prisms, Intersect::BOOLEAN_UNION, cancel),
                 Mell::AbortException);
    EXPECT_EQ(soupOf(part.lower).triangles, before.triangles);
    EXPECT_THROW(splitPrisms(*part.kernel, *part.plane, *prisms, cancel), Mell::AbortException);
}
