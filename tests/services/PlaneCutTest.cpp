// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/geometry/UPoint2.h"
#include "tests/services/CutFamilies.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

constexpr UVector3<float> up(0, 0, 1);

double sectionAreaOf(CutOutcome const& outcome)
{
    return areaOf(soupOf(outcome.section));
}

/// The triangles of a piece that lie in the plane z = height, facing along or against Z.
Soup facesAt(Soup const& piece, float height, bool isUpward)
{
    Soup faces;
    faces.points = piece.points;
    for (auto const& t : piece.triangles) {
        bool isLevel = true;
        for (std::uint32_t const corner : t)
            isLevel = isLevel && piece.points[corner].Z() == height;
        auto const a = piece.points[t[0]];
        if (isLevel &&
            ((((piece.points[t[1]] - a) * (piece.points[t[2]] - a)).Z() > 0) == isUpward))
            faces.triangles.push_back(t);
    }
    return faces;
}

UMatrix4<float> turnedAndMoved()
{
    double const c = std::cos(0.7), s = std::sin(0.7);
    float const values[16] = {float(c),
                              float(s),
                              0,
                              0,
                              float(-s * c),
                              float(c * c),
                              float(s),
                              0,
                              float(s * s),
                              float(-c * s),
                              float(c),
                              0,
                              3,
                              -4,
                              11,
                              1};
    return UMatrix4<float>(values);
}

}  // namespace

TEST(PlaneCut, SideAIsWhereTheNormalPoints)
{
    auto const outcome = cut(box(10, 10, 10), {5, 5, 3}, up);
    EXPECT_NEAR(volumeOf(soupOf(outcome->above)), 700, 1e-3);
    EXPECT_NEAR(volumeOf(soupOf(outcome->below)), 300, 1e-3);
    auto const turned = cut(box(10, 10, 10), {5, 5, 3}, -up);
    EXPECT_NEAR(volumeOf(soupOf(turned->above)), 300, 1e-3);
    EXPECT_NEAR(volumeOf(soupOf(turned->below)), 700, 1e-3);
}

TEST(PlaneCut, PlaneThatMissesLeavesThePartUnchangedInOneSide)
{
    Soup const part = torus(20, 6, 40, 16);
    auto const kernel = kernelOf(part);
    for (float const height : {-50.0f, 50.0f}) {
        auto const plane = planeMesh({0, 0, height}, up, 500);
        auto const outcome = cut(*kernel, *plane);
        MeshKernel const& whole = height < 0 ? outcome->above : outcome->below;
        MeshKernel const& empty = height < 0 ? outcome->below : outcome->above;
        EXPECT_EQ(bytesOf(whole), bytesOf(*kernel));
        EXPECT_TRUE(empty.readMesh()->triangles.empty());
        EXPECT_TRUE(outcome->section.readMesh()->triangles.empty());
    }
}

TEST(PlaneCut, PlaneThatOnlyTouchesAFaceOrAnEdgeOrACornerCutsNothing)
{
    Soup const part = box(10, 10, 10);
    for (auto const& [centre, normal] :
         std::vector<std::pair<UPoint3<float>, UVector3<float>>>{{{5, 5, 10}, up},
                                                                 {{5, 5, 0}, up},
                                                                 {{10, 5, 10}, {1, 0, 1}},
                                                                 {{10, 10, 10}, {1, 1, 1}}}) {
        auto const outcome = cut(part, centre, normal);
        auto const above = outcome->above.readMesh()->triangles.size();
        auto const below = outcome->below.readMesh()->triangles.size();
        EXPECT_EQ(std::min(above, below), 0u);
        EXPECT_EQ(std::max(above, below), 12u);
    }
}

TEST(PlaneCut, PartIsLeftIntactSoThatOneCopyServesTwoCuts)
{
    auto const part = kernelOf(nestedBoxes());
    auto const before = bytesOf(*part);
    auto const first = cut(*part, *planeMesh({20, 15, 10}, up, 500));
    EXPECT_EQ(bytesOf(*part), before);
    auto const second = cut(*part, *planeMesh({20, 15, 10}, up, 500));
    EXPECT_EQ(bytesOf(first->above), bytesOf(second->above));
}

TEST(PlaneCut, LedgeInThePlaneStaysWithTheMaterialBehindIt)
{
    // A step: the lower box is wider, its free top lies in the plane.
    Soup part = box(20, 10, 5);
    part.append(box(8, 10, 5, {0, 0, 5}));
    auto const outcome = cut(part, {10, 5, 5}, up);
    EXPECT_EQ(closedSolidFaults(outcome->above), "");
    EXPECT_EQ(closedSolidFaults(outcome->below), "");
    EXPECT_NEAR(volumeOf(soupOf(outcome->above)), 400, 1e-3);
    EXPECT_NEAR(volumeOf(soupOf(outcome->below)), 1000, 1e-3);
}

TEST(PlaneCut, OneSolidWithALedgeInThePlaneIsCutAlongTheUpperBlock)
{
    // An L in the XZ plane, drawn as one outline and extruded along Y.
    std::vector<UPoint2<float>> const outline = {{0, 0}, {20, 0}, {20, 5},
                                                 {8, 5}, {8, 12}, {0, 12}};
    Soup part;
    for (float const y : {0.0f, 10.0f})
        for (auto const& p : outline)
            part.add({p.X(), y, p.Y()});
    for (std::uint32_t i = 0; i < 6; ++i) {
        std::uint32_t const k = (i + 1) % 6;
        part.add(i, i + 6, k + 6);
        part.add(i, k + 6, k);
    }
    for (auto const& t :
         std::vector<std::array<std::uint32_t, 3>>{{0, 1, 2}, {0, 2, 3}, {0, 3, 4}, {0, 4, 5}}) {
        part.add(t[0], t[1], t[2]);
        part.add(t[0] + 6, t[2] + 6, t[1] + 6);
    }
    ASSERT_EQ(manifoldFaults(part), "");
    ASSERT_GT(volumeOf(part), 0);
    auto const outcome = cut(part, {10, 5, 5}, up);
    EXPECT_EQ(closedSolidFaults(outcome->above), "");
    EXPECT_EQ(closedSolidFaults(outcome->below), "");
    EXPECT_NEAR(sectionAreaOf(*outcome), 80, 1e-3);
    EXPECT_NEAR(volumeOf(soupOf(outcome->above)), 8 * 7 * 10, 1e-3);
    EXPECT_NEAR(volumeOf(soupOf(outcome->below)), 20 * 5 * 10, 1e-3);
}

TEST(PlaneCut, CapsAreOfEqualAreaAndOppositeNormals)
{
    for (auto const& [name, soup] : closedMeshes()) {
        SCOPED_TRACE(name);
        UBox3<float> box;
        for (auto const& p : soup.points)
            box.Add(p);
        float const height = box.MinZ() + 0.437f * (box.MaxZ() - box.MinZ());
        auto const outcome = cut(soup, {0, 0, height}, up);
        double const lower = areaOf(facesAt(soupOf(outcome->below), height, true));
        double const upper = areaOf(facesAt(soupOf(outcome->above), height, false));
        EXPECT_GT(lower, 0);
        EXPECT_DOUBLE_EQ(lower, upper);
        EXPECT_DOUBLE_EQ(lower, sectionAreaOf(*outcome));
    }
}

TEST(PlaneCut, TubeHasARingAsSection)
{
    auto const outcome = cut(tube(15, 9, 20, 360), {0, 0, 7}, up);
    EXPECT_NEAR(sectionAreaOf(*outcome), std::numbers::pi * (15 * 15 - 9 * 9), 0.05);
    EXPECT_EQ(eulerNumberOf(soupOf(outcome->section)), 0);
    // Each of the two circles crosses 360 facets of two triangles.
    EXPECT_EQ(borderEdgesOf(soupOf(outcome->section)), 2u * 360 * 2);
}

TEST(PlaneCut, NestedShellsKeepTheirCavity)
{
    auto const outcome = cut(nestedBoxes(), {20, 15, 10}, up);
    EXPECT_NEAR(sectionAreaOf(*outcome), 40 * 30 - 30 * 20 + 10 * 8, 1e-3);
    EXPECT_EQ(componentsOf(soupOf(outcome->above)), 2u);
    EXPECT_EQ(componentsOf(soupOf(outcome->below)), 2u);
}

TEST(PlaneCut, OverlappingShellsAreFilledAsOftenAsTheyOverlap)
{
    Soup const part = crossingBoxes();
    auto const outcome = cut(part, {10, 10, 13}, up);
    EXPECT_EQ(closedSolidFaults(outcome->above), "");
    EXPECT_EQ(closedSolidFaults(outcome->below), "");
    EXPECT_NEAR(sectionAreaOf(*outcome), 800, 1e-3);
    EXPECT_NEAR(volumeOf(soupOf(outcome->above)) + volumeOf(soupOf(outcome->below)), volumeOf(part),
                1e-6 * volumeOf(part));
}

TEST(PlaneCut, ModelsThatCrossThemselvesAreCutAllTheSame)
{
    for (auto const& [name, part] : withReal({"crossing figure", crossingFigure()}, "cow-6k.stl"))
        for (auto const& plane : planesAcross(part)) {
            SCOPED_TRACE(name + plane.name);
            auto const outcome = cut(part, plane.centre, plane.normal);
            EXPECT_EQ(closedSolidFaults(outcome->above), "");
            EXPECT_EQ(closedSolidFaults(outcome->below), "");
            EXPECT_NEAR(volumeOf(soupOf(outcome->above)) + volumeOf(soupOf(outcome->below)),
                        volumeOf(part), 1e-6 * volumeOf(part));
        }
}

TEST(PlaneCut, BodiesThatTouchAlongAnEdgeAreCutClosed)
{
    for (auto const& plane : planesAcross(boxesSharingAnEdge())) {
        SCOPED_TRACE(plane.name);
        auto const outcome = cut(boxesSharingAnEdge(), plane.centre, plane.normal);
        EXPECT_EQ(closedSolidFaults(outcome->above), "");
        EXPECT_EQ(closedSolidFaults(outcome->below), "");
    }
}

TEST(PlaneCut, OpenPartIsCutWhereItsContoursClose)
{
    // The hole is the top; below it the contour closes.
    Soup const part = openBox(10, 20, 30);
    auto const outcome = cut(part, {5, 10, 12}, up);
    EXPECT_EQ(closedSolidFaults(outcome->below), "");
    EXPECT_EQ(borderEdgesOf(soupOf(outcome->above)), borderEdgesOf(part));
    EXPECT_NEAR(sectionAreaOf(*outcome), 200, 1e-3);
}

TEST(PlaneCut, OpenPartIsRefusedWithThePlaceWhereTheHoleMeetsThePlane)
{
    auto const part = kernelOf(openBox(10, 20, 30));
    CutOutcome outcome;
    auto const plane = planeMesh({5, 10, 12}, {1, 0, 0}, 500);
    try {
        Intersect::cutByPlane(part.get(), plane.get(), &outcome.above, &outcome.below,
                              &outcome.section, {}, true);
        FAIL() << "the cut was not refused";
    } catch (Mell::Exception const& failure) {
        std::string const text = failure.what();
        EXPECT_TRUE(text == "The part is open where the plane meets it, near (5, 0, 30)." ||
                    text == "The part is open where the plane meets it, near (5, 20, 30).")
            << text;
    }
    EXPECT_TRUE(outcome.above.readMesh()->triangles.empty());
    EXPECT_TRUE(outcome.below.readMesh()->triangles.empty());
    EXPECT_TRUE(outcome.section.readMesh()->triangles.empty());
}

TEST(PlaneCut, InconsistentOrientationDoesNotKeepThePiecesFromClosing)
{
    Soup part = box(10, 10, 10);
    std::swap(part.triangles[4][1], part.triangles[4][2]);
    auto const outcome = cut(part, {5, 5, 5}, up);
    EXPECT_NEAR(sectionAreaOf(*outcome), 100, 1e-3);
    EXPECT_EQ(borderEdgesOf(soupOf(outcome->above)), 0u);
}

TEST(PlaneCut, PartBesideThePlaneStaysWhole)
{
    auto const part = kernelOf(box(10, 10, 10));
    // Away from the part, and along one of its faces.
    for (float const x : {-50.0f, -8.0f, 18.0f, 60.0f}) {
        Soup square;
        square.points = {{x - 8, -20, 5}, {x + 8, -20, 5}, {x + 8, 20, 5}, {x - 8, 20, 5}};
        square.triangles = {{0, 1, 2}, {2, 3, 0}};
        auto const plane = kernelOf(square);
        auto const outcome = cut(*part, *plane);
        EXPECT_EQ(bytesOf(outcome->above), bytesOf(*part)) << x;
        EXPECT_TRUE(outcome->below.readMesh()->triangles.empty());
        EXPECT_TRUE(outcome->section.readMesh()->triangles.empty());
    }
}

TEST(PlaneCut, KernelMatrixIsAppliedToTheOutput)
{
    auto const placed = kernelOf(box(10, 10, 10));
    placed->getMatrix()(2, 3) = 100;
    placed->UpdateBoundingBox();
    auto const outcome = cut(*placed, *planeMesh({5, 5, 104}, up, 500));
    EXPECT_NEAR(volumeOf(soupOf(outcome->above)), 600, 1e-2);
    EXPECT_TRUE(outcome->above.getMatrix().isIdentity());
    outcome->above.UpdateBoundingBox();
    EXPECT_EQ(outcome->above.GetBox().MinZ(), 104);

    auto const mirrored = kernelOf(box(10, 10, 10));
    mirrored->getMatrix()(0, 0) = -1;
    auto const halves = cut(*mirrored, *planeMesh({-5, 5, 4}, up, 500));
    EXPECT_NEAR(volumeOf(soupOf(halves->above)), 600, 1e-2);
    auto const missed = cut(*mirrored, *planeMesh({-5, 5, -4}, up, 500));
    EXPECT_NEAR(volumeOf(soupOf(missed->above)), 1000, 1e-2);
    EXPECT_TRUE(missed->above.getMatrix().isIdentity());
}

TEST(PlaneCut, ShufflingTheTrianglesGivesTheSamePieces)
{
    for (auto const& [name, soup] : closedMeshes()) {
        SCOPED_TRACE(name);
        auto const plain = cut(soup, {1, 2, 3}, {0.2f, 0.3f, 0.9f});
        auto const mixed = cut(shuffled(soup, 7), {1, 2, 3}, {0.2f, 0.3f, 0.9f});
        double const volume = volumeOf(soupOf(plain->above));
        EXPECT_NEAR(volumeOf(soupOf(mixed->above)), volume, 1e-6 * volumeOf(soup));
        EXPECT_NEAR(sectionAreaOf(*mixed), sectionAreaOf(*plain), 1e-5 * sectionAreaOf(*plain));
        EXPECT_EQ(componentsOf(soupOf(mixed->above)), componentsOf(soupOf(plain->above)));
    }
}

TEST(PlaneCut, MovingPartAndPlaneTogetherGivesTheSamePieces)
{
    UMatrix4<float> const motion = turnedAndMoved();
    UPoint3<float> const centre(1, 2, 3);
    UVector3<float> const normal(0.2f, 0.3f, 0.9f);
    UVector3<float> const movedNormal = motion * (centre + normal) - motion * centre;
    for (auto const& [name, soup] : closedMeshes()) {
        SCOPED_TRACE(name);
        auto const plain = cut(soup, centre, normal);
        auto const moving = cut(moved(soup, motion), motion * centre, movedNormal);
        EXPECT_NEAR(volumeOf(soupOf(moving->above)), volumeOf(soupOf(plain->above)),
                    3e-5 * volumeOf(soup));
        EXPECT_NEAR(sectionAreaOf(*moving), sectionAreaOf(*plain), 1e-3 * sectionAreaOf(*plain));
    }
}

TEST(PlaneCut, ThreadCountDoesNotChangeAByte)
{
    Soup part = sphere(40, 300, 400);
    auto const kernel = kernelOf(part);
    auto const plane = planeMesh({0, 0, 5}, {0.1f, 0.2f, 1}, 500);
    std::vector<std::vector<float>> outputs;
    for (std::size_t const threads : {1, 2, 4, 2}) {
        tbb::global_control const control(tbb::global_control::max_allowed_parallelism, threads);
        auto const outcome = cut(*kernel, *plane);
        outputs.push_back(bytesOf(outcome->above));
        auto const below = bytesOf(outcome->below);
        outputs.back().insert(outputs.back().end(), below.begin(), below.end());
    }
    for (auto const& output : outputs)
        EXPECT_EQ(output, outputs.front());
}

TEST(PlaneCut, CancelLeavesTheOutputEmpty)
{
    auto const part = kernelOf(sphere(40, 200, 300));
    auto const plane = planeMesh({0, 0, 5}, up, 500);
    for (int const stop : {0, 15, 40, 70, 100}) {
        CutOutcome outcome;
        EXPECT_THROW(Intersect::cutByPlane(
                         part.get(), plane.get(), &outcome.above, &outcome.below, &outcome.section,
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
}

TEST(PlaneCut, ProgressRisesFromZeroToOneHundred)
{
    auto const part = kernelOf(sphere(40, 200, 300));
    auto const plane = planeMesh({0, 0, 5}, up, 500);
    tbb::global_control const control(tbb::global_control::max_allowed_parallelism, 1);
    std::vector<int> seen;
    cut(*part, *plane, [&](int percent) { seen.push_back(percent); });
    ASSERT_FALSE(seen.empty());
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_GE(seen.front(), 0);
    EXPECT_EQ(seen.back(), 100);
}

TEST(PlaneCut, VertexIdentifiersOfThePartNeedNotBeValid)
{
    auto const part = kernelOf(torus(20, 6, 40, 16));
    for (auto* const vertex : part->getMesh()->vertices)
        vertex->ID() = 5;
    auto const outcome = cut(*part, *planeMesh({0, 0, 0.5f}, up, 500));
    EXPECT_EQ(closedSolidFaults(outcome->above), "");
    EXPECT_EQ(closedSolidFaults(outcome->below), "");
}
