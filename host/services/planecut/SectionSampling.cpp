// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionSampling.h"

#include "host/mesh/DisjointSets.h"
#include "host/services/planecut/FlatPlaceHash.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;
using Triangles = std::vector<std::array<std::uint32_t, 3>>;

constexpr double samplesPerWidth = 4;
/// Nothing stands on a face that is less than a few of these wide.
constexpr double leastStepMm = 0.5;
constexpr double mostSamples = 20000;

Vector difference(Point const& a, Point const& b)
{
    return {double(a.X()) - b.X(), double(a.Y()) - b.Y(), double(a.Z()) - b.Z()};
}

/// Coordinates in the plane that keep lengths and angles.
class PlaneAxes
{
public:
    explicit PlaneAxes(CutPlane const& plane)
    {
        UVector3<float> const n = plane.unitNormal();
        Vector const normal(n.X(), n.Y(), n.Z());
        // The axis that lies nearest to the plane, so that axis-parallel planes keep coordinates.
        int axis = 0;
        for (int i = 1; i < 3; ++i)
            if (std::abs(normal[i]) < std::abs(normal[axis]))
                axis = i;
        Vector unit(axis == 0, axis == 1, axis == 2);
        m_first = unit - normal * (unit | normal);
        m_first.Normalize();
        m_second = normal * m_first;
    }

    Exact::SectionPoint2 of(Point const& p) const
    {
        Vector const v(p.X(), p.Y(), p.Z());
        return {m_first | v, m_second | v};
    }

private:
    Vector m_first;
    Vector m_second;
};

class SectionSampler
{
public:
    SectionSampler(SectionPoints const& points, Exact::SectionFilling const& filling,
                   CutPlane const& plane)
        : m_points(points),
          m_filling(filling),
          m_plane(plane),
          m_axes(plane),
          m_faces(points.size())
    {
        findBorder();
        measureFaces();
    }

    bool hasLongEdges() const
    {
        return std::any_of(m_border.begin(), m_border.end(),
                           [this](auto const& edge) { return piecesOf(edge) > 1; });
    }

    /// Fills the sampled contours; false if they cross.
    bool fill(std::function<void(int)> const& progress)
    {
        for (Exact::SectionSegment const& edge : m_border)
            sample(edge);
        std::size_t const count = m_places.size();
        m_triangles = Exact::fillSection(m_flat, m_segments, progress).triangles;
        return m_flat.size() == count && !m_triangles.empty();
    }

    std::vector<Point> const& places() const { return m_places; }
    Triangles const& triangles() const { return m_triangles; }

private:
    struct FaceSize
    {
        double area = 0;
        double border = 0;
        double step = 0;
    };

    /// The edges of the triangles that have no partner.
    void findBorder()
    {
        std::vector<std::tuple<std::uint32_t, std::uint32_t, int>> edges;
        edges.reserve(3 * m_filling.triangles.size());
        for (auto const& t : m_filling.triangles)
            for (std::size_t i = 0; i < 3; ++i) {
                std::uint32_t const from = t[i], to = t[(i + 1) % 3];
                edges.emplace_back(std::min(from, to), std::max(from, to), from < to ? 1 : -1);
            }
        std::sort(edges.begin(), edges.end());
        for (std::size_t i = 0; i < edges.size();) {
            auto const [low, high, way] = edges[i];
            int net = 0;
            for (;
                 i < edges.size() && std::get<0>(edges[i]) == low && std::get<1>(edges[i]) == high;
                 ++i)
                net += std::get<2>(edges[i]);
            if (net > 0)
                m_border.push_back({low, high, net});
            else if (net < 0)
                m_border.push_back({high, low, -net});
        }
    }

    double lengthOf(Exact::SectionSegment const& edge) const
    {
        return difference(m_points.place(edge.to), m_points.place(edge.from)).GetLength();
    }

    void measureFaces()
    {
        for (auto const& [a, b, c] : m_filling.triangles) {
            m_faces.unite(a, b);
            m_faces.unite(a, c);
        }
        m_sizes.resize(m_points.size());
        for (auto const& [a, b, c] : m_filling.triangles) {
            Vector const u = difference(m_points.place(b), m_points.place(a));
            Vector const v = difference(m_points.place(c), m_points.place(a));
            m_sizes[m_faces.root(a)].area += 0.5 * (u * v).GetLength();
        }
        for (Exact::SectionSegment const& edge : m_border)
            m_sizes[m_faces.root(edge.from)].border += lengthOf(edge);
        double samples = 0;
        for (FaceSize& face : m_sizes) {
            if (!(face.border > 0))
                continue;
            double const meanWidth = 2 * face.area / face.border;
            face.step = std::max(meanWidth / samplesPerWidth, leastStepMm);
            samples += face.border / face.step;
        }
        for (FaceSize& face : m_sizes)
            face.step *= std::max(1.0, samples / mostSamples);
    }

    std::size_t piecesOf(Exact::SectionSegment const& edge) const
    {
        double const step = m_sizes[m_faces.root(edge.from)].step;
        return std::max<std::size_t>(1, std::size_t(std::ceil(lengthOf(edge) / step)));
    }

    void sample(Exact::SectionSegment const& edge)
    {
        Point const from = m_points.place(edge.from);
        Vector const along = difference(m_points.place(edge.to), from);
        std::size_t const pieces = piecesOf(edge);
        std::uint32_t last = numberOf(from);
        for (std::size_t i = 1; i <= pieces; ++i) {
            double const t = double(i) / double(pieces);
            Point const place = i == pieces ? m_points.place(edge.to) : between(from, along, t);
            std::uint32_t const next = numberOf(place);
            if (next != last)
                m_segments.push_back({last, next, edge.weight});
            last = next;
        }
    }

    /// Two of the coordinates give the third, so that the point lies in the plane.
    Point between(Point const& from, Vector const& along, double t) const
    {
        Point place;
        for (int i = 0; i < 3; ++i)
            place[i] = float(from[i] + t * along[i]);
        return m_plane.lift(m_plane.project(place));
    }

    /// Points are told apart by the coordinates that are filled: two points beside a plane's axis
    /// may differ by less than these can hold.
    std::uint32_t numberOf(Point const& place)
    {
        Exact::SectionPoint2 const flat = m_axes.of(place);
        std::uint32_t& number = m_numbers[flat];
        if (number == m_numbers.none) {
            number = std::uint32_t(m_places.size());
            m_places.push_back(place);
            m_flat.push_back(flat);
        }
        return number;
    }

    SectionPoints const& m_points;
    Exact::SectionFilling const& m_filling;
    CutPlane const& m_plane;
    PlaneAxes m_axes;
    mutable DisjointSets m_faces;
    std::vector<FaceSize> m_sizes;
    std::vector<Exact::SectionSegment> m_border;
    FlatMap<Exact::SectionPoint2, FlatPlaceHash> m_numbers;
    std::vector<Point> m_places;
    std::vector<Exact::SectionPoint2> m_flat;
    std::vector<Exact::SectionSegment> m_segments;
    Triangles m_triangles;
};

template <typename PlaceOf>
std::unique_ptr<UMesh<float>> meshOf(Triangles const& triangles, std::size_t pointCount,
                                     PlaceOf const& placeOf, UVector3<float> const& normal)
{
    auto mesh = std::make_unique<UMesh<float>>();
    std::vector<UVertex<float>*> vertices(pointCount, nullptr);
    for (auto const& t : triangles) {
        auto* const triangle = new UTriangle<float>;
        for (int i = 0; i < 3; ++i) {
            std::uint32_t const point = t[std::size_t(i)];
            if (!vertices[point]) {
                vertices[point] = new UVertex<float>(placeOf(point));
                mesh->AddVertex(vertices[point]);
            }
            triangle->V0(i) = vertices[point];
        }
        triangle->N() = normal;
        mesh->AddTriangle(triangle);
    }
    mesh->UpdateVertsID();
    mesh->UpdateTrisID();
    return mesh;
}

}  // namespace

std::unique_ptr<UMesh<float>> sectionMesh(SectionPoints const& points,
                                          Exact::SectionFilling const& filling,
                                          CutPlane const& plane,
                                          std::function<void(int)> const& progress)
{
    SectionSampler sampler(points, filling, plane);
    if (sampler.hasLongEdges() && sampler.fill(progress))
        return meshOf(
            sampler.triangles(), sampler.places().size(),
            [&](std::uint32_t p) { return sampler.places()[p]; }, plane.unitNormal());
    return meshOf(
        filling.triangles, points.size(), [&](std::uint32_t p) { return points.place(p); },
        plane.unitNormal());
}
