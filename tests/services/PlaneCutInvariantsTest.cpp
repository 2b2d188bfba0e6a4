// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/CutFamilies.h"
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
    EXPECT_EQ(above.triangles.empty() || below.triangles.empty(), section.triangles.empty());

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

TEST(PlaneCut, HoldsItsInvariantsOnRealModels)
{
    auto const models = closedRealMeshes(70000);
    if (models.empty())
        GTEST_SKIP() << "the real models are not in " << MELL_TEST_MESHES;
    for (auto const& [name, soup] : models)
        for (auto const& plane : planesAcross(soup))
            if (name != "cow-6k.stl")
                expectGoodCut(soup, plane, name);
}
