// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/CurvePoints.h"
#include "host/services/boolean/FaceMesh.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// A segment in a triangle, by point numbers.
struct FaceSegment
{
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    auto operator<=>(FaceSegment const&) const = default;
};

/// A triangle with the points and the segments that lie in it.
struct Face
{
    std::uint32_t triangle = 0;
    std::array<std::uint32_t, 3> corners{};
    /// The points inside each edge, from its first corner to its second.
    std::array<std::span<std::uint32_t const>, 3> onEdges;
    std::span<std::uint32_t const> inside;
    std::span<FaceSegment const> segments;
};

/// The facets into which faces are divided, one face after the other.
struct Facets
{
    /// An edge of a facet that lies on a segment or on a side of the face, with the region on its
    /// left.
    struct Border
    {
        std::uint32_t from;
        std::uint32_t to;
        std::uint32_t region;
        /// Whether the edge lies on a side of the face.
        bool isSide;
        bool operator<(Border const& o) const { return from != o.from ? from < o.from : to < o.to; }
    };
    /// Where the entries of one face end.
    struct End
    {
        std::uint32_t triangle = 0;
        std::uint32_t facets = 0;
        std::uint32_t borders = 0;
        std::uint32_t regions = 0;
    };

    /// By point numbers, facing as their face.
    std::vector<MeshArrays::Corners> corners;
    /// The region of each facet: what is joined without crossing a segment.
    std::vector<std::uint32_t> regions;
    /// Sorted within a face.
    std::vector<Border> borders;
    std::vector<End> ends;
};

/// What keeps a face from being divided: segments on which a point lies, or that cross.
struct FaceFaults
{
    struct Break
    {
        FaceSegment segment;
        std::uint32_t point;
    };
    struct Crossing
    {
        std::uint32_t triangle;
        FaceSegment first;
        FaceSegment second;
    };

    std::vector<Break> breaks;
    std::vector<Crossing> crossings;
    bool isEmpty() const { return breaks.empty() && crossings.empty(); }
};

/// Divides triangles along segments into facets, by a constrained Delaunay triangulation. The
/// topology is exact; where it leaves a choice, estimates decide. One object serves many faces, on
/// one thread.
///
/// After Lawson's flips for the points, and Sloan, "A fast algorithm for generating constrained
/// Delaunay triangulations", 1993, for the segments.
class FaceTriangulation
{
public:
    /// How much is done at most before facets are taken as they are, or the input as one that
    /// contradicts itself.
    struct Limits
    {
        /// Of facets on the way to a point: so many, and so many more for each that there is.
        /// Beyond, the input contradicts itself.
        std::size_t forPoint = 16;
        std::size_t forPointPerFacet = 2;
        /// Of flips for a segment: so many, and so many more for the square of how many edges it
        /// crosses, which is what exact segments need at worst. Beyond, the input contradicts itself.
        std::size_t forSegment = 64;
        std::size_t forSegmentPerSquare = 8;
        /// Of flips for facets that are less acute: so many, and so many more for each facet. Beyond,
        /// facets stay as they are: to make the best of rows of points on two sides takes as many
        /// flips as there are pairs of points.
        std::size_t forShape = 64;
        std::size_t forShapePerFacet = 32;
    };

    /// progress  polled in proportion to the work: a face with hundreds of segments takes seconds
    FaceTriangulation(OperandSoup const& soup, CurvePoints const& points, StageProgress& progress,
                      Limits limits)
        : m_soup(soup), m_points(points), m_progress(progress), m_limits(limits)
    {}
    FaceTriangulation(OperandSoup const& soup, CurvePoints const& points, StageProgress& progress)
        : FaceTriangulation(soup, points, progress, Limits())
    {}

    /// Appends the facets of a face; appends to the faults and writes facets that do not respect
    /// all segments where it finds any.
    /// returns  false if the input contradicts itself, or if the loop around it is being left
    bool divide(Face const& face, Facets& facets, FaceFaults& faults);

private:
    static constexpr int none = FaceMesh::none;

    /// A point of the face in two of its coordinates, such that the face runs anticlockwise.
    struct Place
    {
        double u, v;
        double error;
        std::uint32_t number;
        /// Bit k: lies on side k of the face.
        unsigned sides;
    };
    using Facet = FaceMesh::Facet;
    using Edge = FaceMesh::Edge;

    void chooseView(std::uint32_t triangle);
    Place placeOf(std::uint32_t number, unsigned sides) const;
    int orient(int a, int b, int c) const;
    int orientExactly(int a, int b, int c) const;
    bool isInCircle(int a, int b, int c, int d) const;

    void begin(Face const& face);
    bool addEdgePoints(Face const& face, int side);
    bool addInnerPoints(std::span<std::uint32_t const> numbers);
    bool addInnerPoint(std::uint32_t number);
    bool locate(int point, int& facet, int& edge);

    int localOf(std::uint32_t number) const;
    bool addSegment(int index, FaceSegment const& segment, Face const& face, FaceFaults& faults);
    /// Makes edges from one point towards another as far as no third point lies between; returns
    /// the point reached, or `none` if a segment is in the way, which is told, or the input
    /// contradicts itself.
    int addStretch(int from, int to, int segment, Face const& face, FaceFaults& faults);
    bool crossedEdges(Edge first, int from, int& to, int segment, Face const& face,
                      FaceFaults& faults);
    bool flipAway(int from, int to);

    bool isConvex(Edge edge) const;
    void improve();
    void improveFrom(std::size_t firstNew);
    void flipWhereBetter();
    void write(std::uint32_t triangle, Facets& facets);

    /// To be called at each step; false if the work is to be left.
    bool goesOn();

    OperandSoup const& m_soup;
    CurvePoints const& m_points;
    StageProgress& m_progress;
    Limits m_limits;
    unsigned m_steps = 0;
    bool m_isLeft = false;
    int m_axis = 2;
    bool m_isTurned = false;
    std::vector<Place> m_places;
    std::vector<std::pair<std::uint32_t, int>> m_locals;
    FaceMesh m_mesh;
    std::vector<Edge> m_stack;
    std::vector<std::pair<int, int>> m_crossed;
    std::vector<int> m_regions;
    int m_last = 0;
};
