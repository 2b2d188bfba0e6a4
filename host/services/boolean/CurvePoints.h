// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/OperandSoup.h"
#include "host/services/boolean/PlaceKey.h"
#include "host/services/boolean/TriangleContact.h"
#include "host/services/exact/ImplicitPoints.h"

#include <array>
#include <cstdint>
#include <vector>

/// The points in which the surfaces of two operands meet. They stay defined by what they come from
/// (a vertex, an edge through a plane, two edges in one plane, three planes) until all decisions are made: coordinates in
/// double with an error bound serve as a filter, exact ones decide, and the float coordinates are
/// the exact ones rounded once.
///
/// Numbers below the soup's point count stand for its vertices. Of points that are equal, exactly,
/// one number stands for all.
class CurvePoints
{
public:
    /// Coordinates that are off by at most `error` each.
    struct Estimate
    {
        std::array<double, 3> place;
        double error;
    };

    /// The vertices at its ends.
    using Edge = std::array<std::uint32_t, 2>;

    explicit CurvePoints(OperandSoup const& soup);

    /// points  about how many will be added
    void reserve(std::size_t points);

    /// The number of the point of a contact of two triangles, new or known.
    std::uint32_t add(TriangleContact::Point const& point, std::uint32_t first,
                      std::uint32_t second);

    /// The number of the point that the planes of three triangles share.
    std::uint32_t addCrossing(std::array<std::uint32_t, 3> const& triangles);

    /// The number of the point in which an edge passes through the plane of a triangle.
    std::uint32_t addPassage(Edge const& edge, std::uint32_t triangle);

    /// The number of the point in which edges of one plane cross.
    std::uint32_t addMeeting(Edge const& first, Edge const& second);

    /// Frees what only adding needs: nothing is added from now on.
    void finish();

    /// The number that stands for a vertex: its own, or that of an equal point on the curves.
    std::uint32_t numberOf(std::uint32_t vertex) const { return m_standIns[vertex]; }
    /// Whether the surfaces meet in a point or vertex.
    bool isOnCurve(std::uint32_t point) const
    {
        return point >= m_soup.pointCount() || m_isOnCurve[point];
    }

    std::uint32_t size() const { return m_soup.pointCount() + std::uint32_t(m_points.size()); }

    Estimate estimate(std::uint32_t point) const
    {
        if (point >= m_soup.pointCount())
            return m_points[point - m_soup.pointCount()].estimate;
        UPoint3<float> const& p = m_soup.mesh.points[point];
        return {{p.X(), p.Y(), p.Z()}, 0};
    }

    UPoint3<float> const& rounded(std::uint32_t point) const
    {
        return point < m_soup.pointCount() ? m_soup.mesh.points[point]
                                           : m_points[point - m_soup.pointCount()].rounded;
    }

    Exact::ImplicitPoint exact(std::uint32_t point) const;

private:
    enum class Origin : std::uint8_t
    {
        /// Two ends of an edge and a triangle.
        passage,
        /// Two ends each of two edges in one plane.
        meeting,
        /// Three triangles.
        crossing,
    };
    struct Definition
    {
        Estimate estimate{};
        UPoint3<float> rounded;
        std::array<std::uint32_t, 4> sources{};
        Origin origin = Origin::passage;
    };
    /// What a point lies in of either operand: a vertex, an edge or a triangle.
    struct Key
    {
        std::uint64_t inFirst = 0;
        std::uint64_t inSecond = 0;
        bool operator==(Key const&) const = default;
    };
    struct KeyHash
    {
        std::uint64_t operator()(Key const& k) const
        {
            return mixBits(mixBits(k.inFirst) + k.inSecond);
        }
    };

    Definition define(TriangleContact::Point const& point, std::uint32_t first,
                      std::uint32_t second) const;
    static Definition passageOf(Edge const& edge, std::uint32_t triangle);
    static Definition meetingOf(Edge const& first, Edge const& second);
    void locate(Definition& definition) const;
    UPoint3<float> besidePlane(Definition const& meeting) const;
    std::uint32_t addVertex(std::uint32_t vertex);
    std::uint32_t addNew(Definition definition);
    Exact::ImplicitPoint exact(Definition const& definition) const;

    OperandSoup const& m_soup;
    std::vector<std::uint32_t> m_standIns;
    std::vector<bool> m_isOnCurve;
    std::vector<Definition> m_points;
    FlatMap<Key, KeyHash> m_byKey;
    /// The first point with given float coordinates, and the next one after a point.
    PointsByPlace m_byPlace;
    std::vector<std::uint32_t> m_nextAtPlace;
};
