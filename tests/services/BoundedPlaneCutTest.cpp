// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/CutFamilies.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include <algorithm>
#include <array>

namespace {

/// A torso on the right, an arm raised on the left, 10 mm beside it.
Soup figure()
{
    return fromFrontView({"#.##",  //
                          "#.##",  //
                          "####"});
}

/// An arm is joined to the foot of the torso, a bag hangs down from its shoulder between the two.
Soup figureWithBag()
{
    return fromFrontView({"..###",  //
                          "#.#.#",  //
                          "#.#.#",  //
                          "#.#.#",  //
                          "#...#",  //
                          "#####"});
}

Soup cavity(float x, float y, float z, UPoint3<float> const& low)
{
    Soup soup = box(x, y, z, low);
    soup.flip();
    return soup;
}

/// A rectangle that covers the given range of x and all of y in a front view.
std::unique_ptr<MeshKernel> planeOver(float xLow, float xHigh, float height, bool isUpward = true)
{
    return levelPlane({xLow, -5}, {xHigh, 15}, height, isUpward);
}

struct Volumes
{
    double above;
    double below;
    double section;
};

/// Cuts, and checks what holds for every cut of a closed solid.
Volumes cutVolumes(Soup const& part, MeshKernel& plane)
{
    auto const kernel = kernelOf(part);
    auto const outcome = cut(*kernel, plane);
    EXPECT_EQ(closedSolidFaults(outcome->above), "");
    EXPECT_EQ(closedSolidFaults(outcome->below), "");
    Volumes const volumes{volumeOf(soupOf(outcome->above)), volumeOf(soupOf(outcome->below)),
                          areaOf(soupOf(outcome->section))};
    EXPECT_NEAR(volumes.above + volumes.below, volumeOf(part), 1e-5 * volumeOf(part));
    return volumes;
}

void expectVolumes(Soup const& part, MeshKernel& plane, Volumes const& expected)
{
    Volumes const volumes = cutVolumes(part, plane);
    EXPECT_NEAR(volumes.above, expected.above, 2e-2);
    EXPECT_NEAR(volumes.below, expected.below, 2e-2);
    EXPECT_NEAR(volumes.section, expected.section, 2e-3);
}

void expectWholeInSideA(Soup const& part, MeshKernel& plane)
{
    auto const kernel = kernelOf(part);
    auto const outcome = cut(*kernel, plane);
    EXPECT_EQ(bytesOf(outcome->above), bytesOf(*kernel));
    EXPECT_TRUE(outcome->below.readMesh()->triangles.empty());
    EXPECT_TRUE(outcome->section.readMesh()->triangles.empty());
}

using TriangleCoordinates = std::array<float, 9>;

/// The triangles to the right of x, in ascending order.
std::vector<TriangleCoordinates> trianglesRightOf(float x, MeshKernel const& kernel)
{
    std::vector<float> const bytes = bytesOf(kernel);
    std::vector<TriangleCoordinates> triangles;
    for (std::size_t i = 0; i < bytes.size(); i += 9)
        if (bytes[i] >= x && bytes[i + 3] >= x && bytes[i + 6] >= x) {
            triangles.emplace_back();
            std::copy_n(bytes.begin() + std::ptrdiff_t(i), 9, triangles.back().begin());
        }
    std::sort(triangles.begin(), triangles.end());
    return triangles;
}

UMatrix4<float> tilt()
{
    float const values[16] = {0.6f,  0.8f,   0,    0, -0.48f, 0.36f, 0.8f, 0,
                              0.64f, -0.48f, 0.6f, 0, 9,      4,     2,    1};
    return UMatrix4<float>(values);
}

}  // namespace

TEST(BoundedPlaneCut, LimbIsCutOffAndTheTorsoBehindItStaysWhole)
{
    expectVolumes(figure(), *planeOver(-5, 15, 25), {500, 9500, 100});
}

TEST(BoundedPlaneCut, SideAIsWhereTheNormalPoints)
{
    expectVolumes(figure(), *planeOver(-5, 15, 25, false), {9500, 500, 100});
    Soup const hanging = fromFrontView({"####",  //
                                        "#.##",  //
                                        "#.##"});
    expectVolumes(hanging, *planeOver(-5, 15, 5), {9500, 500, 100});
    expectVolumes(hanging, *planeOver(-5, 15, 5, false), {500, 9500, 100});
}

TEST(BoundedPlaneCut, TrianglesOfAFaceThatIsNotCutAreLeftAsTheyAre)
{
    auto const part = kernelOf(figure());
    auto const outcome = cut(*part, *planeOver(-5, 15, 25));
    auto const torso = trianglesRightOf(15, *part);
    ASSERT_GE(torso.size(), 20u);
    EXPECT_EQ(trianglesRightOf(15, outcome->below), torso);
    EXPECT_TRUE(trianglesRightOf(15, outcome->above).empty());
}

TEST(BoundedPlaneCut, NoVertexIsLeftOver)
{
    auto const part = kernelOf(figureWithBag());
    auto const outcome = cut(*part, *planeOver(-5, 35, 35));
    for (MeshKernel const* const piece : {&outcome->above, &outcome->below}) {
        Soup const soup = soupOf(*piece);
        std::vector<bool> isUsed(soup.points.size(), false);
        for (auto const& t : soup.triangles)
            for (std::uint32_t const corner : t)
                isUsed[corner] = true;
        EXPECT_EQ(std::count(isUsed.begin(), isUsed.end(), false), 0);
    }
}

TEST(BoundedPlaneCut, FaceThatLiesPartlyOutsideThePlaneIsNotCut)
{
    // Across the arm, across the torso, within the torso, and across both.
    for (auto const& [low, high] : std::vector<std::pair<float, float>>{
             {5, 15}, {-5, 5}, {15, 35}, {22, 38}, {5, 35}, {2, 8}})
        expectWholeInSideA(figure(), *planeOver(low, high, 25));
    // The arm's face lies within the plane, the torso's ends outside.
    expectVolumes(figure(), *planeOver(-5, 30, 25), {500, 9500, 100});
    // Cut off along y.
    expectWholeInSideA(figure(), *levelPlane({-5, -5}, {15, 8}, 25));
}

TEST(BoundedPlaneCut, BorderOfThePlaneBelongsToIt)
{
    expectVolumes(figure(), *levelPlane({0, 0}, {10, 10}, 25), {500, 9500, 100});
}

TEST(BoundedPlaneCut, RingCutOnceStaysWhole)
{
    Soup const ring = fromFrontView({"###",  //
                                     "#.#",  //
                                     "###"});
    expectWholeInSideA(ring, *planeOver(-5, 15, 15));
    expectWholeInSideA(ring, *planeOver(-5, 15, 15, false));
    expectWholeInSideA(ring, *planeOver(15, 35, 15));
}

TEST(BoundedPlaneCut, RingCutTwiceComesApart)
{
    Soup part = fromFrontView({"###",  //
                               "#.#",  //
                               "###"});
    part.append(box(10, 10, 30, {50, 0, 0}));
    // The box beside the ring is out of reach.
    expectVolumes(part, *planeOver(-5, 35, 17), {3600, 7400, 200});
}

TEST(BoundedPlaneCut, RingCutOnceDoesNotKeepALimbFromBeingCut)
{
    Soup const part = fromFrontView({"#.###",  //
                                     "#.#.#",  //
                                     "#####"});
    expectVolumes(part, *planeOver(-5, 35, 15), {1500, 10500, 100});
    expectVolumes(part, *planeOver(-5, 35, 15, false), {10500, 1500, 100});
}

TEST(BoundedPlaneCut, PieceBetweenFacesOfBothDirectionsKeepsTheFacesUnderWhatComesOffUpwards)
{
    // The arm would go up, the bag down, and the torso to both sides: the bag stays.
    double const volume = volumeOf(figureWithBag());
    expectVolumes(figureWithBag(), *planeOver(-5, 35, 35), {1500, volume - 1500, 100});
    expectVolumes(figureWithBag(), *planeOver(-5, 35, 35, false), {1500, volume - 1500, 100});
    // Each of the two can be cut by itself.
    expectVolumes(figureWithBag(), *planeOver(-5, 15, 35), {1500, volume - 1500, 100});
    expectVolumes(figureWithBag(), *planeOver(15, 35, 35), {volume - 1500, 1500, 100});
}

TEST(BoundedPlaneCut, PieceBetweenFacesOfBothDirectionsKeepsTheDirectionOfMoreFaces)
{
    Soup const part = fromFrontView({"..#####",  //
                                     "#.#.#.#",  //
                                     "#.#.#.#",  //
                                     "#.....#",  //
                                     "#######"});
    // Two bags and an arm.
    double const volume = volumeOf(part);
    expectVolumes(part, *planeOver(-5, 55, 25), {volume - 1000, 1000, 200});
}

TEST(BoundedPlaneCut, SeveralLimbsComeOffTogether)
{
    Soup const part = fromFrontView({"#.#.##",  //
                                     "#.#.##",  //
                                     "######"});
    expectVolumes(part, *planeOver(-5, 35, 25), {1000, 13000, 200});
}

TEST(BoundedPlaneCut, LimbMayReachToTheOtherSideOfThePlaneAgain)
{
    // Behind the cut the limb bends and comes back through the plane, out of the plane's reach.
    Soup const part = fromFrontView({"###...",  //
                                     "#.#...",  //
                                     "#.#.##",  //
                                     "#....#",  //
                                     "######"});
    double const volume = volumeOf(part);
    expectVolumes(part, *planeOver(-5, 15, 25), {6500, volume - 6500, 100});
    expectVolumes(part, *planeOver(15, 35, 25), {volume - 500, 500, 100});
}

TEST(BoundedPlaneCut, ShellThatTheCutDoesNotTouchGoesToTheSideOfItsCentroid)
{
    // Both boxes cross the plane's level, out of the plane's reach.
    Soup high = figure();
    high.append(box(10, 10, 28, {60, 0, 10}));
    expectVolumes(high, *planeOver(-5, 15, 22), {800 + 2800, 9200, 100});
    expectVolumes(high, *planeOver(-5, 15, 22, false), {9200, 800 + 2800, 100});
    Soup low = figure();
    low.append(box(10, 10, 22, {60, 0, 10}));
    expectVolumes(low, *planeOver(-5, 15, 22), {800, 9200 + 2200, 100});
    expectVolumes(low, *planeOver(-5, 15, 22, false), {9200 + 2200, 800, 100});
}

TEST(BoundedPlaneCut, ShellWithItsCentroidInThePlaneGoesToSideA)
{
    Soup part = figure();
    part.append(box(10, 10, 20, {60, 0, 12}));
    expectVolumes(part, *planeOver(-5, 15, 22), {800 + 2000, 9200, 100});
    expectVolumes(part, *planeOver(-5, 15, 22, false), {9200 + 2000, 800, 100});
}

TEST(BoundedPlaneCut, HollowLimbIsCutThroughItsCavity)
{
    Soup part = figure();
    part.append(cavity(6, 6, 10, {2, 2, 18}));
    expectVolumes(part, *planeOver(-5, 15, 25), {500 - 36 * 3, 9500 - 36 * 7, 100 - 36});
}

TEST(BoundedPlaneCut, HollowTorsoKeepsItsCavity)
{
    // Through the plane, above it and below it.
    for (float const z : {22.0f, 26.0f, 12.0f}) {
        Soup part = figure();
        part.append(cavity(6, 6, 3, {22, 2, z}));
        expectVolumes(part, *planeOver(-5, 15, 24), {600, 9400 - 108, 100});
        expectVolumes(part, *planeOver(-5, 15, 24, false), {9400 - 108, 600, 100});
    }
}

TEST(BoundedPlaneCut, CavityGoesWithTheSmallestSolidAroundIt)
{
    // A hollow body within the hollow torso. It is a shell that the cut does not touch, and its
    // centroid lies above the plane.
    Soup part = figure();
    part.append(cavity(8, 8, 8, {21, 1, 21}));
    part.append(box(6, 6, 6, {22, 2, 22}));
    part.append(cavity(2, 2, 2, {24, 4, 24}));
    expectVolumes(part, *planeOver(-5, 15, 23), {700 + 216 - 8, 9300 - 512, 100});
}

TEST(BoundedPlaneCut, CavityAboveThePlaneStaysInTheLimbThatIsCutOff)
{
    Soup part = figure();
    part.append(cavity(6, 6, 3, {2, 2, 26}));
    part.append(cavity(6, 6, 3, {2, 2, 12}));
    expectVolumes(part, *planeOver(-5, 15, 24), {600 - 108, 9400 - 108, 100});
}

TEST(BoundedPlaneCut, LimbsOnALedgeInThePlaneAreCutOneByOne)
{
    // The plane lies in the face from which the limbs hang.
    Soup const table = fromFrontView({"#####",  //
                                      "#.#.#"});
    expectVolumes(table, *planeOver(-5, 15, 10), {7000, 1000, 100});
    expectVolumes(table, *planeOver(15, 35, 10), {7000, 1000, 100});
    expectVolumes(table, *planeOver(15, 55, 10), {6000, 2000, 200});
    Soup const turned = fromFrontView({"#.#.#",  //
                                       "#####"});
    expectVolumes(turned, *planeOver(-5, 15, 10), {1000, 7000, 100});
}

TEST(BoundedPlaneCut, PartWhoseTrianglesDoNotShareVerticesHangsTogether)
{
    Soup const joined = figure();
    Soup loose;
    for (auto const& t : joined.triangles)
        loose.add(loose.add(joined.points[t[0]]), loose.add(joined.points[t[1]]),
                  loose.add(joined.points[t[2]]));
    auto const part = kernelOf(loose);
    auto const outcome = cut(*part, *planeOver(-5, 15, 25));
    EXPECT_NEAR(volumeOf(soupOf(outcome->above)), 500, 1e-3);
    EXPECT_NEAR(volumeOf(soupOf(outcome->below)), 9500, 1e-3);
}

TEST(BoundedPlaneCut, OpenPartBesideThePlaneStaysWhole)
{
    Soup part = box(10, 10, 20);
    part.triangles.pop_back();
    ASSERT_GT(borderEdgesOf(part), 0u);
    expectWholeInSideA(part, *planeOver(20, 40, 10));
}

TEST(BoundedPlaneCut, OpenPartThatThePlaneMeetsIsRefused)
{
    Soup part = box(10, 10, 20);
    part.triangles.pop_back();
    auto const kernel = kernelOf(part);
    EXPECT_THROW(cut(*kernel, *planeOver(5, 40, 10)), Mell::Exception);
}

TEST(BoundedPlaneCut, ShellsThatTouchInOneVertexComeApart)
{
    // The limb's own shell touches the torso's in a corner that they share.
    Soup part = box(10, 10, 30);
    part.append(box(20, 20, 20, {10, 10, 20}));
    part.joinPoints();
    Soup touching = box(10, 10, 30);
    touching.append(box(20, 20, 20, {10, 10, 30}));
    touching.joinPoints();
    ASSERT_EQ(componentsOf(touching), 1u);
    expectVolumes(touching, *planeOver(-5, 15, 25), {500 + 8000, 2500, 100});
    // Joined along an edge they hang together.
    expectVolumes(part, *planeOver(-5, 15, 5), {2500 + 8000, 500, 100});
}

TEST(BoundedPlaneCut, VertexOfShellsOnBothSidesIsInBoth)
{
    // The tip of the small shell touches the torso above the plane; its centroid lies below.
    Soup part = figure();
    part.append(box(20, 20, 28, {40, 10, 2}));
    part.joinPoints();
    ASSERT_EQ(componentsOf(part), 1u);
    Volumes const volumes = cutVolumes(part, *planeOver(-5, 15, 25, false));
    EXPECT_NEAR(volumes.below, 500, 1e-2);
}

TEST(BoundedPlaneCut, TiltedPlanesCutAsLevelOnes)
{
    std::vector<std::pair<Soup, std::unique_ptr<MeshKernel>>> cases;
    cases.emplace_back(figure(), planeOver(-5, 15, 25));
    cases.emplace_back(figure(), planeOver(5, 15, 25));
    cases.emplace_back(figureWithBag(), planeOver(-5, 35, 35));
    cases.emplace_back(figureWithBag(), planeOver(15, 35, 35, false));
    cases.emplace_back(fromFrontView({"#.###", "#.#.#", "#####"}), planeOver(-5, 35, 15));
    Soup hollow = figure();
    hollow.append(cavity(6, 6, 3, {22, 2, 26}));
    cases.emplace_back(hollow, planeOver(-5, 15, 24));
    for (auto const& [part, plane] : cases) {
        Volumes const level = cutVolumes(part, *plane);
        auto const turned = kernelOf(moved(soupOf(*plane), tilt()));
        expectVolumes(moved(part, tilt()), *turned, level);
    }
}

TEST(BoundedPlaneCut, PlaneThatCoversThePartGivesTheSameBytesWhateverItsSize)
{
    auto const part = kernelOf(sphere(40, 60, 80));
    auto const large = levelPlane({-500, -500}, {500, 500}, 5);
    auto const small = levelPlane({-40, -40}, {40, 40}, 5);
    auto const expected = cut(*part, *large);
    auto const outcome = cut(*part, *small);
    EXPECT_EQ(bytesOf(outcome->above), bytesOf(expected->above));
    EXPECT_EQ(bytesOf(outcome->below), bytesOf(expected->below));
    EXPECT_EQ(bytesOf(outcome->section), bytesOf(expected->section));
}

TEST(BoundedPlaneCut, FaceThatIsCutIsFilledAsByAPlaneWithoutEnd)
{
    Soup limb = sphere(10, 40, 50);
    Soup part = limb;
    part.append(sphere(30, 40, 50, {60, 0, 0}));
    auto const alone = kernelOf(limb);
    auto const both = kernelOf(part);
    auto const plane = levelPlane({-12, -12}, {12, 12}, 3);
    auto const expected = cut(*alone, *plane);
    auto const outcome = cut(*both, *plane);
    EXPECT_NEAR(areaOf(soupOf(outcome->section)), areaOf(soupOf(expected->section)), 1e-3);
    EXPECT_EQ(outcome->section.readMesh()->triangles.size(),
              expected->section.readMesh()->triangles.size());
    EXPECT_EQ(outcome->above.readMesh()->triangles.size(),
              expected->above.readMesh()->triangles.size());
}

TEST(BoundedPlaneCut, ThreadCountDoesNotChangeAByte)
{
    Soup part = sphere(10, 200, 200);
    part.append(sphere(30, 200, 300, {60, 0, 0}));
    auto const kernel = kernelOf(part);
    auto const plane = levelPlane({-12, -12}, {12, 12}, 3);
    std::vector<float> first;
    for (std::size_t const threads : {1, 2, 4, 2}) {
        tbb::global_control const control(tbb::global_control::max_allowed_parallelism, threads);
        auto const outcome = cut(*kernel, *plane);
        auto bytes = bytesOf(outcome->above);
        auto const below = bytesOf(outcome->below);
        bytes.insert(bytes.end(), below.begin(), below.end());
        if (first.empty())
            first = bytes;
        EXPECT_EQ(bytes, first);
    }
}

TEST(BoundedPlaneCut, CancelAtEveryPercentageLeavesTheOutputEmpty)
{
    Soup part = sphere(10, 60, 60);
    part.append(sphere(30, 60, 80, {60, 0, 0}));
    part.append(cavity(6, 6, 6, {60, 0, 5}));
    auto const kernel = kernelOf(part);
    auto const before = bytesOf(*kernel);
    auto const plane = levelPlane({-12, -12}, {12, 12}, 3);
    for (int stop = 0; stop <= 100; ++stop) {
        CutOutcome outcome;
        EXPECT_THROW(
            Intersect::cutByPlane(
                kernel.get(), plane.get(), &outcome.above, &outcome.below, &outcome.section,
                [stop](int percent) {
                    if (percent >= stop)
                        throw Mell::AbortException("Aborting...");
                },
                true),
            Mell::AbortException)
            << stop;
        EXPECT_TRUE(outcome.above.readMesh()->triangles.empty());
        EXPECT_TRUE(outcome.below.readMesh()->triangles.empty());
    }
    EXPECT_EQ(bytesOf(*kernel), before);
}

TEST(BoundedPlaneCut, ProgressRisesToOneHundred)
{
    Soup part = sphere(10, 60, 60);
    part.append(sphere(30, 60, 80, {60, 0, 0}));
    auto const kernel = kernelOf(part);
    auto const plane = levelPlane({-12, -12}, {12, 12}, 3);
    tbb::global_control const control(tbb::global_control::max_allowed_parallelism, 1);
    std::vector<int> seen;
    cut(*kernel, *plane, [&](int percent) { seen.push_back(percent); });
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_EQ(seen.back(), 100);
}
