// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/Surroundings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <set>
#include <unordered_map>
#include <unordered_set>

// Own derivation: the triangles whose corners lie in the plane of the place are joined across their
// edges; what is around the place is its face. Edges of one such triangle alone are the outline. A
// second pass finds what lies beyond the outline, and how much it turns away: an edge is sharp where
// it turns much, and a face ends where it turns at all, whereas a bent surface goes on.
namespace Measuring {

namespace {

using Point = UPoint3<double>;
using Vector = UVector3<double>;
using Vertex = UVertex<float> const*;
using VertexPair = std::pair<Vertex, Vertex>;

/// Of the size of the coordinates: so far a corner may lie from the plane.
constexpr double flatness = 1e-5;
constexpr double sharpDegrees = 15;
constexpr double faceEndDegrees = 1;
/// Edges of one straight line: the cosine of the angle between them.
constexpr double straight = 0.99999;

Point placed(UMatrix4<float> const& matrix, UPoint3<float> const& p)
{
    Point result;
    for (int row = 0; row < 3; ++row)
        result[row] = double(matrix(row, 0)) * p.X() + double(matrix(row, 1)) * p.Y() +
                      double(matrix(row, 2)) * p.Z() + matrix(row, 3);
    return result;
}

VertexPair pairOf(UTriangle<float> const& triangle, int corner)
{
    Vertex const a = triangle.cV(corner), b = triangle.cV((corner + 1) % 3);
    return std::less<>()(a, b) ? VertexPair(a, b) : VertexPair(b, a);
}

struct PairHash
{
    std::size_t operator()(VertexPair const& pair) const
    {
        return std::hash<Vertex>()(pair.first) * 31 + std::hash<Vertex>()(pair.second);
    }
};

/// An edge of the outline, and how much the surface turns there; 180 at a border.
struct OutlineEdge
{
    VertexPair ends;
    double turnDegrees = 180;
};

class FlatRegion
{
public:
    FlatRegion(MeshKernel const& part, SurfacePoint const& at)
        : m_mesh(part.readMesh()), m_matrix(part.getMatrix()), m_at(at)
    {
        m_sense = m_matrix.linearDeterminant() < 0 ? -1 : 1;
        m_reach = flatness * std::max({1.0, std::abs(at.point.X()), std::abs(at.point.Y()),
                                       std::abs(at.point.Z())});
        collect();
        keepAroundPlace();
        findOutline();
        findTurns();
    }

    std::optional<Face> face() const
    {
        Face face;
        double whole = 0, ends = 0;
        for (OutlineEdge const& each : m_outline) {
            Edge const edge = placedEdge(each.ends);
            whole += edge.length();
            ends += each.turnDegrees > faceEndDegrees ? edge.length() : 0;
            face.outline.push_back(edge);
        }
        for (UTriangle<float> const* const triangle : m_triangles)
            face.area += normalOf(*triangle).GetLength() / 2;
        return face.area > 0 && 2 * ends > whole ? std::optional(face) : std::nullopt;
    }

    std::optional<Edge> edgeWithin(double reach) const
    {
        OutlineEdge const* nearest = nullptr;
        double least = reach;
        for (OutlineEdge const& each : m_outline) {
            double const way = distance(m_at.point, placedEdge(each.ends));
            if (each.turnDegrees > sharpDegrees && way <= least) {
                least = way;
                nearest = &each;
            }
        }
        return nearest ? std::optional(straightened(*nearest)) : std::nullopt;
    }

private:
    Point placed(Vertex vertex) const { return Measuring::placed(m_matrix, vertex->cP()); }
    Edge placedEdge(VertexPair const& ends) const
    {
        return {placed(ends.first), placed(ends.second)};
    }

    /// Out of the part, of twice the triangle's area.
    Vector normalOf(UTriangle<float> const& triangle) const
    {
        Point const a = placed(triangle.cV(0));
        return ((placed(triangle.cV(1)) - a) * (placed(triangle.cV(2)) - a)) * m_sense;
    }

    bool isInPlane(UTriangle<float> const& triangle) const
    {
        for (int corner = 0; corner < 3; ++corner)
            if (std::abs((placed(triangle.cV(corner)) - m_at.point) | m_at.normal) > m_reach)
                return false;
        return (normalOf(triangle) | m_at.normal) > 0;
    }

    void collect()
    {
        for (UTriangle<float> const* const triangle : m_mesh->triangles)
            if (isInPlane(*triangle))
                m_triangles.push_back(triangle);
    }

    /// How far the place lies beyond an edge of a triangle, at most; not above 0 within it.
    double outsideOf(UTriangle<float> const& triangle) const
    {
        double most = -std::numeric_limits<double>::infinity();
        for (int corner = 0; corner < 3; ++corner) {
            Point const a = placed(triangle.cV(corner));
            Vector const out =
                ((placed(triangle.cV((corner + 1) % 3)) - a) * m_at.normal) * m_sense;
            double const length = out.GetLength();
            if (length > 0)
                most = std::max(most, ((m_at.point - a) | out) / length);
        }
        return most;
    }

    /// Leaves the triangles that are joined to that at the place, edge by edge.
    void keepAroundPlace()
    {
        if (m_triangles.empty())
            return;
        std::unordered_map<VertexPair, std::vector<std::size_t>, PairHash> byEdge;
        for (std::size_t t = 0; t < m_triangles.size(); ++t)
            for (int k = 0; k < 3; ++k)
                byEdge[pairOf(*m_triangles[t], k)].push_back(t);
        auto const start = std::min_element(
            m_triangles.begin(), m_triangles.end(),
            [&](auto const* a, auto const* b) { return outsideOf(*a) < outsideOf(*b); });
        std::vector<bool> isReached(m_triangles.size());
        std::vector<std::size_t> open{std::size_t(start - m_triangles.begin())};
        isReached[open.back()] = true;
        std::vector<UTriangle<float> const*> kept;
        while (!open.empty()) {
            UTriangle<float> const* const triangle = m_triangles[open.back()];
            open.pop_back();
            kept.push_back(triangle);
            for (int k = 0; k < 3; ++k)
                for (std::size_t const next : byEdge[pairOf(*triangle, k)])
                    if (!isReached[next]) {
                        isReached[next] = true;
                        open.push_back(next);
                    }
        }
        m_triangles = std::move(kept);
    }

    void findOutline()
    {
        std::unordered_map<VertexPair, int, PairHash> counts;
        for (UTriangle<float> const* const triangle : m_triangles)
            for (int k = 0; k < 3; ++k)
                ++counts[pairOf(*triangle, k)];
        for (UTriangle<float> const* const triangle : m_triangles)
            for (int k = 0; k < 3; ++k)
                if (VertexPair const ends = pairOf(*triangle, k); counts[ends] == 1)
                    m_outline.push_back({ends});
    }

    void findTurns()
    {
        std::unordered_set<Vertex> vertices;
        std::unordered_map<VertexPair, OutlineEdge*, PairHash> edges;
        for (OutlineEdge& edge : m_outline) {
            edges[edge.ends] = &edge;
            vertices.insert({edge.ends.first, edge.ends.second});
        }
        std::unordered_set<UTriangle<float> const*> const own(m_triangles.begin(),
                                                              m_triangles.end());
        for (UTriangle<float> const* const triangle : m_mesh->triangles) {
            int met = 0;
            for (int k = 0; k < 3; ++k)
                met += int(vertices.contains(triangle->cV(k)));
            if (met < 2 || own.contains(triangle))
                continue;
            for (int k = 0; k < 3; ++k)
                if (auto const edge = edges.find(pairOf(*triangle, k)); edge != edges.end())
                    edge->second->turnDegrees = turnOf(*triangle);
        }
    }

    double turnOf(UTriangle<float> const& triangle) const
    {
        Vector const normal = normalOf(triangle);
        return std::atan2((normal * m_at.normal).GetLength(), normal | m_at.normal) * 180 /
               std::numbers::pi;
    }

    /// With all that goes on from it at both ends.
    Edge straightened(OutlineEdge const& start) const
    {
        std::multimap<Vertex, Vertex> next;
        for (OutlineEdge const& each : m_outline)
            if (each.turnDegrees > sharpDegrees) {
                next.emplace(each.ends.first, each.ends.second);
                next.emplace(each.ends.second, each.ends.first);
            }
        return {placed(endOf(next, start.ends.second, start.ends.first)),
                placed(endOf(next, start.ends.first, start.ends.second))};
    }

    Vertex endOf(std::multimap<Vertex, Vertex> const& next, Vertex from, Vertex to) const
    {
        Vector const way = placed(to) - placed(from);
        std::set<Vertex> seen{from, to};
        for (bool goesOn = true; goesOn;) {
            goesOn = false;
            auto const [first, last] = next.equal_range(to);
            for (auto step = first; step != last && !goesOn; ++step) {
                Vector const on = placed(step->second) - placed(to);
                goesOn = (on | way) > straight * on.GetLength() * way.GetLength() &&
                         seen.insert(step->second).second;
                if (goesOn)
                    to = step->second;
            }
        }
        return to;
    }

    std::shared_ptr<UMesh<float> const> m_mesh;
    UMatrix4<float> m_matrix;
    SurfacePoint m_at;
    double m_sense = 1;
    double m_reach = 0;
    std::vector<UTriangle<float> const*> m_triangles;
    std::vector<OutlineEdge> m_outline;
};

/// The nearest place on an edge, as a share of its length.
double nearestOn(Edge const& edge, Point const& point)
{
    double const square = edge.along() | edge.along();
    return square > 0 ? std::clamp(((point - edge.from) | edge.along()) / square, 0.0, 1.0) : 0;
}

Point at(Edge const& edge, double share)
{
    return edge.from + edge.along() * share;
}

}  // namespace

Surroundings surroundingsOf(MeshKernel const& part, SurfacePoint const& place, double reach)
{
    if (place.normal.GetLength() == 0)
        return {};
    FlatRegion const region(part, place);
    return {region.edgeWithin(reach), region.face()};
}

double distance(UPoint3<double> const& point, Edge const& edge)
{
    return (point - at(edge, nearestOn(edge, point))).GetLength();
}

// Where the nearest places lie within both edges they are those of the lines; else one of them is an
// end.
double distance(Edge const& a, Edge const& b)
{
    double least = std::min(std::min(distance(a.from, b), distance(a.to, b)),
                            std::min(distance(b.from, a), distance(b.to, a)));
    Vector const u = a.along(), v = b.along(), between = a.from - b.from;
    double const uu = u | u, uv = u | v, vv = v | v;
    double const determinant = uu * vv - uv * uv;
    if (determinant <= 1e-12 * uu * vv)
        return least;
    double const s = (uv * (v | between) - vv * (u | between)) / determinant;
    double const t = (uu * (v | between) - uv * (u | between)) / determinant;
    if (s >= 0 && s <= 1 && t >= 0 && t <= 1)
        least = std::min(least, (at(a, s) - at(b, t)).GetLength());
    return least;
}

double angle(Edge const& a, Edge const& b)
{
    Vector const u = a.along(), v = b.along();
    return std::atan2((u * v).GetLength(), std::abs(u | v)) * 180 / std::numbers::pi;
}

}  // namespace Measuring
