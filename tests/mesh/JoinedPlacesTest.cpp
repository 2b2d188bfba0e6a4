// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/JoinedPlaces.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>

namespace {

/// By a search tree.
std::vector<std::uint32_t> firstPlaces(std::vector<UPoint3<float>> const& points)
{
    std::map<std::array<float, 3>, std::uint32_t> first;
    std::vector<std::uint32_t> places;
    for (std::uint32_t i = 0; i < points.size(); ++i)
        places.push_back(first.emplace(std::array{points[i].X(), points[i].Y(), points[i].Z()}, i)
                             .first->second);
    return places;
}

}  // namespace

TEST(JoinedPlaces, AreThoseOfTheFirstPointWithTheSameCoordinates)
{
    std::mt19937 random(1);
    for (std::size_t const count : {0u, 1u, 127u, 128u, 129u, 1000u, 20000u})
        for (int const range : {2, 10, 1000}) {
            std::vector<UPoint3<float>> points(count);
            for (auto& p : points)
                for (int axis = 0; axis < 3; ++axis)
                    p[axis] = float(int(random() % unsigned(range)) - range / 2) / 3;
            EXPECT_EQ(joinedPlaces(points), firstPlaces(points)) << count << " " << range;
        }
}

TEST(JoinedPlaces, NegativeZeroIsZero)
{
    std::vector<UPoint3<float>> const points{{1, 0, 0}, {0, -0.0f, 0}, {-0.0f, 0, 0}};
    EXPECT_EQ(joinedPlaces(points), (std::vector<std::uint32_t>{0, 1, 1}));
}
