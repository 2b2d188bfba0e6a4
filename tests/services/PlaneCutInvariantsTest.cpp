// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/CutFamilies.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// What every cut of a closed solid must satisfy, whatever its shape.
void expectGoodCut(Soup const& part, NamedPlane const& plane, std::string const& name)
{
    SCOPED_TRACE(name + ", " + plane.name);
    auto const outcome = cut(part, plane.centre, plane.normal);
    Soup const above = soupOf(outcome->above);
    Soup const below = soupOf(outcome->below);
    Soup const section = soupOf(outcome->section);
    EXPECT_EQ(closedSolidFaults(outcome->above), "");
    EXPECT_EQ(closedSolidFaults(outcome->below), "");
    double const volume = volumeOf(part);
    EXPECT_NEAR(volumeOf(above) + volumeOf(below), volume, 1e-6 * std::abs(volume));
    // Shells may lie on both sides of a plane that cuts none of them.
    if (above.triangles.empty() || below.triangles.empty()) {
        EXPECT_TRUE(section.triangles.empty());
    }

    UVector3<double> normal(plane.normal.X(), plane.normal.Y(), plane.normal.Z());
    normal.Normalize();
    double const facing = vectorAreaOf(section) | normal;
    EXPECT_NEAR(facing, areaOf(section), 1e-4 * areaOf(section) + 1e-6);

    UBox3<float> box;
    for (auto const& p : part.points)
        box.Add(p);
    float const tolerance = 4e-6f * (box.max - box.min).GetLength();
    UVector3<float> const n(float(normal.X()), float(normal.Y()), float(normal.Z()));
    for (auto const& p : above.points)
        ASSERT_GE((p - plane.centre) | n, -tolerance);
    for (auto const& p : below.points)
        ASSERT_LE((p - plane.centre) | n, tolerance);
}

}  // namespace

TEST(PlaneCut, HoldsItsInvariantsOnAllClosedShapes)
{
    for (auto const& [name, soup] : closedMeshes())
        for (auto const& plane : planesAcross(soup))
            expectGoodCut(soup, plane, name);
}

TEST(PlaneCut, HoldsItsInvariantsOnModels)
{
    auto const models = soundModels(70000);
    for (auto const& [name, soup] : models)
        for (auto const& plane : planesAcross(soup))
            expectGoodCut(soup, plane, name);
}

TEST(PlaneCut, HoldsItsInvariantsOnSolidsThatTouchThemselves)
{
    for (unsigned seed = 1; seed <= unsigned(rounds(60)); ++seed) {
        Soup const soup = randomVoxels(3 + int(seed % 3), seed);
        std::string const name = "voxels " + std::to_string(seed);
        // Levels in faces and between them, and planes through edges and corners of many cubes.
        for (float const height : {1.0f, 1.5f, 2.0f})
            for (UVector3<float> const& normal :
                 {UVector3<float>(0, 0, 1), UVector3<float>(1, 0, 0), UVector3<float>(1, 1, 0),
                  UVector3<float>(1, 1, 1), UVector3<float>(1, -2, 1)})
                expectGoodCut(soup, {"through a grid", {height, height, height}, normal}, name);
    }
}

TEST(PlaneCut, HoldsItsInvariantsOnTurnedSolidsThatTouchThemselves)
{
    float const values[16] = {0.6f,  0.8f,   0,    0, -0.48f, 0.36f, 0.8f, 0,
                              0.64f, -0.48f, 0.6f, 0, 9,      4,     2,    1};
    UMatrix4<float> const motion(values);
    for (unsigned seed = 1; seed <= unsigned(rounds(60)); ++seed) {
        Soup const soup = moved(randomVoxels(3 + int(seed % 3), seed), motion);
        for (float const height : {1.0f, 1.5f, 2.0f}) {
            UPoint3<float> const centre = motion * UPoint3<float>(height, height, height);
            UVector3<float> const normal =
                motion * UPoint3<float>(0, 0, 1) - motion * UPoint3<float>();
            expectGoodCut(soup, {"nearly in faces", centre, normal},
                          "voxels " + std::to_string(seed));
        }
    }
}
