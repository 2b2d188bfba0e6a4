// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/prisms/FaceChange.h"

#include "host/mesh/RoundingUnit.h"
#include "host/services/planecut/HalfTriangles.h"
#include "host/services/prisms/EdgeBalance.h"

#include <algorithm>

namespace {

using Point = UPoint3<float>;
using Triangle = UTriangle<float>;
using Vertex = UVertex<float>;
using Vector = UVector3<double>;

/// Rounding moves a point by less than a unit.
constexpr double mostUnitsBeside = 2;
constexpr double narrowUnits = 4;

Vector between(Point const& from, Point const& to)
{
    return {double(to[0]) - from[0], double(to[1]) - from[1], double(to[2]) - from[2]};
}

bool areDistinct(std::vector<Exact::SectionPoint2> points)
{
    std::sort(points.begin(), points.end());
    return std::adjacent_find(points.begin(), points.end()) == points.end();
}

}  // namespace

int FaceChange::findFace()
{
    auto const& triangles = m_half.triangles;
    UVector3<float> const normal = m_plane.unitNormal();
    if (triangles.empty())
        return 0;
    bool const isUp = triangles.back()->cN() == normal;
    if (!isUp && !(triangles.back()->cN() == -normal))
        return 0;
    m_facing = isUp ? 1 : -1;
    m_firstOfFace = triangles.size();
    while (m_firstOfFace > 0 && triangles[m_firstOfFace - 1]->cN() == triangles.back()->cN() &&
           isInPlane(*triangles[m_firstOfFace - 1]))
        --m_firstOfFace;
    return m_firstOfFace < triangles.size() ? m_facing : 0;
}

bool FaceChange::isInPlane(Triangle const& triangle) const
{
    for (int k = 0; k < 3; ++k) {
        Point const p = triangle.cP(k);
        if (m_plane.isAxisParallel() ? m_plane.sideOf(p) != 0
                                     : m_plane.distanceOf(p) > mostUnitsBeside * roundingUnitAt(p))
            return false;
    }
    return true;
}

bool FaceChange::prepare(PrismsAtPlane const& prisms, bool isRaised,
                         std::function<bool(Triangle const&)> const& near,
                         std::function<void(int)> const& progress)
{
    m_isRaised = isRaised;
    return takeOut(near) && fill(prisms, isRaised, progress) && arePrismsSound(prisms);
}

bool FaceChange::takeOut(std::function<bool(Triangle const&)> const& near)
{
    EdgeBalance edges;
    std::vector<std::uint32_t> corners;
    for (std::size_t t = m_firstOfFace; t < m_half.triangles.size(); ++t) {
        Triangle const& triangle = *m_half.triangles[t];
        if (!near(triangle))
            continue;
        m_gone.push_back(t);
        std::array<std::uint32_t, 3> const ids{std::uint32_t(triangle.cV(0)->cID()),
                                               std::uint32_t(triangle.cV(1)->cID()),
                                               std::uint32_t(triangle.cV(2)->cID())};
        edges.addTriangle(ids);
        corners.insert(corners.end(), ids.begin(), ids.end());
        m_goneCorners.push_back(ids);
        std::sort(m_goneCorners.back().begin(), m_goneCorners.back().end());
    }
    std::sort(m_goneCorners.begin(), m_goneCorners.end());
    bool const isSimple = edges.forUnpaired([this](std::uint32_t from, std::uint32_t to) {
        m_borderEdges.push_back({from, to});
        m_border.push_back(from);
    });
    auto const tidy = [](std::vector<std::uint32_t>& list) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
    };
    tidy(m_border);
    tidy(corners);
    // A vertex that would be left without triangles is no point of a cut's face.
    return isSimple && !m_gone.empty() && corners == m_border;
}

bool FaceChange::fill(PrismsAtPlane const& prisms, bool isRaised,
                      std::function<void(int)> const& progress)
{
    auto const numberOf = [this](std::uint32_t vertex) {
        return std::uint32_t(std::lower_bound(m_border.begin(), m_border.end(), vertex) -
                             m_border.begin());
    };
    std::vector<Exact::SectionSegment> segments;
    auto const add = [&](std::uint32_t from, std::uint32_t to, bool isForward) {
        segments.push_back(isForward ? Exact::SectionSegment{from, to}
                                     : Exact::SectionSegment{to, from});
    };
    for (auto const& [from, to] : m_borderEdges)
        add(numberOf(from), numberOf(to), m_facing > 0);
    std::uint32_t const first = std::uint32_t(m_border.size());
    // The face has an edge the other way than the wall, which is turned where prisms are taken out.
    for (auto const& [from, to] : prisms.outline)
        add(first + from, first + to, isRaised != (m_facing > 0));
    for (std::uint32_t const vertex : m_border)
        m_points.push_back(m_half.vertices[vertex]->cP());
    m_points.insert(m_points.end(), prisms.points.begin(),
                    prisms.points.begin() + prisms.outlinePoints);
    std::vector<Exact::SectionPoint2> places;
    for (Point const& p : m_points)
        places.push_back(m_plane.project(p));
    if (!areDistinct(places))
        return false;
    auto const filling = Exact::fillSection(places, segments, progress);
    if (places.size() != m_points.size() || filling.layers != 1)
        return false;
    m_filling = filling.triangles;
    return isFillingSound(segments);
}

bool FaceChange::isFillingSound(std::vector<Exact::SectionSegment> const& segments) const
{
    EdgeBalance edges;
    for (Corners const& t : m_filling) {
        Point const &a = m_points[t[0]], &b = m_points[t[1]], &c = m_points[t[2]];
        if (m_plane.facing(a, b, c) <= 0 || (isNarrow(a, b, c) && !wasThere(t)))
            return false;
        edges.addTriangle(t);
    }
    for (Exact::SectionSegment const& segment : segments) {
        if (!segment.splits.empty())
            return false;
        edges.add(segment.to, segment.from);
    }
    return edges.isClosed();
}

/// Whether a triangle of the filling is one of those that go, which the cut has looked at.
bool FaceChange::wasThere(Corners const& filled) const
{
    std::array<std::uint32_t, 3> vertices;
    for (std::size_t k = 0; k < 3; ++k) {
        if (filled[k] >= m_border.size())
            return false;
        vertices[k] = m_border[filled[k]];
    }
    std::sort(vertices.begin(), vertices.end());
    return std::binary_search(m_goneCorners.begin(), m_goneCorners.end(), vertices);
}

bool FaceChange::arePrismsSound(PrismsAtPlane const& prisms) const
{
    if (m_plane.isAxisParallel() && !prisms.isExact())
        return false;
    int const side = m_isRaised ? m_facing : -m_facing;
    for (std::size_t t = 0; t < prisms.triangles.size(); ++t) {
        Corners const& corners = prisms.triangles[t];
        Point const &a = prisms.points[corners[0]], &b = prisms.points[corners[1]],
                    &c = prisms.points[corners[2]];
        if (isNarrow(a, b, c) || (t >= prisms.firstTip && m_plane.facing(a, b, c) != side))
            return false;
    }
    return m_plane.isAxisParallel() ||
           std::all_of(prisms.points.begin() + prisms.outlinePoints, prisms.points.end(),
                       [this](Point const& p) {
                           return m_plane.distanceOf(p) > narrowUnits * roundingUnitAt(p);
                       });
}

/// Whether rounding may have turned a triangle over.
bool FaceChange::isNarrow(Point const& a, Point const& b, Point const& c) const
{
    if (m_plane.isAxisParallel())
        return false;
    Vector const u = between(a, b), v = between(a, c);
    Vector const w = v - u, normal = u * v;
    double const longest = std::max({u | u, v | v, w | w});
    double const width = narrowUnits * roundingUnitAt(a);
    return (normal | normal) <= width * width * longest;
}

void FaceChange::write(UMesh<float>& half, PrismsAtPlane const& prisms) const
{
    std::size_t const firstVertex = half.vertices.size();
    half.vertices.reserve(firstVertex + prisms.points.size());
    half.triangles.reserve(half.triangles.size() + prisms.triangles.size() + m_filling.size());
    for (std::size_t const place : m_gone) {
        delete half.triangles[place];
        half.triangles[place] = nullptr;
    }
    half.triangles.erase(std::remove(half.triangles.begin() + std::ptrdiff_t(m_firstOfFace),
                                     half.triangles.end(), nullptr),
                         half.triangles.end());
    for (Point const& p : prisms.points) {
        half.AddVertex(new Vertex(p));
        half.vertices.back()->ID() = half.vertices.size() - 1;
    }
    auto const add = [&](Vertex* a, Vertex* b, Vertex* c, bool isTurned) {
        half.AddTriangle(new Triangle(a, isTurned ? c : b, isTurned ? b : c, {}));
        return half.triangles.back();
    };
    auto const vertexOf = [&](std::uint32_t point) {
        return half.vertices[point < m_border.size() ? m_border[point]
                                                     : firstVertex + point - m_border.size()];
    };
    for (Corners const& t : prisms.triangles) {
        Triangle* const made =
            add(half.vertices[firstVertex + t[0]], half.vertices[firstVertex + t[1]],
                half.vertices[firstVertex + t[2]], !m_isRaised);
        made->N() = made->ComputeNormalizedNormal();
    }
    UVector3<float> const normal = m_plane.unitNormal();
    for (Corners const& t : m_filling)
        add(vertexOf(t[0]), vertexOf(t[1]), vertexOf(t[2]), m_facing < 0)->N() =
            m_facing > 0 ? normal : -normal;
}
