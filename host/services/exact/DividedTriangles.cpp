// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/DividedTriangles.h"

#include "host/services/exact/Arrangement.h"

#include <algorithm>
#include <cmath>

namespace Exact {

namespace {

using Point = Arrangement::Point;

/// Whether a point may lie in a triangle, by the triangle's box.
bool isNear(MeshArrays const& soup, std::uint32_t triangle, std::array<double, 3> const& point)
{
    for (int axis = 0; axis < 3; ++axis) {
        double const a = soup.point(triangle, 0)[axis], b = soup.point(triangle, 1)[axis],
                     c = soup.point(triangle, 2)[axis];
        // Rounding to double is far below this.
        double const slack = 1e-12 * (std::abs(a) + std::abs(b) + std::abs(c));
        double const p = point[std::size_t(axis)];
        if (p < std::min({a, b, c}) - slack || p > std::max({a, b, c}) + slack)
            return false;
    }
    return true;
}

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

std::vector<std::uint32_t> DividedTriangles::trianglesUnder(std::size_t facet) const
{
    Point const exact = m_exactly->middle(m_facets[facet].corners);
    std::array<double, 3> const rounded{CGAL::to_double(exact.x()), CGAL::to_double(exact.y()),
                                        CGAL::to_double(exact.z())};
    std::vector<std::uint32_t> under;
    for (std::uint32_t t = 0; t < m_soup.triangles.size(); ++t) {
        if (!isNear(m_soup, t, rounded))
            continue;
        auto const corner = [&](int k) {
            MeshArrays::Point const& p = m_soup.point(t, k);
            return Point(p.X(), p.Y(), p.Z());
        };
        if (t == m_facets[facet].triangle ||
            ExactKernel::Triangle_3(corner(0), corner(1), corner(2)).has_on(exact))
            under.push_back(t);
    }
    return under;
}

}  // namespace Exact
