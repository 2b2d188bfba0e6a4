// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>

// What no repair can decide stays, and is told with places.
namespace {

using Flaw = Repair::Flaw;

Repair::Report::Item const* leftOf(Repair::Report const& report, Flaw flaw)
{
    for (auto const& item : report.left)
        if (item.flaw == flaw)
            return &item;
    return nullptr;
}

void expectTold(Repair::Report const& report, Flaw flaw)
{
    auto const* const item = leftOf(report, flaw);
    ASSERT_NE(item, nullptr);
    EXPECT_GT(item->count, 0u);
    EXPECT_FALSE(item->places.empty());
    EXPECT_FALSE(item->reason.empty());
}

/// A box with a wall within: edges of three triangles along its border.
Soup boxWithWall()
{
    Soup soup = box(10, 10, 10);
    auto const at = [&](float x, float y, float z) {
        auto const found =
            std::find(soup.points.begin(), soup.points.end(), UPoint3<float>(x, y, z));
        return std::uint32_t(found - soup.points.begin());
    };
    soup.add(at(0, 0, 0), at(10, 10, 0), at(10, 10, 10));
    soup.add(at(0, 0, 0), at(10, 10, 10), at(0, 0, 10));
    return soup;
}

}  // namespace

TEST(EdgeFlaws, AMoebiusBandStaysAndIsToldToHaveOneSide)
{
    Soup const band = corpus::moebiusBand(40);
    auto const kernel = kernelOf(band);
    Repair::RepairMethods repair(kernel.get());
    EXPECT_FALSE(repair.autoRepair_simple_advanced({}));
    EXPECT_EQ(soupOf(*kernel).triangles, band.triangles);
    EXPECT_EQ(soupOf(*kernel).points, band.points);
    expectTold(repair.report(), Flaw::inconsistentEdge);
    expectTold(repair.report(), Flaw::hole);
    EXPECT_EQ(repair.report().countOf(Flaw::hole), 0u);
    auto const lines = Repair::linesOf(repair.report());
    EXPECT_NE(lines.back().find("one side only"), std::string::npos) << lines.back();
}

TEST(EdgeFlaws, BesideAMoebiusBandTheRestIsMended)
{
    Soup part = openBox(200, 200, 200);
    for (auto& point : part.points)
        point.X() += 1000;
    Soup const band = corpus::moebiusBand(40);
    part.append(band);
    auto const kernel = kernelOf(part);
    Repair::RepairMethods repair(kernel.get());
    EXPECT_FALSE(repair.autoRepair_simple_advanced({}));
    EXPECT_EQ(repair.report().countOf(Flaw::hole), 1u);
    EXPECT_EQ(borderEdgesOf(soupOf(*kernel)), borderEdgesOf(band));
    expectTold(repair.report(), Flaw::inconsistentEdge);
}

TEST(EdgeFlaws, AWallWithinThatStaysIsNamed)
{
    auto const kernel = kernelOf(boxWithWall());
    Repair::RepairMethods repair(kernel.get());
    bool const isSound = repair.autoRepair_simple_advanced({});
    Repair::EvaluateErrors errors(kernel.get());
    errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, true, true, {});
    EXPECT_EQ(isSound, errors.counts().total() == 0);
    if (errors.counts().nonManifoldEdges > 0)
        expectTold(repair.report(), Flaw::crowdedEdge);
    else
        EXPECT_EQ(leftOf(repair.report(), Flaw::crowdedEdge), nullptr);
}

TEST(EdgeFlaws, ACutTellsOfTheEdgesThatItMeetsAndOfNoOthers)
{
    Soup part = boxWithWall();
    Soup far = boxWithWall();
    for (auto& point : far.points)
        point.Z() += 500;
    part.append(far);
    auto const source = kernelOf(part);
    Soup rectangle;
    for (auto const& [x, y] : {std::pair(-900, -900), {900, -900}, {900, 900}, {-900, 900}})
        rectangle.add({float(x), float(y), 5.5f});
    rectangle.add(0, 1, 2);
    rectangle.add(2, 3, 0);
    auto const plane = kernelOf(rectangle);
    MeshKernel above, below, section;
    Intersect::cutByPlane(source.get(), plane.get(), &above, &below, &section, {}, true);
    Repair::RepairMethods repair(&above, Repair::Scope::madeFrom(*source));
    EXPECT_FALSE(repair.autoRepair_simple_advanced({}));
    expectTold(repair.report(), Flaw::crowdedEdge);
    for (UPoint3<float> const& place : leftOf(repair.report(), Flaw::crowdedEdge)->places)
        EXPECT_LT(place.Z(), 100);
}
