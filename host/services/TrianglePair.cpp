// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/TrianglePair.h"

#include "host/mesh/ExactSigns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

// Own derivation. Closed triangles are convex, so two of them meet exactly if an edge of one
// meets the other. If they share a vertex v and meet in x as well, they meet along the ray from v
// through x as far as the first of them ends, which is on the edge opposite to v. If they share an
// edge, they meet elsewhere exactly if they lie on the same side of it in one plane.
namespace {

using ExactSigns::Offset;
using ExactSigns::orient2d;
using ExactSigns::orient3d;
using Point = MeshArrays::Point;

/// A triangle turned so that the vertices it shares come first.
struct Turned
{
    std::array<Point const*, 3> points;
    Point const& operator[](int i) const { return *points[i]; }
};

/// An axis along which the triangle does not look like a line.
int droppableAxis(Turned const& t)
{
    int axis = 0;
    while (axis < 2 && orient2d(t[0], t[1], t[2], axis) == 0)
        ++axis;
    return axis;
}

bool isBetween(Point const& p, Point const& a, Point const& b, int axis)
{
    for (int i : {(axis + 1) % 3, (axis + 2) % 3})
        if (p[i] < std::min(a[i], b[i]) || p[i] > std::max(a[i], b[i]))
            return false;
    return true;
}

bool doSegmentsMeet(Point const& a, Point const& b, Point const& c, Point const& d, int axis)
{
    int const ofC = orient2d(a, b, c, axis);
    int const ofD = orient2d(a, b, d, axis);
    int const ofA = orient2d(c, d, a, axis);
    int const ofB = orient2d(c, d, b, axis);
    if (ofC * ofD < 0 && ofA * ofB < 0)
        return true;
    return (ofC == 0 && isBetween(c, a, b, axis)) || (ofD == 0 && isBetween(d, a, b, axis)) ||
           (ofA == 0 && isBetween(a, c, d, axis)) || (ofB == 0 && isBetween(b, c, d, axis));
}

bool isInside(Point const& p, Turned const& t, int axis)
{
    int lowest = 1, highest = -1;
    for (int i = 0; i < 3; ++i) {
        int const side = orient2d(t[i], t[(i + 1) % 3], p, axis);
        lowest = std::min(lowest, side);
        highest = std::max(highest, side);
    }
    return lowest >= 0 || highest <= 0;
}

bool doesSegmentMeetInPlane(Point const& a, Point const& b, Turned const& t)
{
    int const axis = droppableAxis(t);
    if (isInside(a, t, axis))
        return true;
    for (int i = 0; i < 3; ++i)
        if (doSegmentsMeet(a, b, t[i], t[(i + 1) % 3], axis))
            return true;
    return false;
}

/// sideA, sideB  the sides of the plane of t on which a and b lie
bool doesSegmentMeet(Point const& a, Point const& b, int sideA, int sideB, Turned const& t)
{
    if (sideA * sideB > 0)
        return false;
    if (sideA == 0 && sideB == 0)
        return doesSegmentMeetInPlane(a, b, t);
    int lowest = 1, highest = -1;
    for (int i = 0; i < 3 && (i == 0 || lowest >= 0 || highest <= 0); ++i) {
        int const side = orient3d(a, b, t[i], t[(i + 1) % 3]);
        lowest = std::min(lowest, side);
        highest = std::max(highest, side);
    }
    return lowest >= 0 || highest <= 0;
}

struct Sides
{
    Sides(Turned const& plane, Turned const& t, int from) : side{}
    {
        for (int i = from; i < 3; ++i)
            side[i] = orient3d(plane[0], plane[1], plane[2], t[i]);
    }
    int operator[](int i) const { return side[i]; }
    int side[3];
};

bool doDisjointMeet(Turned const& p, Turned const& q)
{
    Sides const ofQ(p, q, 0);
    Sides const ofP(q, p, 0);
    for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3;
        if (doesSegmentMeet(q[i], q[j], ofQ[i], ofQ[j], p) ||
            doesSegmentMeet(p[i], p[j], ofP[i], ofP[j], q))
            return true;
    }
    return false;
}

bool doFansMeet(Turned const& p, Turned const& q)
{
    Sides const ofQ(p, q, 1);
    if (ofQ[1] * ofQ[2] > 0)
        return false;
    Sides const ofP(q, p, 1);
    return doesSegmentMeet(q[1], q[2], ofQ[1], ofQ[2], p) ||
           doesSegmentMeet(p[1], p[2], ofP[1], ofP[2], q);
}

bool areFolded(Turned const& p, Turned const& q)
{
    if (orient3d(p[0], p[1], p[2], q[2]) != 0)
        return false;
    int const axis = droppableAxis(p);
    return orient2d(p[0], p[1], p[2], axis) == orient2d(p[0], p[1], q[2], axis);
}

double planeSide(Offset const& u, Offset const& v, Offset const& w)
{
    return w.x * (u.y * v.z - u.z * v.y) + w.y * (u.z * v.x - u.x * v.z) +
           w.z * (u.x * v.y - u.y * v.x);
}

/// Whether q, but for the vertices that both share, certainly lies on one side of the plane of p.
bool isBesidePlane(Turned const& p, Turned const& q, int shared)
{
    Offset const u(p[0], p[1]), v(p[0], p[2]);
    double size[3] = {std::max(std::abs(u.x), std::abs(v.x)),
                      std::max(std::abs(u.y), std::abs(v.y)),
                      std::max(std::abs(u.z), std::abs(v.z))};
    double lowest = std::numeric_limits<double>::infinity(), highest = -lowest;
    for (int i = shared; i < 3; ++i) {
        Offset const w(p[0], q[i]);
        size[0] = std::max(size[0], std::abs(w.x));
        size[1] = std::max(size[1], std::abs(w.y));
        size[2] = std::max(size[2], std::abs(w.z));
        double const side = planeSide(u, v, w);
        lowest = std::min(lowest, side);
        highest = std::max(highest, side);
    }
    double const bound = ExactSigns::volumeErrorBound * size[0] * size[1] * size[2];
    return lowest > bound || highest < -bound;
}

/// Turns both triangles so that what they share comes first, in the same order in both. Returns how
/// many points they share.
int alignShared(Turned& p, Turned& q)
{
    int shared = 0;
    for (int i = 0; i < 3; ++i)
        for (int j = shared; j < 3; ++j)
            if (p[i] == q[j]) {
                std::swap(p.points[shared], p.points[i]);
                std::swap(q.points[shared], q.points[j]);
                ++shared;
                break;
            }
    return shared;
}

/// Which side of the line from a to b the point p lies on, seen along an axis; 0 if rounding might
/// decide.
int certainSide(Point const& a, Point const& b, Point const& p, int axis)
{
    constexpr double errorBound = 0x1p-49;
    int const u = (axis + 1) % 3, v = (axis + 2) % 3;
    double const left = (double(b[u]) - a[u]) * (double(p[v]) - a[v]);
    double const right = (double(b[v]) - a[v]) * (double(p[u]) - a[u]);
    double const area = left - right;
    double const bound = errorBound * (std::abs(left) + std::abs(right));
    return area > bound ? 1 : area < -bound ? -1 : 0;
}

/// Whether an edge of p certainly keeps q apart, seen along an axis. A vertex that both share,
/// which then is their first one, may lie on the edge.
bool doesEdgePart(Turned const& p, Turned const& q, int shared, int axis)
{
    for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3, k = (i + 2) % 3;
        if (shared == 1 && k == 0)
            continue;
        int const side = certainSide(p[i], p[j], p[k], axis);
        bool parts = side != 0;
        for (int m = shared; parts && m < 3; ++m)
            parts = certainSide(p[i], p[j], q[m], axis) == -side;
        if (parts)
            return true;
    }
    return false;
}

/// Whether triangles with at most one common vertex certainly have nothing else in common as they
/// are seen along an axis, and so in space. Most triangles of a flat face are told apart by this.
bool areApart(Turned const& p, Turned const& q, int shared)
{
    Offset const u(p[0], p[1]), v(p[0], p[2]);
    double const size[3] = {std::abs(u.y * v.z - u.z * v.y), std::abs(u.z * v.x - u.x * v.z),
                            std::abs(u.x * v.y - u.y * v.x)};
    int const axis = int(std::max_element(size, size + 3) - size);
    return doesEdgePart(p, q, shared, axis) || doesEdgePart(q, p, shared, axis);
}

bool areDuplicates(MeshArrays::Corners const& s, MeshArrays::Corners const& t)
{
    for (std::uint32_t vertex : s)
        if (vertex != t[0] && vertex != t[1] && vertex != t[2])
            return false;
    return true;
}

}  // namespace

bool doTrianglesMeet(MeshArrays const& mesh, std::size_t first, std::size_t second)
{
    Turned p{{&mesh.point(first, 0), &mesh.point(first, 1), &mesh.point(first, 2)}};
    Turned q{{&mesh.point(second, 0), &mesh.point(second, 1), &mesh.point(second, 2)}};
    int const shared = alignShared(p, q);
    if (shared < 2 &&
        (isBesidePlane(p, q, shared) || isBesidePlane(q, p, shared) || areApart(p, q, shared)))
        return false;
    switch (shared) {
        case 0:
            return doDisjointMeet(p, q);
        case 1:
            return doFansMeet(p, q);
        case 2:
            return areFolded(p, q);
        default:
            return !areDuplicates(mesh.triangles[first], mesh.triangles[second]);
    }
}
