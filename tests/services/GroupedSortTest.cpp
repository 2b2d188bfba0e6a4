// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/GroupedSort.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

TEST(GroupedSort, GivesWhatSortingAllOfItWould)
{
    std::mt19937 random(3);
    std::function<void(int)> const nobody;
    StageProgress progress(nobody);
    for (std::size_t const count : {0, 1, 2, 50, 3000})
        for (std::uint32_t const groups : {1u, 2u, 60u, 5000u}) {
            using Entry = std::pair<std::uint32_t, std::uint32_t>;
            std::vector<Entry> list;
            for (std::size_t i = 0; i < count; ++i)
                list.emplace_back(3 * (random() % groups), random() % 20);
            std::vector<Entry> expected = list;
            std::sort(expected.begin(), expected.end());
            expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
            sortInGroups(
                list, groups, [](Entry const& e) { return e.first / 3; }, progress);
            EXPECT_EQ(list, expected) << count << " in " << groups;
        }
}
