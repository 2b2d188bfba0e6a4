// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ExactWinding.h"

#include "host/services/Polling.h"

#include <iterator>
#include <random>

ExactWinding::ExactWinding(MeshArrays const& mesh, StageProgress& progress)
{
    std::vector<Point> points;
    points.reserve(mesh.points.size());
    Polling polling(progress);
    for (MeshArrays::Point const& p : mesh.points) {
        polling.step();
        points.emplace_back(p.X(), p.Y(), p.Z());
    }
    m_triangles.reserve(mesh.triangles.size());
    for (MeshArrays::Corners const& c : mesh.triangles) {
        polling.step();
        m_triangles.emplace_back(points[c[0]], points[c[1]], points[c[2]]);
    }
    m_tree.insert(m_triangles.cbegin(), m_triangles.cend());
}

ExactWinding::Triangle const* ExactWinding::triangleAt(Point const& point,
                                                       StageProgress& progress) const
{
    PollingScope const polling(progress);
    auto const found = m_tree.any_intersected_primitive(point);
    return found ? &**found : nullptr;
}

/// Counts the crossings of a ray by their direction. Returns false where the ray meets an edge.
bool ExactWinding::tryDirection(Point const& point, Vector const& direction, int& winding) const
{
    Point const far = point + direction;
    std::vector<Tree::Primitive_id> crossed;
    m_tree.all_intersected_primitives(ExactKernel::Ray_3(point, far), std::back_inserter(crossed));
    winding = 0;
    for (auto const& place : crossed) {
        Triangle const& t = *place;
        if (t.has_on(point))
            continue;
        int sum = 0;
        for (int k = 0; k < 3; ++k) {
            auto const side = CGAL::orientation(point, far, t[k], t[k + 1]);
            if (side == CGAL::COPLANAR)
                return false;
            sum += side == CGAL::POSITIVE ? 1 : -1;
        }
        // Seen along the ray, a triangle that runs clockwise is left by its front.
        winding += sum > 0 ? 1 : -1;
    }
    return true;
}

int ExactWinding::beside(Point const& point, Vector const& side, StageProgress& progress) const
{
    // The ray may go anywhere on the right side; directions of full doubles avoid edges.
    std::mt19937 random(1);
    std::uniform_real_distribution<double> coordinate(-1, 1);
    int winding = 0;
    PollingScope const polling(progress);
    for (;;) {
        progress.add(0);
        double const x = coordinate(random), y = coordinate(random), z = coordinate(random);
        Vector direction(x, y, z);
        auto const facing = CGAL::sign(direction * side);
        if (facing == CGAL::ZERO)
            continue;
        if (facing == CGAL::NEGATIVE)
            direction = -direction;
        if (tryDirection(point, direction, winding))
            return winding;
    }
}

ExactWinding::Sides ExactWinding::around(Point const& point, Vector const& normal,
                                         StageProgress& progress) const
{
    int const front = beside(point, normal, progress);
    std::vector<Tree::Primitive_id> here;
    {
        PollingScope const polling(progress);
        m_tree.all_intersected_primitives(point, std::back_inserter(here));
    }
    // From its front to its back a triangle adds one.
    int step = 0;
    for (auto const& place : here) {
        Triangle const& t = *place;
        Point const above = point + normal;
        auto const way = CGAL::orientation(t[0], t[1], t[2], above);
        if (way == CGAL::COPLANAR)
            return {front, beside(point, -normal, progress)};
        for (int k = 0; k < 3; ++k)
            if (CGAL::orientation(point, above, t[k], t[k + 1]) == CGAL::COPLANAR)
                return {front, beside(point, -normal, progress)};
        step += way == CGAL::POSITIVE ? 1 : -1;
    }
    return {front, front + step};
}
