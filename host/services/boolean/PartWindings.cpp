// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PartWindings.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <utility>

namespace {

struct Lines
{
    std::vector<LinePassage> sums;
    std::vector<bool> isOpen;
};

}  // namespace

PartWindings windingsOfPart(UMesh<float> const& part, std::span<RayOrigin const> points,
                            StageProgress& progress)
{
    using Range = tbb::blocked_range<std::size_t>;
    std::vector<std::pair<double, std::size_t>> order;
    double margin = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        order.emplace_back(points[i].place[1], i);
        margin = std::max(margin, 2 * points[i].error);
    }
    std::sort(order.begin(), order.end());
    Lines const lines = tbb::parallel_reduce(
        Range(0, part.triangles.size(), 4096),
        Lines{std::vector<LinePassage>(points.size()), std::vector<bool>(points.size(), false)},
        [&](Range const& range, Lines found) {
            for (std::size_t t = range.begin(); t != range.end(); ++t) {
                UTriangle<float> const& triangle = *part.triangles[t];
                UPoint3<float> const a = triangle.cP(0), b = triangle.cP(1), c = triangle.cP(2);
                auto const [low, high] = std::minmax({a[1], b[1], c[1]});
                auto next = std::lower_bound(order.begin(), order.end(),
                                             std::pair(low - margin, std::size_t(0)));
                for (; next != order.end() && next->first <= high + margin; ++next)
                    if (auto const passage = linePassage(points[next->second], a, b, c))
                        found.sums[next->second] += *passage;
                    else
                        found.isOpen[next->second] = true;
            }
            progress.add(0);
            return found;
        },
        [](Lines a, Lines const& b) {
            for (std::size_t i = 0; i < a.sums.size(); ++i) {
                a.sums[i] += b.sums[i];
                a.isOpen[i] = a.isOpen[i] || b.isOpen[i];
            }
            return a;
        });
    PartWindings windings;
    windings.numbers.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        bool const isBalanced = lines.sums[i].ahead == lines.sums[i].back;
        windings.isOpen |= !isBalanced;
        if (!lines.isOpen[i] && isBalanced)
            windings.numbers[i] = lines.sums[i].ahead;
    }
    return windings;
}
