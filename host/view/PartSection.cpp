// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartSection.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;

Vector widened(Point const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

/// Two unit vectors in a plane, at a right angle to each other.
std::pair<Vector, Vector> directionsIn(ViewPlane const& plane)
{
    Vector const& n = plane.normal;
    Vector least(1, 0, 0);
    if (std::abs(n.X()) > std::abs(n.Y()))
        least = std::abs(n.Y()) > std::abs(n.Z()) ? Vector(0, 0, 1) : Vector(0, 1, 0);
    else if (std::abs(n.X()) > std::abs(n.Z()))
        least = {0, 0, 1};
    Vector u = n * least;
    u.Normalize();
    Vector v = n * u;
    v.Normalize();
    return {u, v};
}

void addCover(std::vector<Point>& points, ViewPlane const& plane)
{
    auto const [u, v] = directionsIn(plane);
    constexpr double most = std::numeric_limits<double>::max();
    double low[2] = {most, most}, high[2] = {-most, -most};
    for (Point const& p : points) {
        double const place[2] = {widened(p) | u, widened(p) | v};
        for (int i = 0; i < 2; ++i) {
            low[i] = std::min(low[i], place[i]);
            high[i] = std::max(high[i], place[i]);
        }
    }
    Vector const foot = plane.normal * (plane.offset / (plane.normal | plane.normal));
    double const spare = 0.01 * std::max(high[0] - low[0], high[1] - low[1]);
    for (auto const& [i, j] : {std::pair(0, 0), {1, 0}, {1, 1}, {0, 1}}) {
        double const a = i ? high[0] + spare : low[0] - spare;
        double const b = j ? high[1] + spare : low[1] - spare;
        Vector const corner = foot + u * a + v * b;
        points.emplace_back(float(corner.X()), float(corner.Y()), float(corner.Z()));
    }
}

}  // namespace

PartSection::PartSection(PickTree const& tree, std::shared_ptr<UMesh<float> const> const& mesh,
                         ViewPlane const& plane)
    : m_mesh(mesh), m_triangles(mesh->triangles.size()), m_plane(plane)
{
    PlaneSection const section(tree, *mesh, plane);
    lines = section.lines();
    cap = section.areas();
    if (!cap.empty())
        addCover(cap, plane);
}

bool PartSection::isOf(std::shared_ptr<UMesh<float> const> const& mesh,
                       ViewPlane const& plane) const
{
    return m_mesh.lock() == mesh && m_triangles == mesh->triangles.size() && m_plane == plane;
}

PartSection::Points linesBelow(PartSection::Points const& lines, ViewPlane const& plane)
{
    PartSection::Points result;
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
        Point ends[2] = {lines[i], lines[i + 1]};
        double const heights[2] = {plane.heightOf(ends[0]), plane.heightOf(ends[1])};
        if (heights[0] > 0 && heights[1] > 0)
            continue;
        for (int k = 0; k < 2; ++k)
            if (heights[k] > 0) {
                double const t = heights[k] / (heights[k] - heights[1 - k]);
                ends[k] = ends[k] + (ends[1 - k] - ends[k]) * float(t);
            }
        result.insert(result.end(), {ends[0], ends[1]});
    }
    return result;
}
