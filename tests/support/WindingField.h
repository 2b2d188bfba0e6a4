// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "tests/support/TriangleBoxes.h"

#include <optional>

namespace judge {

/// How often a surface winds around points, for judging results only.
class WindingField
{
public:
    explicit WindingField(Soup soup);
    WindingField(WindingField const&) = delete;
    WindingField& operator=(WindingField const&) = delete;

    Soup const& soup() const { return m_soup; }
    UBox3<float> bounds() const { return m_boxes.bounds(); }

    /// By the crossings of a ray upwards; right for closed surfaces only. None where the ray passes
    /// an edge too closely for doubles to tell: take another point.
    std::optional<int> windingAt(UPoint3<double> const& p) const;
    /// By solid angles (after van Oosterom and Strackee, 1983): a fraction for surfaces with a
    /// border. Slow.
    double solidAngleAt(UPoint3<double> const& p) const;
    /// Whether a triangle comes as near to the point as this.
    bool isWithin(double distance, UPoint3<double> const& p) const;

private:
    Soup m_soup;
    TriangleBoxes m_boxes;
};

}  // namespace judge
