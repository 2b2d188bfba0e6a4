// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/DisjointSets.h"

#include <gtest/gtest.h>

TEST(DisjointSets, EachMemberIsASetOfItsOwnAtFirst)
{
    DisjointSets sets(3);
    for (std::uint32_t member : {0u, 1u, 2u})
        EXPECT_EQ(sets.root(member), member);
}

TEST(DisjointSets, TheRootIsTheSmallestMemberInAnyOrderOfJoins)
{
    DisjointSets sets(6);
    sets.unite(4, 5);
    sets.unite(3, 4);
    sets.unite(5, 2);
    for (std::uint32_t member : {2u, 3u, 4u, 5u})
        EXPECT_EQ(sets.root(member), 2u);
    EXPECT_EQ(sets.root(1), 1u);
}

TEST(DisjointSets, TellsWhetherTwoSetsBecameOne)
{
    DisjointSets sets(4);
    EXPECT_TRUE(sets.unite(0, 1));
    EXPECT_TRUE(sets.unite(3, 1));
    EXPECT_FALSE(sets.unite(0, 3));
    EXPECT_FALSE(sets.unite(2, 2));
}
