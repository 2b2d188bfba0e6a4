// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/CurvePoints.h"
#include "host/services/boolean/FaceTriangulation.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/// Two triangles that touch or cross: one of either operand, or two of the second.
struct TrianglePair
{
    std::uint32_t first;
    std::uint32_t second;
    TriangleContact contact;
};

/// A piece of the curves in which the surfaces meet, as one pair of triangles has it in common. The
/// same piece comes from several pairs where it runs along an edge.
struct CurveSegment
{
    static constexpr int inside = 3;

    /// On its left the first triangle lies behind the second.
    std::uint32_t from;
    std::uint32_t to;
    /// The triangle of the first operand, and that of the second; or two of the second.
    std::array<std::uint32_t, 2> triangles;
    /// The edge of either triangle along which the segment runs, or `inside`.
    std::array<int, 2> edges;
    std::array<TrianglePlace, 2> fromPlaces;
    std::array<TrianglePlace, 2> toPlaces;

    bool isAlongEdge() const { return edges[0] != inside || edges[1] != inside; }
};

/// The curves in which two surfaces meet, and the triangles divided along them.
class CurveNetwork
{
public:
    explicit CurveNetwork(OperandSoup const& soup) : m_soup(soup), m_points(soup) {}

    /// Makes points and segments of the contacts, and divides all triangles that have one. Contacts
    /// of the second operand's triangles with each other make curves like others.
    ///
    /// contacts  freed as soon as they are not needed
    /// returns   false if the division does not come to an end, which exact operands do not do
    bool build(std::vector<TrianglePair> contacts, StageProgress& progress);

    CurvePoints const& points() const { return m_points; }
    std::vector<CurveSegment> const& segments() const { return m_segments; }
    /// Nobody asks for segments from now on.
    void freeSegments()
    {
        m_segments = {};
        m_coplanar = {};
    }
    /// The facets of all triangles that touch the other operand, by ascending triangle.
    Facets const& facets() const { return m_facets; }

    using FacePair = std::pair<std::uint32_t, std::uint32_t>;
    /// The triangles that lie in one plane with a triangle of the second operand, and may overlap
    /// it, as second members.
    std::span<FacePair const> coplanarWith(std::uint32_t triangle) const;

    static constexpr std::uint32_t none = 0xffffffff;
    /// The place of a triangle in facets().ends; `none` for one that touches nothing.
    std::uint32_t faceOf(std::uint32_t triangle) const { return m_faceOf[triangle]; }
    /// The region on the left of an edge of a face's facets, which lies on a segment or on a side
    /// of the face; `none` if there is no such edge.
    std::uint32_t regionLeftOf(std::uint32_t triangle, std::uint32_t from, std::uint32_t to) const;

    /// 1 if b comes after a in the direction of an axis, -1 if before.
    int compare(std::uint32_t a, std::uint32_t b, int axis) const;

private:
    struct EdgePoint
    {
        std::uint32_t low;
        std::uint32_t high;
        std::uint32_t point;
        bool isOnSameEdge(EdgePoint const& o) const { return low == o.low && high == o.high; }
        auto operator<=>(EdgePoint const&) const = default;
    };
    using FacePoint = std::pair<std::uint32_t, std::uint32_t>;
    using SegmentInFace = std::pair<std::uint32_t, FaceSegment>;

    void addContacts(std::vector<TrianglePair> const& contacts, StageProgress& progress);
    void addSegment(TrianglePair const& pair);
    void finish();
    void markTouched(std::vector<TrianglePair> const& contacts);
    void collectCoplanar(std::vector<TrianglePair> const& contacts, StageProgress& progress);
    bool hasContactsOfSecond(std::vector<TrianglePair> const& contacts) const;
    void touchAroundSecond();
    void spread(StageProgress& progress);
    void spreadEnd(CurveSegment const& segment, int operand, std::uint32_t point,
                   TrianglePlace place);
    void sortAlongEdges(StageProgress& progress);
    std::span<std::uint32_t const> pointsOnEdge(std::uint32_t low, std::uint32_t high) const;
    void findFinerEdges(FaceFaults& faults, StageProgress& progress) const;
    bool divide(FaceFaults& faults, StageProgress& progress);
    bool divideBlock(std::size_t begin, std::size_t end, Facets& facets, FaceFaults& faults,
                     StageProgress& progress) const;
    void append(Facets const& facets);
    void reserveFacets();
    void mend(FaceFaults const& faults, StageProgress& progress);
    class SegmentIndex;
    using SegmentPoint = std::pair<FaceSegment, std::uint32_t>;
    void sortAlong(FaceSegment const& segment, std::span<SegmentPoint> points) const;
    void breakSegment(FaceSegment const& segment, std::uint32_t point, SegmentIndex& index);
    /// What makes a segment within a triangle: another triangle, or its edge where both lie in one
    /// plane.
    struct Cutter
    {
        std::uint32_t triangle;
        CurvePoints::Edge edge{};
        bool isEdge = false;
    };
    std::optional<Cutter> cutterOf(std::uint32_t triangle, FaceSegment const& segment,
                                   SegmentIndex const& index) const;
    std::uint32_t addCrossing(std::uint32_t triangle, Cutter const& a, Cutter const& b);
    bool areInOnePlane(std::uint32_t a, std::uint32_t b) const;

    OperandSoup const& m_soup;
    CurvePoints m_points;
    std::vector<CurveSegment> m_segments;
    std::vector<std::uint32_t> m_faceOf;
    std::vector<FacePair> m_coplanar;
    std::vector<std::uint32_t> m_touched;
    std::vector<EdgePoint> m_edgePoints;
    std::vector<std::uint32_t> m_edgePointNumbers;
    std::vector<FacePoint> m_facePoints;
    std::vector<SegmentInFace> m_faceSegments;
    Facets m_facets;
};
