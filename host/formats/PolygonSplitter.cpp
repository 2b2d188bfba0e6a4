// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PolygonSplitter.h"

#include <cmath>

namespace Formats {
namespace {

/// Twice the polygon's area as a vector (Newell's sum), relative to the first corner.
UVector3<double> areaVector(std::span<UVertex<float>* const> corners)
{
    UPoint3<float> const origin = corners[0]->cP();
    auto const relative = [&](std::size_t i) {
        UPoint3<float> const p = corners[i]->cP();
        return UVector3<double>(double(p.X()) - origin.X(), double(p.Y()) - origin.Y(),
                                double(p.Z()) - origin.Z());
    };
    UVector3<double> sum;
    for (std::size_t i = 1; i + 1 < corners.size(); ++i)
        sum += relative(i) * relative(i + 1);
    return sum;
}

template <typename Corner>
double turn(Corner const& a, Corner const& b, Corner const& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

}  // namespace

void PolygonSplitter::add(std::span<UVertex<float>* const> corners)
{
    if (corners.size() == 3) {
        m_builder.addTriangle(corners[0], corners[1], corners[2]);
        return;
    }
    project(corners);
    m_next = 0;
    while (m_corners.size() > 3)
        if (!clipEar())
            break;
    addFan();
}

void PolygonSplitter::project(std::span<UVertex<float>* const> corners)
{
    // Dropping the coordinate in which the area vector is longest keeps the projection wide open;
    // the order of the other two keeps it anticlockwise.
    UVector3<double> const area = areaVector(corners);
    int dropped = 0;
    for (int i = 1; i < 3; ++i)
        if (std::abs(area[i]) > std::abs(area[dropped]))
            dropped = i;
    int u = (dropped + 1) % 3;
    int v = (dropped + 2) % 3;
    if (area[dropped] < 0)
        std::swap(u, v);
    m_corners.clear();
    for (UVertex<float>* const vertex : corners)
        if (m_corners.empty() || m_corners.back().vertex != vertex)
            m_corners.push_back({vertex, vertex->cP()[u], vertex->cP()[v]});
    while (m_corners.size() > 1 && m_corners.front().vertex == m_corners.back().vertex)
        m_corners.pop_back();
}

bool PolygonSplitter::clipEar()
{
    // Going on where the last ear was keeps the triangles of a convex polygon even.
    for (std::size_t tried = 0; tried < m_corners.size(); ++tried) {
        std::size_t const i = (m_next + tried) % m_corners.size();
        if (!isEar(i))
            continue;
        m_builder.addTriangle(m_corners[before(i)].vertex, m_corners[i].vertex,
                              m_corners[after(i)].vertex);
        m_corners.erase(m_corners.begin() + std::ptrdiff_t(i));
        m_next = i;
        return true;
    }
    return false;
}

bool PolygonSplitter::isEar(std::size_t i) const
{
    Corner const& a = m_corners[before(i)];
    Corner const& b = m_corners[i];
    Corner const& c = m_corners[after(i)];
    if (turn(a, b, c) <= 0)
        return false;
    for (Corner const& p : m_corners)
        if (p.vertex != a.vertex && p.vertex != b.vertex && p.vertex != c.vertex &&
            turn(a, b, p) >= 0 && turn(b, c, p) >= 0 && turn(c, a, p) >= 0)
            return false;
    return true;
}

void PolygonSplitter::addFan()
{
    for (std::size_t i = 1; i + 1 < m_corners.size(); ++i)
        m_builder.addTriangle(m_corners[0].vertex, m_corners[i].vertex, m_corners[i + 1].vertex);
}

}  // namespace Formats
