// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/BooleanRuns.h"
#include "tests/support/MadeModels.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace {

using Place = std::array<float, 3>;

std::set<Place> placesOf(Soup const& soup)
{
    std::set<Place> places;
    for (auto const& p : soup.points)
        places.insert({p.X() + 0.0f, p.Y() + 0.0f, p.Z() + 0.0f});
    return places;
}

/// The places of a piece's vertices that are no vertices of the part.
std::set<Place> newPlaces(Soup const& piece, std::set<Place> const& old)
{
    std::set<Place> places;
    for (Place const& place : placesOf(piece))
        if (!old.contains(place))
            places.insert(place);
    return places;
}

void expectFit(Soup const& part, Soup const& tool, std::string const& name)
{
    SCOPED_TRACE(name);
    auto const [within, outside] = split(part, tool);
    std::set<Place> const old = placesOf(part);
    std::set<Place> const inWithin = newPlaces(within, old), inOutside = newPlaces(outside, old);
    if (!within.triangles.empty() && !outside.triangles.empty()) {
        EXPECT_EQ(inWithin, inOutside);
    }
}

}  // namespace

TEST(BooleanSplit, PiecesShareTheirNewPointsExactly)
{
    expectFit(box(20, 20, 20), sphere(7, 9, 13, {20, 18, 3.3f}), "box and ball");
    expectFit(sphere(10, 20, 30), cylinder(3.1f, 40, 63), "ball and cylinder");
    expectFit(torus(20, 6, 60, 24), box(15.3f, 60, 60, {3.1f, -30, -30}), "torus and box");
    for (unsigned seed = 1; seed <= unsigned(rounds(200)); ++seed) {
        std::mt19937 random(seed);
        // Solids of one shell: a shell that is not cut has points of its own.
        Soup const part = moved(box(7, 9, 5), randomMotion(random, 1));
        Soup const tool = moved(sphere(5, 7, 10), randomMotion(random, 4));
        expectFit(part, tool, "seed " + std::to_string(seed));
    }
}

TEST(BooleanSplit, PiecesShareTheirNewPointsExactlyOnModels)
{
    for (auto const& [name, part] :
         withReal({"head", scannedHead(fineness(60))}, "bunny-60k.stl")) {
        UBox3<float> const box = kernelOf(part)->GetBox();
        UPoint3<float> const middle = (box.min + box.max) * 0.5f;
        Soup prism = cylinder(17, 300, 8);
        for (auto& p : prism.points)
            p += UVector3<float>(middle.X() + 0.3f, middle.Y() + 0.7f, -100);
        expectFit(part, prism, name + " and prism");
    }
}

TEST(BooleanSplit, PiecesAreThePartWithinTheToolAndThePartLessTheTool)
{
    Soup const part = box(10, 10, 10), tool = box(3, 20, 20, {-1, -5, -5});
    auto const [within, outside] = split(part, tool);
    EXPECT_DOUBLE_EQ(volumeOf(within), 200);
    EXPECT_DOUBLE_EQ(volumeOf(outside), 800);
    for (auto const& p : within.points)
        EXPECT_LE(p.X(), 2);
    for (auto const& p : outside.points)
        EXPECT_GE(p.X(), 2);
}

TEST(BooleanSplit, SecondSplitOfAPieceMeetsTheFirst)
{
    // Slices of a ball, one after another, add up to it.
    Soup rest = sphere(10, 20, 30);
    double const whole = volumeOf(rest);
    double sum = 0;
    for (int i = -9; i < 9; i += 3) {
        auto [slice, left] = split(rest, box(40, 40, 23, {-20, -20, float(i) - 20}));
        EXPECT_EQ(closedSolidFaults(slice), "");
        EXPECT_EQ(closedSolidFaults(left), "");
        sum += volumeOf(slice);
        rest = std::move(left);
    }
    EXPECT_NEAR(sum + volumeOf(rest), whole, 1e-6 * whole);
}
