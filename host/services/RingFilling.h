// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

/// Fills rings with triangles whose boundary is exactly the rings, edge by edge and index by index.
///
/// Points at one place are one point to the triangulation, and edges are split where they meet
/// others. What that leaves open between the indices is closed with triangles without area.
class RingFilling
{
public:
    using Rings = std::vector<std::vector<std::array<double, 2>>>;

    /// rings  an outer ring and its holes; must outlive this object
    explicit RingFilling(Rings const& rings);

    /// Three indices per triangle. Call once. Throws what `progress` throws.
    std::vector<int> fill(std::function<void(int)> const& progress);

private:
    using Place = std::uint32_t;

    /// An edge of a ring, from point to point.
    struct Edge
    {
        int from;
        int to;
    };
    /// A stretch of a ring's edge between neighbouring places, with the indices that stand for its
    /// ends.
    struct Strand
    {
        Place from;
        Place to;
        Edge indices;
    };
    /// An edge that counts so many times from the lower of two places, or indices, to the higher.
    struct Term
    {
        std::uint64_t places;
        Edge indices;
        int count;
    };
    /// A directed edge between two indices, most often at one place, that has no partner yet.
    struct LooseEnd
    {
        Place place;
        Edge indices;
    };
    struct Corner
    {
        std::size_t triangle;
        int number;
    };

    void joinPoints(Rings const& rings);
    void collectEdges(Rings const& rings);
    void placeCrossings(std::vector<Exact::SectionSegment> const& segments);
    void addStrands(std::vector<Exact::SectionSegment> const& segments);
    void addTriangles(Exact::SectionFilling const& filling);
    void numberSectors(Exact::SectionFilling const& filling,
                       std::vector<std::array<int, 3>>& corners) const;
    std::vector<Term> termsAtSharedPlaces(Exact::SectionFilling const& filling,
                                          std::vector<std::array<int, 3>> const& corners) const;
    void closeEdges(std::vector<Term>& terms);
    void closeEdge(std::vector<Edge>& wanted, std::vector<Edge>& present, std::uint64_t places);
    void closeCircles();
    void closeRest();
    void addTriangle(int a, int b, int c);

    std::vector<Exact::SectionPoint2> m_points;
    /// Per index.
    std::vector<Place> m_placeOf;
    /// Per place: an index that stands for it, and whether there are others.
    std::vector<int> m_indexAt;
    std::vector<std::uint8_t> m_isShared;
    bool m_hasShared = false;
    /// The edges of the rings: those between two places, and those between indices at one.
    std::vector<Edge> m_edges;
    std::vector<Edge> m_repeats;
    std::vector<Strand> m_strands;
    std::vector<LooseEnd> m_looseEnds;
    std::vector<int> m_indices;
};
