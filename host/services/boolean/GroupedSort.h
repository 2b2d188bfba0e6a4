// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/Polling.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Puts a list in ascending order without repetition, where entries fall into small groups that
/// follow each other: each goes to the place of its group by counting, and is sorted there.
///
/// groupOf  gives an entry's group, below `groups`; never less for a greater entry
/// cost     linear in the entries and groups, but for the sorting of each group
template <typename T, typename GroupOf>
void sortInGroups(std::vector<T>& list, std::size_t groups, GroupOf const& groupOf,
                  StageProgress& progress)
{
    Polling polling(progress);
    std::vector<std::uint32_t> ends(groups + 1, 0);
    for (T const& entry : list) {
        polling.step();
        ++ends[groupOf(entry) + 1];
    }
    for (std::size_t group = 1; group <= groups; ++group, polling.step())
        ends[group] += ends[group - 1];
    // Each entry moves the beginning of its group on to the end.
    std::vector<T> sorted(list.size());
    for (T const& entry : list) {
        polling.step();
        sorted[ends[groupOf(entry)]++] = entry;
    }
    std::size_t kept = 0, begin = 0;
    for (std::size_t group = 0; group < groups; ++group, polling.step()) {
        std::size_t const end = ends[group];
        std::sort(sorted.begin() + std::ptrdiff_t(begin), sorted.begin() + std::ptrdiff_t(end),
                  [&](T const& a, T const& b) {
                      polling.step();
                      return a < b;
                  });
        for (std::size_t i = begin; i < end; ++i)
            if (i == begin || !(sorted[i] == sorted[i - 1]))
                list[kept++] = sorted[i];
        begin = end;
    }
    list.resize(kept);
}
