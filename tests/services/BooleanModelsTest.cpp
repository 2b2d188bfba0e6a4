// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/CutFamilies.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MadeModels.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

UBox3<float> boxOf(Soup const& soup)
{
    UBox3<float> box;
    for (auto const& p : soup.points)
        box.Add(p);
    return box;
}

UPoint3<float> middleOf(Soup const& soup)
{
    return (boxOf(soup).min + boxOf(soup).max) * 0.5f;
}

Soup movedBy(Soup soup, UVector3<float> const& way)
{
    for (auto& p : soup.points)
        p += way;
    return soup;
}

/// Cylinders through the surface at some places, in one mesh, that do not overlap.
Soup cylindersThrough(Soup const& part, int count, std::mt19937& random)
{
    float const radius = 0.02f * (boxOf(part).max - boxOf(part).min).GetLength();
    std::vector<UPoint3<float>> centres;
    Soup tool;
    while (int(centres.size()) < count) {
        UPoint3<float> const centre = part.points[random() % part.points.size()];
        bool isFree = true;
        for (auto const& other : centres)
            isFree = isFree && (centre - other).GetLength() > 3 * radius;
        if (!isFree)
            continue;
        centres.push_back(centre);
        Soup one = movedBy(cylinder(radius, 2 * radius, 63), {0, 0, -radius});
        tool.append(movedBy(moved(one, randomMotion(random, 0)), centre - UPoint3<float>()));
    }
    return tool;
}

void expectNoFaults(Soup const& part, Soup const& tool, std::string const& name,
                    std::mt19937& random, double unitsAllowed = 0)
{
    EXPECT_EQ(faultsOfPieces(part, tool, booleansOf(part, tool), 10, random, unitsAllowed), "")
        << name;
}

}  // namespace

TEST(BooleanModels, CylindersThroughTheSurface)
{
    auto const models = soundModels(70000);
    std::mt19937 random(1);
    for (auto const& [name, part] : models)
        expectNoFaults(part, cylindersThrough(part, 6, random), name, random);
}

TEST(BooleanModels, PrismsThroughTheWholeModel)
{
    auto const models = soundModels(110000);
    std::mt19937 random(2);
    for (auto const& [name, part] : models) {
        Soup prism = movedBy(cylinder(20, 400, 8), {0, 0, -200});
        UVector3<float> const middle = middleOf(part) - UPoint3<float>();
        expectNoFaults(part, movedBy(prism, middle), name + ", upright", random);
        prism = moved(prism, randomMotion(random, 0));
        expectNoFaults(part, movedBy(prism, middle), name + ", leaning", random);
    }
}

TEST(BooleanModels, ModelsCutEachOther)
{
    auto const models = soundModels(70000);
    std::mt19937 random(3);
    for (std::size_t i = 0; i < models.size(); ++i) {
        auto const& [name, part] = models[i];
        auto const& [otherName, other] = models[(i + 1) % models.size()];
        Soup const tool =
            movedBy(moved(other, randomMotion(random, 3)), UVector3<float>(20, 15, 10));
        expectNoFaults(part, tool, name + " and " + otherName, random);
    }
}

TEST(BooleanModels, ModelAndItself)
{
    std::mt19937 random(4);
    for (auto const& [name, model] :
         withReal({"mechanical plate", mechanicalPlate()}, "fandisk-13k.stl")) {
        SCOPED_TRACE(name);
        expectNoFaults(model, shuffled(model, 9), "the same places in another order", random);
        expectNoFaults(model, movedBy(model, {1, 0, 0}), "flat faces slid along each other",
                       random);
        // Layers between the two end thinner than a float tells apart: rounding lays them through each
        // other, but by no more than it moves points.
        expectNoFaults(model, movedBy(model, {1e-4f, 0, 0}), "hardly moved", random, 1);
    }
}

namespace {

void expectLayersKept(Soup const& part)
{
    std::mt19937 random(5);
    Soup const tool =
        movedBy(cylinder(14, 300, 8), middleOf(part) - UPoint3<float>(0.3f, 0.2f, 150));
    auto const [within, outside] = split(part, tool);
    EXPECT_EQ(closedSolidFaults(within), "");
    EXPECT_EQ(closedSolidFaults(outside), "");
    EXPECT_NEAR(volumeOf(within) + volumeOf(outside), volumeOf(part), 1e-6 * volumeOf(part));
    UBox3<float> const box = boxOf(part);
    for (int i = 0; i < 200; ++i) {
        double p[3];
        for (int k = 0; k < 3; ++k)
            p[k] = box.min[k] + double(random()) / 4294967296.0 * (box.max[k] - box.min[k]);
        UPoint3<double> const point(p[0], p[1], p[2]);
        if (distanceFrom(part, point) < 1e-2 || distanceFrom(tool, point) < 1e-2)
            continue;
        bool const isInTool = windingNumberAt(tool, point) > 0;
        int const layers = windingNumberAt(part, point);
        EXPECT_EQ(windingNumberAt(within, point), isInTool ? layers : 0);
        EXPECT_EQ(windingNumberAt(outside, point), isInTool ? 0 : layers);
    }
}

}  // namespace

TEST(BooleanModels, ModelsThatCrossThemselvesKeepTheirLayers)
{
    for (auto const& [name, part] : withReal({"crossing figure", crossingFigure()}, "cow-6k.stl")) {
        SCOPED_TRACE(name);
        expectLayersKept(part);
    }
}

namespace {

void expectPinsAndHolesFit(Soup const& model)
{
    std::mt19937 random(6);
    auto const outcome = cut(model, middleOf(model), {0, 0, 1});
    Soup const lower = soupOf(outcome->below), upper = soupOf(outcome->above);
    Soup const section = soupOf(outcome->section);
    ASSERT_FALSE(section.triangles.empty());
    // A pin stands with its foot in the section; a hole ends there; and both go across it.
    auto const& t = section.triangles[section.triangles.size() / 2];
    UPoint3<float> const foot =
        (section.points[t[0]] + section.points[t[1]] + section.points[t[2]]) / 3.0f;
    UVector3<float> const place(foot.X(), foot.Y(), section.points[t[0]].Z());
    Soup const standing = movedBy(cylinder(2, 5, 63), place);
    Soup const across = movedBy(cylinder(2, 10, 63), place - UVector3<float>(0, 0, 5));
    for (Soup const& half : {lower, upper})
        for (Soup const& pin : {standing, across})
            expectNoFaults(half, pin, "pin", random);
    // The halves put together again are the model.
    Soup const whole = combined(lower, upper, Intersect::BOOLEAN_UNION);
    EXPECT_EQ(closedSolidFaults(whole), "");
    EXPECT_NEAR(volumeOf(whole), volumeOf(model), 1e-6 * volumeOf(model));
    EXPECT_NEAR(areaOf(whole), areaOf(model), 1e-5 * areaOf(model));
    EXPECT_NEAR(volumeOf(combined(lower, upper, Intersect::BOOLEAN_INTERSECT)), 0,
                1e-6 * volumeOf(model));
}

}  // namespace

TEST(BooleanModels, PinsOnASectionAndHolesInIt)
{
    for (auto const& [name, model] :
         withReal({"mechanical plate", mechanicalPlate()}, "rocker-arm-20k.stl")) {
        SCOPED_TRACE(name);
        expectPinsAndHolesFit(model);
    }
}

TEST(BooleanModels, LargeModelIsCutClosedByManyCylinders)
{
    Soup const part = scannedHead(fineness(150));
    std::mt19937 random(7);
    Soup const tool = cylindersThrough(part, 60, random);
    auto const [within, outside] = split(part, tool);
    EXPECT_EQ(closedSolidFaults(within), "");
    EXPECT_EQ(closedSolidFaults(outside), "");
    EXPECT_NEAR(volumeOf(within) + volumeOf(outside), volumeOf(part), 1e-6 * volumeOf(part));
    EXPECT_GE(componentsOf(within), 60u);
}
