// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/BooleanRuns.h"
#include "tests/support/MadeModels.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <random>

namespace {

/// A bar whose far end crosses another box of the same mesh.
Soup barWithCrossingEnd()
{
    Soup soup = box(60, 10, 10, {-10, -5, -5});
    soup.append(box(10, 10, 10, {45.5f, -3.25f, -2.125f}));
    return soup;
}

/// Checks the winding number of a mesh at random points in a cube around the origin.
template <typename Rule>
void expectWindings(Soup const& mesh, Soup const& a, Soup const& b, Rule const& rule,
                    char const* name)
{
    SCOPED_TRACE(name);
    EXPECT_EQ(closedSolidFaults(mesh), "");
    std::mt19937 random(4);
    for (int i = 0; i < rounds(2000); ++i) {
        auto const coordinate = [&] { return double(random()) / 4294967296.0 * 90 - 25; };
        double const x = coordinate(), y = coordinate() / 2, z = coordinate() / 2;
        UPoint3<double> const p(x, y, z);
        if (distanceFrom(a, p) < 1e-2 || distanceFrom(b, p) < 1e-2)
            continue;
        ASSERT_EQ(windingNumberAt(mesh, p), rule(windingNumberAt(a, p), windingNumberAt(b, p)))
            << x << ", " << y << ", " << z;
    }
}

/// Every layer of the part counts by itself; the tool is solid where it winds at all.
void expectLayers(Soup const& part, Soup const& tool)
{
    auto const outsideRule = [](int a, int b) { return b > 0 ? 0 : a; };
    auto const withinRule = [](int a, int b) { return b > 0 ? a : 0; };
    expectWindings(combined(part, tool, Intersect::BOOLEAN_SUBTRACT), part, tool, outsideRule,
                   "difference");
    expectWindings(combined(part, tool, Intersect::BOOLEAN_INTERSECT), part, tool, withinRule,
                   "common");
    auto const [within, outside] = split(part, tool);
    expectWindings(within, part, tool, withinRule, "within");
    expectWindings(outside, part, tool, outsideRule, "outside");
}

/// All operations throw, name a place and leave nothing.
void expectRefused(Soup const& a, Soup const& b)
{
    auto const first = kernelOf(a);
    auto const second = kernelOf(b);
    for (int kind = 0; kind < 4; ++kind) {
        SCOPED_TRACE(kind);
        MeshKernel one, two;
        std::vector<MeshKernel*> out{&one};
        static constexpr Intersect::BooleanType types[] = {
            Intersect::BOOLEAN_UNION, Intersect::BOOLEAN_INTERSECT, Intersect::BOOLEAN_SUBTRACT};
        try {
            if (kind < 3)
                Intersect::boolean(first.get(), second.get(), out, types[kind], {}, 1);
            else
                Intersect::boolean_subtract_keep(first.get(), second.get(), &one, &two, {}, 1);
            ADD_FAILURE() << "no exception";
        } catch (Mell::AbortException const&) {
            ADD_FAILURE() << "this is no cancel";
        } catch (Mell::Exception const& failure) {
            EXPECT_NE(std::string(failure.what()).find("near ("), std::string::npos)
                << failure.what();
        }
        EXPECT_TRUE(one.readMesh()->triangles.empty());
        EXPECT_TRUE(two.readMesh()->triangles.empty());
    }
}

}  // namespace

TEST(BooleanFlawedOperands, PartOpenAwayFromTheToolIsCut)
{
    Soup const part = openBox(20, 20, 20), tool = box(4, 4, 4, {-2, -2, -2});
    auto const [within, outside] = split(part, tool);
    EXPECT_EQ(closedSolidFaults(within), "");
    EXPECT_DOUBLE_EQ(volumeOf(within), 8);
    EXPECT_EQ(borderEdgesOf(outside), 4u);
    EXPECT_DOUBLE_EQ(areaOf(outside), 5 * 400);
    Soup const united = combined(part, tool, Intersect::BOOLEAN_UNION);
    EXPECT_EQ(borderEdgesOf(united), 4u);
    EXPECT_DOUBLE_EQ(areaOf(united), 5 * 400 - 12 + 96 - 12);
    Soup const difference = combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
    EXPECT_EQ(borderEdgesOf(difference), 4u);
}

TEST(BooleanFlawedOperands, ToolOpenOutsideThePartCuts)
{
    // The tool's open top lies above the part.
    Soup const part = box(20, 20, 20);
    Soup tool = openBox(4, 4, 30);
    for (auto& p : tool.points)
        p += UVector3<float>(3, 5, 12.5f);
    Soup const difference = combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
    EXPECT_EQ(closedSolidFaults(difference), "");
    EXPECT_NEAR(volumeOf(difference), 8000 - 16 * 7.5, 1e-3);
    auto const [within, outside] = split(part, tool);
    EXPECT_EQ(closedSolidFaults(within), "");
    EXPECT_NEAR(volumeOf(within), 16 * 7.5, 1e-3);
}

TEST(BooleanFlawedOperands, OpenModelsAreCutAwayFromTheirHoles)
{
    for (auto const& [name, part] :
         withReal({"open head", openHead(fineness(60))}, "open-bunny-69k.stl")) {
        SCOPED_TRACE(name);
        ASSERT_GT(borderEdgesOf(part), 0u);
        // The holes are in the base; the tool goes through the highest point.
        UPoint3<float> top = part.points[0];
        for (auto const& p : part.points)
            if (p.Z() > top.Z())
                top = p;
        Soup const tool = sphere(8, 16, 24, top);
        auto const [within, outside] = split(part, tool);
        EXPECT_EQ(closedSolidFaults(within), "");
        EXPECT_FALSE(within.triangles.empty());
        EXPECT_EQ(borderEdgesOf(outside), borderEdgesOf(part));
    }
}

TEST(BooleanFlawedOperands, PartOpenWhereTheToolMeetsItIsRefused)
{
    expectRefused(openBox(20, 20, 20), box(4, 4, 4, {-2, 8, 18}));
}

TEST(BooleanFlawedOperands, ToolOpenWhereItMeetsThePartIsRefused)
{
    // The rim of the tool's open top runs through the part's wall.
    Soup tool = openBox(4, 4, 4);
    for (auto& p : tool.points)
        p += UVector3<float>(-2, 8, 8);
    expectRefused(box(20, 20, 20), tool);
}

TEST(BooleanFlawedOperands, LayersOfAPartAreKept)
{
    expectLayers(crossingBoxes(), box(40, 40, 3, {-5, -5, 11}));
    expectLayers(crossingBoxes(), sphere(9, 9, 12, {14, 13, 12}));
    expectLayers(crossingBoxes(), box(4, 4, 4, {12, 12, 12}));
}

TEST(BooleanFlawedOperands, LayersAreKeptAwayFromTheToolToo)
{
    expectLayers(barWithCrossingEnd(), box(4, 20, 20, {-2, -10, -10}));
}

TEST(BooleanFlawedOperands, ToolCountsAsSolidWhereverItWinds)
{
    expectLayers(box(40, 40, 3, {-5, -5, 11}), crossingBoxes());
    expectLayers(sphere(9, 9, 12, {14, 13, 12}), crossingBoxes());
    expectLayers(box(40, 40, 40, {-5, -5, -5}), crossingBoxes());
    Soup pins = cylinder(4, 20, 12);
    for (int i = 1; i < 4; ++i) {
        Soup pin = cylinder(4, 20, 12);
        for (auto& p : pin.points)
            p += UVector3<float>(3.25f * float(i), 0.5f * float(i), 0);
        pins.append(pin);
    }
    expectLayers(box(40, 40, 5, {-15, -15, 11}), pins);
}

TEST(BooleanFlawedOperands, BothMayCrossThemselves)
{
    Soup tool = crossingBoxes();
    for (auto& p : tool.points)
        p += UVector3<float>(4.3f, -6.1f, 2.7f);
    expectLayers(crossingBoxes(), tool);
}

TEST(BooleanFlawedOperands, DegenerateTrianglesOfAnOperandDoNoHarm)
{
    // An edge of the part split on one side only by a triangle without area.
    Soup part = box(20, 20, 20);
    auto const [a, b, c] = part.triangles[0];
    std::uint32_t const middle = part.add((part.points[a] + part.points[b]) * 0.5f);
    part.triangles[0] = {a, middle, c};
    part.add(middle, b, c);
    part.add(a, b, middle);
    ASSERT_NE(closedSolidFaults(part), "");
    for (Soup const& tool : {box(8, 8, 40, {6, 6, -5}), box(12, 30, 30, {-5, -5, -5})}) {
        auto const [within, outside] = split(part, tool);
        EXPECT_EQ(borderEdgesOf(within), 0u);
        EXPECT_EQ(borderEdgesOf(outside), 0u);
        EXPECT_NEAR(volumeOf(within) + volumeOf(outside), 8000, 1e-3);
    }
}
