// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

// Operands out of order where neither a contact nor a line through a corner tells.
namespace {

/// Each triangle divided into four at the middles of its edges.
Soup quartered(Soup const& soup)
{
    Soup fine;
    for (auto const& t : soup.triangles) {
        UPoint3<float> const corners[] = {soup.points[t[0]], soup.points[t[1]], soup.points[t[2]]};
        std::uint32_t const first = std::uint32_t(fine.points.size());
        for (int k = 0; k < 3; ++k)
            fine.add(corners[k]);
        for (int k = 0; k < 3; ++k)
            fine.add(corners[k] + (corners[(k + 1) % 3] - corners[k]) * 0.5f);
        for (std::uint32_t k = 0; k < 3; ++k)
            fine.add(first + k, first + 3 + k, first + 3 + (k + 2) % 3);
        fine.add(first + 3, first + 4, first + 5);
    }
    fine.joinPoints();
    return fine;
}

}  // namespace

// Lines along x from the tool do not meet the wall, and the part is too large for its results to be
// held against it.
TEST(PartInDoubt, AWallThatTheToolPassesInItsMiddleIsLeftOut)
{
    constexpr int divisions = 5;
    Soup const tool = quartered(box(2, 2.2f, 6, {9, 9, 7}));
    for (bool const isForward : {false, true}) {
        Soup part = box(20, 20, 20), wall;
        for (auto const& [x, y] : {std::pair(0.0f, 0.0f), {20, 0}, {20, 20}, {0, 20}})
            wall.add(UPoint3<float>(x, y, 10));
        wall.add(0, isForward ? 1 : 2, isForward ? 2 : 1);
        wall.add(0, isForward ? 2 : 3, isForward ? 3 : 2);
        for (int i = 0; i < divisions; ++i) {
            part = quartered(part);
            wall = quartered(wall);
        }
        part.append(wall);
        part.joinPoints();
        ASSERT_GT(part.triangles.size(), 10'000u);
        Soup const rest = combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
        EXPECT_EQ(closedSolidFaults(rest), "");
        EXPECT_NEAR(volumeOf(rest), 8000 - 26.4, 0.01);
    }
}

// The same with a sheet that ends within the solid, which nothing says what to do about.
TEST(PartInDoubt, ASheetThatTheToolPassesInItsMiddleIsRefused)
{
    Soup const tool = quartered(box(2, 2.2f, 6, {9, 9, 7}));
    for (bool const isForward : {false, true}) {
        Soup part = box(20, 20, 20);
        for (int i = 0; i < 5; ++i)
            part = quartered(part);
        auto const first = std::uint32_t(part.points.size());
        for (auto const& [x, y] : {std::pair(5.0f, 5.0f), {15, 5}, {15, 15}, {5, 15}})
            part.add(UPoint3<float>(x, y, 10));
        for (std::uint32_t const k : {1u, 2u})
            part.add(first, first + (isForward ? k : k + 1), first + (isForward ? k + 1 : k));
        try {
            combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
            ADD_FAILURE() << "combined";
        } catch (Mell::Exception const& refusal) {
            EXPECT_NE(std::string(refusal.what()).find("The part is open near ("),
                      std::string::npos)
                << refusal.what();
        }
    }
}

// All of the tool's other triangles reach into the part, and the one that is turned does not: they
// must not be turned in its stead.
TEST(PartInDoubt, ATurnedTriangleOfTheToolBesideThePartIsTurnedBack)
{
    Soup const part = box(20, 20, 20);
    for (std::size_t t = 0; t < 12; ++t) {
        Soup tool = box(30, 10, 10, {-5, -0.0005f, 7});
        double const volume = volumeOf(combined(part, tool, Intersect::BOOLEAN_SUBTRACT));
        std::swap(tool.triangles[t][0], tool.triangles[t][1]);
        Soup rest;
        try {
            rest = combined(part, tool, Intersect::BOOLEAN_SUBTRACT);
        } catch (Mell::Exception const&) {
            ADD_FAILURE() << "refused " << t;
            continue;
        }
        EXPECT_EQ(closedSolidFaults(rest), "") << t;
        EXPECT_NEAR(volumeOf(rest), volume, 1e-3) << t;
    }
}
