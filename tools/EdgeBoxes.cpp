// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/EdgeBoxes.h"

#include <cmath>
#include <limits>

namespace Freecut {

namespace {

/// Up to here products of differences of whole coordinates are exact in double, so that edges whose
/// boxes are apart can neither cross nor touch. Beyond it rounding may tell otherwise.
constexpr float exactReach = 33554432;

bool isBeyondReach(FlatRing const& outline)
{
    return std::any_of(outline.begin(), outline.end(), [](UPoint2<float> const& p) {
        // Written so that what is no number counts as beyond, too.
        return !(std::abs(p.X()) <= exactReach && std::abs(p.Y()) <= exactReach);
    });
}

}  // namespace

EdgeBoxes::EdgeBoxes(FlatRing const& outline)
{
    constexpr float far = std::numeric_limits<float>::infinity();
    bool const isUnbounded = isBeyondReach(outline);
    m_edges.reserve(outline.size());
    for (std::size_t i = 0; i < outline.size(); ++i) {
        UPoint2<float> const& p = outline[i];
        UPoint2<float> const& q = outline[(i + 1) % outline.size()];
        m_edges.push_back(isUnbounded ? Box{-far, -far, far, far}
                                      : Box{std::min(p.X(), q.X()), std::min(p.Y(), q.Y()),
                                            std::max(p.X(), q.X()), std::max(p.Y(), q.Y())});
        if (i % runLength == 0)
            m_runs.push_back(m_edges.back());
        else
            m_runs.back().add(m_edges.back());
    }
}

}  // namespace Freecut
