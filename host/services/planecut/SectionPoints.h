// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/planecut/FlatPlaceHash.h"
#include "host/services/planecut/SideCopies.h"

#include <array>
#include <cstdint>
#include <vector>

/// The points in which a part's edges and vertices meet the plane, each once: points whose
/// plane coordinates coincide after rounding are one point, so that a section contour never has an
/// edge of no length.
class SectionPoints
{
public:
    using Vertex = UVertex<float>;

    SectionPoints(SideCopies& copies, UMesh<float> const& source, CutPlane const& plane);

    /// The vertices, by place, onto which the section point of one of their edges rounds, for the
    /// given triangles. They are to count as in the plane before any point is asked for.
    std::vector<std::uint32_t> verticesInPlane(
        std::vector<UTriangle<float> const*> const& meeting) const;

    /// Makes room for about as many points.
    void reserve(std::size_t count);

    std::uint32_t ofVertex(std::uint32_t vertexPlace);
    std::uint32_t ofEdge(std::uint32_t belowPlace, std::uint32_t abovePlace);
    /// A point that belongs to no edge, where contours cross.
    std::uint32_t add(UPoint3<float> const& place);

    /// Forgets what the points were made of: the places of the source are not asked for any more.
    void forgetOrigins();

    std::size_t size() const { return m_points.size(); }
    UPoint3<float> const& place(std::uint32_t point) const { return m_points[point].place; }

    /// Moves a point, and its vertices with it.
    void move(std::uint32_t point, UPoint3<float> const& place);

    /// The point's vertex in one half, or null.
    Vertex const* existingIn(CutSide side, std::uint32_t point) const
    {
        return m_points[point].copies[side];
    }
    /// The point's vertex in one half, made at the first call.
    Vertex* vertexIn(CutSide side, std::uint32_t point);

private:
    struct Point
    {
        UPoint3<float> place;
        std::array<Vertex*, 2> copies{};
    };

    struct KeyHash
    {
        std::uint64_t operator()(std::uint64_t key) const { return mixBits(key); }
    };

    UPoint3<float> crossing(std::uint32_t belowPlace, std::uint32_t abovePlace) const;
    std::uint32_t pointAt(UPoint3<float> const& place);
    static std::uint64_t key(std::uint32_t a, std::uint32_t b)
    {
        return (std::uint64_t(a) << 32) | b;
    }

    SideCopies& m_copies;
    UMesh<float> const& m_source;
    CutPlane const& m_plane;
    std::vector<Point> m_points;
    FlatMap<std::uint64_t, KeyHash> m_ofEdge;
    FlatMap<std::uint32_t, KeyHash> m_ofVertex;
    FlatMap<std::array<double, 2>, FlatPlaceHash> m_byPlace;
};
