// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>
#include <cstdint>

/// A place in a triangle: one of its corners, the inside of one of its edges, or its inside. Edge k
/// joins corner k and the next one.
class TrianglePlace
{
public:
    static constexpr TrianglePlace corner(int k) { return TrianglePlace(k); }
    static constexpr TrianglePlace edge(int k) { return TrianglePlace(3 + k); }
    static constexpr TrianglePlace face() { return TrianglePlace(6); }

    constexpr bool isCorner() const { return m_code < 3; }
    constexpr bool isEdge() const { return m_code >= 3 && m_code < 6; }
    constexpr bool isFace() const { return m_code == 6; }
    /// Which corner or edge.
    constexpr int index() const { return m_code % 3; }

    /// Whether the place lies on the given edge, its ends included.
    constexpr bool isOnEdge(int k) const
    {
        return isEdge() ? index() == k : isCorner() && (index() == k || index() == (k + 1) % 3);
    }

    constexpr bool operator==(TrianglePlace const&) const = default;

private:
    explicit constexpr TrianglePlace(int code) : m_code(std::int8_t(code)) {}
    std::int8_t m_code;
};

/// What two triangles have in common, as far as it bounds a piece: nothing, one point, or a segment
/// from one point to another. Triangles in one plane count as having nothing in common: what bounds
/// their overlap comes from their neighbours.
struct TriangleContact
{
    /// A point of both triangles. Where neither place is a corner, it is where an edge of one of
    /// them, `isEdgeOfFirst` tells which, passes through the other's plane, or where edges of both
    /// cross in one plane.
    struct Point
    {
        TrianglePlace inFirst = TrianglePlace::face();
        TrianglePlace inSecond = TrianglePlace::face();
        bool isEdgeOfFirst = true;
        bool isInOnePlane = false;

        bool isSameAs(Point const& o) const
        {
            return inFirst == o.inFirst && inSecond == o.inSecond;
        }
    };

    int count = 0;
    bool isCoplanar = false;
    /// A segment runs along the cross product of the normals of the first triangle and the second:
    /// on its left the first triangle lies behind the second, the second in front of the first.
    std::array<Point, 2> points;
};

using TriangleCorners = std::array<UPoint3<float>, 3>;

/// Exact. Both triangles have an area.
TriangleContact contactOf(TriangleCorners const& first, TriangleCorners const& second);

/// What an edge of the first triangle has in common with the second, which lies in its plane: a
/// segment from the edge's start towards its end, or nothing. Exact.
TriangleContact contactOfEdge(TriangleCorners const& first, int edge,
                              TriangleCorners const& second);
