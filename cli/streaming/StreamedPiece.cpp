// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/StreamedPiece.h"

namespace {

UVector3<double> between(UPoint3<float> const& from, UPoint3<float> const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

}  // namespace

UVector3<float> FacetSums::add(Formats::Facet const& facet)
{
    UVector3<double> const normal = between(facet[0], facet[1]) * between(facet[0], facet[2]);
    double const length = normal.GetLength();
    ++m_triangles;
    m_area += length / 2;
    m_volume += (between(m_origin, facet[0]) | normal) / 6;
    m_edges.add(facet);
    for (UPoint3<float> const& corner : facet)
        m_box.Add(corner);
    double const divisor = length > 0 ? length : 1;
    return {float(normal.X() / divisor), float(normal.Y() / divisor), float(normal.Z() / divisor)};
}

void FacetSums::add(FacetSums const& other)
{
    m_edges.add(other.m_edges);
    m_triangles += other.m_triangles;
    m_volume += other.m_volume;
    m_area += other.m_area;
    m_box.Add(other.m_box);
}

MeshFacts FacetSums::facts() const
{
    MeshFacts facts;
    facts.triangles = m_triangles;
    facts.volume = m_volume;
    facts.area = m_area;
    facts.box = m_box;
    facts.closed = m_edges.isZero() && m_triangles > 0;
    return facts;
}
