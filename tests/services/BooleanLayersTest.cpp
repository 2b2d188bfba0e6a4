// SPDX-License-Identifier: GPL-3.0-or-later
// Operands of several shells that overlap, nest, coincide, touch or face inward, and such that
// cross themselves: the first counts in layers, the second is solid where it winds above zero.
// Judged at sample points by solid angles.
#include "platform/jobs/Exceptions.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Rounds.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <numbers>
#include <sstream>

namespace {

Soup together(std::initializer_list<Soup> shells)
{
    Soup soup;
    for (Soup const& shell : shells)
        soup.append(shell);
    return soup;
}

Soup inward(Soup soup)
{
    soup.flip();
    return soup;
}

Soup shifted(Soup soup, UVector3<float> const& by)
{
    for (auto& p : soup.points)
        p += by;
    return soup;
}

Soup blockWithBar()
{
    return together({box(30, 30, 30), box(40, 10, 10, {20, 10, 10})});
}

Soup boxInBox()
{
    return together({box(30, 30, 30), box(10, 10, 10, {10, 10, 10})});
}

/// A box that lies in the block and meets only the buried end of the bar.
Soup buriedTool()
{
    return box(11, 4.2f, 4.2f, {14, 13.1f, 13.2f});
}

/// A tube along a figure of eight in a plane: closed, and it crosses itself in the middle.
Soup figureOfEight(int along, int across, float radius)
{
    Soup soup;
    for (int i = 0; i < along; ++i) {
        double const t = 2 * std::numbers::pi * (i + 0.37) / along;
        UPoint3<double> const centre(15 * std::sin(t), 15 * std::sin(t) * std::cos(t), 0);
        double const x = std::cos(t), y = std::cos(2 * t), length = std::hypot(x, y);
        for (int k = 0; k < across; ++k) {
            double const a = 2 * std::numbers::pi * k / across;
            double const out = radius * std::cos(a);
            soup.add({float(centre.X() - out * y / length), float(centre.Y() + out * x / length),
                      float(radius * std::sin(a))});
        }
    }
    auto const at = [&](int i, int k) { return std::uint32_t((i % along) * across + k % across); };
    for (int i = 0; i < along; ++i)
        for (int k = 0; k < across; ++k) {
            soup.add(at(i, k), at(i + 1, k), at(i + 1, k + 1));
            soup.add(at(i, k), at(i + 1, k + 1), at(i, k + 1));
        }
    if (volumeOf(soup) < 0)
        soup.flip();
    return soup;
}

/// A real model of triangles and polygons; empty where the models are not there.
Soup realObject(std::string const& name)
{
    std::ifstream file(realModelPath(name));
    Soup soup;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        float x = 0, y = 0, z = 0;
        if (word == "v" && words >> x >> y >> z)
            soup.add({x, y, z});
        std::vector<std::uint32_t> corners;
        for (std::string corner; word == "f" && words >> corner;)
            corners.push_back(std::uint32_t(std::stoul(corner) - 1));
        for (std::size_t i = 2; i < corners.size(); ++i)
            soup.add(corners[0], corners[i - 1], corners[i]);
    }
    return soup;
}

/// Points in the common box of two meshes and near their faces, away from both surfaces.
std::vector<UPoint3<double>> samplesOf(Soup const& a, Soup const& b, int count)
{
    UBox3<float> box;
    for (Soup const* const soup : {&a, &b})
        for (auto const& p : soup->points)
            box.Add(p);
    double const size = (box.max - box.min).GetLength();
    std::mt19937 random(11);
    std::uniform_real_distribution<double> share(-0.05, 1.05);
    std::vector<UPoint3<double>> samples;
    for (int i = 0; i < count; ++i) {
        UPoint3<double> p(box.min.X() + share(random) * (box.max.X() - box.min.X()),
                          box.min.Y() + share(random) * (box.max.Y() - box.min.Y()),
                          box.min.Z() + share(random) * (box.max.Z() - box.min.Z()));
        if (i % 2 == 1) {
            Soup const& soup = i % 4 == 1 ? a : b;
            auto const& t = soup.triangles[random() % soup.triangles.size()];
            double const reach = size * (i % 8 < 4 ? 0.02 : 0.1);
            double place[3];
            for (int k = 0; k < 3; ++k)
                place[k] =
                    (double(soup.points[t[0]][k]) + soup.points[t[1]][k] + soup.points[t[2]][k]) /
                        3 +
                    reach * (share(random) - 0.5);
            p = {place[0], place[1], place[2]};
        }
        if (distanceFrom(a, p) > 1e-4 * size && distanceFrom(b, p) > 1e-4 * size)
            samples.push_back(p);
    }
    return samples;
}

/// Checks all four operations.
///
/// refusals  counts operands that are refused, which is a failure where it is null
void expectRules(Soup const& part, Soup const& tool, int samples = 240, int* refusals = nullptr)
{
    BooleanPieces pieces;
    try {
        pieces = booleansOf(part, tool);
    } catch (Mell::Exception const& failure) {
        if (!refusals)
            FAIL() << failure.what();
        ++*refusals;
        return;
    }
    struct Named
    {
        char const* name;
        Soup const& soup;
        int (*rule)(int, int);
    };
    auto const unitedRule = [](int a, int b) { return b > 0 ? 1 : a; };
    auto const withinRule = [](int a, int b) { return b > 0 ? a : 0; };
    auto const outsideRule = [](int a, int b) { return b > 0 ? 0 : a; };
    for (auto const& [name, soup, rule] :
         {Named{"union", pieces.united, unitedRule}, Named{"common", pieces.common, withinRule},
          Named{"difference", pieces.difference, outsideRule},
          Named{"within", pieces.within, withinRule},
          Named{"outside", pieces.outside, outsideRule}}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(closedSolidFaults(soup), "");
        for (auto const& p : samplesOf(part, tool, samples))
            ASSERT_EQ(windingNumberAt(soup, p),
                      rule(windingNumberAt(part, p), windingNumberAt(tool, p)))
                << p.X() << ", " << p.Y() << ", " << p.Z();
    }
}

std::vector<NamedSoup> layeredSolids()
{
    return {
        {"overlapping", blockWithBar()},
        {"nested", boxInBox()},
        {"nested three deep",
         together({box(30, 30, 30), box(20, 20, 20, {5, 5, 5}), box(10, 10, 10, {10, 10, 10})})},
        {"with a cavity", together({box(30, 30, 30), inward(box(10, 10, 10, {10, 10, 10}))})},
        {"twice the same", together({box(30, 30, 30), box(30, 30, 30)})},
        {"touching in a face", together({box(15, 30, 30), box(15, 30, 30, {15, 0, 0})})},
        {"touching in a part of a face", together({box(15, 30, 30), box(15, 12, 12, {15, 5, 7})})},
        {"touching in an edge", together({box(15, 15, 30), box(15, 15, 30, {15, 15, 0})})},
        {"touching in a corner", together({box(15, 15, 15), box(15, 15, 15, {15, 15, 15})})},
        {"overlapping with common faces", together({box(20, 30, 30), box(20, 30, 30, {10, 0, 0})})},
        {"half inside out", together({box(20, 30, 30), inward(box(20, 20, 20, {10, 5, 5}))})},
        {"figure of eight", figureOfEight(24, 6, 4)}};
}

std::vector<NamedSoup> smallTools()
{
    return {{"buried", buriedTool()},
            {"over the rim", box(8, 8, 8, {25.5f, 11.25f, 8.75f})},
            {"on the faces", box(10, 10, 30, {10, 10, 0})},
            {"round", sphere(7, 7, 10, {14.3f, 14.1f, 13.7f})},
            {"through", box(60, 3, 3, {-15, 13.5f, 14.25f})}};
}

}  // namespace

TEST(BooleanLayers, ToolThatMeetsOnlyABuriedShellTakesEveryLayer)
{
    auto const [within, outside] = split(blockWithBar(), buriedTool());
    EXPECT_EQ(closedSolidFaults(within), "");
    EXPECT_EQ(closedSolidFaults(outside), "");
    EXPECT_NEAR(volumeOf(within), 282.24, 2e-3);
    EXPECT_NEAR(volumeOf(outside), 30717.76, 2e-3);
}

TEST(BooleanLayers, ToolThatMeetsOnlyTheInnerBoxTakesTheOuterOnesLayerToo)
{
    auto const [within, outside] = split(boxInBox(), buriedTool());
    EXPECT_EQ(closedSolidFaults(within), "");
    EXPECT_NEAR(volumeOf(outside), 27700.12, 2e-3);
    EXPECT_NEAR(volumeOf(within) + volumeOf(outside), 28000, 2e-3);
}

TEST(BooleanLayers, EveryLayerOfThePartCountsUnderSmallTools)
{
    std::size_t number = 0;
    for (auto const& part : layeredSolids())
        for (auto const& tool : smallTools()) {
            if (!isTried(number++))
                continue;
            SCOPED_TRACE(part.name + ", " + tool.name);
            expectRules(part.soup, tool.soup);
        }
}

TEST(BooleanLayers, ToolIsSolidWhereItWindsAboveZero)
{
    std::size_t number = 0;
    for (auto const& tool : layeredSolids())
        for (auto const& part : smallTools()) {
            if (!isTried(number++))
                continue;
            SCOPED_TRACE(part.name + ", " + tool.name);
            expectRules(part.soup, tool.soup);
        }
}

TEST(BooleanLayers, BothOperandsMayHaveLayers)
{
    std::size_t number = 0;
    for (auto const& part : layeredSolids())
        for (auto const& tool : layeredSolids()) {
            if (!isTried(number++))
                continue;
            SCOPED_TRACE(part.name + ", " + tool.name);
            expectRules(part.soup, shifted(tool.soup, {3.25f, -2.5f, 4.125f}), 80);
        }
}

TEST(BooleanLayers, SolidsThatCrossThemselvesMeetThemselves)
{
    for (auto const& solid : layeredSolids()) {
        SCOPED_TRACE(solid.name);
        expectRules(solid.soup, solid.soup, 120);
    }
}

TEST(BooleanLayers, RandomHeapsOfShells)
{
    std::mt19937 random(3);
    int refusals = 0;
    for (int run = 0; run < rounds(40); ++run) {
        SCOPED_TRACE(run);
        Soup heaps[2];
        for (Soup& heap : heaps)
            for (unsigned i = 0; i < 2 + random() % 3; ++i) {
                SolidPair const pair =
                    run % 2 == 0 ? randomPair(random) : randomGridPair(random, false);
                heap.append(i % 2 == 0 ? pair.a : pair.b);
            }
        expectRules(heaps[0], heaps[1], 60, &refusals);
    }
    // Shells that coincide many times over may be refused, but are never wrong.
    EXPECT_LE(refusals, 1);
}

TEST(BooleanLayers, NearCopiesStayClosedAndRight)
{
    std::size_t number = 0;
    for (auto const& solid :
         {NamedSoup{"sphere", sphere(20, 24, 32)}, NamedSoup{"torus", torus(20, 6, 32, 16)},
          NamedSoup{"lattice", lattice(2)}, NamedSoup{"figure of eight", figureOfEight(24, 6, 4)}})
        for (float const shift : {1e-6f, 1e-5f, 1e-4f, 1e-3f}) {
            if (!isTried(number++))
                continue;
            SCOPED_TRACE(solid.name + " by " + std::to_string(shift));
            Soup const copy = shifted(solid.soup, {32 * shift, 24 * shift, 30 * shift});
            auto const pieces = booleansOf(solid.soup, copy);
            for (Soup const* const soup : {&pieces.united, &pieces.common, &pieces.difference})
                EXPECT_EQ(closedSolidFaults(*soup), "");
            double const volume = volumeOf(solid.soup);
            EXPECT_NEAR(volumeOf(pieces.common) + volumeOf(pieces.difference), volume,
                        1e-5 * volume);
            expectRules(solid.soup, copy, 40);
        }
}

TEST(BooleanLayers, LongWorkAsksForACancelOftenOnOperandsThatCrossThemselves)
{
    // Counted in questions, not in time, for machines differ.
    Soup const part = figureOfEight(400, 60, 4);
    auto const first = kernelOf(part), second = kernelOf(shifted(part, {0.01f, 0.02f, 0.03f}));
    MeshKernel result;
    std::vector<MeshKernel*> out{&result};
    struct Stop
    {
    };
    for (int last = 0; last < 6; ++last) {
        int questions = 0;
        EXPECT_THROW(Intersect::boolean(
                         first.get(), second.get(), out, Intersect::BOOLEAN_SUBTRACT,
                         [&](int) {
                             if (questions++ == last)
                                 throw Stop();
                         },
                         1),
                     Stop);
        EXPECT_EQ(questions, last + 1);
        EXPECT_TRUE(result.readMesh()->triangles.empty());
    }
}

// In every clone: BooleanLayers.SolidsThatCrossThemselvesMeetThemselves
TEST(BooleanLayers, RealModelsThatCrossThemselves)
{
    for (char const* const name :
         {"broken/fish-control-mesh.obj", "broken/spot-control-mesh.obj", "broken/wingnut.obj"}) {
        SCOPED_TRACE(name);
        Soup const part = isUnderSanitizers ? Soup() : realObject(name);
        if (part.triangles.empty())
            GTEST_SKIP() << modelsAreMissing;
        expectRules(part, part, 24);
        expectRules(part, shifted(part, {0.0625f, 0.03125f, -0.046875f}), 24);
    }
}
