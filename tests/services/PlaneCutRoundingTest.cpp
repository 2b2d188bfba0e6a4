// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/PlaneCutNotes.h"
#include "tests/services/CutFamilies.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/Crossings.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <set>

// Far from the origin coordinates are coarse: section points fall beside the lines on which they
// should lie, and needles at the cut come to lie on the wrong side of their neighbours.
namespace {

Soup farAway(Soup soup)
{
    for (auto& p : soup.points)
        p = {p.X() + 3000, p.Y() + 2000, p.Z() - 1000};
    return soup;
}

struct Tally
{
    int cuts = 0;
    int named = 0;
};

void expectNoneUnnamed(Soup const& part, unsigned seed, int cuts, Tally& tally)
{
    ASSERT_EQ(judge::crossingsOf(part).total(), 0u);
    std::mt19937 random(seed);
    auto const share = [&] { return float(random() * 0x1p-32) * 2 - 1; };
    auto const kernel = kernelOf(part);
    UBox3<float> const box = kernel->GetBox();
    for (int i = 0; i < cuts; ++i) {
        UPoint3<float> centre;
        for (int k = 0; k < 3; ++k)
            centre[k] = box.min[k] + (box.max[k] - box.min[k]) * (0.5f + 0.3f * share());
        UVector3<float> normal(share(), share(), share());
        normal.Normalize();
        auto const plane = planeMesh(centre, normal, 500);
        MeshKernel above, below, section;
        PlaneCutNotes const notes =
            cutByPlaneWithNotes(*kernel, *plane, above, below, &section, {});
        std::size_t crossings = 0;
        for (MeshKernel const* const piece : {&above, &below}) {
            EXPECT_EQ(closedSolidFaults(*piece), "") << seed << ", cut " << i;
            crossings += judge::crossingsOf(soupOf(*piece)).total();
        }
        EXPECT_NEAR(volumeOf(soupOf(above)) + volumeOf(soupOf(below)), volumeOf(part),
                    1e-3 * volumeOf(part));
        EXPECT_TRUE(crossings == 0 || !notes.crossing.empty()) << seed << ", cut " << i;
        ++tally.cuts;
        tally.named += crossings > 0;
    }
}

}  // namespace

TEST(PlaneCutRounding, NoPieceCrossesItselfUnnamed)
{
    Tally tally;
    expectNoneUnnamed(farAway(sphere(17, 40, 60)), 1, 60, tally);
    expectNoneUnnamed(farAway(corpus::scannedHead(60, 80)), 2, 60, tally);
    expectNoneUnnamed(farAway(corpus::screwThread(6, 40)), 3, 60, tally);
    // What cannot be mended is rare.
    EXPECT_LE(tally.named, tally.cuts / 50);
}

TEST(PlaneCutRounding, MendedHalvesFitCornerForCorner)
{
    using Corner = std::array<float, 3>;
    auto const part = kernelOf(farAway(sphere(17, 40, 60)));
    std::mt19937 random(5);
    for (int i = 0; i < 20; ++i) {
        UVector3<float> normal(float(random() % 1000), float(random() % 1000), 300);
        normal.Normalize();
        auto const plane = planeMesh({3001, 2002, -999}, normal, 500);
        auto const outcome = cut(*part, *plane);
        auto const cornersOf = [](Soup const& soup, std::array<std::uint32_t, 3> const& t,
                                  bool isTurned) {
            std::array<Corner, 3> corners;
            for (std::size_t k = 0; k < 3; ++k) {
                auto const& p = soup.points[t[isTurned ? 2 - k : k]];
                corners[k] = {p.X(), p.Y(), p.Z()};
            }
            std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()),
                        corners.end());
            return corners;
        };
        Soup const above = soupOf(outcome->above), below = soupOf(outcome->below);
        std::set<std::array<Corner, 3>> ofBelow;
        for (auto const& t : below.triangles)
            ofBelow.insert(cornersOf(below, t, false));
        Soup shared{above.points, {}};
        for (auto const& t : above.triangles)
            if (ofBelow.contains(cornersOf(above, t, true)))
                shared.triangles.push_back(t);
        double const area = areaOf(soupOf(outcome->section));
        EXPECT_NEAR(areaOf(shared), area, 1e-4 * area);
    }
}
