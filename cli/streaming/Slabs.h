// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Facet.h"

#include <optional>
#include <vector>

/// What horizontal planes divide space into, numbered from below. What is so near to a plane that
/// rounding could put it there lies in none.
class Slabs
{
public:
    /// heights  ascending, each another number in single precision
    explicit Slabs(std::vector<double> heights);

    std::size_t count() const { return m_heights.size() + 1; }

    std::optional<std::size_t> of(UPoint3<float> const& point) const;
    /// The slab that all corners lie in.
    std::optional<std::size_t> of(Formats::Facet const& facet) const;
    /// The one that a height lies in.
    std::size_t around(double height) const;

private:
    std::vector<double> m_heights;
    double m_reach = 0;
};
