// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/FaceTriangulation.h"

#include <tbb/parallel_sort.h>

#include <algorithm>
#include <cstdint>
#include <vector>

/// The segment between two points, whichever way it runs.
inline FaceSegment undirected(std::uint32_t a, std::uint32_t b)
{
    return {std::min(a, b), std::max(a, b)};
}

/// Sorts a list and leaves each entry in it once.
template <typename T>
void sortUniquely(std::vector<T>& list, StageProgress& progress)
{
    // A long sort is left by what the progress throws.
    tbb::parallel_sort(list.begin(), list.end(), [&](T const& a, T const& b) {
        thread_local unsigned steps = 0;
        if (++steps % 65536 == 0)
            progress.add(0);
        return a < b;
    });
    list.erase(std::unique(list.begin(), list.end()), list.end());
}
