// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/Validator.h"
#include "tests/support/WindingField.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <set>

// Crossings are resolved where they are, and nothing else changes. What comes of it is judged by
// winding numbers that the services know nothing of.
namespace {

using Errors = Repair::EvaluateErrors;
using Triangle = std::array<std::array<float, 3>, 3>;

std::multiset<Triangle> trianglesOf(Soup const& soup)
{
    std::multiset<Triangle> triangles;
    for (auto const& t : soup.triangles) {
        Triangle corners;
        for (int k = 0; k < 3; ++k)
            for (int axis = 0; axis < 3; ++axis)
                corners[std::size_t(k)][std::size_t(axis)] = soup.points[t[std::size_t(k)]][axis];
        std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()),
                    corners.end());
        triangles.insert(corners);
    }
    return triangles;
}

Soup partOf(std::string const& name)
{
    for (corpus::Part const& part : corpus::parts())
        if (part.name == name)
            return part.soup;
    ADD_FAILURE() << "no part " << name;
    return {};
}

/// Points, half of them near the surfaces, that lie in one of two solids only.
std::size_t differingPoints(Soup const& before, Soup const& after, std::size_t samples)
{
    judge::WindingField const was(before), is(after);
    UBox3<float> const box = was.bounds();
    std::mt19937 random(11);
    auto const share = [&] { return random() * 0x1p-32; };
    double const size = double(box.MaxX()) - box.MinX() + box.MaxY() - box.MinY();
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < samples; ++i) {
        UPoint3<double> p(box.MinX() + share() * (double(box.MaxX()) - box.MinX()),
                          box.MinY() + share() * (double(box.MaxY()) - box.MinY()),
                          box.MinZ() + share() * (double(box.MaxZ()) - box.MinZ()));
        if (i % 2 == 0) {
            Soup const& soup = i % 4 == 0 ? before : after;
            auto const& q = soup.points[soup.triangles[random() % soup.triangles.size()][0]];
            for (int axis = 0; axis < 3; ++axis)
                p[axis] = q[axis] + size * 1e-3 * (share() - 0.5);
        }
        if (was.isWithin(size * 1e-5, p) || is.isWithin(size * 1e-5, p))
            continue;
        auto const a = was.windingAt(p), b = is.windingAt(p);
        wrong += a && b && (*a > 0) != (*b > 0);
    }
    return wrong;
}

struct Mended
{
    Soup soup;
    Repair::Report report;
    bool isSound;
};

Mended mend(Soup const& soup)
{
    auto const kernel = kernelOf(soup);
    Repair::RepairMethods repair(kernel.get());
    bool const isSound = repair.autoRepair_simple_advanced({});
    return {soupOf(*kernel), repair.report(), isSound};
}

std::size_t errorsOf(Soup const& soup)
{
    auto const kernel = kernelOf(soup);
    return Errors(kernel.get()).evaluate(Errors::ERROR_ALL, true, true, {});
}

}  // namespace

TEST(CrossingRepair, ResolvesCrossingsOfEveryKindAndKeepsTheSolid)
{
    for (char const* name :
         {"figure-of-eight", "scan-noise-mild", "scan-noise-strong", "boxes-with-coplanar-sides",
          "ball-twice-nearly", "crossing-of-a-thousandth", "crossing-of-a-million"}) {
        Soup const part = partOf(name);
        Mended const mended = mend(part);
        EXPECT_TRUE(mended.isSound) << name;
        EXPECT_EQ(errorsOf(mended.soup), 0u) << name;
        EXPECT_EQ(closedSolidFaults(mended.soup), "") << name;
        EXPECT_EQ(differingPoints(part, mended.soup, 600), 0u) << name;
        EXPECT_GT(mended.report.countOf(Repair::Flaw::crossing), 0u) << name;
        EXPECT_TRUE(mended.report.left.empty()) << name;
    }
}

TEST(CrossingRepair, LeavesWhatCannotBeResolvedWithoutLossAndSaysWhy)
{
    for (char const* name : {"folded-block", "crossing-one-inside-out"}) {
        Soup const part = partOf(name);
        Mended const mended = mend(part);
        EXPECT_FALSE(mended.isSound) << name;
        EXPECT_TRUE(trianglesOf(mended.soup) == trianglesOf(part)) << name;
        ASSERT_FALSE(mended.report.left.empty()) << name;
        EXPECT_FALSE(mended.report.left.back().reason.empty()) << name;
        EXPECT_FALSE(mended.report.left.back().places.empty()) << name;
    }
}

TEST(CrossingRepair, TrianglesThatMeetNothingStayToTheBit)
{
    Soup const part = partOf("scan-noise-mild");
    Mended const mended = mend(part);
    auto const before = trianglesOf(part), after = trianglesOf(mended.soup);
    std::vector<Triangle> gone;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                        std::back_inserter(gone));
    // Two triangles to a pair at most, and the few that lie within a fold.
    EXPECT_LE(gone.size(), 2 * mended.report.countOf(Repair::Flaw::crossing));
}

TEST(CrossingRepair, HolesElsewhereDoNotKeepACrossingFromBeingResolved)
{
    Soup part = partOf("figure-of-eight");
    // Far from the middle, where the tube crosses itself.
    std::size_t farthest = 0;
    for (std::size_t t = 0; t < part.triangles.size(); ++t)
        if (part.points[part.triangles[t][0]].X() > part.points[part.triangles[farthest][0]].X())
            farthest = t;
    part.triangles.erase(part.triangles.begin() + std::ptrdiff_t(farthest));
    Mended const mended = mend(part);
    EXPECT_TRUE(mended.isSound);
    EXPECT_EQ(mended.report.countOf(Repair::Flaw::hole), 1u);
    EXPECT_GT(mended.report.countOf(Repair::Flaw::crossing), 0u);
}

// The two halves of a cut through the middle of the eight: what the cut touches is mended, and what
// it does not, is not.
TEST(CrossingRepair, WithinTheScopeOfACutOnlyWhatItTouchesIsMended)
{
    Soup part = partOf("figure-of-eight");
    Soup far = part;
    for (auto& point : far.points)
        point.Z() += 500;
    part.append(far);
    // An opening in the one that is not cut.
    part.triangles.pop_back();
    auto const source = kernelOf(part);
    Soup rectangle;
    for (auto const& [x, y] : {std::pair(-900, -900), {900, -900}, {900, 900}, {-900, 900}})
        rectangle.add({float(x), float(y), 0.1f});
    rectangle.add(0, 1, 2);
    rectangle.add(2, 3, 0);
    auto const plane = kernelOf(rectangle);
    MeshKernel above, below, section;
    Intersect::cutByPlane(source.get(), plane.get(), &above, &below, &section, {}, true);
    Soup const cut = soupOf(above);
    Repair::RepairMethods repair(&above, Repair::Scope::madeFrom(*source));
    EXPECT_TRUE(repair.autoRepair_simple_advanced({}));
    EXPECT_GT(repair.report().countOf(Repair::Flaw::crossing), 0u);
    EXPECT_EQ(repair.report().countOf(Repair::Flaw::hole), 0u);
    Soup const mended = soupOf(above);
    auto const before = trianglesOf(cut), after = trianglesOf(mended);
    for (Triangle const& triangle : before)
        if (triangle[0][2] > 300) {
            EXPECT_EQ(after.count(triangle), before.count(triangle));
        }
    EXPECT_EQ(borderEdgesOf(mended), 3u);
}

TEST(CrossingRepair, GivesTheSameBytesTwiceAndAnyOrderIsMended)
{
    Soup const part = partOf("scan-noise-strong");
    EXPECT_EQ(mend(part).soup.points, mend(part).soup.points);
    EXPECT_EQ(mend(part).soup.triangles, mend(part).soup.triangles);
    EXPECT_TRUE(mend(shuffled(part, 3)).isSound);
}

TEST(CrossingRepair, ACancelLeavesTheMeshAsItWas)
{
    Soup const part = partOf("scan-noise-strong");
    auto const kernel = kernelOf(part);
    for (int const limit : {1, 20, 40, 60, 70, 86, 95, 100}) {
        auto const cancel = [&](int percent) {
            if (percent >= limit)
                throw Mell::AbortException("Aborting...");
        };
        EXPECT_THROW(Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced(cancel),
                     Mell::AbortException);
        EXPECT_TRUE(trianglesOf(soupOf(*kernel)) == trianglesOf(part)) << limit;
    }
}

TEST(CrossingRepair, TheReportHasALineForEachThing)
{
    Mended const mended = mend(partOf("figure-of-eight"));
    auto const lines = Repair::linesOf(mended.report);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].find("Crossings resolved: "), 0u);
    EXPECT_NE(lines[0].find(", near ("), std::string::npos);
    EXPECT_STREQ(Repair::keyOf(Repair::Flaw::crossing), "crossings_resolved");
}
