// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/NumberedPoints.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

using namespace Formats;

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

}  // namespace

/// Faces may ask for points between others, as those of some formats do.
TEST(NumberedPoints, HaveTheVerticesOfPointsJoinedOneByOne)
{
    std::mt19937 random(5);
    UMesh<float> oneByOne, many;
    PointJoiner expected(oneByOne, 10), joiner(many, 10);
    NumberedPoints points(joiner);
    std::vector<UVertex<float>*> vertices;
    for (int i = 0; i < 20000; ++i) {
        UPoint3<float> const point(float(random() % 30), float(random() % 30),
                                   float(random() % 30));
        vertices.push_back(expected.join(point));
        ASSERT_TRUE(points.add(point));
        ASSERT_EQ(points.size(), vertices.size());
        if (random() % 1000 == 0) {
            std::size_t const some = random() % points.size();
            ASSERT_EQ(points.at(some)->cID(), vertices[some]->cID());
        }
    }
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        ASSERT_EQ(points.at(i)->cID(), vertices[i]->cID());
        ASSERT_EQ(points.at(i)->cP(), vertices[i]->cP());
    }
    EXPECT_EQ(many.vertices.size(), oneByOne.vertices.size());
}

TEST(NumberedPoints, GiveNoNumberToWhatIsNoPlace)
{
    UMesh<float> mesh;
    PointJoiner joiner(mesh, 10);
    NumberedPoints points(joiner);
    EXPECT_TRUE(points.add({1, 2, 3}));
    EXPECT_FALSE(points.add({1, notANumber, 3}));
    EXPECT_FALSE(points.add({infinite, 2, 3}));
    EXPECT_FALSE(points.add({1, 2, -infinite}));
    EXPECT_TRUE(points.add({4, 5, 6}));
    ASSERT_EQ(points.size(), 2u);
    EXPECT_EQ(points.at(1)->cP(), UPoint3<float>(4, 5, 6));
    EXPECT_EQ(mesh.vertices.size(), 2u);
}
