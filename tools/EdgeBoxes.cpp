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

std::vector<FlatBox> boxesOf(FlatRing const& outline)
{
    constexpr double far = std::numeric_limits<double>::infinity();
    bool const isUnbounded = isBeyondReach(outline);
    std::vector<FlatBox> boxes;
    boxes.reserve(outline.size());
    for (std::size_t i = 0; i < outline.size(); ++i) {
        UPoint2<float> const& p = outline[i];
        UPoint2<float> const& q = outline[(i + 1) % outline.size()];
        boxes.push_back(isUnbounded ? FlatBox{-far, -far, far, far}
                                    : FlatBox{std::min(p.X(), q.X()), std::min(p.Y(), q.Y()),
                                              std::max(p.X(), q.X()), std::max(p.Y(), q.Y())});
    }
    return boxes;
}

}  // namespace

EdgeBoxes::EdgeBoxes(FlatRing const& outline) : m_tree(boxesOf(outline)) {}

}  // namespace Freecut
