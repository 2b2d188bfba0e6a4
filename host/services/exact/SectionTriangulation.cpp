// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/SectionTriangulation.h"

#include "host/services/exact/PlainTriangulation.h"
#include "host/services/exact/SectionLayers.h"

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Constrained_triangulation_plus_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Spatial_sort_traits_adapter_2.h>
#include <CGAL/Triangulation_face_base_with_info_2.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>
#include <CGAL/property_map.h>
#include <CGAL/spatial_sort.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <type_traits>
#include <unordered_map>

namespace Exact {

namespace {

constexpr std::uint32_t noPoint = std::numeric_limits<std::uint32_t>::max();

/// A region of the plane: how often it lies inside.
struct Region
{
    int winding = 0;
    bool isKnown = false;
};

struct PointPlace
{
    std::uint32_t value = noPoint;
};

using RoundingKernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using ExactKernel = CGAL::Exact_predicates_exact_constructions_kernel;
template <typename Kernel>
using Structure = CGAL::Triangulation_data_structure_2<
    CGAL::Triangulation_vertex_base_with_info_2<PointPlace, Kernel>,
    CGAL::Triangulation_face_base_with_info_2<Region, Kernel,
                                              CGAL::Constrained_triangulation_face_base_2<Kernel>>>;
template <typename Kernel, typename Tag>
using Triangulated = CGAL::Constrained_Delaunay_triangulation_2<Kernel, Structure<Kernel>, Tag>;

/// Makes points where segments cross, and remembers on which points each segment was split. Where
/// rounding takes a crossing out of the triangles beside an edge, because they are narrower than
/// that, it splits on an end of the edge instead, however far away.
using SplittingTriangulation = CGAL::Constrained_triangulation_plus_2<
    Triangulated<RoundingKernel, CGAL::Exact_predicates_tag>>;
/// The same with exact points, some ten times as slow.
using ExactTriangulation = CGAL::Constrained_triangulation_plus_2<
    Triangulated<ExactKernel, CGAL::Exact_intersections_tag>>;

/// A segment was split on a point that does not lie on it.
struct SplitAstray
{
};

SectionFilling fillBorder(std::vector<SectionPoint2> const& all,
                          std::vector<SectionSegment>& segments,
                          std::function<void(int)> const& progress)
{
    PointsInUse const used(segments);
    auto points = used.of(all);
    return used.numbered(fillSection(points, segments, progress));
}

template <typename Triangulation>
class SectionFiller
{
    using VertexHandle = typename Triangulation::Vertex_handle;
    using FaceHandle = typename Triangulation::Face_handle;
    using Kernel = typename Triangulation::Geom_traits;
    using Point = typename Kernel::Point_2;
    static constexpr bool isExact = std::is_same_v<Triangulation, ExactTriangulation>;

public:
    SectionFiller(std::vector<SectionPoint2>& points, std::vector<SectionSegment>& segments,
                  std::function<void(int)> const& progress)
        : m_points(points), m_segments(segments), m_progress(progress)
    {
        m_places.reserve(points.size());
        for (SectionPoint2 const& p : points)
            m_places.emplace_back(p[0], p[1]);
    }

    /// places  where the points are exactly
    SectionFiller(std::vector<SectionPoint2>& points, std::vector<Point> places,
                  std::vector<SectionSegment>& segments, std::function<void(int)> const& progress)
        : m_points(points), m_segments(segments), m_progress(progress), m_places(std::move(places))
    {}

    SectionFilling fill()
    {
        report(0);
        insertPoints();
        insertSegments();
        // Contours without area leave nothing to fill.
        if (m_triangulation.dimension() < 2)
            return {};
        spreadRegions();
        return layersOf(solidFaces(), [this](auto& border) { return fillPart(border); });
    }

private:
    void report(int percent) const
    {
        if (m_progress)
            m_progress(percent);
    }

    /// In the order of a space-filling curve, so that each point is found next to the last one.
    void insertPoints()
    {
        std::vector<std::size_t> order(m_points.size());
        std::iota(order.begin(), order.end(), std::size_t(0));
        using Map = typename CGAL::Pointer_property_map<Point>::type;
        CGAL::spatial_sort(
            order.begin(), order.end(),
            CGAL::Spatial_sort_traits_adapter_2<Kernel, Map>(CGAL::make_property_map(m_places)));
        m_handles.resize(m_points.size());
        FaceHandle hint;
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (i % batch == 0)
                report(int(40 * i / order.size()));
            VertexHandle const vertex = m_triangulation.insert(m_places[order[i]], hint);
            vertex->info().value = std::uint32_t(order[i]);
            m_handles[order[i]] = vertex;
            hint = vertex->face();
        }
    }

    void reportSegment(std::size_t i) const
    {
        if (i % batch == 0)
            report(int(40 + 40 * i / m_segments.size()));
    }

    void insertSegments()
    {
        m_weights.reserve(2 * m_segments.size());
        std::vector<std::optional<typename Triangulation::Constraint_id>> constraints(
            m_segments.size());
        for (std::size_t i = 0; i < m_segments.size(); ++i) {
            reportSegment(i);
            VertexHandle const from = m_handles[m_segments[i].from];
            VertexHandle const to = m_handles[m_segments[i].to];
            // Points in one place have one vertex.
            if (from != to)
                constraints[i] = m_triangulation.insert_constraint(from, to);
        }
        // Only now: a later segment may have split an earlier one.
        std::vector<std::vector<std::uint32_t>> chains(m_segments.size());
        for (std::size_t i = 0; i < m_segments.size(); ++i)
            if (constraints[i])
                chains[i] = chainOf(m_segments[i], *constraints[i]);
        if (!isExact)
            checkSplits(chains);
        for (std::size_t i = 0; i < m_segments.size(); ++i)
            split(m_segments[i], chains[i]);
    }

    template <typename Constraint>
    std::vector<std::uint32_t> chainOf(SectionSegment const& segment, Constraint const& constraint)
    {
        std::vector<std::uint32_t> chain;
        auto const end = m_triangulation.vertices_in_constraint_end(constraint);
        for (auto v = m_triangulation.vertices_in_constraint_begin(constraint); v != end; ++v)
            chain.push_back(placeOf(*v));
        if (chain.front() != m_handles[segment.from]->info().value)
            std::reverse(chain.begin(), chain.end());
        return chain;
    }

    /// Throws unless all points on which segments were split lie on them, to a small part of what
    /// section points are rounded by.
    void checkSplits(std::vector<std::vector<std::uint32_t>> const& chains) const
    {
        double size = 0;
        for (SectionPoint2 const& p : m_points)
            size = std::max({size, std::abs(p[0]), std::abs(p[1])});
        double const tolerance = 0x1p-32 * size;
        for (std::size_t i = 0; i < chains.size(); ++i)
            for (std::uint32_t const point : chains[i])
                if (distanceOf(m_points[point], m_segments[i]) > tolerance)
                    throw SplitAstray();
    }

    double distanceOf(SectionPoint2 const& p, SectionSegment const& segment) const
    {
        SectionPoint2 const& from = m_points[segment.from];
        SectionPoint2 const& to = m_points[segment.to];
        double const u = to[0] - from[0], v = to[1] - from[1];
        double const x = p[0] - from[0], y = p[1] - from[1];
        double const along = std::clamp((x * u + y * v) / (u * u + v * v), 0.0, 1.0);
        return std::hypot(x - along * u, y - along * v);
    }

    void split(SectionSegment& segment, std::vector<std::uint32_t> const& chain)
    {
        if (chain.empty())
            return;
        for (std::size_t i = 0; i + 1 < chain.size(); ++i)
            addWeight(chain[i], chain[i + 1], segment);
        segment.splits.assign(chain.begin() + 1, chain.end() - 1);
    }

    /// The place of a vertex; one that the triangulation made at a crossing is appended.
    std::uint32_t placeOf(VertexHandle vertex)
    {
        std::uint32_t& place = vertex->info().value;
        if (place == noPoint) {
            place = std::uint32_t(m_points.size());
            m_points.push_back(
                {CGAL::to_double(vertex->point().x()), CGAL::to_double(vertex->point().y())});
            m_places.push_back(vertex->point());
        }
        return place;
    }

    static std::uint64_t edgeKey(std::uint32_t a, std::uint32_t b)
    {
        return (std::uint64_t(std::min(a, b)) << 32) | std::max(a, b);
    }

    void addWeight(std::uint32_t from, std::uint32_t to, SectionSegment const& segment)
    {
        m_weights[edgeKey(from, to)] += from < to ? segment.weight : -segment.weight;
    }

    /// From the unbounded region inwards, each contour crossed changes the region.
    void spreadRegions()
    {
        std::vector<FaceHandle> front{m_triangulation.infinite_face()};
        front.back()->info().isKnown = true;
        std::size_t visited = 0;
        while (!front.empty()) {
            if (++visited % (8 * batch) == 0)
                report(80);
            FaceHandle const face = front.back();
            front.pop_back();
            for (int i = 0; i < 3; ++i) {
                FaceHandle const beyond = face->neighbor(i);
                if (beyond->info().isKnown)
                    continue;
                beyond->info() = regionBeyond(face, i);
                front.push_back(beyond);
            }
        }
    }

    Region regionBeyond(FaceHandle face, int i) const
    {
        Region region = face->info();
        if (!face->is_constrained(i))
            return region;
        // The face lies to the left of its edge from the one corner to the other.
        std::uint32_t const from = face->vertex(Triangulation::ccw(i))->info().value;
        std::uint32_t const to = face->vertex(Triangulation::cw(i))->info().value;
        auto const found = m_weights.find(edgeKey(from, to));
        if (found == m_weights.end())
            return region;
        region.winding -= from < to ? found->second : -found->second;
        return region;
    }

    /// Those that segments run around.
    std::vector<PlaneFace> solidFaces() const
    {
        std::unordered_map<FaceHandle, std::uint32_t> numbers;
        for (FaceHandle const face : m_triangulation.finite_face_handles())
            if (face->info().winding != 0)
                numbers.emplace(face, std::uint32_t(numbers.size()));
        std::vector<PlaneFace> faces;
        faces.reserve(numbers.size());
        for (FaceHandle const face : m_triangulation.finite_face_handles()) {
            if (face->info().winding == 0)
                continue;
            PlaneFace& solid = faces.emplace_back();
            solid.winding = face->info().winding;
            for (int i = 0; i < 3; ++i) {
                solid.corners[std::size_t(i)] = face->vertex(i)->info().value;
                auto const beyond = numbers.find(face->neighbor(Triangulation::cw(i)));
                solid.beyond[std::size_t(i)] =
                    beyond == numbers.end() ? PlaneFace::none : beyond->second;
            }
        }
        return faces;
    }

    /// Fills with just the points that the segments use.
    SectionFilling fillPart(std::vector<SectionSegment>& segments) const
    {
        // Rounded, borders might cross.
        if constexpr (isExact) {
            auto const used = PointsInUse(segments);
            auto points = used.of(m_points);
            return used.numbered(
                SectionFiller(points, used.of(m_places), segments, m_progress).fill());
        } else {
            return fillBorder(m_points, segments, m_progress);
        }
    }

    static constexpr std::size_t batch = 1024;

    std::vector<SectionPoint2>& m_points;
    std::vector<SectionSegment>& m_segments;
    std::function<void(int)> const& m_progress;
    std::vector<Point> m_places;
    Triangulation m_triangulation;
    std::vector<VertexHandle> m_handles;
    /// What the segments over an edge of the triangulation add up to, along the edge from its
    /// smaller to its larger point.
    std::unordered_map<std::uint64_t, int> m_weights;
};

}  // namespace

SectionFilling fillSection(std::vector<SectionPoint2>& points,
                           std::vector<SectionSegment>& segments,
                           std::function<void(int)> const& progress)
{
    if (segments.empty())
        return {};
    if (auto const faces = plainTriangulation(points, segments, progress))
        return layersOf(*faces, [&](auto& border) { return fillBorder(points, border, progress); });
    std::size_t const given = points.size();
    try {
        return SectionFiller<SplittingTriangulation>(points, segments, progress).fill();
    } catch (SplitAstray const&) {
        points.resize(given);
    }
    return SectionFiller<ExactTriangulation>(points, segments, progress).fill();
}

}  // namespace Exact
