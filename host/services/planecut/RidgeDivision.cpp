// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/RidgeDivision.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace {

using Corners = std::array<std::uint32_t, 3>;

class RidgeDivider
{
public:
    RidgeDivider(CutPlane const& plane, SectionPoints& points, std::vector<Corners>& triangles)
        : m_plane(plane), m_points(points), m_triangles(triangles)
    {}

    void divideAt(std::vector<SectionEdge> const& ridges)
    {
        for (SectionEdge const& ridge : ridges)
            m_uses.try_emplace(keyOf(ridge.low, ridge.high));
        for (std::size_t t = 0; t < m_triangles.size(); ++t)
            for (std::size_t k = 0; k < 3; ++k)
                if (auto const use = useOf(t, k); use != m_uses.end())
                    use->second.push_back(t);
        for (SectionEdge const& ridge : ridges)
            divide(ridge);
    }

private:
    /// The triangles of the filling at an edge.
    using Uses = std::unordered_map<std::uint64_t, std::vector<std::size_t>>;

    static std::uint64_t keyOf(std::uint32_t a, std::uint32_t b)
    {
        return (std::uint64_t(std::min(a, b)) << 32) | std::max(a, b);
    }

    Uses::iterator useOf(std::size_t triangle, std::size_t edge)
    {
        Corners const& corners = m_triangles[triangle];
        return m_uses.find(keyOf(corners[edge], corners[(edge + 1) % 3]));
    }

    void divide(SectionEdge const& ridge)
    {
        std::vector<std::size_t> const triangles = m_uses[keyOf(ridge.low, ridge.high)];
        // At the border of the filling the wall beside it has the edge as well.
        if (triangles.size() != 2)
            return;
        auto const middle = middleOf(ridge);
        if (!middle)
            return;
        for (std::size_t const triangle : triangles)
            divide(triangle, ridge, *middle);
    }

    /// A new point, unless floats have none between the ends.
    std::optional<std::uint32_t> middleOf(SectionEdge const& ridge)
    {
        UPoint3<float> const &low = m_points.place(ridge.low), &high = m_points.place(ridge.high);
        auto const a = m_plane.project(low), b = m_plane.project(high);
        UPoint3<float> const middle = m_plane.lift({(a[0] + b[0]) / 2, (a[1] + b[1]) / 2});
        if (middle == low || middle == high)
            return {};
        return m_points.add(middle);
    }

    void divide(std::size_t triangle, SectionEdge const& ridge, std::uint32_t middle)
    {
        auto const isOfRidge = [&](std::uint32_t corner) {
            return corner == ridge.low || corner == ridge.high;
        };
        Corners& corners = m_triangles[triangle];
        while (isOfRidge(corners[2]))
            std::rotate(corners.begin(), corners.begin() + 1, corners.end());
        auto const [from, to, apex] = corners;
        std::size_t const added = m_triangles.size();
        if (auto const use = m_uses.find(keyOf(to, apex)); use != m_uses.end())
            std::replace(use->second.begin(), use->second.end(), triangle, added);
        corners = {from, middle, apex};
        m_triangles.push_back({middle, to, apex});
    }

    CutPlane const& m_plane;
    SectionPoints& m_points;
    std::vector<Corners>& m_triangles;
    Uses m_uses;
};

}  // namespace

void divideAtRidges(Contours const& contours, CutPlane const& plane, SectionPoints& points,
                    Exact::SectionFilling& filling)
{
    if (!contours.ridges.empty() && filling.layers <= 1)
        RidgeDivider(plane, points, filling.triangles).divideAt(contours.ridges);
}
