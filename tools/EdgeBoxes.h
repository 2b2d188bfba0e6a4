// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Freecut {

/// The boxes around the edges of a closed outline, and around runs of edges, so that edges that are
/// far apart need not be compared.
class EdgeBoxes
{
public:
    explicit EdgeBoxes(FlatRing const& outline);

    /// Calls `visit` with every edge from `first` on, in rising order, whose box shares a point
    /// with that of the edge.
    template <typename Visit>
    void forEachNear(std::size_t edge, std::size_t first, Visit const& visit) const
    {
        Box const& box = m_edges[edge];
        for (std::size_t run = first / runLength; run < m_runs.size(); ++run) {
            if (!box.meets(m_runs[run]))
                continue;
            std::size_t const end = std::min((run + 1) * runLength, m_edges.size());
            for (std::size_t other = std::max(first, run * runLength); other < end; ++other)
                if (box.meets(m_edges[other]))
                    visit(other);
        }
    }

private:
    struct Box
    {
        float lowX, lowY, highX, highY;

        bool meets(Box const& o) const
        {
            return lowX <= o.highX && o.lowX <= highX && lowY <= o.highY && o.lowY <= highY;
        }
        void add(Box const& o)
        {
            lowX = std::min(lowX, o.lowX);
            lowY = std::min(lowY, o.lowY);
            highX = std::max(highX, o.highX);
            highY = std::max(highY, o.highY);
        }
    };

    static constexpr std::size_t runLength = 32;

    std::vector<Box> m_edges;
    std::vector<Box> m_runs;
};

}  // namespace Freecut
