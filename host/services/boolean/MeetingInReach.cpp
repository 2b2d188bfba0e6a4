// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/MeetingInReach.h"

#include "host/mesh/ExactSigns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

// Own derivation. The volume of a tetrahedron is linear in each corner: when one moves by less than
// a reach, it changes by less than the reach times the face opposite to it. So a volume larger than
// that keeps its sign, and the same holds of areas seen along an axis. Where all signs that a test of
// two triangles asks for are kept, so is its answer.
namespace {

using ExactSigns::Offset;
using Index = MeetingInReach::Index;
using Corners = MeshArrays::Corners;

double squaredNormal(Offset const& u, Offset const& v)
{
    double const x = u.y * v.z - u.z * v.y, y = u.z * v.x - u.x * v.z, z = u.x * v.y - u.y * v.x;
    return x * x + y * y + z * z;
}

int signBeyond(double value, double bound)
{
    return value > bound ? 1 : value < -bound ? -1 : 0;
}

/// Turns two triangles so that the points they share come first, in the same order in both. Returns
/// how many they are.
std::size_t alignShared(Corners& t, Corners& u)
{
    std::size_t shared = 0;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = shared; k < 3; ++k)
            if (t[i] == u[k]) {
                std::swap(t[shared], t[i]);
                std::swap(u[shared], u[k]);
                ++shared;
                break;
            }
    return shared;
}

}  // namespace

/// The side of a triangle's plane on which a point stays; 0 if that is not certain.
int MeetingInReach::sideOf(Corners const& plane, Index point) const
{
    auto const& points = m_mesh.points;
    Offset const u(points[plane[0]], points[plane[1]]), v(points[plane[0]], points[plane[2]]),
        w(points[plane[0]], points[point]);
    double const volume = w.x * (u.y * v.z - u.z * v.y) + w.y * (u.z * v.x - u.x * v.z) +
                          w.z * (u.x * v.y - u.y * v.x);
    auto const size = [this](double a, double b, double c) {
        return std::max({std::abs(a), std::abs(b), std::abs(c)}) + m_reach;
    };
    double const rounding = ExactSigns::volumeErrorBound * size(u.x, v.x, w.x) *
                            size(u.y, v.y, w.y) * size(u.z, v.z, w.z);
    if (std::abs(volume) <= rounding)
        return 0;
    double squared = 0;
    if (m_moved == point)
        squared = squaredNormal(u, v);
    else if (m_moved == plane[1])
        squared = squaredNormal(v, w);
    else if (m_moved == plane[2])
        squared = squaredNormal(u, w);
    else if (m_moved == plane[0])
        squared = squaredNormal(Offset(points[plane[1]], points[plane[2]]),
                                Offset(points[plane[1]], points[point]));
    return signBeyond(volume, rounding + m_reach * std::sqrt(squared));
}

/// Whether a to b to c stays a left turn, 1, or a right turn, -1, as it is seen along an axis; 0 if
/// that is not certain.
int MeetingInReach::sideSeenAlong(int axis, Index a, Index b, Index c) const
{
    std::size_t const i = std::size_t(axis + 1) % 3, k = std::size_t(axis + 2) % 3;
    auto const flat = [&](Index from, Index to) {
        auto const &p = m_mesh.points[from], &q = m_mesh.points[to];
        return std::array{double(q[i]) - p[i], double(q[k]) - p[k]};
    };
    auto const u = flat(a, b), v = flat(a, c);
    double const area = u[0] * v[1] - u[1] * v[0];
    double const rounding = ExactSigns::volumeErrorBound *
                            (std::max(std::abs(u[0]), std::abs(v[0])) + m_reach) *
                            (std::max(std::abs(u[1]), std::abs(v[1])) + m_reach);
    double side = 0;
    if (m_moved == a) {
        auto const opposite = flat(b, c);
        side = std::abs(opposite[0]) + std::abs(opposite[1]);
    } else if (m_moved == b)
        side = std::abs(v[0]) + std::abs(v[1]);
    else if (m_moved == c)
        side = std::abs(u[0]) + std::abs(u[1]);
    return signBeyond(area, rounding + m_reach * side);
}

/// The axis along which a triangle is seen largest.
int MeetingInReach::droppableAxis(Corners const& t) const
{
    auto const& points = m_mesh.points;
    Offset const u(points[t[0]], points[t[1]]), v(points[t[0]], points[t[2]]);
    double const size[3] = {std::abs(u.y * v.z - u.z * v.y), std::abs(u.z * v.x - u.x * v.z),
                            std::abs(u.x * v.y - u.y * v.x)};
    return int(std::max_element(size, size + 3) - size);
}

/// Whether the corners of a triangle that it does not share stay on one side of another's plane.
bool MeetingInReach::isBesidePlane(Corners const& plane, Corners const& t, std::size_t shared) const
{
    int const side = sideOf(plane, t[shared]);
    for (std::size_t i = shared + 1; side != 0 && i < 3; ++i)
        if (sideOf(plane, t[i]) != side)
            return false;
    return side != 0;
}

/// Whether an edge of the first keeps them apart, as they are seen along an axis.
bool MeetingInReach::doesEdgePart(Corners const& t, Corners const& u, std::size_t shared,
                                  int axis) const
{
    for (std::size_t i = 0; i < 3; ++i) {
        std::size_t const j = (i + 1) % 3, k = (i + 2) % 3;
        // What they share lies on the edge then.
        if (k < shared)
            continue;
        int const side = sideSeenAlong(axis, t[i], t[j], t[k]);
        bool parts = side != 0;
        for (std::size_t m = shared; parts && m < 3; ++m)
            parts = sideSeenAlong(axis, t[i], t[j], u[m]) == -side;
        if (parts)
            return true;
    }
    return false;
}

bool MeetingInReach::areParted(Corners const& t, Corners const& u, std::size_t shared) const
{
    int const axis = droppableAxis(t);
    return doesEdgePart(t, u, shared, axis) || doesEdgePart(u, t, shared, axis);
}

bool MeetingInReach::isNone(std::size_t t, std::size_t u) const
{
    Corners p = m_mesh.triangles[t], q = m_mesh.triangles[u];
    std::size_t const shared = alignShared(p, q);
    return shared < 3 &&
           (isBesidePlane(p, q, shared) || isBesidePlane(q, p, shared) || areParted(p, q, shared));
}

/// Whether an edge of the first passes through the inside of the second.
bool MeetingInReach::doesEdgePass(Corners const& edges, Corners const& through,
                                  std::size_t shared) const
{
    std::array<int, 3> sides{};
    for (std::size_t i = shared; i < 3; ++i)
        sides[i] = sideOf(through, edges[i]);
    for (std::size_t i = shared; i < 3; ++i) {
        std::size_t const j = i + 1 < 3 ? i + 1 : shared;
        if (sides[i] * sides[j] >= 0)
            continue;
        int sum = 0;
        for (std::size_t k = 0; k < 3; ++k)
            sum += sideOf({edges[i], edges[j], through[k]}, through[(k + 1) % 3]);
        if (std::abs(sum) == 3)
            return true;
    }
    return false;
}

bool MeetingInReach::isCertain(std::size_t t, std::size_t u) const
{
    Corners p = m_mesh.triangles[t], q = m_mesh.triangles[u];
    std::size_t const shared = alignShared(p, q);
    auto const hasArea = [this](Corners const& c) {
        return sideSeenAlong(droppableAxis(c), c[0], c[1], c[2]) != 0;
    };
    return shared < 2 && hasArea(p) && hasArea(q) &&
           (doesEdgePass(p, q, shared) || doesEdgePass(q, p, shared));
}
