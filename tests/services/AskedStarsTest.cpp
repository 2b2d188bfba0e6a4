// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/TrianglePair.h"
#include "host/services/boolean/AskedStars.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace {

std::function<void(int)> const nobody;

/// Triangles around vertex 0, from each neighbour to the next; the last neighbour's is the first's
/// if the star is closed.
MeshArrays starOf(std::vector<UPoint3<float>> const& neighbours, bool isClosed)
{
    MeshArrays mesh;
    mesh.points.push_back({0, 0, 0});
    mesh.points.insert(mesh.points.end(), neighbours.begin(), neighbours.end());
    std::uint32_t const count = std::uint32_t(neighbours.size());
    for (std::uint32_t i = 0; i < (isClosed ? count : count - 1); ++i)
        mesh.triangles.push_back({0, i + 1, (i + 1) % count + 1});
    return mesh;
}

/// Neighbours that go so many times round, at heights that make the star no plane.
std::vector<UPoint3<float>> turns(int count, double turns)
{
    std::vector<UPoint3<float>> neighbours;
    for (int i = 0; i < count; ++i) {
        double const angle = 2 * std::numbers::pi * turns * i / count;
        neighbours.push_back({float(std::cos(angle)), float(std::sin(angle)), 0.1f * float(i % 2)});
    }
    return neighbours;
}

bool isSpread(MeshArrays const& mesh)
{
    StageProgress progress(nobody);
    return starsOfAsked(mesh, std::vector<bool>(mesh.triangles.size(), true), progress)
               .isSpread[0] != 0;
}

}  // namespace

TEST(AskedStars, OneTurnAroundAVertexIsSpread)
{
    EXPECT_TRUE(isSpread(starOf(turns(7, 1), true)));
    EXPECT_TRUE(isSpread(starOf(turns(3, 1), true)));
}

TEST(AskedStars, WhatIsOpenOrGoesRoundTwiceIsNot)
{
    EXPECT_FALSE(isSpread(starOf(turns(7, 1), false)));
    EXPECT_FALSE(isSpread(starOf(turns(9, 2), true)));
    // More than one turn, but open: a ray may pass through one triangle of it all the same.
    EXPECT_FALSE(isSpread(starOf(turns(9, 1.1), false)));
}

TEST(AskedStars, ATriangleThatLiesThereTwiceSpoilsItsStars)
{
    MeshArrays mesh = starOf(turns(7, 1), true);
    mesh.triangles.push_back(mesh.triangles[2]);
    EXPECT_FALSE(isSpread(mesh));
}

TEST(AskedStars, OnlyVerticesOfTrianglesAskedAboutAreTold)
{
    Soup const soup = sphere(5, 7, 10);
    MeshArrays mesh;
    mesh.points = soup.points;
    mesh.triangles = soup.triangles;
    std::vector<bool> asked(mesh.triangles.size(), false);
    asked[20] = true;
    StageProgress progress(nobody);
    auto const report = starsOfAsked(mesh, asked, progress);
    for (std::uint32_t v = 0; v < mesh.points.size(); ++v) {
        auto const& c = mesh.triangles[20];
        EXPECT_EQ(report.isSpread[v] != 0, v == c[0] || v == c[1] || v == c[2]) << v;
    }
}

/// The promise that the search rests on: triangles at a spread vertex meet nowhere else.
TEST(AskedStars, TrianglesAtASpreadVertexMeetNowhereElse)
{
    std::mt19937 random(5);
    auto const between = [&](float low, float high) {
        return low + (high - low) * float(random() % 10001) / 10000;
    };
    int spread = 0;
    for (int round = 0; round < 3000; ++round) {
        auto neighbours = turns(3 + int(random() % 8), random() % 4 == 0 ? 2 : 1);
        float const size = between(0, 1.2f);
        for (auto& p : neighbours)
            p += UVector3<float>(between(-size, size), between(-size, size), between(-size, size));
        MeshArrays const mesh = starOf(neighbours, random() % 4 != 0);
        if (!isSpread(mesh))
            continue;
        ++spread;
        for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
            for (std::size_t u = t + 1; u < mesh.triangles.size(); ++u)
                ASSERT_FALSE(doTrianglesMeet(mesh, t, u)) << round;
    }
    EXPECT_GT(spread, 500);
}
