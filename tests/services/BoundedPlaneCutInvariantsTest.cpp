// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/CutFamilies.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Rounds.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <random>

namespace {

/// A plane and a rectangle's two directions in it, of unit length.
struct Frame
{
    UPoint3<float> origin;
    UVector3<float> u;
    UVector3<float> v;

    UPoint3<float> at(float x, float y) const { return origin + u * x + v * y; }
    float uOf(UPoint3<float> const& p) const { return (p - origin) | u; }
    float vOf(UPoint3<float> const& p) const { return (p - origin) | v; }
};

struct Range
{
    float low = 1e30f;
    float high = -1e30f;

    void add(float value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

std::unique_ptr<MeshKernel> rectangle(Frame const& frame, Range const& x, Range const& y)
{
    Soup soup;
    soup.points = {frame.at(x.low, y.low), frame.at(x.high, y.low), frame.at(x.high, y.high),
                   frame.at(x.low, y.high)};
    soup.triangles = {{0, 1, 2}, {2, 3, 0}};
    return kernelOf(soup);
}

/// What every cut of a closed solid must satisfy, wherever the plane ends. Returns whether the part
/// was cut.
bool expectGoodCut(Soup const& part, MeshKernel& plane)
{
    auto const kernel = kernelOf(part);
    auto const outcome = cut(*kernel, plane);
    Soup const above = soupOf(outcome->above);
    Soup const below = soupOf(outcome->below);
    EXPECT_EQ(closedSolidFaults(outcome->above), "");
    EXPECT_EQ(closedSolidFaults(outcome->below), "");
    double const volume = volumeOf(part);
    EXPECT_NEAR(volumeOf(above) + volumeOf(below), volume, 2e-6 * std::abs(volume));
    // The area grows by the two sides of the section.
    double const sectionArea = areaOf(soupOf(outcome->section));
    EXPECT_NEAR(areaOf(above) + areaOf(below), areaOf(part) + 2 * sectionArea, 1e-5 * areaOf(part));
    bool const isCut = sectionArea > 0;
    if (!isCut) {
        EXPECT_EQ(above.triangles.size() + below.triangles.size(), part.triangles.size());
    }
    return isCut;
}

/// The bounds of the faces of a whole section, in a frame.
std::vector<std::array<Range, 2>> faceBounds(Soup const& section, Frame const& frame)
{
    std::vector<std::uint32_t> name(section.points.size());
    for (std::uint32_t p = 0; p < name.size(); ++p)
        name[p] = p;
    for (bool isChanging = true; isChanging;) {
        isChanging = false;
        for (auto const& t : section.triangles) {
            std::uint32_t const lowest = std::min({name[t[0]], name[t[1]], name[t[2]]});
            for (std::uint32_t const corner : t) {
                isChanging |= name[corner] != lowest;
                name[corner] = lowest;
            }
        }
    }
    std::map<std::uint32_t, std::array<Range, 2>> bounds;
    for (std::uint32_t p = 0; p < name.size(); ++p) {
        bounds[name[p]][0].add(frame.uOf(section.points[p]));
        bounds[name[p]][1].add(frame.vOf(section.points[p]));
    }
    std::vector<std::array<Range, 2>> list;
    for (auto const& [first, box] : bounds)
        list.push_back(box);
    return list;
}

/// Cuts at each face of a section by itself. Returns how many of them came off.
int cutFaceByFace(Soup const& part, Frame const& frame, std::size_t mostFaces)
{
    auto const kernel = kernelOf(part);
    Range const everywhere{-1e4f, 1e4f};
    auto const whole = cut(*kernel, *rectangle(frame, everywhere, everywhere));
    auto bounds = faceBounds(soupOf(whole->section), frame);
    int cuts = 0;
    for (std::size_t i = 0; i < std::min(bounds.size(), mostFaces); ++i) {
        SCOPED_TRACE("face " + std::to_string(i));
        for (Range& range : bounds[i]) {
            range.low -= 0.01f;
            range.high += 0.01f;
        }
        cuts += expectGoodCut(part, *rectangle(frame, bounds[i][0], bounds[i][1]));
    }
    return cuts;
}

Frame frameAcross(Soup const& part, UVector3<float> const& normal, float share)
{
    UBox3<float> box;
    for (auto const& p : part.points)
        box.Add(p);
    UVector3<float> n = normal;
    n.Normalize();
    UVector3<float> u =
        std::abs(n.Z()) < 0.9f ? n * UVector3<float>(0, 0, 1) : n * UVector3<float>(0, 1, 0);
    u.Normalize();
    return {box.min + (box.max - box.min) * share, u, n * u};
}

}  // namespace

TEST(BoundedPlaneCut, HoldsItsInvariantsOnSolidsThatTouchThemselves)
{
    int cuts = 0;
    for (unsigned seed = 1; seed <= unsigned(rounds(150)); ++seed) {
        Soup const part = randomVoxels(3 + int(seed % 4), seed);
        for (UVector3<float> const& normal : {UVector3<float>(0, 0, 1), UVector3<float>(-1, 0, 0),
                                              UVector3<float>(1, 1, 0), UVector3<float>(1, -2, 1)})
            for (float const height : {1.0f, 1.5f, 2.5f}) {
                Frame frame = frameAcross(part, normal, 0);
                frame.origin = {height, height, height};
                SCOPED_TRACE(std::to_string(seed) + " at " + std::to_string(height));
                cuts += cutFaceByFace(part, frame, 6);
            }
    }
    EXPECT_GT(cuts, rounds(500));
}

TEST(BoundedPlaneCut, HoldsItsInvariantsUnderRandomRectangles)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> anywhere(-4, 4);
    for (unsigned seed = 1; seed <= unsigned(rounds(100)); ++seed) {
        Soup const part = randomVoxels(4 + int(seed % 3), seed);
        for (float const height : {2.0f, 2.5f}) {
            SCOPED_TRACE(std::to_string(seed) + " at " + std::to_string(height));
            Range x, y;
            for (int i = 0; i < 2; ++i) {
                x.add(anywhere(random));
                y.add(anywhere(random));
            }
            expectGoodCut(part, *rectangle({{2, 2, height}, {1, 0, 0}, {0, 1, 0}}, x, y));
        }
    }
}

TEST(BoundedPlaneCut, HoldsItsInvariantsOnTurnedSolidsThatTouchThemselves)
{
    float const values[16] = {0.6f,  0.8f,   0,    0, -0.48f, 0.36f, 0.8f, 0,
                              0.64f, -0.48f, 0.6f, 0, 9,      4,     2,    1};
    UMatrix4<float> const motion(values);
    auto const turned = [&](UVector3<float> const& v) {
        return motion * UPoint3<float>(v.X(), v.Y(), v.Z()) - motion * UPoint3<float>();
    };
    int cuts = 0;
    for (unsigned seed = 1; seed <= unsigned(rounds(60)); ++seed) {
        Soup const part = moved(randomVoxels(3 + int(seed % 3), seed), motion);
        for (float const height : {1.0f, 1.5f}) {
            SCOPED_TRACE(std::to_string(seed) + " at " + std::to_string(height));
            Frame const frame{motion * UPoint3<float>(height, height, height), turned({1, 0, 0}),
                              turned({0, 1, 0})};
            cuts += cutFaceByFace(part, frame, 6);
        }
    }
    EXPECT_GT(cuts, rounds(50));
}

TEST(BoundedPlaneCut, HoldsItsInvariantsOnAllClosedShapes)
{
    // A second body beside each shape, which the planes cross as well.
    for (auto const& [name, soup] : closedMeshes()) {
        Soup part = soup;
        part.append(box(300, 300, 300, {130, -150, -150}));
        for (auto const& plane : planesAcross(soup)) {
            SCOPED_TRACE(name + ", " + plane.name);
            Frame frame = frameAcross(soup, plane.normal, 0);
            frame.origin = plane.centre;
            cutFaceByFace(part, frame, 3);
        }
    }
}

TEST(BoundedPlaneCut, ModelsThatCrossThemselvesAreCutClosed)
{
    for (auto const& [name, part] : withReal({"crossing figure", crossingFigure()}, "cow-6k.stl"))
        for (float const share : {0.05f, 0.1f, 0.3f, 0.6f, 0.9f}) {
            SCOPED_TRACE(name + " at " + std::to_string(share));
            cutFaceByFace(part, frameAcross(part, {0, 1, 0}, share), 6);
            cutFaceByFace(part, frameAcross(part, {1, 0.1f, 0}, share), 6);
        }
}

TEST(BoundedPlaneCut, HoldsItsInvariantsFaceByFaceOnALattice)
{
    Soup const part = lattice(3);
    // One upright of many is cut: nothing comes off.
    EXPECT_EQ(cutFaceByFace(part, {{8, 8, 3.75f}, {1, 0, 0}, {0, 1, 0}}, 5), 0);
    // The plane through all but the outermost of the uprights.
    EXPECT_FALSE(expectGoodCut(part, *levelPlane({-1, -1}, {14, 20}, 3.75f)));
}

TEST(BoundedPlaneCut, HoldsItsInvariantsFaceByFaceOnModels)
{
    auto const models = soundModels(110000);
    for (auto const& [name, soup] : models)
        for (UVector3<float> const& normal :
             {UVector3<float>(0, 0, 1), UVector3<float>(0, 1, 0), UVector3<float>(-1, 0.2f, 0.1f)})
            for (float const share : {0.15f, 0.4f, 0.8f}) {
                SCOPED_TRACE(name + " at " + std::to_string(share));
                cutFaceByFace(soup, frameAcross(soup, normal, share), 4);
            }
}

TEST(BoundedPlaneCut, LegOfAFigureIsCutOffAndTheOthersStay)
{
    Soup const model = branchedFigure();
    // All four legs cross the level; the rectangle ends between the one and its neighbour.
    auto const plane = rectangle({{0, 0, 20.1f}, {1, 0, 0}, {0, 1, 0}}, {-8, 16}, {1, 22});
    EXPECT_TRUE(expectGoodCut(model, *plane));
    auto const outcome = cut(*kernelOf(model), *plane);
    Soup const figure = soupOf(outcome->above);
    Soup const leg = soupOf(outcome->below);
    EXPECT_EQ(componentsOf(figure), 1u);
    EXPECT_EQ(componentsOf(leg), 1u);
    EXPECT_NEAR(volumeOf(leg), 20 * 95, 500) << "a pillar of 11 mm";
    for (auto const& p : leg.points)
        ASSERT_TRUE(p.Z() <= 20.1f && p.X() < 16 && p.Y() > 1);
    UBox3<float> box;
    for (auto const& p : figure.points)
        box.Add(p);
    EXPECT_LT(box.MinZ(), 1) << "the other legs";
}

// In every clone: BoundedPlaneCut.LegOfAFigureIsCutOffAndTheOthersStay
TEST(BoundedPlaneCut, LegOfAnAnimalIsCutOff)
{
    Soup const model = realMesh("spot-6k.stl");
    if (model.triangles.empty())
        GTEST_SKIP() << modelsAreMissing;
    // The animal stands on its four feet along Y; all four legs cross the level.
    Frame const frame{{0, 9.84f, 0}, {0, 0, 1}, {1, 0, 0}};
    auto const part = kernelOf(model);
    auto const plane = rectangle(frame, {28, 53}, {2, 25});
    EXPECT_TRUE(expectGoodCut(model, *plane));
    auto const outcome = cut(*part, *plane);
    Soup const animal = soupOf(outcome->above);
    Soup const foot = soupOf(outcome->below);
    EXPECT_EQ(componentsOf(animal), 1u);
    EXPECT_EQ(componentsOf(foot), 1u);
    EXPECT_EQ(componentsOf(soupOf(outcome->section)), 1u);
    EXPECT_LT(volumeOf(foot), 0.03 * volumeOf(model));
    for (auto const& p : foot.points) {
        ASSERT_LE(p.Y(), 9.84f);
        ASSERT_TRUE(p.X() < 25 && p.Z() > 28 && p.Z() < 53);
    }
    UBox3<float> box;
    for (auto const& p : animal.points)
        box.Add(p);
    EXPECT_LT(box.MinY(), 1);
}

// In every clone: BoundedPlaneCut.LegOfAFigureIsCutOffAndTheOthersStay
TEST(BoundedPlaneCut, HandOfAFigureIsCutOffAndItsFeetStay)
{
    Soup const model = realMesh("armadillo-86k.stl");
    if (model.triangles.empty())
        GTEST_SKIP() << modelsAreMissing;
    // The plane passes through an arm, a finger and a foot; it ends between the arm and the others.
    Frame const frame{{16.77f, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    auto const part = kernelOf(model);
    auto const plane = rectangle(frame, {60, 80}, {28, 46.5f});
    EXPECT_TRUE(expectGoodCut(model, *plane));
    auto const outcome = cut(*part, *plane);
    Soup const figure = soupOf(outcome->above);
    Soup const hand = soupOf(outcome->below);
    EXPECT_EQ(componentsOf(figure), 1u);
    EXPECT_EQ(componentsOf(hand), 1u);
    EXPECT_LT(volumeOf(hand), 0.1 * volumeOf(model));
    UBox3<float> figureBox, handBox;
    for (auto const& p : figure.points)
        figureBox.Add(p);
    for (auto const& p : hand.points)
        handBox.Add(p);
    // The foot reaches beyond the plane's level, and so does the finger, the other way.
    EXPECT_LT(figureBox.MinX(), 16.7f);
    EXPECT_GT(handBox.MaxX(), 16.8f);
    EXPECT_GT(handBox.MinY(), 60);
}
