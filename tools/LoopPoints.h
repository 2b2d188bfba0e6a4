// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Freecut {

/// The points of a loop that are left while ears are cut from it, coordinate by coordinate, so that
/// many are tested against a triangle at once.
class LoopPoints
{
public:
    explicit LoopPoints(Ring const& points);

    void remove(std::uint32_t point);

    /// A point that lies inside a triangle; none if there is none. Each test gives the very answer
    /// of isPointInTriangle.
    std::optional<std::uint32_t> findInside(UPoint3<float> const& a, UPoint3<float> const& b,
                                            UPoint3<float> const& c) const;

private:
    // In no order; padded with points that are no numbers to a whole number of blocks.
    std::vector<float> m_x;
    std::vector<float> m_y;
    std::vector<float> m_z;
    std::vector<std::uint32_t> m_points;
    /// Where a point stands in the lists above.
    std::vector<std::uint32_t> m_places;
};

}  // namespace Freecut
