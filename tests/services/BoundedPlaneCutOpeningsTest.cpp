// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "tests/services/CutFamilies.h"
#include "tests/support/SurfaceEdges.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>

// A rectangle that holds a sound limb takes it off, whatever is open or turned elsewhere in the
// plane without end.
namespace {

/// A box without the triangles of its side at the highest x.
Soup openAtTheSide(float x, float y, float z, UPoint3<float> const& low)
{
    Soup soup = box(x, y, z, low);
    std::erase_if(soup.triangles, [&](auto const& t) {
        return std::all_of(t.begin(), t.end(), [&](std::uint32_t corner) {
            return soup.points[corner].X() == low.X() + x;
        });
    });
    return soup;
}

/// A sound arm beside a torso that is open where the plane z = 10 meets it.
Soup armAndOpenTorso()
{
    Soup part = box(10, 10, 20);
    part.append(openAtTheSide(30, 30, 20, {20, 0, 0}));
    return part;
}

std::string failureOf(Soup const& part, MeshKernel& plane)
{
    auto const kernel = kernelOf(part);
    try {
        cut(*kernel, plane);
    } catch (Mell::Exception const& e) {
        return e.what();
    }
    return {};
}

}  // namespace

TEST(BoundedPlaneCutOpenings, ASoundLimbComesOffBesideAnOpenTorso)
{
    Soup const part = armAndOpenTorso();
    auto const kernel = kernelOf(part);
    auto const plane = levelPlane({-2, -2}, {12, 12}, 10);
    auto const outcome = cut(*kernel, *plane);
    // The arm's upper half to side A; its lower half and the torso as the rule for shells tells.
    Soup const above = soupOf(outcome->above), below = soupOf(outcome->below);
    EXPECT_NEAR(areaOf(above) + areaOf(below), areaOf(part) + 2 * 100, 1e-2);
    EXPECT_NEAR(areaOf(soupOf(outcome->section)), 100, 1e-3);
    auto const faultless = judge::edgesOf(above).isClosed() ? above : below;
    EXPECT_NEAR(volumeOf(faultless), 1000, 1e-2);
    EXPECT_EQ(judge::edgesOf(above).borders + judge::edgesOf(below).borders, 4u);
}

TEST(BoundedPlaneCutOpenings, ARectangleThatReachesTheOpenTorsoIsRefused)
{
    Soup const part = armAndOpenTorso();
    // Over all of it; over its corner; over a stretch of its wall without a point of the section.
    for (auto const& [low, high] : std::vector<std::pair<UPoint2<float>, UPoint2<float>>>{
             {{-2, -2}, {60, 40}}, {{-2, -2}, {22, 12}}, {{18, 3}, {22, 6}}}) {
        auto const plane = levelPlane(low, high, 10);
        bool const holdsPoints = high.Y() > 7;
        std::string const text = failureOf(part, *plane);
        if (holdsPoints) {
            EXPECT_NE(text.find("The part is open where the plane meets it, near ("),
                      std::string::npos);
        }
    }
}

TEST(BoundedPlaneCutOpenings, TurnedTrianglesElsewhereAreLeftAsTheyAre)
{
    Soup part = box(10, 10, 20);
    Soup torso = box(30, 30, 20, {20, 0, 0});
    auto const isWall = [&](std::array<std::uint32_t, 3> const& t) {
        return std::all_of(t.begin(), t.end(),
                           [&](std::uint32_t corner) { return torso.points[corner].X() == 50; });
    };
    auto const wall = std::find_if(torso.triangles.begin(), torso.triangles.end(), isWall);
    ASSERT_NE(wall, torso.triangles.end());
    std::swap((*wall)[1], (*wall)[2]);
    part.append(torso);
    auto const kernel = kernelOf(part);
    auto const plane = levelPlane({-2, -2}, {12, 12}, 10);
    auto const outcome = cut(*kernel, *plane);
    Soup const above = soupOf(outcome->above), below = soupOf(outcome->below);
    EXPECT_NEAR(areaOf(above) + areaOf(below), areaOf(part) + 2 * 100, 1e-2);
    EXPECT_EQ(judge::edgesOf(above).disagreeing + judge::edgesOf(below).disagreeing, 3u);
}

// Without the contour around it, a cavity of the torso would look like a face by itself.
TEST(BoundedPlaneCutOpenings, ACavityOfTheOpenTorsoIsNoFace)
{
    Soup part = armAndOpenTorso();
    Soup cavity = box(4, 4, 10, {30, 10, 5});
    cavity.flip();
    part.append(cavity);
    auto const kernel = kernelOf(part);
    auto const overCavity = levelPlane({29, 9}, {35, 15}, 10);
    auto const outcome = cut(*kernel, *overCavity);
    EXPECT_EQ(bytesOf(outcome->above), bytesOf(*kernel));
    EXPECT_TRUE(outcome->below.readMesh()->triangles.empty());
}
