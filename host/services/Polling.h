// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

/// Asks for a cancel now and then in a loop of many small steps. On the thread of the progress.
class Polling
{
public:
    /// interval  so many steps should take some milliseconds at most
    explicit Polling(StageProgress& progress, unsigned interval = 4096)
        : m_progress(progress), m_interval(interval)
    {}

    /// Counts one step. Throws what the progress throws.
    void step()
    {
        if (++m_steps % m_interval == 0)
            m_progress.add(0);
    }

private:
    StageProgress& m_progress;
    unsigned m_interval;
    unsigned m_steps = 0;
};

/// Sorts a list that may be long. A cancel leaves it in any order.
///
/// isStable  whether elements of which neither is less keep their order
template <bool isStable = false, typename List, typename Less>
void sortPolled(List& list, StageProgress& progress, Less const& isLess)
{
    Polling polling(progress);
    auto const isLessPolled = [&](auto const& a, auto const& b) {
        polling.step();
        return isLess(a, b);
    };
    if constexpr (isStable)
        std::stable_sort(std::begin(list), std::end(list), isLessPolled);
    else
        std::sort(std::begin(list), std::end(list), isLessPolled);
}
