// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/FlawPlaces.h"
#include "platform/services/Repair.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using Repair::FlawKind;
using Repair::FlawPlace;

namespace {

struct Checked
{
    std::vector<FlawPlace> places;
    Repair::EvaluateErrors::Counts counts;

    std::size_t sum(FlawKind kind) const
    {
        std::size_t result = 0;
        for (FlawPlace const& place : places)
            result += place.kind == kind ? place.count : 0;
        return result;
    }
};

Checked check(Soup const& soup, std::size_t most = 1000)
{
    auto const kernel = kernelOf(soup);
    Repair::EvaluateErrors errors(kernel.get());
    errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, false, true, {});
    return {Repair::placesOf(*errors.survey(), most), errors.counts()};
}

}  // namespace

TEST(FlawPlaces, OfACleanSolidAreNone)
{
    for (auto const& [name, soup] : closedMeshes())
        EXPECT_EQ(check(soup).places.empty(), check(soup).counts.total() == 0) << name;
    EXPECT_EQ(check(box(1, 1, 1)).counts.total(), 0u);
}

TEST(FlawPlaces, AHoleIsOnePlaceWithItsRim)
{
    Soup soup = openBox(4, 5, 6);
    Soup other = openBox(4, 5, 6);
    for (auto& point : other.points)
        point.X() += 10;
    soup.append(other);
    Checked const checked = check(soup);
    ASSERT_EQ(checked.places.size(), 2u);
    for (FlawPlace const& place : checked.places) {
        EXPECT_EQ(place.kind, FlawKind::OpenEdges);
        EXPECT_EQ(place.count, 4u);
        ASSERT_EQ(place.lines.size(), 8u);
        double length = 0;
        for (std::size_t i = 0; i < 8; i += 2) {
            EXPECT_EQ(place.lines[i].Z(), 6);
            length += double((place.lines[i + 1] - place.lines[i]).GetLength());
        }
        EXPECT_NEAR(length, 2 * (4 + 5), 1e-5);
        EXPECT_EQ(place.point.Z(), 6);
    }
    EXPECT_LT(checked.places[0].point.X(), checked.places[1].point.X());
}

TEST(FlawPlaces, CrossingsAreFoundPairByPair)
{
    Checked const checked = check(crossingBoxes());
    ASSERT_GT(checked.counts.selfIntersections, 0u);
    EXPECT_EQ(checked.sum(FlawKind::Crossing), checked.counts.selfIntersections);
    EXPECT_EQ(checked.places.size(), 1u);
}

TEST(FlawPlaces, AShellInsideOutIsMarkedByItsBox)
{
    Soup soup = box(1, 1, 1);
    Soup turned = box(2, 3, 4, {5, 0, 0});
    turned.flip();
    soup.append(turned);
    Checked const checked = check(soup);
    ASSERT_EQ(checked.places.size(), 1u);
    FlawPlace const& place = checked.places[0];
    EXPECT_EQ(place.kind, FlawKind::TurnedShell);
    double length = 0;
    for (std::size_t i = 0; i < place.lines.size(); i += 2)
        length += double((place.lines[i + 1] - place.lines[i]).GetLength());
    EXPECT_NEAR(length, 4 * (2 + 3 + 4), 1e-5);
}

TEST(FlawPlaces, AddUpToTheCountsOfEachKind)
{
    // A triangle turned round, one twice, one of no area, and an edge of four.
    Soup soup = boxesSharingAnEdge();
    std::swap(soup.triangles[0][1], soup.triangles[0][2]);
    soup.triangles.push_back(soup.triangles[5]);
    Soup flat;
    flat.add(flat.add({9, 0, 0}), flat.add({10, 0, 0}), flat.add({11, 0, 0}));
    soup.append(flat);
    Checked const checked = check(soup);
    auto const& counts = checked.counts;
    EXPECT_GT(counts.inconsistentEdges, 0u);
    EXPECT_GT(counts.nonManifoldEdges, 0u);
    EXPECT_EQ(checked.sum(FlawKind::OpenEdges), counts.borderEdges);
    EXPECT_EQ(checked.sum(FlawKind::CrowdedEdges), counts.nonManifoldEdges);
    EXPECT_EQ(checked.sum(FlawKind::InconsistentEdges), counts.inconsistentEdges);
    EXPECT_EQ(checked.sum(FlawKind::DegenerateTriangle), counts.degenerateTriangles);
    EXPECT_EQ(checked.sum(FlawKind::DuplicateTriangle), counts.duplicateTriangles);
    EXPECT_EQ(counts.degenerateTriangles, 1u);
    EXPECT_EQ(counts.duplicateTriangles, 1u);
}

TEST(FlawPlaces, AreNoMoreThanAskedOfEachKind)
{
    Soup soup;
    for (int i = 0; i < 9; ++i) {
        Soup tray = openBox(1, 1, 1);
        for (auto& point : tray.points)
            point.X() += 2 * float(i);
        soup.append(tray);
    }
    EXPECT_EQ(check(soup).places.size(), 9u);
    EXPECT_EQ(check(soup, 5).places.size(), 5u);
}

TEST(FlawPlaces, CanBeGivenUpWhereverTheSearchTakesLong)
{
    // Nothing but crossings in the one, nothing but open edges in the other.
    Soup crossing = sphere(10, 60, 120);
    Soup other = sphere(10, 60, 120);
    for (auto& point : other.points)
        point.X() += 7;
    crossing.append(other);
    Soup open = sphere(10, 60, 120);
    open.triangles.pop_back();
    for (Soup const& soup : {crossing, open}) {
        auto const kernel = kernelOf(soup);
        Repair::EvaluateErrors errors(kernel.get());
        errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, false, true, {});
        int polls = 0;
        auto const counted = Repair::placesOf(*errors.survey(), 1000, [&] { ++polls; });
        EXPECT_EQ(counted.size(), Repair::placesOf(*errors.survey(), 1000).size());
        ASSERT_GT(polls, 1);
        // At whichever poll it is.
        for (int last = 1; last <= polls; ++last) {
            int left = last;
            EXPECT_THROW(Repair::placesOf(*errors.survey(), 1000,
                                          [&] {
                                              if (--left == 0)
                                                  throw Mell::AbortException("Aborting...");
                                          }),
                         Mell::AbortException);
        }
    }
}
