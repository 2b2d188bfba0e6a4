// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/SpatialOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

TEST(SpatialOrder, OfSliversThatCrowdACellIsThatInWhichTheyLie)
{
    // Aslant, 0.004 mm apart in a part of 100 mm, as a cut leaves them between fine contours.
    constexpr int count = 5000;
    std::vector<int> places(count);
    for (int i = 0; i < count; ++i)
        places[std::size_t(i)] = i;
    std::shuffle(places.begin(), places.end(), std::mt19937(1));
    MeshArrays mesh;
    auto const add = [&](float ax, float bx, float by, float cx) {
        auto const first = std::uint32_t(mesh.points.size());
        mesh.points.push_back({ax, 0, 0});
        mesh.points.push_back({bx, by, 0});
        mesh.points.push_back({cx, 0, 0});
        mesh.triangles.push_back({first, first + 1, first + 2});
    };
    for (int const i : places)
        add(0.004f * float(i), 0.004f * float(i) + 1, 1, 0.004f * float(i + 1));
    add(0, 100, 100, 100);
    std::vector<std::uint32_t> const order =
        spatialOrder(mesh, std::vector<std::uint8_t>(mesh.triangles.size(), 0));
    ASSERT_EQ(order.size(), std::size_t(count + 1));
    // The long one comes last.
    EXPECT_EQ(order.back(), std::uint32_t(count));
    for (std::size_t i = 0; i < std::size_t(count); ++i)
        ASSERT_EQ(places[order[i]], int(i));
}
