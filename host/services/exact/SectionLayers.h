// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/PlainTriangulation.h"

#include <functional>
#include <unordered_map>
#include <vector>

namespace Exact {

/// The points that segments use, in the order of use.
class PointsInUse
{
public:
    /// Numbers the ends of the segments anew.
    explicit PointsInUse(std::vector<SectionSegment>& segments)
    {
        std::unordered_map<std::uint32_t, std::uint32_t> places;
        auto const renumber = [&](std::uint32_t& point) {
            auto const [place, isNew] = places.try_emplace(point, std::uint32_t(m_numbers.size()));
            if (isNew)
                m_numbers.push_back(point);
            point = place->second;
        };
        for (SectionSegment& segment : segments) {
            renumber(segment.from);
            renumber(segment.to);
        }
    }

    template <typename Element>
    std::vector<Element> of(std::vector<Element> const& all) const
    {
        std::vector<Element> used;
        used.reserve(m_numbers.size());
        for (std::uint32_t const number : m_numbers)
            used.push_back(all[number]);
        return used;
    }

    /// The filling with the numbers from before.
    SectionFilling numbered(SectionFilling filling) const
    {
        for (auto& triangle : filling.triangles)
            for (std::uint32_t& corner : triangle)
                corner = m_numbers[corner];
        return filling;
    }

private:
    std::vector<std::uint32_t> m_numbers;
};

/// The filling that consists of some triangles, or of several layers. These share no edge inside:
/// each is filled from its own border alone, by `fillPart`, which may number the points anew in it.
SectionFilling layersOf(
    std::vector<PlaneFace> const& faces,
    std::function<SectionFilling(std::vector<SectionSegment>&)> const& fillPart);

}  // namespace Exact
