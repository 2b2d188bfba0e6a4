// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/BooleanRuns.h"
#include "tests/support/MadeModels.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/NearCopies.h"
#include "tests/support/Rounds.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// Faults of a surface of which each edge joins two triangles, its points joined by their places.
std::string faultsOf(Soup soup)
{
    soup.joinPoints();
    return manifoldFaults(soup);
}

void expectSound(Soup const& part, Soup const& copy)
{
    BooleanPieces const pieces = booleansOf(part, copy);
    EXPECT_EQ(faultsOf(pieces.united), "");
    EXPECT_EQ(faultsOf(pieces.common), "");
    EXPECT_EQ(faultsOf(pieces.difference), "");
    EXPECT_EQ(faultsOf(pieces.within), "");
    EXPECT_EQ(faultsOf(pieces.outside), "");
    double const a = volumeOf(part), b = volumeOf(copy), common = volumeOf(pieces.common);
    double const tolerance = 1e-6 * (a + b);
    EXPECT_NEAR(volumeOf(pieces.united), a + b - common, tolerance);
    EXPECT_NEAR(volumeOf(pieces.difference), a - common, tolerance);
    EXPECT_NEAR(volumeOf(pieces.within), common, tolerance);
    EXPECT_NEAR(volumeOf(pieces.outside), a - common, tolerance);
}

void expectSoundBesideItself(NamedSoup const& part)
{
    if (!faultsOf(part.soup).empty())
        return;
    std::size_t number = part.soup.triangles.size();
    for (double const share : {1e-6, 1e-5, 1e-4, 1e-3}) {
        if (!isTried(number++))
            continue;
        SCOPED_TRACE(part.name + " shifted by " + std::to_string(share) + " of its size");
        expectSound(part.soup, shiftedCopy(part.soup, share));
    }
    for (double const angle : {1e-7, 1e-6, 1e-5, 1e-4, 1e-3}) {
        if (!isTried(number++))
            continue;
        SCOPED_TRACE(part.name + " turned by " + std::to_string(1e6 * angle) + " millionths");
        expectSound(part.soup, turnedCopy(part.soup, angle));
    }
}

}  // namespace

/// Layers between a part and its hardly moved copy end thinner than floats tell apart, so that
/// points on both of their sides become one.
TEST(BooleanNearCopies, AreClosedWithoutEdgesOfFourTriangles)
{
    for (NamedSoup const& part : closedMeshes())
        expectSoundBesideItself(part);
}

TEST(BooleanNearCopies, OfModelsAreClosedWithoutEdgesOfFourTriangles)
{
    expectSoundBesideItself({"plate", mechanicalPlate()});
    expectSoundBesideItself({"head", scannedHead(20)});
}

// In every clone: BooleanNearCopies.OfModelsAreClosedWithoutEdgesOfFourTriangles
TEST(BooleanNearCopies, OfRealModelsAreClosedWithoutEdgesOfFourTriangles)
{
    bool hasModel = false;
    for (char const* const name : {"spot-6k.stl", "fandisk-13k.stl"}) {
        Soup const model = realMesh(name);
        hasModel |= !model.triangles.empty();
        if (!model.triangles.empty())
            expectSoundBesideItself({name, model});
    }
    if (!hasModel)
        GTEST_SKIP() << modelsAreMissing;
}

// A point of a curve takes in another one; a vertex beside the curve has edges to both, which become
// one of four triangles.
TEST(BooleanNearCopies, EdgesBesideJoinedPointsAreTakenApart)
{
    Soup waves = torus(20, 7, 60, 60);
    for (auto& p : waves.points)
        p[2] += 0.7f * std::sin(3.1f * p[0]) * std::cos(2.3f * p[1]);
    for (double const radians : {4.1472e-7, 4.97664e-7})
        for (auto const kind : {Intersect::BOOLEAN_SUBTRACT, Intersect::BOOLEAN_UNION})
            EXPECT_EQ(faultsOf(combined(waves, turnedCopy(waves, radians), kind)), "");
}

// Layers at both sides of a vertex that no curve goes through: its edges to points that are one after
// rounding become one, of four triangles; others come to be while crossings are mended.
TEST(BooleanNearCopies, EdgesWithOneEndAtACurveAreTakenApart)
{
    Soup waves = torus(20, 7, 40, 40);
    for (auto& p : waves.points)
        p[2] += 0.7f * std::sin(3.1f * p[0]) * std::cos(2.3f * p[1]);
    for (double const radians : {3.98e-7, 4.98e-7, 5.01e-7, 7.17e-7})
        expectSound(waves, turnedCopy(waves, radians));
    Soup const head = scannedHead(36);
    for (double const radians : {2.4e-7, 3.46e-7})
        expectSound(head, turnedCopy(head, radians));
}

// In every clone: BooleanNearCopies.EdgesBesideJoinedPointsAreTakenApart
TEST(BooleanNearCopies, EdgesBesideJoinedPointsOfAScanAreTakenApart)
{
    Soup const model = realMesh("nefertiti-100k.stl");
    if (model.triangles.empty())
        GTEST_SKIP() << modelsAreMissing;
    Soup const copy = turnedCopy(model, 1e-6);
    EXPECT_EQ(faultsOf(combined(model, copy, Intersect::BOOLEAN_SUBTRACT)), "");
}

/// The edge is one of four triangles, exactly: two of either operand.
TEST(BooleanTouching, SolidsThatShareAnEdgeAreTakenApartThere)
{
    Soup const united =
        combined(box(2, 2, 2), box(2, 2, 2, {2, 2, 0.5f}), Intersect::BOOLEAN_UNION);
    EXPECT_EQ(faultsOf(united), "");
    EXPECT_NEAR(volumeOf(united), 16, 1e-5);
    Soup const carved =
        combined(box(4, 4, 2), box(2, 2, 4, {2, 2, -1}), Intersect::BOOLEAN_SUBTRACT);
    Soup const checkered = combined(carved, box(2, 2, 4, {0, 0, -1}), Intersect::BOOLEAN_SUBTRACT);
    EXPECT_EQ(faultsOf(checkered), "");
    EXPECT_NEAR(volumeOf(checkered), 16, 1e-5);
}

/// Nobody has asked for another part than the one that is there.
TEST(BooleanTouching, AnEdgeOfFourThatThePartHasStaysAsItIs)
{
    Soup const part = boxesSharingAnEdge();
    UBox3<float> box;
    for (auto const& p : part.points)
        box.Add(p);
    Soup const tool = sphere(0.1f, 8, 8, box.min);
    Soup const rest = combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
    EXPECT_NE(rest.triangles.size(), part.triangles.size());
    EXPECT_NE(faultsOf(rest), "");
    EXPECT_EQ(closedSolidFaults(rest), "");
}
