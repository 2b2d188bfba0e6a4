// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/DividedTriangles.h"

#include "host/services/exact/Arrangement.h"

namespace Exact {

namespace {

using Point = Arrangement::Point;

}  // namespace

struct DividedTriangles::Exactly
{
    Arrangement arrangement;

    Point middle(MeshArrays::Corners const& c) const
    {
        return CGAL::centroid(arrangement.point(c[0]), arrangement.point(c[1]),
                              arrangement.point(c[2]));
    }
};

DividedTriangles::DividedTriangles(MeshArrays const& soup, StageProgress& progress)
    : m_soup(soup), m_exactly(new Exactly{Arrangement(soup, 0, progress)})
{
    Arrangement const& arrangement = m_exactly->arrangement;
    for (Arrangement::Facet const& facet : arrangement.facets())
        m_facets.push_back({facet.corners, facet.triangle});
    m_points = soup.points;
    for (std::uint32_t i = std::uint32_t(soup.points.size()); i < arrangement.pointCount(); ++i) {
        progress.add(0);
        Point const p = arrangement.point(i);
        m_points.emplace_back(nearestFloat(p.x()), nearestFloat(p.y()), nearestFloat(p.z()));
    }
}

DividedTriangles::~DividedTriangles() = default;

std::array<double, 3> DividedTriangles::middle(std::size_t facet) const
{
    Point const p = m_exactly->middle(m_facets[facet].corners);
    return {CGAL::to_double(p.x()), CGAL::to_double(p.y()), CGAL::to_double(p.z())};
}

std::vector<std::uint32_t> DividedTriangles::trianglesUnder(
    std::size_t facet, std::vector<std::uint32_t> const& candidates) const
{
    Point const middle = m_exactly->middle(m_facets[facet].corners);
    std::vector<std::uint32_t> under;
    for (std::uint32_t const t : candidates) {
        auto const corner = [&](int k) {
            MeshArrays::Point const& p = m_soup.point(t, k);
            return Point(p.X(), p.Y(), p.Z());
        };
        if (ExactKernel::Triangle_3(corner(0), corner(1), corner(2)).has_on(middle))
            under.push_back(t);
    }
    return under;
}

}  // namespace Exact
