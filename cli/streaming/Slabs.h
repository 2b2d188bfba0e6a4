// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Facet.h"
#include "platform/geometry/UVector3.h"

#include <optional>
#include <vector>

/// What parallel planes divide space into, numbered along their normal. What is so near to a plane that
/// rounding could put it there lies in none.
class Slabs
{
public:
    /// normal     of length one
    /// heights    of the planes above the origin along the normal, ascending, no two equal
    /// leastNear  what is within this distance of a plane counts as near wherever it lies
    Slabs(UVector3<double> const& normal, std::vector<double> heights, double leastNear = 0);

    std::size_t count() const { return m_heights.size() + 1; }
    std::vector<double> const& heights() const { return m_heights; }

    double heightOf(UPoint3<float> const& point) const;
    std::optional<std::size_t> of(UPoint3<float> const& point) const;
    /// The slab that all corners lie in.
    std::optional<std::size_t> of(Formats::Facet const& facet) const;
    /// The one that a height lies in.
    std::size_t around(double height) const;

private:
    /// The slab that heights from one to another lie in, with a margin.
    std::optional<std::size_t> between(double lowest, double highest, double near) const;
    /// What counts as near for a point whose largest coordinate has this size.
    double nearAt(float size) const;

    UVector3<double> m_normal;
    std::vector<double> m_heights;
    double m_leastNear;
    double m_reach = 0;
};
