// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/CutFamilies.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

/// Both halves are closed and their volumes add up.
void expectClosedHalves(Soup const& part, UPoint3<float> const& centre,
                        UVector3<float> const& normal)
{
    auto const outcome = cut(part, centre, normal);
    Soup const above = soupOf(outcome->above);
    Soup const below = soupOf(outcome->below);
    EXPECT_GT(above.triangles.size(), part.triangles.size() / 10);
    EXPECT_GT(below.triangles.size(), part.triangles.size() / 10);
    EXPECT_EQ(manifoldFaults(above), "");
    EXPECT_EQ(manifoldFaults(below), "");
    EXPECT_NEAR(volumeOf(above) + volumeOf(below), volumeOf(part), 1e-6 * volumeOf(part));
}

}  // namespace

TEST(PlaneCut, ModelsOfAHundredThousandTrianglesAndMoreAreCutClosed)
{
    auto models = closedRealMeshes(300000);
    models.push_back({"head", scannedHead(fineness(150))});
    for (auto const& [name, soup] : models) {
        if (soup.triangles.size() < 80000 && !isUnderSanitizers)
            continue;
        SCOPED_TRACE(name);
        UBox3<float> box;
        for (auto const& p : soup.points)
            box.Add(p);
        expectClosedHalves(soup, (box.min + box.max) * 0.5f, {0, 0, 1});
        expectClosedHalves(soup, (box.min + box.max) * 0.5f, {1, 0.3f, 0.2f});
    }
}

TEST(PlaneCut, PartOfAMillionTrianglesIsCutClosed)
{
    expectClosedHalves(subdivided(scannedHead(fineness(150))), {5, 10, 85}, {0.1f, 0.2f, 1});
}

TEST(PlaneCut, PartOfFourMillionTrianglesIsCutClosed)
{
    expectClosedHalves(subdivided(subdivided(scannedHead(fineness(150)))), {5, 10, 85}, {0, 0, 1});
}

TEST(PlaneCut, SectionOfManyContoursIsFilledBetweenThem)
{
    // A level between two layers of beams: one square for each upright.
    int const cells = 12;
    auto const outcome = cut(lattice(cells), {30, 30, 3.75f}, {0, 0, 1});
    Soup const section = soupOf(outcome->section);
    EXPECT_EQ(componentsOf(section), std::size_t((cells + 1) * (cells + 1)));
    EXPECT_NEAR(areaOf(section), (cells + 1) * (cells + 1) * 2.5 * 2.5, 1e-3);
}

TEST(PlaneCut, SectionOfALongContourIsFilled)
{
    int const facets = 20000;
    auto const outcome = cut(cylinder(50, 10, facets), {0, 0, 5}, {0, 0, 1});
    EXPECT_EQ(manifoldFaults(soupOf(outcome->above)), "");
    EXPECT_EQ(borderEdgesOf(soupOf(outcome->section)), std::size_t(2 * facets));
}
