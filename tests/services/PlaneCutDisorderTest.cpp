// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/PlaneCutNotes.h"
#include "tests/services/CutFamilies.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/PieceJudge.h"
#include "tests/support/PieceRules.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

// A part whose triangles face different ways, or lie there more than once, gives pieces that are
// closed at the cut; elsewhere they stay as they were.
namespace {

constexpr UVector3<float> up(0, 0, 1);

struct NotedCut
{
    Soup above;
    Soup below;
    PlaneCutNotes notes;
};

NotedCut cutWithNotes(Soup const& part, MeshKernel const& plane)
{
    auto const kernel = kernelOf(part);
    MeshKernel above, below;
    PlaneCutNotes notes = cutByPlaneWithNotes(*kernel, plane, above, below, nullptr, {});
    return {soupOf(above), soupOf(below), std::move(notes)};
}

NotedCut cutAt(Soup const& part, float z)
{
    return cutWithNotes(part, *planeMesh({0, 0, z}, up, 500));
}

/// A box with the places of its triangles that meet the plane z.
std::vector<std::size_t> meeting(Soup const& part, float z)
{
    std::vector<std::size_t> found;
    for (std::size_t t = 0; t < part.triangles.size(); ++t) {
        auto const& c = part.triangles[t];
        float const heights[] = {part.points[c[0]].Z(), part.points[c[1]].Z(),
                                 part.points[c[2]].Z()};
        if (*std::min_element(heights, heights + 3) < z &&
            *std::max_element(heights, heights + 3) > z)
            found.push_back(t);
    }
    return found;
}

void turn(Soup& part, std::size_t triangle)
{
    std::swap(part.triangles[triangle][1], part.triangles[triangle][2]);
}

std::string failureOf(Soup const& part, MeshKernel const& plane)
{
    try {
        cutWithNotes(part, plane);
    } catch (Mell::Exception const& e) {
        return e.what();
    }
    return {};
}

Soup partOf(std::string const& name)
{
    auto const parts = corpus::parts();
    auto const found = std::find_if(parts.begin(), parts.end(),
                                    [&](corpus::Part const& part) { return part.name == name; });
    EXPECT_NE(found, parts.end()) << name;
    return found->soup;
}

}  // namespace

// One triangle in two of a side is turned: neither the section's direction nor its winding number
// tell there what is inside.
TEST(PlaneCutDisorder, ATurnedTriangleAtThePlaneIsTurnedBack)
{
    Soup const sound = box(20, 30, 10);
    for (std::size_t const t : meeting(sound, 4)) {
        Soup part = sound;
        turn(part, t);
        NotedCut const cut = cutAt(part, 4);
        EXPECT_EQ(closedSolidFaults(cut.above), "");
        EXPECT_EQ(closedSolidFaults(cut.below), "");
        EXPECT_NEAR(volumeOf(cut.above), 3600, 1e-2);
        EXPECT_NEAR(volumeOf(cut.below), 2400, 1e-2);
        ASSERT_EQ(cut.notes.turned.size(), 1u);
        EXPECT_TRUE(cut.notes.doubled.empty());
        auto const& corners = part.triangles[t];
        EXPECT_TRUE(std::any_of(corners.begin(), corners.end(), [&](std::uint32_t corner) {
            return part.points[corner] == cut.notes.turned[0];
        }));
    }
}

TEST(PlaneCutDisorder, ADoubledTriangleAtThePlaneIsLeftOut)
{
    Soup const sound = box(20, 30, 10);
    for (bool const isTurned : {false, true})
        for (std::size_t const t : meeting(sound, 4)) {
            Soup part = sound;
            part.triangles.push_back(part.triangles[t]);
            if (isTurned)
                turn(part, part.triangles.size() - 1);
            NotedCut const cut = cutAt(part, 4);
            EXPECT_EQ(closedSolidFaults(cut.above), "");
            EXPECT_EQ(closedSolidFaults(cut.below), "");
            EXPECT_NEAR(volumeOf(cut.above), 3600, 1e-2);
            EXPECT_NEAR(volumeOf(cut.below), 2400, 1e-2);
            EXPECT_EQ(cut.notes.doubled.size(), 1u);
        }
}

TEST(PlaneCutDisorder, DoublesSideBySideAreLeftOutTogether)
{
    Soup part = box(20, 30, 10);
    auto const walls = meeting(part, 4);
    for (std::size_t const t : walls)
        if (std::all_of(part.triangles[t].begin(), part.triangles[t].end(),
                        [&](std::uint32_t corner) { return part.points[corner].X() == 20; }))
            part.triangles.push_back(part.triangles[t]);
    ASSERT_EQ(part.triangles.size(), 14u);
    NotedCut const cut = cutAt(part, 4);
    EXPECT_EQ(closedSolidFaults(cut.above), "");
    EXPECT_EQ(closedSolidFaults(cut.below), "");
    EXPECT_EQ(cut.notes.doubled.size(), 2u);
}

TEST(PlaneCutDisorder, ASolidThatLiesThereTwiceIsTwoLayers)
{
    Soup part = box(20, 30, 10);
    part.append(part);
    part.joinPoints();
    NotedCut const cut = cutAt(part, 4);
    EXPECT_EQ(closedSolidFaults(cut.above), "");
    EXPECT_NEAR(volumeOf(cut.above), 7200, 1e-2);
    EXPECT_NEAR(volumeOf(cut.below), 4800, 1e-2);
    EXPECT_TRUE(cut.notes.doubled.empty() && cut.notes.turned.empty());
}

// To keep one of three would be to take a layer away all around.
TEST(PlaneCutDisorder, OfATriangleThatLiesThereThriceInTwoLayersOneIsLeftOut)
{
    Soup const sound = box(20, 30, 10);
    for (std::size_t const t : meeting(sound, 4)) {
        Soup part = sound;
        part.append(sound);
        part.joinPoints();
        part.triangles.push_back(part.triangles[t]);
        NotedCut const cut = cutAt(part, 4);
        EXPECT_EQ(closedSolidFaults(cut.above), "");
        EXPECT_EQ(closedSolidFaults(cut.below), "");
        EXPECT_NEAR(volumeOf(cut.above), 7200, 1e-2);
        EXPECT_NEAR(volumeOf(cut.below), 4800, 1e-2);
        EXPECT_EQ(cut.notes.doubled.size(), 1u);
    }
}

TEST(PlaneCutDisorder, WhatTheCutDoesNotMeetStaysTurnedAndDoubled)
{
    Soup part = lattice(3);
    UBox3<float> const bounds = kernelOf(part)->GetBox();
    auto const isHigh = [&](std::array<std::uint32_t, 3> const& t) {
        return std::all_of(t.begin(), t.end(), [&](std::uint32_t corner) {
            return part.points[corner].Z() >= 0.9f * bounds.MaxZ();
        });
    };
    auto const high = std::find_if(part.triangles.begin(), part.triangles.end(), isHigh);
    ASSERT_NE(high, part.triangles.end());
    std::swap((*high)[1], (*high)[2]);
    float const z = 0.31f * bounds.MaxZ();
    turn(part, meeting(part, z).front());
    NotedCut const cut = cutAt(part, z);
    EXPECT_EQ(cut.notes.turned.size(), 1u);
    EXPECT_EQ(closedSolidFaults(cut.below), "");
    EXPECT_EQ(judge::edgesOf(cut.above).disagreeing, 3u);
}

// Half of the surface faces the other way: it is turned as a whole, or what is left of it would
// disagree with the strip at the cut.
TEST(PlaneCutDisorder, APatchIsTurnedAsAWhole)
{
    Soup const sound = sphere(17, 14, 20);
    Soup part = sound;
    std::size_t turned = 0;
    for (std::size_t t = 0; t < part.triangles.size(); ++t) {
        auto const& c = part.triangles[t];
        if (std::all_of(c.begin(), c.end(),
                        [&](std::uint32_t corner) { return part.points[corner].X() > 3; })) {
            turn(part, t);
            ++turned;
        }
    }
    for (float const z : {-4.3f, 0.7f, 9.1f}) {
        NotedCut const cut = cutAt(part, z);
        EXPECT_EQ(cut.notes.turned.size(), turned);
        EXPECT_EQ(closedSolidFaults(cut.above), "");
        EXPECT_EQ(closedSolidFaults(cut.below), "");
        EXPECT_NEAR(volumeOf(cut.above) + volumeOf(cut.below), volumeOf(sound), 1e-2);
    }
}

TEST(PlaneCutDisorder, NoPieceOfTheCorpusIsWorseThanItsPart)
{
    for (char const* name : {"flipped", "duplicated", "duplicated-and-flipped", "inner-wall"}) {
        Soup const part = partOf(name);
        judge::Source const source(part);
        UBox3<float> const bounds = kernelOf(part)->GetBox();
        for (float const share : {0.08f, 0.23f, 0.41f, 0.5f, 0.66f, 0.87f}) {
            float const z = bounds.MinZ() + share * (bounds.MaxZ() - bounds.MinZ());
            NotedCut const cut = cutAt(part, z);
            judge::Rule const rule =
                judge::planeRule({{0, 0, double(z)}, {0, 0, 1}}, source.margin());
            auto const faults = judge::faultsOf(source, {cut.above, cut.below}, rule, 100);
            EXPECT_EQ(faults.open + faults.wrong, "") << name << " at " << z;
        }
    }
}

// A band of one side has no outside, whichever of its triangles are turned.
TEST(PlaneCutDisorder, ABandOfOneSideIsRefusedWithItsPlace)
{
    Soup band = partOf("moebius-band");
    // Closed by a fan over its border, so that it is not open.
    auto const kernel = kernelOf(band);
    Soup closed = band;
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> uses;
    for (auto const& t : band.triangles)
        for (std::size_t i = 0; i < 3; ++i)
            ++uses[std::minmax(t[i], t[(i + 1) % 3])];
    std::uint32_t const tip = closed.add({3, 2, 40});
    for (auto const& [edge, count] : uses)
        if (count == 1)
            closed.add(edge.first, edge.second, tip);
    std::string const text = failureOf(closed, *planeMesh({0, 0, 1.3f}, up, 500));
    EXPECT_NE(
        text.find("Triangles of the part face different ways where the plane meets it, near ("),
        std::string::npos)
        << text;
}

TEST(PlaneCutDisorder, TheSameInputGivesTheSameBytesAndReportsRise)
{
    Soup const part = partOf("duplicated-and-flipped");
    auto const kernel = kernelOf(part);
    auto const plane = planeMesh({0, 0, 1.1f}, up, 500);
    std::vector<int> reports;
    auto const first = cut(*kernel, *plane, [&](int percent) { reports.push_back(percent); });
    auto const second = cut(*kernel, *plane);
    EXPECT_EQ(bytesOf(first->above), bytesOf(second->above));
    EXPECT_EQ(bytesOf(first->below), bytesOf(second->below));
    EXPECT_TRUE(std::is_sorted(reports.begin(), reports.end()));
    EXPECT_EQ(reports.back(), 100);
}
