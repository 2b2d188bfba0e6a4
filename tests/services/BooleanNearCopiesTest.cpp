// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ExactRoom.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

double sizeOf(Soup const& soup)
{
    UBox3<float> box;
    for (auto const& p : soup.points)
        box.Add(p);
    return (box.max - box.min).GetLength();
}

/// share  of the size
Soup shifted(Soup soup, double share)
{
    double const way = share * sizeOf(soup);
    for (auto& p : soup.points)
        p += UVector3<float>(float(0.6 * way), float(0.5 * way), float(0.62 * way));
    return soup;
}

/// Turned around a vertical axis through the middle.
Soup turned(Soup soup, double radians)
{
    UBox3<float> box;
    for (auto const& p : soup.points)
        box.Add(p);
    UPoint3<float> const middle = (box.min + box.max) * 0.5f;
    double const c = std::cos(radians), s = std::sin(radians);
    for (auto& p : soup.points) {
        double const x = double(p.X()) - middle.X(), y = double(p.Y()) - middle.Y();
        p = {float(middle.X() + c * x - s * y), float(middle.Y() + s * x + c * y), p.Z()};
    }
    return soup;
}

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
    for (double const share : {1e-6, 1e-5, 1e-4, 1e-3}) {
        SCOPED_TRACE(part.name + " shifted by " + std::to_string(share) + " of its size");
        expectSound(part.soup, shifted(part.soup, share));
    }
    for (double const angle : {1e-7, 1e-6, 1e-5, 1e-4, 1e-3}) {
        SCOPED_TRACE(part.name + " turned by " + std::to_string(1e6 * angle) + " millionths");
        expectSound(part.soup, turned(part.soup, angle));
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

/// The exact way ends with a sentence before it begins where it would take more than four gigabytes.
TEST(BooleanBudget, ReachesToFourGigabytesAndNoFurther)
{
    EXPECT_TRUE(hasExactRoom(0, 0));
    EXPECT_TRUE(hasExactRoom(2'863'311, 0));
    EXPECT_FALSE(hasExactRoom(2'863'312, 0));
    EXPECT_TRUE(hasExactRoom(0, 71'582));
    EXPECT_FALSE(hasExactRoom(0, 71'583));
    EXPECT_TRUE(hasExactRoom(1'000'000, 46'582));
    EXPECT_FALSE(hasExactRoom(1'000'000, 46'583));
}
