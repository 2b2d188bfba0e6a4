// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/PointNumbers.h"

PointNumbers::PointNumbers(SectionPoints const& points) : m_points(points)
{
    for (CutSide const side : {sideAbove, sideBelow})
        for (std::uint32_t p = 0; p < points.size(); ++p)
            if (UVertex<float> const* const vertex = points.existingIn(side, p))
                m_sides[side].add(std::size_t(vertex->cID()), p);
}

std::uint32_t PointNumbers::operator()(CutSide side, UVertex<float> const* vertex) const
{
    std::uint32_t const point = m_sides[side].at(std::size_t(vertex->cID()));
    // Vertices beside the plane have identifiers of another kind.
    bool const isIt = point != WallCorner::none && m_points.existingIn(side, point) == vertex;
    return isIt ? point : WallCorner::none;
}

void PointNumbers::ByIdentifier::add(std::size_t identifier, std::uint32_t point)
{
    if (m_points.empty())
        m_first = identifier;
    if (identifier < m_first) {
        m_points.insert(m_points.begin(), m_first - identifier, WallCorner::none);
        m_first = identifier;
    }
    if (identifier - m_first >= m_points.size())
        m_points.resize(identifier - m_first + 1, WallCorner::none);
    m_points[identifier - m_first] = point;
}
